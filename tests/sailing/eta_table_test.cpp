#include "sailing/eta_table.h"

#include "ephemeris/time_lib.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace merov::sailing
{
namespace
{

using ephemeris::FormatIsoDateTime;

constexpr double May21 = 38128.0; // 2004

std::string Gmt(double time, EtaInput input)
{
    input.DepartureTime = time;
    return FormatIsoDateTime(EtaTable(input).at(0).Gmt);
}

TEST(EtaTable, HasARowForEachSpeedAndEndsAtTheGreatest)
{
    struct Case {
        double Min, Max, Interval;
        std::vector<double> Speeds;
        int Blank = 0;
    };
    for (const Case& c :
         {Case{10, 24, 3, {10, 13, 16, 19, 22, 24}}, Case{10, 12.5, 1, {10, 11, 12, 12.5}}, Case{12, 12, 0.5, {12}},
          Case{10, 11, 0.5, {10, 10.5, 11}}, Case{10, 10.3, 0.1, {10, 10.1, 10.2, 10.3}, 1},
          Case{10, 11, 0.1, {10, 10.1, 10.2, 10.3, 10.4, 10.5, 10.6, 10.7, 10.8, 10.9, 11}},
          Case{10, 11, 0.33, {10, 10.33, 10.66, 10.99, 11}}}) {
        const EtaInput input{.MinSpeed = c.Min, .MaxSpeed = c.Max, .SpeedInterval = c.Interval};
        std::vector<double> speeds;
        for (const EtaRow& row : EtaTable(input))
            speeds.push_back(row.Speed);
        EXPECT_EQ(speeds, c.Speeds);
        EXPECT_EQ(EtaRowCount(input), static_cast<int>(c.Speeds.size()) + c.Blank) << c.Min << " to " << c.Max;
    }
    EXPECT_EQ(EtaRowCount({}), 29);
    EXPECT_EQ(EtaTable({}).back().Speed, 24.0);
}

TEST(EtaTable, RoundsTheArrivalInGmtAndAgainInLocalTime)
{
    constexpr double Minute = 1.0 / 1440.0, Second = 1.0 / 86400.0;
    const EtaInput west{.Distance = 30.0, .MinSpeed = 12.0, .DepartureZone = 1.0}, quarters{.EtaRounding = 96.0};
    EXPECT_EQ(Gmt(May21 + 1430.0 * Minute, west), "2004-05-22 01:20:00");
    EXPECT_EQ(Gmt(May21 + 7.51 * Second, {}), "2004-05-21 00:00:08"); // no distance
    EXPECT_EQ(Gmt(May21 + 607.0 * Minute + 29.0 * Second, quarters), "2004-05-21 10:00:00");
    EXPECT_EQ(Gmt(May21 + 607.0 * Minute + 31.0 * Second, quarters), "2004-05-21 10:15:00");
    const EtaInput local{.DepartureTime = May21 + 604.0 * Minute, .ArrivalZone = 5.75, .EtaRounding = 240.0};
    const EtaRow row = EtaTable(local).at(0); // 10:06 and 15:51, which the grain of 6 minutes rounds up
    EXPECT_EQ(FormatIsoDateTime(row.Gmt), "2004-05-21 10:06:00");
    EXPECT_EQ(FormatIsoDateTime(row.Local), "2004-05-21 15:54:00");
}

TEST(EtaTable, EndsInTheTrapWithoutSpeedsOrWithTooMany)
{
    test::BoxRecorder boxes;
    const test::FakeClock clock;
    numeric::LastError journal;
    const std::string box = " ERROR REPORT|An error occured in the RL/GC/ETA subroutine.|The program will try to "
                            "resume execution|but please report the following error:|";
    for (const EtaInput& input : {EtaInput{.MinSpeed = 12.0, .MaxSpeed = 12.0, .SpeedInterval = 0.0},
                                  EtaInput{.SpeedInterval = 1e-9}, EtaInput{.MinSpeed = 0.0}}) {
        const EtaResult result = RunEta(input, journal);
        EXPECT_EQ(boxes.TakeOne(), box + (input.SpeedInterval == 1e-9 ? "Overflow." : "Division by zero."));
        EXPECT_TRUE(result.Rows.empty());
        EXPECT_EQ(result.RowCount, input.MinSpeed == 0.0 ? 49 : 0);
    }
}

} // namespace
} // namespace merov::sailing
