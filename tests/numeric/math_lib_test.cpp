#include "numeric/math_lib.h"

#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace merov::numeric
{
namespace
{

using test::ExpectBox;
using test::FaultOf;

TEST(Normalisers, KeepTheirEndsAndTheirTolerance)
{
    double turns = 0.0;
    EXPECT_NEAR(RealMod(-370.0, 360.0, &turns), -10.0, 1e-12);
    EXPECT_EQ(turns, -1.0);
    EXPECT_EQ(FaultOf([] { RealMod(1.0, 0.0); }), FaultDivisionByZero);
    EXPECT_NEAR(FracPart(-2.25), -0.25, 1e-15);

    const struct {
        double X, Circle, Longitude;
    } rows[] = {{-370, 350, -10},  {190, 190, -170}, {-190, 170, 170}, {180, 180, 180},
                {-180, 180, -180}, {540, 180, 180},  {-360, 0, 0},     {-0.5, 359.5, -0.5}};
    for (const auto& [x, circle, longitude] : rows) {
        EXPECT_NEAR(Norm360(x), circle, 1e-11) << x;
        EXPECT_NEAR(NormalizeLongitude(x), longitude, 1e-11) << x;
    }
    // The upper end is excluded, also for what lies a rounding error below it.
    for (const double x : {360.0, 359.999999999999, -1e-12, -3600.0})
        EXPECT_EQ(Norm360(x), 0.0) << x;
    EXPECT_EQ(CompassToMath(90.0), 0.0);
    EXPECT_NEAR(CompassToMath(CompassToMath(-123.4)), 236.6, 1e-11);
}

TEST(InverseFunctions, ReportArgumentsBeyondOneAndGoOn)
{
    const std::string sine = " Error in Arc Sinus routine|| Argument Sinus |  >  1.|Return ± Pi / 2.";
    const std::string cosine = " Error in Arc Cosinus routine|| Argument Cosinus |  >  1.|Return 0 or Pi.";
    test::BoxRecorder boxes;
    EXPECT_EQ(ArcSin(1.0000001), 1.5707963267945);
    ExpectBox(boxes, BoxIcon::Error, sine);
    EXPECT_EQ(ArcSin(-2.0), -1.5707963267945);
    EXPECT_EQ(boxes.TakeOne(), sine);
    EXPECT_EQ(ArcCos(-1.0000001), 3.141592653589);
    ExpectBox(boxes, BoxIcon::Error, cosine);
    EXPECT_EQ(ArcCos(1.0000001), 0.0);
    EXPECT_EQ(boxes.TakeOne(), cosine);

    // The limits themselves are silent and have the program's own values.
    EXPECT_EQ(ArcSin(1.0), 1.5707963267945);
    EXPECT_EQ(ArcSin(-1.0), -1.5707963267945);
    EXPECT_EQ(ArcCos(-1.0), 3.141592653589);
    EXPECT_EQ(ArcCos(0.0), 1.5707963267945);
    for (double x = -0.999; x < 1.0; x += 0.0371) {
        EXPECT_NEAR(ArcSin(x), std::asin(x), 1e-13) << x;
        EXPECT_NEAR(ArcCos(x), std::acos(x), 1e-12) << x;
    }
}

TEST(Directions, CoverTheWholeCircleAndFaultOnTheAxis)
{
    EXPECT_EQ(Atan2Deg(0.0, 0.0), 0.0);
    EXPECT_EQ(Atan2Deg(-1.0, 0.0), 180.0);
    EXPECT_NEAR(Atan2Deg(1.0, -1.0), 315.0, 2e-11); // by the constants, not by the routine
    EXPECT_NEAR(Atan2Deg(-1.0, -1.0), 225.0, 2e-11);
    EXPECT_EQ(FaultOf([] { Atan2Deg(0.0, 1.0); }), FaultDivisionByZero);

    const struct {
        double A, B;
        int Side;
    } rows[] = {{10, 20, -1}, {20, 10, 1},  {350, 5, -1},    {5, 350, 1},    {10, 190, 1},
                {190, 10, 1}, {-5, 355, 0}, {10, 189.9, -1}, {190, 9.9, -1}, {190, 10.1, 1}};
    for (const auto& [a, b, side] : rows)
        EXPECT_EQ(AngleSide(a, b), side) << a << " " << b;
}

TEST(Directions, PolarFormsAndTheEcliptic)
{
    double r = 9.0, theta = 9.0, lat = 9.0, lon = 9.0, x = 0.0, y = 0.0, z = 0.0;
    RectToPolar2(-3.0, 4.0, r, theta);
    EXPECT_NEAR(r, 5.0, 1e-15);
    EXPECT_NEAR(theta, 126.86989764584, 1e-9);
    PolarToRect(2.5, -33.0, 210.0, x, y, z);
    RectToPolar3(x, y, z, r, lat, lon);
    EXPECT_NEAR(r, 2.5, 1e-14);
    EXPECT_NEAR(lat, -33.0, 1e-9);
    EXPECT_NEAR(lon, 210.0, 1e-9);
    RectToPolar3(0.0, 0.0, 0.0, r, lat, lon);
    EXPECT_TRUE(r == 0.0 && lat == 0.0 && lon == 0.0);

    // Meeus, Astronomical Algorithms, example 25.a: the Sun on 13 October 1992.
    double ra = 0.0, dec = 0.0;
    EclipticToEquator(199.90895, 23.43999, ra, dec);
    EXPECT_NEAR(ra, 198.38083, 2e-5);
    EXPECT_NEAR(dec, -7.78507, 2e-5);
}

TEST(PackedForms, TurnIntoEachOther)
{
    EXPECT_EQ(DegToDM(29.99999), 30.0);
    EXPECT_EQ(DegToDM(-29.99999), -30.0);
    EXPECT_EQ(DegToDM(29.999921), 30.0); // what counts as a whole degree ends at 8e-5
    EXPECT_NEAR(DegToDM(29.999919), 29.5999514, 1e-9);
    EXPECT_NEAR(DegToDM(-0.5), -0.3, 1e-15);
    EXPECT_NEAR(DMToDeg(45.305), 45.50833333333333, 1e-12); // 45°30'.5
    EXPECT_NEAR(DMToDeg(DegToDM(-123.456)), -123.456, 1e-12);
    EXPECT_NEAR(DMSToDeg(-16.30365), -16.510138888888889, 1e-12); // 16°30'36".5
}

TEST(Statistics, KeepToTheBoundsOfTheArray)
{
    Vector a(0, 4, 4.0);
    a[0] = 9.0;
    a[1] = 2.0;
    a[2] = -3.0;
    EXPECT_NEAR(MeanOf(a), 3.2, 1e-15);
    EXPECT_NEAR(MeanAbsDeviation(a), 2.96, 1e-14);
    EXPECT_EQ(MaxOf(a, -1, -1), 9.0);
    EXPECT_EQ(MaxOf(a, 1, -1), 4.0); // index 0 left out
    EXPECT_EQ(MinOf(a, -1, 1), 2.0);
    EXPECT_EQ(MinOf(a, 1, -1), -3.0);
    EXPECT_EQ(FaultOf([] { MeanOf(Vector()); }), FaultDivisionByZero);

    const std::vector<std::string_view> list{"ALDEBARAN", "MARS", "MOONLOW", "VEGA"};
    EXPECT_EQ(FindSorted("  VEGA ", list), 3);
    EXPECT_EQ(FindSorted("ALDEBARAN", list), 0);
    for (const char* text : {"MOON", "vega", " ", "ZZ"})
        EXPECT_EQ(FindSorted(text, list), -1) << text;
}

TEST(Arithmetic, PolynomialLogarithmAndUnits)
{
    const double c[] = {1.0, -2.0, 0.5};
    EXPECT_EQ(Polynomial(4.0, 2, c), 1.0);
    EXPECT_EQ(Polynomial(4.0, -1, c), 0.0);
    EXPECT_NEAR(Log10(1000.0), 3.0, 1e-15);
    EXPECT_EQ(FaultOf([] { Log10(0.0); }), FaultIllegalCall);
    EXPECT_NEAR(CelsiusToFahrenheit(-40.0), -40.0, 1e-13);
    EXPECT_NEAR(FahrenheitToCelsius(212.0), 100.0, 1e-13);
    EXPECT_NEAR(MillibarToInHg(1013.0), 29.91389, 1e-10);
    EXPECT_NEAR(InHgToMillibar(29.92), 1013.204896, 1e-9);
}

} // namespace
} // namespace merov::numeric
