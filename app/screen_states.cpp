#include "app/screen_states.h"

#include <algorithm>
#include <stdexcept>

namespace merov::app
{
namespace
{

using enum Surface;
using enum Menu;
using T = Transition;

using Surfaces = std::vector<Surface>;
using Menus = std::vector<Menu>;

/// All of both.
template <class Item>
std::vector<Item> operator+(std::vector<Item> first, const std::vector<Item>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// What several rows name.
const Surfaces ThreePictures{StarFix, RLGC, Azimuth};
const Surfaces FourPictures{StarFix, RLGC, Azimuth, StarFixWizard};
const Surfaces MainSurfaces{Gradient, StarFix, RLGC, Azimuth, StarFixWizard};
const Menus InputMenus{mnuAstroCorrect, mnuAstroSave, mnuAstroErase, mnuAstroNum, mnuAstroGraph};
const Menus Displays{mnuAstroNumDisp, mnuAstroGraphDisp};
const Menus ChartMenus{mnuAstroGraphChart, mnuAstroGraphLOP, mnuAstroGraphGrid, mnuAstroGraphPrint};
const Menus PrintAndChart = Menus{mnuAstroNumPrint} + ChartMenus;
const Menus OtherTools{mnuUtil, mnuAzi, mnuOptions};
const Menus ResultMenus = Menus{mnuAstroNum, mnuAstroGraph} + Displays;
const Menus AstroAndTools{mnuAstro, mnuAzi, mnuOptions};
const Menus AllTools = Menus{mnuAstro} + OtherTools;
constexpr std::nullopt_t Same = std::nullopt;

// clang-format off
const std::vector<TransitionRow> Rows{
//   transition           surfaces shown   surfaces hidden               left edge     tlhWorking  menus on                menus off
//                                                                                     enabled
    {T::AstroEnter,       {TabIn},         FourPictures,                 Bar::Starfix, Same,       {},                     OtherTools},
    {T::AstroCorrect,     {TabIn},         {},                           Same,         Same,       {},                     {}},
    {T::CancelToResults,  {},              {TabIn},                      Same,         Same,       {},                     {}},
    {T::MainScreen,       MainSurfaces,    {NumDisp, LMChart, TabIn},    Bar::Working, Same,       OtherTools,             InputMenus},
    {T::EraseEntries,     {},              {},                           Same,         Same,       {},                     InputMenus},
    {T::EraseOnInput,     {},              {NumDisp, LMChart},           Same,         Same,       OtherTools,             InputMenus},
    {T::EraseElsewhere,   MainSurfaces,    {NumDisp, LMChart},           Bar::Working, Same,       OtherTools,             InputMenus},
    {T::InputComplete,    {},              {},                           Same,         Same,       InputMenus + Displays,  PrintAndChart},
    {T::ReportAwaited,    {Gradient},      {TabIn, NumDisp, LMChart},    Bar::Num,     Same,       {},                     {}},
    {T::NumericReport,    {NumDisp},       {Gradient, LMChart},          Same,         Same,       {mnuAstroNumPrint},     {mnuAstroNumDisp}},
    {T::Chart,            {LMChart},       {TabIn, Gradient, NumDisp},   Bar::Graph,   Same,       ChartMenus,             {mnuAstroGraphDisp}},
    {T::BackToStarFix,    {},              {},                           Bar::Starfix, Same,       ResultMenus,            PrintAndChart},
    {T::Utilities,        {TabUtil},       ThreePictures,                Same,         false,      {},                     {mnuAstro, mnuAzi}},
    {T::EndUtilities,     ThreePictures,   {TabUtil},                    Same,         true,       AstroAndTools,          {}},
    {T::AzimuthOpened,    {},              ThreePictures,                Same,         false,      {},                     AllTools},
    {T::AzimuthClosed,    ThreePictures,   {},                           Bar::Working, true,       AllTools,               {}},
    {T::WizardOpened,     {},              {},                           Same,         Same,       {},                     {mnuStarFixWizard}},
    {T::WizardClosed,     {},              {},                           Same,         Same,       {mnuStarFixWizard},     {}},
    {T::WizardCancelled,  {StarFixWizard}, {},                           Same,         Same,       {mnuStarFixWizard},     {}},
    {T::Options,          {TabOptions},    {},                           Same,         Same,       {},                     {}},
    {T::OptionsFromUtil,  {TabOptions},    {TabUtil},                    Same,         Same,       {},                     {}},
    {T::EndOptions,       {},              {TabOptions},                 Same,         Same,       {},                     {}},
    {T::EndOptionsToUtil, {TabUtil},       {TabOptions},                 Same,         Same,       {},                     {}},
};
// clang-format on

} // namespace

std::span<const TransitionRow> TransitionRows()
{
    return Rows;
}

void Apply(Transition transition, Screens& screens)
{
    const auto row = std::find_if(Rows.begin(), Rows.end(),
                                  [transition](const TransitionRow& each) { return each.When == transition; });
    if (row == Rows.end()) throw std::logic_error("a transition without a row");
    for (const Surface surface : row->Hidden)
        screens.SetVisible(surface, false);
    for (const Surface surface : row->Shown)
        screens.SetVisible(surface, true);
    if (row->LeftEdge) screens.ShowBar(*row->LeftEdge);
    if (row->WorkingBarEnabled) screens.SetBarEnabled(*row->WorkingBarEnabled);
    for (const Menu menu : row->Off)
        screens.SetEnabled(menu, false);
    for (const Menu menu : row->On)
        screens.SetEnabled(menu, true);
}

Transition CancelTransition(int index, const Screens& screens)
{
    const bool overResults = screens.ShownBar() == Bar::Starfix &&
                             (screens.IsVisible(Surface::NumDisp) || screens.IsVisible(Surface::LMChart));
    return index >= 0 && overResults ? Transition::CancelToResults : Transition::MainScreen;
}

Transition WizardCancelTransition(const Screens& screens)
{
    return screens.ShownBar() == Bar::Working ? Transition::WizardCancelled : Transition::WizardClosed;
}

Transition EraseTransition(const Screens& screens)
{
    return screens.IsVisible(Surface::TabIn) ? Transition::EraseOnInput : Transition::EraseElsewhere;
}

} // namespace merov::app
