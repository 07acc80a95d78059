#pragma once

#include "fix/sight_entry.h"
#include "platform/masked_edit.h"
#include "platform/time_picker.h"

#include <QComboBox>

/// The four controls that are laid over the cells of the grid of sights. Each keeps its value from cell
/// to cell.

namespace merov::app
{

class GridEditors
{
public:
    /// Makes the controls. The grid that takes them owns them and must outlive this object.
    GridEditors();

    /// The control of a column.
    QWidget* Control(fix::GridColumn column) const;

    /// The least width in which a control shows all that it can hold, pixels.
    int Width(fix::GridColumn column) const;

    /// Gives the masked controls their masks, with the decimal separator in force, and empties them.
    void InstallMasks();

    /// Empties the masked controls.
    void Blank();

    /// What stands in a control, as fix::CommitCell takes it.
    std::string Text(fix::GridColumn column) const;

    /// Puts a control back on what its cell holds; an empty cell leaves times and bodies as they are.
    void Restore(fix::GridColumn column, const std::string& cellText);

    // The start of an edit. The control is in view and has the focus.

    /// Shows a time.
    void StartTime(double time) { time_->SetValue(time); }

    /// Types the first figure of the day into the time that stands there; the second can follow at once.
    void TypeDay(QChar key);

    /// Selects a body, the first of the list for a text that is none.
    void StartBody(const std::string& code);

    /// Types the first letter of a body, which selects the first one that begins with it.
    void TypeBody(QChar key);

    /// Takes a cell's text, to be typed over from its start; an empty one empties the control.
    void StartMasked(fix::GridColumn column, const std::string& cellText);

    /// Empties the control and types its first place. "9" types nothing: no altitude begins with it.
    void TypeMasked(fix::GridColumn column, QChar key);

private:
    platform::MaskedEdit& Masked(fix::GridColumn column) const;

    platform::TimePicker* time_;
    QComboBox* body_;
    platform::MaskedEdit* altitude_;
    platform::MaskedEdit* correction_;
};

} // namespace merov::app
