#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace merov::platform
{
class SettingsStore;
}

namespace merov::app
{

/// Smallest outer size of the main window, twips.
constexpr double MinimumWidth = 11715.0;
constexpr double MinimumHeight = 8415.0;

/// Where the main window stands and how large it is, twips of the whole desktop.
struct WindowPlace {
    double Left = 0.0;
    double Top = 0.0;
    double Width = 0.0;
    double Height = 0.0;
};

/// The place and size that the last run left in "Settings". What is missing there, or is no number, gets
/// its default: most of the screen, in the middle from left to right and near its top.
/// @param screen  size of the screen, twips
WindowPlace ReadWindowPlace(const platform::SettingsStore& settings, double screenWidth, double screenHeight);

/// Stores a place and size, each as the text of a number in single precision.
void SaveWindowPlace(platform::SettingsStore& settings, const WindowPlace& place);

/// The rectangle on the screens, in pixels: not below the smallest size, not above that of all screens
/// together. A window whose upper edge could not be reached with the mouse, since the screen it stood on is
/// gone, comes onto the first screen.
/// @param screens  the areas free for windows, at least one
QRect ReachableRect(const WindowPlace& place, const QList<QRect>& screens);

} // namespace merov::app
