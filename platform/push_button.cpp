#include "platform/push_button.h"

#include <QKeyEvent>
#include <QShortcutEvent>

namespace merov::platform
{

PushButton::PushButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent)
{
    setAutoDefault(false);
}

bool PushButton::TakeLetter(const QKeySequence& key)
{
    if (key.isEmpty() || key != shortcut()) return false;
    if (TakeFocus(*this)) click();
    return true;
}

bool PushButton::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) return TakeLetter(static_cast<QShortcutEvent*>(event)->key());
    return QPushButton::event(event);
}

void PushButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace merov::platform
