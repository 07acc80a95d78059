#include "cli/command_line.h"

/// The commands gc and eta.

namespace merov::test
{
namespace
{

const std::string Atlantic = "gc 38.5 -9.5 40.5 -73.8"; // Lisbon to New York

TEST(CliSailings, GreatCircle)
{
    // Values of GeographicLib on WGS 1984.
    const QJsonObject plain = ExpectJson(Atlantic, 0, R"({"VertexLat":44.313248, "DepartureCourse":293.8512,
        "ArrivalCourse":250.2532, "RhumbCourse":272.299, "Sum":null, "Waypoints":[], "Composite":{"IsComposite":false}})",
                                         0.01);
    EXPECT_EQ(Keys(plain), "ArrivalCourse Boxes Composite CotVertex DepartureCourse Period RhumbCourse RhumbDistance "
                           "Sum Total VertexDistance VertexLat VertexLong Waypoints");
    EXPECT_NEAR(plain["Total"].toDouble(), 2920.3308, 0.1);
    EXPECT_NEAR(plain["RhumbDistance"].toDouble(), 2988.3661, 0.2);
    EXPECT_NEAR(plain["VertexDistance"].toDouble(), 1621.38, 1.0);

    const QJsonObject cut = ExpectJson(Atlantic + " --interval 10", 0);
    const QJsonArray rows = cut["Waypoints"].toArray();
    ASSERT_EQ(rows.size(), 9); // both ends, and the whole degrees 10, 20, .. 70 west
    EXPECT_EQ(Keys(rows[0].toObject()), "Course Distance Lat Long Run ToGo");
    EXPECT_NEAR(rows[4]["Long"].toDouble(), -40.0, 1e-9);
    EXPECT_NEAR(rows[4]["Lat"].toDouble(), 44.20915, 1e-3);
    EXPECT_NEAR(rows[8]["Run"].toDouble(), cut["Sum"].toDouble(), 1e-9);
    EXPECT_GT(cut["Sum"].toDouble(), cut["Total"].toDouble());
}

TEST(CliSailings, LimitsAndRefusals)
{
    const QJsonObject limited = ExpectJson(Atlantic + " --max-lat -42", 0, R"({"Composite":{"IsComposite":true,
        "LimitLat":42, "LimitCourse":270}})");
    EXPECT_EQ(Keys(limited["Composite"].toObject()), "IsComposite LegDist LimitCourse LimitLat TouchLong1 TouchLong2");
    EXPECT_GT(limited["Total"].toDouble(), 2920.3308 + 1.0);
    ExpectJson(Atlantic + " --max-lat 40", 1, R"({"Total":null, "Sum":null, "Composite":null, "Waypoints":null,
        "Boxes":[" Error in input data|The maximum latitude is smaller than the arrival latitude."]})");
    ExpectJson(Atlantic + " --interval 0", 1, R"({"VertexLat":null, "Total":null,
        "Boxes":[" Error in input data|You entered a longitude interval of 00°00'..."]})");
    ExpectJson("gc 10 20 10 20", 1, R"({"VertexLat":null, "Boxes":[" Departure = Arrival ?|Same departure..."]})");
    // Along the equator there is no vertex: the trap tells, and what else there is comes.
    ExpectJson("gc 0 10 0 60", 0, R"({"RhumbCourse":90, "Boxes":[" ERROR REPORT|..."]})", 1e-6);
}

TEST(CliSailings, Files)
{
    const ScratchFolder scratch;
    const std::string report = scratch.File("track.txt"), route = scratch.File("track.gpx");
    ExpectText(Atlantic + " --interval 10 --report " + report + " --gpx " + route, 0, "Rhumb line", "");
    EXPECT_NE(ReadBytes(report).find("End of great circle calculation by Merov 1.2"), std::string::npos);
    const std::string gpx = ReadBytes(route);
    EXPECT_EQ(gpx.rfind("<?xml", 0), 0U);
    EXPECT_NE(gpx.find("<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\""), std::string::npos) << gpx;
    EXPECT_NE(gpx.find("<rtept lat=\"38.5000000\" lon=\"-9.5000000\">"), std::string::npos) << gpx;
    EXPECT_NE(gpx.find("<name>WP009</name>"), std::string::npos);
    ExpectText("gc 10 170 20 180 --interval 5 --gpx " + route, 0, "Departure", "");
    EXPECT_NE(ReadBytes(route).find("lon=\"-180.0000000\""), std::string::npos); // not 180
}

TEST(CliSailings, TimesOfArrival)
{
    // 30 miles at 12 knots: two and a half hours, from 22:50 GMT.
    const QJsonObject result = ExpectJson("eta 30 12 15 2 2026-05-01~23:50:00 --zone 1 --arrival-zone 5.75", 0,
                                          R"({"Rows":[{"Speed":12, "Gmt":"2026-05-02 01:20:00",
        "Local":"2026-05-02 07:05:00"}, {"Speed":14, "Gmt":"2026-05-02 00:58:34"}, {"Speed":15, "Gmt":"2026-05-02 00:50:00"}]})");
    EXPECT_EQ(Keys(result), "Boxes Rows");
    ExpectJson("eta 30 12 15 2 2026-05-01~23:50:00 --round 96", 0, R"({"Rows":[{"Gmt":"2026-05-02 02:15:00"},
        {"Gmt":"2026-05-02 02:00:00"}, {"Gmt":"2026-05-02 01:45:00"}]})");
}

} // namespace
} // namespace merov::test
