#pragma once

#include "app/fix_input.h"
#include "app/grid_editors.h"
#include "platform/overlay_grid.h"

#include <QEvent>

#include <deque>
#include <functional>
#include <memory>

namespace merov::app
{

/// The grid of sights (`grdObs`): four columns with an editor each (`dtpObsTime`, `cboBody`,
/// `mskHeightInst`, `mskInstErr(1)`), laid over the cell that is edited. Its rows mirror those of
/// FixInput::Entry.
class ObservationGrid : public platform::OverlayGrid
{
public:
    /// @param input  must outlive this object
    explicit ObservationGrid(FixInput& input, QWidget* parent = nullptr);

    /// Gives the masked editors their masks, with the decimal separator in force, and empties them.
    void InstallMasks();

    /// Builds the grid anew: header, 49 rows with what the entries hold, nothing after an erase; current
    /// cell at the top. One repaint.
    void BuildObsGrid();

    /// Shows the rows of the entries, an altitude that was refused in red, and goes to the first cell:
    /// after a load, an erase and a sort. An open editor is closed without a commit.
    void ShowRows();

    /// The editors as an erase leaves them: the time of the estimated position, blank texts.
    void EraseEditors();

    /// Starts an edit of the current cell.
    /// @param key  the character that starts it; a blank, also for a double click, edits what is there
    void EditGridCell(QChar key);

    /// Writes the open editor into its cell, which may bring a box, and fills the default correction.
    /// The editor is then closed; a number that was taken shows green before that, a third of a second
    /// in which events are served. Nothing happens without an open editor.
    void CommitGridEditor();

    std::function<void()> OnCapture; ///< F5: the time capture is wanted

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ConnectHandlers();
    void ShapeColumns();
    void ColourHeader();
    void ShowCell(int row, int column);
    void ShowRow(int row);
    double ProposedTime(int row);
    void ShowTaken(QWidget& editor);
    void LeaveCell(platform::GridCell from, platform::GridCell to);
    bool TakeKey(int key, Qt::KeyboardModifiers modifiers);
    void ClearCurrentCell();
    void RemoveCurrentRow();
    void GoToNextCell();
    void ReplayKeys();

    FixInput& input_;
    GridEditors editors_;
    int previousRow_ = 1;  ///< the row that the row rule checks
    bool pending_ = false; ///< the open editor has not been committed yet
    int pauses_ = 0;       ///< commits whose editor shows green, one within the other
    bool replaying_ = false;
    std::deque<std::unique_ptr<QEvent>> heldKeys_; ///< typed into the grid during a pause
};

} // namespace merov::app
