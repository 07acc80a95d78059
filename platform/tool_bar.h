#pragma once

#include <QStackedWidget>
#include <QToolButton>

#include <functional>

class QVBoxLayout;

namespace merov::platform
{

/// A text of a tool tip from a caption in which "&&" stands for "&".
QString ToolTipText(const QString& caption);

/// A button that shows a picture, without a caption. It takes the focus on a click, so that an entry is
/// left, and checked, before its command runs. Its tool tip is also the name that a screen reader tells.
class PictureButton : public QToolButton
{
public:
    /// @param toolTip  "&&" in it shows as "&"
    PictureButton(const QIcon& picture, const QString& toolTip, QWidget* parent = nullptr);

    /// Changes the tool tip, which a button that switches something does with its picture (setIcon).
    void SetToolTip(const QString& toolTip);

    std::function<void()> OnClick; ///< run by a click, by the space bar and by Return
protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// A vertical row of picture buttons.
class ToolBar : public QWidget
{
public:
    explicit ToolBar(QWidget* parent = nullptr);

    /// Adds a button below the others. The tool bar owns it.
    PictureButton* AddButton(const QIcon& picture, const QString& toolTip, std::function<void()> onClick);

private:
    QVBoxLayout* buttons_;
};

/// The left edge of the window, where one tool bar stands at a time. As wide as the widest of them.
class ToolBarEdge : public QStackedWidget
{
public:
    explicit ToolBarEdge(QWidget* parent = nullptr);

    /// Puts a tool bar, which the edge then owns, among those that can be shown. The first one shows.
    void Add(ToolBar* bar) { addWidget(bar); }

    /// Shows one of the tool bars that were added, in place of the one before.
    void Show(ToolBar* bar) { setCurrentWidget(bar); }

    /// The tool bar that is shown; null without any.
    ToolBar* Shown() const { return static_cast<ToolBar*>(currentWidget()); }
};

} // namespace merov::platform
