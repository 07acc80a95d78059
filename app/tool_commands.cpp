#include "app/frm_azimuth.h"
#include "app/frm_star_fix_wizard.h"
#include "app/frm_working.h"

#include <QShortcut>

/// The commands of the tools that stand beside the main window.

namespace merov::app
{
namespace
{

// Pages of the manual.
constexpr const char* AzimuthPage = "azimuth.html";
constexpr const char* WizardPage = "wizard.html";

} // namespace

void FrmWorking::mnuAziGo()
{
    if (!LeaveEditedField()) return; // what it refuses would be out of reach behind the locks
    if (frmAzimuth_ == nullptr) {
        frmAzimuth_ = new FrmAzimuth(this);
        frmAzimuth_->OnClosed = [this] { Change(Transition::AzimuthClosed); };
        frmAzimuth_->OnHelp = [this] { Guarded([this] { ShowManual(WizardPage); }); };
        frmAzimuth_->OnCaptureTime = [this] { Guarded([this] { cmdChronoF5(); }); };
        OpenManualByF1(*frmAzimuth_, AzimuthPage);
    }
    Change(Transition::AzimuthOpened);
    frmAzimuth_->Open();
}

void FrmWorking::mnuStarFixWizardStart()
{
    if (frmStarFixWizard_ == nullptr) {
        frmStarFixWizard_ = new FrmStarFixWizard(this);
        frmStarFixWizard_->OnClosed = [this] { EndWizard(Transition::WizardClosed); };
        frmStarFixWizard_->OnCancelled = [this] { EndWizard(WizardCancelTransition(*this)); };
        frmStarFixWizard_->OnHelp = [this] { Guarded([this] { ShowManual(WizardPage); }); };
        frmStarFixWizard_->OnCaptureTime = [this] { Guarded([this] { cmdChronoF5(); }); };
        OpenManualByF1(*frmStarFixWizard_, WizardPage);
    }
    wizardOpen_ = true;
    Change(Transition::WizardOpened);
    frmStarFixWizard_->OpenFromMain();
}

/// Goes on with the plan that is under way, or starts one.
void FrmWorking::bthStarFixWizard()
{
    if (wizardOpen_)
        frmStarFixWizard_->ShowForward();
    else
        mnuStarFixWizardStart();
}

void FrmWorking::EndWizard(Transition transition)
{
    wizardOpen_ = false;
    Change(transition);
    activateWindow();
}

void FrmWorking::OpenManualByF1(QWidget& form, const char* page)
{
    const auto open = [this, page] { Guarded([this, page] { ShowManual(page); }); };
    connect(new QShortcut(QKeySequence(Qt::Key_F1), &form), &QShortcut::activated, this, open);
}

} // namespace merov::app
