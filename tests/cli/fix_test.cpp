#include "cli/command_line.h"

#include <algorithm>
#include <cmath>

/// The command fix.

namespace merov::test
{
namespace
{

QJsonValue Sight(const QJsonObject& result, int number, const char* key)
{
    return result["Observations"][number][QString(key)];
}

TEST(CliFix, ResultsOfAFix)
{
    const QJsonObject result = ExpectJson("fix evening_stars.obs", 0, R"({
        "NumUnknowns": 2, "ObsCount": 7, "GoodObsCount": 7, "Course": 212, "Speed": 13.5, "OrigCourse": 212,
        "OrigSpeed": 13.5, "EstLat": 38.7166666666667, "EstLong": -11.9166666666667, "Probability": 0.95,
        "TimeEstPos": "2024-09-14 19:00:00", "TimeTruePos": "2024-09-14 19:40:00",
        "Panels": {"MPP": "38°28'.3 N 012°02'.3 W", "Full": "Trunc. Not enough obs.", "Proba": "95.0 %"}})");
    EXPECT_NEAR(result["TrueLat"].toDouble(), 38.4712, 0.001);
    EXPECT_NEAR(result["TrueLong"].toDouble(), -12.0385, 0.001);
    EXPECT_EQ(result["StdDev"].toArray().size(), 2);
    EXPECT_EQ(Keys(result["Panels"].toObject()), "Circle Course Ellipse Full Iter MPP Proba Speed SystErr TimeTruePos");
    ASSERT_EQ(result["Observations"].toArray().size(), 7);
    for (const QJsonValue& sight : result["Observations"].toArray())
        EXPECT_EQ(Keys(sight.toObject()), "ObsAltitude ObsAzimuth ObsBody ObsDec ObsDist ObsGHA ObsHc ObsHo ObsInstCorr"
                                          " ObsIntercept ObsLat ObsLong ObsTime ObsWeight");
}

TEST(CliFix, TextForPeople)
{
    ExpectText("fix evening_stars.obs", 0, "38°28'.3 N 012°02'.3 W", "");
    ExpectText("fix evening_stars.obs", 0, "14 Sep 2024 19:46:14  SCHEDAR", "");
    ExpectText("fix misread_degree.obs", 0, "14°16'.0 N 060°02'.5 W", "REGULUS at 22:40:33 is most probably");
    ExpectText("fix nosuch.obs", 1, "", "The file name doesn't exist. Try again.");
    EXPECT_NE(RunCli("fix sun_run_sun.obs --view report").Out, RunCli("fix sun_run_sun.obs").Out);
}

TEST(CliFix, Options)
{
    const std::string fix = "fix twelve_sights.obs ";
    const QJsonObject full = ExpectJson(fix + "--ellipsoid 19", 0, R"({"NumUnknowns":4, "Panels":{"Full":"Full"}})");
    EXPECT_EQ(full["StdDev"].toArray().size(), 4);
    EXPECT_NE(full["Course"], full["OrigCourse"]);
    EXPECT_NE(full["Panels"]["SystErr"], "");
    ExpectJson(fix + "--truncated", 0,
               R"({"NumUnknowns":2, "Course":251, "Speed":14.4, "Panels":{"Full":"Trunc. User preference."}})");
    ExpectJson(fix + "--no-systematic", 0, R"({"SystErr":0, "Panels":{"SystErr":""}})");
    double former = 0.0;
    for (const std::string word : {"0.5", ".95", "0.99", "9.99e-1"}) {
        const QJsonObject result = ExpectJson(fix + "--probability " + word, 0);
        EXPECT_EQ(result["Probability"].toDouble(), std::stod(word));
        EXPECT_GT(result["EllipseNS"].toDouble(), former);
        former = result["EllipseNS"].toDouble();
    }
    // On the sphere the miles of the run are others, by a few thousandths.
    const double sphere = ExpectJson(fix + "--ellipsoid 15", 0)["TrueLat"].toDouble();
    EXPECT_NEAR(sphere, full["TrueLat"].toDouble(), 1e-3);
    EXPECT_NE(sphere, full["TrueLat"].toDouble());
}

TEST(CliFix, Views)
{
    const std::string words = "fix sun_run_sun.obs ";
    const QJsonObject fix = ExpectJson(words + "--view fix", 0);
    const QJsonObject report = ExpectJson(words + "--view report", 0);
    const QJsonObject single = ExpectJson(words + "--view report --one-position", 0);
    const QJsonObject chart = ExpectJson(words + "--view chart", 0);
    EXPECT_EQ(ExpectJson(words + "--one-position", 0), fix);
    for (QJsonObject view : {report, single, chart}) {
        view["Observations"] = fix["Observations"];
        EXPECT_EQ(view, fix);
    }
    EXPECT_NE(Sight(report, 1, "ObsLat"), Sight(report, 0, "ObsLat"));
    for (int i = 0; i < 5; ++i) {
        // One estimated position for all; the chart's sights pass through the fix, within a tenth of a mile.
        EXPECT_EQ(Sight(single, i, "ObsLat"), Sight(single, 0, "ObsLat"));
        EXPECT_LT(std::fabs(Sight(chart, i, "ObsIntercept").toDouble()) * 60.0, 0.1) << i;
        EXPECT_GT(std::fabs(Sight(report, i, "ObsIntercept").toDouble()) * 60.0, 0.5) << i;
        EXPECT_EQ(Sight(report, i, "ObsWeight"), Sight(fix, i, "ObsWeight"));
    }
}

TEST(CliFix, WritesReportAndChart)
{
    const ScratchFolder scratch;
    const struct {
        const char *Option, *File, *Begins, *Holds;
    } forms[] = {
        {"--report ", "report.txt", "Astronomic position by Merov\n", "Lat 38°28'.3 N and Long 012°02'.3 W\n"},
        {"--report ", "report.HTML", "<!DOCTYPE HTML", "src=\"data:image/png;base64,"},
        {"--report ", "report.pdf", "%PDF-1.", "%%EOF"},
        {"--chart ", "chart.svg", "<?xml", "SCHEDAR"},
        {"--chart ", "chart.png", "\x89PNG", "IEND"},
        {"--chart ", "Chart.Pdf", "%PDF-1.", "%%EOF"},
    };
    const QJsonObject plain = ExpectJson("fix evening_stars.obs", 0);
    for (const auto& form : forms) {
        const std::string file = scratch.File(form.File);
        EXPECT_EQ(ExpectJson(std::string("fix evening_stars.obs ") + form.Option + file, 0), plain);
        const std::string bytes = ReadBytes(file);
        EXPECT_EQ(bytes.rfind(form.Begins, 0), 0U) << file;
        EXPECT_NE(bytes.find(form.Holds), std::string::npos) << file;
    }
    const std::string nowhere = scratch.File("none/report.");
    for (const std::string& words : {"--report " + nowhere + "txt", "--report " + nowhere + "pdf",
                                     "--chart " + nowhere + "png", "--chart " + nowhere + "pdf"})
        ExpectText("fix evening_stars.obs " + words, 1, "38°28'.3 N", "could not be written");
    for (const char* words : {"--report report.doc", "--report report", "--chart chart.html", "--chart"})
        ExpectText(std::string("fix evening_stars.obs ") + words, 2, "", "--");
    // A fix that is refused leaves no file.
    EXPECT_EQ(RunCli("fix nosuch.obs --report " + scratch.File("none.txt")).Status, 1);
    EXPECT_FALSE(std::ifstream(scratch.File("none.txt")));
}

TEST(CliFix, TwoSightsHaveFullWeightAndComeInFileOrder)
{
    const ScratchFolder scratch;
    std::string bytes = ReadBytes("two_sights.obs");
    const std::size_t arcturus = bytes.find("#2024-09-14 19:31:42#"), altair = bytes.find("#2024-09-14 19:33:55#");
    std::rotate(bytes.begin() + arcturus, bytes.begin() + altair, bytes.begin() + bytes.find("\"This"));
    ExpectJson("fix " + scratch.Write("turned.obs", bytes), 0, R"({"StdDev":[0,0], "EllipseEW":0, "CircleRadius":0,
        "Observations":[{"ObsTime":"2024-09-14 19:33:55", "ObsBody":"ALTAIR", "ObsInstCorr":-0.03, "ObsWeight":1},
                        {"ObsTime":"2024-09-14 19:31:42", "ObsBody":"ARCTURUS", "ObsInstCorr":-0.03, "ObsWeight":1}]})");
}

TEST(CliFix, EntriesAreTakenAsTheFieldsTakeThem)
{
    const ScratchFolder scratch;
    // Where a fix is refused the entries stand; a damaged file leaves none.
    const std::string refused =
        R"({"TrueLat":null, "StdDev":null, "Panels":null, "Observations":null, "EstLat":38.7166666666667, "Boxes":[)";
    const std::string damaged = R"({"TrueLat":null, "EstLat":null, "TimeTruePos":null, "Boxes":["File unreadable|)";
    const struct {
        std::string From, To; ///< the change of the file of two sights
        int Status;
        std::string Expected;
    } rows[] = {
        {"7166666666667,-11.9166666666667", "7174,-11.9161", 0,
         R"({"EstLat":38.7166666666667, "EstLong":-11.9166666666667})"},
        {"212,13.5", "212.04,13.46", 0, R"({"Course":212, "Speed":13.5})"},
        {"34.3433333333333,-.03", "34.34443,-.02994", 0, R"({"Observations":[{"ObsAltitude":34.345}, {}]})"},
        {"1018", "900", 0, R"({"Boxes":[" Error in input data|The atmospheric pressure is lower than 940 mbars."]})"},
        {"ALTAIR", "Altair", 1, refused + R"("Incorrect data|Incorrect celestal body name in the grid."]})"},
        {"2\r\n#2024-09-14 19:31:42#,\"ARCTURUS\",34.3433333333333,-.03", "1", 1,
         refused + R"(" Error when computing the true position|You must enter at least 2 observations..."]})"},
        {"2024-09-14", "2024-02-30", 1, damaged + R"(Record 1 ..."]})"},
        {"212,13.5", "212,north", 1, damaged + R"(Record 4 ..."]})"},
        {"\r\n2\r\n", "\r\n50\r\n", 1, damaged + R"(Record 7 ..."]})"},
        {"19:33:55", "25:00:00", 1, damaged + R"(Record 9 ..."]})"},
        {"\"This is", "", 1, damaged + R"(Sorry, This is not an Merov file.|Please select the right file."]})"},
    };
    for (const auto& [from, to, status, expected] : rows) {
        SCOPED_TRACE(from + " to " + to);
        std::string bytes = ReadBytes("two_sights.obs");
        bytes.replace(bytes.find(from), from.size(), to);
        ExpectJson("fix " + scratch.Write("changed.obs", bytes), status, expected);
    }
}

} // namespace
} // namespace merov::test
