#pragma once

#include "planning/star_plan.h"

#include <QWidget>

#include <functional>

class QLabel;
class QTimer;

namespace merov::platform
{
class PictureButton;
class TimePicker;
} // namespace merov::platform

namespace merov::app
{

class WizardGrid;

/// The last step of the star fix wizard: a table of where the bodies stand, for the planned time, for a time
/// that the user enters, or live from the computer's clock. "What is up?" is this table for one time.
class WizardTable : public QWidget
{
public:
    /// @param plan  whose bodies it shows; it must outlive this object
    explicit WizardTable(const planning::StarPlan& plan);

    /// Shows the picked bodies of the list at the time for which the list was made.
    void ShowPlan();

    /// Shows all bodies of "What is up?", for its one time.
    void ShowWhatIsUp();

    /// Puts the controls back that "What is up?" has no use for.
    void EndWhatIsUp();

    /// Stops the display of the present time.
    void StopTimer() { ShowTimer(false); }

    /// A modal window has closed, which may have come amid a drag: serves a tick that had to wait.
    void Unblock();

    /// Gives the table the focus.
    void TakeFocus();

    /// The time for which the table stands, date-time, GMT.
    double Instant() const { return instant_; }

    std::function<void()> OnShown; ///< the table stands for another time

private:
    void LayOut();
    void ShowAnew(double instant, std::vector<planning::StarRow> rows);
    void ToggleTimer();
    void ShowTimer(bool runs, const char* timeTip = nullptr);
    void Tick();
    void ServeTick();
    void TypedTime();
    void UpdateTable(double instant);

    const planning::StarPlan& plan_;
    WizardGrid* grid_;
    platform::TimePicker* time_;
    platform::PictureButton* startTimer_;
    QLabel* what_;
    QTimer* timer_;
    double instant_ = 0.0;
    bool ticking_ = false; ///< a tick is being served
    bool tickWaits_ = false;
};

} // namespace merov::app
