#include "ephemeris/astro_lib.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/star_tables.h"
#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace
{
int allocations = 0; ///< of this program so far
} // namespace

// Kept whole: inlined into their callers they would look like a new and a free that don't belong together.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace merov::ephemeris
{
namespace
{

/// The place, where only a planet's touches the fields that are 7.
BodyPosition Position(std::string_view code, double instant)
{
    BodyPosition position{.HelioDistance = 7.0, .EclLatitude = 7.0, .EclLongitude = 7.0};
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
    EXPECT_EQ(std::ranges::count_if(codes, IsPlanet), 4);
    for (const StarRow& star : StarRows)
        EXPECT_TRUE(IsBodyCode(star.Name)) << star.Name;
    for (const char* code : {"SUNLOW", "SUNUPP", "MOONLOW", "MOONUPP"})
        EXPECT_TRUE(IsBodyCode(code)) << code;
    for (const char* code : {"", "sirius", " SIRIUS", "SIRIUS ", "SUN", "MERCURY", "KAUS", "ZZZ"})
        EXPECT_FALSE(IsBodyCode(code)) << code;
}

TEST_F(AstroLibTest, KnownPlaces)
{
    constexpr double NotKnown = -1.0;
    const struct {
        const char* Body;
        CivilTime Time;
        double GHA, Dec, RA, Distance, HalfOfItsLastDigit, HelioDistance, EclLatitude, EclLongitude;
    } cases[] = {
        {"SUNUPP", {2000, 1, 1, 12}, 359.1800, -23.0328, 281.2771, 0.983318, 5e-7, 7, 7, 7},
        {"SUNLOW", {2004, 6, 21, 12}, 359.5421, 23.4398, NotKnown, 1.016331, 5e-7, 7, 7, 7},
        {"MOONUPP", {1992, 4, 12}, 65.7496, 13.7684, 134.6885, 0.00246319, 5e-9, 7, 7, 7},
        {"MOONLOW", {2004, 1, 1}, 73.7720, 8.7896, NotKnown, 401421.94 / 149565800.0, 5e-10, 7, 7, 7},
        {"SIRIUS", {2004, 1, 1}, 358.6612, -16.7203, 101.3343, 272000, 0, 7, 7, 7},
        {"POLARIS", {2004, 1, 1}, 60.8340, 89.2865, 39.1615, 272000, 0, 7, 7, 7},
        {"VEGA", {2004, 1, 1}, 180.7371, 38.7854, 279.2584, 272000, 0, 7, 7, 7},
        {"MARS", {2003, 8, 27, 12}, 175.6090, -15.7183, NotKnown, 0.3728, 5e-5, 1.3813, -6.6449, 335.3563},
        {"JUPITER", {2004, 3, 4}, 356.2871, 7.6155, NotKnown, 4.4258, 5e-5, 5.4171, 1.4265, 163.9869},
        {"VENUS", {2004, 6, 8, 8}, 300.1700, 22.7228, NotKnown, 0.2889, 5e-5, 0.7262, -0.1683, 77.9159},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Body);
        const double instant = JoinDateTime(c.Time), half = 0.500001e-4;
        const BodyPosition position = Position(c.Body, instant);
        EXPECT_NEAR(position.GHA, c.GHA, half);
        EXPECT_NEAR(position.Declination, c.Dec, half);
        EXPECT_NEAR(position.Distance, c.Distance, c.HalfOfItsLastDigit);
        EXPECT_NEAR(position.HelioDistance, c.HelioDistance, half);
        EXPECT_NEAR(position.EclLatitude, c.EclLatitude, half);
        EXPECT_NEAR(position.EclLongitude, c.EclLongitude, half);
        if (c.RA == NotKnown) continue;
        // Back from the hour angle, that of the Moon short by half a minute of arc.
        const double T = CenturiesFromJ2000(instant), halfMinute = c.Body[0] == 'M' ? 0.5 / 60.0 : 0.0;
        double psi, eps;
        ComputeNutation(T, psi, eps);
        const double ra = GreenwichHourAngle(T, psi, ComputeSunTruePlace(T).MeanObliquity + eps / 3600.0, position.GHA);
        EXPECT_NEAR(ra - halfMinute, c.RA, half);
    }
}

TEST_F(AstroLibTest, UnknownCodeIsTheStarAtTheEquinox)
{
    const BodyPosition small = Position("sunlow", Instant);
    EXPECT_EQ(small.GHA, Position("NOBODY", Instant).GHA);
    EXPECT_EQ(small.Distance, 272000.0);
    // Precession and nutation carry the equinox of 2000 by four and a half years and at most 40 seconds.
    const double ra = GreenwichMeanSiderealTime(CenturiesFromJ2000(Instant)) - small.GHA;
    EXPECT_NEAR(numeric::NormalizeLongitude(ra), 4.47 * 46.12 / 3600.0, 0.012);
    EXPECT_NEAR(small.Declination, 4.47 * 20.04 / 3600.0, 0.012);
}

TEST_F(AstroLibTest, InstantsAreTakenInWholeSeconds)
{
    const double second = 1.0 / 86400.0, midnight = JoinDateTime({2004, 6, 22});
    for (const char* code : {"SUNLOW", "MOONLOW", "VEGA", "VENUS"}) {
        EXPECT_EQ(Position(code, Instant + 0.4 * second).GHA, Position(code, Instant).GHA) << code;
        EXPECT_EQ(Position(code, Instant + 0.6 * second).GHA, Position(code, Instant + second).GHA) << code;
        EXPECT_EQ(Position(code, midnight - 0.3 * second).GHA, Position(code, midnight).GHA) << code;
        EXPECT_NE(Position(code, Instant).GHA, Position(code, Instant + second).GHA) << code;
    }
}

TEST_F(AstroLibTest, AnglesStayInTheirRangeOverTheCenturiesAndNothingIsAllocated)
{
    const std::vector<std::string_view>& codes = BodyCodes();
    const double end = JoinDateTime({2400, 1, 1});
    Position("SATURN", Instant); // reads the series
    const int before = allocations;
    for (const std::string_view code : codes)
        for (double instant = JoinDateTime({1600, 1, 1}); instant < end; instant += 5678.9123) {
            const BodyPosition position = Position(code, instant);
            ASSERT_TRUE(position.GHA >= 0.0 && position.GHA < 360.0) << code << instant;
            ASSERT_LT(std::fabs(position.Declination), 90.0) << code << instant;
        }
    EXPECT_EQ(allocations, before);
}

} // namespace
} // namespace merov::ephemeris
