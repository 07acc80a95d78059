#include "fix/sight_entry.h"

#include "ephemeris/time_lib.h"
#include "fix/run_fix.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::fix
{
namespace
{

using Field = EntryField;

constexpr double Evening = 38128.75; // 21 May 2004, 18:00

const char* const TooFew = " Error when computing the true position|You must enter at least 2 observations in order|"
                           "to get a star fix.";
const char* const MissingInput = "Missing data|Some data are missing.|"
                                 "Please check that the whole input form is completed.";

/// Erased entries with a session, and a recorder for boxes.
class SightEntryTest : public testing::Test
{
protected:
    SightEntryTest() { EraseEntries(entry, session, Evening); }

    EntryVerdict Type(Field field, const char* text)
    {
        EnterField(entry, field);
        entry.Text(field) = text;
        return LeaveField(entry, session, field);
    }

    void FillRow(int row, const char* time, const char* body, const char* altitude, const char* correction = "+00.00")
    {
        entry.Rows[row].Text = {time, body, altitude, correction};
        entry.Rows[row].Flag.fill(true);
    }

    /// A complete input with two sights that cross at a good angle, the later one first.
    void FillInput()
    {
        LeaveTimeEstPos(entry, session);
        LeaveTimeTruePos(entry, session);
        Type(Field::Latitude, "43°30'.0 N");
        Type(Field::Longitude, "008°15'.0 W");
        Type(Field::Course, "270°.0");
        Type(Field::Speed, "012.5");
        Type(Field::HeightMetres, "12.0");
        Type(Field::InstCorr, "_-2.50");
        FillRow(1, "21 May 2004 18:05:40", "SUNLOW", "12°30'.0", "-02.50");
        FillRow(2, "21 May 2004 18:02:15", "SPICA", "35°15'.0", "-02.50");
    }

    bool Run() { return RunFix(entry, session, 298.257223563, 6378137.0 / 1852.0, journal); }

    SightEntry entry;
    SightSession session;
    numeric::LastError journal;
    test::BoxRecorder boxes;
};

TEST_F(SightEntryTest, EraseGivesDefaultsAndKeepsWhatTheUserChose)
{
    FillInput();
    Type(Field::AirFahrenheit, "_50");
    Type(Field::Millibars, "_990");
    entry.UseFullRoutine = false;
    EraseEntries(entry, session, Evening + 1.0);
    EXPECT_EQ(entry.TimeTruePos, Evening + 1.0);
    EXPECT_EQ(entry.Text(Field::Latitude), "__°__'._ _");
    EXPECT_EQ(entry.Text(Field::AirCelsius), "_20");
    EXPECT_EQ(entry.Text(Field::AirFahrenheit), "_68");
    EXPECT_EQ(entry.Text(Field::InchesHg), "29.91");
    EXPECT_EQ(entry.Colour(Field::Latitude), FieldColour::Window);
    EXPECT_TRUE(entry.Rows[1][GridColumn::Time].empty());
    EXPECT_EQ(entry.Rows.Upper(), 49);
    EXPECT_EQ(session.EstLat, 0.0);
    EXPECT_EQ(session.Speed, 0.0);
    EXPECT_EQ(session.Pressure, 1013.0);
    EXPECT_EQ(session.AirTemp, 20.0);
    EXPECT_EQ(session.OrigCourse, 270.0);
    EXPECT_EQ(session.DefaultInstCorr, -2.5);
    EXPECT_FALSE(entry.UseFullRoutine);
    EXPECT_FALSE(CheckInputFlags(entry));
    EXPECT_EQ(boxes.TakeOne(), MissingInput);
}

TEST_F(SightEntryTest, LeavingAFieldSetsValueFlagColourAndTwin)
{
    EXPECT_EQ(Type(Field::HeightFeet, "_40.0"), EntryVerdict::Valid);
    EXPECT_NEAR(session.HeightOfEye, 12.192, 1e-12);
    EXPECT_EQ(entry.Text(Field::HeightMetres), "12.2");
    EXPECT_EQ(entry.Colour(Field::HeightFeet), FieldColour::Green);
    EXPECT_EQ(entry.Colour(Field::HeightMetres), FieldColour::Window);
    EXPECT_TRUE(entry.Flag(InputFlag::HeightOfEye));

    Type(Field::WaterFahrenheit, "_50");
    EXPECT_DOUBLE_EQ(session.WaterTemp, 10.0);
    EXPECT_EQ(session.AirTemp, 20.0);
    Type(Field::InchesHg, "29.00");
    EXPECT_DOUBLE_EQ(session.Pressure, 29.0 * 33.8638);
    EXPECT_EQ(entry.Text(Field::Millibars), "0982");

    EXPECT_EQ(Type(Field::Course, "090°.5"), EntryVerdict::Valid);
    EXPECT_EQ(session.Course, 90.5);
    EXPECT_EQ(session.OrigCourse, 90.5);
}

TEST_F(SightEntryTest, RefusedTextKeepsValueAndFlag)
{
    Type(Field::Speed, "012.5");
    EXPECT_EQ(Type(Field::Speed, "-12.5"), EntryVerdict::Refused);
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Your speed is negative.");
    EXPECT_EQ(entry.Text(Field::Speed), "_-12.");
    EXPECT_EQ(session.Speed, 12.5);
    EXPECT_TRUE(entry.Flag(InputFlag::Speed));
    EXPECT_EQ(entry.Colour(Field::Speed), FieldColour::Window);
    EXPECT_EQ(Type(Field::Speed, "___._"), EntryVerdict::Empty);
    EXPECT_EQ(session.Speed, 12.5);
}

TEST_F(SightEntryTest, DefaultCorrectionLosesItsFlagOnEntry)
{
    Type(Field::InstCorr, "_75.00");
    EXPECT_EQ(boxes.TakeAll().size(), 1u);
    EXPECT_EQ(entry.Colour(Field::InstCorr), FieldColour::Orange);
    EXPECT_EQ(session.DefaultInstCorr, 75.0);
    EXPECT_TRUE(entry.Flag(InputFlag::InstCorr));
    Type(Field::InstCorr, "100.00");
    EXPECT_EQ(boxes.TakeAll().size(), 1u);
    EXPECT_FALSE(entry.Flag(InputFlag::InstCorr));
}

TEST_F(SightEntryTest, SpinStepsGoThroughTheRule)
{
    StepField(entry, session, Field::AirCelsius, false);
    EXPECT_EQ(entry.Text(Field::AirCelsius), "_19");
    EXPECT_EQ(entry.Text(Field::AirFahrenheit), "_66");
    EXPECT_EQ(session.AirTemp, 19.0);
    StepField(entry, session, Field::InchesHg, true);
    EXPECT_EQ(entry.Text(Field::InchesHg), "30.01");
    EXPECT_DOUBLE_EQ(session.Pressure, 30.01 * 33.8638);
    Type(Field::Millibars, "1070");
    StepField(entry, session, Field::Millibars, true);
    EXPECT_EQ(entry.Text(Field::Millibars), "1070");
    entry.Text(Field::Millibars) = "____";
    StepField(entry, session, Field::Millibars, false);
    EXPECT_EQ(entry.Text(Field::Millibars), "1069");
}

TEST_F(SightEntryTest, SecondPickerFollowsTheFirstUntilItIsLeft)
{
    entry.TimeEstPos = Evening + 0.5;
    LeaveTimeEstPos(entry, session);
    EXPECT_EQ(entry.TimeTruePos, Evening + 0.5);
    EXPECT_FALSE(entry.Flag(InputFlag::TimeTruePos));
    LeaveTimeTruePos(entry, session);
    EXPECT_EQ(session.TimeTruePos, Evening + 0.5);
    entry.TimeEstPos = Evening;
    LeaveTimeEstPos(entry, session);
    EXPECT_EQ(entry.TimeTruePos, Evening + 0.5);
    EXPECT_EQ(session.TimeEstPos, Evening);
}

TEST_F(SightEntryTest, CommittedCells)
{
    Type(Field::InstCorr, "_-2.50");
    CommitCell(entry, 1, GridColumn::Time, "21 May 2004 18:02:15");
    EXPECT_EQ(entry.Rows[1][GridColumn::Correction], "-02.50");
    EXPECT_EQ(entry.Rows[1].Flag, (std::array<bool, 4>{true, false, false, true}));
    EXPECT_EQ(CommitCell(entry, 1, GridColumn::Altitude, "90°00'.1"), EntryVerdict::Refused);
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Altitude > 90°.");
    EXPECT_EQ(entry.Rows[1][GridColumn::Altitude], "90°00'.1");
    EXPECT_FALSE(entry.Rows[1].Flag[2]);
    CommitCell(entry, 1, GridColumn::Altitude, "_5°30'._");
    EXPECT_EQ(entry.Rows[1][GridColumn::Altitude], "05°30'.0");
    EXPECT_TRUE(entry.Rows[1].Flag[2]);
    CommitCell(entry, 1, GridColumn::Correction, "_-1.00");
    CommitCell(entry, 1, GridColumn::Body, "VEGA");
    EXPECT_EQ(entry.Rows[1][GridColumn::Correction], "-01.00");
    // An editor that is left empty commits nothing, so that no half row appears.
    EXPECT_EQ(CommitCell(entry, 2, GridColumn::Altitude, "__°__'._"), EntryVerdict::Empty);
    EXPECT_EQ(entry.Rows[2].Flag, (std::array<bool, 4>{}));
}

TEST_F(SightEntryTest, GridIsReadUpToTheFirstEmptyRow)
{
    FillRow(1, "21 May 2004 18:02:15", "VEGA", "35°15'.0", "-02.50");
    FillRow(2, "21 May 2004 18:01:00", "SUNLOW", "90°00'.0", "+99.99");
    FillRow(4, "no date", "", "", "");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    ASSERT_EQ(session.ObsCount, 2);
    EXPECT_EQ(ephemeris::FormatIsoDateTime(session.ObsTime[1]), "2004-05-21 18:02:15");
    EXPECT_EQ(session.ObsBody[2], "SUNLOW");
    EXPECT_NEAR(session.ObsAltitude[1], 35.25, 1e-13);
    EXPECT_EQ(session.ObsAltitude[2], 90.0);
    EXPECT_DOUBLE_EQ(session.ObsInstCorr[1], -2.5 / 60.0);
    for (int row = 1; row <= MaxObservations; ++row)
        FillRow(row, "21 May 2004", "MARS", "10°00'.0");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    EXPECT_EQ(session.ObsCount, 49);
}

TEST_F(SightEntryTest, BadCellsEndTheReadingWithTheirBox)
{
    struct {
        GridColumn column;
        const char* text;
        const char* box;
    } const cases[] = {
        {GridColumn::Time, "30 Feb 2004 18:00:00", "Incorrect data|Incorrect time in the grid."},
        {GridColumn::Time, "", "Incorrect data|Incorrect time in the grid."},
        {GridColumn::Body, "Vega", "Incorrect data|Incorrect celestal body name in the grid."},
        {GridColumn::Body, "", "Incorrect data|Incorrect celestal body name in the grid."},
        {GridColumn::Altitude, "90°00'.1", "Incorrect data|Incorrect altitude in the grid."},
        {GridColumn::Altitude, "35°60'.0", "Incorrect data|Incorrect altitude in the grid."},
        {GridColumn::Altitude, "-00°30'.0", "Incorrect data|Incorrect altitude in the grid."},
        {GridColumn::Altitude, "", "Incorrect data|Incorrect altitude in the grid."},
        {GridColumn::Correction, "+120.00", "Incorrect data|Incorrect instrumental error in the grid."},
        {GridColumn::Correction, "___.__", "Incorrect data|Incorrect instrumental error in the grid."},
    };
    FillRow(1, "21 May 2004 18:02:15", "VEGA", "35°15'.0");
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    for (const auto& c : cases) {
        FillRow(2, "21 May 2004 18:05:40", "MARS", "12°30'.0");
        entry.Rows[2][c.column] = c.text;
        EXPECT_FALSE(ReadObservationGrid(entry, session)) << c.text;
        EXPECT_EQ(boxes.TakeOne(), c.box);
        EXPECT_EQ(session.ObsCount, 1) << "the session keeps the last reading";
    }
    entry.Rows[2].Flag[1] = false;
    EXPECT_FALSE(ReadObservationGrid(entry, session));
    EXPECT_EQ(boxes.TakeOne(), "Missing data|Some data are missing or incorrect in the grid.");
    entry.Rows[1][GridColumn::Time].clear();
    EXPECT_FALSE(ReadObservationGrid(entry, session));
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Please fill the grid with the observations.");
}

TEST_F(SightEntryTest, SortIsByTimeAndKeepsEqualTimesInOrder)
{
    // Three times in turn over 48 rows, and an earlier one in the last row, which is not sorted.
    const char* const times[] = {"21 May 2004 18:05:40", "21 May 2004 09:00:00", "30 Dec 2003 23:00:00"};
    for (int row = 1; row <= 48; ++row)
        FillRow(row, times[row % 3], "MARS", std::to_string(row).c_str());
    FillRow(49, "1 Jan 2003", "VEGA", "49");
    SortObservationGrid(entry, 48);
    for (int row = 1; row <= 48; ++row) {
        const int group = 2 - (row - 1) / 16; // latest group last
        const int expected = 3 * ((row - 1) % 16 + (group == 0 ? 1 : 0)) + group;
        EXPECT_EQ(entry.Rows[row][GridColumn::Altitude], std::to_string(expected));
    }
    EXPECT_EQ(entry.Rows[49][GridColumn::Altitude], "49");
}

TEST_F(SightEntryTest, RunChecksInOrder)
{
    FillInput();
    entry.Flag(InputFlag::InstCorr) = false;
    entry.Rows[1][GridColumn::Time].clear();
    EXPECT_FALSE(Run());
    EXPECT_EQ(boxes.TakeOne(), MissingInput);
    entry.Flag(InputFlag::InstCorr) = true;
    EXPECT_FALSE(Run());
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Please fill the grid with the observations.");
    FillInput();
    entry.Rows[2].Flag.fill(false);
    EXPECT_FALSE(Run());
    EXPECT_EQ(boxes.TakeOne(), TooFew);
    entry.Text(Field::Course) = "400°.0";
    EXPECT_FALSE(Run()) << "the field would not show the course that is used";
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Course > 360°");
}

TEST_F(SightEntryTest, RunUndoesTheLastCorrectionAndSortsTheRowsAlone)
{
    FillInput();
    session.Course = 255.3; // as a full routine leaves them
    session.Speed = 11.1;
    session.EstLat = 1.0;
    entry.OneEstPos = true;
    entry.FindSystErr = false;
    ASSERT_TRUE(Run());
    boxes.TakeAll(); // what the fix says of these made-up sights is not the matter here
    EXPECT_EQ(session.Course, 270.0);
    EXPECT_EQ(session.Speed, 12.5);
    EXPECT_NEAR(session.EstLat, 43.5, 1e-13);
    EXPECT_TRUE(session.OneEstPos);
    EXPECT_FALSE(session.FindSystErr);
    EXPECT_EQ(session.ObsBody[1], "SUNLOW");
    EXPECT_EQ(entry.Rows[1][GridColumn::Body], "SPICA");
    EXPECT_EQ(session.ObsTime[0], Evening);
    EXPECT_EQ(session.ObsAzimuth.Size(), 2);
    EXPECT_EQ(session.ObsLat.Upper(), 2);

    entry.Text(Field::Course) = "___°._";
    session.Course = 255.3;
    ASSERT_TRUE(Run());
    boxes.TakeAll();
    EXPECT_EQ(session.Course, 270.0) << "an emptied field stands for the last valid entry";
}

} // namespace
} // namespace merov::fix
