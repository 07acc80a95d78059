#pragma once

#include "app/fix_input.h"
#include "platform/tab_strip.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLayout;

namespace merov::app
{

/// The preferences (`tabOptions`): the reference ellipsoid and how intercepts are worked. It keeps its own
/// size.
class TabOptions : public platform::TabStrip
{
public:
    /// @param input  its option "one estimated position" is shown and changed; it must outlive this object
    explicit TabOptions(FixInput& input, QWidget* parent = nullptr);

    /// Fills `cboEllipsoid`, with the decimal separator in force, and selects "WGS 1984", which makes it
    /// the active ellipsoid. Start-up does so once.
    void FillEllipsoids();

    /// One page on or back, the ends being ends.
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
    void AddPages();
    QLayout* MakeEllipsoidChoice();
    QLayout* MakeInterceptChoice();

    FixInput& input_;
    std::function<void()> next_;
    std::function<void()> previous_;
    QComboBox* cboEllipsoid_ = nullptr;
    QCheckBox* ch3OneEstPos_ = nullptr;
    bool calledFromUtil_ = false;
};

} // namespace merov::app
