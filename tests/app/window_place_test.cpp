#include "app/window_place.h"

#include "support/map_settings.h"
#include "support/qt_text.h"

#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

constexpr double ScreenWidth = 19200.0; // 1280 pixels
constexpr double ScreenHeight = 15360.0;

TEST(WindowPlaceTest, MissingValuesTakeTheirDefaults)
{
    test::MapSettings settings;
    const WindowPlace first = ReadWindowPlace(settings, ScreenWidth, ScreenHeight);
    EXPECT_DOUBLE_EQ(first.Width, 18240.0);
    EXPECT_DOUBLE_EQ(first.Left, 480.0);
    EXPECT_DOUBLE_EQ(first.Height, 14438.4);
    EXPECT_DOUBLE_EQ(first.Top, 230.0); // whole part of 230.4

    // The middle is that of the width that is stored; a text that is no number counts as missing.
    settings.SetText("Settings", "MainWidth", "12000.5");
    settings.SetText("Settings", "MainHeight", "tall");
    settings.SetText("Settings", "MainTop", "nan");
    const WindowPlace second = ReadWindowPlace(settings, ScreenWidth, ScreenHeight);
    EXPECT_DOUBLE_EQ(second.Width, 12000.5);
    EXPECT_DOUBLE_EQ(second.Left, 3599.0); // whole part of 3599.75
    EXPECT_DOUBLE_EQ(second.Height, 14438.4);
    EXPECT_DOUBLE_EQ(second.Top, 230.0);
}

TEST(WindowPlaceTest, SavedPlaceComesBack)
{
    test::MapSettings settings;
    SaveWindowPlace(settings, {-150.0, 300.0, 15000.0, 9015.75});
    EXPECT_EQ(settings.Text("Settings", "MainLeft"), "-150");
    EXPECT_EQ(settings.Text("Settings", "MainHeight"), "9015.75");
    const WindowPlace place = ReadWindowPlace(settings, ScreenWidth, ScreenHeight);
    EXPECT_EQ(place.Left, -150.0);
    EXPECT_EQ(place.Top, 300.0);
    EXPECT_EQ(place.Width, 15000.0);
    EXPECT_EQ(place.Height, 9015.75);
}

TEST(WindowPlaceTest, WindowStaysReachable)
{
    const QRect first(0, 0, 1280, 1024), second(1280, 0, 1920, 1080);
    const QRect own(100, 50, 900, 700);
    const auto at = [](const QRect& rect) {
        return WindowPlace{rect.x() * 15.0, rect.y() * 15.0, rect.width() * 15.0, rect.height() * 15.0};
    };
    EXPECT_EQ(ReachableRect(at(own), {first}), own);
    // Partly off the left edge it can still be drawn back.
    EXPECT_EQ(ReachableRect(at(own.translated(-300, 0)), {first}), own.translated(-300, 0));

    // On a second screen, and once that is gone.
    EXPECT_EQ(ReachableRect(at(own.translated(1300, 0)), {first, second}), own.translated(1300, 0));
    EXPECT_EQ(ReachableRect(at(own.translated(1300, 0)), {first}), QRect(380, 50, 900, 700));
    EXPECT_EQ(ReachableRect(at(own.translated(0, -200)), {first}), QRect(100, 0, 900, 700));

    // Sizes: raised to the smallest, cut to all screens, and no spoilt value does harm.
    EXPECT_EQ(ReachableRect(at({0, 0, 10, 10}), {first}).size(), QSize(781, 561));
    EXPECT_EQ(ReachableRect(at({0, 0, 3000, 5000}), {first, second}).size(), QSize(3000, 1080));
    test::MapSettings settings;
    for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        settings.SetText("Settings", key, "3e38");
    EXPECT_EQ(ReachableRect(ReadWindowPlace(settings, ScreenWidth, ScreenHeight), {first}), first);
}

} // namespace
} // namespace merov::app
