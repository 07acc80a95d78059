#include "app/screen_states.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace merov::app
{
namespace
{

// In the order of the enumerations.
const std::vector<std::string> SurfaceNames{"gradient", "fix",  "rlgc",    "azimuth", "wizard",
                                            "input",    "util", "options", "report",  "chart"};
const std::vector<std::string> BarNames{"Working", "Starfix", "Num", "Graph"};
const std::vector<std::string> MenuNames{"Astro",    "Correct", "Save",      "Erase",  "Num",    "NumDisp",
                                         "NumPrint", "Graph",   "GraphDisp", "Chart",  "LOP",    "Grid",
                                         "Print",    "Util",    "Azi",       "Wizard", "Options"};

template <class Item>
const std::string& NameOf(Item item, const std::vector<std::string>& names)
{
    return names.at(static_cast<std::size_t>(item));
}

/// Screens in memory, with every surface and menu.
class FakeScreens : public Screens
{
public:
    void SetVisible(Surface surface, bool visible) override { Keep(Seen, surface, visible); }
    bool IsVisible(Surface surface) const override { return Seen.contains(surface); }
    void SetEnabled(Menu menu, bool enabled) override { Keep(Off, menu, !enabled); }
    void ShowBar(Bar bar) override { Shown = bar; }
    Bar ShownBar() const override { return Shown; }
    void SetBarEnabled(bool enabled) override { BarEnabled = enabled; }

    /// "surfaces in view / tool bar / menus that are off".
    std::string Summary() const
    {
        std::string text;
        for (const Surface surface : Seen)
            text += NameOf(surface, SurfaceNames) + " ";
        text += "/ " + NameOf(Shown, BarNames) + (BarEnabled ? " /" : " locked /");
        for (const Menu menu : Off)
            text += " " + NameOf(menu, MenuNames);
        return text;
    }

    std::set<Surface> Seen;
    std::set<Menu> Off;
    Bar Shown = Bar::Graph;
    bool BarEnabled = true;

private:
    template <class Item>
    static void Keep(std::set<Item>& items, Item item, bool wanted)
    {
        if (wanted)
            items.insert(item);
        else
            items.erase(item);
    }
};

struct Step {
    Transition Taken;
    std::string Expected;
};

// What stands in view, and which menus are off, in several states.
const std::string MainView = "gradient fix rlgc azimuth wizard / Working /";
const std::string NewMenus = " Correct Save Erase Num Graph";
const std::string ClearedMenus = " Correct Save Erase Num NumPrint Graph Chart LOP Grid Print";
const std::string Others = " Util Azi Options";
const std::string ReadyMenus = " NumPrint Chart LOP Grid Print Util Azi Options";
const std::string AfterReport = " Correct Save Erase Num NumDisp Graph Chart LOP Grid Print";
const std::string AfterChart = " Correct Save Erase Num NumPrint Graph GraphDisp";

/// A day at the program: each transition from a state in which it is met.
const Step Walk[] = {
    {Transition::MainScreen, MainView + NewMenus},
    {Transition::AstroEnter, "gradient input / Starfix /" + NewMenus + Others},
    {Transition::InputComplete, "gradient input / Starfix /" + ReadyMenus},
    {Transition::EraseEntries, "gradient input / Starfix /" + ClearedMenus + Others},
    {Transition::InputComplete, "gradient input / Starfix /" + ReadyMenus},
    {Transition::ReportAwaited, "gradient / Num /" + ReadyMenus},
    {Transition::NumericReport, "report / Num / NumDisp Chart LOP Grid Print" + Others},
    {Transition::BackToStarFix, "report / Starfix /" + ReadyMenus},
    {Transition::AstroCorrect, "input report / Starfix /" + ReadyMenus},
    {Transition::CancelToResults, "report / Starfix /" + ReadyMenus},
    {Transition::Chart, "chart / Graph / NumPrint GraphDisp" + Others},
    {Transition::BackToStarFix, "chart / Starfix /" + ReadyMenus},
    {Transition::AstroCorrect, "input chart / Starfix /" + ReadyMenus},
    {Transition::ReportAwaited, "gradient / Num /" + ReadyMenus},
    {Transition::NumericReport, "report / Num / NumDisp Chart LOP Grid Print" + Others},
    {Transition::EraseElsewhere, MainView + AfterReport},
    {Transition::AstroEnter, "gradient input / Starfix /" + AfterReport + Others},
    {Transition::InputComplete, "gradient input / Starfix /" + ReadyMenus},
    {Transition::Chart, "chart / Graph / NumPrint GraphDisp" + Others},
    {Transition::AstroCorrect, "input chart / Graph / NumPrint GraphDisp" + Others},
    {Transition::EraseOnInput, "input / Graph /" + AfterChart},
    {Transition::MainScreen, MainView + AfterChart},
    {Transition::AstroEnter, "gradient input / Starfix /" + AfterChart + Others},
    {Transition::InputComplete, "gradient input / Starfix /" + ReadyMenus},
    {Transition::MainScreen, MainView + ClearedMenus},
    {Transition::Utilities, "gradient wizard util / Working locked / Astro" + ClearedMenus + " Azi"},
    {Transition::OptionsFromUtil, "gradient wizard options / Working locked / Astro" + ClearedMenus + " Azi"},
    {Transition::EndOptionsToUtil, "gradient wizard util / Working locked / Astro" + ClearedMenus + " Azi"},
    {Transition::EndUtilities, MainView + ClearedMenus},
    {Transition::AzimuthOpened, "gradient wizard / Working locked / Astro" + ClearedMenus + Others},
    {Transition::AzimuthClosed, MainView + ClearedMenus},
    {Transition::WizardOpened, MainView + ClearedMenus + " Wizard"},
    {Transition::WizardClosed, MainView + ClearedMenus},
    {Transition::WizardOpened, MainView + ClearedMenus + " Wizard"},
    {Transition::WizardCancelled, MainView + ClearedMenus},
    {Transition::Options, "gradient fix rlgc azimuth wizard options / Working /" + ClearedMenus},
    {Transition::EndOptions, MainView + ClearedMenus},
};

TEST(ScreenStatesTest, EveryTransitionLeadsToItsScreen)
{
    FakeScreens screens;
    screens.Seen = {Surface::NumDisp, Surface::LMChart, Surface::TabIn};
    screens.Off = {Menu::mnuUtil, Menu::mnuAzi, Menu::mnuOptions};
    std::set<Transition> walked;
    for (const Step& step : Walk) {
        Apply(step.Taken, screens);
        EXPECT_EQ(screens.Summary(), step.Expected) << "step " << &step - Walk;
        walked.insert(step.Taken);
    }
    EXPECT_EQ(walked.size(), TransitionRows().size()) << "a row that the walk leaves out, or one given twice";
}

TEST(ScreenStatesTest, ConditionsOfCancelAndErase)
{
    for (const Bar bar : {Bar::Working, Bar::Starfix, Bar::Num, Bar::Graph})
        for (const std::set<Surface>& results :
             {std::set<Surface>{}, {Surface::NumDisp}, {Surface::LMChart}, {Surface::NumDisp, Surface::LMChart}})
            for (const int index : {-1, 0, 1, 2}) {
                FakeScreens screens;
                screens.Shown = bar;
                screens.Seen = results;
                const bool toResults = index != -1 && bar == Bar::Starfix && !results.empty();
                EXPECT_EQ(CancelTransition(index, screens),
                          toResults ? Transition::CancelToResults : Transition::MainScreen);
                EXPECT_EQ(EraseTransition(screens), Transition::EraseElsewhere);
                screens.SetVisible(Surface::TabIn, true);
                EXPECT_EQ(EraseTransition(screens), Transition::EraseOnInput);
            }
}

} // namespace
} // namespace merov::app
