#pragma once

#include "app/commands.h"
#include "app/screen_states.h"
#include "platform/tool_bar.h"

#include <QWidget>

#include <map>
#include <optional>
#include <vector>

namespace merov::platform
{
class RichTextBox;
}

namespace merov::app
{

class ChartView;
class MainToolBars;

/// The area of the main window between its menus and the status bar: the surfaces on top of each other and the tool
/// bars at the left edge. It knows where each of them stands; which of them show, others tell.
class MainSurfaces : public QWidget
{
public:
    explicit MainSurfaces(QWidget* parent);

    /// Puts a tool bar edge and the four picture buttons of the main screen in place.
    void AddToolBars(MainToolBars* bars);
    void AddPictures(const CommandRunner& runner);

    /// Puts in a surface of its own size, which is kept in the middle.
    void AddTab(Surface surface, QWidget* tab);

    /// Shows or hides a surface. Of those that cover each other the one shown last lies on top, and it alone
    /// takes keys and letters. A chart that is hidden is gone: the next command draws a new one.
    void SetVisible(Surface surface, bool visible);

    /// True for a surface that covers what is shown already: the tabs and the results.
    static bool Covers(Surface surface);

    /// The covering surface that lies on top; nothing on the main screen.
    std::optional<Surface> Topmost() const;

    /// Whether a surface is shown, also while the window itself is not yet.
    bool IsShown(Surface surface) const;

    /// Where a surface is to be; null for one that the program doesn't have.
    QWidget* Find(Surface surface) const;

    platform::RichTextBox& NumericReport() { return *rtfNumDisp_; }
    ChartView& Chart() { return *picLMChart_; }

    /// Puts a tab surface in the middle.
    void CenterTab(Surface surface);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Arrange();
    void ArrangePictures();

    std::map<Surface, QWidget*> surfaces_;
    std::vector<Surface> covering_; ///< those shown, from below to the top
    platform::RichTextBox* rtfNumDisp_;
    ChartView* picLMChart_;
    MainToolBars* toolBars_ = nullptr;
};

} // namespace merov::app
