#include "app/wizard_grid.h"

#include "app/grid_look.h"

#include <QHeaderView>
#include <QMouseEvent>

#include <array>
#include <utility>

namespace merov::app
{
namespace
{

using planning::StarColumnCount;
using planning::StarRow;

constexpr double CellPoints = 10.0;
constexpr int RowHeight = 24; // pixels
constexpr int TitleHeight = 30;
constexpr std::array<int, StarColumnCount> Shares = {40, 20, 20, 20}; // of the table's width, by column

QString Utf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

WizardGrid::WizardGrid()
{
    setObjectName(QStringLiteral("grdStars"));
    setAccessibleName(QStringLiteral("Stars"));
    setFont(GridFont(CellPoints));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    SetRowHeight(0, TitleHeight);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    SetColumnsMovable(true);
    OnColumnMoved = [this] {
        movedColumns_ = true;
        SortRows();
    };
    OnKey = [this](int key, Qt::KeyboardModifiers modifiers) { return MoveColumn(key, modifiers); };
    horizontalHeader()->viewport()->installEventFilter(this);
    ShowAnew({});
}

void WizardGrid::ShowAnew(std::vector<StarRow> rows)
{
    const RedrawOff redrawOff(*this);
    movedColumns_ = false;
    ForgetDrag();
    SetSize(static_cast<int>(rows.size()) + 1, StarColumnCount);
    for (int column = 0; column < StarColumnCount; ++column) {
        SetText(0, column, Utf8(planning::StarHeaders[static_cast<std::size_t>(column)]));
        SetCellFont(0, column, GridFont(CellPoints));
        SetAlignment(0, column, Qt::AlignCenter);
        for (int row = 1; row < Rows(); ++row)
            SetAlignment(row, column, column == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    }
    ColourTitles();
    Show(std::move(rows));
    scrollToTop();
}

void WizardGrid::Show(std::vector<StarRow> rows)
{
    rows_ = std::move(rows);
    SortRows();
}

/// Sorts the rows and writes them into the cells.
void WizardGrid::SortRows()
{
    if (movedColumns_)
        planning::SortByColumns(rows_, ColumnsInView());
    else
        planning::SortByAzimuth(rows_);
    const RedrawOff redrawOff(*this);
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (std::size_t column = 0; column < rows_[row].size(); ++column)
            SetText(static_cast<int>(row) + 1, static_cast<int>(column), Utf8(rows_[row][column]));
}

/// Ctrl and an arrow key move the column of the current cell, as dragging does.
bool WizardGrid::MoveColumn(int key, Qt::KeyboardModifiers modifiers)
{
    if (!modifiers.testFlag(Qt::ControlModifier) || (key != Qt::Key_Left && key != Qt::Key_Right)) return false;
    const int place = horizontalHeader()->visualIndex(Current().Column);
    const int target = place + (key == Qt::Key_Left ? -1 : 1);
    if (target >= 0 && target < StarColumnCount) horizontalHeader()->moveSection(place, target);
    return true;
}

/// A column goes to the place of the one that it is dropped on, wherever on that one it was. The header by
/// itself moves it only beyond the middle of the other.
void WizardGrid::DropColumn(int column, int target)
{
    const int place = horizontalHeader()->visualIndex(column);
    if (target >= 0 && place != target) horizontalHeader()->moveSection(place, target);
    if (OnDropped) OnDropped();
}

bool WizardGrid::eventFilter(QObject* object, QEvent* event)
{
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (object != horizontalHeader()->viewport() || (!isPress && event->type() != QEvent::MouseButtonRelease))
        return OverlayGrid::eventFilter(object, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton) return false;
    const int under = horizontalHeader()->logicalIndexAt(mouse->position().toPoint());
    if (isPress) {
        draggedColumn_ = under;
    } else if (const int column = std::exchange(draggedColumn_, -1); column >= 0) {
        const int target = under >= 0 && under != column ? horizontalHeader()->visualIndex(under) : -1;
        // Once the header has done its own part.
        QMetaObject::invokeMethod(
            this, [this, column, target] { DropColumn(column, target); }, Qt::QueuedConnection);
    }
    return false;
}

/// The colour of the titles depends on the desktop's.
void WizardGrid::ColourTitles()
{
    for (int column = 0; column < Columns(); ++column)
        SetTextColor(0, column, GridTitleColour(*this));
}

void WizardGrid::changeEvent(QEvent* event)
{
    OverlayGrid::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColourTitles();
}

/// The columns fill the table.
void WizardGrid::resizeEvent(QResizeEvent* event)
{
    OverlayGrid::resizeEvent(event);
    for (int column = 0; column < Columns(); ++column)
        SetColumnWidth(column, viewport()->width() * Shares[static_cast<std::size_t>(column)] / 100);
}

} // namespace merov::app
