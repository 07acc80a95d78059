#pragma once

#include <QRectF>
#include <QSaveFile>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>
#include <string>

class QPainter;
class QPrinter;

namespace merov::platform
{

// Numbers of the failures of printing.
constexpr int PropertyRefused = 380;    ///< the printer doesn't take a value of a setting
constexpr int PrinterFailed = 482;      ///< not ready, out of reach, or it broke off
constexpr int SettingUnsupported = 483; ///< its driver doesn't know a setting
constexpr int DriverMissing = 484;

/// A failure of printing.
class PrinterError : public std::runtime_error
{
public:
    PrinterError(int number, const std::string& description) : std::runtime_error(description), number_(number) {}
    int Number() const { return number_; }

private:
    int number_;
};

/// A job on a printer, from its first page on. A job that is destroyed without EndDoc is broken off: a
/// file is as it was before; printers that can't take a job back print the pages it had.
///
/// All measures are dots of the printer with the corner of the printable area as origin, as its painter
/// has them.
class PrintJob
{
public:
    /// Starts the job with its first page.
    /// @param printer  not in use yet, its paper and other settings made
    /// @param file     where a printer that writes PDF files leaves its own, which is there, whole, after
    ///                 EndDoc; empty for any other printer
    /// Raises PrinterError 482 where the printer cannot be reached or the file cannot be written.
    explicit PrintJob(std::unique_ptr<QPrinter> printer, const QString& file = {});
    virtual ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    /// Draws on the present page. Fonts in points come out in their size.
    QPainter& Painter() { return *painter_; }

    /// The device to measure texts for.
    QPrinter& Device() { return *printer_; }

    /// The paper, whose corner lies above and to the left of the origin, and the printable area on it.
    QRectF Paper() const;
    QRectF Page() const;

    double DotsPerInch() const;
    double Dots(double twips) const { return twips * DotsPerInch() / 1440.0; }
    double Twips(double dots) const { return dots * 1440.0 / DotsPerInch(); }

    /// Begins the next page, or ends the job and hands it to the printer. Raise PrinterError 482 where the
    /// printer fails.
    virtual void NewPage();
    virtual void EndDoc();

private:
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPainter> painter_;
    std::unique_ptr<QSaveFile> file_;
    QTemporaryDir folder_; ///< of the PDF in the making
};

} // namespace merov::platform
