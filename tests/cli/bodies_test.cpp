#include "cli/command_line.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <algorithm>

/// The commands body, bodies and sun.

namespace merov::test
{
namespace
{

const std::string Evening = "2004-05-21 18:00:00";
const QStringList PlaceKeys{"Boxes",        "Declination", "Distance",      "EclLatitude",
                            "EclLongitude", "GHA",         "HelioDistance", "Magnitude"};

TEST(CliBodies, EachKindOfBodyHasItsKeys)
{
    for (const std::string code : {"VEGA", "SUNLOW", "MOONUPP", "VENUS", "SATURN", "ALNA'IR", "RIGIL KENT"}) {
        SCOPED_TRACE(code);
        const ProgramRun run = RunCli({"body", code, Evening, "--json"});
        EXPECT_EQ(run.Status, 0);
        EXPECT_EQ(run.Err, "");
        const QJsonObject place = run.Json();
        EXPECT_EQ(place.keys(), PlaceKeys);
        EXPECT_TRUE(BoxTexts(place).empty());
        const bool planet = code == "VENUS" || code == "SATURN";
        for (const char* key : {"GHA", "Declination", "Distance", "Magnitude"})
            EXPECT_TRUE(place[key].isDouble()) << key;
        for (const char* key : {"HelioDistance", "EclLatitude", "EclLongitude"})
            EXPECT_TRUE(planet ? place[key].isDouble() : place[key].isNull()) << key;
    }
    EXPECT_EQ(RunCli({"body", "VEGA", Evening, "--json"}).Json()["Distance"].toDouble(), 272000.0);
    EXPECT_EQ(RunCli({"body", "RIGIL KENT", Evening, "--json"}).Json()["Magnitude"].toDouble(9.0), 0.0);
    EXPECT_EQ(RunCli({"body", "SUNLOW", Evening, "--json"}).Out, RunCli({"body", "SUNUPP", Evening, "--json"}).Out);
    const ProgramRun text = RunCli({"body", "VEGA", Evening});
    EXPECT_NE(text.Out.find("GHA 230°26'.2  Dec 38°47'.0 N"), std::string::npos) << text.Out;
}

TEST(CliBodies, UnknownCodeIsRefused)
{
    for (const std::string code : {"vega", "SUN", "", "VEGA "}) {
        SCOPED_TRACE(code);
        const ProgramRun run = RunCli({"body", code, Evening, "--json"});
        EXPECT_EQ(run.Status, 1);
        const QJsonObject place = run.Json();
        EXPECT_EQ(place.keys(), QStringList(PlaceKeys.mid(0, 5) + QStringList{"Error"} + PlaceKeys.mid(5)));
        EXPECT_TRUE(place["GHA"].isNull());
        EXPECT_NE(place["Error"].toString(), "");
        EXPECT_TRUE(BoxTexts(place).empty());
        const ProgramRun text = RunCli({"body", code, Evening});
        EXPECT_EQ(text.Status, 1);
        EXPECT_EQ(text.Out, "");
        EXPECT_NE(text.Err, "");
    }
}

TEST(CliBodies, AllBodiesAtOnce)
{
    const ProgramRun run = RunCli({"--json", "bodies", Evening});
    EXPECT_EQ(run.Status, 0);
    const QJsonObject result = run.Json();
    EXPECT_EQ(result.keys(), QStringList({"Bodies", "Boxes"}));
    const QJsonArray bodies = result["Bodies"].toArray();
    ASSERT_EQ(bodies.size(), 66);
    EXPECT_EQ(bodies[0].toObject()["Code"].toString(), "ACAMAR");
    EXPECT_EQ(bodies[65].toObject()["Code"].toString(), "ZUBEN'UBI");
    for (const qsizetype row : {0, 34, 44, 55, 65}) {
        QJsonObject object = bodies[row].toObject();
        const std::string code = object.take("Code").toString().toStdString();
        QJsonObject alone = RunCli({"body", code, Evening, "--json"}).Json();
        alone.remove("Boxes");
        EXPECT_EQ(object, alone) << code;
    }
    const std::string text = RunCli({"bodies", Evening}).Out;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 67);
}

TEST(CliBodies, MissingSeriesOfSaturn)
{
    const ScratchFolder empty;
    const Words data{"--data", empty.Path().string(), "--json"};
    const ProgramRun saturn = RunCli(Plus({"body", "SATURN", Evening}, data));
    EXPECT_EQ(saturn.Status, 1);
    const std::vector<std::string> boxes = BoxTexts(saturn.Json());
    ASSERT_FALSE(boxes.empty());
    EXPECT_TRUE(boxes[0].starts_with(" Saturn data file access error|")) << boxes[0];
    EXPECT_NE(boxes[0].find(empty.File("Planet.dat")), std::string::npos) << boxes[0];
    EXPECT_EQ(RunCli(Plus({"body", "VENUS", Evening}, data)).Status, 0);
    const ProgramRun all = RunCli(Plus({"bodies", Evening}, data));
    EXPECT_EQ(all.Status, 0); // 64 bodies are right; the boxes tell of the other
    EXPECT_FALSE(BoxTexts(all.Json()).empty());
    EXPECT_EQ(RunCli({"body", "SATURN", Evening, "--data", MEROV_RUN_DIR}).Status, 0);
}

/// "HH:MM" of "YYYY-MM-DD HH:MM:SS", rounded.
std::string Minute(const QString& time)
{
    const int minutes =
        (time.mid(11, 2).toInt() * 3600 + time.mid(14, 2).toInt() * 60 + time.mid(17).toInt() + 30) / 60;
    return QString("%1:%2").arg(minutes / 60, 2, 10, QChar('0')).arg(minutes % 60, 2, 10, QChar('0')).toStdString();
}

TEST(CliSun, NineTimesOfADay)
{
    const ProgramRun run = RunCli({"sun", "50", "0", "2004-06-21", "10", "--json"});
    EXPECT_EQ(run.Status, 0);
    const QJsonObject result = run.Json();
    EXPECT_EQ(result.keys(), QStringList({"Boxes", "SunEvents"}));
    const std::vector<std::string> expected{"02:36", "03:33", "03:50", "03:57", "12:02",
                                            "20:06", "20:14", "20:31", "21:28"};
    std::vector<std::string> times;
    for (const QJsonValue& value : result["SunEvents"].toArray()) {
        EXPECT_EQ(value.toString().size(), 19);
        EXPECT_TRUE(value.toString().startsWith("2004-06-21 "));
        times.push_back(Minute(value.toString()));
    }
    EXPECT_EQ(times, expected);
    const std::string text = RunCli({"sun", "50", "0", "2004-06-21", "10"}).Out;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 9);
}

TEST(CliSun, NeitherRisesNorSets)
{
    for (const std::string latitude : {"80", "-80", "90"}) {
        const ProgramRun run = RunCli({"sun", latitude, "0", "2004-06-21", "10", "--json"});
        EXPECT_EQ(run.Status, 0) << latitude;
        EXPECT_TRUE(run.Json().contains("SunEvents"));
        EXPECT_TRUE(run.Json()["SunEvents"].isNull()) << latitude;
    }
    EXPECT_EQ(RunCli({"sun", "80", "0", "2004-06-21", "10"}).Out, "The Sun neither rises nor sets on this day.\n");
}

TEST(CliSun, TwilightThatTheSunDoesNotReachIsNull)
{
    const ProgramRun run = RunCli({"sun", "60", "0", "2004-06-21", "10", "--json"});
    EXPECT_EQ(run.Status, 0);
    const QJsonArray events = run.Json()["SunEvents"].toArray();
    ASSERT_EQ(events.size(), 9);
    EXPECT_TRUE(events[0].isNull());
    EXPECT_TRUE(events[1].isString());
    EXPECT_FALSE(BoxTexts(run.Json()).empty());
}

} // namespace
} // namespace merov::test
