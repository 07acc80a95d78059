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

void PrintTo(const QString& text, std::ostream* out);

namespace merov::platform
{

void PrintTo(const GridCell& cell, std::ostream* out)
{
    *out << "(" << cell.Row << "," << cell.Column << ")";
}

namespace
{

/// A grid of six rows in a window with a control before and behind it, four editors and a list of what
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
        for (QWidget* editor : {static_cast<QWidget*>(time), static_cast<QWidget*>(list), static_cast<QWidget*>(entry)})
            grid.AddEditor(editor);
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
    QLineEdit before;
    OverlayGrid grid;
    QLineEdit behind;
    QDateTimeEdit* time = new QDateTimeEdit;
    QComboBox* list = new QComboBox;
    QLineEdit* entry = new QLineEdit;
    QStringList told;
    std::vector<std::pair<GridCell, GridCell>> changes;
};

TEST_F(OverlayGridTest, RowsCountFromTheHeader)
{
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(grid.Current(), (GridCell{1, 0}));
    grid.SetText(0, 1, "Observed\nbody");
    grid.SetText(6, 3, "last");
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), "Observed\nbody");
    EXPECT_EQ(grid.item(5, 3)->text(), "last");
    EXPECT_EQ(grid.Text(6, 2), "") << "a cell never written";
    grid.GoTo(6, 3);
    EXPECT_EQ(grid.Current(), (GridCell{6, 3}));
    EXPECT_EQ(changes.back(), (std::pair{GridCell{1, 0}, GridCell{6, 3}}));
}

TEST_F(OverlayGridTest, ARefusedCellShowsItsColourUnderTheFrameOfTheCurrentOne)
{
    EXPECT_FALSE(grid.Background(2, 1).isValid());
    grid.SetBackground(2, 1, Qt::red);
    grid.GoTo(2, 1);
    EXPECT_EQ(grid.Background(2, 1), QColor(Qt::red));
    const auto shown = [&](QPoint place) {
        QImage image(grid.viewport()->size(), QImage::Format_RGB32);
        grid.viewport()->render(&image);
        return image.pixelColor(place);
    };
    EXPECT_EQ(shown(CentreOf(2, 1)), QColor(Qt::red));
    EXPECT_NE(shown(CentreOf(3, 1)), QColor(Qt::red));
    const QRect cell = grid.visualRect(grid.currentIndex());
    const auto frame = shown(cell.topLeft()), next = shown(cell.topLeft() + QPoint(1, 0));
    EXPECT_NE(frame == QColor(Qt::red), next == QColor(Qt::red)) << "dots";
    grid.SetBackground(2, 1, {});
    EXPECT_FALSE(grid.Background(2, 1).isValid());
    EXPECT_NE(shown(CentreOf(2, 1)), QColor(Qt::red));
}

TEST_F(OverlayGridTest, ABuildWithRedrawOffPaintsOnce)
{
    struct Counter : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            Paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int Paints = 0;
    } counter;
    QTest::qWait(20);
    grid.viewport()->installEventFilter(&counter);
    {
        const OverlayGrid::RedrawOff outer(grid);
        grid.SetSize(50, 4);
        {
            const OverlayGrid::RedrawOff inner(grid);
        }
        for (int row = 1; row < 50; ++row) {
            grid.SetText(row, 0, QString::number(row));
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(counter.Paints, 0);
    }
    QTest::qWait(20);
    EXPECT_EQ(counter.Paints, 1);
}

TEST_F(OverlayGridTest, BuildingRemovingAndSortingTellNoChangeOfTheCell)
{
    grid.GoTo(6, 2);
    changes.clear();
    grid.SetText(5, 0, "five");
    grid.SetText(6, 0, "six");
    grid.RemoveRow(5);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Text(5, 0), "six");
    EXPECT_EQ(grid.Current(), (GridCell{5, 2})) << "its own row has gone";
    grid.GoTo(2, 1);
    changes.clear();
    grid.RemoveRow(1);
    EXPECT_EQ(grid.Current(), (GridCell{2, 1}));
    grid.SortRows(1, 4, [](int, int) { return 1; });
    grid.OpenEditor(entry);
    grid.SetSize(4, 4);
    EXPECT_EQ(grid.Editor(), nullptr);
    EXPECT_FALSE(entry->isVisible());
    EXPECT_EQ(grid.Text(1, 0), "");
    EXPECT_EQ(grid.Current(), (GridCell{1, 0}));
    EXPECT_TRUE(changes.empty());
}

TEST_F(OverlayGridTest, SortsWholeRowsAndKeepsTheOrderOfEqualOnes)
{
    const char* const keys[] = {"c", "a", "-", "b", "a", "z"};
    for (int row = 1; row <= 6; ++row) {
        grid.SetText(row, 0, keys[row - 1]);
        if (row != 4) grid.SetText(row, 1, QString::number(row)); // the row of "b" has an empty cell
    }
    grid.SetBackground(5, 1, Qt::red);
    // Rows with "-" can't be compared; row 6 lies outside the range.
    grid.SortRows(1, 5, [&](int first, int second) {
        const QString a = grid.Text(first, 0), b = grid.Text(second, 0);
        return a == "-" || b == "-" ? 0 : a <= b ? -1 : 1;
    });
    QString order, numbers;
    for (int row = 1; row <= 6; ++row) {
        order += grid.Text(row, 0);
        numbers += grid.Text(row, 1);
    }
    EXPECT_EQ(order, "ac-abz");
    EXPECT_EQ(numbers, "21356");
    EXPECT_EQ(grid.Background(4, 1), QColor(Qt::red)) << "the second a";
    EXPECT_FALSE(grid.Background(5, 1).isValid());
}

TEST_F(OverlayGridTest, TheEditorCoversItsCellAlsoWhenTheGridIsScrolled)
{
    grid.SetRowHeight(6, 300);
    for (const GridCell cell : {GridCell{1, 0}, GridCell{3, 2}, GridCell{6, 3}}) {
        Open(entry, cell.Row, cell.Column);
        EXPECT_EQ(grid.EditorCell(), cell);
        EXPECT_EQ(entry->geometry(), grid.visualRect(grid.currentIndex()).adjusted(-1, -1, 1, 1));
        EXPECT_TRUE(entry->isVisible());
        EXPECT_TRUE(entry->hasFocus());
        grid.scrollToTop();
        EXPECT_EQ(entry->geometry(), grid.visualRect(grid.currentIndex()).adjusted(-1, -1, 1, 1));
    }
    grid.OpenEditor(list);
    EXPECT_FALSE(entry->isVisible()) << "one editor at a time";
    EXPECT_EQ(grid.Editor(), list);
}

TEST_F(OverlayGridTest, ClosingLeavesTheFocusInTheGridAndTheCellInPlace)
{
    Open(list, 2, 1);
    grid.CloseEditor();
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.Current(), (GridCell{2, 1}));
    EXPECT_TRUE(told.isEmpty()) << "nothing left to commit";
    EXPECT_TRUE(changes.empty());

    Open(entry, 3, 2);
    before.setFocus();
    grid.CloseEditor();
    EXPECT_TRUE(before.hasFocus()) << "an editor without the focus has none to give";
    EXPECT_FALSE(entry->isVisible());
}

TEST_F(OverlayGridTest, APauseInTheCommitDoesNotCloseWhatWasOpenedMeanwhile)
{
    SystemClock clock([](qint64) { return false; });
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
    EXPECT_EQ(grid.Editor(), entry);
    EXPECT_EQ(grid.EditorCell(), (GridCell{4, 2}));
    EXPECT_TRUE(entry->hasFocus());
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
    EXPECT_EQ(told, QStringList({"edit7", "edit ", "editS", "edit "}));
    told.clear();
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_F5, Qt::NoModifier},
                                         {Qt::Key_Delete, Qt::NoModifier},
                                         {Qt::Key_Delete, Qt::ControlModifier},
                                         {Qt::Key_Tab, Qt::NoModifier},
                                         {Qt::Key_Escape, Qt::NoModifier},
                                         {Qt::Key_Return, Qt::NoModifier},
                                         {Qt::Key_Q, Qt::ControlModifier}})
        QTest::keyClick(&grid, key, modifiers);
    EXPECT_EQ(told, QStringList({"F5", "delete", "remove", "tab"}));
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.Current(), (GridCell{2, 1}));
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.Current(), (GridCell{3, 1}));
    // The way out, whatever Tab does.
    QTest::keyClick(&grid, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
}

TEST_F(OverlayGridTest, WithoutAHandlerTabGoesOn)
{
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(behind.hasFocus());
}

TEST_F(OverlayGridTest, KeysOfAnEditor)
{
    grid.OnTab = [this] { told << "tab"; };
    grid.OnEscape = [this](QWidget* editor) { told << (editor == entry ? "escape" : "other"); };
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Return);
    EXPECT_EQ(grid.Editor(), entry);
    QTest::keyClick(entry, Qt::Key_Escape);
    EXPECT_EQ(grid.Editor(), nullptr);
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Down);
    EXPECT_EQ(grid.Current(), (GridCell{3, 2}));
    EXPECT_EQ(told, QStringList({"escape", "commit", "tab", "commit"})) << "Escape commits nothing";
    for (const int last : {1, 6}) {
        Open(entry, last, 2);
        QTest::keyClick(entry, last == 1 ? Qt::Key_Up : Qt::Key_Down);
        EXPECT_EQ(grid.Current(), (GridCell{last, 2}));
        EXPECT_TRUE(grid.hasFocus());
    }
    Open(entry, 2, 2);
    QTest::keyClick(entry, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(grid.hasFocus());

    Open(time, 2, 0);
    const QDateTime was = time->dateTime();
    QTest::keyClick(time, Qt::Key_Up);
    EXPECT_NE(time->dateTime(), was) << "a picker counts with the arrows";
    EXPECT_EQ(grid.Editor(), time);
}

TEST_F(OverlayGridTest, AListIsSteppedSidewaysAndSearchedByLetters)
{
    Open(list, 2, 1);
    QTest::keyClick(list, Qt::Key_Left);
    EXPECT_EQ(list->currentText(), "MARS");
    QTest::keyClick(list, Qt::Key_Right);
    EXPECT_EQ(list->currentText(), "SATURN");
    list->setCurrentIndex(0);
    QTest::keyClicks(list, "SU");
    EXPECT_EQ(list->currentText(), "SUNLOW");
    list->setCurrentIndex(3);
    QTest::keyClick(list, Qt::Key_Right);
    EXPECT_EQ(list->currentText(), "SUNUPP");
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(grid.Current(), (GridCell{1, 1})) << "up and down go to the grid";
    EXPECT_EQ(list->currentText(), "SUNUPP");
}

TEST_F(OverlayGridTest, WhatAnEditorLeavesUnusedDoesNotReachTheGrid)
{
    grid.OnEdit = [this](QChar) { told << "edit"; };
    grid.OnKey = [this](int, Qt::KeyboardModifiers) { return told << "key", true; };
    for (QWidget* editor : {static_cast<QWidget*>(list), static_cast<QWidget*>(time)}) {
        Open(editor, 2, 1);
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F5, Qt::Key_X, Qt::Key_Home, Qt::Key_Asterisk})
            QTest::keyClick(editor, key);
        QTest::keyClick(editor, 'x');
        EXPECT_EQ(grid.Editor(), editor);
    }
    EXPECT_TRUE(told.isEmpty()) << told.join(' ').toStdString();
}

TEST_F(OverlayGridTest, ColumnsMoveOnlyWhereTheUserMay)
{
    int moved = 0;
    grid.OnColumnMoved = [&] { ++moved; };
    const auto drag = [&] {
        QWidget* header = grid.horizontalHeader()->viewport();
        const auto centre = [&](int column) {
            return QPoint(grid.columnViewportPosition(column) + grid.columnWidth(column) / 2, header->height() / 2);
        };
        QTest::mousePress(header, Qt::LeftButton, {}, centre(0));
        QTest::mouseMove(header, centre(1));
        QTest::mouseMove(header, centre(2) + QPoint(20, 0));
        QTest::mouseRelease(header, Qt::LeftButton, {}, centre(2) + QPoint(20, 0));
    };
    drag();
    EXPECT_EQ(moved, 0);
    grid.SetColumnsMovable(true);
    grid.SetText(1, 0, "Star");
    drag();
    EXPECT_EQ(moved, 1);
    EXPECT_EQ(grid.ColumnsInView(), (std::vector<int>{1, 2, 0, 3}));
    EXPECT_EQ(grid.Text(1, 0), "Star") << "a column keeps its number";
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
    EXPECT_EQ(point(1, 2), "column 2");
    EXPECT_EQ(point(1, 3), "column 3");
}

} // namespace
} // namespace merov::platform
