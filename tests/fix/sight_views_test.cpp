#include "fix/sight_views.h"

#include "fix/synthetic_sights.h"
#include "numeric/fault.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::fix::tests
{

/// A finished fix with error-free sights over eight hours; full routine, typed course and speed wrong.
class SightViewsTest : public testing::Test
{
protected:
    SightViewsTest()
    {
        s.Course = 66.0;
        s.Speed = 11.0;
        s = test::Fix(s);
        base = {s.ObsLat[0], s.ObsLong[0]};
    }
    /// Checks that every sight is worked from the position of `at`: intercept, altitude and bearing.
    void ExpectWorkedFrom(const test::Ship& at, bool run = true) const
    {
        for (int i = 1; i <= s.ObsCount; ++i) {
            const double hours = (s.ObsTime[i] - ship.Time) * 24.0;
            const numeric::GeoPosition from = run ? test::TrackPosition(at, hours) : at.At;
            ephemeris::BodyPosition body;
            ephemeris::ComputeBodyPosition(s.ObsBody[i], s.ObsTime[i], body);
            const test::Horizontal seen = test::LookAt(from, body);
            const double truth = test::LookAt(test::TrackPosition(ship, hours), body).Altitude;
            EXPECT_LT(test::MinutesApart({s.ObsLat[i], s.ObsLong[i]}, from), 0.006);
            EXPECT_NEAR(s.ObsIntercept[i], truth - seen.Altitude, 1e-4);
            EXPECT_NEAR(std::remainder(s.ObsAzimuth[i] - seen.Azimuth, 360.0), 0.0, 5e-4);
        }
    }

    const test::Ship ship{.At = {-33.0, 100.0}};
    const double r = test::Wgs84().InverseFlattening, a = test::Wgs84().SemiMajorAxisNm;
    test::BoxRecorder boxes;
    SightSession s = test::TakeSights(ship, test::PickStars(ship, test::EvenHours(9, -5.0, 3.0)));
    numeric::GeoPosition base; // dead-reckoned
};

TEST_F(SightViewsTest, ChartSeesTheMilesAndTheTrackThroughTheTruePosition)
{
    EXPECT_NEAR(ObsDistRun(s)[1], 5.0 * s.Speed, 1e-6);
    EXPECT_NEAR(ObsDistRun(s)[9], -3.0 * s.Speed, 1e-6);
    BuildChartView(s, r, a);
    ExpectWorkedFrom(ship);
    EXPECT_EQ(s.ObsLat[0], base.Latitude);
    EXPECT_EQ(s.ObsLong[0], base.Longitude);
}

TEST_F(SightViewsTest, ReportRunsTheEstimateWithTheCorrectedCourseAndSpeed)
{
    BuildReportView(s, r, a);
    // The estimate of an hour before, a tenth of a degree off, with the ship's real motion.
    test::Ship estimate{{s.EstLat, s.EstLong}, ship.Time, s.Course, s.Speed};
    estimate.At = test::TrackPosition(estimate, 1.0);
    EXPECT_NEAR(s.ObsLat[0], estimate.At.Latitude, 1e-6);
    EXPECT_NE(s.ObsLat[0], base.Latitude);
    ExpectWorkedFrom(estimate);
    s.OneEstPos = true; // which serves all sights
    BuildReportView(s, r, a);
    ExpectWorkedFrom(estimate, false);
}

TEST_F(SightViewsTest, FaultGoesToTheCallerAndIndexZeroIsPutBack)
{
    s.TrueLat = 90.2; // beyond the pole, from where a run south has no isometric latitude
    s.Course = 180.0;
    EXPECT_THROW(BuildChartView(s, r, a), numeric::Fault);
    EXPECT_EQ(s.ObsLat[0], base.Latitude);
    EXPECT_EQ(s.ObsLong[0], base.Longitude);
    boxes.TakeAll(); // a pole warning may have come before the fault
}

} // namespace merov::fix::tests
