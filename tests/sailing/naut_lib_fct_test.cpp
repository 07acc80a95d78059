#include "sailing/naut_lib_fct.h"

#include "sailing/ellipsoid.h"

#include <gtest/gtest.h>

namespace merov::sailing
{
namespace
{

TEST(NautLibFctTest, EachNumberReachesItsOwnRecord)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    NautLibFct functions;
    functions.Sailing = {.DepLat = 40.0,
                         .DepLong = -20.0,
                         .ArrLat = 42.0,
                         .ArrLong = -15.0,
                         .Course = 60.0,
                         .Distance = 250.0,
                         .TrialLat = 42.0,
                         .InverseFlattening = earth.InverseFlattening,
                         .SemiMajorAxis = earth.SemiMajorAxisNm,
                         .TargetParts = 2000.0};
    functions.Sun.TargetHourAngle = 30.0;
    functions.Sun.TargetAltitude = -6.0;
    functions.Sun.Latitude = 0.7;
    functions.Sun.Longitude = -0.35;

    const double argument[] = {61.0, 240.0, 41.5, 240.0, 240.0};
    for (int n = 0; n <= 4; ++n) {
        SailingProblem copy = functions.Sailing;
        EXPECT_EQ(functions.f(argument[n], n), RhumbLineFunction(argument[n], n, copy)) << n;
        EXPECT_NE(functions.f(argument[n], n), 0.0) << n;
    }
    EXPECT_NEAR(functions.f(45.0, 14), 3013.382 - 2000.0, 5e-4);
    ephemeris::SunFunctions sun = functions.Sun;
    for (const int n : {12, 13})
        EXPECT_EQ(functions.f(38128.75, n), sun.f(38128.75, n)) << n;
}

TEST(NautLibFctTest, UnknownNumbersGiveZero)
{
    NautLibFct functions;
    for (const int n : {-1, 15, 99}) {
        EXPECT_EQ(functions.f(1.0, n), 0.0);
        EXPECT_EQ(functions.SysEq(numeric::Vector(1, 2, 1.0), n), 0.0);
    }
}

} // namespace
} // namespace merov::sailing
