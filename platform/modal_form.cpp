#include "platform/modal_form.h"

#include <QApplication>
#include <QPointer>

namespace merov::platform
{

ModalForm::ModalForm(const QString& caption, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(caption);
    setModal(true);
}

bool ModalForm::ShowModal()
{
    QPointer<QWidget> below = QApplication::activeWindow();
    if (below.isNull() && parentWidget() != nullptr) below = parentWidget()->window();
    const bool accepted = exec() == Accepted;
    // Not every screen hands the activation back, and without it no field would have the focus.
    if (!below.isNull() && below->isVisible() && !below->isActiveWindow()) below->activateWindow();
    return accepted;
}

} // namespace merov::platform
