#pragma once

#include "platform/print_job.h"

#include <QList>
#include <QPageLayout>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QPrinter;
class QWidget;

namespace merov::platform
{

constexpr int HighQuality = -4; ///< the finest resolution that a printer has
constexpr int DraftQuality = -1;
constexpr int Monochrome = 1;
constexpr int Colour = 2;

/// The printers and what the user has set for them in this run. Nothing of it outlives the program.
///
/// Behind the printers of the system stands one that writes a PDF file, so that there is paper's twin
/// also without a printer. The environment variable MEROV_NO_PDF_PRINTER, set to anything but nothing,
/// takes it away.
class Printers
{
public:
    virtual ~Printers() = default;

    /// The names of the printers that can be chosen, those of the system first.
    QStringList Names() const;

    /// True for the name of the printer that writes PDF files.
    static bool WritesFile(const QString& printer);

    /// The papers that a printer takes, at least one, each size once.
    /// @param printer  one of Names(); of an empty or unknown one the usual papers
    virtual QList<QPageSize> Papers(const QString& printer) const;

    /// The printer in use: the one that was set, as long as it is among Names(); else the system's
    /// default, else the one that writes PDF files, else the first. Empty without any.
    QString Current() const;
    void SetCurrent(const QString& name) { current_ = name; }

    /// The paper and its orientation: at first an upright one of the size in use where the program
    /// runs, "A4" for PDF files. Margins are left to what is printed.
    QPageLayout Layout() const;
    void SetLayout(const QPageLayout& layout);

    // Settings of the printer, which print jobs take. The setters raise PrinterError where the printer
    // or its driver refuses a value.
    QPageLayout::Orientation Orientation() const { return orientation_; }
    virtual void SetOrientation(QPageLayout::Orientation orientation);
    int PrintQuality() const { return quality_; }
    virtual void SetPrintQuality(int quality);
    int ColorMode() const { return colorMode_; }
    virtual void SetColorMode(int mode);

    /// Starts a job on the printer in use, with its first page.
    /// @param title  as it stands in the printer's queue and among the properties of a PDF file
    /// @param file   where the PDF goes; of no meaning on other printers
    /// Raises PrinterError 482 where the printer cannot be reached or the file cannot be written, 484
    /// where the printer has gone.
    virtual std::unique_ptr<PrintJob> StartJob(const QString& title, const QString& file);

protected:
    /// Makes the settings of a job on a device: paper, orientation, colour and title.
    void SetUp(QPrinter& device, const QString& title) const;

    /// The printers of the system, and its default one; empty without.
    virtual QStringList SystemNames() const = 0;
    virtual QString Default() const = 0;

    /// Whether PDF files can be printed to: not where MEROV_NO_PDF_PRINTER is set.
    virtual bool OffersFile() const;

    /// The paper in use as long as none was set: "A4", or "Letter" where inches are in use.
    virtual QPageSize DefaultPaper() const;

private:
    QString current_;
    std::optional<QPageSize> paper_; ///< as long as none was set, that of the printer in use
    QPageLayout::Orientation orientation_ = QPageLayout::Portrait;
    int quality_ = HighQuality;
    int colorMode_ = Colour;
};

/// The printers of this computer. They are looked up at each call, so that one which was plugged in
/// meanwhile is there.
class SystemPrinters : public Printers
{
public:
    QList<QPageSize> Papers(const QString& printer) const override;

protected:
    QStringList SystemNames() const override;
    QString Default() const override;
    QPageSize DefaultPaper() const override;
};

/// A computer without any printer of its own: what is printed becomes a PDF file, the same everywhere.
class FilePrinters : public Printers
{
protected:
    QStringList SystemNames() const override { return {}; }
    QString Default() const override { return {}; }
    bool OffersFile() const override { return true; }
};

/// The dialog "Print Setup": printer, paper and orientation. Without any printer the paper can still
/// be set. A cancel, and closing the dialog, changes nothing.
/// @param parent  the window over which it is shown
/// @return true on "OK"
bool AskPrintSetup(Printers& printers, QWidget* parent);

} // namespace merov::platform
