#include "app/program.h"

#include "app/observation_grid.h"
#include "app/tab_in.h"
#include "app/tab_options.h"
#include "fix/fix_summary.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "numeric/fault.h"
#include "platform/masked_edit.h"
#include "platform/rich_text_box.h"
#include "platform/status_panels.h"
#include "sailing/ellipsoid.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

using test::InputMenus;
using test::InputView;
using test::MainView;
using test::ResultMenus;
using test::RunDir;
using test::Sample;

/// The main window with a world of its own.
class FrmWorkingTest : public test::Program
{
protected:
    /// Answers the next quit dialog by a button, or by its close box.
    void AnswerQuit(const QString& button)
    {
        // The one before hands the activation back in the event loop.
        ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == Window.get(); }));
        InForm([button](QWidget& dialog) {
            if (button.isEmpty())
                dialog.close();
            else
                dialog.findChild<QPushButton*>(button)->click();
        });
    }
};

TEST_F(FrmWorkingTest, FirstStartTakesMostOfTheScreen)
{
    Start();
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const int width = qRound(screen.width() * 0.95), height = qRound(screen.height() * 0.94);
    EXPECT_EQ(Window->size(), QSize(width, height).expandedTo({781, 561}));
    EXPECT_EQ(Window->y(), qRound((screen.height() - height) * 0.25));
    EXPECT_EQ(Window->windowTitle(), " Merov 1.2");
    EXPECT_EQ(InView(), MainView);
    EXPECT_EQ(Off(), InputMenus);
    EXPECT_EQ(Window->Tables().VersionText, "1.20");
    EXPECT_EQ(Find<QWidget>("bthRLGC").toolTip(), "RL, GC & ETA calculation");
    EXPECT_TRUE(Find<platform::RichTextBox>("rtfNumDisp").toPlainText().contains(QChar(0xA7)));
    EXPECT_FALSE(Find<platform::RichTextBox>("rtfCalcWP").isVisible());
    EXPECT_EQ(sailing::ActiveEllipsoidIndex(), sailing::DefaultEllipsoidIndex);

    Window->resize(100, 100);
    EXPECT_EQ(Window->size(), QSize(781, 561));
}

TEST_F(FrmWorkingTest, MenuBarReadsAsItShould)
{
    Start();
    const auto captions = [](const QList<QAction*>& actions) {
        QStringList texts;
        for (const QAction* action : actions)
            texts += action->isSeparator() ? "-" : action->text();
        return texts.join('|');
    };
    const auto menu = [&](const char* name) { return captions(Find<QMenu>(name).actions()); };
    EXPECT_EQ(captions(Window->menuBar()->actions()),
              "&File|&Astro Position|&Utilities|A&zimuth|&Wizard|&Options|&Help");
    EXPECT_EQ(menu("mnuFile"), "Print Setup|-|E&xit");
    EXPECT_EQ(menu("mnuAstro"),
              "&Enter datas...|&Load datas...|-|&Correct datas...|&Save datas...|E&rase datas|-|&Numeric Results|"
              "&Graphic Results|-|&Probability...");
    EXPECT_EQ(menu("mnuAstroGraph"), "&Display|&Chart size|&LOPs size|&Grid|&Print");
    EXPECT_EQ(menu("mnuUtil"), "&Rhumb Line...|&Great Circle...|&ETA Calculation...");
    EXPECT_EQ(menu("mnuHelp"), "&Manual|-|&About");
    EXPECT_EQ(Find<QAction>("mnuFileQuit").shortcut(), QKeySequence("Ctrl+Q"));

    // F10 leads to the menus, from a field too.
    Window->mnuAstroEnter();
    QTest::keyClick(Window->focusWidget(), Qt::Key_F10);
    QWidget* opened = QApplication::activePopupWidget();
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->objectName(), "mnuFile");
    opened->close();
}

TEST_F(FrmWorkingTest, EachCommandLeadsToItsScreen)
{
    Start();
    Click("picStarFix");
    EXPECT_EQ(InView(), InputView);
    EXPECT_EQ(Off(), InputMenus + " Azi Options Util");
    EXPECT_EQ(Window->focusWidget()->objectName(), "dtpTime(0)");

    // Entries survive the way to the main screen and back, by button and by tool bar.
    auto& course = Find<platform::MaskedEdit>("mskCourse(0)");
    course.setFocus();
    QTest::keyClicks(&course, "0900");
    Click("cmdCancel(0)");
    EXPECT_EQ(InView(), MainView);
    EXPECT_EQ(Off(), InputMenus);
    Trigger("mnuAstroEnter");
    EXPECT_EQ(Find<platform::MaskedEdit>("mskCourse(0)").Text(), QString::fromUtf8("090°.0"));
    Click("bthMain");
    EXPECT_EQ(InView(), MainView);

    Trigger("mnuOptionsTab");
    EXPECT_EQ(InView(), "panhGradient picStarFix picRLGC picAzimuth picStarFixWizard tabOptions tlhWorking");
    EXPECT_EQ(Off(), InputMenus);
    Click("cmdNextTabOptions(0)");
    Click("cmdEndTabOptions(1)");
    EXPECT_EQ(InView(), MainView);

    // One option has two boxes.
    Trigger("mnuOptionsTab");
    EXPECT_EQ(Find<TabOptions>("tabOptions").currentIndex(), 0);
    Click("cmdNextTabOptions(0)");
    Click("ch3OneEstPos(0)");
    EXPECT_TRUE(Find<QCheckBox>("ch3OneEstPos(1)").isChecked());
    Window->cmdEndTabOptions();
    Window->mnuAstroEnter();
    Click("ch3OneEstPos(1)");
    EXPECT_FALSE(Find<QCheckBox>("ch3OneEstPos(0)").isChecked());
    EXPECT_FALSE(Window->Input().Entry.OneEstPos);

    Dialogs.Answers = {Sample};
    Trigger("mnuAstroLoad");
    EXPECT_EQ(InView(), InputView);
    EXPECT_EQ(Off(), Sorted(ResultMenus + " Azi Options Util"));
    Find<TabIn>("tabIn").setCurrentIndex(2);
    Click("bthCorr");
    EXPECT_EQ(InView(), InputView);
    Trigger("mnuAstroErase");
    EXPECT_EQ(InView(), InputView);
    EXPECT_EQ(Off(), Sorted(InputMenus + " " + ResultMenus));
    EXPECT_EQ(Find<TabIn>("tabIn").currentIndex(), 0);
    Window->ShowMainScreen();
    EXPECT_EQ(InView(), MainView);
}

TEST_F(FrmWorkingTest, OpeningTheInputEntersNothing)
{
    Start();
    Click("bthStarfix");
    EXPECT_EQ(Window->focusWidget()->objectName(), "dtpTime(0)");
    EXPECT_FALSE(Window->Input().Entry.Flag(fix::InputFlag::TimeEstPos));
    EXPECT_FALSE(Window->Input().Entry.Flag(fix::InputFlag::TimeTruePos));
}

TEST_F(FrmWorkingTest, OnlyTheSurfaceOnTopTakesKeys)
{
    Start();
    Trigger("mnuOptionsTab");
    Click("bthStarfix");
    EXPECT_FALSE(Find<QWidget>("ch3OneEstPos(0)").isEnabled());
    EXPECT_TRUE(Find<QWidget>("mskLat(5)").isEnabled());
    EXPECT_EQ(Window->focusWidget()->objectName(), "dtpTime(0)");
    Trigger("mnuAstroErase"); // switches the preferences on again
    // The field that they cover is left first, and may refuse.
    auto& latitude = Find<platform::MaskedEdit>("mskLat(5)");
    Click("mskLat(5)");
    latitude.setText("95°00'.0 N");
    Trigger("mnuOptionsTab");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Latitude > 90°.");
    EXPECT_TRUE(latitude.isEnabled());
    EXPECT_EQ(Window->focusWidget(), &latitude);
    latitude.setText("38°43'.0 N");
    Trigger("mnuOptionsTab");
    EXPECT_TRUE(Window->Input().Entry.Flag(fix::InputFlag::EstLat));
    EXPECT_FALSE(Find<QWidget>("mskLat(5)").isEnabled());
    EXPECT_EQ(Window->focusWidget()->objectName(), "cboEllipsoid");
    Click("cmdEndTabOptions(0)");
    EXPECT_TRUE(Find<QWidget>("mskLat(5)").isEnabled());
    EXPECT_EQ(Window->focusWidget()->objectName(), "dtpTime(0)");
}

TEST_F(FrmWorkingTest, EachClickOnAHeaderChecksTheWay)
{
    const std::string missing = "Missing data|Some data on the other tabs are missing.|Please check that the whole "
                                "input form is completed.";
    Start(Sample);
    auto& tabIn = Find<TabIn>("tabIn");
    const auto clickObservations = [&] {
        QTest::mouseClick(&tabIn.Header(), Qt::LeftButton, {}, tabIn.Header().tabRect(2).center());
        QTest::qWait(0);
    };
    clickObservations();
    EXPECT_EQ(Window->focusWidget()->objectName(), "grdObs");
    Trigger("mnuAstroErase");
    Boxes.Answer({numeric::BoxAnswer::Yes});
    clickObservations();
    ASSERT_EQ(Boxes.Count(), 2u); // the question about the times, and what is missing
    EXPECT_EQ(Boxes.TakeTexts()[1], missing);
    Dialogs.Answers = {Sample};
    Trigger("mnuAstroLoad");
    clickObservations();
    EXPECT_EQ(Window->focusWidget()->objectName(), "grdObs");

    // A button that found something missing leaves the headers with the focus, and the next click asks anew.
    Trigger("mnuAstroErase");
    Boxes.Answer({numeric::BoxAnswer::Yes});
    Click("cmdNextTabIn(0)");
    EXPECT_EQ(Boxes.TakeAll().size(), 2u);
    clickObservations();
    EXPECT_EQ(Boxes.TakeOne(), missing);
}

TEST_F(FrmWorkingTest, RefusedFixLeavesTheGridWhereItIs)
{
    Start(Sample);
    Find<TabIn>("tabIn").ShowPage(2);
    auto& grid = Find<ObservationGrid>("grdObs");
    grid.setFocus();
    grid.GoTo(8, 0);
    QTest::keyClick(&grid, ' ');
    Click("cmdNumRes");
    EXPECT_EQ(Boxes.TakeOne(), "Missing data|Some data are missing or incorrect in the grid.");
    EXPECT_EQ(grid.Current(), (platform::GridCell{8, 0}));
    QTest::keyClick(&grid, Qt::Key_Delete, Qt::ControlModifier);
    Click("cmdNumRes");
    EXPECT_EQ(grid.Current(), (platform::GridCell{1, 0}));
}

TEST_F(FrmWorkingTest, FixThatTheUserHasLeftIsDropped)
{
    Start(Sample);
    auto& status = Find<platform::StatusPanels>("staNumDisp");
    auto& grid = Find<ObservationGrid>("grdObs");
    Find<TabIn>("tabIn").ShowPage(2);
    // A cell left open is taken in, and while it shows green events are served.
    const auto fixWhile = [&](const std::function<void()>& act) {
        grid.setFocus();
        grid.GoTo(1, 2);
        QTest::keyClick(&grid, ' ');
        Clock.OnEvents = act;
        Window->cmdNumRes();
        Clock.OnEvents = nullptr;
    };
    fixWhile([&] { Window->ShowMainScreen(); });
    EXPECT_FALSE(status.ShowsPanels());
    EXPECT_EQ(InView(), MainView);
    Window->mnuAstroEnter();
    Find<TabIn>("tabIn").ShowPage(2);
    fixWhile([] {});
    EXPECT_TRUE(status.ShowsPanels());
    fixWhile([&] { Window->cmdEraseObs(); });
    EXPECT_FALSE(status.ShowsPanels());
}

TEST_F(FrmWorkingTest, FileOfTheCommandLineIsLoaded)
{
    const QString file = Home.filePath("my sights.obs");
    ASSERT_TRUE(QFile::copy(Sample, file));
    Start("\"" + file + "\"");
    EXPECT_EQ(InView(), InputView);
    EXPECT_EQ(Off(), Sorted(ResultMenus + " Azi Options Util"));
    EXPECT_TRUE(Dialogs.Questions.empty());
    EXPECT_FALSE(Window->Input().Entry.Rows[1].Text[0].empty());

    // The next load asks; a cancel keeps what stands.
    Window->mnuAstroLoad();
    EXPECT_EQ(Dialogs.Questions.size(), 1u);
    EXPECT_FALSE(Window->Input().Entry.Rows[1].Text[0].empty());
}

TEST_F(FrmWorkingTest, FileThatIsMissingLeadsToTheDialog)
{
    Start("/nowhere/at.obs");
    EXPECT_EQ(Boxes.Count(), 1u);
    Boxes.TakeAll();
    EXPECT_EQ(Dialogs.Questions.size(), 1u);
    EXPECT_EQ(InView(), InputView);
    EXPECT_EQ(Off(), InputMenus + " Azi Options Util");
}

TEST_F(FrmWorkingTest, ResultsFillTheStatusBar)
{
    fix::SightEntry entry;
    fix::SightSession session;
    numeric::LastError journal;
    ASSERT_TRUE(fix::LoadObservationFile(Sample.toStdString(), entry, session));
    entry.Text(fix::EntryField::HeightMetres) = "12.0";
    fix::LeaveField(entry, session, fix::EntryField::HeightMetres);
    const sailing::EarthModel earth = sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
    ASSERT_TRUE(fix::RunFix(entry, session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal));

    Start(Sample);
    auto& status = Find<platform::StatusPanels>("staNumDisp");
    EXPECT_FALSE(status.ShowsPanels());
    // A menu leaves no field; what is being typed counts all the same.
    Find<TabIn>("tabIn").setCurrentIndex(1);
    auto& height = Find<platform::MaskedEdit>("mskHeightM");
    height.setFocus();
    QTest::keyClicks(&height, "120");
    Trigger("mnuAstroNumDisp");
    EXPECT_TRUE(status.ShowsPanels());
    for (const fix::FixPanel& panel : fix::FixPanels(session))
        EXPECT_EQ(status.PanelText(QString::fromStdString(panel.Key)), QString::fromStdString(panel.Text));

    Window->cmdEraseObs();
    EXPECT_FALSE(status.ShowsPanels());
    Window->cmdGraphRes();
    EXPECT_EQ(Boxes.TakeOne(), "Missing data|Some data are missing.|Please check that the whole input form is "
                               "completed.");
    EXPECT_FALSE(status.ShowsPanels());
    EXPECT_EQ(InView(), "rtfNumDisp tlhNum");
}

TEST_F(FrmWorkingTest, RefusedFieldLeavesNothingStuck)
{
    Start();
    Window->mnuAstroEnter();
    auto& latitude = Find<platform::MaskedEdit>("mskLat(5)");
    latitude.setFocus();
    QTest::keyClicks(&latitude, "95000N");
    for (const char* name : {"cmdCancel(0)", "bthMain", "cmdNextTabIn(0)"}) {
        Click(name);
        EXPECT_EQ(Boxes.TakeOne(), std::string(" Error in input data|Latitude > 90°.")) << name;
        EXPECT_EQ(Window->focusWidget(), &latitude);
        EXPECT_EQ(InView(), InputView);
    }
    Window->mnuAstroSave();
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Latitude > 90°.");

    // The close box and the menus don't leave the field.
    AnswerQuit("cmdNo");
    Window->close();
    EXPECT_TRUE(Window->isVisible());
    QTest::qWait(0);
    EXPECT_EQ(Window->focusWidget(), &latitude);
    Window->ShowMainScreen();
    EXPECT_EQ(InView(), MainView);
    Window->mnuAstroEnter();
    EXPECT_EQ(latitude.Text(), QString::fromUtf8("95°00'.0 N"));
    EXPECT_EQ(Boxes.Count(), 0u);
    Window->mnuAstroErase();
    EXPECT_TRUE(latitude.IsBlank());
}

TEST_F(FrmWorkingTest, OnlyAnAnswerEndsTheProgram)
{
    Start();
    // From the menu only "yes" ends: neither the dialog's own close box nor "no" does.
    for (const char* answer : {"", "cmdNo", ""}) {
        AnswerQuit(answer);
        Window->Run(Command::Quit);
        EXPECT_TRUE(Window->isVisible());
    }
    // From the close box the dialog's own close repeats the last answer, which was "no".
    AnswerQuit("");
    EXPECT_FALSE(Window->close());
    EXPECT_TRUE(Settings.Texts.empty());

    Window->move(30, 40);
    Window->resize(790, 700);
    AnswerQuit("cmdYes");
    QTest::keyClick(Window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(Forms, 5);
    EXPECT_EQ(Settings.Text("Settings", "MainLeft"), "450");
    EXPECT_EQ(Settings.Text("Settings", "MainTop"), "600");
    EXPECT_EQ(Settings.Text("Settings", "MainWidth"), "11850");
    EXPECT_EQ(Settings.Text("Settings", "MainHeight"), "10500");

    // The next run stands there. Minimised it keeps what the run before left; nobody has answered yet, and
    // that ends it from the close box.
    Start();
    EXPECT_EQ(Window->pos(), QPoint(30, 40));
    EXPECT_EQ(Window->size(), QSize(790, 700));
    Window->resize(1000, 600);
    Window->showMinimized();
    AnswerQuit("");
    EXPECT_TRUE(Window->close());
    EXPECT_EQ(Settings.Text("Settings", "MainWidth"), "11850");
}

TEST_F(FrmWorkingTest, MissingDocumentsAreToldOnce)
{
    ASSERT_TRUE(QFile::copy(RunDir + "/InfoProg.rtf", Home.filePath("InfoProg.rtf")));
    QFile damaged(Home.filePath("CalcWP.rtf"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("{\\rtf1 half");
    damaged.close();
    Start({}, Home.path());
    const QString box = QString::fromStdString(Boxes.TakeOne());
    EXPECT_TRUE(box.startsWith("Missing documents|")) << box.toStdString();
    EXPECT_TRUE(box.contains("NumResults.rtf") && box.contains("CalcWP.rtf") && !box.contains("InfoProg.rtf"));
    EXPECT_EQ(InView(), MainView);
}

TEST_F(FrmWorkingTest, AboutBoxShowsItsText)
{
    Start();
    bool shown = false;
    QTimer::singleShot(0, Window.get(), [&] {
        QWidget* about = QApplication::activeModalWidget();
        ASSERT_NE(about, nullptr);
        shown = about->windowTitle() == " About Merov" && Find<platform::RichTextBox>("rtfAboutProg").isVisible();
        QTest::keyClick(about, Qt::Key_Escape);
    });
    Trigger("mnuHelpAbout");
    EXPECT_TRUE(shown);
}

TEST_F(FrmWorkingTest, FaultEndsTheCommandAlone)
{
    class FaultyDialogs : public test::ScriptedDialogs
    {
        std::optional<QString> AskOpen(const platform::FileQuestion&) override { numeric::RaiseDivisionByZero(); }
    } faulty;
    Files = &faulty;
    Start();
    Trigger("mnuAstroLoad");
    EXPECT_EQ(Boxes.TakeOne(), " ERROR REPORT|Division by zero.");
    EXPECT_EQ(InView(), InputView);
}

} // namespace
} // namespace merov::app
