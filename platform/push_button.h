#pragma once

#include "platform/field.h"

#include <QPushButton>

namespace merov::platform
{

/// A button that always takes the focus before it clicks, so that the field that has it is left first:
/// by Alt and its letter as by the mouse. A refused leave means no click. Return in some field never
/// presses it; on the button itself Return and the space bar do.
class PushButton : public QPushButton, public LetterTaker
{
public:
    explicit PushButton(const QString& caption = QString(), QWidget* parent = nullptr);

    bool TakeLetter(const QKeySequence& key) override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace merov::platform
