#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <cmath>

/// The command rhumb.

namespace merov::test
{
namespace
{

const QStringList LineKeys{"Boxes", "Course", "Distance", "Lat1", "Lat2", "Long1", "Long2"};

QJsonObject Solved(const Words& words)
{
    const ProgramRun run = RunCli(Plus({"rhumb"}, Plus(words, {"--json"})));
    SCOPED_TRACE(Shown(words));
    EXPECT_EQ(run.Status, 0) << run.Err;
    const QJsonObject line = run.Json();
    EXPECT_EQ(line.keys(), LineKeys);
    for (const QString& key : LineKeys.mid(1))
        EXPECT_TRUE(line[key].isDouble()) << key.toStdString();
    return line;
}

std::string Word(const QJsonValue& value)
{
    return QString::number(value.toDouble(), 'g', 17).toStdString();
}

TEST(CliRhumb, FourProblemsOfOneLine)
{
    for (const std::string ellipsoid : {"19", "0", "15"}) {
        SCOPED_TRACE(ellipsoid);
        const Words which{"--ellipsoid", ellipsoid};
        const QJsonObject line = Solved(Plus({"direct", "-40", "-175", "225", "600"}, which));
        const std::string lat2 = Word(line["Lat2"]), long2 = Word(line["Long2"]);
        // On the sphere latitudes are plane; ellipsoids differ by a hundredth of a degree.
        const double lat2OnSphere = -40.0 - 600.0 / 60.0 * std::sqrt(0.5);
        EXPECT_NEAR(line["Lat2"].toDouble(), lat2OnSphere, ellipsoid == "15" ? 1e-6 : 1e-2);
        EXPECT_GT(line["Long2"].toDouble(), 170.0); // over the date line
        const std::vector<Words> others{{"inverse", "-40", "-175", lat2, long2},
                                        {"to-latitude", "-40", "-175", "225", lat2},
                                        {"to-longitude", "-40", "-175", "225", long2},
                                        {"to-longitude", "-40", "-175", "225", long2, "600"}};
        for (const Words& words : others) {
            const QJsonObject other = Solved(Plus(words, which));
            EXPECT_NEAR(other["Distance"].toDouble(), 600.0, 1e-5) << Shown(words);
            for (const char* key : {"Lat2", "Long2", "Course"})
                EXPECT_NEAR(other[key].toDouble(), line[key].toDouble(), 1e-6) << Shown(words) << key;
        }
    }
}

TEST(CliRhumb, MeridianArcsOfKnownLength)
{
    // Arc of the meridian from the equator to 10 degrees: 1105854.83 m on WGS 1984.
    const QJsonObject line = Solved({"inverse", "0", "-8.5", "10", "-8.5"});
    EXPECT_NEAR(line["Distance"].toDouble(), 1105854.83 / 1852.0, 1e-3);
    EXPECT_NEAR(line["Course"].toDouble(), 360.0, 1e-6);
    EXPECT_NEAR(Solved({"inverse", "0", "0", "10", "0", "--ellipsoid", "15"})["Distance"].toDouble(), 600.0, 1e-6);
}

TEST(CliRhumb, RefusalsKeepWhatTheRoutineSet)
{
    const std::string title = " Error in nautical routine|";
    const std::string none = "There is no solution to the problem.";
    struct Refusal {
        Words Problem;
        std::string Box; ///< its begin
        const char* Key;
        double Value;
    };
    const std::vector<Refusal> refusals{
        {{"to-latitude", "40", "-10", "45", "40"},
         title + "You have entered 2 same latitudes and a course which is neither E nor W.",
         "Long2",
         -10.0},
        {{"to-latitude", "40", "-10", "90", "40"},
         title + "You have entered 2 same latitudes. There is no single solution to the problem.",
         "Long2",
         -10.0},
        {{"to-latitude", "40", "-10", "135", "50"},
         title + "The arrival latitude is North of the departure latitude but your course is headed to the South.",
         "Long2",
         0.0},
        {{"to-latitude", "40", "-10", "90", "50"}, title + none, "Long2", 0.0},
        {{"to-longitude", "40", "-10", "45", "-10"},
         title + "You have entered 2 same longitudes and a course which is neither N nor S.",
         "Lat2",
         40.0},
        {{"to-longitude", "40", "-10", "270", "20"},
         title + "The arrival longitude is East of the departure longitude but your course is headed to the West.",
         "Lat2",
         0.0},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(Shown(refusal.Problem));
        const ProgramRun run = RunCli(Plus({"rhumb", "--json"}, refusal.Problem));
        EXPECT_EQ(run.Status, 1);
        const QJsonObject line = run.Json();
        EXPECT_EQ(line.keys(), LineKeys);
        const std::vector<std::string> boxes = BoxTexts(line);
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].substr(0, refusal.Box.size()), refusal.Box);
        EXPECT_EQ(line[refusal.Key].toDouble(999.0), refusal.Value);
        EXPECT_EQ(line["Distance"].toDouble(999.0), 0.0);
        const ProgramRun text = RunCli(Plus({"rhumb"}, refusal.Problem));
        EXPECT_EQ(text.Status, 1);
        EXPECT_NE(text.Err.find(refusal.Box.substr(title.size())), std::string::npos) << text.Err;
    }
}

TEST(CliRhumb, FaultStandsInError)
{
    // A course due north never meets another meridian.
    const ProgramRun run = RunCli({"rhumb", "to-longitude", "40", "-10", "0", "20", "--json"});
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Json()["Error"].toString(), "Division by zero.");
    EXPECT_TRUE(run.Json()["Lat2"].isNull());
    EXPECT_TRUE(BoxTexts(run.Json()).empty());
}

TEST(CliRhumb, TrackOverAPoleIsToldAndDone)
{
    const QJsonObject line = Solved({"direct", "60", "20", "0", "2000"});
    EXPECT_EQ(line["Lat2"].toDouble(), 90.0);
    EXPECT_EQ(line["Long2"].toDouble(9.0), 0.0);
    ASSERT_EQ(BoxTexts(line).size(), 1u);
    EXPECT_TRUE(BoxTexts(line)[0].starts_with("Special case in nautical routine|"));
}

} // namespace
} // namespace merov::test
