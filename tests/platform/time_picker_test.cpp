#include "platform/time_picker.h"
#include "support/qt_text.h"

#include "ephemeris/time_lib.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace merov;
using platform::TimePicker;

TEST(TimePicker, ShowsAndGivesDateTimesInWholeSeconds)
{
    const std::tuple<double, const char*, double> rows[] = {
        {38128.0 - 0.4 / 86400.0, "21 May 2004 00:00:00", 38128.0}, // rounds up over midnight
        {37709.0 + 8999.0 / 86400.0, "29 Mar 2003 02:29:59", 37709.0 + 8999.0 / 86400.0},
        {38074.0 + 2.5 / 24.0, "28 Mar 2004 02:30:00", 38074.0 + 2.5 / 24.0},
        {-100.5, "1 Jan 1900 00:00:00", 2.0}, // the range
        {1e9, "31 Dec 2100 23:59:59", 73415.0 + 86399.0 / 86400.0},
    };
    qputenv("TZ", "Europe/Paris"); // 28 March 2004, 02:00 to 03:00 is no time of day there
    tzset();
    TimePicker picker;
    picker.OnChange = [] { ADD_FAILURE() << "no change by the user"; };
    for (const auto& [value, shown, given] : rows) {
        picker.SetValue(value);
        EXPECT_EQ(picker.text(), shown);
        EXPECT_NEAR(picker.Value(), given, 1e-9) << shown;
    }
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
    bool changed = false;
    first.OnChange = [&changed] { changed = true; };
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClicks(&first, "9"); // no day of two digits begins so: goes on to the month
    QTest::keyClick(&first, Qt::Key_Up);
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_TRUE(changed && window.focusWidget() == &second);
    EXPECT_EQ(ephemeris::FormatIsoDateTime(first.Value()), "2004-06-09 18:00:00");
    QTest::keyClick(&second, Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), &first);
}
