#include "ephemeris/time_lib.h"

#include "numeric/fault.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace merov::ephemeris
{
namespace
{

constexpr double Second = 1.0 / 86400.0;

double At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return JoinDateTime({year, month, day, hour, minute, second});
}

TEST(CenturiesFromJ2000Test, ExactAtWholeDays)
{
    const struct {
        int Day, Month, Year;
        double Hours, Days;
    } cases[] = {
        {1, 1, 2000, 12.0, 0.0},       {1, 1, 2000, 0.0, -0.5},      {1, 1, 2001, 0.0, 365.5},
        {1, 1, 1900, 12.0, -36524.0},  {1, 1, 2101, 12.0, 36890.0},  {1, 1, 1999, 12.0, -365.0},
        {1, 1, 1996, 12.0, -1461.0},   {1, 3, 1996, 12.0, -1401.0},  {1, 3, 1997, 12.0, -1036.0},
        {31, 12, 1996, 12.0, -1096.0}, {31, 12, 1997, 12.0, -731.0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CenturiesFromJ2000(c.Day, c.Month, c.Year, c.Hours), c.Days / 36525.0) << c.Day << c.Month << c.Year;
}

TEST(CenturiesFromJ2000Test, AgreesWithTheCalendarOfTheStandardLibraryOnEveryDay)
{
    using namespace std::chrono;
    for (sys_days day = sys_days(1580y / 1 / 1); day < sys_days(2420y / 1 / 1); day += days(1)) {
        const year_month_day civil(day);
        const int month = static_cast<int>(static_cast<unsigned>(civil.month()));
        const int dayOfMonth = static_cast<int>(static_cast<unsigned>(civil.day()));
        const int year = static_cast<int>(civil.year());
        const double sinceNoon = static_cast<double>((day - sys_days(2000y / 1 / 1)).count()) - 0.5;
        ASSERT_EQ(CenturiesFromJ2000(dayOfMonth, month, year, 0.0), sinceNoon / 36525.0) << year << " " << month;
        ASSERT_EQ(IsLeapYear(year), civil.year().is_leap());
        const double dateTime = static_cast<double>((day - sys_days(1899y / 12 / 30)).count());
        ASSERT_EQ(JoinDateTime({year, month, dayOfMonth, 0, 0, 0}), dateTime);
        const CivilTime split = SplitDateTime(dateTime);
        ASSERT_TRUE(split.Year == year && split.Month == month && split.Day == dayOfMonth && split.Hour == 0);
    }
}

TEST(CenturiesFromJ2000Test, ADateTimeCountsInWholeSeconds)
{
    const double midnight = At(2004, 5, 21);
    EXPECT_EQ(CenturiesFromJ2000(midnight), CenturiesFromJ2000(21, 5, 2004, 0.0));
    EXPECT_EQ(CenturiesFromJ2000(midnight + 0.4 * Second), CenturiesFromJ2000(midnight));
    EXPECT_EQ(CenturiesFromJ2000(midnight + 0.6 * Second), CenturiesFromJ2000(midnight + Second));
    EXPECT_EQ(CenturiesFromJ2000(midnight - 0.4 * Second), CenturiesFromJ2000(midnight));
    EXPECT_NEAR(CenturiesFromJ2000(At(2004, 5, 21, 18, 2, 15)) * 36525.0, 1602.251562, 1e-6);
}

TEST(SplitDateTimeTest, RoundsTheWholeInstantBeforeItSplits)
{
    const CivilTime newYear = SplitDateTime(At(2003, 12, 31, 23, 59, 59) + 0.6 * Second);
    EXPECT_TRUE(newYear.Year == 2004 && newYear.Month == 1 && newYear.Day == 1 && newYear.Hour == 0 &&
                newYear.Minute == 0 && newYear.Second == 0);
    for (const double day : {-657434.0, -1.0, 0.0, 38128.0, 2958465.0})
        for (int second = 0; second < 86400; second += 7) {
            const CivilTime civil = SplitDateTime(day + second * Second);
            ASSERT_EQ((civil.Hour * 60 + civil.Minute) * 60 + civil.Second, second) << day;
            ASSERT_NEAR(JoinDateTime(civil), day + second * Second, 1e-9);
        }
}

TEST(SplitDateTimeTest, BeyondTheCalendarIsAnOverflow)
{
    for (const double beyond : {-657434.001, 2958465.999999, 1e29, -1e29}) {
        try {
            SplitDateTime(beyond);
            ADD_FAILURE() << beyond;
        } catch (const numeric::Fault& fault) {
            EXPECT_EQ(fault.Number(), numeric::FaultOverflow);
        }
    }
}

TEST(SiderealTimeTest, AgreesWithPublishedExamples)
{
    EXPECT_NEAR(GreenwichMeanSiderealTime(0.0), 67310.54841 / 240.0, 1e-10);
    // J. Meeus, Astronomical Algorithms, examples 12.a and 12.b: 10 April 1987 at 0h and 19h 21m.
    EXPECT_NEAR(GreenwichMeanSiderealTime(CenturiesFromJ2000(10, 4, 1987, 0.0)), 197.693195, 5e-7);
    EXPECT_NEAR(GreenwichMeanSiderealTime(CenturiesFromJ2000(10, 4, 1987, 19.35)),
                (8 * 3600 + 34 * 60 + 57.0896) / 240.0, 2.1e-7);
}

TEST(ClockTest, GmtIsLocalTimePlusTheOffset)
{
    // 23:00 local, six hours behind.
    test::FakeClock clock(At(2004, 5, 22, 5), -0.25);
    EXPECT_EQ(GmtOffsetDays(), 0.25);
    EXPECT_NEAR(CurrentGmt(), At(2004, 5, 22, 5), 1e-9);
    clock.Advance(3599.9);
    EXPECT_EQ(CurrentGmtHour(), At(2004, 5, 22, 5));
    test::FakeClock nepal(At(2004, 5, 22, 5, 17, 33), 345.0 / 1440.0);
    EXPECT_EQ(GmtOffsetDays(), -345.0 / 1440.0);
}

TEST(ClockTest, EveryWholeHourIsItsOwnHour)
{
    for (int hour = 0; hour < 24; ++hour) {
        const double instant = At(2004, 5, 21, hour);
        const test::FakeClock clock(instant);
        EXPECT_NEAR(CurrentGmtHour(), instant, 1e-9) << hour;
    }
}

TEST(ClockTest, PauseYieldsAndEndsAlsoAcrossMidnight)
{
    const double instants[] = {At(2004, 5, 21, 12), At(2004, 5, 21, 23, 59, 59) + 0.9 * Second};
    for (const double instant : instants) {
        test::FakeClock clock(instant);
        PauseSeconds(0.3f);
        EXPECT_GE(clock.Events, 29);
        EXPECT_LE(clock.Events, 32); // a 32-bit float holds the end of a day to 8 ms
        PauseSeconds(0.0f);
        EXPECT_LE(clock.Events, 32);
    }
}

class DateTextTest : public testing::Test
{
protected:
    ~DateTextTest() override
    {
        SetMonthNames({"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
    }
    static void UseFrench()
    {
        SetMonthNames(
            {"janv.", "févr.", "mars", "avr.", "mai", "juin", "juil.", "août", "sept.", "oct.", "nov.", "déc."});
    }
};

TEST_F(DateTextTest, Pictures)
{
    const double instant = At(2004, 5, 3, 8, 2, 15);
    const struct {
        double Instant;
        const char* Picture;
        const char* Text;
    } cases[] = {
        {instant, "d mmm yyyy hh:mm:ss", "3 May 2004 08:02:15"},
        {instant, "dd mmm yyyy hh:mm:ss", "03 May 2004 08:02:15"},
        {instant, "d mmm yyyy hh:mm", "3 May 2004 08:02"},
        {instant + 15 * Second, "d mmm yyyy hh:mm", "3 May 2004 08:03"},
        {instant, "d mmm yyyy", "3 May 2004"},
        {instant, "ddmmmyy", "03May04"},
        {instant, "hh:mm:ss", "08:02:15"},
        {instant, "yyyy-mm-dd hh:mm:ss", "2004-05-03 08:02:15"},
        {At(2003, 12, 31, 23, 59, 59) + 0.6 * Second, "d mmm yyyy hh:mm:ss", "1 Jan 2004 00:00:00"},
        {At(2003, 12, 31, 23, 59, 30), "d mmm yyyy hh:mm", "1 Jan 2004 00:00"},
        {At(2003, 12, 31, 23, 59, 30), "d mmm yyyy", "31 Dec 2003"},
        {At(2003, 12, 31, 23, 59, 59) + 0.6 * Second, "d mmm yyyy", "1 Jan 2004"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatDateTime(c.Instant, c.Picture), c.Text) << c.Picture;
    UseFrench();
    EXPECT_EQ(FormatDateTime(At(2004, 2, 1), "d mmm yyyy"), "1 févr 2004");
}

TEST_F(DateTextTest, ReadsDatesInTheSystemsAndTheEnglishLanguage)
{
    UseFrench();
    const double instant = At(2004, 8, 21, 18, 2, 15);
    for (const char* text :
         {"21 août 2004 18:02:15", "21 AOÛT 2004 18:02:15", "21 Aug 2004 18:02:15", "21 august 2004 18:02:15",
          "  21 aug. 2004  18:02:15 ", "21-Aug-2004 18:02:15", "2004-08-21 18:02:15", "21/8/2004 18:02:15",
          "21.08.2004 18:02:15", "August 21, 2004 6:02:15 PM", "21 août 2004 06:02:15 pm"})
        EXPECT_EQ(ParseDateTime(text), instant) << text;
    EXPECT_EQ(ParseDateTime("1 févr. 2004"), At(2004, 2, 1));
    EXPECT_EQ(ParseDateTime("29 FEB 2004 00:00"), At(2004, 2, 29));
    EXPECT_EQ(ParseDateTime("5 mai 2004 12:05 am"), At(2004, 5, 5, 0, 5));
    EXPECT_EQ(ParseDateTime("5 juin 1899"), At(1899, 6, 5));
    SetMonthNames({"1月", "2月", "3月", "4月", "5月", "6月", "7月", "8月", "9月", "10月", "11月", "12月"});
    EXPECT_EQ(ParseDateTime("21 12月 2004"), At(2004, 12, 21));
}

TEST_F(DateTextTest, RefusesWhatIsNoDate)
{
    for (const char* text : {"",
                             " ",
                             "hello",
                             "30 Feb 2004",
                             "29 Feb 2003",
                             "31 Apr 2004",
                             "0 May 2004",
                             "51 May 2004",
                             "x1 May 2004",
                             "-1 May 2004",
                             "1May2004",
                             "1 Mayor 2004",
                             "1 May 04",
                             "1 May 20045",
                             "1 May 0099",
                             "1 May 2004 24:00:00",
                             "1 May 2004 12:60",
                             "1 May 2004 12",
                             "1 May 2004 12:00:",
                             "1 May 2004 12:00:00 x",
                             "1 May 200412:00",
                             "1 May 2004 13:00 pm",
                             "1 May 2004 0:00 am",
                             "5/21/2004",
                             "12:00:00",
                             "1 -/ May 2004",
                             "21 May"})
        EXPECT_EQ(ParseDateTime(text), std::nullopt) << text;
}

TEST_F(DateTextTest, IsoFormIsStrict)
{
    EXPECT_EQ(ParseIsoDateTime("2004-05-21 18:30:00"), At(2004, 5, 21, 18, 30));
    EXPECT_EQ(ParseIsoDateTime("2004-05-21", true), At(2004, 5, 21));
    EXPECT_EQ(ParseIsoDateTime("2004-05-21"), std::nullopt);
    EXPECT_EQ(ParseIsoDateTime("2004-05-21 18:30:00", true), std::nullopt);
    for (const char* text :
         {"2004-5-21 18:30:00 ", "2004/05/21 18:30:00", "2004-02-30 18:30:00", "2004-05-21T18:30:00",
          "2004-05-21 24:00:00", "2004-05-21 18:30:60", "2004-05-21 -8:30:00", "0099-05-21 18:30:00"})
        EXPECT_EQ(ParseIsoDateTime(text), std::nullopt) << text;
    EXPECT_EQ(FormatIsoDateTime(At(204, 5, 1, 23, 59, 59) + 0.6 * Second), "0204-05-02 00:00:00");
}

TEST_F(DateTextTest, EveryTimeSurvivesItsText)
{
    for (double day = -657434.0; day < 2958465.0; day += 3571.2345678) {
        const double instant = JoinDateTime(SplitDateTime(day));
        EXPECT_EQ(ParseDateTime(FormatDateTime(instant, "d mmm yyyy hh:mm:ss")), instant);
        EXPECT_EQ(ParseIsoDateTime(FormatIsoDateTime(instant)), instant);
    }
}

} // namespace
} // namespace merov::ephemeris
