#include "app/observation_grid.h"

#include "platform/system_clock.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

using platform::GridCell;

const QString Proposed = "21 May 2004 12:00:00"; // the hour of the fake clock

/// An erased input with its grid in a window, a button behind it, and the default correction entered.
class ObservationGridTest : public testing::Test
{
protected:
    ObservationGridTest()
    {
        fix::EraseEntries(input.Entry, input.Session, 38128.5);
        input.Entry.Text(fix::EntryField::InstCorr) = "-02.50";
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&grid);
        layout->addWidget(&button);
        grid.InstallMasks();
        grid.BuildObsGrid();
        grid.EraseEditors();
        window.resize(640, 500);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        grid.setFocus();
    }

    QWidget& Focus() { return *window.focusWidget(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&Focus(), key, modifiers); }
    /// Each character goes where the one before has put the focus.
    void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(&Focus(), c.toLatin1());
    }
    QString Row(int row)
    {
        QString text;
        for (int column = 0; column < grid.Columns(); ++column)
            text += (column > 0 ? "|" : "") + grid.Text(row, column);
        return text;
    }
    QString TimeShown() { return grid.findChild<QDateTimeEdit*>("dtpObsTime")->text(); }
    platform::MaskedEdit& Altitude() { return *grid.findChild<platform::MaskedEdit*>("mskHeightInst"); }
    /// A double click on a cell in view.
    void DoubleClick(int row, int column)
    {
        const QPoint place = grid.visualRect(grid.model()->index(row - 1, column)).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, place);
    }
    void FillRow(int row, std::array<std::string, 4> text = {"1 May 2004 10:00:00", "VEGA", "35°15'.0", "+00.00"})
    {
        input.Entry.Rows[row].Text = std::move(text);
        input.Entry.Rows[row].Flag.fill(true);
    }
    const std::array<bool, 4>& Flags(int row) { return input.Entry.Rows[row].Flag; }

    test::FakeClock clock;
    test::ScreenBoxes boxes;
    FixInput input;
    QWidget window;
    ObservationGrid grid{input};
    QPushButton button;
};

TEST_F(ObservationGridTest, AWholeRowIsTypedByKeys)
{
    Type(" \t");
    Type("SUN\t");
    Type("3515.0\t");
    EXPECT_EQ(Row(1), Proposed + "|SUNLOW|35°15'.0|-02.50");
    EXPECT_EQ(Flags(1), (std::array{true, true, true, true}));
    EXPECT_EQ(grid.Current(), (GridCell{2, 0})) << "the correction fills itself";
    Type("31\t"); // the time of the row above stays in the editor
    Type("V\t");
    EXPECT_EQ(Row(2), "31 May 2004 12:00:00|VEGA||-02.50");
    grid.GoTo(2, 3);
    Type("-1.2");
    Press(Qt::Key_Up);
    EXPECT_EQ(grid.Text(2, 3), "-01.20");
    EXPECT_EQ(grid.Current(), (GridCell{1, 3}));
    EXPECT_EQ(boxes.TakeOne(), "Row not fully filled|Data missing for the observation 2.");
}

TEST_F(ObservationGridTest, TheDayIsTypedAtOnce)
{
    const std::pair<const char*, const char*> days[] = {
        {"3", "31 May"}, {"19", "19 May"}, {"5", "21 May"}, {"x", "21 May"}, {"05", "5 May"}};
    for (const auto& [typed, shown] : days) {
        input.Entry.TimeEstPos = 38128.5;
        grid.EraseEditors();
        Type(typed);
        EXPECT_EQ(TimeShown().toStdString(), shown + std::string(" 2004 12:00:00")) << typed;
        Press(Qt::Key_Escape);
        EXPECT_EQ(grid.Editor(), nullptr);
    }
    EXPECT_EQ(Row(1), "|||") << "Escape commits nothing";
}

TEST_F(ObservationGridTest, ProposedTimes)
{
    const auto proposed = [this](int row) {
        grid.GoTo(row, 0);
        DoubleClick(row, 0);
        const QString shown = TimeShown();
        Press(Qt::Key_Escape);
        return shown;
    };
    EXPECT_EQ(proposed(1), Proposed);
    input.Entry.TimeEstPos = 38100.25;
    EXPECT_EQ(proposed(1), Proposed) << "not entered yet";
    input.Entry.Flag(fix::InputFlag::TimeEstPos) = true;
    EXPECT_EQ(proposed(1), "23 Apr 2004 06:00:00");
    FillRow(1);
    EXPECT_EQ(proposed(2), "1 May 2004 10:00:00") << "the row above";
    EXPECT_EQ(proposed(1), "1 May 2004 10:00:00");
    EXPECT_FALSE(Flags(1)[0]) << "until the editor commits";
    input.StoredTime = 38128.0;
    input.Entry.Rows[1].Flag[0] = true;
    grid.GoTo(1, 0);
    Type("9");
    EXPECT_NE(input.StoredTime, 0.0) << "a typed day does not use it";
    Press(Qt::Key_Tab);
    EXPECT_EQ(proposed(1), "21 May 2004 00:00:00") << "wins over the content";
    EXPECT_EQ(input.StoredTime, 0.0);
    EXPECT_EQ(proposed(2), "9 May 2004 10:00:00") << "once only";
    boxes.TakeAll();
}

TEST_F(ObservationGridTest, BodiesByTheirFirstLetters)
{
    FillRow(1, {"1 May 2004", "SUNUPP", "", ""});
    FillRow(2, {"1 May 2004", "Nowhere", "", ""});
    grid.ShowRows();
    const auto& list = *grid.findChild<QComboBox*>("cboBody");
    grid.GoTo(1, 1);
    Type(" ");
    EXPECT_EQ(list.currentText(), "SUNUPP");
    Press(Qt::Key_Escape);
    Type("S");
    const QString first = list.currentText();
    EXPECT_TRUE(first.startsWith('S') && !list.itemText(list.currentIndex() - 1).startsWith('S')) << "from the top";
    Type("U");
    EXPECT_EQ(list.currentText(), "SUHAIL");
    Type("N");
    EXPECT_EQ(list.currentText(), "SUNLOW");
    Press(Qt::Key_Escape);
    Type("a");
    EXPECT_EQ(list.currentIndex(), 0) << "no letters left over from the edit before";
    Press(Qt::Key_Escape);
    Type("7");
    EXPECT_EQ(list.currentText(), "SUNUPP") << "a key that begins no body";
    grid.GoTo(2, 1);
    EXPECT_EQ(grid.Text(1, 1), "SUNUPP");
    Type(" ");
    EXPECT_EQ(list.currentIndex(), 0);
}

TEST_F(ObservationGridTest, MaskedEditorsStart)
{
    FillRow(1);
    const std::tuple<int, const char*, const char*> edits[] = {
        {2, "4", "4_°__'._"},    {2, "45", "45°__'._"}, {2, "9", "__°__'._"}, {2, "93", "3_°__'._"},
        {2, "4575", "45°5_'._"}, {2, "x", "__°__'._"},  {1, " ", "35°15'.0"}, {1, " 94", "45°15'.0"}};
    for (const auto& [row, keys, shown] : edits) {
        grid.GoTo(row, 2);
        Type(keys);
        EXPECT_EQ(Altitude().Text(), shown) << keys;
        Press(Qt::Key_Escape);
        EXPECT_EQ(Altitude().Text(), row == 1 ? "35°15'.0" : "__°__'._") << "restored";
    }
}

TEST_F(ObservationGridTest, ARefusedAltitudeIsRedUntilItIsMended)
{
    grid.GoTo(1, 2);
    Type(" ");
    Altitude().setText("90°00'.1");
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(0, 0)).center());
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Altitude > 90°.");
    EXPECT_EQ(grid.Text(1, 2), "90°00'.1");
    EXPECT_EQ(grid.Background(1, 2), QColor(Qt::red));
    EXPECT_FALSE(Flags(1)[2]);
    EXPECT_EQ(grid.Current(), (GridCell{1, 0})) << "the click is not lost";
    grid.ShowRows();
    EXPECT_EQ(grid.Background(1, 2), QColor(Qt::red));
    grid.GoTo(1, 2);
    Type("8959.9");
    Press(Qt::Key_Up);
    EXPECT_EQ(grid.Text(1, 2), "89°59'.9");
    EXPECT_TRUE(Flags(1)[2]);
    EXPECT_FALSE(grid.Background(1, 2).isValid());
}

TEST_F(ObservationGridTest, RowRule)
{
    Type(" \t");
    Press(Qt::Key_Down);
    const std::string missing = "Row not fully filled|Data missing for the observation 1.";
    EXPECT_EQ(boxes.TakeOne(), missing);
    EXPECT_TRUE(grid.hasFocus());
    Press(Qt::Key_Right);
    EXPECT_EQ(boxes.TakeOne(), missing) << "again at each change";
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Row(1), "|||-02.50");
    Press(Qt::Key_Down); // a correction alone is no begun row
    grid.GoTo(1, 3);
    Press(Qt::Key_Delete);
    EXPECT_EQ(boxes.TakeOne(), "Row empty|If you want to delete the entire row,|please use <Control> <Delete>.");
}

TEST_F(ObservationGridTest, CtrlDeleteRemovesTheRowAndClosesTheGap)
{
    FillRow(1);
    FillRow(2, {"2 May 2004", "MARS", "99°00'.0", ""});
    input.Entry.Rows[2].Flag[2] = false;
    FillRow(4, {"4 May 2004", "VENUS", "10°00'.0", "+01.00"});
    grid.ShowRows();
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(grid.Rows(), 49);
    EXPECT_EQ(Row(1), "2 May 2004|MARS|99°00'.0|");
    EXPECT_EQ(grid.Background(1, 2), QColor(Qt::red));
    EXPECT_EQ(Row(3), "4 May 2004|VENUS|10°00'.0|+01.00");
    EXPECT_TRUE(Flags(3)[0]);
    for (int row = 48; row > 0; --row)
        Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(grid.Rows(), 2) << "the last one is emptied";
    EXPECT_EQ(Row(1), "|||");
    Type(" \t");
    EXPECT_EQ(grid.Text(1, 0), Proposed);
    grid.BuildObsGrid();
    EXPECT_EQ(grid.Rows(), 50);
}

TEST_F(ObservationGridTest, TabFromTheLastRowAndF5)
{
    for (int row = 1; row <= fix::MaxObservations; ++row)
        FillRow(row);
    grid.ShowRows();
    int captures = 0;
    grid.OnCapture = [&] { ++captures; };
    for (const int column : {2, 3}) {
        grid.GoTo(49, column);
        Type(" \t");
        EXPECT_EQ(grid.Current(), (GridCell{1, 0}));
        EXPECT_TRUE(grid.hasFocus());
    }
    Press(Qt::Key_F5);
    EXPECT_EQ(captures, 1);
}

TEST_F(ObservationGridTest, AnEditorLeftForAnotherControlKeepsItsValue)
{
    grid.GoTo(1, 2);
    Type("45301");
    button.setFocus();
    EXPECT_NE(grid.Editor(), nullptr);
    EXPECT_EQ(Row(1), "|||");
    grid.CommitGridEditor();
    EXPECT_EQ(Row(1), "||45°30'.1|-02.50");
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(grid.Editor(), nullptr);
}

/// A commit with the real clock, whose pause serves events.
class PauseTest : public ObservationGridTest
{
protected:
    platform::SystemClock real;
    numeric::ScopedClock inForce{real};
};

TEST_F(PauseTest, KeysTypedAheadGoToTheNextCell)
{
    FillRow(1);
    grid.ShowRows();
    grid.GoTo(1, 2);
    QColor shown;
    QTimer::singleShot(100, [&] {
        shown = platform::FieldColour(*grid.Editor());
        Type("12");
        EXPECT_EQ(grid.EditorCell(), (GridCell{1, 2})) << "still the altitude";
    });
    Type("45\t");
    EXPECT_EQ(shown, QColor(0, 255, 0));
    QTest::qWait(10);
    EXPECT_EQ(grid.Text(1, 2), "45°00'.0");
    EXPECT_EQ(grid.EditorCell(), (GridCell{2, 0}));
    EXPECT_EQ(TimeShown(), "12 May 2004 12:00:00");
}

TEST_F(PauseTest, AnEditBegunInThePauseStaysOpen)
{
    for (const int row : {1, 2})
        FillRow(row);
    grid.ShowRows();
    for (const int row : {2, 1}) {
        grid.GoTo(1, 2);
        QTimer::singleShot(50, [&] { row == 1 ? grid.EditGridCell('7') : DoubleClick(row, 2); });
        Type("45\t");
        QTest::qWait(10);
        EXPECT_EQ(grid.EditorCell(), (GridCell{row, 2}));
        EXPECT_NE(grid.Editor(), nullptr);
        EXPECT_EQ(Altitude().Text(), row == 1 ? "7_°__'._" : "35°15'.0");
        EXPECT_EQ(platform::FieldColour(*grid.Editor()), QApplication::palette().color(QPalette::Base));
        EXPECT_EQ(grid.Text(1, 2), "45°00'.0");
        Press(Qt::Key_Escape);
    }
}

TEST_F(ObservationGridTest, ABuildPaintsOnceAndTipsStandOverTheFirstRow)
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
    grid.BuildObsGrid();
    QTest::qWait(20);
    EXPECT_EQ(counter.Paints, 1);
    EXPECT_EQ(grid.CellToolTip({1, 2}), "2x click or [space] to edit");
    EXPECT_EQ(grid.CellToolTip({1, 3}), "auto filled");
    EXPECT_EQ(grid.CellToolTip({2, 0}), "");
}

} // namespace
} // namespace merov::app
