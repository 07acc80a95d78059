#include "sailing/geodesic_curve.h"

#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::sailing
{
namespace
{

constexpr double TruePi = 3.14159265358979324;

const double R = EllipsoidAt(DefaultEllipsoidIndex).InverseFlattening;
const GeodesicProblem Wgs84 = GeodesicProblemOn(R);

// The longitude run from the node (n = 8) or the vertex (n = 7) over an arc w, by the midpoint rule.
double LongitudeRun(int n, double w, double i)
{
    constexpr int parts = 2000;
    double sum = 0.0;
    for (int k = 0; k < parts; ++k) {
        const double x = w * (k + 0.5) / parts, q = n == 8 ? std::sin(x) : std::cos(x);
        const double t = std::pow(std::tan(i) * q, 2), c = 0.99330562000986; // 1 - e^2 of WGS 84
        sum += std::sqrt((c * c + t) / (c + t)) * w / parts;
    }
    return sum;
}

TEST(GeodesicCurveTest, Period)
{
    for (const double side : {1.0, -1.0}) {
        EXPECT_NEAR(GeodesicPeriod(side * 45.0, R), 359.145, 5e-4);
        EXPECT_NEAR(GeodesicPeriod(side * 10.0, R), 358.811, 5e-4);
        EXPECT_NEAR(GeodesicQuarterPeriod(side * 45.0, R), 359.145 / 4.0, 2e-4);
        EXPECT_NEAR(GeodesicPeriod(side * 45.0, SphereInverseFlattening), 360.0, 1e-10);
    }
    EXPECT_EQ(test::FaultOf([] { GeodesicPeriod(0.0, R); }), 11);
}

TEST(GeodesicCurveTest, EastSign)
{
    const struct {
        double Long1, Long2;
        int Sign;
    } rows[] = {{10, 20, 1},  {20, 10, -1}, {170, -170, 1}, {-170, 170, -1},
                {350, 10, 1}, {0, 180, -1}, {180, 0, -1},   {5, 5, -1}};
    for (const auto& [long1, long2, sign] : rows)
        EXPECT_EQ(EastSign(long1, long2), sign) << long1 << " " << long2;
}

TEST(GeodesicCurveTest, Latitudes)
{
    // The geocentric latitude of 45 degrees is 692.73" less (the greatest difference on WGS 84, but 0.01").
    EXPECT_NEAR(GeodeticToGeocentric(45.0, R), 45.0 - 692.73 / 3600.0, 2e-6);
    for (const double lat : {-89.9, -60.5, -1e-4, 1e-4, 33.0}) {
        EXPECT_NEAR(GeocentricToGeodetic(GeodeticToGeocentric(lat, R), R), lat, 1e-10);
        EXPECT_NEAR(LatitudeOfCotangent(Cotangent(lat)), lat, 1e-10);
        EXPECT_NEAR(Cotangent(lat) * std::tan(lat * numeric::DegToRad), 1.0, 1e-6);
    }
}

TEST(GeodesicCurveTest, RatesAreMeansOverTheArc)
{
    test::BoxRecorder boxes;
    const double c = Wgs84.OneMinusE2;
    for (const double i : {0.1, 0.7, 1.4, -0.7})
        for (const double part : {0.05, 0.5, 0.97, -0.5}) {
            const double psi = part * i, sine = std::tan(psi) / std::tan(i);
            EXPECT_NEAR(GeodesicRate(psi, i, c), std::asin(sine) / LongitudeRun(8, std::asin(sine), i), 1e-6);
            EXPECT_NEAR(GeodesicRateCos(psi, i, c), std::acos(sine) / LongitudeRun(7, std::acos(sine), i), 1e-6);
            // A latitude beyond the vertex, by a rounding or in a trial, counts as the vertex.
            for (const double beyond : {i, -i, 1.01 * i, -1.01 * i}) {
                EXPECT_EQ(GeodesicRate(beyond, i, c), GeodesicRate(i, i, c));
                EXPECT_EQ(GeodesicRateCos(beyond, i, c), GeodesicRate(i, i, c));
            }
        }
    EXPECT_EQ(test::FaultOf([&] { GeodesicRate(0.0, 0.7, c); }), 11);
    EXPECT_EQ(test::FaultOf([&] { GeodesicRateCos(0.1, 0.0, c); }), 11);
}

// The flattening's term had the sign of the hemisphere and took no account of the equator: southern
// waypoints were 3.5 miles off at the median.
TEST(GeodesicCurveTest, LongitudeFromVertexInBothHemispheres)
{
    for (const double c : {0.05, 0.8, 12.0})
        for (const double k : {1.01 * c, 3.0 * c, 1e6 * c}) {
            const double near = LongitudeFromVertex(c, k, Wgs84.HalfE2), far = LongitudeFromVertex(c, -k, Wgs84.HalfE2);
            EXPECT_EQ(LongitudeFromVertex(-c, -k, Wgs84.HalfE2), near);
            EXPECT_EQ(LongitudeFromVertex(-c, k, Wgs84.HalfE2), far);
            EXPECT_NEAR(near + far, TruePi * (1.0 - Wgs84.HalfE2 * c / std::sqrt(c * c + 1.0)), 1e-11);
        }
}

// A point on the curve of inclination 0.7 beside its vertex at `vertex`, in either hemisphere and with longitudes
// written as they come: each function and each equation is zero there. (A form of its own for a departure in
// the other hemisphere put the vertex 11 degrees off; differences that were not reduced lost 180 degrees.)
TEST(GeodesicCurveTest, FunctionsAndEquationsVanishOnTheCurve)
{
    const double i = 0.7, quarter = LongitudeRun(8, TruePi / 2.0, i);
    for (const double vertex : {0.3, 3.1, -3.1})
        for (const double psi : {0.5, 0.02, -0.4})
            for (const double side : {1.0, -1.0})
                for (const double turn : {0.0, 2.0 * TruePi, -2.0 * TruePi}) {
                    const double apart = LongitudeRun(7, std::acos(std::tan(psi) / std::tan(i)), i);
                    GeodesicProblem p = Wgs84;
                    p.Inclination = i;
                    p.DepLat = p.ArrLat = psi;
                    p.DepLong = p.ArrLong = vertex + side * apart + turn;
                    for (const int n : {9, 10, 11})
                        EXPECT_NEAR(GeodesicFunction(vertex, n, p), 0.0, 1e-6) << n;
                    for (const int n : {1, 2, 5, 6})
                        EXPECT_NEAR(GeodesicEquation(i, vertex, n, p), 0.0, 1e-6) << n;
                    for (const int n : {3, 4}) { // node on the point's side of the vertex, north beyond it
                        p.DepLong = p.ArrLong = vertex - apart + turn;
                        EXPECT_NEAR(GeodesicEquation(i, vertex - quarter, n, p), 0.0, 1e-6) << n;
                    }
                }
}

// Where function 5 or 6 has no value it gives its last one and a little more; at first that is 0.
TEST(GeodesicCurveTest, DegenerateRegionGivesTheLastValue)
{
    GeodesicProblem p = Wgs84;
    p.DepLat = p.ArrLat = 2.0;
    p.DepLong = 10.0;
    p.ArrLong = 40.0;
    p.VertexLong = 25.0;
    p.CotVertex = 1.0;
    EXPECT_EQ(GeodesicFunction(2.1, 5, p), 1e-13);
    const double last = GeodesicFunction(1.5, 5, p);
    EXPECT_NE(last, 0.0);
    for (const double x : {0.0, 0.5, -0.99})
        EXPECT_EQ(GeodesicFunction(x, 6, p), last + 1e-13) << x;
}

} // namespace
} // namespace merov::sailing
