#include "sailing/rhumb_solutions.h"

#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace merov::sailing
{
namespace
{

using numeric::NormalizeLongitude;
using test::FaultOf;

constexpr double Degree = 3.14159265358979324 / 180.0;

struct Answer {
    double First = -77.0; // course, longitude or latitude
    double Distance = -77.0;
};

template <auto Solve>
Answer Solved(double lat1, double long1, double third, double fourth, const EarthModel& e)
{
    Answer x;
    Solve(lat1, long1, third, fourth, x.First, x.Distance, e.InverseFlattening, e.SemiMajorAxisNm);
    return x;
}
constexpr auto Inverse = Solved<RhumbLineInverse>;         // of two positions
constexpr auto ToLatitude = Solved<RhumbLineToLatitude>;   // of a position, a course and a latitude
constexpr auto ToLongitude = Solved<RhumbLineToLongitude>; // of a position, a course and a longitude

// Each test fails on a box that it did not expect, so that a failed search fails it too.
class RhumbSolutionsTest : public testing::Test
{
protected:
    double Draw(double low, double high) { return std::uniform_real_distribution<double>(low, high)(engine_); }

    // Miles, nearly, by which a track ends beside a position.
    static double Missed(double lat1, double long1, double course, double distance, double lat2, double long2,
                         const EarthModel& e)
    {
        double lat = 0.0, lon = 0.0;
        RhumbLineDirect(lat1, long1, course, distance, lat, lon, e.InverseFlattening, e.SemiMajorAxisNm);
        return 60.0 * std::hypot(lat - lat2, NormalizeLongitude(lon - long2) * std::cos(lat2 * Degree));
    }
    static double MissedBetween(double lat1, double long1, double lat2, double long2, const EarthModel& e)
    {
        const Answer x = Inverse(lat1, long1, lat2, long2, e);
        return Missed(lat1, long1, x.First, x.Distance, lat2, long2, e);
    }
    static double MissedToLongitude(double lat1, double long1, double course, double long2, const EarthModel& e)
    {
        const Answer x = ToLongitude(lat1, long1, course, long2, e);
        return Missed(lat1, long1, course, x.Distance, x.First, long2, e);
    }

    test::BoxRecorder boxes;
    const EarthModel wgs84 = EllipsoidAt(DefaultEllipsoidIndex), sphere = EllipsoidAt(NormalSphereIndex);

private:
    std::mt19937_64 engine_{20040521};
};

TEST_F(RhumbSolutionsTest, EveryAnswerLeadsBackToItsPosition)
{
    for (int i = 0; i < 4000; ++i) {
        const EarthModel e = EllipsoidAt(i % EllipsoidCount);
        const double lat1 = Draw(-70.0, 70.0), long1 = Draw(-180.0, 180.0), course = Draw(0.0, 360.0);
        double lat2 = 0.0, long2 = 0.0;
        RhumbLineDirect(lat1, long1, course, Draw(1.0, 900.0), lat2, long2, e.InverseFlattening, e.SemiMajorAxisNm);
        SCOPED_TRACE(testing::Message() << lat1 << " " << long1 << " " << course << " to " << lat2 << " " << long2);
        EXPECT_LT(MissedBetween(lat1, long1, lat2, long2, e), 1e-5);
        if (SameLongitude(long1, long2) || SameLatitude(lat1, lat2)) continue;
        EXPECT_LT(MissedToLongitude(lat1, long1, course, long2, e), 1e-5);
        if (InEastWestBand(course)) continue; // there the longitude is that of the exact line
        const Answer toLat = ToLatitude(lat1, long1, course, lat2, e);
        EXPECT_LT(Missed(lat1, long1, course, toLat.Distance, lat2, toLat.First, e), 1e-5);
    }
}

TEST_F(RhumbSolutionsTest, CardinalCourses)
{
    const struct {
        double Lat1, Long1, Lat2, Long2, Course;
    } rows[] = {{10, 20, 30, 20, 360},      {30, 20, -10, 20, 180},  {-5, 180, 5, -180, 360},
                {50, -10, 50, 15, 90},      {50, 15, 50, -10, 270},  {0, 175, 0, -175, 90},
                {-40, -175, -40, 175, 270}, {-90, 10, -60, 10, 360}, {-60, 10, -90, 10, 180}};
    for (const int ellipsoid : {19, 4, NormalSphereIndex})
        for (const auto& [lat1, long1, lat2, long2, course] : rows)
            EXPECT_NEAR(Inverse(lat1, long1, lat2, long2, EllipsoidAt(ellipsoid)).First, course, 1e-8) << lat1;
    // The meridian from the equator to 45 degrees on WGS 1984 has 4984944.378 m.
    EXPECT_NEAR(Inverse(0.0, 0.0, 45.0, 0.0, wgs84).Distance, 4984944.378 / 1852.0, 0.15);
    const Answer nowhere = Inverse(10.0, 180.0, 10.00001, -179.99999, wgs84);
    EXPECT_TRUE(nowhere.First == 0.0 && nowhere.Distance == 0.0);
}

TEST_F(RhumbSolutionsTest, NormalSphereFollowsTheTables)
{
    const double dLong = (3013.382 - 1876.674) / 60.0; // meridional parts of 45 and 30 degrees
    const double miles = 900.0 / std::cos(45.0 * Degree), slant = 0.4 * Degree;
    const auto check = [](const Answer& x, double first, double distance) {
        EXPECT_NEAR(x.First, first, 5e-5);
        EXPECT_NEAR(x.Distance, distance, 5e-3);
    };
    check(Inverse(30.0, 0.0, 45.0, dLong, sphere), 45.0, miles);
    check(ToLatitude(30.0, 0.0, 45.0, 45.0, sphere), dLong, miles);
    check(ToLongitude(30.0, 0.0, 45.0, dLong, sphere), 45.0, miles);
    check(Inverse(60.0, 175.0, 60.0, -175.0, sphere), 90.0, 300.0);
    check(ToLongitude(60.0, -175.0, 270.0, 175.0, sphere), 60.0, 300.0);
    check(ToLongitude(60.0, 0.0, 89.6, 10.0, sphere), 60.0 + 5.0 * std::tan(slant), 300.0 / std::cos(slant));
}

// Function values that jumped by a whole turn let every search for an arrival on the date line fail.
TEST_F(RhumbSolutionsTest, ArrivalOnTheDateLine)
{
    for (int i = 0; i < 400; ++i) {
        const double line = i < 200 ? 180.0 : -180.0, axis = i % 2 == 0 ? 90.0 : 270.0;
        const double lat1 = Draw(-65.0, 65.0), long1 = (axis == 90.0 ? 1.0 : -1.0) * Draw(165.0, 179.9);
        const double lat2 = i % 10 == 0 ? lat1 : lat1 + Draw(-8.0, 8.0);
        const double course = axis + (i % 10 == 1 ? 0.0 : Draw(-50.0, 50.0));
        EXPECT_LT(MissedBetween(lat1, long1, lat2, line, wgs84), 1e-5) << lat1 << " " << long1;
        EXPECT_LT(MissedToLongitude(lat1, long1, course, line, wgs84), 1e-5) << lat1 << " " << course;
    }
}

// Of lines like the first 3000, 444 found no end with a fixed step of 0.001 degree, a tolerance of 1e-8
// mile and residuals that were not reduced; of lines like the others a third.
TEST_F(RhumbSolutionsTest, LatitudesAFractionOfAMinuteApart)
{
    for (int i = 0; i < 4000; ++i) {
        const bool close = i >= 3000;
        const double apart = close ? Draw(0.005, 0.1) : Draw(0.1, 0.3); // minutes of latitude
        const double lat1 = Draw(-75.0, 75.0), long1 = Draw(-180.0, 180.0);
        const double lat2 = lat1 + (i % 2 == 0 ? apart : -apart) / 60.0;
        const double long2 = NormalizeLongitude(long1 + Draw(-179.9, 179.9));
        EXPECT_LT(MissedBetween(lat1, long1, lat2, long2, wgs84), close ? 0.06 : 4e-4) << lat1 << " " << lat2;
    }
}

// The distance that the caller had before must not matter: far off, it kept the search from its end.
TEST_F(RhumbSolutionsTest, DueEastAndWestToALongitude)
{
    const double n = 6378137.0 / 1852.0 / std::sqrt(1.0 - 0.00669437999014 * std::pow(std::sin(52.0 * Degree), 2));
    for (const double before : {0.0, 5.0, 99999.99}) {
        double lat2 = 0.0, distance = before;
        RhumbLineToLongitude(52.0, 170.0, 90.0, -170.0, lat2, distance, wgs84.InverseFlattening, wgs84.SemiMajorAxisNm);
        EXPECT_EQ(lat2, 52.0);
        EXPECT_NEAR(distance, 20.0 * Degree * n * std::cos(52.0 * Degree), 1e-6);
    }
    EXPECT_NEAR(ToLongitude(0.0, 10.0, 270.0, -20.0, wgs84).Distance, 30.0 * Degree * 6378137.0 / 1852.0, 1e-6);
}

// A latitude searched by its longitude came out anywhere between the poles here.
TEST_F(RhumbSolutionsTest, CoursesCloseToEastAndWest)
{
    for (const double off : {0.4, 0.1, 0.01, 0.001, 1e-6})
        for (int i = 0; i < 200; ++i) {
            const double course = (i % 2 == 0 ? 90.0 : 270.0) + (i % 3 == 0 ? off : -off);
            const double lat1 = Draw(-85.0, 85.0), long1 = Draw(-180.0, 180.0);
            const double long2 = NormalizeLongitude(long1 + (i % 2 == 0 ? 1.0 : -1.0) * Draw(0.1, 170.0));
            EXPECT_LT(MissedToLongitude(lat1, long1, course, long2, wgs84), 1e-4) << course << " " << lat1;
        }
}

TEST_F(RhumbSolutionsTest, RefusedEntries)
{
    const std::string none = "|There is no solution to the problem.";
    const std::string single = ". There is no single solution to the problem.";
    const std::string oneLat = "|You have entered 2 same latitudes", oneLong = "|You have entered 2 same longitudes";
    const auto headed = [&](const std::string& what, const std::string& there, const std::string& way) {
        return "|The arrival " + what + " is " + there + " of the departure " + what +
               " but your course is headed to the " + way + "." + none;
    };
    const auto refused = [&](const Answer& x, double first, const std::string& lines) {
        test::ExpectBox(boxes, numeric::BoxIcon::Warning, " Error in nautical routine" + lines);
        EXPECT_EQ(x.First, first) << lines;
        EXPECT_EQ(x.Distance, 0.0) << lines;
    };
    for (const EarthModel& e : {wgs84, sphere}) {
        refused(ToLatitude(10, -30, 270, 10.00005, e), -30, oneLat + single);
        refused(ToLatitude(10, -30, 45, 10, e), -30, oneLat + " and a course which is neither E nor W." + none);
        refused(ToLatitude(10, -30, 135, 15, e), 0, headed("latitude", "North", "South"));
        refused(ToLatitude(10, -30, 45, 5, e), 0, headed("latitude", "South", "North"));
        refused(ToLatitude(10, -30, 90, 11, e), 0, none);

        refused(ToLongitude(10, 180, 180, -179.99999, e), 10, oneLong + single);
        refused(ToLongitude(10, 5, 0, 5, e), 10, oneLong + single);
        refused(ToLongitude(10, 5, 45, 5, e), 10, oneLong + " and a course which is neither N nor S." + none);
        refused(ToLongitude(10, 175, 225, -175, e), 0, headed("longitude", "East", "West"));
        refused(ToLongitude(10, -175, 45, 175, e), 0, headed("longitude", "West", "East"));
        refused(ToLongitude(10, 0, 180, 20, e), 0, none); // it ends at the south pole
    }
    // Course 80 makes 0.17365 mile of latitude a mile: 62 degrees need some 21400 miles, 64 some 22100.
    EXPECT_NEAR(ToLatitude(-31.0, 0.0, 80.0, 31.0, wgs84).Distance, 21340.0, 50.0);
    for (const double course : {80.0, 89.9, 89.9999})
        refused(ToLatitude(-32.0, 0.0, course, 32.0, wgs84), 0, none);
}

TEST_F(RhumbSolutionsTest, WhatHasNoValueRaisesAFault)
{
    for (const EarthModel& e : {wgs84, sphere}) {
        EXPECT_EQ(FaultOf([&] { ToLatitude(-60, 0, 180, -90, e); }), 5); // only departures are moved off the pole
        EXPECT_EQ(FaultOf([&] { ToLatitude(-90, 0, 20, -60, e); }), 0);
        EXPECT_EQ(FaultOf([&] { ToLongitude(10, 0, 0, 20, e); }), 11); // tan C = 0
        EXPECT_EQ(FaultOf([&] { ToLongitude(10, 0, 180, -20, e); }), 6);
        EXPECT_EQ(FaultOf([&] { Inverse(10, 0, -91, 20, e); }), 5);
    }
}

// A step of ten miles would lead past the other side of the parallel.
TEST(RhumbSolutions, SmallParallelsNearAPole)
{
    const test::BoxRecorder boxes;
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    const double f = 1.0 / earth.InverseFlattening;
    for (const double lat : {89.9, 89.9999, -89.9999999, 90.0})
        for (const double between : {2.0, 90.0, 175.0}) {
            const double sine = std::sin(lat * Degree);
            const double radius = earth.SemiMajorAxisNm * std::cos(lat * Degree) /
                                  std::sqrt(1.0 - f * (2.0 - f) * sine * sine); // of the parallel
            const Answer answer = Inverse(lat, 10.0, lat, 10.0 - between, earth);
            EXPECT_NEAR(answer.Distance, radius * between * Degree, 1e-3) << lat << " " << between;
            EXPECT_EQ(answer.First, 270.0);
        }
}

} // namespace
} // namespace merov::sailing
