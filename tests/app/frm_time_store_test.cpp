#include "app/frm_time_store.h"

#include "numeric/inout_lib.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

const std::string NotNumeric = " Error in input data|Please check your clock correction.|This must be a numeric value.";
const std::string NotNegative = " Error in input data|Please check your clock correction.|This must be a negative "
                                "value|(time spent between the observation and the data entry).";

/// The form over its window, at 21 May 2004, 12:00:00 GMT.
class FrmTimeStoreTest : public testing::Test
{
protected:
    FrmTimeStoreTest()
    {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// Opens the form, does `steps` with it and leaves by its close box, unless they have closed it.
    void Open(const std::function<void()>& steps)
    {
        QTimer::singleShot(0, [&] {
            ASSERT_TRUE(QTest::qWaitFor([this] { return form.isActiveWindow(); }));
            steps();
            form.close();
        });
        form.Open();
    }
    QLineEdit& Field(const char* name) { return *form.findChild<QLineEdit*>(name); }
    QString Corrected() { return Field("txtGMTCorr").text(); }
    void Enter(const QString& correction)
    {
        Field("txtCorr").setFocus();
        Field("txtCorr").selectAll();
        QTest::keyClicks(&Field("txtCorr"), correction);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(form.focusWidget(), key, modifiers);
    }

    test::FakeClock clock;
    test::ScreenBoxes boxes;
    QWidget window;
    double stored = 0.0;
    FrmTimeStore form{stored, &window};
};

TEST_F(FrmTimeStoreTest, StoresTheTimeLessTheDelay)
{
    Open([this] {
        EXPECT_EQ(Field("txtGMT").text(), "21 May 2004 12:00:00");
        EXPECT_EQ(Corrected(), "21 May 2004 11:59:45");
        clock.Advance(30.0); // the moment of the capture stands
        Press(Qt::Key_Return);
    });
    EXPECT_NEAR(stored * 86400.0, (38128.5 - 15.0 / 86400.0) * 86400.0, 1e-3);
    Open([this] {
        Enter("0");
        Press(Qt::Key_Tab);
        EXPECT_EQ(Corrected(), "21 May 2004 12:00:30");
        EXPECT_EQ(platform::FieldColour(Field("txtCorr")), QColor(0, 255, 0));
        QTest::mouseClick(form.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    EXPECT_NEAR(stored * 86400.0, 38128.5 * 86400.0 + 30.0, 1e-3) << "in place of the first";
    Open([this] {
        EXPECT_EQ(Field("txtCorr").text(), "0") << "the last correction";
        Enter("-20");
    });
    EXPECT_NEAR(stored * 86400.0, 38128.5 * 86400.0 + 30.0, 1e-3) << "the close box stores nothing";
    Open([this] { EXPECT_EQ(Field("txtCorr").text(), "-15"); });
}

TEST_F(FrmTimeStoreTest, RefusedCorrectionsAreNeverStored)
{
    const std::pair<const char*, std::string> refused[] = {
        {"abc", NotNumeric}, {"", NotNumeric}, {"5", NotNegative}, {"999", NotNegative}};
    for (const auto& [text, box] : refused)
        Open([&] {
            const std::function<void()> ways[] = {
                [this] { Press(Qt::Key_Return); }, [this] { Press(Qt::Key_O, Qt::AltModifier); },
                [this] { QTest::mouseClick(form.findChild<QPushButton*>("cmdOK"), Qt::LeftButton); },
                [this] { Press(Qt::Key_Tab); }, [this] { form.findChild<QPushButton*>("cmdOK")->click(); }};
            for (const auto& way : ways) {
                Enter(text);
                if (*text == 0) Field("txtCorr").clear();
                way();
                EXPECT_EQ(boxes.TakeOne(), box) << text;
                EXPECT_TRUE(form.isVisible() && Field("txtCorr").hasFocus());
                EXPECT_EQ(Field("txtCorr").text(), text);
            }
        });
    EXPECT_EQ(stored, 0.0);
}

TEST_F(FrmTimeStoreTest, StepsEndAtTheLimitsAndMoveTheDate)
{
    clock.Advance(43210.0); // 00:00:10 of the next day
    Open([this] {
        EXPECT_EQ(Corrected(), "21 May 2004 23:59:55");
        const auto arrows = form.findChildren<QToolButton*>();
        QTest::mouseClick(arrows[0], Qt::LeftButton);
        EXPECT_EQ(Field("txtCorr").text() + Corrected(), "-1421 May 2004 23:59:56");
        for (int i = 0; i < 20; ++i)
            Press(Qt::Key_Up);
        EXPECT_EQ(Field("txtCorr").text(), "0");
        Enter("-119.5");
        for (int i = 0; i < 3; ++i)
            QTest::mouseClick(arrows[1], Qt::LeftButton);
        EXPECT_EQ(Field("txtCorr").text() + Corrected(), "-12021 May 2004 23:58:10");
        numeric::SetDecimalSeparator(",");
        Enter("-500,6"); // typing may go beyond
        Press(Qt::Key_Tab);
        numeric::SetDecimalSeparator(".");
        EXPECT_EQ(Corrected(), "21 May 2004 23:51:49");
    });
}

} // namespace
} // namespace merov::app
