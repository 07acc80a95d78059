#include "ephemeris/moon.h"

#include "column_sums.h"
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

using numeric::Norm360;

TEST(Moon, TablesHaveTheSumsOfThePublishedOnes)
{
    const auto longitude = [](const MoonLongitudeTerm& t) {
        return test::Row(t.Argument.D, t.Argument.M, t.Argument.MPrime, t.Argument.F, t.Longitude, t.Distance);
    };
    const auto latitude = [](const MoonLatitudeTerm& t) {
        return test::Row(t.Argument.D, t.Argument.M, t.Argument.MPrime, t.Argument.F, t.Latitude);
    };
    test::ExpectColumnSums(MoonLongitudeTerms, longitude, {3245, 321, -39, -298, 11179311, -40734001});
    test::ExpectColumnSums(MoonLatitudeTerms, latitude, {3258, 12, -1, -298, 8505427});
}

double Sine(double degrees)
{
    return std::sin(degrees * numeric::DegToRad);
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
    const double a1 = Norm360(119.75 + 131.849 * T), a2 = Norm360(53.09 + 479264.29 * T);
    const double a3 = Norm360(313.45 + 481266.484 * T);
    const double e = 1.0 - 0.002516 * T - 7.4e-6 * T * T, weights[] = {1.0, e, e * e};
    const auto argument = [&](const MoonArgument& a) { return a.D * d + a.M * m + a.MPrime * mPrime + a.F * f; };
    double l = 3958.0 * Sine(a1) + 1962.0 * Sine(lPrime - f) + 318.0 * Sine(a2);
    double b = -2235.0 * Sine(lPrime) + 382.0 * Sine(a3) + 175.0 * Sine(a1 - f) + 175.0 * Sine(a1 + f) +
               127.0 * Sine(lPrime - mPrime) - 115.0 * Sine(lPrime + mPrime);
    double r = 0.0;
    for (const MoonLongitudeTerm& t : MoonLongitudeTerms) {
        l += weights[std::abs(t.Argument.M)] * t.Longitude * Sine(argument(t.Argument));
        r += weights[std::abs(t.Argument.M)] * t.Distance * std::cos(argument(t.Argument) * numeric::DegToRad);
    }
    for (const MoonLatitudeTerm& t : MoonLatitudeTerms)
        b += weights[std::abs(t.Argument.M)] * t.Latitude * Sine(argument(t.Argument));
    return {lPrime + l / 1e6, b / 1e6, 385000.56 + r / 1000.0};
}

TEST(Moon, ProductsOfPhasesGiveThePlainSums)
{
    for (double T = -2.0; T <= 2.0; T += 0.000937) {
        const MoonEclipticPlace fast = ComputeMoonEcliptic(T), plain = PlainMoon(T);
        ASSERT_NEAR(fast.Longitude, plain.Longitude, 1e-12) << T;
        ASSERT_NEAR(fast.Latitude, plain.Latitude, 1e-12) << T;
        ASSERT_NEAR(fast.Kilometres, plain.Kilometres, 1e-8) << T;
    }
}

TEST(Moon, KnownPlacesInTheEcliptic)
{
    const double cases[][4] = {{JoinDateTime({1992, 4, 12}), 133.16266, -3.22913, 368409.68},
                               {JoinDateTime({2004, 1, 1}), 27.49205, -1.91764, 401421.94}};
    for (const auto& [instant, longitude, latitude, kilometres] : cases) {
        const MoonEclipticPlace place = ComputeMoonEcliptic(CenturiesFromJ2000(instant));
        EXPECT_NEAR(Norm360(place.Longitude), longitude, 5e-6);
        EXPECT_NEAR(place.Latitude, latitude, 5e-6);
        EXPECT_NEAR(place.Kilometres, kilometres, 5e-3);
    }
}

} // namespace
} // namespace merov::ephemeris
