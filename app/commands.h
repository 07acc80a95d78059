#pragma once

#include <functional>

/// The commands of the menu bar, the tool bars and the main screen.

namespace merov::app
{

enum class Command {
    None,          ///< an entry that only opens others
    PageSetup,     ///< mnuFilePageSetup
    Quit,          ///< mnuFileQuit
    AstroEnter,    ///< mnuAstroEnter
    AstroLoad,     ///< mnuAstroLoad
    AstroCorrect,  ///< mnuAstroCorrect
    AstroSave,     ///< mnuAstroSave
    AstroErase,    ///< mnuAstroErase
    NumRes,        ///< cmdNumRes
    NumPrint,      ///< mnuAstroNumPrint
    GraphRes,      ///< cmdGraphRes
    ChartIncrease, ///< mnuAstroGraphChartInc
    ChartDecrease, ///< mnuAstroGraphChartDec
    LopIncrease,   ///< mnuAstroGraphLOPInc
    LopDecrease,   ///< mnuAstroGraphLOPDec
    LopStepUp,     ///< bthLopIncr, which takes smaller steps below 1
    LopStepDown,   ///< bthLopDecr
    ChartGrid,     ///< mnuAstroGraphGrid
    GraphPrint,    ///< mnuAstroGraphPrint
    Proba,         ///< mnuAstroProba
    ProbaNum,      ///< the same from the numeric report, which is always made anew
    ProbaGraph,    ///< the same from the chart
    UtilRL,        ///< mnuUtilRL
    UtilGC,        ///< mnuUtilGC
    UtilETA,       ///< mnuUtilETA
    AziGo,         ///< mnuAziGo
    WizardStart,   ///< mnuStarFixWizardStart
    WizardForward, ///< the wizard that is open, else a new one
    OptionsTab,    ///< mnuOptionsTab
    Manual,        ///< mnuHelpManual
    About,         ///< mnuHelpAbout
    MainScreen,    ///< bthMain
    BackToStarFix  ///< bthBackStarFix1, bthBackStarFix2
};

/// Whoever carries commands out. Menus and buttons of a command that isn't there stay disabled.
struct CommandRunner {
    std::function<void(Command)> Run;
    std::function<bool(Command)> Has;
};

} // namespace merov::app
