#include "platform/status_panels.h"
#include "support/qt_text.h"

#include <QFrame>
#include <QTest>
#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

class StatusPanelsTest : public testing::Test
{
protected:
    StatusPanelsTest()
    {
        for (const char* key : {"MPP", "Proba", "Full"})
            bar.AddPanel(key, QString("tip of ") + key, QByteArray(key) == "Full");
        bar.resize(600, 24);
        bar.show();
    }
    QWidget* Panel(const char* key) { return bar.findChild<QFrame*>(key); }

    StatusPanels bar;
};

TEST_F(StatusPanelsTest, ShowsOneTextOrThePanels)
{
    EXPECT_FALSE(bar.ShowsPanels());
    bar.SetPanelText("Proba", "95.0 %");
    EXPECT_FALSE(Panel("Proba")->isVisible());
    bar.ShowPanels();
    EXPECT_TRUE(bar.ShowsPanels());
    EXPECT_TRUE(Panel("Proba")->isVisible());
    EXPECT_EQ(bar.PanelText("Proba"), "95.0 %");
    bar.ShowSimple("Ready");
    EXPECT_FALSE(bar.ShowsPanels());
    EXPECT_EQ(bar.PanelText("Proba"), "95.0 %") << "kept while out of sight";
    bar.SetPanelText("Nowhere", "x");
    EXPECT_EQ(bar.PanelText("Nowhere"), "");
}

TEST_F(StatusPanelsTest, TellsWhichPanelWasClicked)
{
    QStringList clicked;
    bar.OnPanelClick = [&](const QString& key) { clicked << key; };
    bar.SetPanelText("MPP", "45°30'.2 N 123°30'.4 W");
    bar.SetPanelText("Proba", "95.0 %");
    bar.ShowPanels();
    QCoreApplication::processEvents();
    QTest::mouseClick(Panel("Proba"), Qt::LeftButton);
    QTest::mouseClick(Panel("Proba"), Qt::RightButton);
    QTest::mouseClick(Panel("MPP"), Qt::LeftButton);
    EXPECT_EQ(clicked, QStringList({"Proba", "MPP"}));
    // A press that is dragged off the panel is no click.
    QTest::mousePress(Panel("Full"), Qt::LeftButton);
    QTest::mouseRelease(Panel("Full"), Qt::LeftButton, {}, QPoint(-50, 5));
    EXPECT_EQ(clicked.size(), 2);
}

TEST_F(StatusPanelsTest, ATextTooLongForTheWindowStandsInTheToolTip)
{
    bar.SetPanelText("Full", "Trunc. Not enough time spread.");
    bar.ShowPanels();
    QCoreApplication::processEvents();
    EXPECT_EQ(Panel("Full")->toolTip(), "tip of Full");
    bar.SetPanelText("MPP", QString(200, 'W'));
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.width(), 600) << "the window keeps its size";
    EXPECT_EQ(Panel("MPP")->toolTip(), "tip of MPP\n" + QString(200, 'W'));
    EXPECT_LE(Panel("Full")->geometry().right(), 600);
}

} // namespace
} // namespace merov::platform
