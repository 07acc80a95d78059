#include "platform/system_clock.h"

#include "ephemeris/time_lib.h"
#include "support/fake_clock.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace merov::platform
{
/// The computer in a zone that has no daylight time.
class SystemClockTest : public testing::Test
{
protected:
    SystemClockTest() { SetZone("Asia/Kolkata"); }
    ~SystemClockTest() override { SetZone("UTC"); }
    static void SetZone(const char* zone)
    {
        qputenv("TZ", zone);
        tzset();
    }
    SystemClock clock;
};

TEST_F(SystemClockTest, TellsUtcAndLocalTimeOfOneInstant)
{
    const numeric::Clock::Moment now = clock.Now();
    EXPECT_NEAR((now.Local - now.Utc) * 24.0, 5.5, 1e-6);
    EXPECT_NEAR(now.Utc, 25569.0 + static_cast<double>(QDateTime::currentSecsSinceEpoch()) / 86400.0, 2.0 / 86400.0);
    const numeric::ScopedClock inForce(clock);
    EXPECT_EQ(ephemeris::GmtOffsetDays(), -5.5 / 24.0);
    EXPECT_FALSE(IsDaylightTime());
}

TEST_F(SystemClockTest, RunsTheEventLoopWhileTheCoreWaits)
{
    const numeric::ScopedClock inForce(clock);
    int ticks = 0;
    QTimer timer;
    timer.callOnTimeout([&] { ++ticks; });
    timer.start(10);
    ephemeris::PauseSeconds(0.1F);
    EXPECT_GE(ticks, 3);
}

TEST_F(SystemClockTest, DateTimesGoToQtAndBack)
{
    EXPECT_EQ(QtFromDateTime(38128.75), QDateTime(QDate(2004, 5, 21), QTime(18, 0), Qt::UTC));
    EXPECT_EQ(DateTimeFromQt(QDateTime(QDate(1900, 1, 1), QTime(6, 0), Qt::UTC)), 2.25);
    // A time that has gone through a double comes back to the second.
    const QDateTime late(QDate(2100, 12, 31), QTime(23, 59, 59), Qt::UTC);
    EXPECT_EQ(QtFromDateTime(DateTimeFromQt(late)), late);
    // The fields count, not the instant: 02:30 doesn't exist in Berlin on this day.
    SetZone("Europe/Berlin");
    EXPECT_EQ(QtFromDateTime(DateTimeFromQt(QDateTime(QDate(2004, 3, 28), QTime(2, 30), Qt::UTC))).time(),
              QTime(2, 30));
}

TEST_F(SystemClockTest, StandardBiasStaysThroughTheYear)
{
    const std::pair<const char*, int> cases[] = {{"Europe/Berlin", -60},    {"Europe/Dublin", 0},
                                                 {"America/New_York", 300}, {"Australia/Lord_Howe", -630},
                                                 {"Asia/Kolkata", -330},    {"UTC", 0}};
    for (const auto& [zone, minutes] : cases)
        for (const int month : {1, 7}) {
            const QDateTime at(QDate(2026, month, 10), QTime(12, 0), Qt::UTC);
            EXPECT_EQ(StandardBiasMinutes(QTimeZone(zone), at), minutes) << zone << " " << month;
        }
}

TEST_F(SystemClockTest, DaylightTimeShowsInTheOffsetOnBothSidesOfAChange)
{
    struct Change {
        const char* Zone;
        QDateTime At; ///< UTC, the last second before the clocks change
        bool Before;  ///< daylight time until then
    };
    const auto utc = [](int year, int month, int day, int hour, int minute = 59) {
        return QDateTime(QDate(year, month, day), QTime(hour, minute, 59), Qt::UTC);
    };
    const Change changes[] = {
        {"Europe/Berlin", utc(2026, 3, 29, 0), false},           {"Europe/Berlin", utc(2026, 10, 25, 0), true},
        {"America/New_York", utc(2026, 3, 8, 6), false},         {"America/New_York", utc(2026, 11, 1, 5), true},
        {"Australia/Lord_Howe", utc(2026, 4, 4, 14), true}, // half an hour of daylight time
        {"Australia/Lord_Howe", utc(2026, 10, 3, 15, 29), false}};
    for (const Change& change : changes) {
        SetZone(change.Zone);
        for (const int seconds : {0, 1}) {
            const QDateTime at = change.At.addSecs(seconds);
            const test::FakeClock clockThen(DateTimeFromQt(at), at.toLocalTime().offsetFromUtc() / 86400.0);
            EXPECT_EQ(IsDaylightTime(), change.Before == (seconds == 0))
                << change.Zone << ' ' << at.toString().toStdString();
        }
    }
}

} // namespace merov::platform
