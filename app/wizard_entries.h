#pragma once

#include "app/entry_fields_view.h"
#include "planning/star_plan.h"

#include <QWidget>

namespace merov::platform
{
class PictureButton;
class TimePicker;
} // namespace merov::platform

namespace merov::app
{

/// The first step of the star fix wizard: date, position and height of eye. The fields and their rules are
/// those of an astro fix, on entries of their own.
class WizardEntries : public QWidget
{
public:
    /// @param plan  takes what is valid; it must outlive this object
    explicit WizardEntries(planning::StarPlan& plan);

    /// Blanks all fields and takes the present GMT date.
    void Erase();

    /// Hands what has been entered to the plan.
    void Store();

    /// Gives the date the focus.
    void TakeFocus();

private:
    platform::MaskedEdit* MakeEdit(fix::EntryField field, const char* name, int figures, const char* toolTip);
    platform::PictureButton* MakeEraser(int index, fix::EntryField field, fix::InputFlag flag, const char* toolTip);
    void LayOut();
    void LeaveDate();

    planning::StarPlan& plan_;
    fix::SightEntry entry_;
    fix::SightSession session_;
    EntryFieldsView fields_;
    platform::TimePicker* date_;
};

} // namespace merov::app
