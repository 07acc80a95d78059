#include "app/eta_page.h"
#include "app/frm_working.h"
#include "app/main_surfaces.h"
#include "app/print_flow.h"
#include "app/tab_options.h"
#include "app/tab_util.h"
#include "output/print_lib.h"
#include "platform/overlay_grid.h"
#include "platform/print_job.h"
#include "platform/rich_text_box.h"

/// The commands of the sailings.

namespace merov::app
{
namespace
{

// By which the cells of the times of arrival shrink on paper.
constexpr double EtaWidthFactor = 0.77;
constexpr double EtaHeightFactor = 0.7;

} // namespace

void FrmWorking::mnuUtilRL()
{
    OpenUtility(0);
}

void FrmWorking::mnuUtilGC()
{
    OpenUtility(1);
}

void FrmWorking::mnuUtilETA()
{
    OpenUtility(2);
}

/// Opens the sailings on a page.
void FrmWorking::OpenUtility(int page)
{
    if (!LeaveEditedField()) return;
    surfaces_->CenterTab(Surface::TabUtil);
    tabUtil_->ShowPage(page);
    Change(Transition::Utilities);
    tabUtil_->SelectSailingPage();
}

void FrmWorking::cmdEndTabUtil()
{
    Change(Transition::EndUtilities);
}

/// Lends the preferences to a page of the sailings, so that the user can choose another ellipsoid.
void FrmWorking::ChangeEllipsoid()
{
    if (!LeaveEditedField()) return;
    tabOptions_->SetCalledFromUtil(true);
    OpenOptions(Transition::OptionsFromUtil);
}

void FrmWorking::PrintSailingReport()
{
    Printing().Print({.Title = "Great circle", .Subject = "the results", .Engine = [this](platform::PrintJob& job) {
                          output::PrintRichText(*tabUtil_->Report().document(), job, output::SailingReportMargins);
                      }});
}

void FrmWorking::PrintEtaTable()
{
    Printing().Print({.Title = "ETA table", .Subject = "the results", .Engine = [this](platform::PrintJob& job) {
                          output::PrintGrid(tabUtil_->Eta().Table(), job, output::GridPrintStyle{}, EtaWidthFactor,
                                            EtaHeightFactor);
                      }});
}

} // namespace merov::app
