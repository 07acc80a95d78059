#include "app/main_tool_bars.h"

#include "app/pictures.h"

#include <algorithm>

namespace merov::app
{
namespace
{

/// One button of a tool bar.
struct Button {
    Bar On;
    const char* Name;
    const char* Picture;
    const char* ToolTip;
    Command Runs;
};

/// The buttons of each bar from top to bottom.
constexpr Button Buttons[] = {
    {Bar::Working, "bthStarfix", "star_fix", "Star Fix calculation", Command::AstroEnter},
    {Bar::Working, "bthRLGC", "sailings", "RL, GC && ETA calculation", Command::UtilRL},
    {Bar::Working, "bthAzimuth", "azimuth", "Azimuth calculation", Command::AziGo},
    {Bar::Working, "bthStarFixWizard", "wizard", "Star Fix Wizard", Command::WizardForward},
    {Bar::Working, "bthExit", "exit", "Exit program", Command::Quit},
    {Bar::Starfix, "bthMain", "main_screen", "Back to main screen", Command::MainScreen},
    {Bar::Starfix, "bthCorr", "correct", "Correction of datas", Command::AstroCorrect},
    {Bar::Starfix, "bthGraphRes", "graph_results", "Graphic results", Command::GraphRes},
    {Bar::Starfix, "bthNumRes", "num_results", "Numeric results", Command::NumRes},
    {Bar::Num, "bthEllipse1", "ellipse", "Probability of ellipse", Command::ProbaNum},
    {Bar::Num, "bthPrint1", "print", "Print numeric results", Command::NumPrint},
    {Bar::Num, "bthBackStarFix1", "back", "Back to starfix menu", Command::BackToStarFix},
    {Bar::Graph, "bthGrid1", "grid", "Grid", Command::ChartGrid},
    {Bar::Graph, "bthGrid2", "no_grid", "No grid", Command::ChartGrid},
    {Bar::Graph, "bthLopIncr", "lop_increase", "Increase LOPs size", Command::LopStepUp},
    {Bar::Graph, "bthLopDecr", "lop_decrease", "Decrease LOPs size", Command::LopStepDown},
    {Bar::Graph, "bthChartIncr", "chart_increase", "Increase chart size", Command::ChartIncrease},
    {Bar::Graph, "bthChartDecr", "chart_decrease", "Decrease chart size", Command::ChartDecrease},
    {Bar::Graph, "bthEllipse2", "ellipse", "Probability of ellipse", Command::ProbaGraph},
    {Bar::Graph, "bthPrint2", "print", "Print chart", Command::GraphPrint},
    {Bar::Graph, "bthBackStarFix2", "back", "Back to starfix menu", Command::BackToStarFix},
};

} // namespace

MainToolBars::MainToolBars(const CommandRunner& runner, QWidget* parent) : platform::ToolBarEdge(parent)
{
    setObjectName("leftEdge");
    for (const auto& [bar, name] : {std::pair(Bar::Working, "tlhWorking"), std::pair(Bar::Starfix, "tlhStarfix"),
                                    std::pair(Bar::Num, "tlhNum"), std::pair(Bar::Graph, "tlhGraph")}) {
        auto* toolBar = new platform::ToolBar;
        toolBar->setObjectName(name);
        Add(toolBar);
        bars_[bar] = toolBar;
    }
    for (const Button& button : Buttons) {
        platform::PictureButton* made = bars_.at(button.On)->AddButton(
            Picture(button.Picture), button.ToolTip, [run = runner.Run, runs = button.Runs] { run(runs); });
        made->setObjectName(button.Name);
        made->setEnabled(runner.Has(button.Runs));
    }
    ShowGridButton(false);
}

void MainToolBars::ShowBar(Bar bar)
{
    Show(bars_.at(bar));
}

Bar MainToolBars::ShownBar() const
{
    const auto shown =
        std::find_if(bars_.begin(), bars_.end(), [this](const auto& bar) { return bar.second == Shown(); });
    return shown->first;
}

void MainToolBars::SetBarEnabled(bool enabled)
{
    bars_.at(Bar::Working)->setEnabled(enabled);
}

void MainToolBars::ShowGridButton(bool takesAway)
{
    // The two take turns at one place, and with the focus.
    auto* const coming = findChild<QWidget*>(takesAway ? "bthGrid2" : "bthGrid1");
    auto* const going = findChild<QWidget*>(takesAway ? "bthGrid1" : "bthGrid2");
    coming->show();
    if (going->hasFocus()) coming->setFocus();
    going->hide();
}

} // namespace merov::app
