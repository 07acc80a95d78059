#include "sailing/rhumb_line.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::GeoPosition;

constexpr double Degree = 3.14159265358979324 / 180.0;
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

int FaultOf(void (*routine)())
{
    try {
        routine();
    } catch (const numeric::Fault& fault) {
        return fault.Number();
    }
    return 0;
}

class RhumbLineTest : public testing::Test
{
protected:
    test::BoxRecorder boxes;
};

TEST_F(RhumbLineTest, NoDistanceGivesTheDepartureUnchanged)
{
    for (const double course : {0.0, 90.0, 123.4, 270.0, 360.0}) {
        const GeoPosition there = Sail(-90.0, 190.0, course, 0.0);
        EXPECT_EQ(there.Latitude, -90.0);
        EXPECT_EQ(there.Longitude, 190.0);
    }
}

TEST_F(RhumbLineTest, DueEastUsesThePrimeVerticalRadiusOfTheDeparture)
{
    const double e2 = 0.00669437999014; // WGS 1984
    for (const double lat : {40.0, -62.5, 0.0}) {
        const double n = 6378137.0 / 1852.0 / std::sqrt(1.0 - e2 * std::pow(std::sin(lat * Degree), 2));
        const double change = 300.0 / (n * std::cos(lat * Degree)) / Degree;
        const GeoPosition east = Sail(lat, 175.0, 90.0, 300.0);
        EXPECT_NEAR(east.Latitude, lat, 1e-9);
        EXPECT_NEAR(east.Longitude, 175.0 + change - 360.0 * (175.0 + change > 180.0), 1e-9);
        EXPECT_NEAR(Sail(lat, 0.0, 270.0, 300.0).Longitude, -change, 1e-9);
        EXPECT_NEAR(Sail(lat, 0.0, 90.0, -300.0).Longitude, -change, 1e-9);
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

TEST_F(RhumbLineTest, NegativeDistanceRunsBackwards)
{
    const GeoPosition back = Sail(45.0, -179.5, 300.0, -120.0);
    const GeoPosition forth = Sail(45.0, -179.5, 120.0, 120.0);
    EXPECT_NEAR(back.Latitude, forth.Latitude, 1e-10);
    EXPECT_NEAR(back.Longitude, forth.Longitude, 1e-10);
    EXPECT_NEAR(Sail(45.0, 179.5, 60.0, 120.0).Longitude, -178.03, 0.02); // across the date line
}

TEST_F(RhumbLineTest, NormalSphereWorksWithTheTablesOfMeridionalParts)
{
    const double miles = 900.0 / std::cos(45.0 * Degree); // 15 degrees of latitude
    const GeoPosition there = Sail(30.0, 0.0, 45.0, miles, NormalSphereIndex);
    EXPECT_NEAR(there.Latitude, 45.0, 1e-9);
    EXPECT_NEAR(there.Longitude, (3013.382 - 1876.674) / 60.0, 2e-5);
    EXPECT_NEAR(Sail(60.0, 0.0, 90.0, 60.0, NormalSphereIndex).Longitude, 2.0, 1e-7);
}

TEST_F(RhumbLineTest, PoleWarningComesOncePerSecond)
{
    test::FakeClock clock(38200.25);
    const auto cross = [](double lat, double course, int ellipsoid) {
        const GeoPosition there = Sail(lat, 12.0, course, 2000.0, ellipsoid);
        EXPECT_EQ(there.Latitude, lat > 0.0 ? 90.0 : -90.0);
        EXPECT_EQ(there.Longitude, 0.0);
    };
    cross(60.0, 0.0, 19);
    EXPECT_EQ(boxes.TakeOne(), PoleWarning);
    cross(60.0, 0.0, 8);
    clock.Advance(1.0);
    cross(-60.0, 180.0, 19); // each crossing counts as a warning, also a silent one
    clock.Advance(-1.0);
    cross(60.0, 360.0, 4);
    EXPECT_EQ(boxes.Count(), 0u);
    clock.Advance(2.0);
    cross(60.0, 359.0, NormalSphereIndex);
    const auto warned = boxes.TakeAll();
    ASSERT_EQ(warned.size(), 1u);
    EXPECT_EQ(warned[0].Icon, numeric::BoxIcon::Warning);
}

TEST(RhumbLinePoleTest, TheSecondCountsFromTheAnswerOfASlowUser)
{
    test::FakeClock clock(38300.25);
    struct SlowUser : numeric::BoxReceiver {
        explicit SlowUser(test::FakeClock& time) : Time(time) {}
        numeric::BoxAnswer Show(const numeric::Box&) override
        {
            ++Boxes;
            Time.Advance(10.0);
            return numeric::BoxAnswer::Ok;
        }
        test::FakeClock& Time;
        int Boxes = 0;
    } user(clock);
    const numeric::ScopedBoxReceiver scope(user);
    Sail(60.0, 0.0, 0.0, 2000.0);
    Sail(60.0, 0.0, 0.0, 2000.0);
    EXPECT_EQ(user.Boxes, 1);
}

TEST_F(RhumbLineTest, TrialsNeverWarnOfAPole)
{
    EXPECT_GT(Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::LatitudeOnly).Latitude, 93.0);
    EXPECT_EQ(FaultOf([] { Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::TrialLatitude); }), 5);
    EXPECT_EQ(FaultOf([] { Sail(60.0, 0.0, 0.0, 2000.0, 19, RhumbMode::TrialLongitude); }), 5);
}

TEST_F(RhumbLineTest, TrialsGiveThePartThatTheyAreAskedFor)
{
    for (const int ellipsoid : {19, NormalSphereIndex}) {
        for (const double course : {35.0, 89.7}) {
            const GeoPosition plain = Sail(20.0, 30.0, course, 400.0, ellipsoid);
            const GeoPosition latitude =
                Sail(20.0, 30.0, course, 400.0, ellipsoid, RhumbMode::LatitudeOnly, {7.0, 8.0});
            EXPECT_EQ(latitude.Latitude, plain.Latitude);
            EXPECT_EQ(latitude.Longitude, 8.0);
            const GeoPosition given =
                Sail(20.0, 30.0, course, 1.0, ellipsoid, RhumbMode::GivenLatitude, {plain.Latitude, 8.0});
            EXPECT_NEAR(given.Latitude, plain.Latitude, 1e-13);
            EXPECT_NEAR(given.Longitude, plain.Longitude, 1e-9);
        }
    }
}

TEST_F(RhumbLineTest, SouthPoleAsDepartureIsMovedOffIt)
{
    for (const int ellipsoid : {19, NormalSphereIndex}) {
        const GeoPosition pole = Sail(-90.0, 5.0, 30.0, 600.0, ellipsoid);
        const GeoPosition beside = Sail(-89.999999, 5.0, 30.0, 600.0, ellipsoid);
        EXPECT_EQ(pole.Latitude, beside.Latitude);
        EXPECT_EQ(pole.Longitude, beside.Longitude);
    }
}

TEST_F(RhumbLineTest, HugeDistancesEndInThePoleWarningOrAFault)
{
    test::FakeClock clock(38400.25);
    EXPECT_EQ(Sail(10.0, 0.0, 45.0, 1e308).Latitude, 90.0);
    EXPECT_EQ(boxes.TakeOne(), PoleWarning);
    EXPECT_EQ(FaultOf([] { Sail(90.0, 0.0, 90.0, 1e308); }), 6);
    EXPECT_EQ(FaultOf([] { Sail(10.0, 0.0, 90.0, HUGE_VAL); }), 6);
    EXPECT_EQ(FaultOf([] { Sail(10.0, 0.0, std::nan(""), 10.0); }), 5);
}

TEST(RhumbHelpersTest, SameLatitudeAndLongitude)
{
    EXPECT_TRUE(SameLatitude(3e-5, -3e-5));
    EXPECT_FALSE(SameLatitude(5e-5, -2e-5));
    EXPECT_TRUE(SameLatitude(45.0, 45.00007));
    EXPECT_FALSE(SameLatitude(45.0, 45.00009));
    EXPECT_FALSE(SameLatitude(45.0, -45.0));
    EXPECT_FALSE(SameLatitude(0.0, 5e-5)); // 0 has a sign of its own

    EXPECT_TRUE(SameLongitude(-179.99999, 179.99999));
    EXPECT_TRUE(SameLongitude(180.0, -180.0));
    EXPECT_TRUE(SameLongitude(-1e-5, 1e-5));
    EXPECT_TRUE(SameLongitude(200.0, -160.0));
    EXPECT_FALSE(SameLongitude(10.0, 10.00009));
    EXPECT_EQ(FlipLongitude(-10.0), 350.0);
    EXPECT_EQ(FlipLongitude(190.0), -170.0);
    EXPECT_EQ(FlipLongitude(180.0), 180.0);
}

TEST(RhumbHelpersTest, CourseFromQuadrantOfEitherSign)
{
    const struct {
        double C, DLat, DLong, Course;
    } cases[] = {{0, 1, 0, 360},   {0, -1, 0, 180},   {90, 0, 1, 90},   {90, 0, -1, 270}, {30, 1, 1, 30},
                 {30, 1, -1, 330}, {30, -1, -1, 210}, {30, -1, 1, 150}, {90, 1, 1, 90},   {90, 1, -1, 270}};
    for (const auto& [c, dLat, dLong, course] : cases) {
        EXPECT_EQ(CourseFromQuadrant(c, 10.0, 170.0, 10.0 + dLat, 170.0 + dLong), course);
        EXPECT_EQ(CourseFromQuadrant(-c, 10.0, 179.5, 10.0 + dLat, numeric::NormalizeLongitude(179.5 + dLong)), course);
    }
}

TEST(RhumbHelpersTest, IsometricLatitude)
{
    const double e = 0.0818191908426215;
    for (const double lat : {-89.0, -45.0, 0.0, 1e-6, 30.0, 75.0}) {
        const double phi = lat * Degree;
        EXPECT_NEAR(IsometricLatitude(phi, e), std::asinh(std::tan(phi)) - e * std::atanh(e * std::sin(phi)), 1e-10);
    }
    EXPECT_EQ(FaultOf([] { IsometricLatitude(1.6, 0.08); }), 5);
    EXPECT_EQ(FaultOf([] { IsometricLatitude(-90.0 * numeric::DegToRad, 0.08); }), 5);
}

// A residual that jumped by a whole turn hid every arrival on the date line from the searches.
TEST(RhumbFunctionTest, LongitudeResidualsAreReduced)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    SailingProblem problem{.DepLat = 20.0,
                           .DepLong = 178.0,
                           .ArrLong = 180.0,
                           .Course = 60.0,
                           .Distance = 150.0,
                           .InverseFlattening = earth.InverseFlattening,
                           .SemiMajorAxis = earth.SemiMajorAxisNm};
    const GeoPosition beyond = Sail(20.0, 178.0, 60.0, 150.0);
    ASSERT_LT(beyond.Longitude, 0.0);
    problem.TrialLat = beyond.Latitude;
    const double expected = beyond.Longitude + 180.0;
    EXPECT_NEAR(RhumbLineFunction(60.0, 0, problem), expected, 1e-9);
    EXPECT_NEAR(RhumbLineFunction(beyond.Latitude, 2, problem), expected, 1e-9);
    EXPECT_NEAR(RhumbLineFunction(150.0, 4, problem), expected, 1e-9);
}

} // namespace
} // namespace merov::sailing
