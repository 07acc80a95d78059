#include "platform/application.h"

#include "platform/field.h"
#include "platform/message_boxes.h"

#include <QFont>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QShortcutEvent>

#include <algorithm>
#include <clocale>
#include <utility>

namespace merov::platform
{
namespace
{

/// Handlers that pass the focus on to each other end after so many steps.
constexpr int MostHandlersInARow = 8;

/// A press, or a turn of the wheel, gives its target the focus before it is delivered.
bool IsPress(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
           event.type() == QEvent::Wheel;
}

FocusHandlers* HandlersOf(QWidget* control)
{
    return dynamic_cast<FocusHandlers*>(control);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setStyle(QStringLiteral("Fusion"));
    std::setlocale(LC_NUMERIC, "C"); // QApplication has just taken the user's
    QFont::insertSubstitution(QStringLiteral("MS Sans Serif"), QStringLiteral("Liberation Sans"));
    installEventFilter(this);
    connect(this, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr) FollowFocus(*now->window());
    });
}

Application* Application::Running()
{
    return dynamic_cast<Application*>(QCoreApplication::instance());
}

void Application::PassFocus(QWidget& control)
{
    const std::shared_ptr<WindowFocus> focus = FocusOf(*control.window());
    const bool busy = std::exchange(focus->Busy, true);
    control.setFocus();
    focus->Current = &control;
    focus->Busy = busy;
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    const bool isPress = IsPress(*event);
    if (isPress) {
        swallow_ = false;
        ++pressDepth_;
    }
    bool result = true;
    try {
        result = QApplication::notify(receiver, event);
    } catch (...) { // it must not pass through the event loop, which knows nothing of exceptions
        ShowCaught();
    }
    if (isPress) {
        --pressDepth_;
        swallow_ = false;
    }
    return result;
}

bool Application::eventFilter(QObject* receiver, QEvent* event)
{
    // Qt has given the focus by now, the control has not seen the press yet.
    if (swallow_ && receiver->isWidgetType() && IsPress(*event)) {
        swallow_ = false;
        return true;
    }
    if (event->type() != QEvent::Shortcut) return false;
    const auto& shortcut = *static_cast<QShortcutEvent*>(event);
    const auto* bar = qobject_cast<QMenuBar*>(receiver);
    return bar != nullptr && shortcut.isAmbiguous() && GiveLetterToSurface(*bar, shortcut);
}

bool Application::GiveLetterToSurface(const QMenuBar& bar, const QShortcutEvent& event)
{
    const QList<QWidget*> controls = bar.window()->findChildren<QWidget*>();
    return std::any_of(controls.begin(), controls.end(), [&event, &bar](QWidget* control) {
        auto* taker = dynamic_cast<LetterTaker*>(control);
        return taker != nullptr && control->window() == bar.window() && control->isVisible() && control->isEnabled() &&
               taker->TakeLetter(event.key());
    });
}

std::shared_ptr<Application::WindowFocus> Application::FocusOf(QWidget& window)
{
    std::erase_if(windows_, [](const auto& known) { return known->Window.isNull(); });
    for (const std::shared_ptr<WindowFocus>& known : windows_)
        if (known->Window == &window) return known;
    windows_.push_back(std::make_shared<WindowFocus>());
    windows_.back()->Window = &window;
    return windows_.back();
}

void Application::FollowFocus(QWidget& window)
{
    // Shared, since a handler may open other windows and close this one.
    const std::shared_ptr<WindowFocus> focus = FocusOf(window);
    if (focus->Busy) return;
    const QScopedValueRollback<bool> busy(focus->Busy, true);
    int handlers = 0;
    while (handlers < MostHandlersInARow && FollowOnce(*focus))
        ++handlers;
}

/// Leaves the current field for the control that has the focus now and enters that. False when there
/// was nothing to do or the leave was refused.
bool Application::FollowOnce(WindowFocus& focus)
{
    if (focus.Window.isNull()) return false;
    const QWidget* target = focus.Window->focusWidget();
    if (target == nullptr || target == focus.Current || qobject_cast<const QMenuBar*>(target) != nullptr) return false;
    if (!LeaveCurrent(focus) || focus.Window.isNull()) return false;

    focus.Current = focus.Window->focusWidget(); // a handler may have moved it
    const FocusHandlers* entered = HandlersOf(focus.Current);
    if (entered != nullptr && entered->OnEnter) {
        const std::function<void()> enter = entered->OnEnter; // lives on when the field goes away in it
        enter();
    }
    return true;
}

/// Runs the leave handler of the current field, if there is one. False when it refused.
bool Application::LeaveCurrent(WindowFocus& focus)
{
    const FocusHandlers* handlers = HandlersOf(focus.Current);
    if (handlers == nullptr || !handlers->OnLeave || !focus.Current->isVisible() || !focus.Current->isEnabled())
        return true;

    const int boxesBefore = boxes_;
    const std::function<bool()> leave = handlers->OnLeave;
    const bool refused = !leave() && !focus.Current.isNull();
    if (refused) focus.Current->setFocus(Qt::OtherFocusReason);

    const bool stays =
        !focus.Window.isNull() && !focus.Current.isNull() && focus.Window->focusWidget() == focus.Current;
    if (pressDepth_ > 0 && (stays || boxes_ != boxesBefore)) swallow_ = true;
    return !refused;
}

} // namespace merov::platform
