#include "app/wizard_table.h"

#include "app/entry_frame.h"
#include "app/mirrored_edit.h"
#include "app/pictures.h"
#include "app/wizard_grid.h"
#include "ephemeris/time_lib.h"
#include "platform/message_boxes.h"
#include "platform/time_picker.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace merov::app
{
namespace
{

constexpr int TickInterval = 15000; // milliseconds

} // namespace

WizardTable::WizardTable(const planning::StarPlan& plan)
    : plan_(plan), grid_(new WizardGrid), time_(new platform::TimePicker),
      startTimer_(MakePictureButton(QStringLiteral("bthStartTimer"), "start_clock", "Start real time display", false,
                                    [this] { ToggleTimer(); })),
      what_(MakeText({})), timer_(new QTimer(this))
{
    grid_->OnDropped = [this] { ServeTick(); };
    time_->setObjectName(QStringLiteral("dtpRealTime"));
    time_->setToolTip(QStringLiteral("! GMT"));
    time_->OnChange = [this] { TypedTime(); };
    timer_->setObjectName(QStringLiteral("tmrRealTime"));
    timer_->setInterval(TickInterval);
    timer_->setTimerType(Qt::PreciseTimer);
    connect(timer_, &QTimer::timeout, this, [this] { Tick(); });
    what_->setObjectName(QStringLiteral("lblStep(3)"));
    what_->setBuddy(time_);
    LayOut();
}

void WizardTable::LayOut()
{
    auto* head = new QHBoxLayout;
    head->addWidget(what_);
    head->addWidget(time_);
    head->addWidget(MakeText(QStringLiteral("GMT")));
    head->addStretch();
    head->addWidget(startTimer_);
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(head);
    page->addWidget(grid_, 1);
}

// --- what it shows

void WizardTable::ShowPlan()
{
    ShowTimer(false, "Time of sunrise/sunset");
    what_->setText(QStringLiteral("Position of the selected stars on"));
    std::vector<planning::StarRow> rows;
    for (const planning::ListedBody& body : plan_.List().Rows())
        if (body.Picked) rows.push_back(planning::TableRow(body));
    ShowAnew(plan_.EventTime(), std::move(rows));
}

void WizardTable::ShowWhatIsUp()
{
    ShowTimer(false, "Time of azimuth observation");
    what_->setText(QStringLiteral("Position of the stars on"));
    startTimer_->hide();
    time_->setEnabled(false);
    ShowAnew(plan_.Date, {}); // nothing old stays where an error ends the next
    ShowAnew(plan_.Date, plan_.TableAt(plan_.Date));
}

void WizardTable::EndWhatIsUp()
{
    startTimer_->show();
    time_->setEnabled(true);
}

void WizardTable::ShowAnew(double instant, std::vector<planning::StarRow> rows)
{
    instant_ = instant;
    time_->SetValue(instant);
    grid_->ShowAnew(std::move(rows));
    if (OnShown) OnShown();
}

/// The table for a moment.
void WizardTable::UpdateTable(double instant)
{
    grid_->Show(plan_.TableAt(instant));
    instant_ = instant;
    if (OnShown) OnShown();
}

void WizardTable::TakeFocus()
{
    grid_->setFocus();
}

// --- time

void WizardTable::ToggleTimer()
{
    if (timer_->isActive()) {
        ShowTimer(false, "Computer clock (stopped)");
        return;
    }
    ShowTimer(true, "Computer clock (updated every 15s)");
    Tick();
}

void WizardTable::ShowTimer(bool runs, const char* timeTip)
{
    tickWaits_ = false;
    if (runs)
        timer_->start();
    else
        timer_->stop();
    startTimer_->setIcon(Picture(runs ? "stop_clock" : "start_clock"));
    startTimer_->SetToolTip(runs ? QStringLiteral("Stop real time display")
                                 : QStringLiteral("Start real time display"));
    if (timeTip != nullptr) time_->setToolTip(QString::fromLatin1(timeTip));
}

/// Shows the present moment, once nothing is half done. After an error there are no more ticks, which would bring its
/// box time and again.
void WizardTable::Tick()
{
    const bool halfTyped = !time_->hasAcceptableInput();
    if (ticking_ || halfTyped || QApplication::activeModalWidget() != nullptr || grid_->IsDragging()) {
        tickWaits_ = true;
        return;
    }
    const QScopedValueRollback<bool> ticking(ticking_, true); // a box of a body's place may let the next one in
    try {
        const double now = ephemeris::CurrentGmt();
        time_->SetValue(now);
        UpdateTable(now);
    } catch (...) {
        ShowTimer(false, "Computer clock (stopped)");
        platform::ShowCaught();
    }
    if (tickWaits_)
        QMetaObject::invokeMethod(
            this, [this] { ServeTick(); }, Qt::QueuedConnection);
}

void WizardTable::Unblock()
{
    grid_->ForgetDrag();
    ServeTick();
}

/// Serves a tick that had to wait.
void WizardTable::ServeTick()
{
    if (ticking_ || !std::exchange(tickWaits_, false)) return;
    Tick();
}

void WizardTable::TypedTime()
{
    ShowTimer(false, "Time entered by user");
    UpdateTable(time_->Value());
}

} // namespace merov::app
