#include "platform/status_panels.h"
#include "support/qt_text.h"

#include <QFrame>
#include <QTest>
#include <gtest/gtest.h>

namespace merov::platform
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

TEST_F(StatusPanelsTest, ShowsOneTextOrThePanelsAndTellsWhichOneWasClicked)
{
    bar.SetPanelText("Proba", "95.0 %");
    EXPECT_FALSE(bar.ShowsPanels() || Panel("Proba")->isVisible());
    bar.ShowSimple("Ready");
    bar.ShowPanels();
    EXPECT_TRUE(bar.ShowsPanels() && Panel("Proba")->isVisible());
    EXPECT_EQ(bar.PanelText("Proba"), "95.0 %") << "kept while out of sight";
    bar.SetPanelText("Nowhere", "x");
    EXPECT_EQ(bar.PanelText("Nowhere"), "");

    QStringList clicked;
    bar.OnPanelClick = [&](const QString& key) { clicked << key; };
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

} // namespace merov::platform
