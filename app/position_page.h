#pragma once

#include "app/fix_input.h"

#include <QWidget>

#include <array>
#include <functional>

class QCheckBox;

namespace merov::platform
{
class PushButton;
class TimePicker;
} // namespace merov::platform

namespace merov::app
{

class EntryFieldsView;
class EntryFrame;

/// The page "Position" of the input: both times, the estimated position and the observer's motion.
class PositionPage : public QWidget
{
public:
    /// Both must outlive this object.
    PositionPage(FixInput& input, EntryFieldsView& fields);

    /// Shows the times and check boxes of the entries.
    void ShowEntries();

    /// Shows the option "one estimated position" alone.
    void ShowOneEstPos();

    /// Gives the time of the estimated position the focus.
    void TakeFocus();

    /// A picker is left: its time counts as entered, and the other one may follow.
    /// @param index  0 the time of the estimated position, 1 that of the true position
    void LeaveTime(int index);

    std::function<void()> OnLoad;          ///< cmdLoadObs
    std::function<void()> OnErase;         ///< cmdEraseObs
    std::function<void()> OnNext;          ///< cmdNextTabIn(0)
    std::function<void()> OnCancel;        ///< cmdCancel(0)
    std::function<void(bool)> OnOneEstPos; ///< ch3OneEstPos(1) was clicked; the option has changed

private:
    void MakeTimes();
    EntryFrame* MakeEstimatedPosition(EntryFieldsView& fields);
    EntryFrame* MakeMotion(EntryFieldsView& fields);
    EntryFrame* MakeTruePosition();
    QWidget* MakeFileButtons();
    QWidget* MakeWayButtons();

    FixInput& input_;
    std::array<platform::TimePicker*, 2> times_{}; ///< dtpTime(0..1)
    QCheckBox* oneEstPos_ = nullptr;
    QCheckBox* fullRoutine_ = nullptr;
};

} // namespace merov::app
