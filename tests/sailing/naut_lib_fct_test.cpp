#include "sailing/naut_lib_fct.h"

#include "sailing/ellipsoid.h"
#include "support/expect.h"

#include <gtest/gtest.h>

namespace merov::sailing
{
namespace
{

TEST(NautLibFctTest, EachNumberReachesItsOwnRecord)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    double lat = 0.0, lon = 0.0;
    RhumbLineDirect(20.0, 178.0, 60.0, 150.0, lat, lon, earth.InverseFlattening, earth.SemiMajorAxisNm);
    ASSERT_LT(lon, 0.0);
    NautLibFct functions;
    SailingProblem& problem = functions.Sailing;
    problem = {.DepLat = 20.0, .DepLong = 178.0, .ArrLat = 21.0, .ArrLong = 180.0, .Course = 60.0, .Distance = 150.0};
    problem.TrialLat = lat;
    problem.InverseFlattening = earth.InverseFlattening;
    problem.SemiMajorAxis = earth.SemiMajorAxisNm;
    problem.TargetParts = 2000.0;
    // A residual of longitudes that jumped by a whole turn hid every arrival on the date line.
    EXPECT_NEAR(functions.f(60.0, 0), lon + 180.0, 1e-9);
    EXPECT_NEAR(functions.f(lat, 2), lon + 180.0, 1e-9);
    EXPECT_NEAR(functions.f(150.0, 4), lon + 180.0, 1e-9);
    EXPECT_NEAR(functions.f(150.0, 1), lat - 21.0, 1e-9);
    EXPECT_NEAR(functions.f(150.0, 3), lat - 21.0, 1e-9);
    EXPECT_NEAR(functions.f(45.0, 14), 3013.382 - 2000.0, 5e-4);
    functions.Sun.TargetHourAngle = 30.0;
    functions.Sun.TargetAltitude = -6.0;
    for (const int n : {12, 13})
        EXPECT_EQ(functions.f(38128.75, n), functions.Sun.f(38128.75, n)) << n;
    functions.Geodesic = GeodesicProblemOn(earth.InverseFlattening);
    GeodesicProblem& geodesic = functions.Geodesic;
    geodesic.DepLat = 0.3;
    geodesic.ArrLat = 0.5;
    geodesic.ArrLong = 0.8;
    geodesic.CotVertex = 0.2;
    geodesic.Inclination = 0.7;
    for (const int n : {5, 6, 9, 10, 11})
        EXPECT_EQ(functions.f(0.25, n), GeodesicFunction(0.25, n, geodesic)) << n;
    for (const int n : {7, 8})
        EXPECT_EQ(functions.f(0.25, n), RateIntegrands(0.7, geodesic.OneMinusE2).f(0.25, n)) << n;
    for (const int n : {1, 2, 3, 4, 5, 6})
        EXPECT_EQ(functions.SysEq(test::VectorOf({0.6, 0.25}), n), GeodesicEquation(0.6, 0.25, n, geodesic)) << n;
    EXPECT_NE(functions.f(0.25, 9), functions.f(0.25, 11));
    EXPECT_EQ(functions.f(1.0, 15), 0.0); // unknown
    EXPECT_EQ(functions.SysEq(numeric::Vector(1, 2, 1.0), 99), 0.0);
}

} // namespace
} // namespace merov::sailing
