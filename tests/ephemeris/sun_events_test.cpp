#include "ephemeris/sun_events.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace merov::ephemeris
{
namespace
{

class SunEventsTest : public testing::Test
{
protected:
    test::BoxRecorder boxes;
    SunEventTimes events{};
    const double midsummer = JoinDateTime({2004, 6, 21, 0, 0, 0});
};

double SunDistance(double instant)
{
    BodyPosition sun;
    ComputeBodyPosition("SUNLOW", instant, sun);
    return sun.Distance;
}

TEST_F(SunEventsTest, MidsummerDayAtFiftyNorth)
{
    // Any instant of the day will do.
    for (const double hour : {0.0, 13.7, 23.999}) {
        ASSERT_TRUE(ComputeSunEvents(50, 0, midsummer + hour / 24, 10, events));
        std::vector<std::string> times;
        for (const double event : events)
            times.push_back(FormatDateTime(event, "d hh:mm"));
        EXPECT_EQ(times, (std::vector<std::string>{"21 02:36", "21 03:33", "21 03:50", "21 03:57", "21 12:02",
                                                   "21 20:06", "21 20:14", "21 20:31", "21 21:28"}));
    }
}

TEST_F(SunEventsTest, SunriseAltitudeByTheHeightOfEye)
{
    EXPECT_NEAR(SunriseAltitude(10, SunDistance(midsummer)), -0.9475, 0.00005);
    // Refraction of 34 minutes and a semi-diameter of 16 make nearly all of it at the water's edge.
    EXPECT_NEAR(SunriseAltitude(0, 1.0), -0.84, 0.01);
    EXPECT_LT(SunriseAltitude(0, 0.983), SunriseAltitude(0, 1.017));
}

TEST_F(SunEventsTest, SemiDiurnalArcOfKnownCases)
{
    EXPECT_NEAR(SemiDiurnalArc(0, 0, 20), 90, 1e-9);
    EXPECT_NEAR(SemiDiurnalArc(0, 50, 0), 90, 1e-9);
    EXPECT_NEAR(SemiDiurnalArc(0, 45, 30), 125.26438968275465, 1e-9); // cos H = -tan 45 tan 30
    EXPECT_NEAR(SemiDiurnalArc(30, 0, 0), 60, 1e-9);
    EXPECT_EQ(boxes.Count(), 0u);
    EXPECT_NEAR(SemiDiurnalArc(-9, 60, 23.44), 180, 1e-9);
    EXPECT_EQ(boxes.TakeOne(), " Error in Arc Cosinus routine|| Argument Cosinus |  >  1.|Return 0 or Pi.");
}

TEST_F(SunEventsTest, MomentsFollowEachOtherRoundTheWorldAndTheYear)
{
    for (double day = midsummer; day < midsummer + 365; day += 23)
        for (const double latitude : {-45.0, -20.0, 0.0, 33.0, 50.0})
            for (const double longitude : {-180.0, -75.0, 0.0, 12.3, 118.0, 180.0}) {
                ASSERT_TRUE(ComputeSunEvents(latitude, longitude, day, 3, events));
                EXPECT_TRUE(std::is_sorted(events.begin(), events.end())) << latitude << " " << longitude << " " << day;
                // The equation of time stays below 17 minutes.
                EXPECT_NEAR(events[4], day + (12 - longitude / 15) / 24, 17.0 / 1440);
                // Sunrise and sunset lie evenly about noon to the Sun's change of declination.
                EXPECT_NEAR(events[3] + events[5], 2 * events[4], 6.0 / 1440);
            }
}

TEST_F(SunEventsTest, NoSunriseLeavesTheMomentsAlone)
{
    events.fill(7.0);
    for (const double latitude : {70.0, 90.0, -70.0, -90.0})
        EXPECT_FALSE(ComputeSunEvents(latitude, 15, midsummer, 5, events)) << latitude;
    for (const double event : events)
        EXPECT_EQ(event, 7.0);
}

TEST_F(SunEventsTest, TwilightThatDoesNotEndIsToldAndTheRestStands)
{
    ASSERT_TRUE(ComputeSunEvents(60, 0, midsummer, 5, events));
    const std::string arc = " Error in Arc Cosinus routine|| Argument Cosinus |  >  1.|Return 0 or Pi.";
    const std::string search =
        " Error in mathematical routine|Root-finding function (part 1) failed. See doc for help.";
    EXPECT_EQ(boxes.TakeTexts(), (std::vector<std::string>{arc, search, search}));
    EXPECT_EQ(events[0], 0.0);
    EXPECT_EQ(events[8], 0.0);
    EXPECT_TRUE(std::is_sorted(events.begin() + 1, events.begin() + 8));
}

TEST_F(SunEventsTest, FunctionsOfTheSolver)
{
    SunFunctions sun;
    BodyPosition position;
    ComputeBodyPosition("SUNUPP", midsummer + 0.5, position); // GHA 359.54, declination 23.44
    sun.TargetHourAngle = 1.0;
    EXPECT_NEAR(sun.f(midsummer + 0.5, 12), position.GHA - 361.0, 1e-9);
    // On the Sun's own meridian its altitude is 90 less the difference of latitude and declination.
    sun.Latitude = 50 * numeric::DegToRad;
    sun.Longitude = -position.GHA * numeric::DegToRad;
    sun.TargetAltitude = 10;
    EXPECT_NEAR(sun.f(midsummer + 0.5, 13), 90 - (50 - position.Declination) - 10, 1e-9);
    EXPECT_EQ(sun.f(midsummer, 11), 0.0);
    EXPECT_EQ(sun.f(midsummer, 14), 0.0);
    EXPECT_EQ(sun.SysEq(numeric::Vector(1, 2, 1.0), 1), 0.0);
}

} // namespace
} // namespace merov::ephemeris
