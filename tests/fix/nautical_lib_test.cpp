#include "fix/nautical_lib.h"

#include "fix/synthetic_sights.h"
#include "numeric/fault.h"

#include <gtest/gtest.h>

namespace merov::fix::tests
{

/// One sight through CorrectAltitudes, without dip and with standard refraction unless told otherwise.
struct Sight {
    std::string Body = "VEGA";
    double Altitude = 45.0, Dist = 272000.0;
    test::Conditions Weather{0.0, 10.0, 10.0, 1010.16};
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
        const auto& [height, air, water, pressure] = Weather;
        CorrectAltitudes(1, height, air, water, pressure, s.ObsLat, s.ObsLong, s.ObsBody, s.ObsAltitude, s.ObsInstCorr,
                         s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo, s.ObsHc, s.ObsIntercept);
        return s;
    }
    /// What is taken from the altitude, minutes of arc.
    double Lowered() const { return (Altitude - Work().ObsHo[1]) * 60.0; }
};

// Refraction for stars of the Nautical Almanac, table A2 (10 degrees Celsius, 1010 mb), and J. Meeus,
// Astronomical Algorithms, example 16.a: 28.754 minutes at half a degree, less the second term.
TEST(CorrectAltitudes, RefractionAgreesWithPublishedTables)
{
    struct {
        double altitude, minutes, tolerance;
    } const rows[] = {{10.0, 5.3, 0.06}, {20.0, 2.6, 0.06},  {30.0, 1.7, 0.06},   {45.0, 1.0, 0.06},
                      {0.0, 34.0, 0.6},  {90.0, 0.0, 0.015}, {0.5, 28.696, 0.001}};
    for (const auto& row : rows)
        EXPECT_NEAR(Sight{.Altitude = row.altitude}.Lowered(), row.minutes, row.tolerance) << row.altitude;
}

TEST(CorrectAltitudes, WarmAirLimbAndDistanceCount)
{
    Sight cold;
    cold.Weather.WaterTemp -= 10.0 / 1.8;
    EXPECT_NEAR(cold.Lowered() - Sight{}.Lowered(), 1.1, 0.001);
    const auto at = [](double fahrenheit) {
        const double celsius = (fahrenheit - 32.0) / 1.8;
        return Sight{.Altitude = 10.0, .Weather = {0.0, celsius, celsius, 1010.16}}.Lowered();
    };
    for (const auto& [warmth, factor] :
         {std::pair{40.0 + 1e-9, 1.0}, {60.0 - 1e-9, 1.0}, {39.9, 520.0 / 499.9}, {60.1, 500.0 / 520.1}})
        EXPECT_NEAR(at(warmth) / at(50.0), factor, 1e-6) << warmth;

    const auto raised = [](const char* body, double dist) {
        return Sight{}.Lowered() - Sight{.Body = body, .Dist = dist}.Lowered();
    };
    EXPECT_NEAR(raised("SUNLOW", 1.0) - raised("SUNUPP", 1.0), 31.988, 0.002);
    EXPECT_NEAR(raised("VENUS", 0.28), 8.794 / 0.28 / 60.0 * std::cos(45.0 * test::Degree), 0.001);
}

TEST(CorrectAltitudes, AgreesWithAlmanacStepsWorkedApart)
{
    for (const auto& weather : {test::Conditions{0, 10, 10, 1010}, {31.5, -8.0, 2.0, 965}, {2.1, 33.0, 28.5, 1041}})
        for (const auto& [body, dist] :
             {std::pair{"SIRIUS", 272000.0}, {"SUNLOW", 1.0123}, {"MOONUPP", 0.00253}, {"MOONLOW", 0.0026}})
            for (const double altitude : {-1.0, 3.0, 17.4, 51.2, 88.0}) {
                const Sight sight{.Body = body, .Altitude = altitude, .Dist = dist, .Weather = weather};
                EXPECT_NEAR(sight.Work().ObsHo[1], test::WorkAltitude(altitude, body, dist, weather), 2e-9) << body;
            }
}

// J. Meeus, Astronomical Algorithms, example 13.b: Venus from Washington, 10 April 1987, 19:21 UT.
TEST(CorrectAltitudes, ComputedAltitudeAndAzimuthOfAPublishedExample)
{
    const double lat = 38.0 + 55.0 / 60 + 17.0 / 3600, lon = -(77.0 + 3.0 / 60 + 56.0 / 3600);
    const Sight venus{.Altitude = 15.0, .Lat = lat, .Long = lon, .Dec = -6.719892, .GHA = 64.352133 - lon};
    const SightSession worked = venus.Work();
    EXPECT_NEAR(worked.ObsHc[1], 15.1249, 0.00005);
    EXPECT_EQ(worked.ObsIntercept[1], worked.ObsHo[1] - worked.ObsHc[1]);
    EXPECT_NEAR(ComputeAzimuth(lat, lon, venus.GHA, venus.Dec), 68.0337 + 180.0, 0.00005);
}

TEST(ComputeAzimuth, AllAroundTheCompass)
{
    for (const double lat : {-52.0, 30.0, 71.0})
        for (double gha = 3.0; gha < 360.0; gha += 17.0)
            for (const double dec : {-61.0, 0.0, 80.0}) {
                const test::Horizontal seen = test::LookAt({lat, 14.0}, {.GHA = gha, .Declination = dec});
                EXPECT_NEAR(std::remainder(ComputeAzimuth(lat, 14.0, gha, dec) - seen.Azimuth, 360.0), 0.0, 1e-8);
            }
    EXPECT_EQ(ComputeAzimuth(30.0, 20.0, -20.0, 0.0), 180.0);
    EXPECT_THROW(ComputeAzimuth(0.0, 0.0, 90.0, 0.0), numeric::Fault) << "due west, its north component just 0";
}

TEST(RunPositions, FollowTheTrackForwardAndBackward)
{
    numeric::Vector times{0, 1, 38128.5}, lats{0, 1}, longs{0, 1}, approx{1, 1};
    const auto run = [&](double lat, double course, double speed, double hours, const sailing::EarthModel& earth) {
        times[1] = times[0] + hours / 24.0;
        lats[0] = lat;
        longs[0] = -20.0;
        RunPositions(1, course, speed, times, lats, longs, approx, earth.InverseFlattening, earth.SemiMajorAxisNm);
    };
    for (const double lat : {-60.0, -5.0, 42.0})
        for (const double course : {20.0, 90.0, 89.7, 200.0, 315.0})
            for (const double hours : {-6.0, 4.0}) {
                run(lat, course, 18.0, hours, test::Wgs84());
                const numeric::GeoPosition track = test::TrackPosition({{lat, -20.0}, 0, course, 18.0}, hours);
                EXPECT_LT(test::MinutesApart({lats[1], longs[1]}, track), 0.006) << lat << " " << course;
                // With the base's radius held: the arc itself, apart from the ellipsoid's change of curvature.
                EXPECT_NEAR(approx[1], track.Latitude, 0.02 * std::fabs(track.Latitude - lat) + 1e-11);
            }
    run(40.0, 0.0, 10.0, -3.0, sailing::EllipsoidAt(sailing::NormalSphereIndex));
    EXPECT_NEAR(lats[1], 39.5, 1e-9);
    EXPECT_NEAR(approx[1], 39.5, 1e-7);
    for (const auto& [speed, hours] : {std::pair{0.0, -3.0}, {15.0, 0.0}}) { // at rest, and at the base instant
        run(40.0, 137.0, speed, hours, test::Wgs84());
        EXPECT_EQ(lats[1], 40.0);
        EXPECT_EQ(longs[1], -20.0);
        EXPECT_EQ(approx[1], 40.0);
    }
}

} // namespace merov::fix::tests
