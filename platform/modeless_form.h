#pragma once

#include <QDialog>

namespace merov::platform
{

/// A form that stands beside its window, which goes on working. It is hidden when it closes, not destroyed,
/// and its window is then the active one. Escape doesn't close it, since it holds entries, and Return
/// presses no button of itself.
class ModelessForm : public QDialog
{
public:
    /// @param caption  the window's title, leading blanks included
    /// @param parent   the window that it stands beside and is destroyed with
    ModelessForm(const QString& caption, QWidget* parent);

    /// Lets the form lie behind its window too; otherwise it always lies over it. Before it is first shown.
    void MayLieBehind() { mayLieBehind_ = true; }

    /// Shows the form, or brings it forward, as the active window.
    void ShowForward();

protected:
    /// The frame's close box was used; the form is hidden by now. It isn't run for one that was hidden already.
    virtual void CloseByFrame() {}

    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool mayLieBehind_ = false;
};

} // namespace merov::platform
