#include "cli/command_line.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

/// The command fix.

namespace merov::test
{
namespace
{

const QStringList FixKeys{"Boxes",      "CircleRadius", "Course",      "EllipseEW",   "EllipseNS", "EstLat",
                          "EstLong",    "GoodObsCount", "IterCount",   "NumUnknowns", "ObsCount",  "Observations",
                          "OrigCourse", "OrigSpeed",    "Panels",      "Probability", "Speed",     "StdDev",
                          "SystErr",    "TimeEstPos",   "TimeTruePos", "TrueLat",     "TrueLong"};
const QStringList SightKeys{"ObsAltitude", "ObsAzimuth",  "ObsBody",      "ObsDec", "ObsDist", "ObsGHA",  "ObsHc",
                            "ObsHo",       "ObsInstCorr", "ObsIntercept", "ObsLat", "ObsLong", "ObsTime", "ObsWeight"};
const QStringList PanelKeys{"Circle", "Course", "Ellipse", "Full",    "Iter",
                            "MPP",    "Proba",  "Speed",   "SystErr", "TimeTruePos"};

/// A run with --json that must end with `status`; all keys are there, whatever happens.
QJsonObject Fix(const std::string& file, const Words& options = {}, int status = 0)
{
    const Words words = Plus({"fix", file, "--json"}, options);
    SCOPED_TRACE(Shown(words));
    const ProgramRun run = RunCli(words);
    EXPECT_EQ(run.Status, status) << run.Err;
    EXPECT_EQ(run.Err, "");
    const QJsonObject result = run.Json();
    EXPECT_EQ(result.keys(), FixKeys);
    return result;
}

QJsonObject Sight(const QJsonObject& result, int number)
{
    return result["Observations"].toArray()[number].toObject();
}

QString Panel(const QJsonObject& result, const char* key)
{
    return result["Panels"].toObject()[key].toString();
}

TEST(CliFix, ResultsOfAFix)
{
    const QJsonObject result = Fix(Sample("evening_stars.obs"));
    EXPECT_TRUE(BoxTexts(result).empty());
    for (const char* key : {"TrueLat", "TrueLong", "EllipseEW", "EllipseNS", "CircleRadius", "SystErr", "Speed"})
        EXPECT_TRUE(result[key].isDouble()) << key;
    EXPECT_NEAR(result["TrueLat"].toDouble(), 38.4712, 0.001);
    EXPECT_NEAR(result["TrueLong"].toDouble(), -12.0385, 0.001);
    EXPECT_EQ(result["StdDev"].toArray().size(), 2);
    EXPECT_EQ(result["NumUnknowns"].toInt(), 2);
    EXPECT_EQ(result["ObsCount"].toInt(), 7);
    EXPECT_EQ(result["GoodObsCount"].toInt(), 7);
    EXPECT_EQ(result["Course"].toDouble(), 212.0);
    EXPECT_EQ(result["OrigSpeed"].toDouble(), 13.5);
    EXPECT_NEAR(result["EstLat"].toDouble(), 38.0 + 43.0 / 60.0, 1e-9);
    EXPECT_EQ(result["TimeEstPos"].toString(), "2024-09-14 19:00:00");
    EXPECT_EQ(result["TimeTruePos"].toString(), "2024-09-14 19:40:00");
    EXPECT_EQ(result["Probability"].toDouble(), 0.95);
    EXPECT_EQ(result["Panels"].toObject().keys(), PanelKeys);
    EXPECT_EQ(Panel(result, "MPP"), "38°28'.3 N 012°02'.3 W");
    EXPECT_EQ(Panel(result, "Full"), "Trunc. Not enough obs.");
    for (const QJsonValue& sight : result["Observations"].toArray())
        EXPECT_EQ(sight.toObject().keys(), SightKeys);
    EXPECT_EQ(Sight(result, 0)["ObsTime"].toString(), "2024-09-14 19:31:42");
    EXPECT_EQ(Sight(result, 6)["ObsBody"].toString(), "SCHEDAR");
    EXPECT_NEAR(Sight(result, 6)["ObsInstCorr"].toDouble(), -0.03, 1e-9);
}

TEST(CliFix, TextForPeople)
{
    const ProgramRun run = RunCli({"fix", Sample("evening_stars.obs")});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    for (const char* text : {"14 Sep 2024 19:40:00", "38°28'.3 N 012°02'.3 W", "Trunc. Not enough obs.", "ARCTURUS",
                             "14 Sep 2024 19:46:14  SCHEDAR", "34°20'.6"})
        EXPECT_NE(run.Out.find(text), std::string::npos) << text;
    const ProgramRun warned = RunCli({"fix", Sample("misread_degree.obs")});
    EXPECT_EQ(warned.Status, 0);
    EXPECT_NE(warned.Err.find("The observation of REGULUS at 22:40:33 is most probably erroneous."), std::string::npos);
    EXPECT_EQ(warned.Out.find("erroneous"), std::string::npos);
    const ProgramRun refused = RunCli({"fix", Sample("nosuch.obs")});
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Out, "");
    EXPECT_NE(refused.Err.find("The file name doesn't exist. Try again."), std::string::npos);
}

TEST(CliFix, BoxOfARunThatWentOnIsASuccess)
{
    EXPECT_EQ(BoxTexts(Fix(Sample("misread_degree.obs"))).size(), 1u);
}

TEST(CliFix, Options)
{
    const std::string twelve = Sample("twelve_sights.obs");
    const QJsonObject full = Fix(twelve);
    EXPECT_EQ(full["NumUnknowns"].toInt(), 4);
    EXPECT_EQ(full["StdDev"].toArray().size(), 4);
    EXPECT_EQ(Panel(full, "Full"), "Full");
    EXPECT_NE(full["Course"], full["OrigCourse"]);

    const QJsonObject truncated = Fix(twelve, {"--truncated"});
    EXPECT_EQ(truncated["StdDev"].toArray().size(), 2);
    EXPECT_EQ(Panel(truncated, "Full"), "Trunc. User preference.");
    EXPECT_EQ(truncated["Course"], truncated["OrigCourse"]);

    const QJsonObject plain = Fix(twelve, {"--no-systematic"});
    EXPECT_EQ(plain["SystErr"].toDouble(9.0), 0.0);
    EXPECT_EQ(Panel(plain, "SystErr"), "");
    EXPECT_NE(Panel(full, "SystErr"), "");

    double former = 0.0;
    for (const std::string word : {"0.5", ".95", "0.99", "9.99e-1"}) {
        const QJsonObject result = Fix(twelve, {"--probability", word});
        EXPECT_EQ(result["Probability"].toDouble(), std::stod(word));
        EXPECT_EQ(result["TrueLat"], full["TrueLat"]);
        EXPECT_GT(result["EllipseNS"].toDouble(), former);
        former = result["EllipseNS"].toDouble();
    }
    EXPECT_EQ(Panel(Fix(twelve, {"--probability", "0.999"}), "Proba"), "99.9 %");
    // On the sphere the miles of the run are others, by a few thousandths.
    EXPECT_NEAR(Fix(twelve, {"--ellipsoid", "15"})["TrueLat"].toDouble(), full["TrueLat"].toDouble(), 1e-3);
    EXPECT_NE(Fix(twelve, {"--ellipsoid", "15"})["TrueLat"], full["TrueLat"]);
}

TEST(CliFix, Views)
{
    const std::string file = Sample("sun_run_sun.obs");
    const QJsonObject fix = Fix(file);
    EXPECT_EQ(Fix(file, {"--view", "fix"}), fix);
    const QJsonObject report = Fix(file, {"--view", "report"});
    const QJsonObject single = Fix(file, {"--view", "report", "--one-position"});
    const QJsonObject chart = Fix(file, {"--view", "chart"});
    EXPECT_EQ(Fix(file, {"--one-position"}), fix);
    for (const QJsonObject& view : {report, single, chart})
        for (const char* key : {"TrueLat", "TrueLong", "StdDev", "Panels"})
            EXPECT_EQ(view[key], fix[key]) << key;
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(i);
        // One estimated position for all; the chart's sights pass through the fix, within a tenth of a mile.
        EXPECT_EQ(Sight(single, i)["ObsLat"], Sight(single, 0)["ObsLat"]);
        EXPECT_LT(std::fabs(Sight(chart, i)["ObsIntercept"].toDouble()) * 60.0, 0.1);
        EXPECT_GT(std::fabs(Sight(report, i)["ObsIntercept"].toDouble()) * 60.0, 0.5);
        EXPECT_EQ(Sight(report, i)["ObsWeight"], Sight(fix, i)["ObsWeight"]);
    }
    EXPECT_NE(Sight(report, 1)["ObsLat"], Sight(report, 0)["ObsLat"]);
    const std::string text = RunCli({"fix", file, "--view", "report"}).Out;
    EXPECT_NE(text, RunCli({"fix", file}).Out);
}

TEST(CliFix, TwoSightsHaveFullWeight)
{
    const QJsonObject result = Fix(Sample("two_sights.obs"));
    EXPECT_EQ(Sight(result, 0)["ObsWeight"].toDouble(), 1.0);
    EXPECT_EQ(Sight(result, 1)["ObsWeight"].toDouble(), 1.0);
    EXPECT_EQ(result["StdDev"].toArray(), QJsonArray({0.0, 0.0}));
}

TEST(CliFix, ObservationsComeInFileOrder)
{
    const ScratchFolder scratch;
    std::vector<std::string> lines = SampleLines("evening_stars.obs");
    std::reverse(lines.begin() + 7, lines.end() - 1);
    const QJsonObject result = Fix(scratch.Write("reversed.obs", Joined(lines)));
    EXPECT_EQ(Sight(result, 0)["ObsBody"].toString(), "SCHEDAR");
    EXPECT_EQ(Sight(result, 6)["ObsBody"].toString(), "ARCTURUS");
    EXPECT_NEAR(result["TrueLat"].toDouble(), Fix(Sample("evening_stars.obs"))["TrueLat"].toDouble(), 1e-9);
}

/// The file of two sights with one record (counted from 1) replaced; "" takes it out.
std::string WithRecord(const ScratchFolder& scratch, int record, const std::string& text)
{
    std::vector<std::string> lines = SampleLines("two_sights.obs");
    if (text.empty())
        lines.erase(lines.begin() + record - 1);
    else
        lines[static_cast<std::size_t>(record - 1)] = text;
    return scratch.Write("changed.obs", Joined(lines));
}

TEST(CliFix, EntriesAreTakenAsTheFieldsTakeThem)
{
    const ScratchFolder scratch;
    const QJsonObject rounded = Fix(WithRecord(scratch, 2, "38.7174,-11.9161")); // 43'.04, 54'.97
    EXPECT_NEAR(rounded["EstLat"].toDouble(), 38.0 + 43.0 / 60.0, 1e-9);
    EXPECT_NEAR(rounded["EstLong"].toDouble(), -(11.0 + 55.0 / 60.0), 1e-9);
    EXPECT_EQ(Fix(WithRecord(scratch, 4, "212.04,13.46"))["Course"].toDouble(), 212.0);
    EXPECT_EQ(Fix(WithRecord(scratch, 4, "212.04,13.46"))["Speed"].toDouble(), 13.5);
    // Beyond its limits: the box, the default, and the run goes on.
    const QJsonObject limited = Fix(WithRecord(scratch, 6, "21,20,900"));
    EXPECT_EQ(BoxTexts(limited),
              std::vector<std::string>{" Error in input data|The atmospheric pressure is lower than 940 mbars."});
    EXPECT_EQ(limited["TrueLat"], Fix(WithRecord(scratch, 6, "21,20,1013"))["TrueLat"]);
}

TEST(CliFix, RefusedSessionsHaveNoResult)
{
    const ScratchFolder scratch;
    const std::string sight = "#2024-09-14 19:31:42#,\"ARCTURUS\",34.3433333333333,-.03";
    std::vector<std::string> one = SampleLines("two_sights.obs");
    one[6] = "1";
    one.erase(one.begin() + 8);
    std::vector<std::string> none = one;
    none[6] = "0";
    none.erase(none.begin() + 7);
    const std::vector<std::pair<std::string, std::string>> refusals{
        {scratch.Write("one.obs", Joined(one)), " Error when computing the true position|"
                                                "You must enter at least 2 observations in order|to get a star fix."},
        {scratch.Write("none.obs", Joined(none)), " Error in input data|Please fill the grid with the observations."},
        {WithRecord(scratch, 9, "#2024-09-14 19:33:55#,\"Altair\",54.4,0"),
         "Incorrect data|Incorrect celestal body name in the grid."},
    };
    for (const auto& [file, box] : refusals) {
        const QJsonObject result = Fix(file, {}, 1);
        EXPECT_EQ(BoxTexts(result), std::vector<std::string>{box});
        for (const char* key : {"TrueLat", "TrueLong", "StdDev", "EllipseNS", "IterCount", "Panels", "Observations"})
            EXPECT_TRUE(result[key].isNull()) << box << key;
        EXPECT_NEAR(result["EstLat"].toDouble(), 38.0 + 43.0 / 60.0, 1e-9); // the entries were read
    }
}

TEST(CliFix, DamagedFilesNameTheRecord)
{
    const ScratchFolder scratch;
    const std::vector<std::pair<int, std::string>> damages{
        {1, "#2024-02-30 19:00:00#"},
        {2, "38.7"},
        {4, "212,north"},
        {6, "21,20,1E999"},
        {7, "50"},
        {7, "2.5"},
        {8, "#2024-09-14 25:00:00#,\"VEGA\",35,0"},
        {9, "#2024-09-14 19:33:55#,ALTAIR,54.4,0"},
    };
    for (const auto& [record, text] : damages) {
        SCOPED_TRACE(text);
        const QJsonObject result = Fix(WithRecord(scratch, record, text), {}, 1);
        ASSERT_EQ(BoxTexts(result).size(), 1u);
        EXPECT_TRUE(BoxTexts(result)[0].starts_with("File unreadable|Record " + std::to_string(record) + " "))
            << BoxTexts(result)[0];
        EXPECT_TRUE(result["EstLat"].isNull());
    }
    const std::string whole = ReadBytes(Sample("two_sights.obs"));
    const std::string sentence = "File unreadable|Sorry, This is not an Merov file.|Please select the right file.";
    for (const std::string& bytes : {std::string(), whole.substr(0, 200), whole + "\r\n", std::string(4096, '\0')})
        EXPECT_EQ(BoxTexts(Fix(scratch.Write("other.obs", bytes), {}, 1)), std::vector<std::string>{sentence});
    EXPECT_EQ(BoxTexts(Fix(scratch.Write("huge.obs", std::string(3 << 20, 'x') + whole), {}, 1)).size(), 1u);
    EXPECT_EQ(BoxTexts(Fix(scratch.Path().string(), {}, 1)).size(), 1u);
}

} // namespace
} // namespace merov::test
