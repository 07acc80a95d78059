#include "app/gradient_panel.h"

#include <QLinearGradient>
#include <QPainter>

namespace merov::app
{
namespace
{

constexpr int DarkBelow = 128; ///< lightness of the window colour

} // namespace

void GradientPanel::paintEvent(QPaintEvent*)
{
    const QColor desktop = palette().color(QPalette::Window);
    if (desktop == Qt::white) return; // a desktop without shades, and the night
    const bool dark = desktop.lightness() < DarkBelow;
    QLinearGradient sky(0.0, 0.0, 0.0, height());
    sky.setColorAt(0.0, dark ? QColor(14, 24, 42) : QColor(143, 172, 203));
    sky.setColorAt(0.7, dark ? QColor(30, 46, 70) : QColor(208, 222, 235));
    sky.setColorAt(1.0, dark ? QColor(52, 62, 78) : QColor(240, 236, 228));
    QPainter(this).fillRect(rect(), sky);
}

} // namespace merov::app
