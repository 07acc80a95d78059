#include "ephemeris/sun.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;
using numeric::Norm360;

TEST(EarthElementsTest, AtJ2000)
{
    double longitude = 0.0, obliquity = 0.0, anomaly = 0.0, eccentricity = 0.0, radius = 0.0;
    EarthElements(0.0, longitude, obliquity, anomaly, eccentricity, radius);
    EXPECT_NEAR(longitude, 280.46170, 5e-6);
    EXPECT_NEAR(obliquity, 23.43928, 5e-6);
    EXPECT_NEAR(anomaly, 357.52543, 5e-6);
    EXPECT_NEAR(eccentricity, 0.0167091, 5e-8);
    EXPECT_NEAR(radius, 0.0000110, 5e-8);
}

TEST(KeplerTest, SolvesTheEquation)
{
    for (const double e : {0.0068, 0.0167, 0.0485, 0.0934, 0.1})
        for (double mean = -700.0; mean < 700.0; mean += 7.3) {
            double centre = 0.0, radius = 0.0;
            SolveKepler(e, mean, centre, radius);
            // Back from the true anomaly to the mean one.
            const double half = (Norm360(mean) + centre) * DegToRad / 2.0;
            const double eccentric =
                2.0 * std::atan2(std::sqrt(1.0 - e) * std::sin(half), std::sqrt(1.0 + e) * std::cos(half));
            const double back = (eccentric - e * std::sin(eccentric)) * numeric::RadToDeg;
            EXPECT_NEAR(std::remainder(back - mean, 360.0), 0.0, 2e-9) << e << " " << mean;
            EXPECT_NEAR(radius, 1.0 - e * std::cos(eccentric), 1e-11);
            EXPECT_EQ(SunEquationOfCentre(e, mean), centre);
        }
}

TEST(KeplerTest, ACircleHasNoEquationOfCentre)
{
    for (double mean = 0.0; mean < 360.0; mean += 10.0) {
        double centre = 1.0, radius = 0.0;
        SolveKepler(0.0, mean, centre, radius);
        EXPECT_NEAR(centre, 0.0, 1e-9) << mean;
        EXPECT_NEAR(radius, 1.0, 1e-15);
    }
}

TEST(SunPositionTest, KnownPlaces)
{
    double gha = 0.0, dec = 0.0, distance = 0.0;
    ComputeSunPosition(CenturiesFromJ2000(1, 1, 2000, 12.0), gha, dec, distance);
    EXPECT_NEAR(gha, 359.1800, 5e-5);
    EXPECT_NEAR(dec, -23.0328, 5e-5);
    EXPECT_NEAR(distance, 0.983318, 5e-7);
    double psi = 0.0, eps = 0.0;
    ComputeNutation(0.0, psi, eps);
    const double apparentSidereal = GreenwichHourAngle(0.0, psi, 23.43928 + eps / 3600.0, 0.0);
    EXPECT_NEAR(Norm360(apparentSidereal - gha), 281.2771, 5e-5);
    ComputeSunPosition(CenturiesFromJ2000(21, 6, 2004, 12.0), gha, dec, distance);
    EXPECT_NEAR(gha, 359.5421, 5e-5);
    EXPECT_NEAR(dec, 23.4398, 5e-5);
    EXPECT_NEAR(distance, 1.016331, 5e-7);
}

TEST(SunPositionTest, TruePlaceAndApparentPlaceBelongTogether)
{
    for (double T = -1.0; T < 1.0; T += 0.0137) {
        const SunTruePlace place = ComputeSunTruePlace(T);
        double gha = 0.0, dec = 0.0, distance = 0.0;
        ComputeSunPosition(T, gha, dec, distance);
        EXPECT_EQ(distance, place.Radius);
        EXPECT_GE(gha, 0.0);
        EXPECT_LT(gha, 360.0);
        // Aberration and nutation move it by less than 40 seconds of arc.
        EXPECT_NEAR(
            dec, std::asin(std::sin(place.Longitude * DegToRad) * std::sin(place.MeanObliquity * DegToRad)) / DegToRad,
            0.012);
    }
}

} // namespace
} // namespace merov::ephemeris
