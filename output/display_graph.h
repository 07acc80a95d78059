#pragma once

#include "fix/sight_session.h"
#include "numeric/arrays.h"
#include "output/chart_settings.h"
#include "sailing/ellipsoid.h"

#include <QPointF>
#include <QString>

#include <vector>

/// The geometry of the chart: position lines, the sheet around them, its scales and where texts stand.
/// Everything is numbers and texts; nothing is drawn here.
///
/// A plate carree with a local scale: x is the longitude and y the latitude, both in degrees, and a degree
/// of longitude is as long as the cosine of the middle latitude makes it. Latitudes are signed degrees,
/// longitudes 0..360 unless told otherwise. "Units" are those in which the surface is measured, such as
/// pixels or the dots of a printer.

namespace merov::output
{

/// The position lines of a fix as segments of one length, and the bounds of the area that they cover.
struct LopSegments {
    numeric::Matrix LopLat; ///< one row per sight, its two ends in the columns 1 and 2
    numeric::Matrix LopLong;
    double ChartLatMin = 0.0;
    double ChartLatMax = 0.0;
    double ChartLongMin = 0.0; ///< larger than ChartLongMax where the area crosses 0 degrees
    double ChartLongMax = 0.0;
};

/// Lays every position line through the foot of its intercept, square to its azimuth.
///
/// Half the length is LopScale times the largest intercept, or times 0.4 mile if that is larger. The
/// bounds are those of all ends, longitudes the short way round, with a margin on each side: a fraction
/// ChartMargin of the extent above and on the right, and below and on the left the same fraction of what
/// the extent then is.
/// @param session  ObsCount (1 or more), TrueLat, TrueLong, ObsAzimuth and ObsIntercept are used
/// A line that crosses a pole shows the warning of the rhumb line. Faults go to the caller.
LopSegments BuildLopSegments(const fix::SightSession& session, const ChartSettings& settings,
                             const sailing::EarthModel& earth);

/// Where digits stand in a line of text: its height, and how far below its top they begin and end, in
/// units.
struct TextLine {
    double Height = 0.0;
    double DigitTop = 0.0;
    double Baseline = 0.0;
};

/// Measures texts on the surface that is drawn on, in units.
class TextMeasure
{
public:
    virtual ~TextMeasure() = default;
    virtual double Width(const QString& text, int points) const = 0;
    virtual TextLine Line(int points) const = 0;
};

/// The two ways to lay a sheet out.
enum class ChartTarget { Screen, Printer };

/// A sheet: its bounds, the margins for labels to its left and below, and the whole window.
///
/// x coordinates are longitudes, continued past 360 or below 0 where the sheet goes on there. Where
/// ChartCrossesZero they run through -180..180, otherwise through 0..360.
struct ChartSheet {
    ChartTarget Target = ChartTarget::Screen;
    double Width = 0.0; ///< of the surface, units
    double Height = 0.0;
    double ChartLatMin = 0.0;
    double ChartLatMax = 0.0;
    double ChartLongMin = 0.0;
    double ChartLongMax = 0.0;
    double DLong = 0.0; ///< extent from the left to the right bound; the latitude's lies between its bounds
    double MLat = 0.0;  ///< margins, degrees of latitude and of longitude
    double MLong = 0.0;
    bool ChartCrossesZero = false; ///< the left margin lies beyond 0 degrees of longitude
    double XMin = 0.0;             ///< x of the bounds and of the window's left edge
    double XMax = 0.0;
    double XLeft = 0.0;
    double Bottom = 0.0; ///< latitude of the window's lower edge

    /// The x of a longitude, any value: the one nearest to the middle of the sheet.
    double X(double longitude) const;

    /// Units in one degree of longitude and of latitude.
    double UnitsPerLong() const { return Width / (XMax - XLeft); }
    double UnitsPerLat() const { return Height / (ChartLatMax - Bottom); }

    /// A place on the surface in units, from its upper left corner, and back.
    QPointF Place(double x, double y) const;
    QPointF Degrees(const QPointF& place) const;
};

/// Lays a sheet around the area of the segments: the area is widened to a square in degrees and then to
/// the shape of the surface, about its middle.
/// @param width, height  of the surface, units, above 0
/// Fault 5 where the middle of the sheet would lie on a pole or beyond it.
ChartSheet SetUpChartSheet(const LopSegments& segments, double width, double height, ChartTarget target);

/// A text of the scales, by its upper left corner.
struct ChartLabel {
    QString Text;
    int Points = 10;
    double X = 0.0;
    double Y = 0.0;
};

/// The scales of a sheet.
struct ChartAxes {
    double TickLeft = 0.0; ///< ticks of the parallels, from x to x
    double TickRight = 0.0;
    double TickLow = 0.0; ///< ticks of the meridians, from latitude to latitude
    double TickHigh = 0.0;
    std::vector<double> Parallels;     ///< their latitudes, from the lower bound up
    std::vector<double> Meridians;     ///< their x, from the left bound to the right
    std::vector<double> GridParallels; ///< those with a line across the sheet
    std::vector<double> GridMeridians;
    std::vector<ChartLabel> Labels;
};

/// The scales: ticks on the lower and the left bound and on every whole minute, and their labels.
///
/// Whole labels stand at every parallel and at every fourth meridian, minutes on two rows between the
/// latter. So that all can be read on small sheets and with many ticks, a label that would leave the
/// surface is moved inward by no more than needed, and one that would then lie on another is left out;
/// the labels of the two bounds come first, then whole labels, then minutes. Ticks are never left out.
/// Grid lines that would stand closer than half the height of the letters give way to those of every
/// second, fifth, tenth ... minute. Parallels end at the pole and meridians after one round.
///
/// In the south the first tick above the lower bound is the second whole minute, not the first.
ChartAxes SetUpChartAxes(const ChartSheet& sheet, const TextMeasure& measure);

/// The label of a position line.
struct LopLabel {
    QString Text;  ///< the body; with the time of the sight where another sight has the same body
    QPointF Place; ///< upper left corner, units from that of the surface
};

/// The labels of all position lines, in the order of the sights.
///
/// A label stands at end 2 or, where that lies off the surface, where the line leaves it; the label of a
/// line that misses the surface is empty. One that would be cut by the surface's edge is moved inward by
/// no more than needed, and one that would lie on a label before it is moved up or down, likewise.
std::vector<LopLabel> PlaceLopLabels(const fix::SightSession& session, const LopSegments& segments,
                                     const ChartSheet& sheet, const TextMeasure& measure);

} // namespace merov::output
