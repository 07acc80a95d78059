#include "platform/overlay_grid.h"

#include "platform/grid_painters.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>

namespace merov::platform
{

OverlayGrid::OverlayGrid(QWidget* parent) : QTableWidget(parent)
{
    auto* header = new GridHeader(this);
    setHorizontalHeader(header);
    header->show();
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    setItemDelegate(new GridCellPainter(this));
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setSelectionMode(NoSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    connect(header, &QHeaderView::sectionMoved, this, [this] {
        if (!quiet_ && OnColumnMoved) OnColumnMoved();
    });
}

// --- rows and cells

void OverlayGrid::SetSize(int rows, int columns)
{
    CloseEditor();
    const QScopedValueRollback<bool> quiet(quiet_, true);
    clear();
    setRowCount(rows - 1);
    setColumnCount(columns);
    for (int column = 0; column < columns; ++column)
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), column);
    GoToQuietly(1, 0);
}

void OverlayGrid::RemoveRow(int row)
{
    const GridCell current = Current();
    const QScopedValueRollback<bool> quiet(quiet_, true);
    removeRow(row - 1);
    GoToQuietly(std::min(current.Row, Rows() - 1), current.Column);
}

void OverlayGrid::SortRows(int first, int last, const std::function<int(int, int)>& order)
{
    const QScopedValueRollback<bool> quiet(quiet_, true);
    for (int next = first + 1; next <= last; ++next)
        for (int row = next; row > first && order(row - 1, row) > 0; --row)
            SwapRows(row - 1, row);
}

void OverlayGrid::SwapRows(int first, int second)
{
    for (int column = 0; column < columnCount(); ++column) {
        QTableWidgetItem* above = takeItem(first - 1, column);
        QTableWidgetItem* below = takeItem(second - 1, column);
        if (below != nullptr) setItem(first - 1, column, below);
        if (above != nullptr) setItem(second - 1, column, above);
    }
}

void OverlayGrid::GoToQuietly(int row, int column)
{
    const QScopedValueRollback<bool> quiet(quiet_, true);
    if (row >= 1) GoTo(row, column);
}

const QTableWidgetItem* OverlayGrid::Item(int row, int column) const
{
    return row == 0 ? horizontalHeaderItem(column) : item(row - 1, column);
}

QTableWidgetItem& OverlayGrid::MakeItem(int row, int column)
{
    QTableWidgetItem* cell = row == 0 ? horizontalHeaderItem(column) : item(row - 1, column);
    if (cell != nullptr) return *cell;
    cell = new QTableWidgetItem;
    if (row == 0)
        setHorizontalHeaderItem(column, cell);
    else
        setItem(row - 1, column, cell);
    return *cell;
}

QString OverlayGrid::Text(int row, int column) const
{
    const QTableWidgetItem* cell = Item(row, column);
    return cell != nullptr ? cell->text() : QString();
}

void OverlayGrid::SetText(int row, int column, const QString& text)
{
    MakeItem(row, column).setText(text);
}

QColor OverlayGrid::Background(int row, int column) const
{
    const QTableWidgetItem* cell = Item(row, column);
    const QVariant colour = cell != nullptr ? cell->data(Qt::BackgroundRole) : QVariant();
    return colour.isValid() ? colour.value<QBrush>().color() : QColor();
}

void OverlayGrid::SetBackground(int row, int column, const QColor& colour)
{
    MakeItem(row, column).setData(Qt::BackgroundRole, colour.isValid() ? QBrush(colour) : QVariant());
}

void OverlayGrid::SetTextColor(int row, int column, const QColor& colour)
{
    MakeItem(row, column).setForeground(colour);
}

void OverlayGrid::SetCellFont(int row, int column, const QFont& font)
{
    MakeItem(row, column).setFont(font);
}

void OverlayGrid::SetAlignment(int row, int column, Qt::Alignment alignment)
{
    MakeItem(row, column).setTextAlignment(alignment);
}

void OverlayGrid::SetPicture(int row, int column, const QIcon& picture)
{
    MakeItem(row, column).setIcon(picture);
}

void OverlayGrid::SetRowHeight(int row, int height)
{
    if (row == 0)
        horizontalHeader()->setFixedHeight(height);
    else
        setRowHeight(row - 1, height);
}

void OverlayGrid::SetHeaderPictureSize(int size)
{
    static_cast<GridHeader*>(horizontalHeader())->PictureSize = size;
    horizontalHeader()->viewport()->update();
}

void OverlayGrid::SetColumnsMovable(bool movable)
{
    horizontalHeader()->setSectionsMovable(movable);
}

std::vector<int> OverlayGrid::ColumnsInView() const
{
    std::vector<int> columns(static_cast<std::size_t>(Columns()));
    for (int place = 0; place < Columns(); ++place)
        columns[static_cast<std::size_t>(place)] = horizontalHeader()->logicalIndex(place);
    return columns;
}

// --- editors

void OverlayGrid::AddEditor(QWidget* editor)
{
    editor->hide();
    // Children of the viewport move with its content when it is scrolled.
    editor->setParent(viewport());
    editor->installEventFilter(this);
    editors_.push_back(editor);
}

void OverlayGrid::OpenEditor(QWidget* editor)
{
    if (editor_ != editor) CloseEditor();
    scrollTo(currentIndex());
    editor->setGeometry(visualRect(currentIndex()).adjusted(-1, -1, 1, 1));
    editor_ = editor;
    editorCell_ = Current();
    ++openings_;
    editor->raise();
    editor->show();
    editor->setFocus();
}

void OverlayGrid::CloseEditor()
{
    if (editor_ == nullptr) return;
    const bool hadFocus = EditorHasFocus();
    QWidget* closing = editor_;
    // In this order: the grid's own focus handler must find no editor, and hiding a widget that has the
    // focus would send it to the next control.
    editor_ = nullptr;
    if (hadFocus) setFocus();
    // That handler may have opened it again, over another cell.
    if (editor_ != closing) closing->hide();
}

void OverlayGrid::CloseEditor(const QWidget* only, GridCell cell)
{
    if (editor_ == only && editorCell_ == cell) CloseEditor();
}

bool OverlayGrid::EditorHasFocus() const
{
    const QWidget* focus = window()->focusWidget();
    return editor_ != nullptr && (focus == editor_ || editor_->isAncestorOf(focus));
}

// --- keys and focus

bool OverlayGrid::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (OnKey && (key == Qt::Key_Delete || key == Qt::Key_Escape)) event->accept();
    }
    // Tab, before it becomes a change of the focus.
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (press->key() == Qt::Key_Tab && press->modifiers() == Qt::NoModifier && Tab()) {
            event->accept();
            return true;
        }
    }
    return QTableWidget::event(event);
}

bool OverlayGrid::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !CellToolTip) return QTableWidget::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString tip = index.isValid() ? CellToolTip({index.row() + 1, index.column()}) : QString();
    QToolTip::showText(help->globalPos(), tip, viewport(), visualRect(index));
    return true;
}

bool OverlayGrid::eventFilter(QObject* object, QEvent* event)
{
    const auto editor = std::find(editors_.begin(), editors_.end(), object);
    if (editor == editors_.end()) return QTableWidget::eventFilter(object, event);
    if (event->type() == QEvent::KeyPress) return EditorKey(*editor, *static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Delete)
            event->accept();
    }
    return false;
}

/// The keys that all editors share. True: the editor itself doesn't get the key.
bool OverlayGrid::EditorKey(QWidget* editor, const QKeyEvent& event)
{
    auto* list = qobject_cast<QComboBox*>(editor);
    switch (event.key()) {
    case Qt::Key_Escape:
        CloseEditor();
        if (OnEscape) OnEscape(editor);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    case Qt::Key_Tab:
        if (LeaveEditor() && !Tab()) focusNextChild();
        return true;
    case Qt::Key_Backtab:
        setFocus();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        // A picker of dates counts with them.
        if (qobject_cast<QAbstractSpinBox*>(editor) != nullptr) return false;
        StepRow(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        if (list == nullptr) return false;
        const int next = list->currentIndex() + (event.key() == Qt::Key_Left ? -1 : 1);
        if (next >= 0 && next < list->count()) list->setCurrentIndex(next);
        return true;
    }
    default:
        return false;
    }
}

/// Gives the focus to the grid, whose owner may then commit the editor and let events run. False when
/// meanwhile an editor was opened: what was to follow is out of date.
bool OverlayGrid::LeaveEditor()
{
    const int left = openings_;
    setFocus();
    return openings_ == left;
}

void OverlayGrid::StepRow(int step)
{
    if (!LeaveEditor()) return;
    const GridCell current = Current();
    const int row = current.Row + step;
    if (row >= 1 && row < Rows()) GoTo(row, current.Column);
}

bool OverlayGrid::Tab()
{
    if (OnTab) OnTab();
    return bool(OnTab);
}

void OverlayGrid::keyPressEvent(QKeyEvent* event)
{
    // What an open editor leaves unused goes past the grid, to whatever holds it.
    if (EditorHasFocus()) {
        event->ignore();
        return;
    }
    if (OnKey && OnKey(event->key(), event->modifiers())) return;
    const QString text = event->text();
    const bool command = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (OnEdit && !command && text.size() == 1 && text[0].isPrint())
        OnEdit(text[0]);
    else
        QTableWidget::keyPressEvent(event);
}

void OverlayGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableWidget::mouseDoubleClickEvent(event);
    const bool onCell = event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid();
    if (onCell && OnEdit) OnEdit(' ');
}

void OverlayGrid::focusInEvent(QFocusEvent* event)
{
    QTableWidget::focusInEvent(event);
    if (OnFocus) OnFocus();
}

void OverlayGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableWidget::currentChanged(current, previous);
    const GridCell from{previous.row() + 1, previous.column()};
    if (!quiet_ && OnCellChange) OnCellChange(from, {current.row() + 1, current.column()});
}

} // namespace merov::platform
