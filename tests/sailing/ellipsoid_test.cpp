#include "sailing/ellipsoid.h"

#include "numeric/fault.h"
#include "numeric/inout_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace merov::sailing
{
namespace
{

// Puts the point back in force whatever a test did.
class EllipsoidTest : public testing::Test
{
protected:
    void TearDown() override
    {
        numeric::SetDecimalSeparator(".");
        SelectEllipsoid(DefaultEllipsoidIndex);
    }
};

struct PublishedAxes {
    const char* Name;
    double Metres;
    double InverseFlattening; // rounded as published
};

constexpr PublishedAxes Published[EllipsoidCount] = {
    {"Airy 1830 ", 6377563.396, 299.32497},
    {"Australian Nat. 1965 ", 6378160.0, 298.25},
    {"Bessel 1841 ", 6377397.155, 299.152813},
    {"Clarke 1866 ", 6378206.4, 294.978698214},
    {"Clarke 1880 ", 6378249.145, 293.465},
    {"Everest 1830 ", 6377276.3452, 300.8017},
    {"GRS 1980 ", 6378137.0, 298.257222},
    {"Hough ", 6378270.0, 297.0},
    {"International 1924 ", 6378388.0, 297.0},
    {"Krassovsky 1940 ", 6378245.0, 298.3},
    {"Mercury 1960 ", 6378166.0, 298.3},
    {"Modified Airy ", 6377340.189, 299.32497},
    {"Modified Everest ", 6377304.063, 300.8017},
    {"Modified Mercury 1968 ", 6378150.0, 298.3},
    {"New Internat. 1967 ", 6378157.5, 298.249615},
    {"Normal Sphere ", 6366707.019, 1e100},
    {"Southeast Asia ", 6378155.0, 298.3},
    {"WGS 1966 ", 6378145.0, 298.25},
    {"WGS 1972 ", 6378135.0, 298.26},
    {"WGS 1984 ", 6378137.0, 298.257223563},
};

TEST_F(EllipsoidTest, EveryRowHasItsPublishedFigures)
{
    for (int i = 0; i < EllipsoidCount; ++i) {
        const PublishedAxes& published = Published[i];
        const EarthModel model = EllipsoidAt(i);
        SCOPED_TRACE(published.Name);
        EXPECT_EQ(EllipsoidName(i), published.Name);
        EXPECT_NEAR(model.SemiMajorAxisNm * 1852.0, published.Metres, 1e-8);
        if (i == NormalSphereIndex) continue;
        EXPECT_NEAR(model.InverseFlattening, published.InverseFlattening, 1e-5);
        // The digits beyond come from a semi-minor axis of whole micrometres.
        const double micrometres = std::round(published.Metres * (1.0 - 1.0 / model.InverseFlattening) * 1e6);
        EXPECT_NEAR(published.Metres / (published.Metres - micrometres / 1e6), model.InverseFlattening, 5e-11);
    }
}

TEST_F(EllipsoidTest, FlatteningIsReadBackFromTheTextInEveryLocale)
{
    EXPECT_EQ(EllipsoidText(19), "WGS 1984 - 1/298.257223560493");
    for (const char* separator : {".", ",", "\xD9\xAB"}) { // the last is the Arabic decimal sign, two bytes
        numeric::SetDecimalSeparator(separator);
        EXPECT_EQ(EllipsoidText(4), "Clarke 1880 - 1/293" + std::string(separator) + "465000003029");
        EXPECT_EQ(EllipsoidText(NormalSphereIndex), "Normal Sphere - 0");
        EXPECT_EQ(EllipsoidAt(4).InverseFlattening, 293.465000003029);
        EXPECT_EQ(EllipsoidAt(8).InverseFlattening, 297.000000028402);
        EXPECT_EQ(EllipsoidAt(NormalSphereIndex).InverseFlattening, 1e100);
    }
}

TEST_F(EllipsoidTest, SelectionHoldsForAllAndStartsWithWgs1984)
{
    EXPECT_EQ(ActiveEllipsoidIndex(), 19);
    EXPECT_EQ(ActiveEllipsoid().InverseFlattening, 298.257223560493);
    SelectEllipsoid(NormalSphereIndex);
    EXPECT_EQ(ActiveEllipsoidIndex(), NormalSphereIndex);
    EXPECT_TRUE(IsSphere(ActiveEllipsoid().InverseFlattening));
    EXPECT_NEAR(ActiveEllipsoid().SemiMajorAxisNm, 3437.746770518, 5e-10);
    SelectEllipsoid(5);
    EXPECT_FALSE(IsSphere(ActiveEllipsoid().InverseFlattening));
    EXPECT_EQ(EllipsoidCode(5), 772763452);
}

TEST_F(EllipsoidTest, EccentricityOfEllipsoidAndSphere)
{
    const double e = Eccentricity(EllipsoidAt(19).InverseFlattening);
    EXPECT_NEAR(e * e, 0.00669437999014, 1e-12); // NIMA TR 8350.2
    EXPECT_EQ(Eccentricity(SphereInverseFlattening), 0.0);
}

TEST_F(EllipsoidTest, MeridionalPartsOfTheTables)
{
    const double quoted[][2] = {{10, 599.008}, {30, 1876.674}, {45, 3013.382}, {60, 4507.078}, {80, 8352.113}};
    for (const auto& [latitude, parts] : quoted) {
        EXPECT_NEAR(MeridionalParts(latitude), parts, 5e-4) << latitude;
        EXPECT_NEAR(MeridionalParts(-latitude), -parts, 5e-4) << latitude;
        EXPECT_NEAR(MeridionalParts(latitude) + MeridionalParts(-latitude), 0.0, 2e-8) << latitude;
    }
    EXPECT_NEAR(MeridionalParts(0.0), 0.0, 2e-9);
    EXPECT_TRUE(std::isfinite(MeridionalParts(90.0)));
    EXPECT_THROW(MeridionalParts(-90.0), numeric::Fault);
}

} // namespace
} // namespace merov::sailing
