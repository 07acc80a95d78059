#include "app/grid_look.h"

#include <QPalette>
#include <QWidget>

namespace merov::app
{

QFont GridFont(double points)
{
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(points);
    return font;
}

QColor GridTitleColour(const QWidget& grid)
{
    const bool isDark = grid.palette().color(QPalette::Button).lightness() < 128;
    return isDark ? QColor(130, 180, 255) : QColor(0, 0, 255);
}

} // namespace merov::app
