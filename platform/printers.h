#pragma once

#include <QList>
#include <QPageLayout>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace merov::platform
{

/// The printers and what the user has set for them in this run. Nothing of it outlives the program.
class Printers
{
public:
    virtual ~Printers() = default;

    /// The names of the printers that can be chosen, those of the system first.
    virtual QStringList Names() const = 0;

    /// The papers that a printer takes, at least one, each size once.
    /// @param printer  one of Names(); of an empty or unknown one the usual papers
    virtual QList<QPageSize> Papers(const QString& printer) const;

    /// The printer in use: the one that was set, as long as it is among Names(); else the system's
    /// default, else the first. Empty without any.
    QString Current() const;
    void SetCurrent(const QString& name) { current_ = name; }

    /// The paper and its orientation: at first an upright one of the size in use where the program
    /// runs. Margins are left to what is printed.
    QPageLayout Layout() const;
    void SetLayout(const QPageLayout& layout) { layout_ = layout; }

protected:
    /// The system's default printer; empty without one.
    virtual QString Default() const = 0;

    /// The paper in use as long as none was set: "A4", or "Letter" where inches are in use.
    virtual QPageSize DefaultPaper() const;

private:
    QString current_;
    std::optional<QPageLayout> layout_;
};

/// The printers of this computer. They are looked up at each call, so that one which was plugged in
/// meanwhile is there.
class SystemPrinters : public Printers
{
public:
    QStringList Names() const override;
    QList<QPageSize> Papers(const QString& printer) const override;

protected:
    QString Default() const override;
    QPageSize DefaultPaper() const override;
};

/// The dialog "Print Setup": printer, paper and orientation. Without any printer the paper can still
/// be set. A cancel, and closing the dialog, changes nothing.
/// @param parent  the window over which it is shown
/// @return true on "OK"
bool AskPrintSetup(Printers& printers, QWidget* parent);

} // namespace merov::platform
