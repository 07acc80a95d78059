#pragma once

#include "planning/star_plan.h"

#include <QWidget>

#include <array>

class QLabel;
class QRadioButton;

namespace merov::app
{

/// The second step of the star fix wizard: the times of the day's twilights, and the choice between them.
class WizardTimes : public QWidget
{
public:
    /// @param plan  takes the choice; it must outlive this object
    explicit WizardTimes(planning::StarPlan& plan);

    /// Shows the times of the plan.
    void ShowTimes();

    /// Gives the choice the focus.
    void TakeFocus();

private:
    void LayOut();

    planning::StarPlan& plan_;
    std::array<QRadioButton*, 2> choices_; ///< sunrise, sunset
    std::array<QLabel*, 9> times_;
};

} // namespace merov::app
