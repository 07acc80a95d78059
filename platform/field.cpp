#include "platform/field.h"

#include <QPalette>
#include <QWidget>

namespace merov::platform
{

bool TakeFocus(QWidget& control)
{
    control.setFocus(Qt::ShortcutFocusReason);
    return control.window()->focusWidget() == &control;
}

void SetFieldColour(QWidget& field, const QColor& colour)
{
    QPalette palette; // no role set: all come from the desktop
    if (colour.isValid()) {
        // Lists are painted with the colours of a button.
        palette.setColor(QPalette::Base, colour);
        palette.setColor(QPalette::Button, colour);
        palette.setColor(QPalette::Text, Qt::black);
        palette.setColor(QPalette::ButtonText, Qt::black);
    }
    field.setPalette(palette);
}

QColor FieldColour(const QWidget& field)
{
    return field.palette().color(QPalette::Base);
}

} // namespace merov::platform
