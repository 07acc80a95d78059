#pragma once

#include <QColor>
#include <QKeySequence>

#include <functional>

class QWidget;

/// What all entry fields have in common: handlers for the coming and going of the focus, a letter
/// that leads to them, and a colour.

namespace merov::platform
{

/// What a control does when the focus of its window comes to it and leaves it for another control of
/// the same window. A window that only becomes active or inactive runs neither, a menu neither, and a
/// control that is hidden or disabled while it has the focus is left without OnLeave.
struct FocusHandlers {
    virtual ~FocusHandlers() = default;

    std::function<void()> OnEnter;

    /// False refuses the leave: the focus returns to the control, without OnEnter. A handler that
    /// gives the focus back to its control itself and returns true is entered anew.
    std::function<bool()> OnLeave;
};

/// A Qt control with focus handlers: Field<QComboBox>.
template <class Control>
class Field : public Control, public FocusHandlers
{
public:
    using Control::Control;
};

/// A control with letters of its own (Alt + the underlined letter of a caption). Where a menu has the
/// same letter, the control comes first.
struct LetterTaker {
    virtual ~LetterTaker() = default;

    /// Does what `key` stands for and returns true; false for a key that isn't one of its own.
    virtual bool TakeLetter(const QKeySequence& key) = 0;
};

/// Gives the keyboard focus to a control, as a letter does. False when the field that had it refused
/// to be left.
bool TakeFocus(QWidget& control);

/// The background of an entry field. The text on a colour is black, so that it can be read on a dark
/// desktop too.
/// @param colour  an invalid one, QColor(), is the desktop's own, the window colour
void SetFieldColour(QWidget& field, const QColor& colour);
QColor FieldColour(const QWidget& field);

} // namespace merov::platform
