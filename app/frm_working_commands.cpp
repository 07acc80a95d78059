#include "app/frm_end.h"
#include "app/frm_splash.h"
#include "app/frm_time_store.h"
#include "app/frm_working.h"
#include "app/main_surfaces.h"
#include "app/observation_files.h"
#include "app/observation_grid.h"
#include "app/tab_in.h"
#include "app/tab_options.h"
#include "fix/fix_summary.h"
#include "fix/run_fix.h"
#include "platform/application.h"
#include "platform/help_window.h"
#include "platform/printers.h"
#include "platform/status_panels.h"
#include "sailing/ellipsoid.h"

#include <QScopedValueRollback>

#include <utility>

/// The commands of the main window.

namespace merov::app
{

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

void FrmWorking::cmdNumRes()
{
    if (ComputeFix()) ShowFixSummary();
}

void FrmWorking::cmdGraphRes()
{
    if (ComputeFix()) ShowFixSummary();
}

/// Leaves the field of the input that is being edited, since a menu doesn't, and what stands on the screen
/// is to count. False when the field refuses.
bool FrmWorking::LeaveEditedField()
{
    QWidget* field = focusWidget();
    const bool edited = field != nullptr && tabIn_->isAncestorOf(field) && !tabIn_->Grid().isAncestorOf(field);
    if (!edited) return true;
    if (!platform::TakeFocus(*surfaces_)) return false;
    if (platform::Application* application = platform::Application::Running()) application->PassFocus(*field);
    return true;
}

/// Computes the true position from what stands in the input, and shows what became of the entries.
/// @return false after the box of a check
bool FrmWorking::ComputeFix()
{
    if (computing_) return false; // a second click
    const QScopedValueRollback<bool> computing(computing_, true);
    if (!LeaveEditedField()) return false;
    const bool onInput = IsVisible(Surface::TabIn);
    const int erasures = erasures_;
    tabIn_->CommitGridEditor();
    // It serves events: meanwhile the user may have gone elsewhere, or begun anew.
    if (erasures != erasures_ || (onInput && !IsVisible(Surface::TabIn))) return false;
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    const bool computed =
        fix::RunFix(input_.Entry, input_.Session, earth.InverseFlattening, earth.SemiMajorAxisNm, input_.Journal);
    if (computed)
        tabIn_->ShowEntries(); // the rows are sorted
    else
        tabIn_->ShowFields(); // the user goes on where the box found them
    return computed;
}

void FrmWorking::ShowFixSummary()
{
    for (const fix::FixPanel& panel : fix::FixPanels(input_.Session))
        staNumDisp_->SetPanelText(QString::fromStdString(panel.Key), QString::fromStdString(panel.Text));
    staNumDisp_->ShowPanels();
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
    if (!LeaveEditedField()) return; // what it refuses would be out of sight underneath
    surfaces_->CenterTab(Surface::TabOptions);
    tabOptions_->ShowPage(0);
    Change(Transition::Options);
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
    if (help_ == nullptr) help_ = new platform::HelpWindow(this);
    help_->ShowTopic(tables_.AppPath + "/Merov.chm");
}

void FrmWorking::mnuHelpAbout()
{
    frmSplash_->Open();
}

} // namespace merov::app
