#pragma once

#include "planning/star_plan.h"

#include <QWidget>

#include <functional>

class QLabel;
class QListWidget;

namespace merov::app
{

/// The third step of the star fix wizard: the bodies above the horizon, with a mark before each that is to be
/// observed. A click anywhere on a line, and the space bar, set its mark or take it off.
class WizardList : public QWidget
{
public:
    /// @param plan  its list has the marks; it must outlive this object
    explicit WizardList(planning::StarPlan& plan);

    /// Shows the list of the plan from its first line.
    void ShowBodies();

    /// Gives the list the focus.
    void TakeFocus();

    std::function<void()> OnMark; ///< the user has changed a mark
private:
    planning::StarPlan& plan_;
    QLabel* what_;
    QListWidget* list_;
    bool showing_ = false; ///< the list is being filled
};

} // namespace merov::app
