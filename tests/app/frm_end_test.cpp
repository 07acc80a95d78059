#include "app/frm_end.h"

#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace merov::app
{
namespace
{

using Answer = FrmEnd::Answer;
using namespace std::chrono_literals;

/// Asks and lets `act` close the dialog.
Answer AskAnd(FrmEnd& form, const std::function<void()>& act)
{
    QTimer::singleShot(20ms, &form, act);
    const Answer answer = form.Ask();
    EXPECT_FALSE(form.findChild<QTimer*>("tmrQuit")->isActive());
    return answer;
}

TEST(FrmEnd, AnswersByButtonAndKeyAndTheCloseBoxKeepsTheLastOne)
{
    QWidget window;
    FrmEnd form(&window);
    auto* const yes = form.findChild<QPushButton*>("cmdYes");
    auto* const no = form.findChild<QPushButton*>("cmdNo");
    const auto closeBox = [&] { form.close(); };
    EXPECT_EQ(AskAnd(form, closeBox), Answer::None);
    EXPECT_EQ(AskAnd(form, [&] { QTest::keyClick(&form, Qt::Key_Y, Qt::AltModifier); }), Answer::Yes);
    EXPECT_EQ(AskAnd(form, closeBox), Answer::Yes);
    EXPECT_EQ(AskAnd(form, [&] { QTest::keyClick(&form, Qt::Key_Escape); }), Answer::No);
    EXPECT_EQ(AskAnd(form, closeBox), Answer::No);
    EXPECT_EQ(AskAnd(form, [&] { QTest::mouseClick(yes, Qt::LeftButton); }), Answer::Yes);
    const auto returnAtOnce = [&] {
        EXPECT_EQ(form.focusWidget(), no);
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    };
    EXPECT_EQ(AskAnd(form, returnAtOnce), Answer::No);
}

TEST(FrmEnd, ReminderBlinks)
{
    FrmEnd form(nullptr);
    auto* const blink = form.findChild<QTimer*>("tmrQuit");
    EXPECT_EQ(blink->interval(), 1000);
    const auto* const reminder = form.findChild<QLabel*>("lblReminder");
    const auto colour = [&] { return reminder->palette().color(QPalette::WindowText); };
    AskAnd(form, [&] {
        EXPECT_EQ(colour(), QColor(Qt::red));
        blink->setInterval(10);
        EXPECT_TRUE(QTest::qWaitFor([&] { return colour() == QColor(Qt::black); }, 1000));
        EXPECT_TRUE(QTest::qWaitFor([&] { return colour() == QColor(Qt::red); }, 1000));
        form.close();
    });
}

} // namespace
} // namespace merov::app
