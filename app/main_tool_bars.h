#pragma once

#include "app/commands.h"
#include "app/screen_states.h"
#include "platform/tool_bar.h"

#include <map>

namespace merov::app
{

/// The left edge of the main window with its four tool bars, of which one stands there at a time. Bars and
/// buttons have their control names as object names.
class MainToolBars : public platform::ToolBarEdge
{
public:
    /// @param runner  what the buttons run. A button whose command isn't there is disabled
    MainToolBars(const CommandRunner& runner, QWidget* parent);

    /// Puts a tool bar at the edge in place of the one there.
    void ShowBar(Bar bar);
    Bar ShownBar() const;

    /// Of `tlhWorking`.
    void SetBarEnabled(bool enabled);

    /// The button of the grid that stands there: the one that takes the grid away, or brings it.
    void ShowGridButton(bool takesAway);

private:
    std::map<Bar, platform::ToolBar*> bars_;
};

} // namespace merov::app
