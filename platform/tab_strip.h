#pragma once

#include "platform/field.h"

#include <QTabBar>
#include <QTabWidget>

class QKeyEvent;

namespace merov::platform
{

/// The headers of a TabStrip. A click, or Alt and a letter, gives them the focus first: where the field
/// that had it refuses to be left, the page stays. The Tab key passes them by, the wheel too.
class TabHeader : public Field<QTabBar>, public LetterTaker
{
public:
    explicit TabHeader(QWidget* parent = nullptr);

    bool TakeLetter(const QKeySequence& key) override;

    std::function<void()> OnChosen; ///< the user chose a page by its letter or an arrow key

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// Pages behind each other with a header for each. Pages are added, counted, enabled and disabled by
/// the operations of QTabWidget.
///
/// Handlers run from the event loop once the page has changed, so that they see the page now on top.
class TabStrip : public QTabWidget
{
public:
    explicit TabStrip(QWidget* parent = nullptr);

    TabHeader& Header() { return *header_; }

    /// Shows a page by program. The focus, where it lay on the page that goes, passes to the headers
    /// without any handler: no field of either page is left or entered. The next choice of the user then
    /// counts as the headers' taking of the focus.
    void ShowPage(int index);

    std::function<void()> OnGotFocus;  ///< the headers took the focus from some field
    std::function<void()> OnLostFocus; ///< the focus went from the headers to some field; runs at once
    std::function<void()> OnClick;     ///< the user chose a page, perhaps the one already on top

    /// A key pressed on the headers, or on a page and not used there; true when it was used.
    std::function<bool(const QKeyEvent& key)> OnKey;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Choose();
    void Queue(const std::function<void()>& handler);

    TabHeader* header_;
    bool passed_ = false; ///< the headers have the focus by ShowPage alone
};

} // namespace merov::platform
