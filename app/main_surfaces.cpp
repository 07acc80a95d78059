#include "app/main_surfaces.h"

#include "app/chart_view.h"
#include "app/gradient_panel.h"
#include "app/main_tool_bars.h"
#include "app/pictures.h"
#include "platform/rich_text_box.h"
#include "platform/twips.h"

#include <algorithm>

namespace merov::app
{
namespace
{

using platform::Pixels;

constexpr int PictureButtonSize = 152; // pixels
constexpr int PictureSize = 112;
constexpr double ResultsGap = 15.0; ///< twips between the tool bar and a result

/// A picture button of the main screen.
struct MainPicture {
    Surface Place;
    const char* Name;
    const char* Picture;
    const char* ToolTip;
    Command Runs;
};

constexpr MainPicture MainPictures[] = {
    {Surface::StarFix, "picStarFix", "star_fix", "Star Fix calculation", Command::AstroEnter},
    {Surface::RLGC, "picRLGC", "sailings", "RL, GC & ETA calculation", Command::UtilRL},
    {Surface::Azimuth, "picAzimuth", "azimuth", "Azimuth calculation", Command::AziGo},
    {Surface::StarFixWizard, "picStarFixWizard", "wizard", "Star Fix Wizard", Command::WizardForward},
};

} // namespace

MainSurfaces::MainSurfaces(QWidget* parent) : QWidget(parent)
{
    auto* gradient = new GradientPanel(this);
    gradient->setObjectName("panhGradient");
    rtfNumDisp_ = new platform::RichTextBox(this);
    rtfNumDisp_->setObjectName("rtfNumDisp");
    rtfNumDisp_->setAccessibleName("Numeric results");
    rtfNumDisp_->hide();
    picLMChart_ = new ChartView(this);
    picLMChart_->setObjectName("picLMChart");
    picLMChart_->hide();
    surfaces_ = {{Surface::Gradient, gradient}, {Surface::NumDisp, rtfNumDisp_}, {Surface::LMChart, picLMChart_}};
}

void MainSurfaces::AddPictures(const CommandRunner& runner)
{
    for (const MainPicture& picture : MainPictures) {
        auto* button = new platform::PictureButton(Picture(picture.Picture), picture.ToolTip, this);
        button->setObjectName(picture.Name);
        button->setIconSize({PictureSize, PictureSize});
        button->resize(PictureButtonSize, PictureButtonSize);
        button->setAutoRaise(false);
        button->setEnabled(runner.Has(picture.Runs));
        button->OnClick = [run = runner.Run, runs = picture.Runs] { run(runs); };
        surfaces_[picture.Place] = button;
    }
}

void MainSurfaces::AddToolBars(MainToolBars* bars)
{
    toolBars_ = bars;
    bars->setParent(this);
    bars->setAutoFillBackground(true);
}

void MainSurfaces::AddTab(Surface surface, QWidget* tab)
{
    tab->setParent(this);
    tab->setAutoFillBackground(true); // nothing shines through beside the headers
    tab->hide();
    surfaces_[surface] = tab;
}

QWidget* MainSurfaces::Find(Surface surface) const
{
    const auto found = surfaces_.find(surface);
    return found == surfaces_.end() ? nullptr : found->second;
}

void MainSurfaces::SetVisible(Surface surface, bool visible)
{
    QWidget* widget = Find(surface);
    if (widget == nullptr) return;
    if (Covers(surface)) {
        std::erase(covering_, surface);
        if (visible) {
            covering_.push_back(surface);
            widget->raise();
        }
        for (const Surface each : covering_)
            Find(each)->setEnabled(each == covering_.back());
    }
    widget->setVisible(visible);
    if (widget == picLMChart_ && !visible) picLMChart_->Clear();
}

bool MainSurfaces::Covers(Surface surface)
{
    return surface == Surface::TabIn || surface == Surface::TabUtil || surface == Surface::TabOptions ||
           surface == Surface::NumDisp || surface == Surface::LMChart;
}

std::optional<Surface> MainSurfaces::Topmost() const
{
    return covering_.empty() ? std::nullopt : std::optional(covering_.back());
}

bool MainSurfaces::IsShown(Surface surface) const
{
    const QWidget* widget = Find(surface);
    return widget != nullptr && !widget->isHidden();
}

void MainSurfaces::CenterTab(Surface surface)
{
    QWidget* tab = Find(surface);
    if (tab == nullptr) return;
    // In the smallest windows the tool bar stays free.
    const int left = std::max((width() - tab->width()) / 2, toolBars_->width());
    tab->move(left, std::max((height() - tab->height()) / 2, 0));
}

void MainSurfaces::resizeEvent(QResizeEvent*)
{
    Arrange();
}

void MainSurfaces::Arrange()
{
    if (window()->isMinimized()) return;
    const int barWidth = toolBars_->sizeHint().width();
    toolBars_->setGeometry(0, 0, barWidth, height());
    surfaces_.at(Surface::Gradient)->setGeometry(rect());
    const int left = barWidth + Pixels(ResultsGap);
    for (const Surface result : {Surface::NumDisp, Surface::LMChart})
        if (QWidget* widget = Find(result)) widget->setGeometry(left, 0, width() - left, height());
    ArrangePictures();
    for (const Surface tab : {Surface::TabIn, Surface::TabUtil, Surface::TabOptions})
        CenterTab(tab);
}

/// Two by two in the middle, a little to the left.
void MainSurfaces::ArrangePictures()
{
    QWidget& starFix = *Find(Surface::StarFix);
    QWidget& sailings = *Find(Surface::RLGC);
    QWidget& wizard = *Find(Surface::StarFixWizard);
    const double left = (window()->width() - (starFix.width() + sailings.width()) * 1.6) / 2.0;
    const double right = left + starFix.width() * 1.5;
    const double above = (height() - (starFix.height() + wizard.height()) * 1.2) / 2.0;
    const double below = above + starFix.height() * 1.5;
    starFix.move(qRound(left), qRound(above));
    sailings.move(qRound(right), qRound(above));
    Find(Surface::Azimuth)->move(qRound(left), qRound(below));
    wizard.move(qRound(right), qRound(below));
}

} // namespace merov::app
