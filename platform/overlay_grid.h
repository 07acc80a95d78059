#pragma once

#include <QChar>
#include <QTableWidget>

#include <functional>
#include <vector>

namespace merov::platform
{

/// The place of a cell. Row 0 is the header, rows of data count from 1, columns from 0. A column keeps
/// its number when the user drags it elsewhere.
struct GridCell {
    int Row = 0;
    int Column = 0;
    bool operator==(const GridCell&) const = default;
};

/// A table with a fixed header row whose cells aren't edited by the table itself: an editor, which keeps
/// its value from cell to cell, is laid over the current cell. All rows given to or by its routines are
/// counted as in GridCell, unlike those of the class below it.
class OverlayGrid : public QTableWidget
{
public:
    explicit OverlayGrid(QWidget* parent = nullptr);

    /// Empties the grid, header included, puts columns back to their order, closes an open editor and
    /// makes the first row of data, column 0, the current cell.
    /// @param rows     1 or more, the header counted
    /// @param columns  1 or more
    void SetSize(int rows, int columns);
    int Rows() const { return rowCount() + 1; }
    int Columns() const { return columnCount(); }

    /// Removes a row of data; those below move up. The current cell stays at its place, or in the last
    /// row where its own is gone.
    void RemoveRow(int row);

    /// Sorts rows of data, whole rows with their colours, by insertion: rows of equal order keep theirs.
    /// @param first, last  the range, both included
    /// @param order        above 0 when the first row given stands behind the second. It needn't be a
    ///                     strict order; rows that can't be compared may give 0
    void SortRows(int first, int last, const std::function<int(int, int)>& order);

    // A cell's content and look. Rows 0..Rows()-1, columns 0..Columns()-1.
    QString Text(int row, int column) const;
    void SetText(int row, int column, const QString& text);
    /// An invalid colour is the window's own. On any other the text is black, also on dark desktops, unless
    /// SetTextColor gave it a colour.
    QColor Background(int row, int column) const;
    void SetBackground(int row, int column, const QColor& colour);
    void SetTextColor(int row, int column, const QColor& colour);
    void SetCellFont(int row, int column, const QFont& font);
    void SetAlignment(int row, int column, Qt::Alignment alignment);
    /// Of the header the picture stands at the left, in the size of SetHeaderPictureSize.
    void SetPicture(int row, int column, const QIcon& picture);

    // Sizes in pixels. Row 0 takes a title of several lines, parted by "\n", when it is high enough.
    void SetRowHeight(int row, int height);
    void SetColumnWidth(int column, int width) { setColumnWidth(column, width); }
    void SetHeaderPictureSize(int size);

    /// The current cell; row 0 while the grid has no row of data.
    GridCell Current() const { return {currentRow() + 1, currentColumn()}; }
    void GoTo(int row, int column) { setCurrentCell(row - 1, column); }

    /// Lets the user drag columns by their headers.
    void SetColumnsMovable(bool movable);
    /// The columns as they stand from left to right.
    std::vector<int> ColumnsInView() const;

    /// Keeps the grid from painting for its own lifetime. Scopes nest.
    class RedrawOff
    {
    public:
        explicit RedrawOff(OverlayGrid& grid) : grid_(grid), former_(grid.updatesEnabled())
        {
            grid.setUpdatesEnabled(false);
        }
        ~RedrawOff()
        {
            grid_.executeDelayedItemsLayout(); // it would come after the first painting and bring another
            grid_.setUpdatesEnabled(former_);
        }
        RedrawOff(const RedrawOff&) = delete;
        RedrawOff& operator=(const RedrawOff&) = delete;

    private:
        OverlayGrid& grid_;
        bool former_;
    };

    /// Makes a widget one of the grid's editors, hidden until it is opened. The grid then owns it.
    void AddEditor(QWidget* editor);

    /// Lays an editor over the current cell, one pixel beyond it on each side, and gives it the focus. An
    /// editor that is open over another cell is hidden.
    void OpenEditor(QWidget* editor);

    /// Hides the open editor; its focus, if it has it, goes to the grid. OnFocus then already sees no
    /// editor open.
    /// @param only  unless null, the editor is closed only if it is this one and still over `cell`. Whoever
    ///              lets events run between reading an editor and closing it takes both beforehand:
    ///              meanwhile another cell may have been opened
    void CloseEditor();
    void CloseEditor(const QWidget* only, GridCell cell);

    /// The open editor, null for none, and the cell that it was opened over.
    QWidget* Editor() const { return editor_; }
    GridCell EditorCell() const { return editorCell_; }

    // What the grid tells its owner. Each may be left empty.

    /// Editing is wanted in the current cell: a printable key, or a blank for the space bar and a double
    /// click.
    std::function<void(QChar key)> OnEdit;
    /// Tab in the grid or in an editor, which has given its focus to the grid by then. Left empty, the
    /// focus goes on as usual. Shift+Tab leaves an editor for the grid, and the grid for the control
    /// before it.
    std::function<void()> OnTab;
    /// Any other key of the grid itself, such as F5, Delete or Escape. True: it was taken. Keys of an
    /// open editor don't come here.
    std::function<bool(int key, Qt::KeyboardModifiers modifiers)> OnKey;
    /// Escape closed an editor without a commit.
    std::function<void(QWidget* editor)> OnEscape;
    /// The grid has taken the focus.
    std::function<void()> OnFocus;
    /// Another cell is current, by the user or GoTo, not by SetSize, RemoveRow and SortRows.
    std::function<void(GridCell from, GridCell to)> OnCellChange;
    /// The user has dragged a column to another place.
    std::function<void()> OnColumnMoved;
    /// The tool tip of a cell of data.
    std::function<QString(GridCell)> CellToolTip;

protected:
    /// GoTo, of which OnCellChange isn't told.
    void GoToQuietly(int row, int column);

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    const QTableWidgetItem* Item(int row, int column) const;
    QTableWidgetItem& MakeItem(int row, int column);
    void SwapRows(int first, int second);
    bool EditorHasFocus() const;
    bool EditorKey(QWidget* editor, const QKeyEvent& event);
    bool LeaveEditor();
    void StepRow(int step);
    bool Tab();

    std::vector<QWidget*> editors_;
    QWidget* editor_ = nullptr;
    GridCell editorCell_;
    int openings_ = 0;   ///< of editors so far
    bool quiet_ = false; ///< the grid is changed by itself: changes of the current cell aren't told
};

} // namespace merov::platform
