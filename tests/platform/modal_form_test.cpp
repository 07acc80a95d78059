#include "platform/modal_form.h"
#include "support/qt_text.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace merov::platform;

namespace
{

struct Form : ModalForm {
    explicit Form(QWidget* parent) : ModalForm(" About", parent) {}
    using ModalForm::ShowModal;
};

class ModalFormTest : public testing::Test
{
protected:
    ModalFormTest()
    {
        field.setFocus();
        Activate(window);
    }
    static void Activate(QWidget& shown)
    {
        shown.show();
        shown.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    }
    QWidget window;
    QLineEdit field{&window};
};

TEST_F(ModalFormTest, GivesTheActivationBackAndKeepsItsControls)
{
    Form form(&field);
    QLineEdit entry(&form);
    EXPECT_EQ(form.windowTitle(), " About");
    QTimer::singleShot(0, &form, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
        QTest::keyClicks(&entry, "12");
        form.accept();
    });
    EXPECT_TRUE(form.ShowModal());
    EXPECT_TRUE(QTest::qWaitFor([this] { return field.hasFocus(); }, 500));
    QWidget beside(&window, Qt::Window); // another window that has the activation next
    Activate(beside);
    QTimer::singleShot(0, &form, &QDialog::reject);
    EXPECT_FALSE(form.ShowModal());
    EXPECT_EQ(entry.text(), "12");
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
