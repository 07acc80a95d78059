#include "app/chart_view.h"
#include "app/frm_proba.h"
#include "app/frm_working.h"
#include "app/main_menu.h"
#include "app/main_surfaces.h"
#include "app/main_tool_bars.h"
#include "app/print_flow.h"
#include "app/tab_in.h"
#include "ephemeris/time_lib.h"
#include "fix/fix_summary.h"
#include "fix/run_fix.h"
#include "fix/sight_views.h"
#include "numeric/inout_lib.h"
#include "output/numeric_report.h"
#include "output/print_lib.h"
#include "platform/file_dialogs.h"
#include "platform/print_job.h"
#include "platform/rich_text.h"
#include "platform/rich_text_box.h"
#include "platform/status_panels.h"
#include "sailing/ellipsoid.h"

#include <QScopedValueRollback>

#include <optional>
#include <utility>

/// The commands of the results: report, chart, probability, printing.

namespace merov::app
{
namespace
{

constexpr float ReportPause = 0.3F; // seconds
constexpr int ReportCursor = 20;    // characters from the top

} // namespace

/// Computes the true position from what stands in the input, and shows what became of the entries.
/// @return false after the box of a check
bool FrmWorking::ComputeFix()
{
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

void FrmWorking::cmdNumRes()
{
    if (computing_) return; // a second click
    const QScopedValueRollback<bool> computing(computing_, true);
    if (!ComputeFix()) return;
    ShowFixSummary();
    ShowNumericReport();
}

/// Builds the report and shows it, a moment after the screen has turned to it. Without its template the
/// screens stay as they are.
void FrmWorking::ShowNumericReport()
{
    platform::RichText report;
    const std::optional<QString> failure =
        output::BuildNumericReport(report, tables_.AppPath + "/" + ReportTemplate, input_.Session,
                                   sailing::ActiveEllipsoid(), output::LinesPerPage(surroundings_.Printers));
    if (failure) {
        TellMissing({ReportTemplate + (": " + failure->toStdString())});
        return;
    }
    Change(Transition::ReportAwaited);
    const int erasures = erasures_;
    const std::optional<Surface> below = surfaces_->Topmost();
    ephemeris::PauseSeconds(ReportPause);
    // It serves events: the report is not for a user who has gone elsewhere.
    if (erasures != erasures_ || surfaces_->Topmost() != below || ShownBar() == Bar::Working) return;
    const bool onWay = ShownBar() == Bar::Starfix; // back to the menu of the fix, the results stay in view
    surfaces_->NumericReport().Show(std::move(report));
    Change(Transition::NumericReport);
    surfaces_->NumericReport().ShowPosition(ReportCursor);
    if (onWay) Change(Transition::BackToStarFix);
}

void FrmWorking::cmdGraphRes()
{
    if (computing_) return;
    const QScopedValueRollback<bool> computing(computing_, true);
    if (!ComputeFix()) return;
    ShowFixSummary();
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    fix::BuildChartView(input_.Session, earth.InverseFlattening, earth.SemiMajorAxisNm);
    surfaces_->Chart().SetFix(input_.Session, earth);
    DrawChart();
    Change(Transition::Chart);
}

void FrmWorking::DrawChart()
{
    surfaces_->Chart().Draw(input_.Chart, gridVisible_);
}

void FrmWorking::SizeChart(void (output::ChartSettings::*step)())
{
    (input_.Chart.*step)();
    DrawChart();
}

void FrmWorking::bthChartIncr()
{
    SizeChart(&output::ChartSettings::IncreaseChart);
}

void FrmWorking::bthChartDecr()
{
    SizeChart(&output::ChartSettings::DecreaseChart);
}

void FrmWorking::bthLopIncr()
{
    SizeChart(&output::ChartSettings::StepLopsUp);
}

void FrmWorking::bthLopDecr()
{
    SizeChart(&output::ChartSettings::StepLopsDown);
}

void FrmWorking::mnuAstroGraphLOPInc()
{
    SizeChart(&output::ChartSettings::IncreaseLops);
}

void FrmWorking::mnuAstroGraphLOPDec()
{
    SizeChart(&output::ChartSettings::DecreaseLops);
}

void FrmWorking::mnuAstroGraphGrid()
{
    gridVisible_ = !gridVisible_;
    toolBars_->ShowGridButton(gridVisible_);
    menu_->TickGrid(gridVisible_);
    DrawChart();
}

/// Lets the user choose the probability. @return true if it has changed
bool FrmWorking::ChooseProbability()
{
    const double before = input_.Session.Probability;
    if (frmProba_ == nullptr) frmProba_ = new FrmProba(input_.Session.Probability, this);
    frmProba_->Open();
    return input_.Session.Probability != before;
}

void FrmWorking::mnuAstroProba()
{
    if (computing_ || !ChooseProbability()) return;
    if (IsVisible(Surface::NumDisp))
        cmdNumRes();
    else if (IsVisible(Surface::LMChart))
        cmdGraphRes();
    else if (staNumDisp_->ShowsPanels())
        staNumDisp_->SetPanelText(
            "Proba", QString::fromStdString(numeric::FormatNumber(input_.Session.Probability * 100.0, "##.0") + " %"));
}

void FrmWorking::bthEllipse1()
{
    if (computing_) return;
    ChooseProbability();
    cmdNumRes();
}

void FrmWorking::bthEllipse2()
{
    if (computing_) return;
    ChooseProbability();
    cmdGraphRes();
}

void FrmWorking::mnuAstroNumPrint()
{
    if (!IsVisible(Surface::NumDisp)) return;
    Printing().Print({.Title = "Astronomic position",
                      .Subject = "the results",
                      .Chooses = true,
                      .Engine = [this](platform::PrintJob& job) {
                          output::PrintRichText(*surfaces_->NumericReport().document(), job, output::ReportMargins);
                      }});
}

void FrmWorking::mnuAstroGraphPrint()
{
    if (!IsVisible(Surface::LMChart)) return;
    Printing().Print({.Title = "Position chart",
                      .Subject = "the chart",
                      .Orientation = QPageLayout::Landscape,
                      .Engine = [this](platform::PrintJob& job) {
                          const auto chart = surfaces_->Chart().Subject();
                          if (chart && output::DrawChartPage(job, *chart)) job.EndDoc();
                      }});
}

platform::FileDialogs& FrmWorking::Dialogs()
{
    return surroundings_.Files != nullptr ? *surroundings_.Files : *ownDialogs_;
}

PrintFlow& FrmWorking::Printing()
{
    if (!printing_)
        printing_ = std::make_unique<PrintFlow>(surroundings_.Printers, Dialogs(), surroundings_.Documents,
                                                surroundings_.WaitTick, this);
    return *printing_;
}

} // namespace merov::app
