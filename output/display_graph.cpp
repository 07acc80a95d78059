#include "output/display_graph.h"

#include "ephemeris/time_lib.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/rhumb_line.h"

#include <QRectF>

#include <algorithm>
#include <cmath>
#include <optional>

namespace merov::output
{

using numeric::Norm360;

namespace
{

constexpr double SmallestIntercept = 0.4; // miles, by which the lines' length is measured at least
constexpr double MinutesPerDegree = 60.0;

/// Half the length of all position lines, miles.
double HalfLength(const fix::SightSession& session, double lopScale)
{
    double largest = 0.0;
    for (int i = 1; i <= session.ObsCount; ++i)
        largest = std::max(largest, std::abs(session.ObsIntercept[i] * MinutesPerDegree));
    return std::max(largest, SmallestIntercept) * lopScale;
}

/// The least and the greatest of some values.
struct Range {
    double Least = 0.0;
    double Greatest = 0.0;
};

Range RangeOf(const numeric::Matrix& ends)
{
    Range range{ends(1, 1), ends(1, 1)};
    for (int i = 1; i <= ends.Rows(); ++i)
        for (int end = 1; end <= 2; ++end)
            range = {std::min(range.Least, ends(i, end)), std::max(range.Greatest, ends(i, end))};
    return range;
}

/// The range of longitudes 0..360 that lie on both sides of 0, the short way: from the westernmost to the
/// easternmost, continued past 360.
Range RangeAcrossZero(const numeric::Matrix& longitudes)
{
    numeric::Matrix continued = longitudes;
    for (int i = 1; i <= continued.Rows(); ++i)
        for (int end = 1; end <= 2; ++end)
            if (continued(i, end) <= 180.0) continued(i, end) += 360.0;
    return RangeOf(continued);
}

Range WithMargins(const Range& range, double margin)
{
    const double greatest = range.Greatest + (range.Greatest - range.Least) * margin;
    return {range.Least - (greatest - range.Least) * margin, greatest};
}

/// Where the way from one place to another leaves the surface: the second place itself if it lies on the
/// surface, nothing if the way misses it. Clipping after Liang and Barsky (ACM Transactions on Graphics 3,
/// 1, 1984).
std::optional<QPointF> EndOnSurface(const QPointF& from, const QPointF& to, double width, double height)
{
    const QPointF way = to - from;
    const double speeds[] = {-way.x(), way.x(), -way.y(), way.y()};
    const double rooms[] = {from.x(), width - from.x(), from.y(), height - from.y()};
    double enters = 0.0;
    double leaves = 1.0;
    for (int edge = 0; edge < 4; ++edge) {
        if (speeds[edge] == 0.0) {
            if (rooms[edge] < 0.0) return {};
        } else if (speeds[edge] < 0.0) {
            enters = std::max(enters, rooms[edge] / speeds[edge]);
        } else {
            leaves = std::min(leaves, rooms[edge] / speeds[edge]);
        }
    }
    if (enters > leaves) return {};
    return from + way * leaves;
}

/// The body of a sight, with its time where another sight has the same body.
QString NameOfSight(const fix::SightSession& session, int i)
{
    const std::string& body = session.ObsBody[i];
    const bool alone = std::count(session.ObsBody.begin(), session.ObsBody.end(), body) == 1;
    return QString::fromStdString(alone ? body : body + "@" + ephemeris::FormatDateTime(session.ObsTime[i], "hh:mm"));
}

/// From the end of a position line to the upper left corner of its label, units.
QPointF LabelOffset(const fix::SightSession& session, const LopSegments& segments, int i, double width, double height)
{
    const double eastward = segments.LopLong(i, 2) - segments.LopLong(i, 1);
    const int sx = std::abs(eastward) > 180.0 ? -numeric::Sign(eastward) : numeric::Sign(eastward);
    const int sy = numeric::Sign(segments.LopLat(i, 2) - segments.LopLat(i, 1));
    const double a = session.ObsAzimuth[i] * numeric::DegToRad;
    const double f = sx == 1 ? 0.2 - std::abs(std::sin(a)) * 0.5 : -0.4 - std::abs(std::cos(a)) / 2.0;
    return {f * width, -(std::abs(std::sin(a)) * sy + 0.5) * height};
}

/// The place of some letters clear of others: their own, else the nearest above or below on a surface of
/// that height, else their own after all. @param gap  left free around them
QRectF ClearOf(const std::vector<QRectF>& others, const QRectF& letters, double gap, double height)
{
    const auto isClear = [&](const QRectF& place) {
        const QRectF wide = place.adjusted(-gap, 0.0, gap, 0.0);
        return std::none_of(others.begin(), others.end(), [&](const QRectF& other) { return wide.intersects(other); });
    };
    if (isClear(letters)) return letters;
    std::optional<double> best;
    for (const QRectF& other : others)
        for (const double top : {other.top() - gap - letters.height(), other.bottom() + gap}) {
            const double way = top - letters.top();
            const bool onSurface = top >= 0.0 && top + letters.height() <= height;
            if (onSurface && (!best || std::abs(way) < std::abs(*best)) && isClear(letters.translated(0.0, way)))
                best = way;
        }
    return letters.translated(0.0, best.value_or(0.0));
}

} // namespace

LopSegments BuildLopSegments(const fix::SightSession& session, const ChartSettings& settings,
                             const sailing::EarthModel& earth)
{
    const double r = earth.InverseFlattening;
    const double a = earth.SemiMajorAxisNm;
    const double half = HalfLength(session, settings.LopScale);
    LopSegments segments;
    segments.LopLat.Resize(session.ObsCount, 2);
    segments.LopLong.Resize(session.ObsCount, 2);
    for (int i = 1; i <= session.ObsCount; ++i) {
        const double azimuth = session.ObsAzimuth[i];
        double footLat = 0.0;
        double footLong = 0.0;
        sailing::RhumbLineDirect(session.TrueLat, session.TrueLong, azimuth, session.ObsIntercept[i] * MinutesPerDegree,
                                 footLat, footLong, r, a);
        for (int end = 1; end <= 2; ++end) {
            double endLong = 0.0;
            sailing::RhumbLineDirect(footLat, footLong, Norm360(azimuth + (end == 1 ? 90.0 : -90.0)), half,
                                     segments.LopLat(i, end), endLong, r, a);
            segments.LopLong(i, end) = sailing::FlipLongitude(endLong);
        }
    }

    Range longitudes = RangeOf(segments.LopLong);
    if (longitudes.Greatest - longitudes.Least > 180.0) longitudes = RangeAcrossZero(segments.LopLong);
    longitudes = WithMargins(longitudes, settings.ChartMargin);
    const Range latitudes = WithMargins(RangeOf(segments.LopLat), settings.ChartMargin);
    segments.ChartLatMin = latitudes.Least;
    segments.ChartLatMax = latitudes.Greatest;
    segments.ChartLongMin = Norm360(longitudes.Least);
    segments.ChartLongMax = Norm360(longitudes.Greatest);
    return segments;
}

double ChartSheet::X(double longitude) const
{
    const double middle = (XMin + XMax) / 2.0;
    return middle + numeric::NormalizeLongitude(longitude - middle);
}

QPointF ChartSheet::Place(double x, double y) const
{
    return {(x - XLeft) * UnitsPerLong(), (ChartLatMax - y) * UnitsPerLat()};
}

QPointF ChartSheet::Degrees(const QPointF& place) const
{
    return {XLeft + place.x() / UnitsPerLong(), ChartLatMax - place.y() / UnitsPerLat()};
}

ChartSheet SetUpChartSheet(const LopSegments& segments, double width, double height, ChartTarget target)
{
    const double plotWidth = 0.88;
    const double plotHeight = target == ChartTarget::Screen ? 0.9 : 0.88;
    const double dLat = std::abs(segments.ChartLatMax - segments.ChartLatMin);
    const double dLong = Norm360(segments.ChartLongMax - segments.ChartLongMin);
    const double midLat = (segments.ChartLatMin + segments.ChartLatMax) / 2.0;
    const double midLong = Norm360(segments.ChartLongMin + dLong / 2.0);
    const double extent = std::max(dLat, dLong);
    if (!(std::abs(midLat) < 90.0)) numeric::RaiseIllegalCall();

    ChartSheet sheet;
    sheet.Target = target;
    sheet.Width = width;
    sheet.Height = height;
    sheet.DLong =
        numeric::Quotient(width * plotWidth, height * plotHeight * std::cos(midLat * numeric::DegToRad)) * extent;
    sheet.ChartLatMin = midLat - extent / 2.0;
    sheet.ChartLatMax = midLat + extent / 2.0;
    sheet.ChartLongMin = Norm360(midLong - sheet.DLong / 2.0);
    sheet.ChartLongMax = Norm360(midLong + sheet.DLong / 2.0);
    sheet.MLat = extent * (1.0 - plotHeight) / plotHeight;
    sheet.MLong = sheet.DLong * (1.0 - plotWidth) / plotWidth;
    sheet.Bottom = sheet.ChartLatMin - sheet.MLat;
    sheet.ChartCrossesZero = sheet.ChartLongMax - Norm360(sheet.ChartLongMin - sheet.MLong) < 0.0;
    const double middle = sheet.ChartCrossesZero ? sailing::FlipLongitude(midLong) : midLong;
    sheet.XMin = middle - sheet.DLong / 2.0;
    sheet.XMax = middle + sheet.DLong / 2.0;
    sheet.XLeft = sheet.XMin - sheet.MLong;
    return sheet;
}

std::vector<LopLabel> PlaceLopLabels(const fix::SightSession& session, const LopSegments& segments,
                                     const ChartSheet& sheet, const TextMeasure& measure)
{
    std::vector<LopLabel> labels;
    std::vector<QRectF> taken;
    const TextLine line = measure.Line(10);
    const double gap = measure.Width(QStringLiteral("0"), 10) / 4.0;
    for (int i = 1; i <= session.ObsCount; ++i) {
        const auto end = [&](int number) {
            return sheet.Place(sheet.X(segments.LopLong(i, number)), segments.LopLat(i, number));
        };
        const std::optional<QPointF> at = EndOnSurface(end(1), end(2), sheet.Width, sheet.Height);
        labels.emplace_back();
        if (!at) continue;

        LopLabel& label = labels.back();
        label.Text = NameOfSight(session, i);
        const double width = measure.Width(label.Text, 10);
        const QPointF corner = *at + LabelOffset(session, segments, i, width, line.Height);
        const QRectF letters({corner.x(), corner.y() + line.DigitTop}, QSizeF(width, line.Baseline - line.DigitTop));
        const QRectF inward =
            letters.translated(std::max(0.0, std::min(corner.x(), sheet.Width - width)) - corner.x(),
                               std::max(0.0, std::min(corner.y(), sheet.Height - line.Height)) - corner.y());
        taken.push_back(ClearOf(taken, inward, gap, sheet.Height));
        label.Place = {taken.back().x(), taken.back().y() - line.DigitTop};
    }
    return labels;
}

} // namespace merov::output
