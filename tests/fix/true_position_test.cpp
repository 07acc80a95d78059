#include "fix/true_position.h"

#include "fix/fix_summary.h"
#include "fix/synthetic_sights.h"
#include "sailing/rhumb_line.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

namespace merov::fix
{
namespace
{

using test::EvenHours;
using test::LatOff;
using test::LongOff;
using test::PickStars;
using test::Plan;
using test::Ship;
using test::TakeSights;

const std::string DivisionBox = " ERROR REPORT|An error occured in the main subroutine.|"
                                "The program will try to resume execution|"
                                "but please report the following error:|Division by zero.";
const std::string LimitBox =
    " Error in nautical routine|The main routine don't converge on a solution. See doc for help.";

class ComputeTruePositionTest : public testing::Test
{
protected:
    void Fix(SightSession& s)
    {
        const sailing::EarthModel earth = test::Wgs84();
        ComputeTruePosition(s, earth.InverseFlattening, earth.SemiMajorAxisNm, journal);
    }

    /// Error-free sights over `hours`, on bearings of their own.
    SightSession Sights(int n, double first, double last) const
    {
        return TakeSights(ship, PickStars(ship, EvenHours(n, first, last)));
    }

    void ExpectAtShip(const SightSession& s, double minutes = 0.003)
    {
        EXPECT_NEAR(LatOff(s, ship), 0.0, minutes);
        EXPECT_NEAR(LongOff(s, ship), 0.0, minutes);
    }

    Ship ship{.At = {48.0, -12.0}};
    test::FakeClock clock;
    numeric::LastError journal;
    test::BoxRecorder boxes;
};

TEST_F(ComputeTruePositionTest, FindsTheShipAnywhereOnEarth)
{
    struct Place {
        numeric::GeoPosition At;
        double Course;
    };
    for (const Place& place : {Place{{48.0, -12.0}, 60.0}, Place{{-37.0, 155.0}, 270.0}, Place{{0.01, 0.02}, 180.0},
                               Place{{63.0, 179.95}, 90.2}, Place{{-20.0, -179.97}, 315.0}}) {
        ship.At = place.At;
        ship.Course = place.Course;
        SightSession s = Sights(6, -0.8, 0.7);
        Fix(s);
        SCOPED_TRACE(testing::Message() << place.At.Latitude << " " << place.At.Longitude);
        ExpectAtShip(s);
        EXPECT_LE(std::fabs(s.TrueLong), 180.0);
        EXPECT_EQ(s.NumUnknowns, 2);
        EXPECT_LT(s.EllipseNS, 0.0005);
    }
}

TEST_F(ComputeTruePositionTest, PassesAreMadeUntilThePositionStandsStill)
{
    // After a first correction of d degrees some d² / 100 are left: 0.0004 passes for a small d alone.
    const std::vector<Plan> plans = PickStars(ship, EvenHours(6, -0.3, 0.2));
    for (const auto& [off, passes] : {std::pair{0.0, 2}, {0.03, 2}, {0.7, 3}, {1.5, 3}}) {
        SightSession s = TakeSights(ship, plans, {off, -off});
        Fix(s);
        EXPECT_EQ(s.IterCount, passes) << off;
        ExpectAtShip(s, 0.0005);
    }
}

TEST_F(ComputeTruePositionTest, LongitudeIsReducedWhenTheCorrectionCrossesTheDateLine)
{
    for (const double side : {1.0, -1.0}) {
        ship.At = {30.0, side * 179.98};
        SightSession s = TakeSights(ship, PickStars(ship, EvenHours(6, -0.3, 0.2)), {0.0, side * 0.15});
        Fix(s);
        ExpectAtShip(s);
        EXPECT_LT(side * s.ObsLong[0], 0.0) << "the estimate lies across the line";
    }
}

TEST_F(ComputeTruePositionTest, SunMoonAndPlanetsReduceWithTheirLimbs)
{
    ship.At = {35.0, 20.0};
    ship.Time = 38133.6; // 26 May 2004, 14:24: Sun, Moon and Venus up
    std::vector<Plan> plans;
    for (const char* body : {"SUNLOW", "MOONUPP", "SUNUPP", "MOONLOW", "VENUS"})
        plans.push_back({-0.1 * static_cast<double>(plans.size()), body});
    SightSession s = TakeSights(ship, plans);
    Fix(s);
    ExpectAtShip(s);
}

TEST_F(ComputeTruePositionTest, RunLeavesTheDeadReckoningInIndexZero)
{
    SightSession s = Sights(5, -0.5, 0.5);
    s.TimeEstPos = s.TimeTruePos + 2.5 / 24.0; // the estimate is later: run backwards
    Fix(s);
    double lat = 0.0, lon = 0.0;
    const auto [r, a] = test::Wgs84();
    sailing::RhumbLineDirect(s.EstLat, s.EstLong, 60.0, -2.5 * 12.0, lat, lon, r, a);
    EXPECT_NEAR(s.ObsLat[0], lat, 1e-9); // the miles come from a difference of times
    EXPECT_NEAR(s.ObsLong[0], lon, 1e-9);
    EXPECT_LT(s.ObsLat[0], s.EstLat);
    EXPECT_EQ(s.ObsTime[0], s.TimeTruePos);
    ExpectAtShip(s);
}

TEST_F(ComputeTruePositionTest, TwoSightsCrossWithoutStatistics)
{
    const std::vector<Plan> stars = PickStars(ship, {-0.2, 0.0});
    SightSession s = TakeSights(ship, stars);
    s.StdDev.Resize(1, 4, 9.0);
    s.EllipseEW = s.EllipseNS = s.CircleRadius = s.SystErr = 9.0;
    for (int i = 1; i <= 2; ++i)
        s.ObsAltitude[i] += 2.0 / 60.0; // nothing may be taken for a systematic error
    Fix(s);
    EXPECT_GT(std::hypot(LatOff(s, ship), LongOff(s, ship)), 1.9);
    EXPECT_EQ(s.StdDev.Upper(), 2);
    for (const double zero : {s.StdDev[1], s.StdDev[2], s.EllipseEW, s.EllipseNS, s.CircleRadius, s.SystErr})
        EXPECT_EQ(zero, 0.0);
    EXPECT_EQ(s.ObsWeight[1], 1.0);
    EXPECT_EQ(s.ObsWeight[2], 1.0);

    SightSession exact = TakeSights(ship, stars);
    Fix(exact);
    ExpectAtShip(exact);
}

TEST_F(ComputeTruePositionTest, ThreeSightsHaveOneDegreeOfFreedom)
{
    // Bearings some 60 degrees apart modulo 180, one altitude off: residuals of a third each.
    SightSession s = TakeSights(ship, PickStars(ship, {-0.1, 0.0, 0.1}));
    s.FindSystErr = false;
    s.ObsAltitude[2] += 3.0 / 60.0;
    Fix(s);
    EXPECT_EQ(s.NumUnknowns, 2);
    EXPECT_LT(std::hypot(LatOff(s, ship), LongOff(s, ship) * std::cos(48 * test::Degree)), 3.5);
    EXPECT_GT(s.StdDev[1] * 60.0, 0.5);
    EXPECT_LT(s.StdDev[1] * 60.0, 6.0);
}

TEST_F(ComputeTruePositionTest, ParallelLinesAreToldOnceAndTheRunGoesOn)
{
    SightSession s = TakeSights(ship, {{0.0, "VEGA"}, {0.0, "VEGA"}});
    Fix(s);
    EXPECT_EQ(boxes.TakeOne(), DivisionBox);
    // Latitude cannot be had from one line; the longitude puts the ship on it at that latitude.
    EXPECT_EQ(s.TrueLat, s.ObsLat[0]);
    ephemeris::BodyPosition vega;
    ephemeris::ComputeBodyPosition("VEGA", s.ObsTime[1], vega);
    EXPECT_NEAR(test::LookAt({s.TrueLat, s.TrueLong}, vega).Altitude, test::LookAt(ship.At, vega).Altitude, 1e-4);
    EXPECT_LE(s.IterCount, 6);
}

TEST_F(ComputeTruePositionTest, ASightThatFaultsLeavesTheOthersToAnAnswer)
{
    SightSession s = Sights(4, -0.3, 0.0);
    s.HeightOfEye = 0.0;
    s.AirTemp = s.WaterTemp = 10.0;
    s.ObsAltitude[3] = -4.4;
    s.ObsInstCorr[3] = 0.0;
    Fix(s);
    const std::vector<std::string> texts = boxes.TakeTexts();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts[0], DivisionBox);
    EXPECT_GT(s.ObsHo[2], 10.0); // worked before the fault
    EXPECT_EQ(s.ObsHo[3], 0.0);  // as allocated
    EXPECT_EQ(s.ObsHo[4], 0.0);
    for (const double x : {s.TrueLat, s.TrueLong, s.StdDev[1], s.StdDev[2], s.EllipseEW})
        EXPECT_TRUE(std::isfinite(x));
}

TEST_F(ComputeTruePositionTest, CirclesThatDoNotMeetStopAtTheLimit)
{
    SightSession s = TakeSights(ship, {{-0.1, "VEGA"}, {0.0, "ARCTURUS"}});
    for (int i = 1; i <= 2; ++i)
        s.ObsAltitude[i] = 80.0; // zenith distances of 10 degrees, the stars some 59 apart
    Fix(s);
    const std::vector<std::string> texts = boxes.TakeTexts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), LimitBox), 1);
    EXPECT_EQ(s.IterCount, 101);
    EXPECT_TRUE(std::isfinite(s.TrueLat));
    EXPECT_NE(s.TrueLat, s.ObsLat[0]);
    EXPECT_EQ(s.StdDev[1], 0.0);
    EXPECT_EQ(FixPanels(s)[8].Text, "Iter 101");
}

TEST_F(ComputeTruePositionTest, FewerThanTwoSightsAreRefused)
{
    for (const int n : {0, 1}) {
        SightSession s = TakeSights(ship, std::vector<Plan>(static_cast<std::size_t>(n), Plan{0.0, "VEGA"}));
        s.TrueLat = 7.0;
        Fix(s);
        EXPECT_EQ(boxes.TakeOne(), " Error when computing the true position|"
                                   "You must enter at least 2 observations in order|to get a star fix.");
        EXPECT_EQ(s.TrueLat, 7.0);
    }
}

class ChoiceOfRoutineTest : public ComputeTruePositionTest
{
protected:
    /// Which routine a fix with these sights takes.
    FixRoutine Routine(SightSession s)
    {
        Fix(s);
        const FixRoutine taken = RoutineTaken(s);
        EXPECT_EQ(s.NumUnknowns, taken == FixRoutine::Full ? 4 : 2);
        EXPECT_EQ(s.StdDev.Upper(), s.NumUnknowns);
        return taken;
    }
};

TEST_F(ChoiceOfRoutineTest, NeedsMoreThanThreeHours)
{
    EXPECT_EQ(Routine(Sights(8, -3.0, 0.0)), FixRoutine::ShortTimeSpread);
    EXPECT_EQ(Routine(Sights(8, -3.01, 0.0)), FixRoutine::Full);
}

TEST_F(ChoiceOfRoutineTest, ThreeHoursAreThreeHoursAtAnyTimeOfDay)
{
    SightSession s;
    AllocateObservations(s, 2);
    for (int second = 0; second < 75600; second += 61) {
        s.ObsTime[1] = (38128.0 * 86400.0 + second) / 86400.0;
        s.ObsTime[2] = (38128.0 * 86400.0 + second + 10800.0) / 86400.0;
        ASSERT_EQ(TimeSpreadHours(s), 3.0) << second;
        s.ObsTime[2] = (38128.0 * 86400.0 + second + 10801.0) / 86400.0;
        ASSERT_GT(TimeSpreadHours(s), 3.0) << second;
    }
}

TEST_F(ChoiceOfRoutineTest, NeedsEightSightsOnBearingsOfTheirOwn)
{
    EXPECT_EQ(Routine(Sights(7, -4.0, 0.0)), FixRoutine::TooFewObs);

    std::vector<Plan> plans = PickStars(ship, EvenHours(8, -4.0, 0.0));
    plans.push_back({plans[7].Hours - 0.001, plans[7].Body}); // the same bearing once more
    EXPECT_EQ(Routine(TakeSights(ship, plans)), FixRoutine::Full);

    plans = PickStars(ship, EvenHours(7, -4.0, 0.0));
    plans.push_back({plans[6].Hours - 0.001, plans[6].Body});
    plans.push_back({plans[5].Hours - 0.001, plans[5].Body});
    SightSession nine = TakeSights(ship, plans);
    EXPECT_EQ(Routine(nine), FixRoutine::TooFewGoodObs);
    Fix(nine);
    EXPECT_EQ(nine.ObsCount, 9);
    EXPECT_EQ(nine.GoodObsCount, 7);
}

TEST_F(ChoiceOfRoutineTest, UserMayForbidIt)
{
    SightSession s = Sights(9, -4.0, 4.0);
    s.UseFullRoutine = false;
    s.Course = 62.0;
    Fix(s);
    EXPECT_EQ(RoutineTaken(s), FixRoutine::UserPreference);
    EXPECT_EQ(s.Course, 62.0);
    EXPECT_EQ(s.Speed, 12.0);
}

// Without way on the equations of the course are empty: the full routine would show the dead-reckoned
// position as an exact fix.
TEST_F(ChoiceOfRoutineTest, ShipAtRestGetsATruncatedFixThatIsRight)
{
    ship.Speed = 0.0;
    SightSession s = Sights(9, -4.0, 4.0);
    Fix(s);
    EXPECT_EQ(RoutineTaken(s), FixRoutine::NoSpeed);
    ExpectAtShip(s);
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(s.ObsLat[i], s.ObsLat[1]);
    s.UseFullRoutine = false;
    EXPECT_EQ(RoutineTaken(s), FixRoutine::UserPreference);
}

class FullRoutineTest : public ComputeTruePositionTest
{
};

TEST_F(FullRoutineTest, CorrectsCourseAndSpeed)
{
    for (const double course : {60.0, 91.0, 178.0, 272.0, 358.0}) {
        ship.Course = course;
        SightSession s = Sights(10, -5.0, 4.0);
        s.Course = s.OrigCourse = course > 350.0 ? 3.0 : course - 5.0;
        s.Speed = s.OrigSpeed = 10.8;
        Fix(s);
        SCOPED_TRACE(course);
        ASSERT_EQ(s.NumUnknowns, 4);
        ExpectAtShip(s, 0.01);
        EXPECT_NEAR(s.Course, course, 0.02); // 358 and not -2
        EXPECT_NEAR(s.Speed, 12.0, 0.005);
        EXPECT_NE(s.OrigSpeed, s.Speed);
    }
}

TEST_F(FullRoutineTest, CourseOfASlowShipIsCarriedToItsEnd)
{
    // The position hardly moves any more while the course still does.
    ship.Speed = 0.1;
    SightSession s = Sights(10, -5.0, 4.0);
    s.Course += 40.0;
    Fix(s);
    EXPECT_NEAR(s.Course, ship.Course, 0.3);
    EXPECT_NEAR(s.Speed, ship.Speed, 0.001);
}

TEST_F(FullRoutineTest, CourseIsReducedOnceTheRunIsOver)
{
    ship.Course = 2.0;
    SightSession s = Sights(10, -5.0, 4.0);
    s.Course = 357.0; // the corrections carry it to 362
    Fix(s);
    EXPECT_NEAR(s.Course, 2.0, 0.02);
}

TEST_F(FullRoutineTest, StartsAgainFromWhatWasTyped)
{
    SightSession s = Sights(9, -4.0, 4.0);
    s.Course = s.OrigCourse = 66.0;
    s.Speed = s.OrigSpeed = 11.0;
    for (int i = 1; i <= 9; ++i)
        s.ObsAltitude[i] += (i % 3 - 1) * 0.7 / 60.0;
    Fix(s);
    SightSession again = s;
    again.Course = again.OrigCourse;
    again.Speed = again.OrigSpeed;
    Fix(again);
    EXPECT_EQ(again.TrueLat, s.TrueLat);
    EXPECT_EQ(again.TrueLong, s.TrueLong);
    EXPECT_EQ(again.Course, s.Course);
    EXPECT_EQ(again.Speed, s.Speed);
    EXPECT_EQ(again.IterCount, s.IterCount);
    for (int k = 1; k <= 4; ++k)
        EXPECT_EQ(again.StdDev[k], s.StdDev[k]);
}

class ErrorsInSightsTest : public ComputeTruePositionTest
{
};

TEST_F(ErrorsInSightsTest, ConstantErrorIsFoundAndTakenOut)
{
    // All around the horizon: an error of stars on one side alone is taken for a part of the position.
    SightSession clean = TakeSights(ship, PickStars(ship, EvenHours(10, -0.3, 0.2), 360.0));
    for (int i = 1; i <= 10; ++i)
        clean.ObsAltitude[i] += (i % 3 - 1) * 0.2 / 60.0;
    for (const double minutes : {2.0, -2.0}) {
        SightSession high = clean;
        for (int i = 1; i <= 10; ++i)
            high.ObsAltitude[i] += minutes / 60.0;
        Fix(clean);
        Fix(high);
        EXPECT_NEAR(high.SystErr, minutes, 0.1);
        EXPECT_NEAR(LatOff(high, ship), LatOff(clean, ship), 0.05);
        EXPECT_NEAR(LongOff(high, ship), LongOff(clean, ship), 0.05);
    }
    clean.FindSystErr = false;
    Fix(clean);
    EXPECT_EQ(clean.SystErr, 0.0);
}

TEST_F(ErrorsInSightsTest, SystematicErrorShownIsThatOfTheFirstPass)
{
    const std::vector<Plan> plans = PickStars(ship, EvenHours(10, -0.3, 0.2), 360.0);
    SightSession nearby = TakeSights(ship, plans), far = TakeSights(ship, plans, {1.2, -1.5});
    Fix(nearby);
    Fix(far);
    EXPECT_NEAR(nearby.SystErr, 0.0, 0.02);
    EXPECT_GT(std::fabs(far.SystErr), 0.3); // the curvature of the circles over a hundred miles
    ExpectAtShip(far);
}

// Scaled by their deviation from their mean, residuals that share a large error all count as gross: no
// weight is left, and the plain solution stands.
TEST_F(ErrorsInSightsTest, ConstantErrorNotLookedForLeavesThePlainSolution)
{
    SightSession s = TakeSights(ship, PickStars(ship, EvenHours(10, -0.3, 0.2), 360.0));
    s.FindSystErr = false;
    for (int i = 1; i <= 10; ++i)
        s.ObsAltitude[i] += (2.0 + (i % 3 - 1) * 0.05) / 60.0;
    Fix(s);
    EXPECT_EQ(boxes.TakeOne(), DivisionBox);
    ExpectAtShip(s, 0.3);
    EXPECT_EQ(s.StdDev[1], 0.0);
    EXPECT_EQ(s.ObsWeight[1], 0.0);
    EXPECT_LT(s.IterCount, 5);
}

TEST_F(ErrorsInSightsTest, WorstSightIsNamedAboveTenMinutes)
{
    SightSession s = Sights(6, -0.3, 0.2);
    s.ObsAltitude[4] += 1.5;
    Fix(s);
    ASSERT_GT(std::max(s.StdDev[1], s.StdDev[2]), 0.1666667);
    EXPECT_EQ(boxes.TakeOne(), "Wrong observation|The observation of " + s.ObsBody[4] +
                                   " at 21:00:00 is most probably erroneous.|Please check and correct if necessary.|"
                                   "In the meantime, the following results are unreliable.");
}

} // namespace
} // namespace merov::fix
