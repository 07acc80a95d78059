#include "numeric/math_lib.h"
#include "output/display_graph.h"
#include "support/expect.h"
#include "support/qt_text.h"

#include <QLineF>
#include <QRectF>

#include <cmath>
#include <numbers>

namespace merov::output
{
namespace
{

using numeric::Norm360;

constexpr double Degree = std::numbers::pi / 180.0;

struct Sight {
    double Azimuth, Miles;
    std::string Body = "SUNLOW";
};

fix::SightSession SessionAt(double lat, double lon, const std::vector<Sight>& sights)
{
    fix::SightSession s;
    fix::AllocateObservations(s, static_cast<int>(sights.size()));
    s.TrueLat = lat;
    s.TrueLong = lon;
    for (int i = 1; i <= s.ObsCount; ++i) {
        const Sight& sight = sights[static_cast<std::size_t>(i - 1)];
        s.ObsAzimuth[i] = sight.Azimuth;
        s.ObsIntercept[i] = sight.Miles / 60.0;
        s.ObsBody[i] = sight.Body;
        s.ObsTime[i] = 45000.0 + i / 24.0;
    }
    return s;
}

LopSegments SegmentsAt(double lat, double lon, const std::vector<Sight>& sights, const ChartSettings& settings = {})
{
    return BuildLopSegments(SessionAt(lat, lon, sights), settings, sailing::EllipsoidAt(19));
}

/// From one place, miles northward and eastward, by the radii of curvature of WGS 1984.
numeric::GeoPosition Moved(double lat, double lon, double north, double east)
{
    constexpr double a = 6378137.0 / 1852.0, e2 = 0.00669437999014;
    const auto w = [](double at) { return 1.0 - e2 * std::pow(std::sin(at * Degree), 2); };
    const double near = lat + north / 120.0;
    const double newLat = lat + north * std::pow(w(near), 1.5) / (a * (1.0 - e2)) / Degree;
    const double middle = (lat + newLat) / 2.0;
    return {newLat, lon + east * std::sqrt(w(middle)) / (a * std::cos(middle * Degree)) / Degree};
}

/// A letter is 0.6 of its height wide.
class EqualLetters : public TextMeasure
{
public:
    double Width(const QString& text, int points) const override { return 0.6 * points * double(text.size()); }
    TextLine Line(int points) const override { return {1.5 * points, 0.25 * points, 1.2 * points}; }
};
const EqualLetters Letters;

/// A sheet with its lower left bounds at a place and so many degrees of latitude, on a screen.
ChartSheet SheetFrom(double latMin, double longMin, double extent, double width = 780.0, double height = 560.0)
{
    LopSegments area;
    area.ChartLatMin = latMin;
    area.ChartLatMax = latMin + extent;
    const double span = width * 0.88 / (height * 0.9 * std::cos((latMin + extent / 2.0) * Degree)) * extent;
    area.ChartLongMin = area.ChartLongMax = Norm360(longMin + span / 2.0);
    return SetUpChartSheet(area, width, height, ChartTarget::Screen);
}

TEST(BuildLopSegments, LaysLinesOfOneLengthThroughTheFeetOfTheIntercepts)
{
    struct Case {
        std::vector<Sight> Sights;
        double LopScale, Half; // miles
    };
    const Case cases[] = {{{{0.0, 2.0}, {90.0, -1.0}, {225.0, 0.0}, {300.0, -2.0}}, 5.0, 10.0},
                          {{{0.0, 0.0}, {135.0, 0.1}}, 5.0, 2.0}, // no intercept counts as less than 0.4 mile
                          {{{0.0, 0.39}, {20.0, -0.4}}, 0.1, 0.04},
                          {{{10.0, -3.0}, {280.0, 1.0}}, 1.0, 3.0}};
    for (const auto& [lat, lon] : {std::pair{38.5, -12.0}, {-42.8, -179.99}, {70.0, 20.0}}) {
        for (const Case& c : cases) {
            const LopSegments segments = SegmentsAt(lat, lon, c.Sights, {c.LopScale, 0.1});
            for (int i = 1; i <= segments.LopLat.Rows(); ++i) {
                const Sight& sight = c.Sights[static_cast<std::size_t>(i - 1)];
                const double north = std::cos(sight.Azimuth * Degree), east = std::sin(sight.Azimuth * Degree);
                const auto foot = Moved(lat, lon, sight.Miles * north, sight.Miles * east);
                for (int end = 1; end <= 2; ++end) {
                    const double along = end == 1 ? c.Half : -c.Half; // end 1 lies to the right of the azimuth
                    const auto at = Moved(foot.Latitude, foot.Longitude, -along * east, along * north);
                    EXPECT_NEAR(segments.LopLat(i, end), at.Latitude, 5e-6) << lat << ' ' << i << ' ' << end;
                    EXPECT_NEAR(segments.LopLong(i, end), Norm360(at.Longitude), 5e-6) << lat << ' ' << i;
                }
            }
        }
    }
}

TEST(BuildLopSegments, PutsMarginsAroundAllEnds)
{
    const double lat = Moved(38.5, 0.0, 2.0, 0.0).Latitude - 38.5; // half the extents
    const double lon = Moved(38.5, 0.0, 0.0, 2.0).Longitude;
    // Margin, and where the bounds then are in half extents from the middle.
    const double cases[][3] = {{0.0, 1.0, -1.0}, {0.1, 1.2, -1.22}, {-0.5, 0.0, -0.5}, {1.0, 3.0, -5.0}};
    for (const auto& [margin, above, below] : cases)
        for (const double middle : {-12.0, 0.0, 0.01, 359.999, 179.999}) {
            const LopSegments s = SegmentsAt(38.5, middle, {{0.0, 0.0}, {90.0, 0.0}}, {5.0, margin});
            const auto bounds = test::VectorOf(
                {s.ChartLatMin, s.ChartLatMax, Norm360(s.ChartLongMin + 1.0), Norm360(s.ChartLongMax + 1.0)});
            test::ExpectNear(bounds,
                             {38.5 + lat * below, 38.5 + lat * above, Norm360(middle + lon * below + 1.0),
                              Norm360(middle + lon * above + 1.0)},
                             1e-6);
        }
}

TEST(SetUpChartSheet, WidensTheAreaToTheShapeOfTheSurface)
{
    LopSegments area;
    area.ChartLatMin = 59.95;
    area.ChartLatMax = 60.05;
    area.ChartLongMin = 9.9;
    area.ChartLongMax = 10.1;
    // A plot of 792 by 792, on which a degree of longitude is half as long as one of latitude.
    for (const ChartTarget target : {ChartTarget::Screen, ChartTarget::Printer}) {
        const bool screen = target == ChartTarget::Screen;
        const ChartSheet sheet = SetUpChartSheet(area, 900.0, screen ? 880.0 : 900.0, target);
        const double below = screen ? 0.2 / 9 : 0.2 * 3 / 22, left = 0.4 * 3 / 22;
        test::ExpectNear(test::VectorOf({sheet.ChartLatMin, sheet.ChartLatMax, sheet.Bottom, sheet.ChartLongMin,
                                         sheet.ChartLongMax, sheet.XLeft, sheet.UnitsPerLat(), sheet.UnitsPerLong()}),
                         {59.9, 60.1, 59.9 - below, 9.8, 10.2, 9.8 - left, 3960.0, 1980.0}, 1e-5);
        EXPECT_FALSE(sheet.ChartCrossesZero);
        const ChartAxes axes = SetUpChartAxes(sheet, Letters);
        test::ExpectNear(test::VectorOf({axes.TickLeft, axes.TickLow, axes.TickRight, axes.TickHigh}),
                         {9.8 - below * 0.1, 59.9 - below * 0.1, 9.8 + below * (screen ? 0.14 : 0.1),
                          59.9 + below * (screen ? 0.12 : 0.1)},
                         1e-6);
    }
    area.ChartLatMax = 120.1;
    EXPECT_EQ(test::FaultOf([&] { SetUpChartSheet(area, 900.0, 880.0, ChartTarget::Screen); }), 5);
}

TEST(SetUpChartSheet, RunsThroughNegativeLongitudesWhereItsMarginCrossesZero)
{
    // Left bound, whether it crosses, a longitude and its x; 0.136 wide with a margin of 0.0186.
    const double cases[][4] = {{359.95, 1, 359.99, -0.01}, {359.95, 1, -0.01, -0.01}, {0.01, 1, 359.995, -0.005},
                               {0.03, 0, 0.05, 0.05},      {359.8, 0, -0.1, 359.9},   {179.95, 0, -179.99, 180.01}};
    for (const auto& [longMin, crosses, longitude, x] : cases) {
        const ChartSheet sheet = SheetFrom(-0.05, longMin, 0.1);
        EXPECT_EQ(sheet.ChartCrossesZero, crosses != 0) << longMin;
        EXPECT_NEAR(sheet.X(longitude), x, 1e-9) << longMin;
        EXPECT_NEAR(Norm360(sheet.XMin), sheet.ChartLongMin, 1e-9);
        EXPECT_NEAR(Norm360(sheet.XMax), sheet.ChartLongMax, 1e-9);
    }
}

TEST(SetUpChartAxes, PutsTicksOnTheBoundAndOnWholeMinutes)
{
    // A bound, and the minute of the next tick.
    const double cases[][2] = {{38.42, 2306.0},  {-10.005, -599.0}, {38.5, 2311.0}, {38.5 - 1e-12, 2311.0},
                               {-38.5, -2309.0}, {-0.005, 1.0},     {0.0, 1.0}};
    for (const auto& [bound, minute] : cases) {
        const ChartAxes axes = SetUpChartAxes(SheetFrom(bound, 30.0, 0.2), Letters);
        ASSERT_GE(axes.Parallels.size(), 10u);
        EXPECT_NEAR(axes.Parallels[0], bound, 1e-9);
        EXPECT_NEAR(axes.Parallels[1], minute / 60.0, 1e-9) << bound;
        EXPECT_NEAR(axes.Parallels[9], (minute + 8.0) / 60.0, 1e-9) << bound;
    }
    const ChartAxes axes = SetUpChartAxes(SheetFrom(0.0, 359.955, 0.1), Letters); // 0.136 wide
    ASSERT_EQ(axes.Meridians.size(), 9u);
    EXPECT_NEAR(axes.Meridians[0], -0.045, 1e-9);
    for (std::size_t i = 1; i < 9; ++i)
        EXPECT_NEAR(axes.Meridians[i], (double(i) - 3.0) / 60.0, 1e-9) << i;
}

TEST(SetUpChartAxes, LabelsParallelsAndEveryFourthMeridianInFull)
{
    const ChartSheet sheet = SheetFrom(59.995, 359.955, 0.0499);
    const QPointF corner = sheet.Place(sheet.XMin, sheet.ChartLatMin);
    const double lat = sheet.UnitsPerLat() / 60.0, lon = sheet.UnitsPerLong() / 60.0; // pixels in a minute
    const double left = -5.6 * lon / lat;                                             // of the ticks
    QString texts;
    std::vector<QPointF> places; // pixels to the right of the corner of the plot, and below it
    for (const ChartLabel& label : SetUpChartAxes(sheet, Letters).Labels) {
        texts += label.Text + QString("/%1 ").arg(label.Points);
        places.push_back(sheet.Place(label.X, label.Y) - corner);
    }
    ASSERT_EQ(texts, "59°59'.7 N/10 000°02'.7 W/10 60°00'/10 60°01'/10 60°02'/10 000°01'/10 000°05'/10 02'/9 01'/9 "
                     "00'/9 02'/9 03'/9 04'/9 ");
    std::vector<QPointF> expected{{left - 66.0, -2.25}, {-31.68, 13.1}};
    for (const double minute : {0.3, 1.3, 2.3})
        expected.emplace_back(left - 42.0, -minute * lat - 7.5);
    for (const double minute : {3.7, 7.7})
        expected.emplace_back(minute * lon - 21.0, 13.1);
    for (const double minute : {0.7, 1.7, 2.7, 4.7, 5.7, 6.7})
        expected.emplace_back(minute * lon - 8.1, minute == 1.7 || minute == 5.7 ? 13.1 : 23.9);
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_LT(QLineF(places[i], expected[i]).length(), 0.01) << i;
}

TEST(SetUpChartAxes, KeepsLabelsApartAndOnTheSurfaceAtEverySize)
{
    for (const auto& [width, height] : {std::pair{250.0, 180.0}, {400.0, 300.0}, {780.0, 560.0}, {2560.0, 1400.0}})
        for (const double lat : {-40.3, 0.01, 69.9})
            for (const double extent : {0.01, 0.1, 0.5, 3.0, 19.0}) {
                const ChartSheet sheet = SheetFrom(lat, 345.678, extent, width, height);
                const ChartAxes axes = SetUpChartAxes(sheet, Letters);
                EXPECT_NEAR(double(axes.Parallels.size()), extent * 60.0 + 0.5, 1.5);
                EXPECT_NEAR(double(axes.Meridians.size()), sheet.DLong * 60.0 + 0.5, 1.5);
                std::vector<QRectF> taken;
                for (const ChartLabel& label : axes.Labels) {
                    const TextLine line = Letters.Line(label.Points);
                    const QPointF corner = sheet.Place(label.X, label.Y) + QPointF(0.0, line.DigitTop);
                    const QRectF digits(corner, QSizeF(Letters.Width(label.Text, label.Points) - 1e-6,
                                                       line.Baseline - line.DigitTop - 1e-6));
                    EXPECT_TRUE(QRectF(-1e-6, 0.0, width, height).contains(digits)) << label.Text.toStdString();
                    for (const QRectF& other : taken)
                        EXPECT_FALSE(digits.intersects(other))
                            << label.Text.toStdString() << ' ' << width << ' ' << extent;
                    taken.push_back(digits);
                }
                EXPECT_GE(taken.size(), 2u);
                for (const auto* lines : {&axes.GridParallels, &axes.GridMeridians})
                    EXPECT_LE(double(lines->size()), std::max(width, height) / 6.75 + 2.0);
            }
}

TEST(PlaceLopLabels, SetsNamesOffFromTheSecondEnd)
{
    // Azimuth, and the offset of the label to the right and up, in widths and heights of the label.
    const double cases[][3] = {{0.0, -0.9, 0.5},
                               {45.0, -0.753553, 1.207107},
                               {180.0, 0.2, 0.5},
                               {225.0, -0.153553, -0.207107},
                               {315.0, -0.753553, -0.207107}};
    for (const auto& [azimuth, across, up] : cases) {
        for (const double lon : {20.0, 0.0, -180.0}) {
            const fix::SightSession session = SessionAt(10.0, lon, {{azimuth, 0.0}, {azimuth + 90.0, 0.0, "VEGA"}});
            const LopSegments segments = BuildLopSegments(session, {}, sailing::EllipsoidAt(19));
            const ChartSheet sheet = SetUpChartSheet(segments, 780.0, 560.0, ChartTarget::Screen);
            const LopLabel label = PlaceLopLabels(session, segments, sheet, Letters)[0];
            const QPointF end = sheet.Place(sheet.X(segments.LopLong(1, 2)), segments.LopLat(1, 2));
            EXPECT_EQ(label.Text, "SUNLOW");
            EXPECT_NEAR(label.Place.x() - end.x(), across * 36.0, 0.01) << azimuth << ' ' << lon;
            EXPECT_NEAR(end.y() - label.Place.y(), up * 15.0, 0.01) << azimuth << ' ' << lon;
        }
    }
}

TEST(PlaceLopLabels, KeepsNamesReadable)
{
    // Far too large for the sheet, two of one body on nearly one line, and one that misses the surface.
    const fix::SightSession session =
        SessionAt(10.0, 20.0, {{0.0, 1.0}, {1.0, 1.0}, {180.0, 9.0, "VEGA"}, {90.0, -0.1, "MARS"}});
    LopSegments segments = BuildLopSegments(session, {}, sailing::EllipsoidAt(19));
    segments.ChartLatMin = 9.99;
    segments.ChartLatMax = 10.04;
    segments.ChartLongMin = segments.ChartLongMax = 20.0;
    const ChartSheet sheet = SetUpChartSheet(segments, 780.0, 560.0, ChartTarget::Screen);
    const std::vector<LopLabel> labels = PlaceLopLabels(session, segments, sheet, Letters);
    ASSERT_EQ(labels.size(), 4u);
    EXPECT_EQ(labels[0].Text + labels[1].Text + labels[2].Text + labels[3].Text, "SUNLOW@01:00SUNLOW@02:00MARS");
    EXPECT_EQ(labels[0].Place.x(), 0.0); // where the line leaves the sheet
    EXPECT_NEAR(labels[0].Place.y(), sheet.Place(0.0, 10.0 + 1.0 / 60.0).y() - 7.5, 1.0);
    EXPECT_EQ(labels[3].Place.y(), 0.0);
    EXPECT_GE(std::abs(labels[1].Place.y() - labels[0].Place.y()), 9.5); // moved clear of the other
    EXPECT_LE(std::abs(labels[1].Place.y() - labels[0].Place.y()), 15.0);
}

TEST(ChartSettings, StepsEndAtTheirLimits)
{
    ChartSettings s;
    const auto after = [&s](void (ChartSettings::*step)(), int times) {
        for (int i = 0; i < times; ++i)
            (s.*step)();
        return s;
    };
    EXPECT_EQ(after(&ChartSettings::StepLopsDown, 4).LopScale, 1.0);
    EXPECT_EQ(after(&ChartSettings::DecreaseLops, 1).LopScale, 1.0);
    EXPECT_EQ(after(&ChartSettings::StepLopsDown, 1).LopScale, 0.9);
    EXPECT_EQ(after(&ChartSettings::StepLopsDown, 20).LopScale, 0.1);
    EXPECT_EQ(after(&ChartSettings::StepLopsUp, 9).LopScale, 1.0);
    EXPECT_EQ(after(&ChartSettings::StepLopsUp, 1).LopScale, 2.0);
    EXPECT_EQ(after(&ChartSettings::IncreaseLops, 1).LopScale, 3.0);
    EXPECT_EQ(after(&ChartSettings::IncreaseChart, 20).ChartMargin, -0.5);
    EXPECT_EQ(after(&ChartSettings::DecreaseChart, 1).ChartMargin, -0.4);
}

} // namespace
} // namespace merov::output
