#include "platform/night_palette.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

#include <algorithm>

namespace merov::platform
{
namespace
{

/// The strongest of each colour in a window as its user sees it.
QColor Strongest(QWidget& window)
{
    const QImage picture = window.grab().toImage();
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            red = std::max(red, pixel.red());
            green = std::max(green, pixel.green());
            blue = std::max(blue, pixel.blue());
        }
    return {red, green, blue};
}

bool IsRedOnBlack(QWidget& window)
{
    const QColor strongest = Strongest(window);
    return strongest.green() == 0 && strongest.blue() == 0 && strongest.red() > 100;
}

void PressShortcut(QWidget& window)
{
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST(NightPalette, CoversOpenWindowsAndThoseToCome)
{
    NightPalette night(*qApp);
    QComboBox window;
    window.addItems({"Sirius", "Vega"});
    window.setToolTip("Scroll with arrows or mouse");
    window.show();
    EXPECT_FALSE(IsRedOnBlack(window));
    PressShortcut(window);
    EXPECT_TRUE(night.IsNight());
    EXPECT_TRUE(IsRedOnBlack(window));

    window.showPopup();
    QMenu menu;
    menu.addAction("Page setup");
    menu.popup({});
    QToolTip::showText({}, window.toolTip(), &window);
    int shown = 0;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible()) {
            ++shown;
            EXPECT_TRUE(IsRedOnBlack(*each)) << each->metaObject()->className();
        }
    EXPECT_EQ(shown, 4);
    QToolTip::hideText();
    menu.hide();
    window.hidePopup();

    QMessageBox box(QMessageBox::Warning, "Missing data", "Some data are missing.");
    box.setModal(true);
    box.show();
    EXPECT_TRUE(IsRedOnBlack(box));
    PressShortcut(box); // a modal window keeps no one from it
    EXPECT_FALSE(night.IsNight());
    EXPECT_GT(Strongest(box).green(), 100);
    EXPECT_GT(Strongest(window).blue(), 100);
}

TEST(NightPalette, TheDarkColoursOfADesktopComeBackByDay)
{
    const QPalette former = QApplication::palette();
    QPalette dark = former;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    {
        NightPalette night(*qApp);
        QLabel window("Most probable position");
        window.show();
        night.SetNight(true);
        QTest::qWait(0); // a program that is running changes its colours at once
        EXPECT_TRUE(IsRedOnBlack(window));
        EXPECT_LT(window.grab().toImage().pixelColor(0, 0).red(), 40); // the ground stays the darker
        night.SetNight(false);
        EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
        night.SetNight(true);
    }
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black)); // nobody is left to press it off
    QApplication::setPalette(former);
}

} // namespace
} // namespace merov::platform
