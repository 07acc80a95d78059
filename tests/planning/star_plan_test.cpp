#include "planning/star_plan.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "support/expect.h"

namespace merov::planning
{
namespace
{

class Planning : public testing::Test
{
protected:
    Planning()
    {
        ephemeris::SetDataFolder(MEROV_RUN_DIR);
        plan.Place = {50, 0, 10};
        plan.Date = ephemeris::JoinDateTime({2004, 6, 21});
        plan.InputFlags.fill(true);
    }
    void ExpectRefused(int target, const std::string& box)
    {
        const int step = plan.Step();
        EXPECT_FALSE(plan.GoToStep(target));
        EXPECT_EQ(plan.Step(), step);
        test::ExpectBox(boxes, numeric::BoxIcon::Warning, box);
    }
    std::vector<StarRow> MarkedRows() const
    {
        std::vector<StarRow> rows;
        for (const ListedBody& row : plan.List().Rows())
            if (row.Picked) rows.push_back(TableRow(row));
        return rows;
    }
    test::BoxRecorder boxes;
    StarPlan plan;
};

TEST_F(Planning, FirstStepNeedsAllEntriesAndASunrise)
{
    for (bool& flag : plan.InputFlags) {
        flag = false;
        ExpectRefused(2, "Missing data|Some data are missing.|Please check that the whole input form is completed.");
        flag = true;
    }
    plan.Place.Lat = 70.0;
    ExpectRefused(2, "No rise/set times|At your latitude, the Sun is now circumpolar.|There is neither sunrise, nor "
                     "sunset.");
    plan.Place.Lat = 50;
    EXPECT_TRUE(!plan.GoToStep(3) && plan.GoToStep(2) && !plan.GoToStep(4)); // no step is left out
    EXPECT_EQ(plan.EventText(0) + plan.EventText(8), "21 Jun 2004 02:3621 Jun 2004 21:28");
}

TEST_F(Planning, MarksStandOnTheWayToTheTableAndGoWithTheTimes)
{
    ASSERT_TRUE(plan.GoToStep(2) && plan.GoToStep(3) && !plan.StepDone());
    EXPECT_EQ(plan.ListCaption(), "Select the stars you want to observe from 21 Jun 2004 02:36.");
    const std::vector<StarRow> proposed = MarkedRows();
    ASSERT_TRUE(plan.GoToStep(4) && plan.StepDone());
    EXPECT_EQ(plan.TableAt(plan.EventTime()), proposed);
    EXPECT_NE(plan.TableAt(plan.EventTime() + 1.0 / 24), proposed);
    EXPECT_EQ(plan.SkyAt(plan.EventTime()).size(), plan.List().Rows().size());

    for (ListedBody& row : plan.List().Rows())
        row.Picked = false;
    ASSERT_TRUE(plan.GoToStep(3) && !plan.StepDone());
    ExpectRefused(4, "No star selected|There is no star selected.|Please select at least one star.");
    plan.List().Rows()[1].Picked = true;
    ASSERT_TRUE(plan.GoToStep(4));
    EXPECT_EQ(plan.TableAt(plan.EventTime()), MarkedRows());
    ASSERT_TRUE(plan.GoToStep(3) && plan.GoToStep(2) && plan.GoToStep(3));
    EXPECT_EQ(MarkedRows(), proposed);
    plan.Morning = false;
    ASSERT_TRUE(plan.GoToStep(2) && plan.GoToStep(3));
    EXPECT_EQ(plan.ListCaption(), "Select the stars you want to observe from 21 Jun 2004 20:31.");
    EXPECT_TRUE(plan.GoToStep(2) && plan.GoToStep(1));
}

TEST_F(Planning, WhiteNightsHaveNoMorning)
{
    plan.Place.Lat = 60;
    ASSERT_TRUE(plan.GoToStep(2));
    EXPECT_EQ(boxes.TakeTexts().size(), 3u); // of the twilights that the Sun doesn't reach
    EXPECT_EQ(plan.EventText(0) + plan.EventText(8), "--");
    ExpectRefused(3, "No rise/set times|On this day the Sun doesn't reach the altitude at which these observations "
                     "start.|Please choose the other time, or another date.");
    plan.Morning = false;
    EXPECT_TRUE(plan.GoToStep(3) && plan.GoToStep(2) && plan.GoToStep(1));
    // The Sun stands -8.5 degrees high at midnight: the search goes on to March.
    plan.Place.Lat = 65;
    plan.Date = ephemeris::JoinDateTime({2004, 8, 7});
    ASSERT_TRUE(plan.GoToStep(2));
    EXPECT_EQ(plan.EventText(0) + plan.EventText(1), "-7 Aug 2004 02:48");
    boxes.TakeAll();
}

TEST_F(Planning, WhatIsUpShowsTheWholeSkyFromTenMetres)
{
    plan.WhatIsUp({50, 0, 0}, plan.Date + 0.5);
    EXPECT_TRUE(plan.StepDone() && !plan.GoToStep(3));
    const std::vector<ListedBody> noon = plan.SkyAt(plan.Date);
    ASSERT_EQ(std::ranges::count(noon, "SUNUPP", &ListedBody::Body), 1);
    EXPECT_EQ(plan.TableAt(plan.Date).size(), noon.size());
    EXPECT_EQ(noon[0].Altitude, ObserveBody(noon[0].Body, {50, 0, 10}, plan.Date).Altitude);
    EXPECT_TRUE(plan.GoToStep(1) && !plan.StepDone() && plan.TableAt(plan.Date).empty());
}

} // namespace
} // namespace merov::planning
