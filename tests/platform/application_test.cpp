#include "platform/application.h"
#include "support/qt_text.h"

#include "platform/masked_edit.h"
#include "platform/message_boxes.h"
#include "platform/push_button.h"
#include "platform/spin_button.h"

#include <QComboBox>
#include <QFontInfo>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <clocale>

using namespace merov::platform;
using namespace merov::numeric;

namespace
{

/// What the field makes of its text when it is left.
enum class Leave { Accept, AcceptWithBox, Refuse, TakeFocusBack };

/// A window with two fields, a list, a button and a menu, and a record of what happens in it.
class Bench : public testing::Test
{
protected:
    Bench()
    {
        auto* surface = new QWidget;
        auto* layout = new QVBoxLayout(surface);
        for (QWidget* control : std::initializer_list<QWidget*>{&Entry, &Other, &List, &Button})
            layout->addWidget(control);
        Window.setCentralWidget(surface);
        Window.menuBar()->addMenu("&File")->addAction("E&xit", [this] { Log += "exit "; });
        List.addItems({"ALDEBARAN", "SIRIUS"});
        Entry.SetMask("###.#");
        Entry.OnEnter = [this] { Log += "enter "; };
        Entry.OnLeave = [this] { return LeaveEntry(); };
        Other.OnEnter = [this] { Log += "other "; };
        QObject::connect(&Button, &QPushButton::clicked, [this] { Log += "click "; });
        Window.show();
        Window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
        Entry.setFocus();
        Log.clear();
    }

    ~Bench() override { Window.hide(); } // before the record of what its fields do goes

    bool LeaveEntry()
    {
        Log += "leave ";
        if (Mode != Leave::Accept) ShowWarning("T", {"bad"});
        if (Mode == Leave::TakeFocusBack) Entry.setFocus();
        return Mode != Leave::Refuse;
    }

    /// What happened since the last call.
    std::string Happened() { return std::exchange(Log, "").toStdString(); }

    static void Click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    static void Wheel(QWidget& control)
    {
        const QPointF at = control.rect().center();
        QWheelEvent event(at, control.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::instance()->notify(&control, &event);
    }

    MessageBoxes Boxes{[this](const Box&) {
        Log += "box ";
        return BoxAnswer::Ok;
    }};
    ScopedBoxReceiver Scope{Boxes};
    QMainWindow Window;
    MaskedEdit Entry;
    Field<QLineEdit> Other;
    QComboBox List;
    PushButton Button{"&Go"};
    Leave Mode = Leave::Accept;
    QString Log;
};

} // namespace

TEST(Application, SetsWhatAllWindowsShare)
{
    EXPECT_EQ(QApplication::style()->objectName(), QString("fusion"));
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(QFontInfo(QFont("MS Sans Serif")).family(), QString("Liberation Sans"));
}

TEST_F(Bench, RunsEachHandlerOncePerMove)
{
    QTest::keyClick(&Entry, Qt::Key_Tab);
    QTest::keyClick(&Other, Qt::Key_Backtab);
    Click(Button);
    QTest::keyClick(&Button, Qt::Key_Return);
    QTest::keyClick(&Button, Qt::Key_Space);
    EXPECT_EQ(Happened(), "leave other enter leave click click click ");
    EXPECT_FALSE(Button.autoDefault());
}

TEST_F(Bench, KeepsTheFocusHoweverARefusedFieldIsLeft)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Tab", [this] { QTest::keyClick(&Entry, Qt::Key_Tab); }},
        {"Shift+Tab", [this] { QTest::keyClick(&Entry, Qt::Key_Backtab); }},
        {"Alt+G", [this] { QTest::keyClick(&Entry, Qt::Key_G, Qt::AltModifier); }},
        {"button", [this] { Click(Button); }},
        {"field", [this] { Click(Other); }},
        {"list", [this] { Click(List); }},
        {"double click", [this] { QTest::mouseDClick(&Button, Qt::LeftButton); }},
        {"wheel", [this] { Wheel(List); }},
    };
    for (const Leave mode : {Leave::Refuse, Leave::TakeFocusBack})
        for (const auto& [name, go] : ways) {
            Mode = mode;
            go();
            EXPECT_EQ(Happened(), mode == Leave::Refuse ? "leave box " : "leave box enter ") << name;
            EXPECT_EQ(Window.focusWidget(), &Entry) << name;
            EXPECT_FALSE(Button.isDown() || List.currentIndex() != 0 || QApplication::activePopupWidget()) << name;
        }
    Mode = Leave::Accept;
    Wheel(List);
    EXPECT_EQ(List.currentIndex(), 1);
}

TEST_F(Bench, SwallowsThePressDuringWhichABoxWasShown)
{
    Mode = Leave::AcceptWithBox;
    Click(Button);
    EXPECT_TRUE(Window.focusWidget() == &Button && !Button.isDown());
    Click(Button);
    EXPECT_EQ(Happened(), "leave box click ");
    Entry.setFocus();
    QTest::keyClick(&Entry, Qt::Key_G, Qt::AltModifier); // a key isn't lost to a box
    EXPECT_EQ(Happened(), "enter leave box click ");
}

TEST_F(Bench, MenusAndOtherWindowsLeaveNoField)
{
    Mode = Leave::Refuse;
    QTest::keyClick(&Entry, Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_X);
    EXPECT_EQ(Happened(), "exit ");
    QMenuBar* bar = Window.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(bar->actions().front()).center());
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    bar->setFocus(Qt::MenuBarFocusReason);
    Entry.setFocus();
    QWidget second;
    second.show();
    for (QWidget* next : std::initializer_list<QWidget*>{&second, &Window}) {
        next->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(next));
    }
    EXPECT_EQ(Happened(), "");
    EXPECT_TRUE(Entry.hasFocus());
}

TEST_F(Bench, ALetterSharedWithAMenuGoesToTheSurface)
{
    Window.menuBar()->addMenu("&Graph")->addAction("none");
    for (int i = 0; i < 4; ++i) // Qt itself would take turns
        QTest::keyClick(Window.focusWidget(), Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(Happened(), "leave click click click click ");
    Button.setEnabled(false);
    QTest::keyClick(Window.focusWidget(), Qt::Key_G, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
}

TEST_F(Bench, AFieldThatIsHiddenDisabledOrPassedByIsNotAsked)
{
    Mode = Leave::Refuse;
    Entry.hide();
    EXPECT_EQ(Happened(), "other ");
    Entry.show();
    Entry.setFocus();
    Entry.setEnabled(false);
    Entry.setEnabled(true);
    Entry.setFocus();
    EXPECT_EQ(Happened(), "enter other enter ");
    Application::Running()->PassFocus(Other);
    Click(Button);
    EXPECT_EQ(Happened(), "click ");
}

TEST_F(Bench, AHandlerMayDeleteItsFieldOrMoveTheFocusOn)
{
    Other.OnEnter = [this] { Button.setFocus(); };
    QTest::keyClick(&Entry, Qt::Key_Tab);
    EXPECT_EQ(Window.focusWidget(), &Button);
    auto* passing = new Field<QLineEdit>(&Window);
    passing->show();
    passing->setFocus();
    passing->OnLeave = [this, passing] {
        delete passing;
        Log += "gone ";
        return false;
    };
    Entry.setFocus();
    EXPECT_EQ(Happened(), "leave gone enter ");
    EXPECT_EQ(Window.focusWidget(), &Entry);
}

TEST_F(Bench, ARealBoxReturnsTheFocusToTheRefusedField)
{
    MessageBoxes real;
    const ScopedBoxReceiver scope(real);
    Mode = Leave::Refuse;
    const auto confirm = [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::Ok)->click();
    };
    QTimer::singleShot(0, confirm);
    Click(Button);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window) && Entry.hasFocus());
    QTimer::singleShot(0, confirm);
    QTest::keyClick(&Entry, Qt::Key_Tab);
    EXPECT_EQ(Happened(), "leave leave ");
}

TEST_F(Bench, ASpinButtonStepsWithoutLeavingTheField)
{
    SpinButton spin(Window.centralWidget());
    spin.OnUp = [this] { Log += "up "; };
    spin.OnDown = [this] { Log += "down "; };
    spin.StepByKeysOf(Entry);
    spin.show();
    spin.setEnabled(false);
    QTest::keyClick(&Entry, Qt::Key_Up);
    spin.setEnabled(true);
    Click(spin.UpArrow());
    Click(spin.DownArrow());
    QTest::keyClick(&Entry, Qt::Key_Up);
    QTest::keyClick(&Entry, Qt::Key_Down);
    EXPECT_EQ(Happened(), "up down up down ");
    QTest::mousePress(&spin.UpArrow(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Log.count("up ") > 2; }));
    QTest::mouseRelease(&spin.UpArrow(), Qt::LeftButton);
    EXPECT_EQ(Window.focusWidget(), &Entry);
}
