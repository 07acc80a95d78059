#include "ephemeris/earth_frame.h"

#include "column_sums.h"
#include "ephemeris/nutation_tables.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;
using numeric::Norm360;

TEST(Nutation, TableHasTheSumsOfThePublishedOne)
{
    const auto columns = [](const NutationTerm& t) {
        return test::Row(t.D, t.M, t.MPrime, t.F, t.Omega, t.Psi, t.PsiRate, t.Eps, t.EpsRate);
    };
    test::ExpectColumnSums(NutationTerms, columns, {-258, -19, 881, 1970, 1931, -193077, -192.2, 106993, 0.6});
}

/// The series as it is printed: a sine and a cosine of each sum of multiples.
void PlainNutation(double T, double& psi, double& eps)
{
    const double d = Norm360(297.85036 + 445267.11148 * T - 0.0019142 * T * T + T * T * T / 189474.0);
    const double m = Norm360(357.52772 + 35999.05034 * T - 0.0001603 * T * T - T * T * T / 300000.0);
    const double mPrime = Norm360(134.96298 + 477198.867398 * T + 0.0086972 * T * T + T * T * T / 56250.0);
    const double f = Norm360(93.27191 + 483202.017538 * T - 0.0036825 * T * T + T * T * T / 327270.0);
    const double omega = Norm360(125.04452 - 1934.136261 * T + 0.0020708 * T * T + T * T * T / 450000.0);
    psi = eps = 0.0;
    for (const NutationTerm& t : NutationTerms) {
        const double argument = (t.D * d + t.M * m + t.MPrime * mPrime + t.F * f + t.Omega * omega) * DegToRad;
        psi += std::sin(argument) * (t.Psi + t.PsiRate * T) / 10000.0;
        eps += std::cos(argument) * (t.Eps + t.EpsRate * T) / 10000.0;
    }
}

TEST(Nutation, AgreesWithAPublishedExample)
{
    // J. Meeus, Astronomical Algorithms, example 22.a: 10 April 1987.
    double psi, eps;
    ComputeNutation(-0.127296372348, psi, eps);
    EXPECT_NEAR(psi, -3.788, 5e-4);
    EXPECT_NEAR(eps, 9.443, 5e-4);
}

TEST(Nutation, ProductsOfPhasesGiveThePlainSum)
{
    for (double T = -2.0; T <= 2.0; T += 0.000937) {
        double psi, eps, plainPsi, plainEps;
        ComputeNutation(T, psi, eps);
        PlainNutation(T, plainPsi, plainEps);
        ASSERT_NEAR(psi, plainPsi, 1e-11) << T; // seconds of arc; 3e-15 degree
        ASSERT_NEAR(eps, plainEps, 1e-11) << T;
    }
}

TEST(Obliquity, SeriesOfLaskar)
{
    // A hundred centuries off the coefficients add up: 2918.44" odd and 61.66" even.
    EXPECT_NEAR(MeanObliquitySeries(0.0), 23.43929111, 1e-10);
    EXPECT_NEAR(MeanObliquitySeries(100.0), 23.43929111 - (61.66 + 2918.44) / 3600.0, 1e-9);
    EXPECT_NEAR(MeanObliquitySeries(-100.0), 23.43929111 - (61.66 - 2918.44) / 3600.0, 1e-9);
}

TEST(ApparentPlace, AberrationIsTheEarthsVelocityAcrossTheLineOfSight)
{
    const double eps = 23.4393, e = eps * DegToRad, k = 20.484; // seconds of arc
    for (double ra = 3.0; ra < 360.0; ra += 31.0)
        for (const double dec : {-80.0, -21.0, 0.0, 40.0, 89.3})
            for (const double sun : {20.0, 110.0, 231.0}) {
                const double a = ra * DegToRad, d = dec * DegToRad, l = sun * DegToRad;
                const double x = k * std::sin(l), y = -k * std::cos(l) * std::cos(e);
                const double z = -k * std::cos(l) * std::sin(e);
                const double east = y * std::cos(a) - x * std::sin(a);
                const double north = z * std::cos(d) - (x * std::cos(a) + y * std::sin(a)) * std::sin(d);
                double seenRA = ra, seenDec;
                ApplyNutationAberration(eps, 0.0, 0.0, sun, seenRA, dec, seenRA, seenDec);
                EXPECT_NEAR((seenRA - ra) * 3600.0 * std::cos(d), east, 1e-8) << dec;
                EXPECT_NEAR((seenDec - dec) * 3600.0, north, 1e-8) << dec;
            }
}

TEST(EclipticPoint, RightAscensionHasItsLimitWhereTheArcTangentHasNoValue)
{
    // Latitude, longitude; right ascension, declination. For the first and last the vector's component across
    // the axis is exactly 0.
    const double cases[][4] = {{0, 0, 0, 0},
                               {0, 90, 90, 23.44},
                               {0, 180, 180, 0},
                               {0, 270, 270, -23.44},
                               {60.08196891752, 131.11, 180, 70.856306460592}};
    for (const auto& [latitude, longitude, expectedRA, expectedDec] : cases) {
        double dec, ra;
        EclipticPointToEquator(latitude, longitude, 23.44, dec, ra);
        EXPECT_NEAR(Norm360(ra), expectedRA, 1e-9);
        EXPECT_NEAR(dec, expectedDec, 1e-9);
    }
}

} // namespace
} // namespace merov::ephemeris
