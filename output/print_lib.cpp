#include "output/print_lib.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPrinter>

#include <cmath>

namespace merov::output
{

int LinesPerPage(const platform::Printers& printers)
{
    if (printers.Names().isEmpty()) return 0;
    // Letters are as high on every printer: one that writes files measures them without asking a server.
    QPrinter device(QPrinter::HighResolution);
    device.setOutputFormat(QPrinter::PdfFormat);
    const QFontMetricsF metrics(QFont(QStringLiteral("Arial"), 12), &device);
    const double paper = printers.Layout().pageSize().size(QPageSize::Inch).height() * device.resolution();
    return static_cast<int>(std::floor(paper / metrics.height()));
}

} // namespace merov::output
