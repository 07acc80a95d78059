#include "platform/time_picker.h"
#include "support/qt_text.h"

#include "ephemeris/time_lib.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace merov;
using platform::TimePicker;

TEST(TimePicker, ShowsAndGivesDateTimesInWholeSeconds)
{
    const struct {
        double Value;
        const char* Shown;
        double Given;
    } rows[] = {
        {ephemeris::JoinDateTime({2004, 5, 21, 18, 2, 15}), "21 May 2004 18:02:15", 38128.0 + 64935.0 / 86400.0},
        {38128.0 - 0.4 / 86400.0, "21 May 2004 00:00:00", 38128.0}, // rounds up over midnight
        {37709.0 + 8999.0 / 86400.0, "29 Mar 2003 02:29:59", 37709.0 + 8999.0 / 86400.0},
        {2.0, "1 Jan 1900 00:00:00", 2.0},
        {-100.5, "1 Jan 1900 00:00:00", 2.0}, // the range
        {73416.0, "31 Dec 2100 23:59:59", 73415.0 + 86399.0 / 86400.0},
        {1e9, "31 Dec 2100 23:59:59", 73415.0 + 86399.0 / 86400.0},
    };
    TimePicker picker;
    int changes = 0;
    picker.OnChange = [&changes] { ++changes; };
    for (const auto& row : rows) {
        picker.SetValue(row.Value);
        EXPECT_EQ(picker.text().toStdString(), row.Shown);
        EXPECT_NEAR(picker.Value(), row.Given, 1e-9) << row.Shown;
    }
    EXPECT_EQ(changes, 0);
}

TEST(TimePicker, HasNoHourThatAZoneSkips)
{
    qputenv("TZ", "Europe/Paris"); // 28 March 2004, 02:00 to 03:00 is no time of day there
    tzset();
    TimePicker picker;
    picker.SetValue(ephemeris::JoinDateTime({2004, 3, 28, 2, 30, 0}));
    EXPECT_EQ(picker.text(), QString("28 Mar 2004 02:30:00"));
    EXPECT_EQ(ephemeris::FormatIsoDateTime(picker.Value()), "2004-03-28 02:30:00");
    qputenv("TZ", "UTC");
    tzset();
}

TEST(TimePicker, TakesWhatIsTypedAndTabLeaves)
{
    QWidget window;
    QVBoxLayout layout(&window);
    TimePicker first;
    TimePicker second;
    layout.addWidget(&first);
    layout.addWidget(&second);
    first.SetValue(38128.75);
    int changes = 0;
    first.OnChange = [&changes] { ++changes; };
    double left = 0.0;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    first.OnLeave = [&] {
        left = first.Value();
        return true;
    };
    QTest::keyClicks(&first, "9"); // no day of two digits begins so: goes on to the month
    QTest::keyClick(&first, Qt::Key_Up);
    EXPECT_GT(changes, 0);
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &second);
    EXPECT_EQ(ephemeris::FormatIsoDateTime(left), "2004-06-09 18:00:00");
    QTest::keyClick(&second, Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), &first);
}
