#include "ephemeris/astro_lib.h"

#include "ephemeris/moon.h"
#include "ephemeris/planets.h"
#include "ephemeris/stars.h"
#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace merov::ephemeris
{
namespace
{

auto Values(const BodyPosition& p)
{
    return std::tie(p.GHA, p.Declination, p.Distance, p.HelioDistance, p.EclLatitude, p.EclLongitude);
}

BodyPosition Position(std::string_view code, double instant)
{
    BodyPosition position;
    ComputeBodyPosition(code, instant, position);
    return position;
}

const double Instant = JoinDateTime({2004, 6, 21, 17, 5, 9});

class AstroLibTest : public testing::Test
{
protected:
    AstroLibTest() { SetDataFolder(MEROV_RUN_DIR); }
    test::BoxRecorder boxes;
};

TEST_F(AstroLibTest, CodesAreSortedAndKnowAllBodies)
{
    const std::vector<std::string_view>& codes = BodyCodes();
    EXPECT_EQ(codes.size(), 66u);
    EXPECT_TRUE(std::ranges::is_sorted(codes));
    int stars = 0;
    for (const std::string_view code : codes) {
        double ra, dec, motionRa, motionDec, magnitude;
        StarCatalogueEntry(code, ra, dec, motionRa, motionDec, magnitude);
        stars += ra != 0.0;
        EXPECT_TRUE(IsBodyCode(code));
    }
    EXPECT_EQ(stars, 58);
    EXPECT_EQ(std::ranges::count_if(codes, IsPlanet), 4);
    for (const char* code : {"SUNLOW", "SUNUPP", "MOONLOW", "MOONUPP", "KAUS AUST", "ZUBEN'UBI"})
        EXPECT_TRUE(IsBodyCode(code)) << code;
    for (const char* code : {"", "sirius", " SIRIUS", "SIRIUS ", "SUN", "MERCURY", "KAUS", "ZZZ"})
        EXPECT_FALSE(IsBodyCode(code)) << code;
}

TEST_F(AstroLibTest, EachKindOfBodyComesFromItsOwnTheory)
{
    const double T = CenturiesFromJ2000(21, 6, 2004, 17.0 + 5.0 / 60.0 + 9.0 / 3600.0);
    BodyPosition expected;
    for (const char* code : {"VENUS", "MARS", "JUPITER", "SATURN"}) {
        ComputePlanetPosition(code, T, expected.GHA, expected.Declination, expected.Distance, expected.HelioDistance,
                              expected.EclLatitude, expected.EclLongitude);
        EXPECT_NEAR(Position(code, Instant).GHA, expected.GHA, 1e-9) << code;
        EXPECT_NEAR(Position(code, Instant).HelioDistance, expected.HelioDistance, 1e-12) << code;
    }
    ComputeSunPosition(T, expected.GHA, expected.Declination, expected.Distance);
    EXPECT_NEAR(Position("SUNUPP", Instant).GHA, expected.GHA, 1e-9);
    ComputeMoonPosition(T, expected.GHA, expected.Declination, expected.Distance);
    EXPECT_NEAR(Position("MOONUPP", Instant).GHA, expected.GHA, 1e-9);
    ComputeStarPosition("DENEB", T, expected.GHA, expected.Declination);
    EXPECT_NEAR(Position("DENEB", Instant).GHA, expected.GHA, 1e-9);
}

TEST_F(AstroLibTest, LimbsOfABodyStandAtOnePlace)
{
    EXPECT_EQ(Values(Position("SUNLOW", Instant)), Values(Position("SUNUPP", Instant)));
    EXPECT_EQ(Values(Position("MOONLOW", Instant)), Values(Position("MOONUPP", Instant)));
}

TEST_F(AstroLibTest, OnlyPlanetsTouchTheirFields)
{
    for (const std::string_view code : BodyCodes()) {
        BodyPosition position{-1, -1, -1, 11, 12, 13};
        ComputeBodyPosition(code, Instant, position);
        const bool untouched =
            position.HelioDistance == 11 && position.EclLatitude == 12 && position.EclLongitude == 13;
        EXPECT_EQ(untouched, !IsPlanet(code)) << code;
        EXPECT_GT(position.Distance, 0.0) << code;
    }
    EXPECT_EQ(Position("POLARIS", Instant).Distance, 272000.0);
}

TEST_F(AstroLibTest, UnknownCodeIsTheStarAtTheEquinox)
{
    const BodyPosition small = Position("sunlow", Instant);
    EXPECT_EQ(small.Distance, 272000.0);
    EXPECT_EQ(small.GHA, Position("NOBODY", Instant).GHA);
    // Precession and nutation carry the equinox of 2000 by four and a half years and at most 40 seconds.
    EXPECT_NEAR(small.Declination, 4.47 * 20.04 / 3600.0, 0.012);
}

TEST_F(AstroLibTest, InstantsAreTakenInWholeSeconds)
{
    const double second = 1.0 / 86400.0;
    for (const char* code : {"SUNLOW", "MOONLOW", "VEGA", "VENUS", "SATURN"}) {
        const double midnight = JoinDateTime({2004, 6, 22, 0, 0, 0});
        EXPECT_EQ(Values(Position(code, Instant + 0.4 * second)), Values(Position(code, Instant))) << code;
        EXPECT_EQ(Values(Position(code, Instant + 0.6 * second)), Values(Position(code, Instant + second))) << code;
        EXPECT_EQ(Values(Position(code, midnight - 0.3 * second)), Values(Position(code, midnight))) << code;
        EXPECT_NE(Position(code, Instant).GHA, Position(code, Instant + second).GHA) << code;
    }
}

TEST_F(AstroLibTest, HourAnglesStayInTheirRangeOverTheCenturies)
{
    for (const std::string_view code : BodyCodes())
        for (double instant = JoinDateTime({1600, 1, 1, 0, 0, 0}); instant < JoinDateTime({2400, 1, 1, 0, 0, 0});
             instant += 5678.9123) {
            const BodyPosition position = Position(code, instant);
            ASSERT_TRUE(position.GHA >= 0.0 && position.GHA < 360.0) << code << instant;
            ASSERT_LT(std::fabs(position.Declination), 90.0) << code << instant;
        }
}

} // namespace
} // namespace merov::ephemeris
