#include "platform/message_boxes.h"
#include "support/qt_text.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using merov::platform::AskUser;
using namespace merov::numeric;

namespace
{

/// Shows a real box and presses a button of it, or Escape for NoButton.
BoxAnswer Press(const Box& box, QMessageBox::StandardButton button, const std::function<void(QMessageBox&)>& look = {})
{
    QTimer::singleShot(0, [button, look] {
        auto* window = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        if (look) look(*window);
        if (button == QMessageBox::NoButton)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            QTest::mouseClick(window->button(button), Qt::LeftButton);
    });
    return AskUser(box);
}

} // namespace

TEST(MessageBoxes, AnswersWhatWasPressed)
{
    const std::tuple<BoxButtons, QMessageBox::StandardButton, BoxAnswer> rows[] = {
        {BoxButtons::Ok, QMessageBox::Ok, BoxAnswer::Ok},
        {BoxButtons::Ok, QMessageBox::NoButton, BoxAnswer::Ok},
        {BoxButtons::YesNo, QMessageBox::Yes, BoxAnswer::Yes},
        {BoxButtons::YesNo, QMessageBox::No, BoxAnswer::No},
        {BoxButtons::YesNo, QMessageBox::NoButton, BoxAnswer::No},
        {BoxButtons::RetryCancel, QMessageBox::Retry, BoxAnswer::Retry},
        {BoxButtons::RetryCancel, QMessageBox::NoButton, BoxAnswer::Cancel}};
    for (const auto& [buttons, press, answer] : rows)
        EXPECT_EQ(Press({"Title", {"line"}, BoxIcon::Question, buttons}, press), answer) << press;
}

TEST(MessageBoxes, ShowsTitleLinesAndIconAndGivesTheActivationBack)
{
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const std::pair<BoxIcon, QMessageBox::Icon> icons[] = {{BoxIcon::Warning, QMessageBox::Warning},
                                                           {BoxIcon::Error, QMessageBox::Critical},
                                                           {BoxIcon::Information, QMessageBox::Information},
                                                           {BoxIcon::Question, QMessageBox::Question}};
    for (const auto& [icon, shown] : icons)
        Press({" Error in input data", {"Latitude > 90°.", "<b>not bold</b>"}, icon, BoxButtons::Ok}, QMessageBox::Ok,
              [shown = shown](QMessageBox& box) {
                  EXPECT_EQ(box.windowTitle(), " Error in input data");
                  EXPECT_EQ(box.text(), "Latitude > 90°.\n<b>not bold</b>");
                  EXPECT_EQ(box.textFormat(), Qt::PlainText);
                  EXPECT_EQ(box.icon(), shown);
              });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}
