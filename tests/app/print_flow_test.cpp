#include "app/program.h"

#include <QComboBox>
#include <QFileInfo>
#include <QProgressBar>

#include <gtest/gtest.h>

/// The print commands, from the menu to the page.

namespace merov::app
{
namespace
{

using numeric::BoxAnswer;
using test::PrintStep;

const std::string NotReady = "PRINTER NOT READY|Please check your printer and retry.";

class PrintFlowTest : public test::Program
{
protected:
    void StartWith(const char* result)
    {
        Start(test::Sample);
        Trigger(result);
    }

    void Confirm()
    {
        InForm([](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); });
    }

    /// Makes settings that no print makes, and tells whether they are back.
    void Disarrange(QPageLayout::Orientation orientation)
    {
        Printers.Printers::SetOrientation(orientation);
        Printers.Printers::SetPrintQuality(platform::DraftQuality);
        Printers.Printers::SetColorMode(platform::Monochrome);
    }
    bool GivenBack(QPageLayout::Orientation orientation)
    {
        return Printers.Orientation() == orientation && Printers.PrintQuality() == platform::DraftQuality &&
               Printers.ColorMode() == platform::Monochrome && QApplication::overrideCursor() == nullptr;
    }
};

TEST_F(PrintFlowTest, WithoutAPrinterThereIsOneBox)
{
    StartWith("mnuAstroNumDisp");
    Click("bthPrint1");
    EXPECT_EQ(Boxes.TakeOne(), "NO PRINTER|Sorry, no printer connected to your system.");
    Trigger("mnuAstroGraphDisp");
    Click("bthPrint2");
    EXPECT_EQ(Boxes.TakeAll().at(0).Icon, numeric::BoxIcon::Error);
}

TEST_F(PrintFlowTest, ReportGoesToThePrinterThatIsChosen)
{
    Printers.Listed = {"Bridge", "Cabin"};
    Printers.First = "Bridge";
    StartWith("mnuAstroNumDisp");
    Disarrange(QPageLayout::Landscape);
    InForm([this](QWidget& form) {
        auto& list = *form.findChild<QComboBox*>("cboListPrinters");
        EXPECT_EQ(list.currentText(), "Bridge");
        QTest::keyClick(&list, Qt::Key_Down);
        EXPECT_EQ(Printers.Current(), "Cabin");
        QTest::mouseClick(form.findChild<QWidget*>("cmdCancel"), Qt::LeftButton);
    });
    Click("bthPrint1");
    EXPECT_TRUE(Printers.Jobs.empty());

    InForm([this](QWidget& chooser) {
        InForm([](QWidget& wait) {
            EXPECT_EQ(wait.findChild<QProgressBar*>("prgWait")->maximum(), 18);
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
            EXPECT_FALSE(wait.close());
        });
        QTest::mouseClick(chooser.findChild<QWidget*>("cmdOK"), Qt::LeftButton);
    });
    Trigger("mnuAstroNumPrint");
    EXPECT_EQ(Forms, 3);
    ASSERT_EQ(Printers.Jobs.size(), 1u);
    const auto& job = Printers.Jobs[0];
    EXPECT_TRUE(job.Ended);
    EXPECT_EQ(job.Printer, "Cabin");
    EXPECT_EQ(job.Layout.orientation(), QPageLayout::Portrait);
    EXPECT_EQ(job.Quality, platform::HighQuality);
    EXPECT_EQ(job.ColorMode, platform::Colour);
    EXPECT_TRUE(GivenBack(QPageLayout::Landscape));
}

TEST_F(PrintFlowTest, WhereItIsAFileItsNameIsAskedFor)
{
    Printers.OffersPdf = true;
    StartWith("mnuAstroGraphDisp");
    Click("bthPrint2"); // and cancels
    ASSERT_EQ(Dialogs.Questions.size(), 1u);
    EXPECT_EQ(Dialogs.Questions[0].Folder, Home.path());
    EXPECT_TRUE(Printers.Jobs.empty());
    Dialogs.Answers = {Home.filePath("chart.pdf")};
    Trigger("mnuAstroGraphPrint");
    EXPECT_GT(QFileInfo(Home.filePath("chart.pdf")).size(), 1000);
    EXPECT_EQ(Printers.Jobs.at(0).Layout.orientation(), QPageLayout::Landscape);

    Trigger("mnuAstroNumDisp");
    Confirm();
    Trigger("mnuAstroNumPrint"); // the dialog behind the chooser is cancelled
    EXPECT_EQ(Dialogs.Questions.size(), 3u);
    EXPECT_EQ(Printers.Jobs.size(), 1u);
    Trigger("mnuAstroErase");
    Window->mnuAstroNumPrint(); // nothing is in view
    Window->mnuAstroGraphPrint();
    EXPECT_EQ(Forms, 1);
}

TEST_F(PrintFlowTest, EachFailureIsToldAndCanBeRepeated)
{
    const std::tuple<int, PrintStep, std::string> cases[] = {
        {482, PrintStep::StartJob, NotReady},
        {484, PrintStep::EndDoc, NotReady},
        {483, PrintStep::SetColorMode,
         "PRINTER DRIVER PROBLEM|Due to your printer driver,|the % may not be properly printed."},
        {71, PrintStep::SetPrintQuality,
         " ERROR REPORT|Unexpected error when printing.|Error 71: The fake printer failed."},
        {380, PrintStep::SetOrientation, ""}, // passed over
    };
    Printers.Listed = {"Bridge"};
    StartWith("mnuAstroNumDisp");
    for (const bool chart : {false, true}) {
        if (chart) Trigger("mnuAstroGraphDisp");
        const auto kept = chart ? QPageLayout::Portrait : QPageLayout::Landscape;
        for (auto [number, step, box] : cases) {
            SCOPED_TRACE(number);
            if (box.find('%') != box.npos) box.replace(box.find('%'), 1, chart ? "chart" : "results");
            const std::size_t boxes = box.empty() ? 0 : 1;
            const auto print = [&, failing = step](std::deque<int> failures) {
                Disarrange(kept);
                Printers.Failures = {{failing, std::move(failures)}};
                Boxes.Answer({BoxAnswer::Retry, BoxAnswer::Cancel});
                if (!chart) Confirm();
                Trigger(chart ? "mnuAstroGraphPrint" : "mnuAstroNumPrint");
                EXPECT_TRUE(GivenBack(kept));
                return !Printers.Jobs.empty() && Printers.Jobs.back().Ended;
            };
            EXPECT_TRUE(print({number}));
            EXPECT_EQ(Boxes.Count(), boxes);
            Boxes.TakeAll();
            Printers.Jobs.clear();
            EXPECT_EQ(print({number, number}), boxes == 0);
            for (const numeric::Box& told : Boxes.TakeAll()) {
                EXPECT_EQ(Boxes.Summary(told), box);
                EXPECT_EQ(told.Icon, numeric::BoxIcon::Warning);
                EXPECT_EQ(told.Buttons, numeric::BoxButtons::RetryCancel);
            }
        }
    }
}

} // namespace
} // namespace merov::app
