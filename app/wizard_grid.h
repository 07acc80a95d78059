#pragma once

#include "planning/star_list.h"
#include "platform/overlay_grid.h"

#include <functional>
#include <vector>

namespace merov::app
{

/// The table of the star fix wizard (`grdStars`). It is only read; its columns can be dragged, which also says
/// how it is sorted.
class WizardGrid : public platform::OverlayGrid
{
public:
    WizardGrid();

    /// Lays the table out anew for some bodies and shows them from the first: the columns are back in their
    /// order, and it is sorted by azimuth until one is dragged again.
    void ShowAnew(std::vector<planning::StarRow> rows);

    /// Shows other rows, as many as before, in the places of those.
    void Show(std::vector<planning::StarRow> rows);

    /// True while a column is being dragged.
    bool IsDragging() const { return draggedColumn_ >= 0; }

    /// Gives up a drag whose end nobody tells: what has come between takes the release of the button.
    void ForgetDrag() { draggedColumn_ = -1; }

    std::function<void()> OnDropped; ///< a drag has ended

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool MoveColumn(int key, Qt::KeyboardModifiers modifiers);
    void DropColumn(int column, int target);
    void SortRows();
    void ColourTitles();

    std::vector<planning::StarRow> rows_; ///< as they stand in the table
    bool movedColumns_ = false;           ///< the user has dragged a column since the table was laid out
    int draggedColumn_ = -1;              ///< whose header is held down; -1 for none
};

} // namespace merov::app
