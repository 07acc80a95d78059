#include "app/window_place.h"

#include "platform/settings_store.h"
#include "platform/twips.h"

#include <algorithm>
#include <cmath>

namespace merov::app
{
namespace
{

const QString Section = "Settings";

constexpr double LargestTwips = 1e6; // larger than any desktop; keeps a spoilt value from overflowing pixels

/// What the mouse needs of a window's upper edge, pixels.
constexpr int GripWidth = 100;
constexpr int GripHeight = 20;

double Stored(const platform::SettingsStore& settings, const QString& key, double otherwise)
{
    bool isNumber = false;
    const double value = settings.Text(Section, key).value_or(QString()).toFloat(&isNumber);
    return isNumber && std::isfinite(value) ? std::clamp(value, -LargestTwips, LargestTwips) : otherwise;
}

QString SingleText(double value)
{
    constexpr int singleDigits = 7;
    return QString::number(value, 'g', singleDigits);
}

} // namespace

WindowPlace ReadWindowPlace(const platform::SettingsStore& settings, double screenWidth, double screenHeight)
{
    // In this order: the middle depends on the width just read.
    WindowPlace place;
    place.Width = Stored(settings, "MainWidth", screenWidth * 0.95);
    place.Left = Stored(settings, "MainLeft", std::floor((screenWidth - place.Width) * 0.5));
    place.Height = Stored(settings, "MainHeight", screenHeight * 0.94);
    place.Top = Stored(settings, "MainTop", std::floor((screenHeight - place.Height) * 0.25));
    return place;
}

void SaveWindowPlace(platform::SettingsStore& settings, const WindowPlace& place)
{
    settings.SetText(Section, "MainLeft", SingleText(place.Left));
    settings.SetText(Section, "MainTop", SingleText(place.Top));
    settings.SetText(Section, "MainWidth", SingleText(place.Width));
    settings.SetText(Section, "MainHeight", SingleText(place.Height));
}

QRect ReachableRect(const WindowPlace& place, const QList<QRect>& screens)
{
    QRect desktop;
    for (const QRect& screen : screens)
        desktop |= screen;
    const QSize size = QSize(platform::Pixels(place.Width), platform::Pixels(place.Height))
                           .boundedTo(desktop.size())
                           .expandedTo({platform::Pixels(MinimumWidth), platform::Pixels(MinimumHeight)});
    QRect rect(QPoint(platform::Pixels(place.Left), platform::Pixels(place.Top)), size);
    const QRect edge(rect.topLeft(), QSize(rect.width(), GripHeight));
    const bool reachable = std::any_of(screens.begin(), screens.end(), [&edge](const QRect& screen) {
        const QRect grip = screen & edge;
        return grip.width() >= GripWidth && grip.height() == GripHeight;
    });
    if (!reachable) {
        const QRect& screen = screens.first();
        rect.moveLeft(std::max(screen.left(), std::min(rect.left(), screen.right() + 1 - rect.width())));
        rect.moveTop(std::max(screen.top(), std::min(rect.top(), screen.bottom() + 1 - rect.height())));
    }
    return rect;
}

} // namespace merov::app
