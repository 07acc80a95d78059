#include "platform/modeless_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QWindow>

namespace merov::platform
{

ModelessForm::ModelessForm(const QString& caption, QWidget* parent) : QDialog(parent, Qt::Window)
{
    setWindowTitle(caption);
    setModal(false);
}

void ModelessForm::ShowForward()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    if (mayLieBehind_) { // which no window does that belongs to another
        if (!testAttribute(Qt::WA_WState_Created)) create();
        windowHandle()->setTransientParent(nullptr);
    }
    show();
    raise();
    activateWindow();
}

void ModelessForm::closeEvent(QCloseEvent* event)
{
    const bool shown = isVisible();
    QDialog::closeEvent(event);
    if (shown && event->isAccepted()) CloseByFrame();
}

void ModelessForm::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    // Not every screen hands the activation back, and without it no field would have the focus.
    const QWidget* active = QApplication::activeWindow();
    QWidget* below = parentWidget() != nullptr ? parentWidget()->window() : nullptr;
    const bool wasActive = !event->spontaneous() && (active == nullptr || active == this);
    if (wasActive && below != nullptr && below->isVisible()) below->activateWindow();
}

void ModelessForm::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}

} // namespace merov::platform
