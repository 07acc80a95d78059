#include "cli/command_line.h"

namespace merov::test
{
namespace
{

TEST(CliStars, ListAndSky)
{
    const std::string evening = "stars 48 -12 2004-05-21~20:45:00 10";
    const QJsonArray list = ExpectJson(evening, 0)["Rows"].toArray();
    const QJsonArray all = ExpectJson(evening + " --all", 0)["Rows"].toArray();
    ASSERT_EQ(all.size(), list.size()); // the Sun has set
    EXPECT_EQ(Keys(list[0].toObject()), "Altitude Azimuth Body Magnitude Picked");
    for (qsizetype i = 1; i < list.size(); ++i) {
        EXPECT_LE(list[i - 1]["Magnitude"].toDouble(), list[i]["Magnitude"].toDouble());
        EXPECT_LE(all[i - 1]["Azimuth"].toDouble(), all[i]["Azimuth"].toDouble() + 1);
        const double offNorth = list[i]["Altitude"].toDouble() - 48;
        EXPECT_TRUE(list[i]["Body"] != "POLARIS" || std::abs(offNorth) < 1) << offNorth;
    }
    ExpectText(evening, 0, "\nVEGA           +0.1     056°    22°02'  picked\n", "");
    ExpectText(evening + " --all", 0, "\nVEGA           +0.1     056°    22°02'\n", "");
    ExpectText("stars 48 -12 2004-05-21~12:30:00 10 --all", 0, "\nSUNLOW        -26.9 ", "");
    for (const std::string words : {"stars 48 -12", "stars 48 0 2004-05-21 10", "stars 48 0 2004-05-21~20:30:00 -1"})
        EXPECT_EQ(RunCli(words).Status, 2) << words;
}

} // namespace
} // namespace merov::test
