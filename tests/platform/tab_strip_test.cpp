#include "platform/tab_strip.h"
#include "support/qt_text.h"

#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace merov::platform;

namespace
{

/// A strip of three pages with a field on each, and a record of what happens.
class Strip : public testing::Test
{
protected:
    Strip()
    {
        for (const char* caption : {"&Position", " Obs. &conditions", "&Observations"}) {
            auto* page = new QWidget;
            auto* field = new Field<QLineEdit>(page);
            field->OnEnter = [this] { Note("enter"); };
            field->OnLeave = [this] { return Note("leave"), !Refuse; };
            Fields << field;
            Tabs.addTab(page, caption);
        }
        Tabs.OnGotFocus = [this] { Note("focus"); };
        Tabs.OnLostFocus = [this] { Note("lost"); };
        Tabs.OnClick = [this] { Note("click"); };
        Tabs.resize(500, 200); // all headers in view
        Tabs.show();
        Tabs.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Tabs));
        Fields[0]->setFocus();
        Happened();
    }

    void ClickHeader(int index)
    {
        QTest::mouseClick(&Tabs.Header(), Qt::LeftButton, {}, Tabs.Header().tabRect(index).center());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers with) { QTest::keyClick(Tabs.focusWidget(), key, with); }

    void Note(const char* what) { Log += what + QString("%1 ").arg(Tabs.currentIndex()); }
    /// What happened since the last call, queued handlers included.
    std::string Happened()
    {
        QCoreApplication::processEvents();
        return std::exchange(Log, "").toStdString();
    }

    TabStrip Tabs;
    QList<Field<QLineEdit>*> Fields;
    bool Refuse = false;
    QString Log;
};

} // namespace

TEST_F(Strip, RunsItsHandlersForThePageNowOnTop)
{
    const std::pair<std::function<void()>, const char*> moves[] = {
        {[this] { ClickHeader(1); }, "leave0 focus1 click1 "},
        {[this] { ClickHeader(2); }, "click2 "}, // the strip has the focus already
        {[this] { Key(Qt::Key_Left, {}); }, "click1 "},
        {[this] { Fields[1]->setFocus(); }, "lost1 enter1 "},
        {[this] { Key(Qt::Key_P, Qt::AltModifier); }, "leave1 focus0 click0 "},
        {[this] { Fields[0]->setFocus(); }, "lost0 enter0 "},
        {[this] { Key(Qt::Key_Tab, Qt::ControlModifier); }, "leave0 focus1 click1 "}};
    for (const auto& [move, told] : moves) {
        move();
        EXPECT_EQ(Happened(), told);
    }
    EXPECT_EQ(Tabs.focusWidget(), &Tabs.Header());
}

TEST_F(Strip, ARefusedFieldKeepsThePage)
{
    Refuse = true;
    ClickHeader(2);
    Key(Qt::Key_O, Qt::AltModifier);
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Happened(), "leave0 leave0 leave0 ");
    EXPECT_TRUE(Fields[0]->hasFocus());
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Tabs.Header(), &wheel);
    EXPECT_EQ(Tabs.currentIndex(), 0);
}

TEST_F(Strip, ADisabledTabIsOutOfReach)
{
    Tabs.setTabEnabled(1, false);
    ClickHeader(1);
    Key(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(Happened().find("click") == std::string::npos && Tabs.currentIndex() == 0);
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs.currentIndex(), 2);
}

TEST_F(Strip, AProgramChangesThePageWithoutAskingItsFields)
{
    Refuse = true;
    QWidget dialog; // over the strip, as the one in which a file is chosen
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    Tabs.ShowPage(1);
    Tabs.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Tabs));
    EXPECT_TRUE(Tabs.currentIndex() == 1 && Tabs.focusWidget() == &Tabs.Header());
    EXPECT_EQ(Happened(), "");
    Fields[1]->setFocus();
    Tabs.ShowPage(1);
    EXPECT_EQ(Happened(), "lost1 enter1 ");
    EXPECT_TRUE(Fields[1]->hasFocus());
}

TEST_F(Strip, TabPassesTheHeadersByAndKeysReachTheStrip)
{
    Tabs.OnKey = [this](const QKeyEvent& key) { return key.key() == Qt::Key_F5 && (Note("F5"), true); };
    Key(Qt::Key_F5, {});
    Key(Qt::Key_Tab, {});
    EXPECT_EQ(Happened(), "F50 ");
    EXPECT_EQ(Tabs.focusWidget(), Fields[0]);
    ClickHeader(1); // a strip that is hidden runs no queued handler
    Tabs.hide();
    EXPECT_EQ(Happened(), "leave0 ");
}
