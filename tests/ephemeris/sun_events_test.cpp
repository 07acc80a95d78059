#include "ephemeris/sun_events.h"

#include "ephemeris/time_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace merov::ephemeris
{
namespace
{

constexpr char ArcBox[] = " Error in Arc Cosinus routine|| Argument Cosinus |  >  1.|Return 0 or Pi.";
constexpr char SearchBox[] = " Error in mathematical routine|Root-finding function (part 1) failed. See doc for help.";

class SunEvents : public testing::Test
{
protected:
    test::BoxRecorder boxes;
    SunEventTimes events{};
    const double midsummer = JoinDateTime({2004, 6, 21});
};

TEST_F(SunEvents, MidsummerDayAtFiftyNorth)
{
    for (const double hour : {0.0, 13.7, 23.999}) { // any instant of the day will do
        ASSERT_TRUE(ComputeSunEvents(50, 0, midsummer + hour / 24, 10, events));
        std::string times;
        for (const double event : events)
            times += FormatDateTime(event, " d hh:mm");
        EXPECT_EQ(times, " 21 02:36 21 03:33 21 03:50 21 03:57 21 12:02 21 20:06 21 20:14 21 20:31 21 21:28");
    }
}

TEST_F(SunEvents, AltitudesAndArcs)
{
    EXPECT_NEAR(SunriseAltitude(10, 1.0163), -0.9475, 0.00005);
    // Refraction of 34 minutes and a semi-diameter of 16 make nearly all of it at the water's edge.
    EXPECT_NEAR(SunriseAltitude(0, 1.0), -0.84, 0.01);
    EXPECT_LT(SunriseAltitude(0, 0.983), SunriseAltitude(0, 1.017));

    EXPECT_NEAR(SemiDiurnalArc(0, 45, 30), 125.26438968275465, 1e-9); // cos H = -tan 45 tan 30
    EXPECT_NEAR(SemiDiurnalArc(30, 0, 0), 60, 1e-9);
    EXPECT_EQ(boxes.Count(), 0u);
    EXPECT_NEAR(SemiDiurnalArc(-9, 60, 23.44), 180, 1e-9);
    EXPECT_EQ(boxes.TakeOne(), ArcBox);
}

TEST_F(SunEvents, NoSunriseLeavesTheMomentsAlone)
{
    events.fill(7.0);
    for (const double latitude : {70.0, 90.0, -70.0, -90.0})
        EXPECT_FALSE(ComputeSunEvents(latitude, 15, midsummer, 5, events)) << latitude;
    EXPECT_EQ(std::ranges::count(events, 7.0), 9);
}

TEST_F(SunEvents, TwilightThatDoesNotEndIsToldAndTheRestStands)
{
    ASSERT_TRUE(ComputeSunEvents(60, 0, midsummer, 5, events));
    EXPECT_EQ(boxes.TakeTexts(), (std::vector<std::string>{ArcBox, SearchBox, SearchBox}));
    EXPECT_TRUE(events[0] == 0.0 && events[8] == 0.0 && std::is_sorted(events.begin() + 1, events.begin() + 8));
}

} // namespace
} // namespace merov::ephemeris
