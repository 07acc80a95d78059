#include "platform/tab_strip.h"

#include "platform/application.h"

#include <QKeyEvent>
#include <QShortcutEvent>
#include <QWheelEvent>

#include <utility>

namespace merov::platform
{

TabHeader::TabHeader(QWidget* parent) : Field<QTabBar>(parent)
{
    // Were the headers a stop of the Tab key, going back from the first field would end in it again,
    // since the strip's owner passes the focus on to that field.
    setFocusPolicy(Qt::ClickFocus);
}

bool TabHeader::TakeLetter(const QKeySequence& key)
{
    for (int i = 0; i < count(); ++i) {
        if (!isTabEnabled(i) || key.isEmpty() || key != QKeySequence::mnemonic(tabText(i))) continue;
        if (!TakeFocus(*this)) return true;
        setCurrentIndex(i);
        if (OnChosen) OnChosen();
        return true;
    }
    return false;
}

bool TabHeader::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) return TakeLetter(static_cast<QShortcutEvent*>(event)->key());
    return QTabBar::event(event);
}

void TabHeader::keyPressEvent(QKeyEvent* event)
{
    const int before = currentIndex();
    QTabBar::keyPressEvent(event);
    if (currentIndex() != before && OnChosen) OnChosen();
}

void TabHeader::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // it would change the page under a field that has not been left
}

TabStrip::TabStrip(QWidget* parent) : QTabWidget(parent), header_(new TabHeader)
{
    setTabBar(header_);
    header_->OnEnter = [this] {
        passed_ = false;
        Queue(OnGotFocus);
    };
    header_->OnLeave = [this] {
        passed_ = false;
        if (OnLostFocus) OnLostFocus();
        return true;
    };
    header_->OnChosen = [this] { Choose(); };
    connect(header_, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index >= 0 && isTabEnabled(index)) Choose();
    });
}

/// The user has chosen a page.
void TabStrip::Choose()
{
    if (std::exchange(passed_, false)) Queue(OnGotFocus);
    Queue(OnClick);
}

void TabStrip::ShowPage(int index)
{
    const QWidget* page = currentWidget();
    const QWidget* focus = window()->focusWidget();
    const bool focusOnPage =
        index != currentIndex() && page != nullptr && focus != nullptr && (focus == page || page->isAncestorOf(focus));
    Application* application = Application::Running();
    if (focusOnPage && application != nullptr) {
        application->PassFocus(*header_);
        passed_ = true;
    }
    setCurrentIndex(index);
}

void TabStrip::keyPressEvent(QKeyEvent* event)
{
    if (OnKey && OnKey(*event)) {
        event->accept();
        return;
    }
    // Ctrl+Tab and Ctrl+Shift+Tab change the page like a click on its header.
    const bool turns = (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) &&
                       (event->modifiers() & Qt::ControlModifier) && count() > 1;
    if (turns && !TakeFocus(*header_)) return;
    QTabWidget::keyPressEvent(event);
    if (turns) Choose();
}

void TabStrip::Queue(const std::function<void()>& handler)
{
    if (!handler) return;
    const auto run = [this, handler] {
        if (isVisible()) handler();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

} // namespace merov::platform
