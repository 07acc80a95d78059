#include "app/main_menu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <iterator>
#include <vector>

namespace merov::app
{
namespace
{

enum class Start { On, Off, Unticked };
enum class Behind { Nothing, Separator };

/// One entry of the menu bar.
struct Entry {
    int Depth; ///< 0 in the bar itself, 1 in a menu, 2 and 3 in submenus
    const char* Name;
    const char* Caption;
    Command Runs = Command::None;
    Start State = Start::On;
    Behind Next = Behind::Nothing;
    const char* Shortcut = "";
};

/// The menu bar, from the left to the right and from top to bottom.
constexpr Entry Entries[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuFilePageSetup", "Print Setup", Command::PageSetup, Start::On, Behind::Separator},
    {1, "mnuFileQuit", "E&xit", Command::Quit, Start::On, Behind::Nothing, "Ctrl+Q"},
    {0, "mnuAstro", "&Astro Position"},
    {1, "mnuAstroEnter", "&Enter datas...", Command::AstroEnter},
    {1, "mnuAstroLoad", "&Load datas...", Command::AstroLoad, Start::On, Behind::Separator},
    {1, "mnuAstroCorrect", "&Correct datas...", Command::AstroCorrect, Start::Off},
    {1, "mnuAstroSave", "&Save datas...", Command::AstroSave, Start::Off},
    {1, "mnuAstroErase", "E&rase datas", Command::AstroErase, Start::Off, Behind::Separator},
    {1, "mnuAstroNum", "&Numeric Results", Command::None, Start::Off},
    {2, "mnuAstroNumDisp", "&Display", Command::NumRes},
    {2, "mnuAstroNumPrint", "&Print", Command::NumPrint},
    {1, "mnuAstroGraph", "&Graphic Results", Command::None, Start::Off, Behind::Separator},
    {2, "mnuAstroGraphDisp", "&Display", Command::GraphRes},
    {2, "mnuAstroGraphChart", "&Chart size"},
    {3, "mnuAstroGraphChartInc", "&Increase", Command::ChartIncrease},
    {3, "mnuAstroGraphChartDec", "&Decrease", Command::ChartDecrease},
    {2, "mnuAstroGraphLOP", "&LOPs size"},
    {3, "mnuAstroGraphLOPInc", "&Increase", Command::LopIncrease},
    {3, "mnuAstroGraphLOPDec", "&Decrease", Command::LopDecrease},
    {2, "mnuAstroGraphGrid", "&Grid", Command::ChartGrid, Start::Unticked},
    {2, "mnuAstroGraphPrint", "&Print", Command::GraphPrint},
    {1, "mnuAstroProba", "&Probability...", Command::Proba},
    {0, "mnuUtil", "&Utilities"},
    {1, "mnuUtilRL", "&Rhumb Line...", Command::UtilRL},
    {1, "mnuUtilGC", "&Great Circle...", Command::UtilGC},
    {1, "mnuUtilETA", "&ETA Calculation...", Command::UtilETA},
    {0, "mnuAzi", "A&zimuth"},
    {1, "mnuAziGo", "&Calculation...", Command::AziGo},
    {0, "mnuStarFixWizard", "&Wizard"},
    {1, "mnuStarFixWizardStart", "&Start star fix wizard...", Command::WizardStart},
    {0, "mnuOptions", "&Options"},
    {1, "mnuOptionsTab", "&Preferences...", Command::OptionsTab},
    {0, "mnuHelp", "&Help"},
    {1, "mnuHelpManual", "&Manual", Command::Manual, Start::On, Behind::Separator},
    {1, "mnuHelpAbout", "&About", Command::About},
};

const char* NameOf(Menu menu)
{
    static const std::map<Menu, const char*> names{
        {Menu::mnuAstro, "mnuAstro"},
        {Menu::mnuAstroCorrect, "mnuAstroCorrect"},
        {Menu::mnuAstroSave, "mnuAstroSave"},
        {Menu::mnuAstroErase, "mnuAstroErase"},
        {Menu::mnuAstroNum, "mnuAstroNum"},
        {Menu::mnuAstroNumDisp, "mnuAstroNumDisp"},
        {Menu::mnuAstroNumPrint, "mnuAstroNumPrint"},
        {Menu::mnuAstroGraph, "mnuAstroGraph"},
        {Menu::mnuAstroGraphDisp, "mnuAstroGraphDisp"},
        {Menu::mnuAstroGraphChart, "mnuAstroGraphChart"},
        {Menu::mnuAstroGraphLOP, "mnuAstroGraphLOP"},
        {Menu::mnuAstroGraphGrid, "mnuAstroGraphGrid"},
        {Menu::mnuAstroGraphPrint, "mnuAstroGraphPrint"},
        {Menu::mnuUtil, "mnuUtil"},
        {Menu::mnuAzi, "mnuAzi"},
        {Menu::mnuStarFixWizard, "mnuStarFixWizard"},
        {Menu::mnuOptions, "mnuOptions"},
    };
    return names.at(menu);
}

/// The entry behind the last one within `entry`.
const Entry* EndOf(const Entry* entry)
{
    return std::find_if(entry + 1, std::end(Entries),
                        [entry](const Entry& next) { return next.Depth <= entry->Depth; });
}

bool IsAvailable(const Entry* entry, const CommandRunner& runner)
{
    const auto runs = [&runner](const Entry& each) { return each.Runs != Command::None && runner.Has(each.Runs); };
    return entry->Depth == 0 || std::any_of(entry, EndOf(entry), runs);
}

} // namespace

MainMenu::MainMenu(QMenuBar& bar, const CommandRunner& runner) : bar_(bar)
{
    std::vector<QMenu*> parents; // the menus open at this point, by depth
    for (const Entry* entry = std::begin(Entries); entry != std::end(Entries); ++entry) {
        const auto depth = static_cast<std::size_t>(entry->Depth);
        parents.resize(depth);
        QAction* action = nullptr;
        if (EndOf(entry) != entry + 1) {
            QMenu* menu = parents.empty() ? bar.addMenu(entry->Caption) : parents.back()->addMenu(entry->Caption);
            menu->setObjectName(entry->Name);
            action = menu->menuAction();
            parents.push_back(menu);
        } else {
            action = parents.back()->addAction(entry->Caption, [run = runner.Run, runs = entry->Runs] { run(runs); });
            action->setShortcut(QKeySequence(entry->Shortcut));
            action->setCheckable(entry->State == Start::Unticked);
        }
        action->setObjectName(entry->Name);
        const bool available = IsAvailable(entry, runner);
        action->setEnabled(available && entry->State != Start::Off);
        items_[entry->Name] = {action, available};
        if (entry->Next == Behind::Separator) parents[depth - 1]->addSeparator();
    }
}

void MainMenu::SetEnabled(Menu menu, bool enabled)
{
    const Item& item = items_.at(NameOf(menu));
    item.Action->setEnabled(enabled && item.Available);
}

void MainMenu::TickGrid(bool ticked)
{
    items_.at("mnuAstroGraphGrid").Action->setChecked(ticked);
}

void MainMenu::TakeKeyboard()
{
    const QList<QAction*> menus = bar_.actions();
    const auto first = std::find_if(menus.begin(), menus.end(), [](const QAction* menu) { return menu->isEnabled(); });
    if (first != menus.end()) bar_.setActiveAction(*first);
}

} // namespace merov::app
