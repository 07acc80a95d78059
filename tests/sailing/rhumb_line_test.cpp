#include "sailing/rhumb_line.h"

#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::GeoPosition;
using test::FaultOf;

constexpr double Degree = 3.14159265358979324 / 180.0;
constexpr int Sphere = NormalSphereIndex;
const char* const PoleWarning = "Special case in nautical routine|Your track is crossing a pole. Due to the definition "
                                "of the rhumb line (see doc),|the solution is latitude 90° and indefinite longitude.";

GeoPosition Sail(double lat, double lon, double course, double distance, int ellipsoid = DefaultEllipsoidIndex,
                 RhumbMode mode = RhumbMode::Plain, GeoPosition out = {})
{
    const EarthModel earth = EllipsoidAt(ellipsoid);
    RhumbLineTrial(mode, lat, lon, course, distance, out.Latitude, out.Longitude, earth.InverseFlattening,
                   earth.SemiMajorAxisNm);
    return out;
}

void ExpectPlace(const GeoPosition& place, double lat, double lon, double tolerance = 0.0)
{
    EXPECT_NEAR(place.Latitude, lat, tolerance);
    EXPECT_NEAR(place.Longitude, lon, tolerance);
}

class RhumbLineTest : public testing::Test
{
protected:
    test::BoxRecorder boxes;
};

TEST_F(RhumbLineTest, DueEastUsesThePrimeVerticalRadiusOfTheDeparture)
{
    const double e2 = 0.00669437999014; // WGS 1984
    for (const double lat : {40.0, -62.5, 0.0}) {
        const double n = 6378137.0 / 1852.0 / std::sqrt(1.0 - e2 * std::pow(std::sin(lat * Degree), 2));
        const double change = 300.0 / (n * std::cos(lat * Degree)) / Degree;
        ExpectPlace(Sail(lat, 175.0, 90.0, 300.0), lat, std::remainder(175.0 + change, 360.0), 1e-9);
        ExpectPlace(Sail(lat, 0.0, 270.0, 300.0), lat, -change, 1e-9);
        ExpectPlace(Sail(lat, 0.0, 90.0, -300.0), lat, -change, 1e-9);
    }
}

TEST_F(RhumbLineTest, LatitudeIsLinearInTheBandAndNowhereElse)
{
    const auto bend = [](double course) { // of a track of 20000 miles against its half
        return 10.0 - 2.0 * Sail(10.0, 0.0, course, 10000.0).Latitude + Sail(10.0, 0.0, course, 20000.0).Latitude;
    };
    for (const double course : {89.50001, 90.4, 269.6, 270.49999})
        EXPECT_NEAR(bend(course), 0.0, 1e-12) << course;
    for (const double course : {89.5, 90.5, 269.5, 270.5})
        EXPECT_GT(std::fabs(bend(course)), 1e-5) << course;
}

TEST_F(RhumbLineTest, BackwardsFromThePoleAndNowhere)
{
    const GeoPosition forth = Sail(45.0, -179.5, 120.0, 120.0);
    ExpectPlace(Sail(45.0, -179.5, 300.0, -120.0), forth.Latitude, forth.Longitude, 1e-10);
    for (const int ellipsoid : {19, Sphere}) {
        const GeoPosition beside = Sail(-89.999999, 5.0, 30.0, 600.0, ellipsoid);
        ExpectPlace(Sail(-90.0, 5.0, 30.0, 600.0, ellipsoid), beside.Latitude, beside.Longitude);
        ExpectPlace(Sail(-90.0, 190.0, 123.4, 0.0, ellipsoid), -90.0, 190.0); // unchanged
    }
}

TEST_F(RhumbLineTest, NormalSphereWorksWithTheTablesOfMeridionalParts)
{
    const double miles = 900.0 / std::cos(45.0 * Degree); // 15 degrees of latitude
    ExpectPlace(Sail(30.0, 0.0, 45.0, miles, Sphere), 45.0, (3013.382 - 1876.674) / 60.0, 2e-5);
    ExpectPlace(Sail(60.0, 0.0, 90.0, 60.0, Sphere), 60.0, 2.0, 1e-7);
}

TEST_F(RhumbLineTest, PoleWarningComesOncePerSecond)
{
    test::FakeClock clock(38200.25);
    ExpectPlace(Sail(60.0, 12.0, 45.0, 1e308), 90.0, 0.0);
    test::ExpectBox(boxes, numeric::BoxIcon::Warning, PoleWarning);
    clock.Advance(1.0);
    ExpectPlace(Sail(-60.0, 12.0, 180.0, 2000.0, 8), -90.0, 0.0); // each crossing counts, also a silent one
    clock.Advance(-1.0);
    ExpectPlace(Sail(60.0, 12.0, 360.0, 2000.0, 4), 90.0, 0.0);
    EXPECT_EQ(boxes.Count(), 0u);
    clock.Advance(2.0);
    ExpectPlace(Sail(60.0, 12.0, 0.0, 2000.0, Sphere), 90.0, 0.0);
    EXPECT_EQ(boxes.TakeOne(), PoleWarning);
    clock.Advance(10.0);
    test::SlowUser user(clock); // the second counts from the answer
    Sail(60.0, 0.0, 0.0, 2000.0);
    Sail(60.0, 0.0, 0.0, 2000.0);
    EXPECT_EQ(user.Boxes, 1);
}

TEST_F(RhumbLineTest, TrialsGiveThePartThatTheyAreAskedForOrAFault)
{
    for (const int ellipsoid : {19, Sphere})
        for (const double course : {35.0, 89.7}) {
            const GeoPosition plain = Sail(20.0, 30.0, course, 400.0, ellipsoid);
            ExpectPlace(Sail(20.0, 30.0, course, 400.0, ellipsoid, RhumbMode::LatitudeOnly, {7.0, 8.0}), plain.Latitude,
                        8.0);
            ExpectPlace(Sail(20.0, 30.0, course, 1.0, ellipsoid, RhumbMode::GivenLatitude, {plain.Latitude, 8.0}),
                        plain.Latitude, plain.Longitude, 1e-9);
        }
    EXPECT_GT(Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::LatitudeOnly).Latitude, 93.0);
    EXPECT_EQ(FaultOf([] { Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::TrialLatitude); }), 5);
    EXPECT_EQ(FaultOf([] { Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::TrialLongitude); }), 5);
    EXPECT_EQ(FaultOf([] { Sail(90.0, 0.0, 90.0, 1e308); }), 6);
    EXPECT_EQ(FaultOf([] { Sail(10.0, 0.0, std::nan(""), 10.0); }), 5);
}

TEST(RhumbHelpersTest, SameLatitudeAndLongitude)
{
    EXPECT_TRUE(SameLatitude(3e-5, -3e-5));
    EXPECT_FALSE(SameLatitude(5e-5, -2e-5));
    EXPECT_FALSE(SameLatitude(0.0, 5e-5)); // 0 has a sign of its own
    EXPECT_TRUE(SameLatitude(45.0, 45.00007));
    EXPECT_FALSE(SameLatitude(45.0, 45.00009));
    for (const double other : {179.99999, 180.0, -180.0, 180.00001})
        EXPECT_TRUE(SameLongitude(-179.99999, other)) << other;
    EXPECT_TRUE(SameLongitude(-1e-5, 1e-5));
    EXPECT_FALSE(SameLongitude(10.0, 10.00009));
    EXPECT_EQ(FlipLongitude(-10.0), 350.0);
    EXPECT_EQ(FlipLongitude(190.0), -170.0);
    EXPECT_EQ(FlipLongitude(180.0), 180.0);
}

TEST(RhumbHelpersTest, CourseFromQuadrantOfEitherSign)
{
    const struct {
        double C, DLat, DLong, Course;
    } rows[] = {{0, 1, 0, 360}, {0, -1, 0, 180},  {90, 0, 1, 90},    {90, 0, -1, 270},
                {30, 1, 1, 30}, {30, 1, -1, 330}, {30, -1, -1, 210}, {30, -1, 1, 150}};
    for (const auto& [c, dLat, dLong, course] : rows)
        for (const double angle : {c, -c})
            EXPECT_EQ(CourseFromQuadrant(angle, 10.0, 179.5, 10.0 + dLat, std::remainder(179.5 + dLong, 360.0)),
                      course);
}

TEST(RhumbHelpersTest, IsometricLatitude)
{
    const double e = 0.0818191908426215;
    for (const double phi : {-1.55, -0.8, 0.0, 1.3})
        EXPECT_NEAR(IsometricLatitude(phi, e), std::asinh(std::tan(phi)) - e * std::atanh(e * std::sin(phi)), 1e-10);
    EXPECT_EQ(FaultOf([] { IsometricLatitude(-90.0 * numeric::DegToRad, 0.08); }), 5);
}

} // namespace
} // namespace merov::sailing
