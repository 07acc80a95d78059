#include "platform/modal_form.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

class Form : public ModalForm
{
public:
    explicit Form(QWidget* parent) : ModalForm(" About", parent) {}
    bool Show(bool accepted)
    {
        QTimer::singleShot(0, this, [this, accepted] {
            EXPECT_EQ(QApplication::activeModalWidget(), this);
            done(accepted ? Accepted : Rejected);
        });
        return ShowModal();
    }
    using ModalForm::ShowModal;
};

class ModalFormTest : public testing::Test
{
protected:
    ModalFormTest()
    {
        window.show();
        field.setFocus();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QWidget window;
    QLineEdit field{&window};
};

TEST_F(ModalFormTest, GivesTheActivationBackAndKeepsItsControls)
{
    Form form(&field);
    QLineEdit entry(&form);
    EXPECT_EQ(form.windowTitle().toStdString(), " About");
    QTimer::singleShot(0, &entry, [&entry] { QTest::keyClicks(&entry, "12"); });
    EXPECT_TRUE(form.Show(true));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(QTest::qWaitFor([this] { return field.hasFocus(); }, 500));
    EXPECT_FALSE(form.Show(false));
    EXPECT_EQ(entry.text().toStdString(), "12");
}

TEST_F(ModalFormTest, GivesTheActivationToTheWindowThatHadIt)
{
    QWidget beside(&window, Qt::Window);
    beside.show();
    beside.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&beside));
    Form form(&window);
    form.Show(true);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&beside));
}

TEST_F(ModalFormTest, MayBeDestroyedWhileItIsShown)
{
    auto* form = new Form(&window);
    QTimer::singleShot(0, [form] { delete form; });
    EXPECT_FALSE(form->ShowModal());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

} // namespace
} // namespace merov::platform
