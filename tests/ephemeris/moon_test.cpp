#include "ephemeris/moon.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/moon_tables.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;
using numeric::Norm360;

TEST(MoonTest, TablesHaveTheSumsOfThePublishedOnes)
{
    // Each column by row number times value.
    double longitude[6] = {};
    double latitude[5] = {};
    const auto add = [](double* sums, double row, const MoonArgument& a) {
        const int multipliers[4] = {a.D, a.M, a.MPrime, a.F};
        for (int i = 0; i < 4; ++i)
            sums[i] += row * multipliers[i];
    };
    double row = 0.0;
    for (const MoonLongitudeTerm& t : MoonLongitudeTerms) {
        add(longitude, ++row, t.Argument);
        longitude[4] += row * t.Longitude;
        longitude[5] += row * t.Distance;
    }
    row = 0.0;
    for (const MoonLatitudeTerm& t : MoonLatitudeTerms) {
        add(latitude, ++row, t.Argument);
        latitude[4] += row * t.Latitude;
    }
    const double expectedLongitude[6] = {3245, 321, -39, -298, 11179311, -40734001};
    const double expectedLatitude[5] = {3258, 12, -1, -298, 8505427};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(longitude[i], expectedLongitude[i]) << i;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(latitude[i], expectedLatitude[i]) << i;
}

/// The series as they are printed: a sine or cosine of each sum of multiples.
MoonEclipticPlace PlainMoon(double T)
{
    const double T2 = T * T, T3 = T2 * T, T4 = T3 * T;
    const double lPrime = Norm360(218.3164591 + 481267.88134236 * T - 0.0013268 * T2 + T3 / 538841.0 - T4 / 65194000.0);
    const double d = Norm360(297.8502042 + 445267.1115168 * T - 0.00163 * T2 + T3 / 545868.0 - T4 / 113065000.0);
    const double m = Norm360(357.5291092 + 35999.0502909 * T - 0.0001536 * T2 + T3 / 24490000.0);
    const double mPrime = Norm360(134.9634114 + 477198.8676313 * T + 0.008997 * T2 + T3 / 69699.0 - T4 / 14712000.0);
    const double f = Norm360(93.2720993 + 483202.0175273 * T - 0.0034029 * T2 - T3 / 3526000.0 + T4 / 863310000.0);
    const double a1 = Norm360(119.75 + 131.849 * T);
    const double a2 = Norm360(53.09 + 479264.29 * T);
    const double a3 = Norm360(313.45 + 481266.484 * T);
    const double e = 1.0 - 0.002516 * T - 7.4e-6 * T * T;
    const auto argument = [&](const MoonArgument& a) {
        return (a.D * d + a.M * m + a.MPrime * mPrime + a.F * f) * DegToRad;
    };
    const auto weight = [&](const MoonArgument& a) { return a.M == 0 ? 1.0 : std::abs(a.M) == 1 ? e : e * e; };
    const auto sine = [](double degrees) { return std::sin(degrees * DegToRad); };
    double l = 0.0, r = 0.0, b = 0.0;
    for (const MoonLongitudeTerm& t : MoonLongitudeTerms) {
        l += weight(t.Argument) * t.Longitude * std::sin(argument(t.Argument));
        r += weight(t.Argument) * t.Distance * std::cos(argument(t.Argument));
    }
    for (const MoonLatitudeTerm& t : MoonLatitudeTerms)
        b += weight(t.Argument) * t.Latitude * std::sin(argument(t.Argument));
    l += 3958.0 * sine(a1) + 1962.0 * sine(lPrime - f) + 318.0 * sine(a2);
    b += -2235.0 * sine(lPrime) + 382.0 * sine(a3) + 175.0 * sine(a1 - f) + 175.0 * sine(a1 + f) +
         127.0 * sine(lPrime - mPrime) - 115.0 * sine(lPrime + mPrime);
    return {lPrime + l / 1e6, b / 1e6, 385000.56 + r / 1000.0};
}

TEST(MoonTest, ProductsOfPhasesGiveThePlainSums)
{
    for (double T = -2.0; T <= 2.0; T += 0.000937) {
        const MoonEclipticPlace fast = ComputeMoonEcliptic(T);
        const MoonEclipticPlace plain = PlainMoon(T);
        ASSERT_NEAR(fast.Longitude, plain.Longitude, 1e-12) << T;
        ASSERT_NEAR(fast.Latitude, plain.Latitude, 1e-12) << T;
        ASSERT_NEAR(fast.Kilometres, plain.Kilometres, 1e-8) << T;
    }
}

TEST(MoonTest, KnownPlaces)
{
    const struct {
        int Day, Month, Year;
        double Longitude, Latitude, Kilometres, GHA, Dec;
    } cases[] = {
        {12, 4, 1992, 133.16266, -3.22913, 368409.68, 65.7496, 13.7684},
        {1, 1, 2004, 27.49205, -1.91764, 401421.94, 73.7720, 8.7896},
    };
    for (const auto& c : cases) {
        const double T = CenturiesFromJ2000(c.Day, c.Month, c.Year, 0.0);
        const MoonEclipticPlace place = ComputeMoonEcliptic(T);
        EXPECT_NEAR(Norm360(place.Longitude), c.Longitude, 5e-6);
        EXPECT_NEAR(place.Latitude, c.Latitude, 5e-6);
        EXPECT_NEAR(place.Kilometres, c.Kilometres, 5e-3);
        double gha = 0.0, dec = 0.0, distance = 0.0;
        ComputeMoonPosition(T, gha, dec, distance);
        EXPECT_NEAR(gha, c.GHA, 5e-5);
        EXPECT_NEAR(dec, c.Dec, 5e-5);
        EXPECT_NEAR(distance, c.Kilometres / 149565800.0, 5e-10);
    }
}

TEST(MoonTest, HourAngleIsShortByHalfAMinuteOfArc)
{
    const double T = CenturiesFromJ2000(12, 4, 1992, 0.0);
    double gha = 0.0, dec = 0.0, distance = 0.0;
    ComputeMoonPosition(T, gha, dec, distance);
    EXPECT_NEAR(distance, 0.00246319, 5e-9);
    double psi = 0.0, eps = 0.0;
    ComputeNutation(T, psi, eps);
    const double sidereal = GreenwichHourAngle(T, psi, MeanObliquitySeries(T) + eps / 3600.0, 0.0);
    EXPECT_NEAR(Norm360(sidereal - gha - 0.5 / 60.0), 134.6885, 5e-5); // right ascension
}

} // namespace
} // namespace merov::ephemeris
