#include "app/tab_options.h"
#include "numeric/inout_lib.h"
#include "platform/time_picker.h"
#include "sailing/ellipsoid.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

#include <optional>

namespace merov::app
{
namespace
{

class TabOptionsTest : public testing::Test
{
protected:
    TabOptionsTest()
    {
        options.FillEllipsoids();
        options.show();
        options.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&options));
    }
    ~TabOptionsTest() override
    {
        numeric::SetDecimalSeparator(".");
        sailing::SelectEllipsoid(sailing::DefaultEllipsoidIndex);
    }
    template <class Control>
    Control& The(const char* name)
    {
        auto* control = options.findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    void Click(const char* button) { QTest::mouseClick(&The<QPushButton>(button), Qt::LeftButton); }

    /// A click on a header, and what it brings.
    void ClickHeader(int page)
    {
        QTest::mouseClick(&options.Header(), Qt::LeftButton, {}, options.Header().tabRect(page).center());
        QTest::qWait(0);
    }

    /// A tick of the display, if it is on.
    void Tick()
    {
        auto& timer = The<QTimer>("tmrSysTime");
        if (timer.isActive()) QMetaObject::invokeMethod(&timer, "timeout");
    }

    QString LocalTime() { return The<QLineEdit>("txtLocTime").text(); }
    QString SystemTime() { return The<QLineEdit>("txtSysTime").text(); }

    FixInput input;
    test::FakeClock clock{38128.5, 2.0 / 24.0}; // 21 May 2004, 12:00 GMT, two hours east
    test::ScreenBoxes boxes;
    bool mayset = true;
    std::optional<qint64> set;
    TabOptions options{input, [this](qint64 sinceEpoch) {
                           if (mayset) set = sinceEpoch;
                           return mayset;
                       }};
};

TEST_F(TabOptionsTest, EachChoiceOfAnEllipsoidIsInForceAtOnce)
{
    auto& list = The<QComboBox>("cboEllipsoid");
    ASSERT_EQ(list.count(), 20);
    EXPECT_EQ(list.currentText(), "WGS 1984 - 1/298.257223560493");
    list.setFocus();
    QTest::keyClicks(&list, "No");
    EXPECT_EQ(list.currentText(), "Normal Sphere - 0");
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 1e100);
    EXPECT_NEAR(sailing::ActiveEllipsoid().SemiMajorAxisNm, 3437.746770518, 5e-10);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(sailing::ActiveEllipsoidIndex(), 16);
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 298.300000240870);

    numeric::SetDecimalSeparator(",");
    options.FillEllipsoids();
    EXPECT_EQ(list.count(), 20);
    EXPECT_EQ(list.currentText(), "WGS 1984 - 1/298,257223560493");
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 298.257223560493);
}

TEST_F(TabOptionsTest, ButtonsAndLettersTurnThePagesToTheirEnds)
{
    EXPECT_EQ(options.currentIndex(), 0);
    Click("cmdNextTabOptions(0)");
    EXPECT_EQ(options.currentIndex(), 1);
    options.NextTab();
    EXPECT_EQ(options.currentIndex(), options.count() - 1);
    Click("cmdPrevTabOptions(0)");
    options.PrevTab();
    EXPECT_EQ(options.currentIndex(), 0);
    QTest::keyClick(&options, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(options.currentIndex(), 1);

    int ends = 0;
    options.OnEnd = [&ends] { ++ends; };
    Click("cmdEndTabOptions(1)");
    QTest::keyClick(&options, Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(ends, 2);
}

TEST_F(TabOptionsTest, OneEstimatedPositionIsTheSessionsOption)
{
    std::vector<bool> reports;
    options.OnOneEstPos = [&reports](bool one) { reports.push_back(one); };
    options.ShowPage(1);
    auto& box = The<QCheckBox>("ch3OneEstPos(0)");
    EXPECT_FALSE(box.isChecked());
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(input.Entry.OneEstPos);
    EXPECT_EQ(reports, std::vector<bool>{true});

    input.Entry.OneEstPos = false;
    options.ShowOneEstPos();
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(TabOptionsTest, TheClockTicksUntilAFieldTakesTheFocus)
{
    EXPECT_FALSE(The<QTimer>("tmrSysTime").isActive());
    ClickHeader(2);
    EXPECT_EQ(The<QTimer>("tmrSysTime").interval(), 1000);
    EXPECT_EQ(LocalTime(), "14:00:00");
    EXPECT_EQ(SystemTime(), "12:00:00");
    EXPECT_EQ(The<platform::TimePicker>("dtpTime(3)").Value(), 38128.5);
    EXPECT_TRUE(The<QLabel>("lblDST").isVisible()); // the zone of the tests is UTC

    {
        const test::FakeClock atStandardTime;
        Tick();
        EXPECT_EQ(LocalTime(), SystemTime());
        EXPECT_FALSE(The<QLabel>("lblDST").isVisible());
    }
    clock.Advance(2);
    Tick();
    EXPECT_EQ(LocalTime(), "14:00:02");
    EXPECT_EQ(The<platform::TimePicker>("dtpTime(3)").Value(), 38128.5); // as the user left it

    The<platform::TimePicker>("dtpTime(3)").setFocus();
    clock.Advance(2);
    Tick();
    EXPECT_EQ(LocalTime(), "14:00:02");

    Click("cmdPrevTabOptions(1)");
    Click("cmdNextTabOptions(1)");
    EXPECT_EQ(SystemTime(), "12:00:04");
    ClickHeader(0);
    EXPECT_FALSE(The<QTimer>("tmrSysTime").isActive());
}

TEST_F(TabOptionsTest, TheClockIsSetToTheEnteredGmtAndASecond)
{
    ClickHeader(2);
    auto& entry = The<platform::TimePicker>("dtpTime(3)");
    entry.setFocus();
    QTest::keyClick(&entry, Qt::Key_Up); // the day
    QTest::mouseClick(&The<QToolButton>("cmdSetSysTime"), Qt::LeftButton);
    const QDateTime wanted(QDate(2004, 5, 22), QTime(12, 0, 1), Qt::UTC);
    ASSERT_TRUE(set);
    EXPECT_EQ(QDateTime::fromMSecsSinceEpoch(*set, Qt::UTC), wanted);
    EXPECT_TRUE(The<QTimer>("tmrSysTime").isActive());
    EXPECT_EQ(entry.Value(), 38128.5); // of the clock as it now stands

    mayset = false;
    set.reset();
    entry.setFocus();
    QTest::keyClick(&entry, Qt::Key_Up);
    QTest::mouseClick(&The<QToolButton>("cmdSetSysTime"), Qt::LeftButton);
    EXPECT_EQ(boxes.TakeAll().size(), 1U);
    EXPECT_EQ(entry.Value(), 38129.5);
    EXPECT_FALSE(set);
}

TEST_F(TabOptionsTest, NoTextIsCutOff)
{
    for (const int page : {0, 1, 2}) {
        options.ShowPage(page);
        for (const QLabel* label : options.currentWidget()->findChildren<QLabel*>())
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
    }
}

} // namespace
} // namespace merov::app
