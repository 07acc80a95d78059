#include "app/tab_in.h"

#include "app/conditions_page.h"
#include "app/entry_fields_view.h"
#include "app/observation_grid.h"
#include "app/observations_page.h"
#include "app/position_page.h"
#include "ephemeris/time_lib.h"
#include "numeric/message_box.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>

#include <algorithm>
#include <initializer_list>

namespace merov::app
{
namespace
{

using fix::InputFlag;

// The pages by their index.
constexpr int PositionTab = 0;
constexpr int ConditionsTab = 1;
constexpr int ObservationsTab = 2;

const QSize LeastSize(690, 490); // pixels

} // namespace

TabIn::TabIn(FixInput& input, QWidget* parent)
    : TabStrip(parent), input_(input), fields_(std::make_unique<EntryFieldsView>(input.Entry, input.Session)),
      position_(new PositionPage(input, *fields_)), conditions_(new ConditionsPage(input, *fields_)),
      observations_(new ObservationsPage(input))
{
    setObjectName(QStringLiteral("tabIn"));
    AddPages();
    OnGotFocus = [this] { EnterTab(); };
    OnKey = [this](const QKeyEvent& key) {
        if (key.key() != Qt::Key_F5 || currentIndex() != ObservationsTab) return false;
        observations_->Capture();
        return true;
    };
    Header().installEventFilter(this);
    setFixedSize(LeastSize.expandedTo(minimumSizeHint()));
}

TabIn::~TabIn()
{
    hide(); // no field is left or entered while they go
}

void TabIn::AddPages()
{
    const auto command = [](const std::function<void()>& run) {
        return [&run] {
            if (run) run();
        };
    };
    const auto cancel = [this](int index) {
        return [this, index] {
            if (OnCancel) OnCancel(index);
        };
    };
    const auto next = [this] { NextTab(); };
    const auto previous = [this] { PrevTab(); };

    position_->OnLoad = command(OnLoad);
    position_->OnErase = command(OnErase);
    position_->OnNext = next;
    position_->OnCancel = cancel(PositionTab);
    position_->OnOneEstPos = [this](bool wanted) {
        if (OnOneEstPos) OnOneEstPos(wanted);
    };
    conditions_->OnNext = next;
    conditions_->OnPrevious = previous;
    conditions_->OnCancel = cancel(ConditionsTab);
    observations_->OnSave = command(OnSave);
    observations_->OnNumRes = command(OnNumRes);
    observations_->OnGraphRes = command(OnGraphRes);
    observations_->OnCapture = command(OnCapture);
    observations_->OnPrevious = previous;
    observations_->OnCancel = cancel(ObservationsTab);

    addTab(position_, QStringLiteral("&Position"));
    addTab(conditions_, QStringLiteral(" Obs. &conditions"));
    addTab(observations_, QStringLiteral("&Observations"));
}

void TabIn::InstallMasks()
{
    fields_->InstallMasks();
    Grid().InstallMasks();
}

void TabIn::Erase()
{
    input_.Chart = {};
    ShowPage(PositionTab);
    fix::EraseEntries(input_.Entry, input_.Session, ephemeris::CurrentGmtHour());
    ShowFields();
    Grid().BuildObsGrid();
    Grid().EraseEditors();
    // The page that was erased took the keyboard with it.
    if (isVisible() && window()->focusWidget() == &Header()) TakeFocusOn(PositionTab);
}

void TabIn::ShowEntries()
{
    ShowFields();
    Grid().ShowRows();
}

void TabIn::ShowFields()
{
    position_->ShowEntries();
    conditions_->ShowEntries();
    fields_->ShowEntries();
}

void TabIn::EnterTab()
{
    const int tab = currentIndex();
    if (tab == PositionTab) {
        TakeFocusOn(tab);
        return;
    }
    const bool keepsTimes = KeepsDefaultTimes(tab);
    const bool complete = IsComplete(tab);
    if (!keepsTimes) ShowPage(PositionTab);
    if (!complete)
        numeric::ShowWarning("Missing data", {"Some data on the other tabs are missing.",
                                              "Please check that the whole input form is completed."});
    // The question was answered with the wish to enter the times.
    if (!keepsTimes)
        TakeFocusOn(PositionTab);
    else if (complete)
        TakeFocusOn(tab);
    if (complete && tab == ObservationsTab && OnInputComplete) OnInputComplete();
}

/// Asks whether times that nobody has entered are to be kept. False when they are not.
bool TabIn::KeepsDefaultTimes(int tab)
{
    if (input_.Entry.Flag(InputFlag::TimeTruePos) && input_.Entry.Flag(InputFlag::TimeEstPos)) return true;
    const numeric::Box question{
        "Data's not validated",
        {"You used the default values for the time of the estimated position",
         tab == ConditionsTab ? "and/or the time of the true position." : "and the time of the true position.",
         "Do you want to keep these default values ?"},
        numeric::BoxIcon::Question,
        numeric::BoxButtons::YesNo};
    if (numeric::ShowBox(question) != numeric::BoxAnswer::Yes) return false;
    position_->LeaveTime(0);
    position_->LeaveTime(1);
    return true;
}

/// True when all entries that must stand before a tab have been made, the times apart.
bool TabIn::IsComplete(int tab) const
{
    const auto entered = [this](std::initializer_list<InputFlag> flags) {
        return std::all_of(flags.begin(), flags.end(), [this](InputFlag flag) { return input_.Entry.Flag(flag); });
    };
    return entered({InputFlag::EstLat, InputFlag::EstLong, InputFlag::Course, InputFlag::Speed}) &&
           (tab == ConditionsTab || entered({InputFlag::HeightOfEye, InputFlag::InstCorr}));
}

void TabIn::TakeFocusOn(int tab)
{
    switch (tab) {
    case PositionTab:
        position_->TakeFocus();
        break;
    case ConditionsTab:
        conditions_->TakeFocus();
        break;
    default:
        observations_->TakeFocus();
    }
}

void TabIn::NextTab()
{
    ShowPage(std::min(currentIndex() + 1, count() - 1));
    EnterTab();
}

void TabIn::PrevTab()
{
    ShowPage(std::max(currentIndex() - 1, 0));
    EnterTab();
}

void TabIn::CommitGridEditor()
{
    Grid().CommitGridEditor();
}

ObservationGrid& TabIn::Grid()
{
    return observations_->Grid();
}

void TabIn::ShowOneEstPos()
{
    position_->ShowOneEstPos();
}

bool TabIn::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver != &Header() || event->type() != QEvent::Shortcut) return TabStrip::eventFilter(receiver, event);
    const QKeySequence key = static_cast<QShortcutEvent*>(event)->key();
    const QList<QPushButton*> buttons = currentWidget()->findChildren<QPushButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [&key](QPushButton* button) {
        auto* taker = dynamic_cast<platform::LetterTaker*>(button);
        return taker != nullptr && button->isEnabled() && taker->TakeLetter(key);
    });
}

} // namespace merov::app
