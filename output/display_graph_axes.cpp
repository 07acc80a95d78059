#include "output/display_graph.h"

#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

namespace merov::output
{
namespace
{

constexpr double Minute = 1.0 / 60.0;
constexpr long PoleMinute = 90 * 60;
constexpr long RoundMinutes = 360 * 60;

/// The whole minute of the tick that follows a bound: the next one to the north or east, of a negative
/// bound the one behind it. A bound within numeric::Tolerance of a whole minute counts as that minute.
long MinuteAfter(double bound)
{
    const double minutes = bound / Minute;
    const double nearest = std::round(minutes);
    if (std::abs(minutes - nearest) * Minute < numeric::Tolerance) return std::lround(nearest) + 1;
    return std::lround(std::trunc(minutes)) + 1;
}

/// The last four characters tell tenths and hemisphere.
QString WholeMinutes(const std::string& position)
{
    return QString::fromStdString(position).chopped(4);
}

QString WholeLong(long minute)
{
    return WholeMinutes(numeric::FormatLong(numeric::Norm360(static_cast<double>(minute) * Minute)));
}

/// Places labels so that each can be read.
class LabelPlacer
{
public:
    LabelPlacer(const ChartSheet& sheet, const TextMeasure& measure, std::vector<ChartLabel>& labels)
        : sheet_(sheet), labels_(labels), small_(measure.Line(9)), large_(measure.Line(10)),
          sideways_(measure.Width(QStringLiteral("0"), 10) / 2.0)
    {
    }

    const TextLine& Line(int points) const { return points == 9 ? small_ : large_; }

    /// The next labels leave that much free above and below them, units.
    void KeepApart(double upright) { upright_ = upright; }

    /// Adds a label unless it would lie on another.
    /// @param x, y    its upper left corner, degrees
    /// @param width   of its text, units
    /// @param text    gives the text
    template <class Text>
    void Place(double x, double y, double width, int points, Text text)
    {
        const TextLine& line = Line(points);
        QPointF corner = sheet_.Place(x, y);
        corner.setX(std::max(0.0, corner.x()));
        corner.setY(std::min(corner.y(), sheet_.Height - line.Baseline));
        const QRectF digits(corner.x(), corner.y() + line.DigitTop, width, line.Baseline - line.DigitTop);
        const QRectF kept = digits.adjusted(-sideways_, -upright_, sideways_, upright_);
        const auto hit = [&kept](const QRectF& other) { return kept.intersects(other); };
        if (std::any_of(taken_.rbegin(), taken_.rend(), hit)) return;
        taken_.push_back(digits);
        const QPointF place = sheet_.Degrees(corner);
        labels_.push_back({text(), points, place.x(), place.y()});
    }

private:
    const ChartSheet& sheet_;
    std::vector<ChartLabel>& labels_;
    TextLine small_;
    TextLine large_;
    double sideways_; // what the next labels leave free around them
    double upright_ = 0.0;
    std::vector<QRectF> taken_;
};

/// What both scales need, worked out once.
struct Scales {
    const ChartSheet& Sheet;
    const TextMeasure& Measure;
    ChartAxes& Axes;
    LabelPlacer Labels;
    double H9; // heights by which labels are set off, degrees of latitude
    double H10;
    long FirstParallel; // whole minutes that have a tick: the first one, and one behind the last
    long EndParallel;
    long FirstMeridian;
    long EndMeridian;

    Scales(const ChartSheet& sheet, const TextMeasure& measure, ChartAxes& axes)
        : Sheet(sheet), Measure(measure), Axes(axes), Labels(sheet, measure, axes.Labels)
    {
        const double unit = 1.0 / sheet.UnitsPerLat();
        H9 = Labels.Line(9).Height * unit * (sheet.Target == ChartTarget::Screen ? 0.8 : 1.16);
        H10 = Labels.Line(10).Height * unit / 2.0;
        const auto endOf = [](double bound) { return std::lround(std::ceil(std::min(bound, 1000.0) / Minute)); };
        FirstParallel = std::max(MinuteAfter(sheet.ChartLatMin), -PoleMinute);
        EndParallel = std::min(endOf(sheet.ChartLatMax), PoleMinute + 1);
        FirstMeridian = MinuteAfter(sheet.ChartLongMin);
        EndMeridian = std::min(endOf(sheet.ChartLongMin + sheet.DLong), FirstMeridian + RoundMinutes);
    }

    double MeridianX(long minute) const
    {
        return Sheet.XMin + (static_cast<double>(minute) * Minute - Sheet.ChartLongMin);
    }

    /// How many minutes lie between lines of the grid, of which one minute is so wide.
    long GridStep(double unitsPerMinute) const
    {
        const double least = Labels.Line(9).Height / 2.0;
        for (const long step : {1L, 2L, 5L, 10L, 15L, 30L})
            if (static_cast<double>(step) * unitsPerMinute >= least) return step;
        long step = 60;
        while (static_cast<double>(step) * unitsPerMinute < least)
            step *= 2;
        return step;
    }
};

void AddParallels(Scales& scales)
{
    const ChartSheet& sheet = scales.Sheet;
    ChartAxes& axes = scales.Axes;
    const long gridStep = scales.GridStep(sheet.UnitsPerLat() * Minute);
    if (std::abs(sheet.ChartLatMin) <= 90.0) {
        axes.Parallels.push_back(sheet.ChartLatMin);
        axes.GridParallels.push_back(sheet.ChartLatMin);
    }
    for (long minute = scales.FirstParallel; minute < scales.EndParallel; ++minute) {
        const double y = static_cast<double>(minute) * Minute;
        axes.Parallels.push_back(y);
        if (minute % gridStep == 0) axes.GridParallels.push_back(y);
    }
}

void AddMeridians(Scales& scales)
{
    const ChartSheet& sheet = scales.Sheet;
    ChartAxes& axes = scales.Axes;
    const long gridStep = scales.GridStep(sheet.UnitsPerLong() * Minute);
    axes.Meridians.push_back(sheet.XMin);
    axes.GridMeridians.push_back(sheet.XMin);
    for (long minute = scales.FirstMeridian; minute < scales.EndMeridian; ++minute) {
        const double x = scales.MeridianX(minute);
        axes.Meridians.push_back(x);
        if (minute % gridStep == 0) axes.GridMeridians.push_back(x);
    }
}

/// The labels of the two bounds: whole positions in the corner of the sheet.
void LabelBounds(Scales& scales)
{
    const ChartSheet& sheet = scales.Sheet;
    const ChartAxes& axes = scales.Axes;
    if (std::abs(sheet.ChartLatMin) <= 90.0) {
        const QString text = QString::fromStdString(numeric::FormatLat(sheet.ChartLatMin));
        const double room = scales.Measure.Width(QStringLiteral("00°00'.0 N "), 10) / sheet.UnitsPerLong();
        scales.Labels.Place(axes.TickLeft - room, sheet.ChartLatMin + scales.H10 * 0.3, scales.Measure.Width(text, 10),
                            10, [&] { return text; });
    }
    const QString text = QString::fromStdString(numeric::FormatLong(sheet.ChartLongMin));
    const double width = scales.Measure.Width(text, 10);
    const double degrees = width / sheet.UnitsPerLong();
    if (sheet.XMin + degrees / 2.0 <= sheet.XMax)
        scales.Labels.Place(sheet.XMin - degrees * 0.96 / 2.0, axes.TickLow - scales.H10, width, 10,
                            [&] { return text; });
}

/// The digits of a font have one width, so that a text of zeros measures all labels of a kind.
void LabelParallels(Scales& scales)
{
    const ChartSheet& sheet = scales.Sheet;
    const double left =
        scales.Axes.TickLeft - scales.Measure.Width(QStringLiteral("00°00' "), 10) / sheet.UnitsPerLong();
    const double width = scales.Measure.Width(QStringLiteral("00°00'"), 10);
    scales.Labels.KeepApart(scales.Labels.Line(10).DigitTop);
    for (long minute = scales.FirstParallel; minute < scales.EndParallel; ++minute) {
        const double y = static_cast<double>(minute) * Minute;
        if (y + scales.H10 > sheet.ChartLatMax) break;
        scales.Labels.Place(left, y + scales.H10, width, 10, [y] { return WholeMinutes(numeric::FormatLat(y)); });
    }
}

/// Labels by the place of a meridian in each four: 1 is a whole label, 3 minutes on its row, 2 and 4
/// minutes on a row below. The left bound is the first 1.
void LabelMeridians(Scales& scales, bool whole)
{
    const ChartSheet& sheet = scales.Sheet;
    const int points = whole ? 10 : 9;
    const double width = scales.Measure.Width(whole ? QStringLiteral("000°00'") : QStringLiteral("00'"), points);
    const double degrees = width / sheet.UnitsPerLong();
    const double top = scales.Axes.TickLow - scales.H10;
    scales.Labels.KeepApart(0.0); // their rows stand close
    for (long minute = scales.FirstMeridian; minute < scales.EndMeridian; ++minute) {
        const long place = (minute - scales.FirstMeridian + 1) % 4 + 1;
        const double x = scales.MeridianX(minute);
        if (x + degrees / 2.0 > sheet.XMax) break;
        if ((place == 1) != whole) continue;
        scales.Labels.Place(x - degrees / 2.0, place % 2 == 0 ? top - scales.H9 : top, width, points, [&] {
            const QString text = WholeLong(minute);
            return whole ? text : text.right(3);
        });
    }
}

} // namespace

ChartAxes SetUpChartAxes(const ChartSheet& sheet, const TextMeasure& measure)
{
    const bool onScreen = sheet.Target == ChartTarget::Screen;
    ChartAxes axes;
    axes.TickLeft = sheet.XMin - sheet.MLat * 0.1;
    axes.TickRight = sheet.XMin + sheet.MLat * (onScreen ? 0.14 : 0.1);
    axes.TickLow = sheet.ChartLatMin - sheet.MLat * 0.1;
    axes.TickHigh = sheet.ChartLatMin + sheet.MLat * (onScreen ? 0.12 : 0.1);

    Scales scales(sheet, measure, axes);
    AddParallels(scales);
    AddMeridians(scales);
    LabelBounds(scales);
    LabelParallels(scales);
    LabelMeridians(scales, true);
    LabelMeridians(scales, false);
    return axes;
}

} // namespace merov::output
