#pragma once

#include "platform/modal_form.h"

#include <QLabel>
#include <QString>
#include <QTimer>

#include <chrono>

namespace merov::platform
{
class RichTextBox;
}

namespace merov::app
{

/// The splash (`frmSplash`), which serves the About box as well: from its first close on it shows the
/// About text instead of the start-up artwork.
class FrmSplash : public platform::ModalForm
{
public:
    /// @param versionText  "1.20"
    /// @param duration     how long the start mode stands without a click
    FrmSplash(const QString& versionText, std::chrono::milliseconds duration, QWidget* parent);

    /// `rtfAboutProg`, for start-up to load its document into.
    platform::RichTextBox& AboutText() { return *rtfAboutProg_; }

    /// Shows the form in its mode and waits until the timer, a click or a key has closed it. A key that
    /// only modifies others, Shift or Alt, doesn't.
    void Open();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOutStart();
    void LayOutAbout();
    void FitAboutText();
    void Centre();

    enum class Mark { FromStart, FromMenu };

    Mark mark_ = Mark::FromStart;
    QString version_;
    QTimer tmrSplash_;
    QWidget* picSplash_;
    QWidget* picSplashFix_;
    QLabel* lblSplash_;
    QLabel* lblReadAbout_;
    platform::RichTextBox* rtfAboutProg_;
};

} // namespace merov::app
