#include "ephemeris/time_lib.h"

#include "support/expect.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <ranges>

namespace merov::ephemeris
{
namespace
{

constexpr double Second = 1.0 / 86400.0;

double At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return JoinDateTime({year, month, day, hour, minute, second});
}

// 1 January 2000, noon, is 0; truncations run towards zero before that year.
TEST(Calendar, IsThatOfTheStandardLibraryOnEveryDay)
{
    using namespace std::chrono;
    for (sys_days date = sys_days(1580y / 1 / 1); date < sys_days(2420y / 1 / 1); date += days(1)) {
        const year_month_day civil(date);
        const int year = int(civil.year()), month = int(unsigned(civil.month())), day = int(unsigned(civil.day()));
        const double sinceJ2000 = static_cast<double>((date - sys_days(2000y / 1 / 1)).count());
        ASSERT_EQ(CenturiesFromJ2000(day, month, year, 0.0), (sinceJ2000 - 0.5) / 36525.0) << year << " " << month;
        ASSERT_EQ(CenturiesFromJ2000(day, month, year, 12.0), sinceJ2000 / 36525.0) << year << " " << month;
        ASSERT_EQ(IsLeapYear(year), civil.year().is_leap());
        ASSERT_EQ(At(year, month, day), sinceJ2000 + 36526.0);
        const CivilTime split = SplitDateTime(sinceJ2000 + 36526.0);
        ASSERT_TRUE(split.Year == year && split.Month == month && split.Day == day && split.Hour == 0);
    }
}

TEST(Calendar, EverySecondOfTheDaySplitsToItself)
{
    for (const double day : {-657434.0, -1.0, 0.0, 38128.0, 2958465.0})
        for (int second = 0; second < 86400; second += 7) {
            const CivilTime civil = SplitDateTime(day + second * Second);
            ASSERT_EQ((civil.Hour * 60 + civil.Minute) * 60 + civil.Second, second) << day;
        }
    for (const double beyond : {-657434.001, 2958465.999999, 1e29, -1e29})
        EXPECT_EQ(test::FaultOf([&] { SplitDateTime(beyond); }), numeric::FaultOverflow) << beyond;
}

TEST(SiderealTime, AgreesWithPublishedExamples)
{
    EXPECT_NEAR(GreenwichMeanSiderealTime(0.0), 67310.54841 / 240.0, 1e-10);
    // J. Meeus, Astronomical Algorithms, examples 12.a and 12.b: 10 April 1987 at 0h and 19h 21m.
    EXPECT_NEAR(GreenwichMeanSiderealTime(CenturiesFromJ2000(10, 4, 1987, 0.0)), 197.693195, 5e-7);
    EXPECT_NEAR(GreenwichMeanSiderealTime(CenturiesFromJ2000(10, 4, 1987, 19.35)), 128.7378733, 3e-7);
}

TEST(Clock, GmtIsLocalTimePlusTheOffset)
{
    test::FakeClock clock(At(2004, 5, 22, 5), -0.25); // 23:00 local, six hours behind
    EXPECT_EQ(GmtOffsetDays(), 0.25);
    EXPECT_NEAR(CurrentGmt(), At(2004, 5, 22, 5), 1e-9);
    clock.Advance(3599.9);
    EXPECT_EQ(CurrentGmtHour(), At(2004, 5, 22, 5));
    // A whole hour that a sum left a hair short.
    const test::FakeClock nepal(std::nextafter(At(2004, 5, 22, 5), 0.0), 345.0 / 1440.0);
    EXPECT_EQ(GmtOffsetDays(), -345.0 / 1440.0);
    EXPECT_EQ(CurrentGmtHour(), At(2004, 5, 22, 5));
}

TEST(Clock, PauseYieldsAndEndsAlsoAcrossMidnight)
{
    for (const double instant : {At(2004, 5, 21, 12), At(2004, 5, 21, 23, 59, 59) + 0.9 * Second}) {
        test::FakeClock clock(instant);
        PauseSeconds(0.3f);
        PauseSeconds(0.0f);
        EXPECT_NEAR(clock.Events, 30.5, 1.5); // a 32-bit float holds the end of a day to 8 ms
    }
}

/// The texts between the strokes of a list.
auto Texts(std::string_view list)
{
    return list | std::views::split('|') |
           std::views::transform([](auto part) { return std::string(part.begin(), part.end()); });
}

class DateText : public testing::Test
{
protected:
    ~DateText() override { Use("Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec"); }
    static void Use(std::string_view months)
    {
        std::array<std::string, 12> names;
        std::ranges::copy(Texts(months), names.begin());
        SetMonthNames(names);
    }
    static void UseFrench() { Use("janv.|févr.|mars|avr.|mai|juin|juil.|août|sept.|oct.|nov.|déc."); }
};

TEST_F(DateText, Pictures)
{
    const double instant = At(2004, 5, 3, 8, 2, 15), newYear = At(2003, 12, 31, 23, 59, 59) + 0.6 * Second;
    const struct {
        double Instant;
        const char *Picture, *Text;
    } cases[] = {
        {instant, "d mmm yyyy hh:mm:ss", "3 May 2004 08:02:15"},
        {instant, "dd mmm yyyy hh:mm:ss", "03 May 2004 08:02:15"},
        {instant, "d mmm yyyy hh:mm", "3 May 2004 08:02"},
        {instant + 15 * Second, "d mmm yyyy hh:mm", "3 May 2004 08:03"},
        {instant, "ddmmmyy", "03May04"},
        {instant, "yyyy-mm-dd hh:mm:ss", "2004-05-03 08:02:15"},
        {newYear, "d mmm yyyy hh:mm:ss", "1 Jan 2004 00:00:00"},
        {newYear, "d mmm yyyy", "1 Jan 2004"},
        {At(2003, 12, 31, 23, 59, 30), "d mmm yyyy hh:mm", "1 Jan 2004 00:00"},
        {At(2003, 12, 31, 23, 59, 30), "d mmm yyyy", "31 Dec 2003"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatDateTime(c.Instant, c.Picture), c.Text) << c.Picture;
    EXPECT_EQ(FormatIsoDateTime(At(204, 5, 1, 23, 59, 59) + 0.6 * Second), "0204-05-02 00:00:00");
    UseFrench();
    EXPECT_EQ(FormatDateTime(At(2004, 2, 1), "d mmm yyyy"), "1 févr 2004");
}

TEST_F(DateText, ReadsDatesInTheSystemsAndTheEnglishLanguage)
{
    UseFrench();
    for (const std::string& text :
         Texts("21 août 2004 18:02:15|21 AOÛT 2004 18:02:15|21 Aug 2004 18:02:15|21 august 2004 18:02:15|"
               "  21 aug. 2004  18:02:15 |21-Aug-2004 18:02:15|2004-08-21 18:02:15|21/8/2004 18:02:15|"
               "21.08.2004 18:02:15|August 21, 2004 6:02:15 PM|21 août 2004 06:02:15 pm"))
        EXPECT_EQ(ParseDateTime(text), At(2004, 8, 21, 18, 2, 15)) << text;
    EXPECT_EQ(ParseDateTime("1 févr. 2004"), At(2004, 2, 1));
    EXPECT_EQ(ParseDateTime("29 FEB 2004 00:00"), At(2004, 2, 29));
    EXPECT_EQ(ParseDateTime("5 mai 2004 12:05 am"), At(2004, 5, 5, 0, 5));
    EXPECT_EQ(ParseDateTime("5 juin 1899"), At(1899, 6, 5));
    Use("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月");
    EXPECT_EQ(ParseDateTime("21 12月 2004"), At(2004, 12, 21));
}

TEST_F(DateText, RefusesWhatIsNoDate)
{
    for (const std::string& text :
         Texts("| |hello|30 Feb 2004|29 Feb 2003|31 Apr 2004|0 May 2004|51 May 2004|x1 May 2004|-1 May 2004|1May2004|"
               "1 Mayor 2004|1 May 04|1 May 20045|1 May 0099|1 May 2004 24:00:00|1 May 2004 12:60|1 May 2004 12|"
               "1 May 2004 12:00:|1 May 2004 12:00:00 x|1 May 200412:00|1 May 2004 13:00 pm|1 May 2004 0:00 am|"
               "5/21/2004|12:00:00|1 -/ May 2004|21 May"))
        EXPECT_EQ(ParseDateTime(text), std::nullopt) << text;
}

TEST_F(DateText, IsoFormIsStrict)
{
    EXPECT_EQ(ParseIsoDateTime("2004-05-21 18:30:00"), At(2004, 5, 21, 18, 30));
    EXPECT_EQ(ParseIsoDateTime("2004-05-21", true), At(2004, 5, 21));
    EXPECT_EQ(ParseIsoDateTime("2004-05-21 18:30:00", true), std::nullopt);
    for (const std::string& text :
         Texts("2004-05-21|2004-5-21 18:30:00 |2004/05/21 18:30:00|2004-02-30 18:30:00|2004-05-21T18:30:00|"
               "2004-05-21 24:00:00|2004-05-21 18:30:60|2004-05-21 -8:30:00|0099-05-21 18:30:00"))
        EXPECT_EQ(ParseIsoDateTime(text), std::nullopt) << text;
}

TEST_F(DateText, EveryTimeSurvivesItsText)
{
    for (double day = -657434.0; day < 2958465.0; day += 3571.2345678) {
        const double instant = JoinDateTime(SplitDateTime(day));
        EXPECT_EQ(ParseDateTime(FormatDateTime(instant, "d mmm yyyy hh:mm:ss")), instant);
        EXPECT_EQ(ParseIsoDateTime(FormatIsoDateTime(instant)), instant);
    }
}

} // namespace
} // namespace merov::ephemeris
