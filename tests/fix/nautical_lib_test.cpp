#include "fix/nautical_lib.h"

#include "fix/synthetic_sights.h"
#include "numeric/fault.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::fix
{
namespace
{

/// One sight at a time through CorrectAltitudes.
struct Sight {
    std::string Body = "VEGA";
    double Altitude = 45.0;
    double Dist = 272000.0;
    test::Conditions Weather{0.0, 10.0, 10.0, 1010.16}; // no dip, standard refraction
    double Lat = 0.0, Long = 0.0, Dec = 0.0, GHA = 0.0;

    SightSession Work() const
    {
        SightSession s;
        AllocateObservations(s, 1);
        s.ObsLat[1] = Lat;
        s.ObsLong[1] = Long;
        s.ObsBody[1] = Body;
        s.ObsAltitude[1] = Altitude;
        s.ObsDist[1] = Dist;
        s.ObsDec[1] = Dec;
        s.ObsGHA[1] = GHA;
        CorrectAltitudes(1, Weather.HeightOfEye, Weather.AirTemp, Weather.WaterTemp, Weather.Pressure, s.ObsLat,
                         s.ObsLong, s.ObsBody, s.ObsAltitude, s.ObsInstCorr, s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo,
                         s.ObsHc, s.ObsIntercept);
        return s;
    }
    double Ho() const { return Work().ObsHo[1]; }
    /// What is taken from the altitude, minutes of arc.
    double Lowered() const { return (Altitude - Ho()) * 60.0; }
};

class CorrectAltitudesTest : public testing::Test
{
protected:
    test::BoxRecorder boxes;
};

// Refraction for stars of the Nautical Almanac, table A2 (10 degrees Celsius, 1010 mb), and J. Meeus,
// Astronomical Algorithms, example 16.a: 28.754 minutes at half a degree, less the second term.
TEST_F(CorrectAltitudesTest, RefractionAgreesWithPublishedTables)
{
    struct Row {
        double Altitude, Minutes, Tolerance;
    };
    for (const Row& row : {Row{10.0, 5.3, 0.06}, Row{20.0, 2.6, 0.06}, Row{30.0, 1.7, 0.06}, Row{45.0, 1.0, 0.06},
                           Row{90.0, 0.0, 0.015}, Row{0.0, 34.0, 0.6}, Row{0.5, 28.696, 0.001}}) {
        Sight star;
        star.Altitude = row.Altitude;
        EXPECT_NEAR(star.Lowered(), row.Minutes, row.Tolerance) << row.Altitude;
    }
}

TEST_F(CorrectAltitudesTest, DipGrowsWithHeightAndWithWarmAir)
{
    Sight star;
    const double none = star.Lowered();
    star.Weather.HeightOfEye = 4.0;
    EXPECT_NEAR(star.Lowered() - none, 2.0 * 1.757, 0.003); // and the refraction's change over that arc
    star.Weather = {0.0, 10.0, 10.0 - 10.0 / 1.8, 1010.16};
    EXPECT_NEAR(star.Lowered() - none, 1.1, 0.001);
}

TEST_F(CorrectAltitudesTest, TemperatureFactorStepsOutsideFortyToSixtyFahrenheit)
{
    const auto at = [](double fahrenheit) {
        Sight star;
        star.Altitude = 10.0;
        const double celsius = (fahrenheit - 32.0) / 1.8;
        star.Weather.AirTemp = star.Weather.WaterTemp = celsius;
        return star.Lowered();
    };
    const double mean = at(50.0);
    EXPECT_NEAR(at(40.0 + 1e-9) / mean, 1.0, 1e-6);
    EXPECT_NEAR(at(60.0 - 1e-9) / mean, 1.0, 1e-6);
    EXPECT_NEAR(at(39.9) / mean, 520.0 / 499.9, 1e-6);
    EXPECT_NEAR(at(60.1) / mean, 500.0 / 520.1, 1e-6);
}

TEST_F(CorrectAltitudesTest, LimbAndDistanceDecideSemiDiameterAndParallax)
{
    const double star = Sight{.Body = "VEGA"}.Ho();
    const auto raised = [star](const char* body, double dist) {
        return (Sight{.Body = body, .Dist = dist}.Ho() - star) * 60.0;
    };
    const double sunParallax = 8.794 / 60.0 * std::cos(45.0 * test::Degree);
    EXPECT_NEAR(raised("SUNLOW", 1.0), 15.994 + sunParallax, 0.002);
    EXPECT_NEAR(raised("SUNLOW", 1.0) - raised("SUNUPP", 1.0), 31.988, 0.002);
    // Mean Moon: horizontal parallax 57.04 minutes, semi-diameter 15.54.
    const double moon = 384401.0 / 149565800.0;
    EXPECT_NEAR(raised("MOONLOW", moon) - raised("MOONUPP", moon), 2.0 * 15.544, 0.002);
    EXPECT_NEAR(raised("MOONLOW", moon) + raised("MOONUPP", moon), 2.0 * 57.04 * std::cos(45.0 * test::Degree), 0.06);
    EXPECT_NEAR(raised("VENUS", 0.28), 8.794 / 0.28 / 60.0 * std::cos(45.0 * test::Degree), 0.001);
}

TEST_F(CorrectAltitudesTest, AgreesWithAlmanacStepsWorkedApart)
{
    const test::Conditions weathers[] = {{0, 10, 10, 1010}, {31.5, -8.0, 2.0, 965}, {2.1, 33.0, 28.5, 1041}};
    for (const test::Conditions& weather : weathers)
        for (const char* body : {"SIRIUS", "SUNLOW", "SUNUPP", "MOONUPP"})
            for (const double altitude : {-1.0, 3.0, 17.4, 51.2, 88.0}) {
                const double dist = body[0] == 'M' ? 0.00253 : body[1] == 'U' ? 1.0123 : 272000.0;
                const Sight sight{.Body = body, .Altitude = altitude, .Dist = dist, .Weather = weather};
                EXPECT_NEAR(sight.Ho(), test::WorkAltitude(altitude, body, dist, weather), 2e-9)
                    << body << " " << altitude;
            }
}

// J. Meeus, Astronomical Algorithms, example 13.b: Venus from Washington, 10 April 1987, 19:21 UT.
TEST_F(CorrectAltitudesTest, ComputedAltitudeAndAzimuthOfAPublishedExample)
{
    const double lat = 38.0 + 55.0 / 60 + 17.0 / 3600, lon = -(77.0 + 3.0 / 60 + 56.0 / 3600);
    const Sight venus{.Altitude = 15.0, .Lat = lat, .Long = lon, .Dec = -6.719892, .GHA = 64.352133 - lon};
    const SightSession worked = venus.Work();
    EXPECT_NEAR(worked.ObsHc[1], 15.1249, 0.00005);
    EXPECT_EQ(worked.ObsIntercept[1], worked.ObsHo[1] - worked.ObsHc[1]);
    EXPECT_NEAR(ComputeAzimuth(lat, lon, venus.GHA, venus.Dec), 68.0337 + 180.0, 0.00005);
}

TEST_F(CorrectAltitudesTest, FaultyAltitudeEndsTheCallAndKeepsTheSightsBefore)
{
    SightSession s;
    AllocateObservations(s, 3);
    for (int i = 1; i <= 3; ++i) {
        s.ObsAltitude[i] = i == 2 ? -4.4 : 45.0;
        s.ObsDist[i] = 1.0;
        s.ObsHo[i] = -1.0;
    }
    EXPECT_THROW(CorrectAltitudes(3, 0.0, 10.0, 10.0, 1010.0, s.ObsLat, s.ObsLong, s.ObsBody, s.ObsAltitude,
                                  s.ObsInstCorr, s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo, s.ObsHc, s.ObsIntercept),
                 numeric::Fault);
    EXPECT_NEAR(s.ObsHo[1], 45.0, 0.02);
    EXPECT_EQ(s.ObsHo[2], -1.0);
    EXPECT_EQ(s.ObsHo[3], -1.0);
}

TEST(ComputeAzimuth, AllAroundTheCompass)
{
    for (const double lat : {-52.0, -1.0, 30.0, 71.0})
        for (double gha = 3.0; gha < 360.0; gha += 17.0)
            for (const double dec : {-61.0, -12.0, 0.0, 25.0, 80.0}) {
                const test::Horizontal seen = test::LookAt({lat, 14.0}, {.GHA = gha, .Declination = dec});
                EXPECT_NEAR(std::remainder(ComputeAzimuth(lat, 14.0, gha, dec) - seen.Azimuth, 360.0), 0.0, 1e-8);
            }
    EXPECT_EQ(ComputeAzimuth(30.0, 20.0, -20.0, 0.0), 180.0);
}

TEST(ComputeAzimuth, BodyOnThePrimeVerticalOfTheEquatorIsAFault)
{
    // Both terms of the north component hold a sine of 0.
    try {
        ComputeAzimuth(0.0, 0.0, 90.0, 0.0);
        FAIL();
    } catch (const numeric::Fault& fault) {
        EXPECT_EQ(fault.Number(), numeric::FaultDivisionByZero);
    }
}

class RunPositionsTest : public testing::Test
{
protected:
    /// Runs one sight `hours` from the base at `lat`, longitude -20.
    void Run(double lat, double course, double speed, double hours, const sailing::EarthModel& earth)
    {
        times[1] = times[0] + hours / 24.0;
        lats[0] = lat;
        longs[0] = -20.0;
        RunPositions(1, course, speed, times, lats, longs, approx, earth.InverseFlattening, earth.SemiMajorAxisNm);
    }
    numeric::Vector times{0, 1, 38128.5}, lats{0, 1}, longs{0, 1}, approx{1, 1};
    const sailing::EarthModel sphere = sailing::EllipsoidAt(sailing::NormalSphereIndex);
    const sailing::EarthModel wgs84 = test::Wgs84();
};

TEST_F(RunPositionsTest, RestAndTheBaseInstantGiveTheBase)
{
    for (const auto& [speed, hours] : {std::pair{0.0, -3.0}, {0.0, 5.0}, {15.0, 0.0}}) {
        Run(40.0, 137.0, speed, hours, wgs84);
        EXPECT_EQ(lats[1], 40.0);
        EXPECT_EQ(longs[1], -20.0);
        EXPECT_EQ(approx[1], 40.0);
    }
}

TEST_F(RunPositionsTest, SightBeforeTheBaseIsReachedBackwards)
{
    Run(40.0, 0.0, 10.0, -3.0, sphere);
    EXPECT_NEAR(lats[1], 39.5, 1e-9);
    EXPECT_NEAR(approx[1], 39.5, 1e-7);
    EXPECT_NEAR(longs[1], -20.0, 1e-12);
}

TEST_F(RunPositionsTest, FollowsTheTrackOnTheEllipsoid)
{
    for (const double lat : {-60.0, -5.0, 42.0})
        for (const double course : {20.0, 90.0, 89.7, 200.0, 315.0})
            for (const double hours : {-6.0, 4.0}) {
                Run(lat, course, 18.0, hours, wgs84);
                const numeric::GeoPosition track = test::TrackPosition({{lat, -20.0}, 0, course, 18.0}, hours);
                EXPECT_NEAR(lats[1], track.Latitude, 2e-5) << lat << " " << course;
                EXPECT_NEAR(longs[1], track.Longitude, 1e-4) << lat << " " << course;
                // With the base's radius held: the arc itself, apart from the ellipsoid's change of curvature.
                EXPECT_NEAR(approx[1], track.Latitude, 0.02 * std::fabs(track.Latitude - lat) + 1e-11);
            }
}

// The figure of the Earth in metres, WGS 1984 (NIMA TR8350.2 and standard tables of the radii).
TEST(EllipsoidRadii, AgreeWithPublishedFigures)
{
    const auto [r, a] = test::Wgs84();
    EXPECT_NEAR(MeridionalRadius(0.0, r, a) * 1852.0, 6335439.327, 0.01);
    EXPECT_NEAR(MeridionalRadius(90.0, r, a) * 1852.0, 6399593.626, 0.01);
    EXPECT_NEAR(MeridionalRadius(-45.0, r, a) * 1852.0, 6367381.816, 0.01);
    EXPECT_NEAR(PrimeVerticalRadius(0.0, r, a) * 1852.0, 6378137.0, 0.001);
    EXPECT_NEAR(PrimeVerticalRadius(45.0, r, a) * 1852.0, 6388838.290, 0.01);
    EXPECT_NEAR(PrimeVerticalRadius(-90.0, r, a) * 1852.0, 6399593.626, 0.01);
    const sailing::EarthModel sphere = sailing::EllipsoidAt(sailing::NormalSphereIndex);
    EXPECT_EQ(MeridionalRadius(60.0, sphere.InverseFlattening, sphere.SemiMajorAxisNm), sphere.SemiMajorAxisNm);
}

} // namespace
} // namespace merov::fix
