#pragma once

#include <optional>
#include <span>
#include <vector>

/// Which surfaces, tool bar and menus each command shows and hides: the whole state of the screens.

namespace merov::app
{

/// The surfaces of the main window. The pictures of the main screen stand one by one.
enum class Surface {
    Gradient,      ///< panhGradient, the background of the main screen
    StarFix,       ///< picStarFix
    RLGC,          ///< picRLGC
    Azimuth,       ///< picAzimuth
    StarFixWizard, ///< picStarFixWizard
    TabIn,         ///< input of an astro fix
    TabUtil,       ///< sailings
    TabOptions,    ///< preferences
    NumDisp,       ///< rtfNumDisp, the numeric report
    LMChart        ///< picLMChart, the chart
};

/// The tool bars of the left edge, one at a time.
enum class Bar { Working, Starfix, Num, Graph };

/// The menu entries that commands switch on and off, by their control names.
enum class Menu {
    mnuAstro,
    mnuAstroCorrect,
    mnuAstroSave,
    mnuAstroErase,
    mnuAstroNum,
    mnuAstroNumDisp,
    mnuAstroNumPrint,
    mnuAstroGraph,
    mnuAstroGraphDisp,
    mnuAstroGraphChart,
    mnuAstroGraphLOP,
    mnuAstroGraphGrid,
    mnuAstroGraphPrint,
    mnuUtil,
    mnuAzi,
    mnuStarFixWizard,
    mnuOptions
};

/// The moments at which the screens change. A command with a condition has a row for each case.
enum class Transition {
    AstroEnter,       ///< mnuAstroEnter
    AstroCorrect,     ///< mnuAstroCorrect
    CancelToResults,  ///< cmdCancel over results
    MainScreen,       ///< ShowMainScreen
    EraseEntries,     ///< cmdEraseObs: the astro menus go off
    EraseOnInput,     ///< mnuAstroErase with the input in view
    EraseElsewhere,   ///< mnuAstroErase from the results
    InputComplete,    ///< observations reached with a complete input, or a file loaded
    ReportAwaited,    ///< cmdNumRes after a fix: the moment before the report shows
    NumericReport,    ///< the report shows
    Chart,            ///< cmdGraphRes after a fix
    BackToStarFix,    ///< bthBackStarFix1, bthBackStarFix2
    Utilities,        ///< mnuUtilRL, mnuUtilGC, mnuUtilETA
    EndUtilities,     ///< cmdEndTabUtil
    AzimuthOpened,    ///< mnuAziGo
    AzimuthClosed,    ///< frmAzimuth closes
    WizardOpened,     ///< mnuStarFixWizardStart
    WizardClosed,     ///< frmStarFixWizard closes
    WizardCancelled,  ///< "Cancel" of frmStarFixWizard
    Options,          ///< mnuOptionsTab
    OptionsFromUtil,  ///< double click on the ellipsoid's name of a sailing page
    EndOptions,       ///< cmdEndTabOptions
    EndOptionsToUtil, ///< cmdEndTabOptions after OptionsFromUtil
};

/// What a transition does. What a row doesn't name stays as it is.
struct TransitionRow {
    Transition When;
    std::vector<Surface> Shown;
    std::vector<Surface> Hidden;
    std::optional<Bar> LeftEdge;           ///< the tool bar that takes the left edge
    std::optional<bool> WorkingBarEnabled; ///< of tlhWorking
    std::vector<Menu> On;
    std::vector<Menu> Off;
};

/// The table, a row for each transition.
std::span<const TransitionRow> TransitionRows();

/// What carries a row out, and tells what is in view.
class Screens
{
public:
    virtual ~Screens() = default;
    virtual void SetVisible(Surface surface, bool visible) = 0;
    virtual bool IsVisible(Surface surface) const = 0;
    virtual void SetEnabled(Menu menu, bool enabled) = 0;
    virtual void ShowBar(Bar bar) = 0; ///< puts a tool bar at the left edge in place of the one there
    virtual Bar ShownBar() const = 0;
    virtual void SetBarEnabled(bool enabled) = 0; ///< of tlhWorking
};

/// Does what the row of a transition says: each surface, menu and bar that it names; all else stays.
void Apply(Transition transition, Screens& screens);

/// The transition of cmdCancel: CancelToResults where the input lies over results, else MainScreen.
/// @param index  0..2, the tab of the button; -1 leads to the main screen always
Transition CancelTransition(int index, const Screens& screens);

/// The transition of the wizard's "Cancel": its picture shows again where the main screen's pictures are.
Transition WizardCancelTransition(const Screens& screens);

/// The transition of mnuAstroErase, which depends on whether the input is in view.
Transition EraseTransition(const Screens& screens);

} // namespace merov::app
