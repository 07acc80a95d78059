#include "app/screen_states.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace merov::app
{
namespace
{

const std::map<Surface, std::string> SurfaceNames{
    {Surface::Gradient, "gradient"}, {Surface::StarFix, "fix"},          {Surface::RLGC, "rlgc"},
    {Surface::Azimuth, "azimuth"},   {Surface::StarFixWizard, "wizard"}, {Surface::TabIn, "input"},
    {Surface::TabUtil, "util"},      {Surface::TabOptions, "options"},   {Surface::NumDisp, "report"},
    {Surface::LMChart, "chart"}};

const std::map<Menu, std::string> MenuNames{{Menu::mnuAstro, "Astro"},
                                            {Menu::mnuAstroCorrect, "Correct"},
                                            {Menu::mnuAstroSave, "Save"},
                                            {Menu::mnuAstroErase, "Erase"},
                                            {Menu::mnuAstroNum, "Num"},
                                            {Menu::mnuAstroNumDisp, "NumDisp"},
                                            {Menu::mnuAstroNumPrint, "NumPrint"},
                                            {Menu::mnuAstroGraph, "Graph"},
                                            {Menu::mnuAstroGraphDisp, "GraphDisp"},
                                            {Menu::mnuAstroGraphChart, "Chart"},
                                            {Menu::mnuAstroGraphLOP, "LOP"},
                                            {Menu::mnuAstroGraphGrid, "Grid"},
                                            {Menu::mnuAstroGraphPrint, "Print"},
                                            {Menu::mnuUtil, "Util"},
                                            {Menu::mnuAzi, "Azi"},
                                            {Menu::mnuStarFixWizard, "Wizard"},
                                            {Menu::mnuOptions, "Options"}};

const std::map<Bar, std::string> BarNames{
    {Bar::Working, "Working"}, {Bar::Starfix, "Starfix"}, {Bar::Num, "Num"}, {Bar::Graph, "Graph"}};

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
            text += SurfaceNames.at(surface) + " ";
        text += "/ " + BarNames.at(Shown) + (BarEnabled ? " /" : " locked /");
        for (const Menu menu : Off)
            text += " " + MenuNames.at(menu);
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
    const char* Expected;
};

const char* const Main = "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num Graph";
const char* const MainAfterFix =
    "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num NumPrint Graph Chart LOP Grid Print";

/// A day at the program: each transition from a state in which it is met.
const Step Walk[] = {
    {Transition::MainScreen, Main},
    {Transition::AstroEnter, "gradient input / Starfix / Correct Save Erase Num Graph Util Azi Options"},
    {Transition::EraseEntries, "gradient input / Starfix / Correct Save Erase Num Graph Util Azi Options"},
    {Transition::InputComplete, "gradient input / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::EraseEntries,
     "gradient input / Starfix / Correct Save Erase Num NumPrint Graph Chart LOP Grid Print Util Azi Options"},
    {Transition::InputComplete, "gradient input / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::NumericReport, "report / Num / NumDisp Chart LOP Grid Print Util Azi Options"},
    {Transition::BackToStarFix, "report / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::AstroCorrect, "input report / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::CancelToResults, "report / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::Chart, "chart / Graph / NumPrint GraphDisp Util Azi Options"},
    {Transition::BackToStarFix, "chart / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::AstroCorrect, "input chart / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::NumericReport, "report / Num / NumDisp Chart LOP Grid Print Util Azi Options"},
    {Transition::EraseElsewhere,
     "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num NumDisp Graph Chart LOP Grid Print"},
    {Transition::AstroEnter,
     "gradient input / Starfix / Correct Save Erase Num NumDisp Graph Chart LOP Grid Print Util Azi Options"},
    {Transition::InputComplete, "gradient input / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::Chart, "chart / Graph / NumPrint GraphDisp Util Azi Options"},
    {Transition::AstroCorrect, "input chart / Graph / NumPrint GraphDisp Util Azi Options"},
    {Transition::EraseOnInput, "input / Graph / Correct Save Erase Num NumPrint Graph GraphDisp"},
    {Transition::MainScreen,
     "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num NumPrint Graph GraphDisp"},
    {Transition::AstroEnter,
     "gradient input / Starfix / Correct Save Erase Num NumPrint Graph GraphDisp Util Azi Options"},
    {Transition::InputComplete, "gradient input / Starfix / NumPrint Chart LOP Grid Print Util Azi Options"},
    {Transition::MainScreen, MainAfterFix},
    {Transition::Utilities, "gradient wizard util / Working locked / Astro Correct Save Erase Num NumPrint Graph Chart "
                            "LOP Grid Print Azi"},
    {Transition::OptionsFromUtil, "gradient wizard options / Working locked / Astro Correct Save Erase Num NumPrint "
                                  "Graph Chart LOP Grid Print Azi"},
    {Transition::EndOptionsToUtil, "gradient wizard util / Working locked / Astro Correct Save Erase Num NumPrint "
                                   "Graph Chart LOP Grid Print Azi"},
    {Transition::EndUtilities, MainAfterFix},
    {Transition::AzimuthOpened, "gradient wizard / Working locked / Astro Correct Save Erase Num NumPrint Graph Chart "
                                "LOP Grid Print Util Azi Options"},
    {Transition::AzimuthClosed, MainAfterFix},
    {Transition::WizardOpened, "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num NumPrint Graph "
                               "Chart LOP Grid Print Wizard"},
    {Transition::WizardClosed, MainAfterFix},
    {Transition::WizardOpened, "gradient fix rlgc azimuth wizard / Working / Correct Save Erase Num NumPrint Graph "
                               "Chart LOP Grid Print Wizard"},
    {Transition::WizardCancelled, MainAfterFix},
    {Transition::Options, "gradient fix rlgc azimuth wizard options / Working / Correct Save Erase Num NumPrint Graph "
                          "Chart LOP Grid Print"},
    {Transition::EndOptions, MainAfterFix},
};

TEST(ScreenStatesTest, EveryTransitionLeadsToItsScreen)
{
    FakeScreens screens;
    screens.Seen = {Surface::NumDisp, Surface::LMChart, Surface::TabIn};
    screens.Off = {Menu::mnuUtil, Menu::mnuAzi, Menu::mnuOptions};
    std::set<Transition> walked;
    int number = 0;
    for (const Step& step : Walk) {
        Apply(step.Taken, screens);
        EXPECT_EQ(screens.Summary(), step.Expected) << "step " << number;
        walked.insert(step.Taken);
        ++number;
    }
    EXPECT_EQ(walked.size(), TransitionRows().size()) << "a row that the walk leaves out, or one given twice";
}

/// Another state before must not show through: what a row names is as it says from wherever it starts.
TEST(ScreenStatesTest, RowsDontRelyOnTheStateBefore)
{
    for (const TransitionRow& row : TransitionRows()) {
        FakeScreens dark, bright;
        for (const auto& [surface, name] : SurfaceNames)
            bright.Seen.insert(surface);
        for (const auto& [menu, name] : MenuNames)
            dark.Off.insert(menu);
        const std::size_t surfaces = bright.Seen.size(), menus = dark.Off.size();
        Apply(row.When, dark);
        Apply(row.When, bright);
        EXPECT_EQ(surfaces - bright.Seen.size(), row.Hidden.size());
        EXPECT_EQ(dark.Seen.size(), row.Shown.size());
        EXPECT_EQ(menus - dark.Off.size(), row.On.size());
        EXPECT_EQ(bright.Off.size(), row.Off.size());
    }
}

TEST(ScreenStatesTest, CancelLeadsToResultsOnlyOverThem)
{
    for (const Bar bar : {Bar::Working, Bar::Starfix, Bar::Num, Bar::Graph})
        for (const bool report : {false, true})
            for (const bool chart : {false, true})
                for (const int index : {-1, 0, 1, 2}) {
                    FakeScreens screens;
                    screens.Shown = bar;
                    screens.SetVisible(Surface::TabIn, true);
                    screens.SetVisible(Surface::NumDisp, report);
                    screens.SetVisible(Surface::LMChart, chart);
                    const bool toResults = index != -1 && bar == Bar::Starfix && (report || chart);
                    EXPECT_EQ(CancelTransition(index, screens),
                              toResults ? Transition::CancelToResults : Transition::MainScreen);
                }
}

TEST(ScreenStatesTest, EraseStaysOnTheInput)
{
    FakeScreens screens;
    EXPECT_EQ(EraseTransition(screens), Transition::EraseElsewhere);
    screens.SetVisible(Surface::TabIn, true);
    EXPECT_EQ(EraseTransition(screens), Transition::EraseOnInput);
}

} // namespace
} // namespace merov::app
