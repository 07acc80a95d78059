#include "sailing/voyage.h"

#include "support/expect.h"

#include <gtest/gtest.h>

namespace merov::sailing
{
namespace
{

class VoyageTest : public testing::Test
{
protected:
    Voyage Plan(const VoyageInput& input, int earth = DefaultEllipsoidIndex)
    {
        return PlanVoyage(input, EllipsoidAt(earth), journal_);
    }

    test::BoxRecorder boxes_;

private:
    test::FakeClock clock_;
    numeric::LastError journal_;
};

TEST_F(VoyageTest, ALimitChangesTheTrackOnlyBelowItsVertex)
{
    VoyageInput input{.DepLat = 40.0, .DepLong = -20.0, .ArrLat = 45.0, .ArrLong = 100.0, .LongInterval = 10.0};
    const Voyage plain = Plan(input);
    EXPECT_FALSE(plain.LimitLat);
    EXPECT_EQ(plain.Sum, plain.Waypoints.back().Run);
    EXPECT_GT(plain.Sum, plain.Total);

    input.MaxLat = -plain.Track.VertexLat; // the test is strict, and the sign without meaning
    const Voyage equal = Plan(input);
    EXPECT_FALSE(equal.Composite.IsComposite);
    EXPECT_EQ(equal.LimitLat, plain.Track.VertexLat);
    EXPECT_EQ(equal.Total, plain.Total);

    input.MaxLat = 55.0;
    const Voyage composite = Plan(input);
    ASSERT_TRUE(composite.Composite.IsComposite);
    EXPECT_GT(composite.Total, plain.Total);
    for (const Waypoint& w : composite.Waypoints)
        EXPECT_LE(w.Lat, 55.0);

    input.MaxLat = 44.0;
    const Voyage refused = Plan(input);
    EXPECT_EQ(boxes_.TakeOne(), " Error in input data|The maximum latitude is smaller than the arrival latitude.");
    EXPECT_EQ(refused.Refusal, VoyageRefusal::LimitBelowArrival);
    EXPECT_EQ(refused.LimitLat, 44.0);
    EXPECT_EQ(refused.Track.VertexLat, plain.Track.VertexLat);
    EXPECT_EQ(refused.Total + refused.RhumbDistance + refused.Period + refused.DepartureCourse, 0.0);

    input.ArrLong = 0.0; // the vertex is off the track
    EXPECT_FALSE(Plan(input).LimitLat);
}

TEST_F(VoyageTest, AFaultEndsItsStepAlone)
{
    const Voyage v = Plan({.DepLat = 0.0, .DepLong = -20.0, .ArrLat = 0.0, .ArrLong = 10.0, .LongInterval = 5.0});
    EXPECT_EQ(boxes_.TakeOne(), " ERROR REPORT|An error occured in the RL/GC/ETA subroutine.|The program will try to "
                                "resume execution|but please report the following error:|Division by zero.");
    EXPECT_NEAR(v.Total, 3339584.724 / 1852.0, 1e-3); // a sixth of pi times the axis
    EXPECT_NEAR(v.RhumbDistance, v.Total, 1e-3);
    EXPECT_EQ(v.DepartureCourse, 90.0);
    EXPECT_EQ(v.Period, 0.0);
    EXPECT_TRUE(v.Waypoints.empty());
    EXPECT_EQ(v.Sum, 0.0);
}

TEST_F(VoyageTest, AlongMeridiansTheCoursesAreThoseOfTheRhumbLine)
{
    struct Case {
        VoyageInput Input;
        double Departure, Arrival, Degrees;
    };
    for (const Case& c : {Case{{10, 30, 50, 30}, 360, 360, 40}, Case{{10, 30, -9, 30}, 180, 180, 19},
                          Case{{60, -100, 70, 80}, 360, 180, 50}}) {
        const Voyage v = Plan(c.Input, NormalSphereIndex);
        EXPECT_NEAR(v.DepartureCourse, c.Departure, 1e-9);
        EXPECT_NEAR(v.ArrivalCourse, c.Arrival, 1e-9);
        EXPECT_NEAR(v.Total, c.Degrees * 60.0, 1e-6);
        EXPECT_NEAR(v.Period, 360.0, 1e-9);
    }
    EXPECT_EQ(Plan({10, 30, 50, 30, {}, 5.0}).Waypoints.size(), 2u);
}

} // namespace
} // namespace merov::sailing
