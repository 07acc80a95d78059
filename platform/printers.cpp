#include "platform/printers.h"

#include "platform/locale.h"
#include "platform/print_setup.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <utility>

namespace merov::platform
{
namespace
{

/// Dots an inch that every job does with. Sizes in whole dots and whole twips need no finer ones.
constexpr int GreatestResolution = 1200;

QString FileName()
{
    return QStringLiteral("PDF file");
}

} // namespace

QList<QPageSize> Printers::Papers(const QString&) const
{
    QList<QPageSize> papers;
    for (const QPageSize::PageSizeId id : {QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::Letter,
                                           QPageSize::Legal, QPageSize::Executive, QPageSize::Tabloid})
        papers += QPageSize(id);
    return papers;
}

QStringList Printers::Names() const
{
    QStringList names = SystemNames();
    if (OffersFile()) names += FileName();
    return names;
}

bool Printers::WritesFile(const QString& printer)
{
    return printer == FileName();
}

bool Printers::OffersFile() const
{
    return qEnvironmentVariableIsEmpty("MEROV_NO_PDF_PRINTER");
}

QString Printers::Current() const
{
    const QStringList names = Names();
    for (const QString& name : {current_, Default(), FileName()})
        if (names.contains(name)) return name;
    return names.value(0);
}

void Printers::SetLayout(const QPageLayout& layout)
{
    paper_ = layout.pageSize();
    orientation_ = layout.orientation();
}

void Printers::SetOrientation(QPageLayout::Orientation orientation)
{
    orientation_ = orientation;
}

void Printers::SetPrintQuality(int quality)
{
    quality_ = quality;
}

void Printers::SetColorMode(int mode)
{
    colorMode_ = mode;
}

std::unique_ptr<PrintJob> Printers::StartJob(const QString& title, const QString& file)
{
    const QString name = Current();
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (WritesFile(name)) {
        device->setOutputFormat(QPrinter::PdfFormat);
    } else {
        device->setOutputFormat(QPrinter::NativeFormat);
        device->setPrinterName(name);
        if (device->printerName() != name)
            throw PrinterError(DriverMissing, "The printer \"" + name.toStdString() + "\" has gone.");
    }
    SetUp(*device, title);
    return std::make_unique<PrintJob>(std::move(device), WritesFile(name) ? file : QString());
}

void Printers::SetUp(QPrinter& device, const QString& title) const
{
    const QPageLayout layout = Layout();
    device.setResolution(std::min(device.resolution(), GreatestResolution));
    device.setPageSize(layout.pageSize());
    device.setPageOrientation(layout.orientation());
    device.setColorMode(colorMode_ == Monochrome ? QPrinter::GrayScale : QPrinter::Color);
    device.setDocName(title);
    device.setCreator(QStringLiteral("Merov"));
}

QPageLayout Printers::Layout() const
{
    return {paper_ ? *paper_ : DefaultPaper(), orientation_, QMarginsF()};
}

QPageSize Printers::DefaultPaper() const
{
    if (WritesFile(Current())) return QPageSize(QPageSize::A4);
    const bool inches = ScreenLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(inches ? QPageSize::Letter : QPageSize::A4);
}

QStringList SystemPrinters::SystemNames() const
{
    return QPrinterInfo::availablePrinterNames();
}

QList<QPageSize> SystemPrinters::Papers(const QString& printer) const
{
    QList<QPageSize> papers;
    for (const QPageSize& paper : QPrinterInfo::printerInfo(printer).supportedPageSizes()) {
        // A driver lists a size again for each of its trays and for printing to the edge.
        const auto same = [&paper](const QPageSize& other) { return other.isEquivalentTo(paper); };
        if (paper.isValid() && std::none_of(papers.cbegin(), papers.cend(), same)) papers += paper;
    }
    return papers.isEmpty() ? Printers::Papers(printer) : papers;
}

QString SystemPrinters::Default() const
{
    return QPrinterInfo::defaultPrinterName();
}

QPageSize SystemPrinters::DefaultPaper() const
{
    const QString name = Current();
    const QPageSize paper = WritesFile(name) ? QPageSize() : QPrinterInfo::printerInfo(name).defaultPageSize();
    return paper.isValid() ? paper : Printers::DefaultPaper();
}

bool AskPrintSetup(Printers& printers, QWidget* parent)
{
    PrintSetup dialog(printers, parent);
    return dialog.Ask();
}

} // namespace merov::platform
