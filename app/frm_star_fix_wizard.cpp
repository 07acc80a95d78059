#include "app/frm_star_fix_wizard.h"

#include "app/frm_sky_dome.h"
#include "app/mirrored_edit.h"
#include "app/wizard_entries.h"
#include "app/wizard_list.h"
#include "app/wizard_table.h"
#include "app/wizard_times.h"
#include "platform/message_boxes.h"
#include "platform/push_button.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

constexpr std::array<const char*, planning::StarPlan::LastStep> StepCaptions = {"Step 1", "Step 2", "Step 3",
                                                                                "Position of the selected stars on"};

constexpr QSize OpeningSize(560, 460); // pixels
constexpr int ButtonGap = 6;

/// Runs a command of a button; an error ends it with its box.
template <class Command>
void Guarded(Command command)
{
    try {
        command();
    } catch (...) {
        platform::ShowCaught();
    }
}

} // namespace

FrmStarFixWizard::FrmStarFixWizard(QWidget* parent)
    : ModelessForm(QStringLiteral(" Star Fix Wizard"), parent), entries_(new WizardEntries(plan_)),
      times_(new WizardTimes(plan_)), list_(new WizardList(plan_)), table_(new WizardTable(plan_)),
      steps_(new QStackedWidget), sky_(new FrmSkyDome(this))
{
    setObjectName(QStringLiteral("frmStarFixWizard"));
    MayLieBehind(); // F5 sends it there
    list_->OnMark = [this] { ShowSky(false); };
    table_->OnShown = [this] { ShowSky(false); };
    LayOut();
    const auto* f5 = new QShortcut(QKeySequence(Qt::Key_F5), this);
    connect(f5, &QShortcut::activated, this, [this] { CaptureTime(); });
}

FrmStarFixWizard::~FrmStarFixWizard() = default;

void FrmStarFixWizard::LayOut()
{
    int number = 0;
    for (QWidget* step : {static_cast<QWidget*>(entries_), static_cast<QWidget*>(times_), static_cast<QWidget*>(list_),
                          static_cast<QWidget*>(table_)}) {
        step->setObjectName(QStringLiteral("fraStep(%1)").arg(number));
        step->setWindowTitle(QString::fromLatin1(StepCaptions[static_cast<std::size_t>(number)]));
        step->layout()->setContentsMargins(0, 0, 0, 0);
        steps_->addWidget(step);
        ++number;
    }
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(16, 16, 16, 12);
    form->setSpacing(12);
    form->addWidget(steps_, 1);
    form->addWidget(MakeButtons());
    resize(sizeHint().expandedTo(OpeningSize));
}

QWidget* FrmStarFixWizard::MakeButtons()
{
    constexpr std::array<const char*, NavCount> Captions = {"Help", "Cancel", "< &Back", "&Next >", "&End"};
    starsGraph_ = MakePictureButton(QStringLiteral("cmdStarsGraph"), "sky_dome", "Graphic display", false,
                                    [this] { ShowSky(true); });
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(ButtonGap);
    for (std::size_t i = 0; i < NavCount; ++i) {
        const auto button = static_cast<Nav>(i);
        nav_[i] = new platform::PushButton(QString::fromLatin1(Captions[i]));
        nav_[i]->setObjectName(QStringLiteral("cmdNav(%1)").arg(i));
        connect(nav_[i], &QPushButton::clicked, this, [this, button] { Guarded([this, button] { Press(button); }); });
        layout->addWidget(nav_[i]);
        if (button != Help) continue;
        layout->addWidget(starsGraph_);
        layout->addStretch();
    }
    return row;
}

// --- openings

void FrmStarFixWizard::OpenFromMain()
{
    Stop();
    entries_->Erase();
    GoToStep(planning::StarPlan::FirstStep);
    ShowForward();
    entries_->TakeFocus();
}

void FrmStarFixWizard::OpenFromAzi(double instant, double lat, double lon)
{
    Stop();
    Guarded([&] {
        plan_.WhatIsUp({lat, lon, planning::WhatIsUpHeight}, instant);
        table_->ShowWhatIsUp();
    });
    ShowStep();
    ShowForward();
    table_->TakeFocus();
}

// --- steps

void FrmStarFixWizard::Press(Nav button)
{
    switch (button) {
    case Help:
        if (OnHelp) OnHelp();
        break;
    case Back:
        GoToStep(plan_.Step() - 1);
        break;
    case Next:
        GoToStep(plan_.Step() + 1);
        break;
    default:
        Stop();
        hide();
        if (const auto& told = button == Cancel ? OnCancelled : OnClosed) told();
    }
}

void FrmStarFixWizard::GoToStep(int target)
{
    entries_->Store();
    if (!plan_.GoToStep(target)) return;
    table_->StopTimer();
    switch (target) {
    case 1:
        break;
    case 2:
        times_->ShowTimes();
        break;
    case 3:
        list_->ShowBodies();
        break;
    default:
        table_->ShowPlan();
    }
    ShowStep();
}

/// Brings the step of the plan up, with its caption and its buttons.
void FrmStarFixWizard::ShowStep()
{
    const int step = plan_.Step();
    const bool isWhatIsUp = plan_.IsWhatIsUp();
    // The focus goes into the step before its buttons are switched off, which would send it elsewhere.
    steps_->setCurrentIndex(step - 1);
    switch (step) {
    case 1:
        entries_->TakeFocus();
        break;
    case 2:
        times_->TakeFocus();
        break;
    case 3:
        list_->TakeFocus();
        break;
    default:
        table_->TakeFocus();
    }
    setWindowTitle(isWhatIsUp ? QStringLiteral(" What is up?")
                              : QStringLiteral(" Star Fix Wizard - ") + steps_->currentWidget()->windowTitle());
    for (const Nav button : {Cancel, Back, Next})
        nav_[button]->setVisible(!isWhatIsUp);
    nav_[Back]->setEnabled(step > planning::StarPlan::FirstStep);
    nav_[Next]->setEnabled(step < planning::StarPlan::LastStep);
    nav_[End]->setEnabled(plan_.StepDone());
    starsGraph_->setEnabled(step >= 3);
    ShowSky(false);
}

// --- the sky dome

/// Shows the sky of the list's or the table's time where the dome is open.
/// @param open  opens it first
void FrmStarFixWizard::ShowSky(bool open)
{
    if (plan_.Step() < 3) {
        sky_->hide();
        return;
    }
    if (!open && !sky_->isVisible()) return;
    const double instant = plan_.Step() == 3 ? plan_.EventTime() : table_->Instant();
    sky_->Show({instant, plan_.Place, plan_.SkyAt(instant)});
    if (open) sky_->OpenBeside(*this);
}

// --- endings

/// Ends what runs by itself and what "What is up?" has changed.
void FrmStarFixWizard::Stop()
{
    table_->StopTimer();
    table_->EndWhatIsUp();
    sky_->hide();
    plan_.GoToStep(planning::StarPlan::FirstStep);
}

void FrmStarFixWizard::CloseByFrame()
{
    Stop();
    if (OnClosed) OnClosed();
}

/// Sends the form behind and opens the time capture.
void FrmStarFixWizard::CaptureTime()
{
    lower();
    if (OnCaptureTime) OnCaptureTime();
}

bool FrmStarFixWizard::event(QEvent* event)
{
    const bool result = ModelessForm::event(event);
    if (event->type() == QEvent::WindowUnblocked) table_->Unblock();
    return result;
}

} // namespace merov::app
