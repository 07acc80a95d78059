#include "platform/tool_bar.h"
#include "support/qt_text.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace merov::platform
{
TEST(ToolBar, ButtonsTakeTheFocusBeforeTheirCommandRuns)
{
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit entry;
    ToolBar bar;
    layout.addWidget(&entry);
    layout.addWidget(&bar);
    QStringList told;
    PictureButton* button = bar.AddButton(QIcon(), "RL, GC && ETA calculation",
                                          [&] { told << (entry.hasFocus() ? "entry not left" : "run"); });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    entry.setFocus();

    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(told, QStringList({"run", "run", "run"}));
    bar.setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(told.size(), 3);
    EXPECT_EQ(button->toolTip(), "RL, GC & ETA calculation");
    button->SetToolTip("Stop real time display");
    EXPECT_EQ(button->accessibleName(), "Stop real time display");
}

TEST(ToolBarEdge, OneToolBarStandsAtATime)
{
    ToolBarEdge edge;
    auto* working = new ToolBar;
    auto* graph = new ToolBar;
    PictureButton* last = nullptr;
    for (int i = 0; i < 9; ++i)
        last = graph->AddButton(QIcon(), "Grid", {});
    edge.Add(working);
    edge.Add(graph);
    edge.resize(edge.sizeHint().width(), 515);
    edge.show();
    EXPECT_TRUE(working->isVisible() && !graph->isVisible());
    edge.Show(graph);
    EXPECT_TRUE(graph->isVisible() && !working->isVisible() && edge.Shown() == graph);
    EXPECT_LT(last->mapTo(&edge, QPoint(0, last->height())).y(), edge.height())
        << "nine buttons in the smallest window";
    last->click(); // has no command
}

} // namespace merov::platform
