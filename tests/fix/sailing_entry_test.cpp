#include "fix/sailing_entry.h"

#include "numeric/inout_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace merov::fix::tests
{

using enum SailingField;

class SailingEntryTest : public testing::Test
{
protected:
    void TearDown() override { numeric::SetDecimalSeparator("."); }

    EntryVerdict Enter(SailingField field, const char* text)
    {
        entry.SetText(field, text);
        return entry.LeaveField(field);
    }
    std::string Texts() const
    {
        std::string texts;
        for (const SailingField field : {Lat1, Long1, Lat2, Long2, Course, Distance})
            texts += entry.Text(field) + (entry.Colour(field) == FieldColour::Yellow ? "* " : " ");
        return texts;
    }

    test::BoxRecorder boxes;
    numeric::LastError journal;
    SailingEntry entry{journal};
};

TEST_F(SailingEntryTest, FourEntriesAreNoProblemWithoutPosition1)
{
    for (const auto& [field, text] : {std::pair(Lat2, "50°00'.0 N"), std::pair(Long2, "010°00'.0 W"),
                                      std::pair(Course, "090°.0"), std::pair(Distance, "00060.00")})
        Enter(field, text);
    EXPECT_FALSE(entry.CannotCompute());
    entry.ComputeRhumbLine(true);
    EXPECT_EQ(Texts().find('*'), std::string::npos);
    // Turned round, position 1 is there, and its line comes before course and distance go.
    entry.ShiftPositions();
    EXPECT_TRUE(Texts().starts_with("50°00'.0 N 010°00'.0 W ")) << Texts();
    EXPECT_TRUE(Texts().ends_with(" ___°._ _____.__ ")) << Texts();
}

TEST_F(SailingEntryTest, TurningTwoPositionsRoundKeepsBoth)
{
    numeric::SetDecimalSeparator(",");
    entry.Clear();
    for (const auto& [field, text] : {std::pair(Lat1, "10°00',0 S"), std::pair(Long1, "170°00',0 E"),
                                      std::pair(Lat2, "20°00',0 N"), std::pair(Long2, "179°00',0 W")})
        Enter(field, text);
    EXPECT_EQ(entry.Colour(Course), FieldColour::Yellow);
    entry.ShiftPositions();
    EXPECT_EQ(Texts(), "20°00',0 N 179°00',0 W 10°00',0 S 170°00',0 E ___°,_ _____,__ ");
    EXPECT_EQ(entry.Data().Lat[1], 20.0);
    entry.ComputeRhumbLine(true);
    EXPECT_EQ(entry.Colour(Distance), FieldColour::Yellow);
    entry.SetText(Distance, "1_______");
    EXPECT_EQ(entry.Colour(Distance), FieldColour::Window);
}

TEST_F(SailingEntryTest, SpinButtonsStepWithinTheirEnds)
{
    entry.SelectPage(SailingPage::GreatCircle);
    const auto step = [this](SailingField field, bool up) {
        entry.StepField(field, up);
        return entry.Text(field);
    };
    Enter(DepLat, "40°30'.0 S");
    Enter(ArrLat, "35°00'.0 N");
    EXPECT_EQ(step(MaxLat, true), "40°30'"); // the end farther from the equator
    EXPECT_EQ(step(MaxLat, true), "41°30'");
    EXPECT_EQ(step(MaxLat, false), "40°30'");
    Enter(MaxLat, "89°30'");
    EXPECT_EQ(step(MaxLat, true), "89°30'");
    EXPECT_EQ(step(LongInterval, true), "01°00'");
    EXPECT_EQ(step(LongInterval, false), "01°00'");
    Enter(LongInterval, "99°00'");
    EXPECT_EQ(step(LongInterval, true), "99°00'");
    entry.EraseField(LongInterval);
    EXPECT_EQ(entry.StepField(LongInterval, false), EntryVerdict::Refused);
    EXPECT_EQ(boxes.TakeTexts().size(), 1U);
}

TEST_F(SailingEntryTest, FieldsOfTheSailingsHaveRulesOfTheirOwn)
{
    const struct {
        SailingField Field;
        const char* Text;
        EntryVerdict Verdict;
        double Value;
        const char* Shown;
        const char* Said;
    } cases[] = {
        {MaxLat, "_5°30'", EntryVerdict::Valid, 5.5, "_5°30'", ""},
        {MaxLat, "90°01'", EntryVerdict::Refused, 5.5, "90°01'", "Latitude > 90°."},
        {MaxLat, "50°60'", EntryVerdict::Refused, 5.5, "50°60'", "The latitude has more than 59'."},
        {LongInterval, "__°_0'", EntryVerdict::Empty, 0.0, "__°_0'", ""},
        {LongInterval, "_2°30'", EntryVerdict::Valid, 2.5, "_2°30'", ""},
        {LongInterval, "_2°60'", EntryVerdict::Refused, 2.5, "_2°60'", "The longitude has more than 59'."},
        {Course, "-10°.0", EntryVerdict::Refused, 0.0, "-10°._", "Negative Course."},
        {Course, "360°.0", EntryVerdict::Valid, 360.0, "360°.0", ""},
        {Distance, "__120.5_", EntryVerdict::Valid, 120.5, "__120.5_", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Enter(row.Field, row.Text), row.Verdict) << row.Text;
        EXPECT_NEAR(entry.Data().Value(row.Field), row.Value, 1e-9) << row.Text;
        EXPECT_EQ(entry.Text(row.Field), row.Shown);
        const auto said = boxes.TakeTexts();
        EXPECT_EQ(said.empty() ? "" : said.front(), *row.Said ? " Error in input data|" + std::string(row.Said) : "");
    }
    EXPECT_TRUE(entry.Data().Filled(MaxLat)); // a refusal takes no flag
}

} // namespace merov::fix::tests
