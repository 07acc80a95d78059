#include "sailing/composite_sailing.h"

#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace merov::sailing
{
namespace
{

using numeric::GeoPosition;
using numeric::NormalizeLongitude;
using test::FaultOf;

constexpr double Degree = 3.14159265358979324 / 180.0;
const EarthModel Sphere = EllipsoidAt(NormalSphereIndex);
const EarthModel Wgs84 = EllipsoidAt(DefaultEllipsoidIndex);

std::vector<Waypoint> PlainTable(const GeoPosition& from, const GeoPosition& to, double interval,
                                 const EarthModel& earth = Sphere)
{
    Vertex vertex;
    GreatCircleVertex(from.Latitude, from.Longitude, to.Latitude, to.Longitude, vertex, earth.InverseFlattening,
                      earth.SemiMajorAxisNm);
    return WaypointTable(from, to, vertex, {}, interval, earth);
}

void ExpectLongitudes(const std::vector<Waypoint>& table, const std::vector<double>& longitudes)
{
    ASSERT_EQ(table.size(), longitudes.size());
    for (std::size_t i = 0; i < table.size(); ++i)
        EXPECT_NEAR(table[i].Long, longitudes[i], 1e-6) << "waypoint " << i + 1;
}

// By the right-angled triangles of spherical trigonometry. An end within some 9 metres of the limit counts as on it.
TEST(CompositeSailing, OnTheSphereItTouchesWhereTheTrianglesSay)
{
    const test::BoxRecorder boxes;
    struct Case {
        GeoPosition From, To;
        double Limit;
        int East;
    };
    for (const Case& c :
         {Case{{40, -20}, {45, 100}, 55, 1}, Case{{-40, 170}, {-45, -70}, -55, 1}, Case{{40, -170}, {45, 70}, 55, -1},
          Case{{-10, -100}, {50, 130}, 52, -1}, Case{{-50, -60}, {10, 90}, -60, 1}, Case{{10, 178}, {-40, 20}, -40, -1},
          Case{{50, 0}, {40, 180}, 70, -1}, Case{{50, 10}, {40, 110}, 50, 1},
          Case{{-50, 10}, {-50.00005, -100}, -50.00005, -1}}) {
        const CompositeTrack track = SolveComposite(c.From, c.To, c.Limit, Sphere);
        const auto arc = [&](double (&ratio)(double), double lat) {
            if (std::fabs(lat - c.Limit) < 8e-5) return 0.0;
            return std::acos(ratio(lat * Degree) / ratio(c.Limit * Degree)) / Degree;
        };
        const double d1 = arc(std::tan, c.From.Latitude), d2 = arc(std::tan, c.To.Latitude);
        EXPECT_NEAR(NormalizeLongitude(track.TouchLong1 - c.From.Longitude), c.East * d1, 1e-6) << c.From.Longitude;
        EXPECT_NEAR(NormalizeLongitude(track.TouchLong2 - c.To.Longitude), -c.East * d2, 1e-6) << c.From.Longitude;
        EXPECT_NEAR(track.LegDist[0], 60.0 * arc(std::sin, c.From.Latitude), 1e-4);
        EXPECT_NEAR(track.LegDist[2], 60.0 * arc(std::sin, c.To.Latitude), 1e-4);
        const double along = std::fabs(NormalizeLongitude(c.To.Longitude - c.From.Longitude)) - d1 - d2;
        EXPECT_NEAR(track.LegDist[1], 60.0 * along * std::cos(c.Limit * Degree), 1e-4);
        EXPECT_EQ(track.LimitCourse, c.East == 1 ? 90.0 : 270.0);
    }
}

// The search sets out on the other side of 180 degrees from its answer, some of the times.
TEST(CompositeSailing, TurnsWithTheTrackAcross180Degrees)
{
    const test::BoxRecorder boxes;
    for (const double east : {1.0, -1.0}) {
        const double d1 = SolveComposite({40, 0}, {45, east * 120}, 55, Wgs84).TouchLong1;
        for (double touch = 179.9; touch < 180.1; touch += 0.01) {
            const double from = east * touch - d1;
            const CompositeTrack track =
                SolveComposite({40, from}, {45, NormalizeLongitude(from + east * 120)}, 55, Wgs84);
            EXPECT_NEAR(NormalizeLongitude(track.TouchLong1 - east * touch), 0.0, 1e-6) << touch;
        }
    }
}

TEST(CompositeSailing, RefusesALimitThatAnEndLiesBeyond)
{
    test::BoxRecorder boxes;
    EXPECT_EQ(LimitInHemisphere(45.0, -60.0), -45.0);
    EXPECT_EQ(LimitInHemisphere(-45.0, 60.0), 45.0);
    const std::string title = " Error in input data|The maximum latitude is smaller than the ";
    EXPECT_EQ(CheckLimit(45.0, 60.0, 45.1, 50.0), VoyageRefusal::LimitBelowDeparture);
    test::ExpectBox(boxes, numeric::BoxIcon::Warning, title + "departure latitude.");
    EXPECT_EQ(CheckLimit(-45.0, -60.0, 50.0, -45.1), VoyageRefusal::LimitBelowArrival);
    test::ExpectBox(boxes, numeric::BoxIcon::Warning, title + "arrival latitude.");
    EXPECT_EQ(CheckLimit(0.0, 60.0, -10.0, 45.0), VoyageRefusal::LimitBelowArrival); // no hemisphere of its own
    boxes.TakeOne();
    EXPECT_EQ(CheckLimit(45.0, 60.0, 45.0, -50.0), VoyageRefusal::None);
}

TEST(Waypoints, StandOnWholeDegreesAheadAndEndAtTheArrival)
{
    const test::BoxRecorder boxes;
    struct Case {
        double Interval;
        std::vector<double> Longitudes;
    };
    for (const Case& c :
         {Case{5, {-10.5, -10, -5, 0, 5, 10, 12}}, Case{5, {-10.5, -11, -16, -21, -26, -28}}, Case{5, {-10, -5, 0, 2}},
          Case{5, {10, 5, 0, -2}}, Case{5, {10.5, 10, 5, 1}}, Case{5, {10.5, 11, 16, 18}}, Case{2, {-0.5, 0, 2, 3}},
          Case{5, {0, -5, -7}}, Case{5, {175.5, 176, -179, -174, -170}}, Case{5, {-175.5, -176, 179, 174, 170}},
          Case{20, {10.5, 11, 14}}, Case{20, {-10, -6}}, Case{5, {10, 11, 13}}, Case{350, {10.5, 11, 60}}}) {
        const GeoPosition from{40.0, c.Longitudes.front()}, to{45.0, c.Longitudes.back()};
        const std::vector<Waypoint> table = PlainTable(from, to, c.Interval);
        ExpectLongitudes(table, c.Longitudes);
        for (const Waypoint& w : table) {
            const double there = NormalizeLongitude(w.Long - from.Longitude) * Degree;
            const double rest = NormalizeLongitude(to.Longitude - w.Long) * Degree;
            const double tangent = std::tan(40.0 * Degree) * std::sin(rest) + std::tan(45.0 * Degree) * std::sin(there);
            EXPECT_NEAR(std::tan(w.Lat * Degree), tangent / std::sin(there + rest), 1e-5) << w.Long;
            EXPECT_DOUBLE_EQ(w.ToGo + w.Run, table.back().Run);
        }
        EXPECT_DOUBLE_EQ(table[1].Run + table[1].Distance, table.size() > 2 ? table[2].Run : table[1].Run);
        EXPECT_GT(table[1].Run, 0.0);
    }
    EXPECT_EQ(FaultOf([] { PlainTable({40, 0}, {45, 10}, 0.0); }), 11);
    EXPECT_EQ(FaultOf([] { PlainTable({40, 0}, {45, 10}, 1e-9); }), 6);
}

TEST(Waypoints, OfACompositeTrackBeginAnewBehindTheLimit)
{
    const test::BoxRecorder boxes;
    const GeoPosition from{50, 10}, to{40, 110};
    for (const EarthModel& earth : {Sphere, Wgs84}) {
        const CompositeTrack track = SolveComposite(from, to, 50.0, earth);
        const double touch = track.TouchLong2; // 64.8 on the sphere
        const std::vector<Waypoint> table = WaypointTable(from, to, {}, track, 20.0, earth);
        // The departure lies on the limit: an arc without length has no waypoint of its own.
        ExpectLongitudes(table, {10, 10, touch, std::ceil(touch), std::ceil(touch) + 20, std::ceil(touch) + 40, 110});
        EXPECT_EQ(table[0].Distance, 0.0);
        EXPECT_EQ(table[1].Course, 90.0);
        EXPECT_EQ(table[1].Distance, track.LegDist[1]);
        EXPECT_EQ(table[2].Lat, 50.0);
        EXPECT_NEAR(table.back().Run, track.LegDist[1] + track.LegDist[2], 15.0);
    }
}

TEST(Waypoints, RunOnAlongTheFormerCourseWhereALatitudeIsMissing)
{
    const test::BoxRecorder boxes;
    std::vector<Waypoint> rows{
        {}, {.Lat = 30}, {.Lat = 32, .Long = 5}, {.Lat = 999, .Long = 9}, {.Lat = 33, .Long = 15}};
    JoinWaypoints(rows, 1, 60.0, Sphere);
    const double climb = rows[2].Distance / 60.0 * std::cos(rows[1].Course * Degree);
    EXPECT_EQ(rows[2].Course, rows[1].Course);
    EXPECT_NEAR(rows[3].Lat, 32.0 + climb, 1e-6);
    EXPECT_NEAR(climb, 4.0 / 5.0 * 2.0, 0.05); // four fifths of the way before, on nearly the same parallel
}

} // namespace
} // namespace merov::sailing
