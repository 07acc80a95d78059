#include "output/exports.h"

#include "fix/sight_views.h"
#include "output/chart_painter.h"
#include "output/file_output.h"
#include "output/numeric_report.h"
#include "output/print_lib.h"
#include "output/sailing_report.h"
#include "platform/printers.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

namespace merov::output
{
namespace
{

using Failure = std::optional<QString>;

constexpr QSize ScreenSize(1280, 800);
constexpr int ScreenDotsPerInch = 96;

Failure WritePicture(const QString& file, const ChartSubject& chart)
{
    QImage image(ScreenSize, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(ScreenDotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(ScreenDotsPerInch / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    if (!DrawChart(painter, ScreenSize, chart)) return QString();
    painter.end();
    QBuffer bytes;
    image.save(&bytes, "PNG");
    return WriteBytes(file, bytes.data());
}

Failure WriteDrawing(const QString& file, const ChartSubject& chart)
{
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(ScreenSize);
    generator.setViewBox(QRect(QPoint(), ScreenSize));
    generator.setResolution(ScreenDotsPerInch);
    generator.setTitle("Position chart by Merov");
    generator.setDescription(ChartDescription(chart.Session));
    QPainter painter(&generator);
    if (!DrawChart(painter, ScreenSize, chart)) return QString();
    painter.end();
    return WriteBytes(file, bytes.data());
}

} // namespace

Failure WriteReport(const QString& file, const QString& appPath, fix::SightSession session,
                    const sailing::EarthModel& earth)
{
    platform::RichText report;
    const Failure failure =
        BuildNumericReport(report, appPath + "/NumResults.rtf", session, earth, LinesPerPage(platform::FilePrinters()));
    return failure ? failure : WriteText(file, "Astronomic position by Merov", report.Document(), ReportMargins);
}

Failure WriteChart(const QString& file, fix::SightSession session, const sailing::EarthModel& earth)
{
    fix::BuildChartView(session, earth.InverseFlattening, earth.SemiMajorAxisNm);
    const ChartSubject chart{session, earth};
    if (Ending(file) == "png") return WritePicture(file, chart);
    if (Ending(file) == "svg") return WriteDrawing(file, chart);
    bool drawn = false;
    const Failure failure =
        WritePdf(file, "Position chart by Merov", QPageLayout::Landscape, [&drawn, &chart](platform::PrintJob& job) {
            drawn = DrawChartPage(job, chart);
            if (drawn) job.EndDoc();
        });
    return failure || drawn ? failure : QString();
}

Failure WriteSailingReport(const QString& file, const QString& appPath, const sailing::Voyage& voyage,
                           const sailing::EarthModel& earth)
{
    const QString ellipsoid = QString::fromStdString(sailing::EllipsoidName(sailing::ActiveEllipsoidIndex()));
    platform::RichText report;
    const Failure failure = BuildSailingReport(report, appPath + "/CalcWP.rtf", voyage, ellipsoid, earth);
    return failure ? failure : WriteText(file, "Great circle by Merov", report.Document(), SailingReportMargins);
}

} // namespace merov::output
