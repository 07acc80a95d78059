#pragma once

#include <QDialog>

namespace merov::platform
{

/// A form that is shown modally over its window and, once closed, hidden and not destroyed: its
/// controls keep what stands in them.
class ModalForm : public QDialog
{
public:
    /// @param caption  the window's title, leading blanks included
    /// @param parent   the window, or a control in it, over which the form is shown
    ModalForm(const QString& caption, QWidget* parent);

protected:
    /// Shows the form and waits until it has closed. The window that was active before is so again
    /// afterwards, and the focus goes on where it was. The form may be destroyed while it is shown.
    /// @return true where it was closed by accept()
    bool ShowModal();
};

} // namespace merov::platform
