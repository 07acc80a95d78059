#pragma once

#include <QColor>
#include <QFont>

class QWidget;

/// Letters and colours that the grids of the program share.

namespace merov::app
{

/// @param points  size of the letters
QFont GridFont(double points);

/// Blue for the titles of a grid, lighter on a dark desktop.
QColor GridTitleColour(const QWidget& grid);

} // namespace merov::app
