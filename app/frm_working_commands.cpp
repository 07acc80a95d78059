#include "app/frm_end.h"
#include "app/frm_splash.h"
#include "app/frm_time_store.h"
#include "app/frm_working.h"
#include "app/main_surfaces.h"
#include "app/observation_files.h"
#include "app/observation_grid.h"
#include "app/tab_in.h"
#include "app/tab_options.h"
#include "app/tab_util.h"
#include "platform/application.h"
#include "platform/help_window.h"
#include "platform/message_boxes.h"
#include "platform/printers.h"
#include "platform/status_panels.h"

#include <map>
#include <utility>

/// The commands of the main window, but for those of the results.

namespace merov::app
{
namespace
{

using Routine = void (FrmWorking::*)();

/// What each command runs. One that is not in the list has no routine: its menu entries and buttons stay
/// disabled, whatever else happens on the screens.
const std::map<Command, Routine>& Routines()
{
    using F = FrmWorking;
    static const std::map<Command, Routine> routines{
        {Command::PageSetup, &F::mnuFilePageSetup},
        {Command::Quit, &F::mnuFileQuit},
        {Command::AstroEnter, &F::mnuAstroEnter},
        {Command::AstroLoad, &F::mnuAstroLoad},
        {Command::AstroCorrect, &F::mnuAstroCorrect},
        {Command::AstroSave, &F::mnuAstroSave},
        {Command::AstroErase, &F::mnuAstroErase},
        {Command::NumRes, &F::cmdNumRes},
        {Command::NumPrint, &F::mnuAstroNumPrint},
        {Command::GraphRes, &F::cmdGraphRes},
        {Command::ChartIncrease, &F::bthChartIncr},
        {Command::ChartDecrease, &F::bthChartDecr},
        {Command::LopIncrease, &F::mnuAstroGraphLOPInc},
        {Command::LopDecrease, &F::mnuAstroGraphLOPDec},
        {Command::LopStepUp, &F::bthLopIncr},
        {Command::LopStepDown, &F::bthLopDecr},
        {Command::ChartGrid, &F::mnuAstroGraphGrid},
        {Command::GraphPrint, &F::mnuAstroGraphPrint},
        {Command::Proba, &F::mnuAstroProba},
        {Command::ProbaNum, &F::bthEllipse1},
        {Command::ProbaGraph, &F::bthEllipse2},
        {Command::UtilRL, &F::mnuUtilRL},
        {Command::UtilGC, &F::mnuUtilGC},
        {Command::UtilETA, &F::mnuUtilETA},
        {Command::AziGo, &F::mnuAziGo},
        {Command::WizardStart, &F::mnuStarFixWizardStart},
        {Command::WizardForward, &F::bthStarFixWizard},
        {Command::OptionsTab, &F::mnuOptionsTab},
        {Command::Manual, &F::mnuHelpManual},
        {Command::About, &F::mnuHelpAbout},
        {Command::MainScreen, &F::bthMain},
        {Command::BackToStarFix, &F::bthBackStarFix},
    };
    return routines;
}

} // namespace

bool FrmWorking::HasRoutine(Command command)
{
    return Routines().contains(command);
}

void FrmWorking::Run(Command command)
{
    const auto routine = Routines().find(command);
    if (routine != Routines().end()) Guarded([this, routine] { (this->*routine->second)(); });
}

/// Runs a command, from which nothing may leave into the event loop: a fault of the calculation, or any
/// other, ends it with a box.
void FrmWorking::Guarded(const std::function<void()>& command)
{
    try {
        command();
    } catch (...) {
        platform::ShowCaught();
    }
}

void FrmWorking::mnuFilePageSetup()
{
    platform::AskPrintSetup(surroundings_.Printers, this);
}

void FrmWorking::mnuFileQuit()
{
    if (!UserEnds(false)) return;
    ending_ = true;
    close();
}

void FrmWorking::mnuAstroEnter()
{
    surfaces_->CenterTab(Surface::TabIn);
    if (!std::exchange(astroStarted_, true)) cmdEraseObs();
    Change(Transition::AstroEnter);
    FocusInput();
}

void FrmWorking::mnuAstroLoad()
{
    mnuAstroEnter();
    cmdLoadObs();
}

void FrmWorking::mnuAstroCorrect()
{
    surfaces_->CenterTab(Surface::TabIn);
    Change(Transition::AstroCorrect);
    FocusInput();
}

void FrmWorking::mnuAstroSave()
{
    if (LeaveEditedField()) files_->Save();
}

void FrmWorking::mnuAstroErase()
{
    cmdEraseObs();
    Change(EraseTransition(*this));
}

void FrmWorking::cmdLoadObs()
{
    const QString file = std::exchange(startFile_, QString());
    if (files_->Load(file, [this] { cmdEraseObs(); })) Change(Transition::InputComplete);
}

void FrmWorking::cmdEraseObs()
{
    ++erasures_;
    tabIn_->Erase();
    staNumDisp_->ShowSimple();
    Change(Transition::EraseEntries);
}

/// Leaves the field of the input or of the sailings that is being edited, since a menu doesn't, and what
/// stands on the screen is to count. False when the field refuses.
bool FrmWorking::LeaveEditedField()
{
    QWidget* field = focusWidget();
    const bool onInput = tabIn_->isAncestorOf(field) && !tabIn_->Grid().isAncestorOf(field);
    if (!onInput && !tabUtil_->isAncestorOf(field)) return true;
    if (!platform::TakeFocus(*surfaces_)) return false;
    if (platform::Application* application = platform::Application::Running()) application->PassFocus(*field);
    return true;
}

void FrmWorking::cmdChronoF5()
{
    frmTimeStore_->Open();
}

void FrmWorking::cmdCancel(int index)
{
    tabIn_->ShowPage(0);
    Change(CancelTransition(index, *this));
}

void FrmWorking::bthMain()
{
    cmdCancel(-1);
}

void FrmWorking::ShowMainScreen()
{
    Change(Transition::MainScreen);
}

void FrmWorking::bthBackStarFix()
{
    Change(Transition::BackToStarFix);
}

void FrmWorking::mnuOptionsTab()
{
    if (LeaveEditedField()) OpenOptions(Transition::Options); // what it refuses would be out of sight underneath
}

void FrmWorking::OpenOptions(Transition transition)
{
    surfaces_->CenterTab(Surface::TabOptions);
    tabOptions_->ShowPage(0);
    Change(transition);
    FocusFirst(*tabOptions_->currentWidget());
}

void FrmWorking::cmdEndTabOptions()
{
    const bool toUtil = tabOptions_->CalledFromUtil();
    tabOptions_->SetCalledFromUtil(false);
    Change(toUtil ? Transition::EndOptionsToUtil : Transition::EndOptions);
}

void FrmWorking::mnuHelpManual()
{
    ShowManual("");
}

/// Opens the manual at one of its pages; empty: where it stands.
void FrmWorking::ShowManual(const char* page)
{
    if (help_ == nullptr) help_ = new platform::HelpWindow(this);
    help_->ShowTopic(tables_.AppPath + "/Merov.chm", page);
}

void FrmWorking::mnuHelpAbout()
{
    frmSplash_->Open();
}

} // namespace merov::app
