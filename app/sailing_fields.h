#pragma once

#include "app/mirrored_edit.h"
#include "fix/sailing_entry.h"
#include "platform/spin_button.h"
#include "platform/tool_bar.h"

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace merov::app
{

/// The masked fields of rhumb line and great circle: makes their controls, runs their rules as they are left,
/// and mirrors what stands in the entries.
class SailingFieldsView
{
public:
    /// @param entry  must outlive this object, and this object the controls that it makes
    explicit SailingFieldsView(fix::SailingEntry& entry) : entry_(entry) {}

    /// Makes the control of a field, once for each. The caller places it.
    platform::MaskedEdit* MakeEdit(fix::SailingField field, const char* toolTip);

    /// Makes the spin button of a field whose control has been made. The arrow keys in the field step too.
    platform::SpinButton* MakeSpin(fix::SailingField field, const QString& name);

    /// Makes a small button that erases a field, which then takes the focus.
    /// @param index  of cmdErase
    platform::PictureButton* MakeEraser(fix::SailingField field, int index, const char* toolTip);

    platform::MaskedEdit& Edit(fix::SailingField field) { return *edits_[static_cast<std::size_t>(field)]; }

    /// Gives all fields their masks, with the decimal separator in force, and shows them erased.
    void InstallMasks();

    /// Shows what stands in the entries, after anything has happened there.
    void Show();

    /// Adds what a page shows of the entries beside the fields; Show runs it.
    void AddView(std::function<void()> show) { views_.push_back(std::move(show)); }

    /// A button has erased a field.
    std::function<void(fix::SailingField field)> OnErased;

private:
    void Step(fix::SailingField field, bool up);

    fix::SailingEntry& entry_;
    std::array<MirroredEdit*, fix::SailingFieldCount> edits_{}; ///< by SailingField
    std::vector<std::function<void()>> views_;
};

} // namespace merov::app
