#include "ephemeris/earth_frame.h"

#include "ephemeris/nutation_tables.h"
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

TEST(NutationTest, TableHasTheSumsOfThePublishedOne)
{
    // Each column by row number times value, so that an exchange of rows or signs shows too.
    double sums[9] = {};
    double row = 0.0;
    for (const NutationTerm& t : NutationTerms) {
        row += 1.0;
        const double values[9] = {static_cast<double>(t.D),
                                  static_cast<double>(t.M),
                                  static_cast<double>(t.MPrime),
                                  static_cast<double>(t.F),
                                  static_cast<double>(t.Omega),
                                  t.Psi,
                                  t.PsiRate,
                                  t.Eps,
                                  t.EpsRate};
        for (int i = 0; i < 9; ++i)
            sums[i] += row * values[i];
    }
    const double expected[9] = {-258, -19, 881, 1970, 1931, -193077, -192.2, 106993, 0.6};
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(sums[i], expected[i], 1e-9) << i;
}

/// The series as it is printed: a sine and a cosine of each sum of multiples.
void PlainNutation(double T, double& psi, double& eps)
{
    const double arguments[5] = {Norm360(297.85036 + 445267.11148 * T - 0.0019142 * T * T + T * T * T / 189474.0),
                                 Norm360(357.52772 + 35999.05034 * T - 0.0001603 * T * T - T * T * T / 300000.0),
                                 Norm360(134.96298 + 477198.867398 * T + 0.0086972 * T * T + T * T * T / 56250.0),
                                 Norm360(93.27191 + 483202.017538 * T - 0.0036825 * T * T + T * T * T / 327270.0),
                                 Norm360(125.04452 - 1934.136261 * T + 0.0020708 * T * T + T * T * T / 450000.0)};
    psi = eps = 0.0;
    for (const NutationTerm& t : NutationTerms) {
        const double argument = (t.D * arguments[0] + t.M * arguments[1] + t.MPrime * arguments[2] +
                                 t.F * arguments[3] + t.Omega * arguments[4]) *
                                DegToRad;
        psi += std::sin(argument) * (t.Psi + t.PsiRate * T) / 10000.0;
        eps += std::cos(argument) * (t.Eps + t.EpsRate * T) / 10000.0;
    }
}

TEST(NutationTest, ProductsOfPhasesGiveThePlainSum)
{
    for (double T = -2.0; T <= 2.0; T += 0.000937) {
        double psi = 0.0, eps = 0.0, plainPsi = 0.0, plainEps = 0.0;
        ComputeNutation(T, psi, eps);
        PlainNutation(T, plainPsi, plainEps);
        ASSERT_NEAR(psi, plainPsi, 1e-11) << T; // seconds of arc; 3e-15 degree
        ASSERT_NEAR(eps, plainEps, 1e-11) << T;
    }
}

TEST(NutationTest, AgreesWithAPublishedExample)
{
    // J. Meeus, Astronomical Algorithms, example 21.a: 10 April 1987 at 0h.
    const double T = CenturiesFromJ2000(10, 4, 1987, 0.0);
    double psi = 0.0;
    double eps = 0.0;
    ComputeNutation(T, psi, eps);
    EXPECT_NEAR(psi, -3.788, 5e-4);
    EXPECT_NEAR(eps, 9.443, 5e-4);
    EXPECT_NEAR(MeanObliquitySeries(T) * 3600.0, 23 * 3600 + 26 * 60 + 27.407, 5e-4);
}

TEST(ObliquityTest, SeriesOfLaskar)
{
    EXPECT_NEAR(MeanObliquitySeries(0.0), 23.43929111, 1e-10);
    // The secular rate of the obliquity today, and the well-known values 10000 years off: 22.62, 24.23.
    EXPECT_NEAR((MeanObliquitySeries(0.5) - MeanObliquitySeries(-0.5)) * 3600.0, -46.809, 0.01);
    EXPECT_NEAR(MeanObliquitySeries(100.0), 22.62, 0.02);
    EXPECT_NEAR(MeanObliquitySeries(-100.0), 24.23, 0.02);
}

TEST(ApparentPlaceTest, AgreesWithAPublishedExample)
{
    // J. Meeus, Astronomical Algorithms, example 22.a, theta Persei on 13.19 November 2028. The book's
    // constant of aberration is 20.49552, and its terms in the eccentricity are left out here.
    const double alpha = 41.5472, delta = 49.3485, trueEps = 23.436, sun = 231.328;
    const double deltaPsi = 14.861, deltaEps = 2.705;
    double ra = alpha, dec = 0.0;
    ApplyNutationAberration(trueEps - deltaEps / 3600.0, deltaPsi, deltaEps, sun, ra, delta, ra, dec);

    const double a = alpha * DegToRad, d = delta * DegToRad, e = trueEps * DegToRad;
    const double perihelion = 103.434 * DegToRad, eccentricity = 0.01669649, book = 20.49552;
    const double termRA = eccentricity * book *
                          (std::cos(a) * std::cos(perihelion) * std::cos(e) + std::sin(a) * std::sin(perihelion)) /
                          std::cos(d);
    const double termDec =
        eccentricity * book *
        (std::cos(perihelion) * std::cos(e) * (std::tan(e) * std::cos(d) - std::sin(a) * std::sin(d)) +
         std::cos(a) * std::sin(d) * std::sin(perihelion));
    const double scale = AberrationConstant / book;
    EXPECT_NEAR((ra - alpha) * 3600.0, 15.843 + (30.045 - termRA) * scale, 3e-3);
    EXPECT_NEAR((dec - delta) * 3600.0, 6.218 + (6.697 - termDec) * scale, 3e-3);
}

TEST(ApparentPlaceTest, NutationIsTheTurnOfTheFrame)
{
    // Nutation alone moves every star as the turn from mean to true ecliptic does.
    const double eps0 = 23.4393, psi = 17.2, deps = 9.2;
    for (double ra = 3.0; ra < 360.0; ra += 31.0)
        for (double dec = -80.0; dec <= 80.0; dec += 20.0) {
            const double a = ra * DegToRad, d = dec * DegToRad, e = eps0 * DegToRad;
            const double y = std::cos(d) * std::sin(a);
            const double latitude = std::asin(std::cos(e) * std::sin(d) - std::sin(e) * y);
            const double longitude = std::atan2(std::cos(e) * y + std::sin(e) * std::sin(d), std::cos(d) * std::cos(a));
            double trueDec = 0.0, trueRA = 0.0;
            EclipticPointToEquator(latitude / DegToRad, longitude / DegToRad + psi / 3600.0, eps0 + deps / 3600.0,
                                   trueDec, trueRA);
            // The mean of two opposite directions of the Sun is free of aberration to the first order.
            double ra1 = 0.0, dec1 = 0.0, ra2 = 0.0, dec2 = 0.0;
            ApplyNutationAberration(eps0, psi, deps, 70.0, ra, dec, ra1, dec1);
            ApplyNutationAberration(eps0, psi, deps, 250.0, ra, dec, ra2, dec2);
            const double away = numeric::NormalizeLongitude((ra1 + ra2) / 2.0 - trueRA) * std::cos(d);
            EXPECT_NEAR(away * 3600.0, 0.0, 0.02) << ra << " " << dec;
            EXPECT_NEAR(((dec1 + dec2) / 2.0 - trueDec) * 3600.0, 0.0, 0.02) << ra << " " << dec;
        }
}

TEST(EclipticPointTest, CardinalPoints)
{
    double dec = 0.0, ra = 0.0;
    EclipticPointToEquator(0.0, 90.0, 23.44, dec, ra);
    EXPECT_NEAR(ra, 90.0, 1e-9);
    EXPECT_NEAR(dec, 23.44, 1e-9);
    EclipticPointToEquator(0.0, 0.0, 23.44, dec, ra); // right ascension has a value as a limit alone
    EXPECT_EQ(ra, 0.0);
    EXPECT_NEAR(dec, 0.0, 1e-9);
    EclipticPointToEquator(0.0, 180.0, 23.44, dec, ra);
    EXPECT_NEAR(ra, 180.0, 1e-9);
    EclipticPointToEquator(0.0, 270.0, 23.44, dec, ra);
    EXPECT_NEAR(Norm360(ra), 270.0, 1e-9); // either end of its range
    EXPECT_NEAR(dec, -23.44, 1e-9);
}

TEST(EclipticPointTest, RightAscension180HasItsLimit)
{
    // Walks through the doubles at which the vector's component across the axis is a hair from 0 or
    // exactly 0, where the arc tangent has no value.
    const double eps = 23.44;
    const double e = eps * DegToRad;
    int exact = 0;
    for (double longitude = 91.0; longitude < 179.0; longitude += 0.5) {
        const double sine = std::sin(longitude * DegToRad);
        double latitude = std::atan(std::cos(e) * sine / std::sin(e)) / DegToRad;
        for (int i = 0; i < 5; ++i)
            latitude = std::nextafter(latitude, 0.0);
        for (int i = 0; i < 10; ++i, latitude = std::nextafter(latitude, 90.0)) {
            const double b = latitude * DegToRad;
            exact += std::sin(e) * std::sin(b) - std::cos(e) * std::cos(b) * sine == 0.0;
            double dec = 0.0, ra = 0.0;
            ASSERT_NO_THROW(EclipticPointToEquator(latitude, longitude, eps, dec, ra));
            ASSERT_NEAR(ra, 180.0, 1e-9) << longitude;
        }
    }
    EXPECT_GT(exact, 0);
}

TEST(HourAngleTest, IsSiderealTimeLessRightAscension)
{
    const double T = 0.043;
    const double mean = GreenwichMeanSiderealTime(T);
    EXPECT_NEAR(GreenwichHourAngle(T, 0.0, 23.4, mean - 10.0), 10.0, 1e-11);
    EXPECT_NEAR(GreenwichHourAngle(T, 0.0, 23.4, mean + 10.0), 350.0, 1e-11);
    EXPECT_EQ(GreenwichHourAngle(T, 0.0, 23.4, mean + 1e-13), 0.0);
    EXPECT_NEAR(GreenwichHourAngle(T, 3600.0, 60.0, mean), 0.5, 1e-11);
}

} // namespace
} // namespace merov::ephemeris
