#include "app/program.h"

#include "app/tab_in.h"
#include "ephemeris/time_lib.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "numeric/inout_lib.h"
#include "platform/masked_edit.h"
#include "platform/overlay_grid.h"
#include "platform/status_panels.h"
#include "platform/time_picker.h"
#include "sailing/ellipsoid.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimer>

/// Whole sessions, typed and clicked as a navigator does.

namespace merov::app
{
namespace
{

constexpr double Close = 1e-9; // degrees

/// The fix of merov-cli from a file, which reads it on its own.
QJsonObject FixByCommandLine(const QString& file)
{
    QProcess tool;
    tool.start(test::RunDir + "/merov-cli", {"fix", "--json", file});
    EXPECT_TRUE(tool.waitForFinished(60000)) << tool.errorString().toStdString();
    return QJsonDocument::fromJson(tool.readAllStandardOutput()).object();
}

class SessionTest : public test::Program
{
protected:
    ~SessionTest() override { numeric::SetDecimalSeparator("."); }

    /// Types into whatever has the focus. A blank is the space bar.
    void Type(const char* text)
    {
        for (const char* key = text; *key != '\0'; ++key)
            QTest::keyClick(Window->focusWidget(), *key);
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(Window->focusWidget(), key, modifiers);
        QTest::qWait(0);
    }

    /// Types a time into the picker that has the focus, part by part, and leaves it by Tab.
    void TypeTime(const char* day, const char* month, const char* year, const char* hms)
    {
        auto* picker = qobject_cast<QDateTimeEdit*>(Window->focusWidget());
        ASSERT_NE(picker, nullptr) << Window->focusWidget()->objectName().toStdString();
        const auto part = [&](QDateTimeEdit::Section section, const char* text) {
            picker->setSelectedSection(section);
            Type(text);
        };
        // The year first: not every day stands in every year.
        part(QDateTimeEdit::YearSection, year);
        part(QDateTimeEdit::MonthSection, month);
        part(QDateTimeEdit::DaySection, day);
        const QByteArray time = hms;
        part(QDateTimeEdit::HourSection, time.mid(0, 2));
        part(QDateTimeEdit::MinuteSection, time.mid(3, 2));
        part(QDateTimeEdit::SecondSection, time.mid(6, 2));
    }

    QString Focus() { return Window->focusWidget()->objectName(); }

    /// Goes on by Tab to a control, which must be reached.
    void TabTo(const QString& name)
    {
        for (int presses = 0; Focus() != name && presses < 20; ++presses)
            Press(Qt::Key_Tab);
        ASSERT_EQ(Focus(), name);
    }

    /// Types the evening of the sample "evening_stars" through all three tabs.
    void TypeEvening();
    void TypeSight(const char* minuteAndSecond, const char* body, const char* altitude);
};

void SessionTest::TypeEvening()
{
    Click("picStarFix");
    ASSERT_EQ(Focus(), "dtpTime(0)");
    TypeTime("14", "Sep", "2024", "19:00:00");
    TabTo("mskLat(5)");
    Type("38430n");
    TabTo("mskLong(5)");
    Type("011550w");
    TabTo("mskCourse(0)");
    Type("2120");
    TabTo("mskSpeed");
    Type("135"); // the first place is passed by
    TabTo("dtpTime(1)");
    TypeTime("14", "Sep", "2024", "19:40:00");
    Press(Qt::Key_N, Qt::AltModifier);
    ASSERT_EQ(Focus(), "mskHeightM");
    Type("085");
    TabTo("mskInstErr(0)");
    QTest::keyClick(Window->focusWidget(), Qt::Key_Home);
    Type("-0180");
    TabTo("mskTempCelcius(0)");
    Type(" 21");
    TabTo("mskPress_mBars");
    Type("1018");
    Press(Qt::Key_N, Qt::AltModifier);
    ASSERT_EQ(Focus(), "grdObs");
}

/// One row of the grid, from its first cell to the first of the next.
void SessionTest::TypeSight(const char* minuteAndSecond, const char* body, const char* altitude)
{
    Type(" ");
    auto* picker = qobject_cast<QDateTimeEdit*>(Window->focusWidget());
    ASSERT_NE(picker, nullptr) << Focus().toStdString();
    const QByteArray time = minuteAndSecond;
    picker->setSelectedSection(QDateTimeEdit::MinuteSection);
    Type(time.mid(0, 2));
    picker->setSelectedSection(QDateTimeEdit::SecondSection);
    Type(time.mid(3, 2));
    Press(Qt::Key_Tab);
    Type(body);
    Press(Qt::Key_Tab);
    Type(altitude);
    Press(Qt::Key_Tab);
    ASSERT_EQ(Focus(), "grdObs");
}

TEST_F(SessionTest, TypedEveningGivesTheFixOfItsSavedFile)
{
    for (const char* separator : {".", ","}) {
        SCOPED_TRACE(separator);
        Start();
        numeric::SetDecimalSeparator(separator);
        Find<TabIn>("tabIn").InstallMasks();
        TypeEvening();
        // Entered out of order, which the fix puts right; the default correction fills the last column.
        TypeSight("33:55", "ALTA", "54263");
        TypeSight("31:42", "ARC", "34206");
        TypeSight("36:20", "ANTA", "19537");
        TypeSight("38:37", "DENEB", "64205");
        TypeSight("41:06", "ALK", "40076");
        TypeSight("43:29", "POLA", "38123");
        // The last sight by the time capture: F5 15 seconds after it, then the space bar.
        auto& grid = Find<platform::OverlayGrid>("grdObs");
        EXPECT_EQ(grid.Current(), (platform::GridCell{7, 0}));
        const double sight = ephemeris::JoinDateTime({2024, 9, 14, 19, 46, 14});
        Clock.Advance((sight - Clock.Now().Utc) * 86400.0 + 15.0);
        QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
        Press(Qt::Key_F5);
        EXPECT_NEAR(Window->Input().StoredTime, sight, 1e-9);
        Type(" ");
        EXPECT_EQ(Window->Input().StoredTime, 0.0);
        Press(Qt::Key_Tab);
        Type("SCH");
        Press(Qt::Key_Tab);
        Type("30356"); // left open: a result button takes it in
        const QString file = Home.filePath(QString("typed") + (*separator == '.' ? 'p' : 'c') + ".obs");
        Click("cmdGraphRes");
        auto& status = Find<platform::StatusPanels>("staNumDisp");
        ASSERT_TRUE(status.ShowsPanels());
        EXPECT_EQ(grid.Text(1, 1), "ARCTURUS");
        EXPECT_EQ(grid.Text(7, 1), "SCHEDAR");
        EXPECT_EQ(grid.Text(7, 3), QString("-01") + separator + "80");

        const fix::SightSession typed = Window->Input().Session;
        Dialogs.Answers = {file};
        Trigger("mnuAstroSave");
        EXPECT_EQ(Boxes.TakeOne(), "File saved confirmation|File " + file.toStdString() + " saved.");
        const QJsonObject read = FixByCommandLine(file);
        EXPECT_NEAR(typed.TrueLat, read["TrueLat"].toDouble(), Close);
        EXPECT_NEAR(typed.TrueLong, read["TrueLong"].toDouble(), Close);
        const QJsonObject sample = FixByCommandLine(test::Sample);
        EXPECT_NEAR(typed.TrueLat, sample["TrueLat"].toDouble(), Close);
        EXPECT_NEAR(typed.TrueLong, sample["TrueLong"].toDouble(), Close);

        // Loaded again, the two agree to the last figure.
        Dialogs.Answers = {file};
        Trigger("mnuAstroLoad");
        Trigger("mnuAstroNumDisp");
        EXPECT_NEAR(Window->Input().Session.TrueLat, read["TrueLat"].toDouble(), Close);
        EXPECT_NEAR(Window->Input().Session.TrueLong, read["TrueLong"].toDouble(), Close);
        EXPECT_EQ(status.PanelText("MPP"), read["Panels"]["MPP"].toString().replace(".", separator));
    }
}

TEST_F(SessionTest, EachSampleGivesTheFixOfTheCommandLine)
{
    Start();
    QDirIterator files(test::RunDir + "/Observations", {"*.obs"}, QDir::Files);
    int read = 0;
    while (files.hasNext()) {
        const QString file = files.next();
        SCOPED_TRACE(file.toStdString());
        Dialogs.Answers = {file};
        Trigger("mnuAstroLoad");
        Trigger("mnuAstroGraphDisp");
        const QJsonObject fix = FixByCommandLine(file);
        EXPECT_EQ(Boxes.Count(), static_cast<std::size_t>(fix["Boxes"].toArray().size()));
        Boxes.TakeAll();
        EXPECT_NEAR(Window->Input().Session.TrueLat, fix["TrueLat"].toDouble(), Close);
        EXPECT_NEAR(Window->Input().Session.TrueLong, fix["TrueLong"].toDouble(), Close);
        ++read;
    }
    EXPECT_GE(read, 13);
}

} // namespace
} // namespace merov::app
