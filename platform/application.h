#pragma once

#include <QApplication>
#include <QPointer>

#include <memory>
#include <vector>

class QMenuBar;
class QShortcutEvent;

namespace merov::platform
{

/// The one application object. It sets what all windows share (the style, the numbers of the C library
/// in their plain form whatever the locale, a stand-in for the font "MS Sans Serif") and runs the focus
/// handlers of fields.
///
/// The handlers run within the change of the focus, and so before a mouse press reaches the control
/// under it: when a leave is refused, or shows a box, that press is swallowed, and no button is left
/// half pressed. While a handler runs in a window, further changes of focus there wait for its end.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// The application object, or nullptr where another one (or none) runs.
    static Application* Running();

    /// Tells that a modal box was shown; a mouse press during which it was is then swallowed.
    void NoteBox() { ++boxes_; }

    /// Gives `control` the focus without any handler: the field that had it isn't left, the control not
    /// entered. For a program that changes the surface under the user.
    void PassFocus(QWidget& control);

    bool notify(QObject* receiver, QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    /// The focus of one window as the handlers have seen it.
    struct WindowFocus {
        QPointer<QWidget> Window;
        QPointer<QWidget> Current;
        bool Busy = false; ///< a handler is at work
    };

    std::shared_ptr<WindowFocus> FocusOf(QWidget& window);
    void FollowFocus(QWidget& window);
    bool FollowOnce(WindowFocus& focus);
    bool LeaveCurrent(WindowFocus& focus);
    static bool GiveLetterToSurface(const QMenuBar& bar, const QShortcutEvent& event);

    std::vector<std::shared_ptr<WindowFocus>> windows_;
    int boxes_ = 0;
    int pressDepth_ = 0; ///< presses being delivered, one within the other
    bool swallow_ = false;
};

} // namespace merov::platform
