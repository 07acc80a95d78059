#include "app/observation_grid.h"

#include "app/entry_colours.h"
#include "app/pictures.h"
#include "ephemeris/time_lib.h"
#include "platform/field.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <utility>

namespace merov::app
{
namespace
{

using fix::GridColumn;
using platform::GridCell;

constexpr int LastRow = fix::MaxObservations;
constexpr int ColumnCount = static_cast<int>(fix::GridColumnCount);
constexpr double CellPoints = 12.0;
constexpr float TakenSeconds = 0.3F; // for which a number that was taken shows green
constexpr QColor RefusedColour(255, 0, 0);
constexpr int PictureSize = 24;   // pixels
constexpr int HeaderMargins = 16; // beside and between picture and title, pixels
constexpr int HeaderAir = 8;      // above and below the title

struct ColumnTitle {
    const char* Text;
    double Points;
    const char* Picture;
};

/// By GridColumn.
constexpr std::array<ColumnTitle, ColumnCount> Titles = {{
    {"Time of observation", 12.0, "grid_time"},
    {"Observed \nbody ", 10.0, "grid_body"},
    {"Instr.  \naltitude", 10.0, "grid_altitude"},
    {"Inst.\ncorr", 9.75, "grid_correction"},
}};

QFont GridFont(double points)
{
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(points);
    return font;
}

/// Width and height of a title of one or more lines, with its picture.
QSize TitleSize(const ColumnTitle& title)
{
    const QSize text = QFontMetrics(GridFont(title.Points)).size(0, QString::fromLatin1(title.Text));
    return {text.width() + PictureSize + HeaderMargins, std::max(text.height(), PictureSize) + HeaderAir};
}

GridColumn ColumnOf(GridCell cell)
{
    return static_cast<GridColumn>(cell.Column);
}

} // namespace

ObservationGrid::ObservationGrid(FixInput& input, QWidget* parent) : OverlayGrid(parent), input_(input)
{
    setObjectName(QStringLiteral("grdObs"));
    setAccessibleName(QStringLiteral("Observations"));
    setFont(GridFont(CellPoints));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    for (int column = 0; column < ColumnCount; ++column)
        AddEditor(editors_.Control(static_cast<GridColumn>(column)));
    ConnectHandlers();
}

void ObservationGrid::ConnectHandlers()
{
    OnEdit = [this](QChar key) { EditGridCell(key); };
    OnFocus = [this] { CommitGridEditor(); };
    OnTab = [this] { GoToNextCell(); };
    OnKey = [this](int key, Qt::KeyboardModifiers modifiers) { return TakeKey(key, modifiers); };
    OnCellChange = [this](GridCell from, GridCell to) { LeaveCell(from, to); };
    OnEscape = [this](QWidget*) {
        const GridCell cell = EditorCell();
        editors_.Restore(ColumnOf(cell), input_.Entry.Rows[cell.Row][ColumnOf(cell)]);
    };
    CellToolTip = [](GridCell cell) {
        if (cell.Row != 1) return QString();
        return ColumnOf(cell) == GridColumn::Correction ? QStringLiteral("auto filled")
                                                        : QStringLiteral("2x click or [space] to edit");
    };
}

// --- what the grid shows

void ObservationGrid::InstallMasks()
{
    editors_.InstallMasks();
}

void ObservationGrid::EraseEditors()
{
    editors_.StartTime(input_.Entry.TimeEstPos);
    editors_.Blank();
}

void ObservationGrid::BuildObsGrid()
{
    const RedrawOff redrawOff(*this);
    SetSize(LastRow + 1, ColumnCount);
    previousRow_ = 1;
    ShapeColumns();
    ColourHeader();
    const int rowHeight = editors_.Control(GridColumn::Body)->sizeHint().height();
    for (int row = 1; row <= LastRow; ++row)
        SetRowHeight(row, rowHeight);
    ShowRows();
}

/// Titles and widths. The grid is as wide as its columns.
void ObservationGrid::ShapeColumns()
{
    SetHeaderPictureSize(PictureSize);
    int height = 0;
    int width = 0;
    for (int column = 0; column < ColumnCount; ++column) {
        const ColumnTitle& title = Titles[static_cast<std::size_t>(column)];
        SetText(0, column, QString::fromLatin1(title.Text));
        SetCellFont(0, column, GridFont(title.Points));
        SetPicture(0, column, Picture(title.Picture));
        QWidget* editor = editors_.Control(static_cast<GridColumn>(column));
        const int editorWidth = std::max(editors_.Width(static_cast<GridColumn>(column)), TitleSize(title).width());
        editor->resize(editorWidth, editor->height());
        SetColumnWidth(column, editorWidth - 1);
        width += editorWidth - 1;
        height = std::max(height, TitleSize(title).height());
    }
    SetRowHeight(0, height);
    setFixedWidth(width + verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
}

/// Blue titles, lighter on a dark desktop.
void ObservationGrid::ColourHeader()
{
    const bool isDark = palette().color(QPalette::Button).lightness() < 128;
    for (int column = 0; column < columnCount(); ++column)
        SetTextColor(0, column, isDark ? QColor(130, 180, 255) : QColor(0, 0, 200));
}

void ObservationGrid::changeEvent(QEvent* event)
{
    OverlayGrid::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColourHeader();
}

void ObservationGrid::ShowRows()
{
    const RedrawOff redrawOff(*this);
    CloseEditor();
    for (int row = 1; row < Rows(); ++row)
        ShowRow(row);
    previousRow_ = 1;
    GoToQuietly(1, 0); // the program's own step asks nothing of the row that it leaves
}

void ObservationGrid::ShowRow(int row)
{
    for (int column = 0; column < ColumnCount; ++column)
        ShowCell(row, column);
}

void ObservationGrid::ShowCell(int row, int column)
{
    const fix::GridRow& cells = input_.Entry.Rows[row];
    const auto index = static_cast<std::size_t>(column);
    const QString text = QString::fromStdString(cells.Text[index]);
    SetText(row, column, text);
    const bool isRefused =
        static_cast<GridColumn>(column) == GridColumn::Altitude && !text.isEmpty() && !cells.Flag[index];
    SetBackground(row, column, isRefused ? RefusedColour : QColor());
}

// --- editing

void ObservationGrid::EditGridCell(QChar key)
{
    const GridCell cell = Current();
    const GridColumn column = ColumnOf(cell);
    fix::GridRow& cells = input_.Entry.Rows[cell.Row];
    const bool types = key > u' ';
    QWidget* editor = editors_.Control(column);
    platform::SetFieldColour(*editor, {});
    OpenEditor(editor);
    pending_ = true;
    switch (column) {
    case GridColumn::Time:
        if (types) {
            editors_.TypeDay(key);
        } else {
            editors_.StartTime(ProposedTime(cell.Row));
            cells.Flag[static_cast<std::size_t>(column)] = false;
        }
        break;
    case GridColumn::Body:
        if (!types || !cells[column].empty()) editors_.StartBody(cells[column]);
        if (types) editors_.TypeBody(key);
        break;
    default:
        if (types)
            editors_.TypeMasked(column, key);
        else
            editors_.StartMasked(column, cells[column]);
    }
}

/// The time that an edit of a time cell starts from. A captured time is used up by that.
double ObservationGrid::ProposedTime(int row)
{
    if (input_.StoredTime != 0.0) return std::exchange(input_.StoredTime, 0.0);
    fix::SightEntry& entry = input_.Entry;
    if (const auto own = ephemeris::ParseDateTime(entry.Rows[row][GridColumn::Time])) return *own;
    const auto above = row > 1 ? ephemeris::ParseDateTime(entry.Rows[row - 1][GridColumn::Time]) : std::nullopt;
    if (above) return *above;
    return entry.Flag(fix::InputFlag::TimeEstPos) ? entry.TimeEstPos : ephemeris::CurrentGmtHour();
}

void ObservationGrid::CommitGridEditor()
{
    // An editor that shows green has been committed; whoever lets events run may come here once more.
    if (Editor() == nullptr || !pending_) return;
    pending_ = false;
    QWidget* const editor = Editor();
    const GridCell cell = EditorCell();
    const GridColumn column = ColumnOf(cell);
    const fix::EntryVerdict verdict = fix::CommitCell(input_.Entry, cell.Row, column, editors_.Text(column));
    ShowRow(cell.Row);
    const bool isNumber = column == GridColumn::Altitude || column == GridColumn::Correction;
    if (isNumber && verdict == fix::EntryVerdict::Valid) ShowTaken(*editor);
    // Unless in the meantime an edit was started, be it in the same cell.
    if (!pending_) CloseEditor(editor, cell);
}

/// Shows an editor green for a moment.
void ObservationGrid::ShowTaken(QWidget& editor)
{
    platform::SetFieldColour(editor, ValidColour);
    ++pauses_;
    ephemeris::PauseSeconds(TakenSeconds);
    --pauses_;
    if (!heldKeys_.empty())
        QMetaObject::invokeMethod(
            this, [this] { ReplayKeys(); }, Qt::QueuedConnection);
}

// --- keys

/// Keys that a quick typist presses during a pause belong to the cell that comes after it.
bool ObservationGrid::event(QEvent* event)
{
    const bool isHeld = pauses_ > 0 || (!heldKeys_.empty() && !replaying_);
    if (event->type() != QEvent::KeyPress || !isHeld) return OverlayGrid::event(event);
    heldKeys_.emplace_back(event->clone());
    return true;
}

void ObservationGrid::ReplayKeys()
{
    if (replaying_) return; // the loop below takes the rest
    const QScopedValueRollback<bool> replaying(replaying_, true);
    while (!heldKeys_.empty()) {
        const std::unique_ptr<QEvent> key = std::move(heldKeys_.front());
        heldKeys_.pop_front();
        QWidget* focus = window()->focusWidget();
        // A box that has come up in the meantime isn't what was typed at.
        if (QApplication::activeModalWidget() == nullptr && focus != nullptr)
            QCoreApplication::sendEvent(focus, key.get());
    }
}

bool ObservationGrid::TakeKey(int key, Qt::KeyboardModifiers modifiers)
{
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (key == Qt::Key_F5 && held == Qt::NoModifier && OnCapture)
        OnCapture();
    else if (key == Qt::Key_Delete && held == Qt::NoModifier)
        ClearCurrentCell();
    else if (key == Qt::Key_Delete && held == Qt::ControlModifier)
        RemoveCurrentRow();
    else
        return key == Qt::Key_Escape;
    return true;
}

void ObservationGrid::ClearCurrentCell()
{
    const GridCell cell = Current();
    // Before the box that may come.
    SetText(cell.Row, cell.Column, {});
    SetBackground(cell.Row, cell.Column, {});
    fix::ClearCell(input_.Entry, cell.Row, ColumnOf(cell));
}

/// The grid has a row less until it is built again; of its last row only the content goes.
void ObservationGrid::RemoveCurrentRow()
{
    const int row = Current().Row;
    fix::RemoveRow(input_.Entry, row);
    if (Rows() > 2)
        RemoveRow(row);
    else
        ShowRow(row);
}

void ObservationGrid::GoToNextCell()
{
    const GridCell cell = Current();
    if (ColumnOf(cell) == GridColumn::Time || ColumnOf(cell) == GridColumn::Body)
        GoTo(cell.Row, cell.Column + 1);
    else
        GoTo(cell.Row + 1 < Rows() ? cell.Row + 1 : 1, 0);
}

/// Another cell is current: what is edited in the one before is committed, and a row that was left must
/// be full.
void ObservationGrid::LeaveCell(GridCell from, GridCell to)
{
    CommitGridEditor();
    if (EditorCell() == from && !pending_) CloseEditor();
    if (to.Row != previousRow_ && !fix::CheckRowFull(input_.Entry, previousRow_))
        setFocus();
    else
        previousRow_ = to.Row;
}

} // namespace merov::app
