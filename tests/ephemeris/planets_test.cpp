#include "ephemeris/planets.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/planet_tables.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;

TEST(Planets, PlacesOfThreeDates)
{
    struct Case {
        const char* Body;
        int Day, Month, Year, Hour;
        double Gha, Declination, Distance, HelioDistance, EclLatitude, EclLongitude;
    };
    const Case cases[] = {
        {"MARS", 27, 8, 2003, 12, 175.6090, -15.7183, 0.3728, 1.3813, -6.6449, 335.3563},
        {"JUPITER", 4, 3, 2004, 0, 356.2871, 7.6155, 4.4258, 5.4171, 1.4265, 163.9869},
        {"VENUS", 8, 6, 2004, 8, 300.1700, 22.7228, 0.2889, 0.7262, -0.1683, 77.9159},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Body);
        double gha, declination, distance, helioDistance, eclLatitude, eclLongitude;
        ComputePlanetPosition(c.Body, CenturiesFromJ2000(c.Day, c.Month, c.Year, c.Hour), gha, declination, distance,
                              helioDistance, eclLatitude, eclLongitude);
        const double half = 0.500001e-4; // half of the last digit
        EXPECT_NEAR(gha, c.Gha, half);
        EXPECT_NEAR(declination, c.Declination, half);
        EXPECT_NEAR(distance, c.Distance, half);
        EXPECT_NEAR(helioDistance, c.HelioDistance, half);
        EXPECT_NEAR(eclLatitude, c.EclLatitude, half);
        EXPECT_NEAR(eclLongitude, c.EclLongitude, half);
    }
}

/// The sum of one element's perturbations of Jupiter, every wave by a sine or cosine of its own.
double PlainSum(double T1, const std::function<double(const tables::JupiterTerm&, double v)>& coefficient)
{
    const double P = 237.47555 + 3034.9061 * T1, Q = 265.9165 + 1222.1139 * T1, S = 243.51721 + 428.4677 * T1;
    const double V = 5 * Q - 2 * P, W = 2 * P - 6 * Q + 3 * S, zeta = Q - P;
    const auto sine = [](double degrees) { return std::sin(degrees * DegToRad); };
    const auto cosine = [](double degrees) { return std::cos(degrees * DegToRad); };
    const double wave[] = {1.0,
                           sine(V),
                           cosine(V),
                           sine(2 * V),
                           sine(W),
                           sine(zeta),
                           sine(2 * zeta),
                           sine(3 * zeta),
                           sine(4 * zeta),
                           cosine(zeta),
                           cosine(2 * zeta),
                           cosine(3 * zeta),
                           cosine(4 * zeta),
                           cosine(5 * zeta),
                           sine(Q),
                           cosine(Q),
                           sine(2 * Q),
                           cosine(2 * Q)};
    static_assert(std::size(wave) == tables::WaveCount);
    double sum = 0.0;
    for (const tables::JupiterTerm& term : tables::JupiterTerms)
        sum += coefficient(term, T1 / 5 + 0.1) * wave[term.First] * wave[term.Second];
    return sum;
}

TEST(Planets, JupiterElementsAreThoseOfThePlainSumsAndTheAnomalyTakesTheMeanEccentricity)
{
    using tables::JupiterOrbit;
    const auto powers = [](const double(&c)[3], double v) { return c[0] + c[1] * v + c[2] * v * v; };
    for (const double T : {-3.0, -1.0, 0.0, 0.041, 1.0, 4.0}) {
        const double T1 = T + 1;
        const auto mean = [&](const double(&c)[4]) { return numeric::Norm360(numeric::Polynomial(T1, 3, c)); };
        const double A = PlainSum(T1, [&](const auto& term, double v) { return powers(term.A, v); });
        const double B = PlainSum(T1, [&](const auto& term, double v) { return powers(term.B, v); });
        const double C = PlainSum(T1, [&](const auto& term, double v) { return powers(term.C, v); });
        const double D = PlainSum(T1, [&](const auto& term, double) { return term.D; });
        const double e = numeric::Polynomial(T1, 3, JupiterOrbit.ThousandEccentricity) / 1000;
        const double longitude = mean(JupiterOrbit.Longitude), node = mean(JupiterOrbit.Node);
        double L, gotNode, inclination, M, eccentricity, rho;
        JupiterElements(T, L, gotNode, inclination, M, eccentricity, rho);
        EXPECT_NEAR(L, longitude + A, 1e-9);
        EXPECT_NEAR(M, longitude - node - mean(JupiterOrbit.Perihelion) + A - B / e, 1e-9);
        EXPECT_NEAR(eccentricity, e + C * 1e-7, 1e-14);
        EXPECT_NEAR(rho, D * 1e-6, 1e-14);
        EXPECT_EQ(gotNode, node);
        EXPECT_EQ(inclination, mean(JupiterOrbit.Inclination));
    }
}

TEST(Planets, GeocentricPlaceOfSimpleTriangles)
{
    struct Case {
        double SunLongitude, Latitude, Longitude, Radius; // the Sun at distance 1
        double Distance, EclLatitude, EclLongitude;
    };
    const double root2 = std::sqrt(2.0);
    const Case cases[] = {
        {90, 0, 0, 1, root2, 0, 45},
        {90, 0, 180, 1, root2, 0, 135},
        {270, 0, 180, 1, root2, 0, 225},
        {270, 0, 0, 1, root2, 0, 315},
        {0, 0, 0, 2, 3, 0, 0},
        {0, 0, 180, 3, 2, 0, 180},
        {0, 90, 0, 1, root2, 45, 0},
        {180, -90, 0, 1, root2, -45, 180},
        {0, 30, 0, 1, 1.9318516525781366, 15, 0},
    };
    for (const Case& c : cases) {
        double latitude, longitude;
        EXPECT_NEAR(GeocentricEcliptic(1, c.SunLongitude, c.Radius, c.Latitude, c.Longitude, latitude, longitude),
                    c.Distance, 1e-11);
        EXPECT_NEAR(latitude, c.EclLatitude, 1e-9);
        EXPECT_NEAR(numeric::NormalizeLongitude(longitude - c.EclLongitude), 0, 1e-9);
    }
}

TEST(Planets, ShiftInEquatorialAxesAgreesWithTheEcliptic)
{
    for (const double sunLongitude : {13.0, 120.0, 200.0, 311.0})
        for (const double longitude : {7.0, 95.0, 187.0, 290.0})
            for (const double radius : {0.7, 1.4, 9.5}) {
                const double latitude = 3.0, eps = 23.4, sunRadius = 1.01;
                double dec, ra, eclLatitude, eclLongitude, expectedDec, expectedRa;
                EclipticPointToEquator(latitude, longitude, eps, dec, ra);
                ShiftToGeocentre(sunRadius / radius, sunLongitude, eps, dec, ra, dec, ra);
                GeocentricEcliptic(sunRadius, sunLongitude, radius, latitude, longitude, eclLatitude, eclLongitude);
                EclipticPointToEquator(eclLatitude, eclLongitude, eps, expectedDec, expectedRa);
                EXPECT_NEAR(dec, expectedDec, 1e-8);
                EXPECT_NEAR(numeric::NormalizeLongitude(ra - expectedRa), 0, 1e-8);
            }
}

} // namespace
} // namespace merov::ephemeris
