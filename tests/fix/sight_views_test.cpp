#include "fix/sight_views.h"

#include "fix/synthetic_sights.h"
#include "fix/true_position.h"
#include "numeric/fault.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::fix
{
namespace
{

/// A finished fix with error-free sights over eight hours; full routine, typed course and speed wrong.
class SightViewsTest : public testing::Test
{
protected:
    SightViewsTest()
    {
        session = test::TakeSights(ship, test::PickStars(ship, test::EvenHours(9, -5.0, 3.0)));
        session.Course = session.OrigCourse = 66.0;
        session.Speed = session.OrigSpeed = 11.0;
        ComputeTruePosition(session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal);
    }
    void Report() { BuildReportView(session, earth.InverseFlattening, earth.SemiMajorAxisNm); }
    void Chart() { BuildChartView(session, earth.InverseFlattening, earth.SemiMajorAxisNm); }

    /// The true altitude of sight i, and the altitude and bearing from where the view puts the ship.
    void ExpectWorked(int i, const numeric::GeoPosition& from) const
    {
        ephemeris::BodyPosition body;
        ephemeris::ComputeBodyPosition(session.ObsBody[i], session.ObsTime[i], body);
        const test::Horizontal seen = test::LookAt(from, body);
        const double truth = test::LookAt(test::TrackPosition(ship, Hours(i)), body).Altitude;
        EXPECT_NEAR(session.ObsLat[i], from.Latitude, 3e-5);
        EXPECT_NEAR(session.ObsLong[i], from.Longitude, 1e-4);
        EXPECT_NEAR(session.ObsIntercept[i], truth - seen.Altitude, 1e-4);
        EXPECT_NEAR(std::remainder(session.ObsAzimuth[i] - seen.Azimuth, 360.0), 0.0, 5e-4);
    }
    double Hours(int i) const { return (session.ObsTime[i] - ship.Time) * 24.0; }

    const test::Ship ship{.At = {-33.0, 100.0}};
    const sailing::EarthModel earth = test::Wgs84();
    numeric::LastError journal;
    test::BoxRecorder boxes;
    SightSession session;
};

TEST_F(SightViewsTest, ChartSeesTheTrackThroughTheTruePosition)
{
    const numeric::GeoPosition base{session.ObsLat[0], session.ObsLong[0]};
    Report(); // whatever was shown before
    session.ObsLat[0] = base.Latitude;
    session.ObsLong[0] = base.Longitude;
    Chart();
    for (int i = 1; i <= session.ObsCount; ++i) {
        ExpectWorked(i, test::TrackPosition(ship, Hours(i)));
        EXPECT_NEAR(session.ObsIntercept[i] * 60.0, 0.0, 0.01);
    }
    EXPECT_EQ(session.ObsLat[0], base.Latitude);
    EXPECT_EQ(session.ObsLong[0], base.Longitude);
}

TEST_F(SightViewsTest, ReportRunsTheEstimateWithTheCorrectedCourseAndSpeed)
{
    const double deadReckonedLat = session.ObsLat[0];
    const double trueLat = session.TrueLat;
    Report();
    // The estimate of an hour before, a tenth of a degree off, with the ship's real motion.
    const test::Ship estimate{{session.EstLat, session.EstLong}, session.TimeEstPos, session.Course, session.Speed};
    const test::Ship atTruth{test::TrackPosition(estimate, 1.0), ship.Time, session.Course, session.Speed};
    EXPECT_NEAR(session.ObsLat[0], atTruth.At.Latitude, 1e-6);
    EXPECT_NE(session.ObsLat[0], deadReckonedLat);
    for (int i = 1; i <= session.ObsCount; ++i)
        ExpectWorked(i, test::TrackPosition(atTruth, Hours(i)));
    EXPECT_EQ(session.TrueLat, trueLat);
}

TEST_F(SightViewsTest, SingleEstimatedPositionServesAllSights)
{
    session.OneEstPos = true;
    Report();
    const numeric::GeoPosition base{session.ObsLat[0], session.ObsLong[0]};
    for (int i = 1; i <= session.ObsCount; ++i) {
        ExpectWorked(i, base);
        EXPECT_EQ(session.ObsLat[i], base.Latitude);
        EXPECT_EQ(session.ObsLong[i], base.Longitude);
    }
}

TEST_F(SightViewsTest, FaultGoesToTheCallerAndIndexZeroIsPutBack)
{
    const double lat = session.ObsLat[0], lon = session.ObsLong[0];
    session.TrueLat = 90.2; // beyond the pole, from where a run south has no isometric latitude
    session.Course = 180.0;
    EXPECT_THROW(Chart(), numeric::Fault);
    EXPECT_EQ(session.ObsLat[0], lat);
    EXPECT_EQ(session.ObsLong[0], lon);
    boxes.TakeAll(); // a pole warning may have come before the fault
    session.ObsDist[2] = 0.0;
    EXPECT_THROW(Report(), numeric::Fault);
}

TEST_F(SightViewsTest, MilesRunAreNegativeForSightsAfterTheTruePosition)
{
    const numeric::Vector miles = ObsDistRun(session);
    EXPECT_NEAR(miles[1], 5.0 * session.Speed, 1e-6);
    EXPECT_NEAR(miles[9], -3.0 * session.Speed, 1e-6);
    EXPECT_EQ(miles.Upper(), 9);
}

} // namespace
} // namespace merov::fix
