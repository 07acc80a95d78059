#include "platform/overlay_grid.h"
#include "support/qt_text.h"

#include "ephemeris/time_lib.h"
#include "platform/system_clock.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace merov::platform
{

void PrintTo(const GridCell& cell, std::ostream* out)
{
    *out << "(" << cell.Row << "," << cell.Column << ")";
}

/// A grid of six rows in a window with a control before and behind it, three editors and a list of what
/// the grid told. Its owner commits an editor's text as the grid takes the focus, then closes it.
class OverlayGridTest : public testing::Test
{
protected:
    OverlayGridTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&before);
        layout->addWidget(&grid);
        layout->addWidget(&behind);
        grid.SetSize(7, 4);
        grid.AddEditor(time);
        grid.AddEditor(list);
        grid.AddEditor(entry);
        list->addItems({"MARS", "SATURN", "SUNLOW", "SUNUPP"});
        grid.OnFocus = [this] {
            if (grid.Editor() == nullptr) return;
            told << "commit";
            grid.CloseEditor();
        };
        grid.OnCellChange = [this](GridCell from, GridCell to) { changes.emplace_back(from, to); };
        window.resize(500, 400);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        grid.setFocus();
        changes.clear();
    }
    void Open(QWidget* editor, int row, int column)
    {
        grid.GoTo(row, column);
        grid.OpenEditor(editor);
        changes.clear();
    }
    QPoint CentreOf(int row, int column) { return grid.visualRect(grid.model()->index(row - 1, column)).center(); }
    QWidget window;
    QLineEdit before, behind;
    OverlayGrid grid;
    QDateTimeEdit* time = new QDateTimeEdit;
    QComboBox* list = new QComboBox;
    QLineEdit* entry = new QLineEdit;
    QStringList told;
    std::vector<std::pair<GridCell, GridCell>> changes;
};

TEST_F(OverlayGridTest, ARefusedCellShowsItsColourUnderTheFrameOfTheCurrentOne)
{
    grid.SetBackground(2, 1, Qt::red);
    grid.GoTo(2, 1);
    const auto shown = [&](QPoint place) {
        QImage image(grid.viewport()->size(), QImage::Format_RGB32);
        grid.viewport()->render(&image);
        return image.pixelColor(place);
    };
    EXPECT_EQ(shown(CentreOf(2, 1)), QColor(Qt::red));
    const QPoint corner = grid.visualRect(grid.currentIndex()).topLeft();
    const auto frame = shown(corner), next = shown(corner + QPoint(1, 0));
    EXPECT_NE(frame == QColor(Qt::red), next == QColor(Qt::red)) << "dots";
    grid.SetBackground(2, 1, {});
    EXPECT_NE(shown(CentreOf(2, 1)), QColor(Qt::red));
}

TEST_F(OverlayGridTest, ScopesWithoutRedrawNest)
{
    auto outer = std::make_unique<OverlayGrid::RedrawOff>(grid);
    std::make_unique<OverlayGrid::RedrawOff>(grid).reset();
    EXPECT_FALSE(grid.updatesEnabled());
    outer.reset();
    EXPECT_TRUE(grid.updatesEnabled());
}

TEST_F(OverlayGridTest, BuildingRemovingAndSortingTellNoChangeOfTheCell)
{
    grid.SetText(0, 1, "Observed\nbody");
    grid.SetText(6, 0, "six");
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text() + grid.item(5, 0)->text(), "Observed\nbodysix");
    grid.GoTo(6, 2);
    EXPECT_EQ(changes.back(), (std::pair{GridCell{1, 0}, GridCell{6, 2}}));
    changes.clear();
    grid.RemoveRow(5);
    EXPECT_EQ(grid.Text(5, 0), "six");
    EXPECT_EQ(grid.Current(), (GridCell{5, 2})) << "its own row has gone";
    grid.RemoveRow(1);
    grid.SortRows(1, 4, [](int, int) { return 1; });
    EXPECT_EQ(grid.Current(), (GridCell{4, 2}));
    grid.OpenEditor(entry);
    grid.SetSize(4, 4);
    EXPECT_TRUE(grid.Editor() == nullptr && !entry->isVisible());
    EXPECT_EQ(grid.Text(1, 0), "");
    EXPECT_TRUE(grid.Current() == (GridCell{1, 0}) && changes.empty());
}

TEST_F(OverlayGridTest, SortsWholeRowsAndKeepsTheOrderOfEqualOnes)
{
    for (int row = 1; row <= 6; ++row) {
        grid.SetText(row, 0, QString("ca-baz").at(row - 1));
        if (row != 4) grid.SetText(row, 1, QString::number(row)); // the row of "b" has an empty cell
    }
    grid.SetBackground(5, 1, Qt::red);
    // Rows with "-" can't be compared; row 6 lies outside the range.
    grid.SortRows(1, 5, [&](int first, int second) {
        const QString a = grid.Text(first, 0), b = grid.Text(second, 0);
        return a == "-" || b == "-" ? 0 : a <= b ? -1 : 1;
    });
    QString order;
    for (int row = 1; row <= 6; ++row)
        order += grid.Text(row, 0) + grid.Text(row, 1) + " ";
    EXPECT_EQ(order, "a2 c1 -3 a5 b z6 ");
    EXPECT_TRUE(grid.Background(4, 1) == Qt::red && !grid.Background(5, 1).isValid()) << "the second a";
}

TEST_F(OverlayGridTest, TheEditorCoversItsCellAlsoWhenTheGridIsScrolled)
{
    grid.SetRowHeight(6, 300);
    for (const GridCell cell : {GridCell{1, 0}, GridCell{6, 3}}) {
        Open(entry, cell.Row, cell.Column);
        EXPECT_EQ(grid.EditorCell(), cell);
        EXPECT_EQ(entry->geometry(), grid.visualRect(grid.currentIndex()).adjusted(-1, -1, 1, 1));
        EXPECT_TRUE(entry->isVisible() && entry->hasFocus());
        grid.scrollToTop();
        EXPECT_EQ(entry->geometry(), grid.visualRect(grid.currentIndex()).adjusted(-1, -1, 1, 1));
    }
    grid.OpenEditor(list);
    EXPECT_TRUE(grid.Editor() == list && !entry->isVisible()) << "one editor at a time";
}

TEST_F(OverlayGridTest, ClosingLeavesTheFocusInTheGridAndTheCellInPlace)
{
    Open(list, 2, 1);
    grid.CloseEditor();
    EXPECT_TRUE(grid.hasFocus() && grid.Current() == (GridCell{2, 1}));
    EXPECT_TRUE(told.isEmpty() && changes.empty()) << "nothing left to commit";
    Open(entry, 3, 2);
    before.setFocus();
    grid.CloseEditor();
    EXPECT_TRUE(before.hasFocus() && !entry->isVisible()) << "an editor without the focus has none to give";
}

TEST_F(OverlayGridTest, APauseInTheCommitDoesNotCloseWhatWasOpenedMeanwhile)
{
    SystemClock clock;
    const numeric::ScopedClock inForce(clock);
    grid.OnFocus = [this] {
        QWidget* editor = grid.Editor();
        const GridCell cell = grid.EditorCell();
        if (editor == nullptr || told.contains("commit")) return;
        told << "commit";
        QTimer::singleShot(0, [this] { QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, CentreOf(4, 2)); });
        ephemeris::PauseSeconds(0.05F);
        grid.CloseEditor(editor, cell);
    };
    grid.OnEdit = [this](QChar) { grid.OpenEditor(entry); };
    grid.OnTab = [this] { told << "tab"; };
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Tab);
    EXPECT_EQ(grid.EditorCell(), (GridCell{4, 2}));
    EXPECT_TRUE(grid.Editor() == entry && entry->hasFocus());
    EXPECT_EQ(told, QStringList("commit")) << "the step of a Tab pressed in another cell is out of date";
}

TEST_F(OverlayGridTest, KeysOfTheGrid)
{
    grid.OnEdit = [this](QChar key) { told << QString("edit") + key; };
    grid.OnTab = [this] { told << "tab"; };
    grid.OnKey = [this](int key, Qt::KeyboardModifiers modifiers) {
        if (key == Qt::Key_Delete) told << (modifiers & Qt::ControlModifier ? "remove" : "delete");
        if (key == Qt::Key_F5) told << "F5";
        return key == Qt::Key_Delete || key == Qt::Key_F5;
    };
    QTest::keyClick(&grid, '7');
    QTest::keyClick(&grid, Qt::Key_Space);
    QTest::keyClick(&grid, 'S', Qt::ShiftModifier);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, CentreOf(2, 1));
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Delete, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Return})
        QTest::keyClick(&grid, key);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Q})
        QTest::keyClick(&grid, key, Qt::ControlModifier);
    EXPECT_EQ(told.join(' '), "edit7 edit  editS edit  F5 delete tab remove");
    EXPECT_EQ(grid.Current(), (GridCell{2, 1}));
    QTest::keyClick(&grid, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus()) << "the way out, whatever Tab does";
    grid.setFocus();
    grid.OnTab = {}; // then Tab goes on
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(behind.hasFocus());
}

TEST_F(OverlayGridTest, KeysOfAnEditor)
{
    grid.OnTab = [this] { told << "tab"; };
    grid.OnEscape = [this](QWidget* editor) { told << (editor == entry ? "escape" : "other"); };
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Return); // nothing
    QTest::keyClick(entry, Qt::Key_Escape);
    EXPECT_EQ(grid.Editor(), nullptr);
    using Step = std::tuple<Qt::Key, int, int>; // a key, from a row, to a row
    for (const auto& [key, row, next] : {Step{Qt::Key_Tab, 2, 2},
                                         {Qt::Key_Down, 2, 3},
                                         {Qt::Key_Up, 1, 1},
                                         {Qt::Key_Down, 6, 6},
                                         {Qt::Key_Backtab, 2, 2}}) {
        Open(entry, row, 2);
        QTest::keyClick(entry, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_TRUE(grid.Current() == (GridCell{next, 2}) && grid.hasFocus()) << key;
    }
    EXPECT_EQ(told.join(' '), "escape commit tab commit commit commit commit") << "Escape commits nothing";
    Open(time, 2, 0);
    const QDateTime was = time->dateTime();
    QTest::keyClick(time, Qt::Key_Up);
    EXPECT_TRUE(time->dateTime() != was && grid.Editor() == time) << "a picker counts with the arrows";
}

TEST_F(OverlayGridTest, AListIsSteppedSidewaysAndSearchedByLetters)
{
    Open(list, 2, 1);
    QStringList passed;
    QObject::connect(list, &QComboBox::currentTextChanged, [&](const QString& text) { passed << text; });
    for (const Qt::Key key :
         {Qt::Key_Left, Qt::Key_Right, Qt::Key_Left, Qt::Key_S, Qt::Key_U, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up})
        QTest::keyClick(list, key);
    EXPECT_EQ(passed.join(' '), "SATURN MARS SATURN SUNLOW SUNUPP");
    EXPECT_EQ(grid.Current(), (GridCell{1, 1})) << "up and down go to the grid";
}

TEST_F(OverlayGridTest, WhatAnEditorLeavesUnusedDoesNotReachTheGrid)
{
    grid.OnEdit = [this](QChar) { told << "edit"; };
    grid.OnKey = [this](int, Qt::KeyboardModifiers) { return told << "key", true; };
    for (QWidget* editor : std::initializer_list<QWidget*>{list, time}) {
        Open(editor, 2, 1);
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F5, Qt::Key_X, Qt::Key_Home, Qt::Key_Asterisk})
            QTest::keyClick(editor, key);
        EXPECT_EQ(grid.Editor(), editor);
    }
    EXPECT_EQ(told.join(' '), "");
}

TEST_F(OverlayGridTest, ColumnsMoveOnlyWhereTheUserMay)
{
    int moved = 0;
    grid.OnColumnMoved = [&] { ++moved; };
    const auto drag = [&] {
        QWidget* header = grid.horizontalHeader()->viewport();
        const QPoint from = {10, 10}, to = {grid.columnViewportPosition(3) - 10, 10};
        QTest::mousePress(header, Qt::LeftButton, {}, from);
        QTest::mouseMove(header, (from + to) / 2);
        QTest::mouseMove(header, to);
        QTest::mouseRelease(header, Qt::LeftButton, {}, to);
    };
    drag();
    EXPECT_EQ(moved, 0);
    grid.SetColumnsMovable(true);
    drag();
    EXPECT_EQ(grid.ColumnsInView(), (std::vector<int>{1, 2, 0, 3}));
    EXPECT_TRUE(changes.empty());
    grid.SetSize(7, 4);
    EXPECT_EQ(grid.ColumnsInView(), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(moved, 1);
}

TEST_F(OverlayGridTest, ToolTipsBelongToThePlaceOfACell)
{
    grid.CellToolTip = [](GridCell cell) { return cell.Row == 1 ? QString("column %1").arg(cell.Column) : QString(); };
    const auto point = [&](int row, int column) {
        const QPoint place = CentreOf(row, column);
        QHelpEvent help(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(point(1, 2) + point(1, 3), "column 2column 3");
}

} // namespace merov::platform
