#include "fix/sight_entry.h"

#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::fix::tests
{

using enum EntryField;
using enum EntryVerdict;

constexpr double Evening = 38128.75; // 21 May 2004, 18:00

const std::string MissingInput = "Missing data|Some data are missing.|"
                                 "Please check that the whole input form is completed.";
const std::string EmptyGrid = " Error in input data|Please fill the grid with the observations.";

/// Erased entries with a session, and a recorder for boxes.
class SightEntryTest : public testing::Test
{
protected:
    SightEntryTest() { EraseEntries(entry, session, Evening); }

    EntryVerdict Type(EntryField field, const char* text)
    {
        EnterField(entry, field);
        entry.Text(field) = text;
        return LeaveField(entry, session, field);
    }
    /// What the fields show from `first` on.
    std::string Texts(EntryField first = Latitude) const
    {
        std::string all;
        for (std::size_t i = static_cast<std::size_t>(first); i < EntryFieldCount; ++i)
            all += entry.Texts[i] + "|";
        return all;
    }
    void FillRow(int row, const char* time, const char* body, const char* altitude, const char* correction = "+00.00")
    {
        entry.Rows[row].Text = {time, body, altitude, correction};
        entry.Rows[row].Flag.fill(true);
    }
    /// A complete input with two sights, the later one first.
    void FillInput()
    {
        ASSERT_TRUE(LoadObservationFile(MEROV_SOURCE_DIR "/fuzz/corpus/observation_file/current.obs", entry, session));
        std::swap(entry.Rows[1], entry.Rows[2]);
    }
    bool Run() { return RunFix(entry, session, 298.257223563, 6378137.0 / 1852.0, journal); }
    /// Checks that the last step, a run or a reading, ended with a box.
    void ExpectRefused(bool done, const std::string& box)
    {
        EXPECT_FALSE(done);
        EXPECT_EQ(boxes.TakeOne(), box);
    }

    SightEntry entry;
    SightSession session;
    numeric::LastError journal;
    test::BoxRecorder boxes;
};

TEST_F(SightEntryTest, EraseGivesDefaultsAndKeepsWhatTheUserChose)
{
    FillInput();
    Type(AirFahrenheit, "_50");
    Type(Millibars, "_990");
    entry.UseFullRoutine = false;
    EraseEntries(entry, session, Evening + 1.0);
    EXPECT_EQ(entry.TimeTruePos, Evening + 1.0);
    EXPECT_EQ(Texts(), "__°__'._ _|___°__'._ _|___°._|___._|__._|___._|___.__|_20|_68|_20|_68|1013|29.91|");
    EXPECT_TRUE(entry.Rows[1][GridColumn::Time].empty());
    for (const double zero : {session.EstLat, session.EstLong, session.Course, session.Speed, session.HeightOfEye})
        EXPECT_EQ(zero, 0.0);
    EXPECT_EQ(session.Pressure + session.AirTemp, 1033.0);
    EXPECT_EQ(session.OrigCourse, 270.0);
    EXPECT_EQ(session.DefaultInstCorr, -2.5);
    EXPECT_FALSE(entry.UseFullRoutine);
    ExpectRefused(CheckInputFlags(entry), MissingInput);
}

TEST_F(SightEntryTest, LeavingAFieldSetsValueFlagColourAndTwin)
{
    EXPECT_EQ(Type(HeightFeet, "_40.0"), Valid);
    EXPECT_NEAR(session.HeightOfEye, 12.192, 1e-12);
    EXPECT_EQ(entry.Colour(HeightFeet), FieldColour::Green);
    EXPECT_EQ(entry.Colour(HeightMetres), FieldColour::Window);
    EXPECT_TRUE(entry.Flag(InputFlag::HeightOfEye));
    Type(WaterFahrenheit, "_50");
    EXPECT_DOUBLE_EQ(session.WaterTemp, 10.0);
    Type(InchesHg, "29.00");
    EXPECT_DOUBLE_EQ(session.Pressure, 29.0 * 33.8638);
    EXPECT_EQ(Texts(HeightMetres), "12.2|_40.0|___.__|_20|_68|_10|_50|0982|29.00|");
    Type(Course, "090°.5");
    EXPECT_EQ(session.Course + session.OrigCourse, 181.0);
}

TEST_F(SightEntryTest, PassingThroughATwinKeepsTheValueThatWasEntered)
{
    Type(HeightMetres, "_8.5");
    Type(AirCelsius, "_21");
    Type(Millibars, "1070"); // shows 31.60 inches, beyond what that field takes
    for (const EntryField twin : {HeightFeet, AirFahrenheit, InchesHg})
        EXPECT_EQ(PassField(entry, session, twin), Valid);
    EXPECT_EQ(entry.Colour(InchesHg), FieldColour::Green);
    EXPECT_EQ(session.HeightOfEye, 8.5);
    EXPECT_EQ(session.AirTemp, 21.0);
    EXPECT_EQ(session.Pressure, 1070.0);

    // What doesn't come from the twin is read, and what has no twin too.
    entry.Text(HeightFeet) = "030.0";
    PassField(entry, session, HeightFeet);
    EXPECT_NEAR(session.HeightOfEye, 9.144, 1e-12);
    entry.Text(Speed) = "012.5";
    EXPECT_EQ(PassField(entry, session, Speed), Valid);
    EXPECT_EQ(session.Speed, 12.5);
}

TEST_F(SightEntryTest, RefusedTextKeepsValueAndFlagButForTheCorrection)
{
    Type(Speed, "012.5");
    EXPECT_EQ(Type(Speed, "-12.5"), Refused);
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Your speed is negative.");
    EXPECT_EQ(entry.Text(Speed), "_-12.");
    EXPECT_EQ(entry.Colour(Speed), FieldColour::Window);
    EXPECT_EQ(Type(Speed, "___._"), Empty);
    EXPECT_TRUE(entry.Flag(InputFlag::Speed));
    EXPECT_EQ(session.Speed, 12.5);
    EXPECT_EQ(Type(InstCorr, "_75.00"), Suspicious);
    EXPECT_EQ(entry.Colour(InstCorr), FieldColour::Orange);
    EXPECT_TRUE(entry.Flag(InputFlag::InstCorr));
    EXPECT_EQ(Type(InstCorr, "100.00"), Refused);
    EXPECT_FALSE(entry.Flag(InputFlag::InstCorr));
    EXPECT_EQ(session.DefaultInstCorr, 75.0);
    EXPECT_EQ(boxes.TakeAll().size(), 2u);
}

TEST_F(SightEntryTest, SpinStepsGoThroughTheRule)
{
    StepField(entry, session, AirCelsius, false);
    EXPECT_EQ(session.AirTemp, 19.0);
    StepField(entry, session, InchesHg, true);
    EXPECT_DOUBLE_EQ(session.Pressure, 30.01 * 33.8638);
    EXPECT_EQ(Texts(AirCelsius), "_19|_66|_20|_68|1016|30.01|");
    Type(Millibars, "1070");
    StepField(entry, session, Millibars, true);
    EXPECT_EQ(entry.Text(Millibars), "1070");
    entry.Text(Millibars) = "____";
    StepField(entry, session, Millibars, false);
    EXPECT_EQ(entry.Text(Millibars), "1069");
}

TEST_F(SightEntryTest, SecondPickerFollowsTheFirstUntilItIsLeft)
{
    entry.TimeEstPos = Evening + 0.5;
    LeaveTimeEstPos(entry, session);
    EXPECT_FALSE(entry.Flag(InputFlag::TimeTruePos));
    LeaveTimeTruePos(entry, session);
    EXPECT_EQ(session.TimeTruePos, Evening + 0.5);
    entry.TimeEstPos = Evening;
    LeaveTimeEstPos(entry, session);
    EXPECT_EQ(session.TimeEstPos, Evening);
    EXPECT_EQ(entry.TimeTruePos, Evening + 0.5);
}

TEST_F(SightEntryTest, CommittedCells)
{
    Type(InstCorr, "_-2.50");
    GridRow& row = entry.Rows[1];
    CommitCell(entry, 1, GridColumn::Time, "21 May 2004 18:02:15");
    EXPECT_EQ(CommitCell(entry, 1, GridColumn::Altitude, "90°00'.1"), Refused);
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Altitude > 90°.");
    EXPECT_EQ(row.Text, (std::array<std::string, 4>{"21 May 2004 18:02:15", "", "90°00'.1", "-02.50"}));
    EXPECT_EQ(row.Flag, (std::array{true, false, false, true}));
    CommitCell(entry, 1, GridColumn::Altitude, "_5°30'._");
    CommitCell(entry, 1, GridColumn::Correction, "_-1.00");
    CommitCell(entry, 1, GridColumn::Body, "VEGA");
    EXPECT_EQ(row.Text, (std::array<std::string, 4>{"21 May 2004 18:02:15", "VEGA", "05°30'.0", "-01.00"}));
    EXPECT_TRUE(row.Flag[2]);
    EXPECT_EQ(CommitCell(entry, 2, GridColumn::Altitude, "__°__'._"), Empty);
    EXPECT_EQ(entry.Rows[2].Flag, (std::array<bool, 4>{})) << "no half row appears";
}

TEST_F(SightEntryTest, RowsAreClearedRemovedAndChecked)
{
    FillRow(1, "first", "VEGA", "", "");
    FillRow(2, "second", "MARS", "35°15'.0");
    FillRow(4, "behind a gap", "", "", "");
    FillRow(49, "last", "", "", "");
    entry.Rows[2].Flag[2] = false;
    EXPECT_FALSE(CheckRowFull(entry, 2));
    EXPECT_EQ(boxes.TakeOne(), "Row not fully filled|Data missing for the observation 2.");
    EXPECT_TRUE(CheckRowFull(entry, 1) && CheckRowFull(entry, 3));

    RemoveRow(entry, 1);
    EXPECT_EQ(entry.Rows[1][GridColumn::Time] + entry.Rows[3][GridColumn::Time], "secondbehind a gap");
    EXPECT_EQ(entry.Rows[1].Flag, (std::array{true, true, false, true}));
    EXPECT_TRUE(entry.Rows[3].Flag[0] && entry.Rows[48].Flag[0]);
    EXPECT_EQ(entry.Rows[49].Flag, (std::array<bool, 4>{}));
    EXPECT_EQ(entry.Rows[49][GridColumn::Time], "");

    ClearCell(entry, 1, GridColumn::Time);
    ClearCell(entry, 1, GridColumn::Body);
    EXPECT_TRUE(CheckRowFull(entry, 1)) << "a correction alone begins no row";
    ClearCell(entry, 1, GridColumn::Correction);
    EXPECT_EQ(boxes.TakeOne(), "Row empty|If you want to delete the entire row,|please use <Control> <Delete>.");
    EXPECT_EQ(entry.Rows[1].Text, (std::array<std::string, 4>{"", "", "35°15'.0", ""}));
}

TEST_F(SightEntryTest, GridIsReadUpToTheFirstEmptyRow)
{
    FillRow(1, "21 May 2004 18:00:00", "VEGA", "35°15'.0", "-02.50");
    FillRow(2, "21 May 2004 18:01:00", "SUNLOW", "90°00'.0", "+99.99");
    FillRow(4, "no date", "", "", "");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    ASSERT_EQ(session.ObsCount, 2);
    EXPECT_EQ(session.ObsTime[1], Evening);
    EXPECT_EQ(session.ObsBody[2], "SUNLOW");
    EXPECT_NEAR(session.ObsAltitude[1], 35.25, 1e-13);
    EXPECT_DOUBLE_EQ(session.ObsInstCorr[1], -2.5 / 60.0);
    for (int row = 1; row <= MaxObservations; ++row)
        FillRow(row, "21 May 2004", "MARS", "10°00'.0");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    EXPECT_EQ(session.ObsCount, 49);
}

TEST_F(SightEntryTest, BadCellsEndTheReadingWithTheirBox)
{
    const std::pair<std::vector<const char*>, std::string> columns[] = {
        {{"30 Feb 2004 18:00:00", ""}, "time"},
        {{"Vega", ""}, "celestal body name"},
        {{"90°00'.1", "35°60'.0", "-00°30'.0", ""}, "altitude"},
        {{"+120.00", "___.__"}, "instrumental error"}};
    FillRow(1, "21 May 2004 18:02:15", "VEGA", "35°15'.0");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    for (std::size_t column = 0; column < GridColumnCount; ++column)
        for (const char* text : columns[column].first) {
            FillRow(2, "21 May 2004 18:05:40", "MARS", "12°30'.0");
            entry.Rows[2].Text[column] = text;
            ExpectRefused(ReadObservationGrid(entry, session),
                          "Incorrect data|Incorrect " + columns[column].second + " in the grid.");
            EXPECT_EQ(session.ObsCount, 1) << "the session keeps the last reading";
        }
    entry.Rows[2].Flag[1] = false;
    ExpectRefused(ReadObservationGrid(entry, session), "Missing data|Some data are missing or incorrect in the grid.");
    entry.Rows[1][GridColumn::Time].clear();
    ExpectRefused(ReadObservationGrid(entry, session), EmptyGrid);
}

TEST_F(SightEntryTest, SortIsByTimeAndKeepsEqualTimesInOrder)
{
    for (int row = 1; row <= 48; ++row)
        FillRow(row, row % 2 == 1 ? "2 May 2004" : "30 Dec 2003", std::to_string(row).c_str(), "");
    FillRow(49, "1 Jan 2003", "49", "");
    SortObservationGrid(entry, 48);
    for (int row = 1; row <= 49; ++row) {
        const int expected = row <= 24 ? 2 * row : row <= 48 ? 2 * row - 49 : 49; // the last is not sorted
        EXPECT_EQ(entry.Rows[row][GridColumn::Body], std::to_string(expected));
    }
}

TEST_F(SightEntryTest, RunChecksInOrder)
{
    FillInput();
    entry.Flag(InputFlag::InstCorr) = false;
    entry.Rows[1][GridColumn::Time].clear();
    ExpectRefused(Run(), MissingInput);
    entry.Flag(InputFlag::InstCorr) = true;
    ExpectRefused(Run(), EmptyGrid);
    FillInput();
    entry.Rows[2].Flag.fill(false);
    ExpectRefused(Run(), " Error when computing the true position|"
                         "You must enter at least 2 observations in order|to get a star fix.");
    entry.Text(Course) = "400°.0"; // the field would not show the course that is used
    ExpectRefused(Run(), " Error in input data|Course > 360°");
}

TEST_F(SightEntryTest, RunUndoesTheLastCorrectionAndSortsTheRowsAlone)
{
    FillInput();
    entry.OneEstPos = true;
    entry.FindSystErr = false;
    for (const auto& [course, body] : {std::pair{"270°.0", "SUNLOW"}, {"___°._", "VEGA"}}) {
        entry.Text(Course) = course;                            // an emptied field stands for the last valid entry
        session.Course = session.Speed = session.EstLat = 11.1; // as a full routine and another input leave them
        ASSERT_TRUE(Run());
        boxes.TakeAll(); // what the fix says of these made-up sights is not the matter here
        EXPECT_EQ(session.Course, 270.0);
        EXPECT_EQ(session.Speed, 12.5);
        EXPECT_NEAR(session.EstLat, 43.5, 1e-13);
        EXPECT_EQ(session.ObsBody[1], body) << "the order when the grid was read";
        EXPECT_EQ(entry.Rows[1][GridColumn::Body], "VEGA");
    }
    EXPECT_TRUE(session.OneEstPos && !session.FindSystErr);
}

} // namespace merov::fix::tests
