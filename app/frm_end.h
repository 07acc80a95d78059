#pragma once

#include "platform/modal_form.h"
#include "platform/push_button.h"

#include <QLabel>
#include <QTimer>

namespace merov::app
{

/// The quit dialog (`frmEnd`).
class FrmEnd : public platform::ModalForm
{
public:
    enum class Answer { None, Yes, No };

    explicit FrmEnd(QWidget* parent);

    /// Asks and waits. Its own close box leaves the answer of the last time in force, None at first;
    /// Escape answers No.
    Answer Ask();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Record(Answer answer);
    void Blink();
    void ColourReminder();

    QLabel reminder_;
    QTimer tmrQuit_;
    platform::PushButton cmdYes_;
    platform::PushButton cmdNo_;
    Answer answer_ = Answer::None;
    bool red_ = false; ///< the colour of the reminder; else that of text
};

} // namespace merov::app
