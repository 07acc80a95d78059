#include "platform/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using merov::platform::AskUser;
using merov::platform::MessageBoxes;
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
    const struct {
        BoxButtons Buttons;
        QMessageBox::StandardButton Press;
        BoxAnswer Answer;
    } rows[] = {
        {BoxButtons::Ok, QMessageBox::Ok, BoxAnswer::Ok},
        {BoxButtons::Ok, QMessageBox::NoButton, BoxAnswer::Ok},
        {BoxButtons::YesNo, QMessageBox::Yes, BoxAnswer::Yes},
        {BoxButtons::YesNo, QMessageBox::No, BoxAnswer::No},
        {BoxButtons::YesNo, QMessageBox::NoButton, BoxAnswer::No},
        {BoxButtons::RetryCancel, QMessageBox::Retry, BoxAnswer::Retry},
        {BoxButtons::RetryCancel, QMessageBox::Cancel, BoxAnswer::Cancel},
        {BoxButtons::RetryCancel, QMessageBox::NoButton, BoxAnswer::Cancel},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Press({"Title", {"line"}, BoxIcon::Question, row.Buttons}, row.Press), row.Answer)
            << static_cast<int>(row.Buttons) << " " << row.Press;
}

TEST(MessageBoxes, ShowsTitleLinesAndIconAsTheyAre)
{
    const Box box = {" Error in input data", {"Latitude > 90°.", "<b>not bold</b>"}, BoxIcon::Warning, BoxButtons::Ok};
    Press(box, QMessageBox::Ok, [](QMessageBox& window) {
        EXPECT_EQ(window.windowTitle().toStdString(), " Error in input data");
        EXPECT_EQ(window.text().toStdString(), "Latitude > 90°.\n<b>not bold</b>");
        EXPECT_EQ(window.textFormat(), Qt::PlainText);
        EXPECT_EQ(window.icon(), QMessageBox::Warning);
    });
    const std::pair<BoxIcon, QMessageBox::Icon> icons[] = {{BoxIcon::Error, QMessageBox::Critical},
                                                           {BoxIcon::Information, QMessageBox::Information},
                                                           {BoxIcon::Question, QMessageBox::Question}};
    for (const auto& [icon, shown] : icons)
        Press({"T", {"x"}, icon, BoxButtons::Ok}, QMessageBox::Ok,
              [shown = shown](QMessageBox& window) { EXPECT_EQ(window.icon(), shown); });
}

TEST(MessageBoxes, GivesTheActivationBackToTheWindowBelow)
{
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Press({"T", {"x"}, BoxIcon::Error, BoxButtons::Ok}, QMessageBox::Ok);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(MessageBoxes, AreAnsweredByATestInPlaceOfTheUser)
{
    std::vector<std::string> titles;
    MessageBoxes boxes([&titles](const Box& box) {
        titles.push_back(box.Title);
        return BoxAnswer::Yes;
    });
    const ScopedBoxReceiver scope(boxes);
    EXPECT_EQ(ShowBox({"Data's not validated", {}, BoxIcon::Question, BoxButtons::YesNo}), BoxAnswer::Yes);
    EXPECT_EQ(titles, std::vector<std::string>{"Data's not validated"});
}
