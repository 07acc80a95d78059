#include "platform/printers.h"

#include "platform/locale.h"
#include "platform/print_setup.h"

#include <QPrinterInfo>

#include <algorithm>
#include <utility>

namespace merov::platform
{

QList<QPageSize> Printers::Papers(const QString&) const
{
    QList<QPageSize> papers;
    for (const QPageSize::PageSizeId id : {QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::Letter,
                                           QPageSize::Legal, QPageSize::Executive, QPageSize::Tabloid})
        papers += QPageSize(id);
    return papers;
}

QString Printers::Current() const
{
    const QStringList names = Names();
    for (const QString& name : {current_, Default()})
        if (names.contains(name)) return name;
    return names.value(0);
}

QPageLayout Printers::Layout() const
{
    return layout_.value_or(QPageLayout(DefaultPaper(), QPageLayout::Portrait, QMarginsF()));
}

QPageSize Printers::DefaultPaper() const
{
    const bool inches = ScreenLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(inches ? QPageSize::Letter : QPageSize::A4);
}

QStringList SystemPrinters::Names() const
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
    QPageSize paper = QPrinterInfo::printerInfo(Current()).defaultPageSize();
    return paper.isValid() ? paper : Printers::DefaultPaper();
}

bool AskPrintSetup(Printers& printers, QWidget* parent)
{
    PrintSetup dialog(printers, parent);
    return dialog.Ask();
}

} // namespace merov::platform
