#pragma once

#include "app/commands.h"
#include "app/screen_states.h"

#include <map>
#include <string_view>

class QAction;
class QMenuBar;

namespace merov::app
{

/// The menu bar of the main window: what stands in it and which entries are on. Each entry has its
/// control name as object name.
class MainMenu
{
public:
    /// @param bar     empty, to be filled; it must outlive this object
    /// @param runner  what the entries run. An entry whose command isn't there, and a submenu without any
    ///                command that is, never go on
    MainMenu(QMenuBar& bar, const CommandRunner& runner);

    void SetEnabled(Menu menu, bool enabled);

    /// Ticks "Grid" or takes its tick away.
    void TickGrid(bool ticked);

    /// Gives the keyboard to the menu bar: its first menu opens.
    void TakeKeyboard();

private:
    struct Item {
        QAction* Action = nullptr;
        bool Available = true;
    };

    QMenuBar& bar_;
    std::map<std::string_view, Item> items_; ///< by control name
};

} // namespace merov::app
