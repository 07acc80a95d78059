#include "cli/command_line.h"

#include <QTime>

#include <algorithm>
#include <filesystem>

/// The commands body, bodies, sun, rhumb and convert.

namespace merov::test
{
namespace
{

const std::string Evening = " 2004-05-21~18:00:00";

TEST(CliBodies, OneBody)
{
    ExpectJson("body RIGIL~KENT" + Evening, 0, R"({"Distance":272000, "Magnitude":0, "EclLatitude":null})");
    // By the mean elements of the orbits of Venus and the Earth.
    const char* venus = R"({"EclLatitude":3.333, "EclLongitude":85.87, "HelioDistance":0.724})";
    ExpectJson("body VENUS" + Evening, 0, venus, 0.02);
    ExpectText("body VEGA" + Evening, 0, "GHA 230°26'.2  Dec 38°47'.0 N", "");
    for (const std::string code : {"vega", "SUN", "", "VEGA~"})
        ExpectText("body " + code + Evening, 1, "", "is no body code");
    ExpectJson("body vega" + Evening, 1, R"({"GHA":null, "Magnitude":null, "Error":"\"vega\" is no body code."})");
}

TEST(CliBodies, AllBodiesAtOnce)
{
    const QJsonArray bodies = ExpectJson("bodies" + Evening, 0)["Bodies"].toArray();
    ASSERT_EQ(bodies.size(), 66);
    EXPECT_EQ(bodies[0]["Code"].toString(), "ACAMAR");
    EXPECT_EQ(bodies[65]["Code"].toString(), "ZUBEN'UBI");
    int planets = 0;
    for (const QJsonValue& value : bodies) {
        QJsonObject body = value.toObject();
        const std::string code = body.take("Code").toString().toStdString();
        for (const char* key : {"GHA", "Declination", "Distance", "Magnitude"})
            EXPECT_TRUE(body[key].isDouble()) << code << key;
        const bool planet = code == "VENUS" || code == "MARS" || code == "JUPITER" || code == "SATURN";
        for (const char* key : {"HelioDistance", "EclLatitude", "EclLongitude"})
            EXPECT_TRUE(planet ? body[key].isDouble() : body[key].isNull()) << code << key;
        planets += planet;
        if (!planet && !code.starts_with("MOON") && code != "ALNA'IR") continue;
        body["Boxes"] = QJsonArray();
        EXPECT_EQ(ExpectJson("body " + code + Evening, 0), body);
    }
    EXPECT_EQ(planets, 4);
    const std::string text = RunCli("bodies" + Evening).Out;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 67);
}

TEST(CliBodies, MissingSeriesOfSaturn)
{
    const ScratchFolder empty;
    const std::string data = Evening + " --data " + empty.File("");
    ExpectText("body SATURN" + data, 1, "SATURN", empty.File("Planet.dat"));
    ExpectJson("body VENUS" + data, 0);
    ExpectText("bodies" + data, 0, "VENUS", empty.File("Planet.dat")); // the others are right
    ExpectJson("body SATURN" + Evening + " --data " MEROV_RUN_DIR, 0);
}

TEST(CliSun, NineTimesOfADay)
{
    const std::string day = "sun 50 0 2004-06-21 10";
    std::string minutes;
    for (const QJsonValue& value : ExpectJson(day, 0)["SunEvents"].toArray()) {
        EXPECT_TRUE(value.toString().startsWith("2004-06-21 "));
        const QTime time = QTime::fromString(value.toString().mid(11), "HH:mm:ss");
        minutes += time.addSecs(30).toString("HH:mm ").toStdString();
    }
    EXPECT_EQ(minutes, "02:36 03:33 03:50 03:57 12:02 20:06 20:14 20:31 21:28 ");
    const std::string text = RunCli(day).Out;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 9);
}

TEST(CliSun, WhatDoesNotHappenIsNull)
{
    ExpectJson("sun 80 0 2004-06-21 10", 0, R"({"SunEvents":null})");
    ExpectJson("sun -80 0 2004-06-21 10", 0, R"({"SunEvents":null})");
    ExpectText("sun 80 0 2004-06-21 10", 0, "The Sun neither rises nor sets on this day.\n", "");
    // In the white nights the Sun does not reach 9 degrees below the horizon.
    ExpectJson("sun 60 0 2004-06-21 10", 0, R"({
        "SunEvents": [null, "2004-06-21 02:0...", "...", "...", "2004-06-21 12:0...", "...", "...", "...", null],
        "Boxes": [" Error in Arc Cosinus routine|...", " Error in mathematical routine|...", "..."]})");
}

TEST(CliRhumb, FourProblemsOfOneLine)
{
    const QJsonObject line = ExpectJson("rhumb direct -40 -175 225 600", 0, R"({"Lat2":-47.07, "Long2":175.2})", 0.1);
    const std::string lat2 = std::to_string(line["Lat2"].toDouble());
    const std::string long2 = std::to_string(line["Long2"].toDouble());
    const std::string expected =
        R"({"Lat1":-40, "Long1":-175, "Course":225, "Distance":600, "Lat2":)" + lat2 + R"(, "Long2":)" + long2 + "}";
    ExpectJson("rhumb inverse -40 -175 " + lat2 + " " + long2, 0, expected, 1e-3);
    ExpectJson("rhumb to-latitude -40 -175 225 " + lat2, 0, expected, 1e-3);
    ExpectJson("rhumb to-longitude -40 -175 225 " + long2, 0, expected, 1e-3);
    ExpectJson("rhumb to-longitude -40 -175 225 " + long2 + " 590", 0, expected, 1e-3);
}

TEST(CliRhumb, Ellipsoids)
{
    // Arc of the meridian from the equator to 10 degrees: 1105854.83 m on WGS 1984, 600 miles on a sphere.
    ExpectJson("rhumb inverse 0 -8.5 10 -8.5", 0, R"({"Distance":597.1138, "Course":360})", 1e-3);
    ExpectJson("rhumb inverse 0 -8.5 10 -8.5 --ellipsoid 15", 0, R"({"Distance":600, "Course":360})", 1e-6);
}

TEST(CliRhumb, RefusalsAndFaultsKeepWhatTheRoutineSet)
{
    const std::string south =
        "The arrival latitude is North of the departure latitude but your course is headed to the South.";
    ExpectJson("rhumb to-latitude 40 -10 135 50", 1,
               R"({"Lat2":50, "Long2":0, "Distance":0, "Boxes":[" Error in nautical routine|)" + south + "|...\"]}");
    ExpectJson(
        "rhumb to-longitude 40 -10 45 -10", 1,
        R"({"Lat2":40, "Distance":0, "Boxes":[" Error in nautical routine|You have entered 2 same longitudes..."]})");
    // A course due north never meets another meridian.
    ExpectJson("rhumb to-longitude 40 -10 0 20", 1, R"({"Lat2":null, "Error":"Division by zero."})");
    ExpectText("rhumb to-latitude 40 -10 135 50", 1, "40°00'.0 N", south);
    // A track over a pole is told of and done.
    ExpectJson("rhumb direct 60 20 0 2000", 0,
               R"({"Lat2":90, "Long2":0, "Boxes":["Special case in nautical routine|..."]})");
}

TEST(CliConvert, ThreeFormsGiveOneFileByteForByte)
{
    const ScratchFolder scratch;
    for (const std::string form : {"two_sights.obs", "old_form_1_0.obs", "old_form_0_9.obs"}) {
        ExpectJson("convert " + form + " " + scratch.File("out.obs"), 0);
        EXPECT_EQ(ReadBytes(scratch.File("out.obs")), ReadBytes("two_sights.obs")) << form;
    }
    const std::string own = scratch.Write("own.obs", ReadBytes("old_form_0_9.obs"));
    ExpectText("convert " + own + " " + own, 0, "File " + own + " saved.\n", "");
    EXPECT_EQ(ReadBytes(own), ReadBytes("two_sights.obs"));
}

TEST(CliConvert, FailureLeavesTheOldFileWhole)
{
    const ScratchFolder scratch;
    const std::string target = scratch.Write("old.obs", "an old file");
    const std::string damaged = scratch.Write("damaged.obs", "#2004-05-21#\r\n");
    const auto expectOld = [&] {
        EXPECT_EQ(ReadBytes(target), "an old file");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.File("")), {}), 2);
    };
    ExpectJson("convert " + damaged + " " + target, 1, R"({"Boxes":["File unreadable|..."]})");
    expectOld();
    ExpectJson("convert two_sights.obs " + scratch.File("nosuch/out.obs"), 1,
               R"({"Boxes":[" File access error|..."]})");
    ExpectJson("convert two_sights.obs " + scratch.File(""), 1, R"({"Boxes":[" File access error|..."]})");
    // A medium without room: nothing can be written to any file.
    ExpectText("convert two_sights.obs " + target, 1, "", "File access error", "trap '' XFSZ; ulimit -f 0");
    expectOld();
}

} // namespace
} // namespace merov::test
