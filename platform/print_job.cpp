#include "platform/print_job.h"

#include <QPainter>
#include <QPrinter>

#include <utility>

namespace merov::platform
{
namespace
{

[[noreturn]] void Fail(const QString& what)
{
    throw PrinterError(PrinterFailed, what.toStdString());
}

[[noreturn]] void FailToWrite(const QSaveFile& file)
{
    Fail(QStringLiteral("The file \"%1\" can't be written: %2.").arg(file.fileName(), file.errorString()));
}

void Check(bool done, const QPrinter& printer)
{
    const QPrinter::PrinterState state = printer.printerState();
    if (!done || state == QPrinter::Error || state == QPrinter::Aborted)
        Fail(QStringLiteral("The printer \"%1\" broke the job off.").arg(printer.printerName()));
}

} // namespace

PrintJob::PrintJob(std::unique_ptr<QPrinter> printer, const QString& file)
    : printer_(std::move(printer)), painter_(std::make_unique<QPainter>())
{
    if (printer_->outputFormat() == QPrinter::PdfFormat) {
        file_ = std::make_unique<QSaveFile>(file);
        if (!file_->open(QIODevice::WriteOnly)) FailToWrite(*file_);
        printer_->setOutputFileName(folder_.filePath(QStringLiteral("job.pdf")));
    }
    if (!painter_->begin(printer_.get()))
        Fail(QStringLiteral("The printer \"%1\" can't be reached.").arg(printer_->printerName()));
}

PrintJob::~PrintJob()
{
    if (painter_->isActive()) printer_->abort();
    painter_.reset(); // before its device
}

QRectF PrintJob::Page() const
{
    return {{0.0, 0.0}, printer_->pageRect(QPrinter::DevicePixel).size()};
}

QRectF PrintJob::Paper() const
{
    return printer_->paperRect(QPrinter::DevicePixel).translated(-printer_->pageRect(QPrinter::DevicePixel).topLeft());
}

double PrintJob::DotsPerInch() const
{
    return printer_->resolution();
}

void PrintJob::NewPage()
{
    Check(printer_->newPage(), *printer_);
}

void PrintJob::EndDoc()
{
    Check(painter_->end(), *printer_);
    if (!file_) return;

    QFile pages(printer_->outputFileName());
    const QByteArray pdf = pages.open(QIODevice::ReadOnly) ? pages.readAll() : QByteArray();
    if (!pdf.trimmed().endsWith("%%EOF"))
        Fail(QStringLiteral("There is no room for the pages in %1.").arg(folder_.path()));
    // The commit writes what is still buffered and doesn't tell when that fails.
    if (file_->write(pdf) != pdf.size() || !file_->flush() || !file_->commit()) FailToWrite(*file_);
}

} // namespace merov::platform
