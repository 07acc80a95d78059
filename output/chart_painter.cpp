#include "output/chart_painter.h"

#include "numeric/fault.h"
#include "numeric/message_box.h"
#include "output/chart_texts.h"
#include "output/display_graph.h"
#include "platform/canvas.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <new>

namespace merov::output
{

using platform::Canvas;

namespace
{

const QString FontName = QStringLiteral("Arial");
constexpr int TextPoints = 10;

QFont FontOf(int points)
{
    QFont font(FontName);
    font.setPointSizeF(points);
    return font;
}

/// Texts in the two sizes of the chart, on one device.
class DeviceMeasure : public TextMeasure
{
public:
    explicit DeviceMeasure(QPaintDevice* device) : small_(FontOf(9), device), large_(FontOf(10), device) {}

    double Width(const QString& text, int points) const override { return Metrics(points).horizontalAdvance(text); }
    TextLine Line(int points) const override
    {
        const QFontMetricsF& metrics = Metrics(points);
        return {metrics.height(), metrics.ascent() - metrics.capHeight(), metrics.ascent()};
    }

private:
    const QFontMetricsF& Metrics(int points) const { return points == 9 ? small_ : large_; }

    QFontMetricsF small_;
    QFontMetricsF large_;
};

/// One drawing of a chart: canvas, measures and the numbers of the chart.
struct Drawing {
    const ChartSubject& Chart;
    Canvas Surface;
    DeviceMeasure Measure;
    LopSegments Segments;
    ChartSheet Sheet;
    double LabelsEnd = 0.0; ///< how far down the labels of the scales reach, units

    Drawing(QPainter& painter, const QSizeF& size, const ChartSubject& chart)
        : Chart(chart), Surface(painter, QRectF({0.0, 0.0}, size)), Measure(painter.device())
    {
    }
};

void DrawScales(Drawing& drawing, const ChartAxes& axes)
{
    Canvas& surface = drawing.Surface;
    const ChartSheet& sheet = drawing.Sheet;
    surface.SetPen(Qt::black);
    surface.Line(sheet.XMin, sheet.ChartLatMin, sheet.XMin, sheet.ChartLatMax);
    surface.Line(sheet.XMin, sheet.ChartLatMin, sheet.XMax, sheet.ChartLatMin);
    for (const double y : axes.Parallels)
        surface.Line(axes.TickLeft, y, axes.TickRight, y);
    for (const double x : axes.Meridians)
        surface.Line(x, axes.TickLow, x, axes.TickHigh);
    for (const int points : {TextPoints, 9}) {
        surface.SetFont(FontName, points);
        for (const ChartLabel& label : axes.Labels) {
            if (label.Points != points) continue;
            surface.Text(label.X, label.Y, label.Text);
            drawing.LabelsEnd = std::max(drawing.LabelsEnd, sheet.Place(0.0, label.Y).y() + surface.TextHeight());
        }
    }
    if (!drawing.Chart.GridVisible) return;
    surface.SetPen(Qt::black, 1.0, Qt::DotLine);
    for (const double y : axes.GridParallels)
        surface.Line(axes.TickLeft, y, sheet.XMax, y);
    for (const double x : axes.GridMeridians)
        surface.Line(x, axes.TickLow, x, sheet.ChartLatMax);
}

void DrawAxes(Drawing& drawing, const QSizeF& size, ChartTarget target)
{
    drawing.Segments = BuildLopSegments(drawing.Chart.Session, drawing.Chart.Settings, drawing.Chart.Earth);
    drawing.Sheet = SetUpChartSheet(drawing.Segments, size.width(), size.height(), target);
    const ChartSheet& sheet = drawing.Sheet;
    drawing.Surface.SetScale(sheet.XLeft, sheet.ChartLatMax, sheet.XMax, sheet.Bottom);
    DrawScales(drawing, SetUpChartAxes(sheet, drawing.Measure));
}

void DrawLops(Drawing& drawing)
{
    const fix::SightSession& session = drawing.Chart.Session;
    const LopSegments& segments = drawing.Segments;
    const ChartSheet& sheet = drawing.Sheet;
    drawing.Surface.SetPen(Qt::black);
    for (int i = 1; i <= session.ObsCount; ++i)
        drawing.Surface.Line(sheet.X(segments.LopLong(i, 1)), segments.LopLat(i, 1), sheet.X(segments.LopLong(i, 2)),
                             segments.LopLat(i, 2));
    for (const LopLabel& label : PlaceLopLabels(session, segments, sheet, drawing.Measure)) {
        const QPointF place = sheet.Degrees(label.Place);
        if (!label.Text.isEmpty()) drawing.Surface.Text(place.x(), place.y(), label.Text);
    }
}

/// The ellipse of two sights has no size and is not drawn.
void DrawEllipse(Drawing& drawing, double x)
{
    const fix::SightSession& session = drawing.Chart.Session;
    const bool none = session.EllipseEW == 0.0 && session.EllipseNS == 0.0;
    const double eastWest = none ? 1.0 : session.EllipseEW;
    const double ratio = numeric::Quotient(session.EllipseNS, eastWest);
    if (ratio > 0.0) drawing.Surface.Ellipse(x, session.TrueLat, eastWest, eastWest * ratio, false);
}

void DrawData(Drawing& drawing)
{
    const fix::SightSession& session = drawing.Chart.Session;
    const ChartSheet& sheet = drawing.Sheet;
    Canvas& surface = drawing.Surface;
    surface.SetFont(FontName, TextPoints);
    const double m = std::abs(sheet.ChartLatMax - sheet.ChartLatMin) * 0.01;

    const double estX = sheet.X(session.ObsLong[0]);
    surface.SetPen(Qt::magenta, 2.0);
    surface.Line(estX - m, session.ObsLat[0], estX + m, session.ObsLat[0]);
    surface.Line(estX, session.ObsLat[0] - m, estX, session.ObsLat[0] + m);

    const double trueX = sheet.X(session.TrueLong);
    const double radius = m * (sheet.Target == ChartTarget::Screen ? 0.35 : 0.3);
    surface.SetPen(Qt::blue);
    surface.Ellipse(trueX, session.TrueLat, radius * sheet.UnitsPerLat() / sheet.UnitsPerLong(), radius, true);

    DrawLops(drawing);
    surface.SetPen(Qt::blue);
    DrawEllipse(drawing, trueX);
}

/// The line of a box that tells of an error.
std::string ErrorLine(const std::exception& error)
{
    const auto* fault = dynamic_cast<const numeric::Fault*>(&error);
    return (fault ? "Error " + std::to_string(fault->Number()) : "Error") + ": " + error.what();
}

/// Runs a part of the drawing on the screen.
/// @return false after the box that tells why it failed
template <class Part>
bool Drawn(const std::string& what, Part part)
{
    try {
        part();
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        numeric::ShowError(" ERROR", {"Error when plotting " + what + ".", ErrorLine(error)});
        return false;
    }
}

double LegendWidth(Canvas& surface, const ChartLegend& legend, double points)
{
    double width = 0.0;
    for (const LegendText& part : legend) {
        surface.SetFont(FontName, points, part.Bold);
        width += surface.TextWidth(part.Text);
    }
    return width;
}

/// The legend on the lower margin of a page. Where it is too long for the page it begins further left, and
/// if that doesn't help its letters are made smaller; on low pages it keeps below the labels.
void DrawLegend(Drawing& drawing)
{
    Canvas& surface = drawing.Surface;
    const ChartSheet& sheet = drawing.Sheet;
    const ChartLegend legend = ChartLegendOf(drawing.Chart.Session);
    const TextLine line = drawing.Measure.Line(TextPoints);
    double points = TextPoints;
    double width = LegendWidth(surface, legend, points);
    if (width > sheet.Width) {
        points *= sheet.Width / width * 0.995;
        width = LegendWidth(surface, legend, points);
    }
    const double left = sheet.Place(sheet.XMin, 0.0).x() + drawing.Measure.Width(QStringLiteral("12345"), TextPoints);
    const double top = std::max(sheet.Height - 3.0 * line.Height, drawing.LabelsEnd);
    QPointF place(std::max(0.0, std::min(left, sheet.Width - width)), std::min(top, sheet.Height - line.Height));
    surface.SetPen(Qt::black);
    for (const LegendText& part : legend) {
        surface.SetFont(FontName, points, part.Bold);
        const QPointF at = sheet.Degrees(place);
        surface.Text(at.x(), at.y(), part.Text);
        place.rx() += surface.TextWidth(part.Text);
    }
}

/// Puts a painter back as it was.
class KeptPainter
{
public:
    explicit KeptPainter(QPainter& painter) : painter_(painter) { painter.save(); }
    ~KeptPainter() { painter_.restore(); }
    KeptPainter(const KeptPainter&) = delete;
    KeptPainter& operator=(const KeptPainter&) = delete;

private:
    QPainter& painter_;
};

} // namespace

bool DrawChart(QPainter& painter, const QSizeF& size, const ChartSubject& chart)
{
    const KeptPainter kept(painter);
    painter.setClipRect(QRectF({0.0, 0.0}, size), Qt::IntersectClip);
    painter.fillRect(QRectF({0.0, 0.0}, size), Qt::white);
    Drawing drawing(painter, size, chart);
    return Drawn("axis", [&] { DrawAxes(drawing, size, ChartTarget::Screen); }) &&
           Drawn("data", [&] { DrawData(drawing); });
}

bool DrawChartPage(platform::PrintJob& job, const ChartSubject& chart)
{
    try {
        QPainter& painter = job.Painter();
        const KeptPainter kept(painter);
        painter.translate(job.Page().topLeft());
        painter.setClipRect(QRectF({0.0, 0.0}, job.Page().size()));
        Drawing drawing(painter, job.Page().size(), chart);
        DrawAxes(drawing, job.Page().size(), ChartTarget::Printer);
        DrawData(drawing);
        DrawLegend(drawing);
        return true;
    } catch (const platform::PrinterError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        numeric::ShowWarning("PRINTER PROBLEM", {"Trouble with your printer. Print aborted."});
        return false;
    }
}

} // namespace merov::output
