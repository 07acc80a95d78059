#pragma once

#include "app/fix_input.h"
#include "platform/system_clock.h"
#include "platform/tab_strip.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLayout;

namespace merov::app
{

class TimePage;

/// The preferences (`tabOptions`): the reference ellipsoid, how intercepts are worked, and the computer's
/// clock. It keeps its own size.
class TabOptions : public platform::TabStrip
{
public:
    /// @param input     its option "one estimated position" is shown and changed; it must outlive this object
    /// @param setClock  what sets the computer's clock
    TabOptions(FixInput& input, platform::ClockSetter setClock, QWidget* parent = nullptr);

    /// Fills `cboEllipsoid`, with the decimal separator in force, and selects "WGS 1984", which makes it
    /// the active ellipsoid. Start-up does so once.
    void FillEllipsoids();

    /// One page on or back, the ends being ends. The clock ticks once its page is reached.
    void NextTab();
    void PrevTab();

    /// Shows the option "one estimated position" as another surface has set it.
    void ShowOneEstPos();

    /// True while the preferences were opened from a sailing page, which their end brings back.
    bool CalledFromUtil() const { return calledFromUtil_; }
    void SetCalledFromUtil(bool called) { calledFromUtil_ = called; }

    std::function<void()> OnEnd;           ///< cmdEndTabOptions
    std::function<void()> OnEllipsoid;     ///< another ellipsoid is in force
    std::function<void(bool)> OnOneEstPos; ///< ch3OneEstPos(0) was clicked; the option has changed

private:
    void AddPages(platform::ClockSetter setClock);
    bool TimeInView() const;
    void PageReached();
    void PageLeft();
    QLayout* MakeEllipsoidChoice();
    QLayout* MakeInterceptChoice();

    FixInput& input_;
    std::function<void()> next_;
    std::function<void()> previous_;
    QComboBox* cboEllipsoid_ = nullptr;
    QCheckBox* ch3OneEstPos_ = nullptr;
    TimePage* time_ = nullptr;
    bool calledFromUtil_ = false;
};

} // namespace merov::app
