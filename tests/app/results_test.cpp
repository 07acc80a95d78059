#include "app/program.h"

#include "app/tab_in.h"
#include "platform/rich_text_box.h"
#include "platform/status_panels.h"

#include <QListWidget>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <utility>

/// The results on the screen: report, chart, and the probability that both show.

namespace merov::app
{
namespace
{

using test::ResultMenus;

const QString ChartView = "picLMChart tlhGraph";
const QString Others = "Azi Options Util ";

class ResultsTest : public test::Program
{
protected:
    bool ReportHas(const char* text)
    {
        return Find<platform::RichTextBox>("rtfNumDisp").toPlainText().contains(QString::fromUtf8(text));
    }
    QImage Chart() { return Find<QWidget>("picLMChart").grab().toImage(); }
    QString Proba() { return Find<platform::StatusPanels>("staNumDisp").PanelText("Proba"); }
    void Load()
    {
        Dialogs.Answers = {test::Sample};
        Window->mnuAstroLoad();
    }

    /// Asks for the report, and does something else in the moment before it comes.
    void ReportWhile(const std::function<void()>& act)
    {
        bool done = false;
        Clock.OnEvents = [&] {
            if (!std::exchange(done, true)) act();
        };
        Trigger("mnuAstroNumDisp");
        Clock.OnEvents = nullptr;
    }

    /// Chooses a line of the chooser that opens next.
    void Choose(Qt::Key move, Qt::Key end = Qt::Key_Return)
    {
        InForm([move, end](QWidget& form) {
            QTest::keyClick(form.focusWidget(), move);
            QTest::keyClick(form.focusWidget(), end);
        });
    }
};

TEST_F(ResultsTest, ReportComesAfterItsMoment)
{
    Start(test::Sample);
    ReportWhile([this] {
        EXPECT_EQ(InView(), "panhGradient tlhNum");
        EXPECT_EQ(Proba(), "95.0 %");
    });
    auto& report = Find<platform::RichTextBox>("rtfNumDisp");
    EXPECT_EQ(InView(), "rtfNumDisp tlhNum");
    EXPECT_EQ(Off(), Sorted(Others + "AstroGraphChart AstroGraphGrid AstroGraphLOP AstroGraphPrint AstroNumDisp"));
    EXPECT_TRUE(ReportHas("End of astronomic position by Merov 1.2") && !ReportHas("§"));
    EXPECT_EQ(report.textCursor().position(), 20);
    EXPECT_EQ(Window->focusWidget(), &report);
    QTest::keyClick(&report, Qt::Key_PageDown);
    EXPECT_GT(report.verticalScrollBar()->value(), 0);
    QTest::keyClick(&report, Qt::Key_Tab);
    EXPECT_EQ(Window->focusWidget()->objectName(), "bthEllipse1");

    // Over the results the input comes and goes.
    Click("bthBackStarFix1");
    EXPECT_EQ(Off(), Sorted(Others + ResultMenus));
    Click("bthCorr");
    EXPECT_EQ(InView(), "tabIn rtfNumDisp tlhStarfix");
    Click("cmdCancel(0)");
    EXPECT_EQ(InView(), "rtfNumDisp tlhStarfix");
    EXPECT_EQ(Window->focusWidget(), &report);
    Click("bthGraphRes");
    EXPECT_EQ(InView(), ChartView);
    EXPECT_EQ(Off(), Sorted(Others + "AstroGraphDisp AstroNumPrint"));
}

TEST_F(ResultsTest, ReportGivesWayToWhatTheUserDoesMeanwhile)
{
    Start(test::Sample);
    ReportWhile([this] { Window->ShowMainScreen(); });
    EXPECT_EQ(InView(), test::MainView);
    Load();
    ReportWhile([this] { Trigger("mnuAstroErase"); });
    EXPECT_EQ(InView(), test::MainView);
    Load();
    ReportWhile([this] { Trigger("mnuAstroCorrect"); });
    EXPECT_EQ(InView(), "panhGradient tabIn tlhNum");
    ReportWhile([this] { Click("bthBackStarFix1"); });
    EXPECT_EQ(InView(), "rtfNumDisp tlhStarfix");
    EXPECT_EQ(Off(), Sorted(Others + ResultMenus));
    ReportWhile([this] {
        for (const Command command : {Command::GraphRes, Command::Proba, Command::ProbaNum, Command::NumPrint})
            Window->Run(command); // these wait
    });
    EXPECT_EQ(InView(), "rtfNumDisp tlhNum");
    Window->mnuOptionsTab(); // no reason to leave when it stood there before
    ReportWhile([] {});
    EXPECT_EQ(InView(), "tabOptions rtfNumDisp tlhNum"); // on top of them
}

TEST_F(ResultsTest, ReportWithoutTemplateChangesNoScreen)
{
    for (const char* name : {"InfoProg.rtf", "CalcWP.rtf"})
        ASSERT_TRUE(QFile::copy(test::RunDir + "/" + name, Home.filePath(name)));
    Start(test::Sample, Home.path());
    const std::string told = Boxes.TakeOne();
    Click("bthNumRes");
    EXPECT_EQ(Boxes.TakeOne(), told);
    EXPECT_EQ(InView(), test::InputView);
    EXPECT_EQ(Proba(), "95.0 %");
}

TEST_F(ResultsTest, ChartFollowsItsCommandsAndItsWindow)
{
    Start(test::Sample);
    Trigger("mnuAstroGraphDisp");
    auto& chart = Find<QWidget>("picLMChart");
    EXPECT_EQ(Window->focusWidget(), &chart);
    EXPECT_EQ(chart.toolTip(), QString::fromUtf8("+ Estimated Position   · MPP"));
    EXPECT_FALSE(chart.accessibleDescription().isEmpty());
    QImage before = Chart();
    const output::ChartSettings& settings = Window->Input().Chart;
    const auto sized = [&](const char* button, double lopScale, double margin) {
        Click(button);
        return settings.LopScale == lopScale && settings.ChartMargin == margin &&
               before != std::exchange(before, Chart());
    };
    EXPECT_TRUE(sized("bthLopIncr", 6.0, 0.1));
    EXPECT_TRUE(sized("bthLopDecr", 5.0, 0.1));
    EXPECT_TRUE(sized("bthChartIncr", 5.0, 0.0));
    EXPECT_TRUE(sized("bthChartDecr", 5.0, 0.1));
    for (const char* entry : {"LOPDec", "LOPDec", "LOPDec", "LOPDec", "LOPDec", "LOPInc", "ChartInc", "ChartInc"})
        Trigger(QString("mnuAstroGraph") + entry);
    EXPECT_TRUE(sized("bthChartDecr", 2.0, 0.0));

    // The grid's two buttons change places and keep the keyboard.
    const auto& grid2 = Find<QWidget>("bthGrid2");
    Click("bthGrid1");
    EXPECT_TRUE(grid2.isVisible() && grid2.hasFocus() && !Find<QWidget>("bthGrid1").isVisible());
    EXPECT_TRUE(Find<QAction>("mnuAstroGraphGrid").isChecked());
    EXPECT_NE(Chart(), before);
    Trigger("mnuAstroGraphGrid");
    EXPECT_TRUE(Find<QWidget>("bthGrid1").isVisible() && !grid2.isVisible());
    EXPECT_EQ(Chart(), before);

    // A resize draws the same fix, also while over it stands an input that was never computed.
    Window->resize(1100, 700);
    const QImage resized = Chart();
    EXPECT_EQ(resized.size(), chart.size());
    Trigger("mnuAstroCorrect");
    Window->cmdEraseObs();
    Click("bthGraphRes");
    Boxes.TakeOne();
    Window->resize(900, 640);
    Window->resize(1100, 700);
    EXPECT_EQ(Chart(), resized);
    Window->mnuAstroErase();
    EXPECT_EQ(InView(), "tabIn tlhGraph");
    EXPECT_EQ(settings.LopScale, 5.0);
    EXPECT_TRUE(chart.accessibleDescription().isEmpty());
    Click("bthChartIncr"); // its bar still stands there
    EXPECT_FALSE(chart.isVisible());
}

TEST_F(ResultsTest, ChooserSetsTheProbabilityAtOnce)
{
    Start();
    InForm([this](QWidget& form) {
        QStringList lines;
        for (const QListWidgetItem* line : form.findChild<QListWidget*>("lstProba")->findItems("0", Qt::MatchContains))
            lines += line->text();
        EXPECT_EQ(lines.join(' '), "0.5 0.95 0.99 0.999");
        QTest::keyClick(form.focusWidget(), Qt::Key_Down);
        EXPECT_EQ(Window->Input().Session.Probability, 0.99);
        QTest::mouseClick(form.findChild<QWidget*>("cmdOK"), Qt::LeftButton);
    });
    Trigger("mnuAstroProba");
    Load(); // which erases; the choice stays
    Trigger("mnuAstroNumDisp");
    EXPECT_TRUE(ReportHas("ellipse of 99.0 % probability"));

    // Unchanged, nothing runs; changed, what is in view does. The tool bars' buttons run theirs always.
    Clock.Events = 0;
    Choose(Qt::Key_Return);
    Trigger("mnuAstroProba");
    EXPECT_EQ(Clock.Events, 0);
    Choose(Qt::Key_Home, Qt::Key_Escape);
    QTest::mouseClick(&Find<QWidget>("Proba"), Qt::LeftButton);
    EXPECT_TRUE(ReportHas("ellipse of 50.0 % probability"));
    Clock.Events = 0;
    Choose(Qt::Key_Return);
    Click("bthEllipse1");
    EXPECT_GT(Clock.Events, 0);
    Trigger("mnuAstroGraphDisp");
    const QImage half = Chart();
    Choose(Qt::Key_End);
    Trigger("mnuAstroProba");
    EXPECT_NE(Chart(), half);
    Choose(Qt::Key_Home);
    Click("bthEllipse2");
    EXPECT_EQ(Chart(), half);

    // With neither in view the panel alone is kept right.
    Window->ShowMainScreen();
    const double radius = Window->Input().Session.CircleRadius;
    Choose(Qt::Key_End);
    Trigger("mnuAstroProba");
    EXPECT_EQ(Proba(), "99.9 %");
    EXPECT_EQ(Window->Input().Session.CircleRadius, radius);
    EXPECT_EQ(Forms, 7);
}

} // namespace
} // namespace merov::app
