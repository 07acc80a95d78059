#include "platform/tab_strip.h"
#include "support/qt_text.h"

#include "platform/masked_edit.h"

#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <array>
#include <utility>

using namespace merov::platform;

namespace
{

/// A strip of three pages with a field on each, and a record of what happens.
class Strip : public testing::Test
{
protected:
    Strip()
    {
        const std::array<const char*, 3> captions = {"&Position", " Obs. &conditions", "&Observations"};
        for (std::size_t i = 0; i < captions.size(); ++i) {
            auto* page = new QWidget;
            auto* layout = new QVBoxLayout(page);
            fields_[i] = new Field<QLineEdit>;
            fields_[i]->OnEnter = [this, i] { Log += QString("enter%1 ").arg(i); };
            fields_[i]->OnLeave = [this, i] {
                Log += QString("leave%1 ").arg(i);
                return !Refuse;
            };
            layout->addWidget(fields_[i]);
            Tabs.addTab(page, captions[i]);
        }
        Tabs.OnGotFocus = [this] { Log += QString("focus%1 ").arg(Tabs.currentIndex()); };
        Tabs.OnLostFocus = [this] { Log += QString("lost%1 ").arg(Tabs.currentIndex()); };
        Tabs.OnClick = [this] { Log += QString("click%1 ").arg(Tabs.currentIndex()); };
        Tabs.resize(500, 200); // all headers in view
        Tabs.show();
        Tabs.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Tabs));
        fields_[0]->setFocus();
        Happened();
    }

    void ClickHeader(int index)
    {
        QTest::mouseClick(&Tabs.Header(), Qt::LeftButton, {}, Tabs.Header().tabRect(index).center());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers with) { QTest::keyClick(Tabs.focusWidget(), key, with); }

    /// What happened since the last call, queued handlers included.
    std::string Happened()
    {
        QCoreApplication::processEvents();
        return std::exchange(Log, "").toStdString();
    }

    TabStrip Tabs;
    std::array<Field<QLineEdit>*, 3> fields_{};
    bool Refuse = false;
    QString Log;
};

} // namespace

TEST_F(Strip, RunsItsHandlersForThePageNowOnTop)
{
    ClickHeader(1);
    EXPECT_EQ(Happened(), "leave0 focus1 click1 ");
    ClickHeader(2); // the strip has the focus already
    EXPECT_EQ(Happened(), "click2 ");
    Key(Qt::Key_Left, {});
    EXPECT_EQ(Happened(), "click1 ");
    fields_[1]->setFocus();
    EXPECT_EQ(Happened(), "lost1 enter1 ");
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Happened(), "leave1 focus0 click0 ");
    fields_[0]->setFocus();
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Happened(), "lost0 enter0 leave0 focus1 click1 ");
    EXPECT_EQ(Tabs.focusWidget(), &Tabs.Header());
}

TEST_F(Strip, ARefusedFieldKeepsThePage)
{
    Refuse = true;
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"click", [this] { ClickHeader(2); }},
        {"letter", [this] { Key(Qt::Key_O, Qt::AltModifier); }},
        {"Ctrl+Tab", [this] { Key(Qt::Key_Tab, Qt::ControlModifier); }},
    };
    for (const auto& [name, go] : ways) {
        go();
        EXPECT_EQ(Happened(), "leave0 ") << name;
        EXPECT_EQ(Tabs.currentIndex(), 0) << name;
        EXPECT_TRUE(fields_[0]->hasFocus()) << name;
    }
    QWheelEvent wheel({5, 5}, Tabs.Header().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Tabs.Header(), &wheel);
    EXPECT_EQ(Tabs.currentIndex(), 0);
}

TEST_F(Strip, ADisabledTabIsOutOfReach)
{
    Tabs.setTabEnabled(1, false);
    ClickHeader(1);
    Key(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(Tabs.currentIndex(), 0);
    EXPECT_EQ(Happened().find("click"), std::string::npos);
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
    EXPECT_EQ(Tabs.currentIndex(), 1);
    EXPECT_EQ(Tabs.focusWidget(), &Tabs.Header());
    EXPECT_EQ(Happened(), "");
    fields_[1]->setFocus();
    Tabs.ShowPage(1);
    EXPECT_EQ(Happened(), "lost1 enter1 ");
    EXPECT_TRUE(fields_[1]->hasFocus());
}

TEST_F(Strip, TabPassesTheHeadersByAndKeysReachTheStrip)
{
    Tabs.OnKey = [this](const QKeyEvent& key) {
        if (key.key() != Qt::Key_F5) return false;
        Log += "F5 ";
        return true;
    };
    Key(Qt::Key_F5, {});
    Key(Qt::Key_Tab, {});
    EXPECT_EQ(Happened(), "F5 ");
    EXPECT_EQ(Tabs.focusWidget(), fields_[0]);
}

TEST_F(Strip, AHiddenStripRunsNoQueuedHandler)
{
    ClickHeader(1);
    Tabs.hide();
    EXPECT_EQ(Happened(), "leave0 ");
}
