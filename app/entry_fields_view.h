#pragma once

#include "fix/sight_entry.h"
#include "fix/sight_session.h"
#include "platform/masked_edit.h"
#include "platform/spin_button.h"

#include <array>
#include <string>

namespace merov::app
{

/// Masked fields of an astro fix: makes their controls, runs their rules when the focus comes and goes, and
/// mirrors what stands in the entries. The input tabs have all of them, other forms some. A text that is typed stands
/// in its entry at once; what it means is settled when the field is left.
class EntryFieldsView
{
public:
    /// @param entry    what stands in the fields
    /// @param session  takes the values. Both must outlive this object, and this object the controls that it
    ///                 makes
    EntryFieldsView(fix::SightEntry& entry, fix::SightSession& session);

    /// Makes the control of a field of the input tabs, once for each. The caller places it.
    platform::MaskedEdit* MakeEdit(fix::EntryField field, const QString& toolTip = {});

    /// Makes the spin button of a field whose control has been made. The arrow keys in the field step too.
    platform::SpinButton* MakeSpin(fix::EntryField field, const QString& name);

    platform::MaskedEdit& Edit(fix::EntryField field);

    /// Gives all fields their masks, with the decimal separator in force.
    void InstallMasks();

    /// Shows all texts and colours of the entries.
    void ShowEntries();

    /// The leave handler of a field, see fix::LeaveField. After a refusal the field takes the focus back,
    /// if it is in view; latitude and longitude leave that to their OnLeave, which refuses.
    fix::EntryVerdict LeaveField(fix::EntryField field);

    /// One step of a field's spin button.
    void StepField(fix::EntryField field, bool up);

    /// Puts the blank text into a field, takes its flag off and gives it the focus. The session keeps
    /// its value.
    void EraseField(fix::EntryField field, fix::InputFlag flag);

private:
    void EnterField(fix::EntryField field);
    fix::EntryVerdict LeaveOrPass(fix::EntryField field);
    fix::EntryVerdict Settle(fix::EntryField field, fix::EntryVerdict verdict);
    void Mirror(fix::EntryField field);
    void MirrorWithTwin(fix::EntryField field);

    fix::SightEntry& entry_;
    fix::SightSession& session_;
    std::array<platform::MaskedEdit*, fix::EntryFieldCount> edits_{}; ///< by EntryField; null for one not made
    std::string enteredText_; ///< of the field that has the focus, as it took it
};

} // namespace merov::app
