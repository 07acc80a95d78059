#include "sailing/ellipsoid.h"

#include "numeric/inout_lib.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace merov::sailing
{
namespace
{

TEST(EllipsoidTest, EveryRowHasItsPublishedFigures)
{
    const struct {
        double Metres, InverseFlattening; // rounded as published
    } published[EllipsoidCount] = {
        {6377563.396, 299.32497}, {6378160.0, 298.25},      {6377397.155, 299.152813}, {6378206.4, 294.978698214},
        {6378249.145, 293.465},   {6377276.3452, 300.8017}, {6378137.0, 298.257222},   {6378270.0, 297.0},
        {6378388.0, 297.0},       {6378245.0, 298.3},       {6378166.0, 298.3},        {6377340.189, 299.32497},
        {6377304.063, 300.8017},  {6378150.0, 298.3},       {6378157.5, 298.249615},   {6366707.019, 1e100},
        {6378155.0, 298.3},       {6378145.0, 298.25},      {6378135.0, 298.26},       {6378137.0, 298.257223563}};
    std::string names;
    for (int i = 0; i < EllipsoidCount; ++i) {
        const auto& [metres, inverse] = published[i];
        const EarthModel model = EllipsoidAt(i);
        names += EllipsoidName(i) + "|";
        EXPECT_NEAR(model.SemiMajorAxisNm * 1852.0, metres, 1e-8) << names;
        if (i == NormalSphereIndex) continue;
        EXPECT_NEAR(model.InverseFlattening, inverse, 1e-5) << names;
        // The digits beyond come from a semi-minor axis of whole micrometres.
        const double minor = std::round(metres * (1.0 - 1.0 / model.InverseFlattening) * 1e6) / 1e6;
        EXPECT_NEAR(metres / (metres - minor), model.InverseFlattening, 5e-11) << names;
    }
    EXPECT_EQ(names, "Airy 1830 |Australian Nat. 1965 |Bessel 1841 |Clarke 1866 |Clarke 1880 |Everest 1830 |GRS 1980 |"
                     "Hough |International 1924 |Krassovsky 1940 |Mercury 1960 |Modified Airy |Modified Everest |"
                     "Modified Mercury 1968 |New Internat. 1967 |Normal Sphere |Southeast Asia |WGS 1966 |WGS 1972 |"
                     "WGS 1984 |");
}

TEST(EllipsoidTest, FlatteningIsReadBackFromTheTextInEveryLocale)
{
    for (const char* separator : {",", "\u066B", "."}) { // the second is the Arabic decimal sign, two bytes
        numeric::SetDecimalSeparator(separator);
        EXPECT_EQ(EllipsoidText(4), "Clarke 1880 - 1/293" + std::string(separator) + "465000003029");
        EXPECT_EQ(EllipsoidText(NormalSphereIndex), "Normal Sphere - 0");
        EXPECT_EQ(EllipsoidAt(4).InverseFlattening, 293.465000003029);
        EXPECT_EQ(EllipsoidAt(8).InverseFlattening, 297.000000028402);
        EXPECT_EQ(EllipsoidAt(NormalSphereIndex).InverseFlattening, 1e100);
    }
}

TEST(EllipsoidTest, SelectionHoldsForAllAndStartsWithWgs1984)
{
    EXPECT_EQ(ActiveEllipsoidIndex(), 19);
    EXPECT_EQ(ActiveEllipsoid().InverseFlattening, 298.257223560493);
    SelectEllipsoid(NormalSphereIndex);
    EXPECT_EQ(ActiveEllipsoidIndex(), 15);
    EXPECT_TRUE(IsSphere(ActiveEllipsoid().InverseFlattening));
    EXPECT_NEAR(ActiveEllipsoid().SemiMajorAxisNm, 3437.746770518, 5e-10);
    EXPECT_EQ(Eccentricity(ActiveEllipsoid().InverseFlattening), 0.0);
    SelectEllipsoid(19);
    EXPECT_FALSE(IsSphere(ActiveEllipsoid().InverseFlattening));
    EXPECT_NEAR(std::pow(Eccentricity(ActiveEllipsoid().InverseFlattening), 2), 0.00669437999014, 1e-12); // TR 8350.2
}

TEST(EllipsoidTest, MeridionalPartsOfTheTables)
{
    const double quoted[][2] = {{10, 599.008}, {30, 1876.674}, {45, 3013.382}, {60, 4507.078}, {80, 8352.113}};
    for (const auto& [latitude, parts] : quoted) {
        EXPECT_NEAR(MeridionalParts(latitude), parts, 5e-4) << latitude;
        EXPECT_NEAR(MeridionalParts(latitude) + MeridionalParts(-latitude), 0.0, 2e-8) << latitude;
    }
    EXPECT_NEAR(MeridionalParts(0.0), 0.0, 2e-9);
    EXPECT_TRUE(std::isfinite(MeridionalParts(90.0)));
    EXPECT_EQ(test::FaultOf([] { MeridionalParts(-90.0); }), 5);
}

} // namespace
} // namespace merov::sailing
