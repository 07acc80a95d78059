#include "platform/printers.h"
#include "support/fake_printers.h"
#include "support/pdf_tools.h"
#include "support/qt_text.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace merov::platform
{
/// Without printers at first.
struct ListedPrinters : test::FakePrinters {
    ListedPrinters()
    {
        Listed.clear();
        First.clear();
        OffersPdf = false;
    }
    QList<QPageSize> Papers(const QString& printer) const override
    {
        if (printer == "Labels") return {QPageSize(QPageSize::A6), QPageSize(QPageSize::A5)};
        return Printers::Papers(printer);
    }
};

class PrintersTest : public testing::Test
{
protected:
    /// Shows the dialog, runs `use` on it and presses a key in it.
    bool Ask(const std::function<void(const QDialog&)>& use, Qt::Key key)
    {
        QTimer::singleShot(0, [use, key] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), "Print Setup");
            use(*dialog);
            QTest::keyClick(dialog, key);
            if (dialog->isVisible()) dialog->reject();
        });
        return AskPrintSetup(printers, &window);
    }
    static QComboBox& List(const QDialog& dialog, const char* name) { return *dialog.findChild<QComboBox*>(name); }
    static QRadioButton& Landscape(const QDialog& dialog) { return *dialog.findChild<QRadioButton*>("optLandscape"); }
    void ExpectSet(const QString& printer, QPageSize::PageSizeId paper, QPageLayout::Orientation orientation)
    {
        const QPageLayout layout = printers.Layout();
        EXPECT_EQ(printers.Current(), printer);
        EXPECT_TRUE(layout.isValid() && layout.pageSize().id() == paper && layout.orientation() == orientation);
    }

    ListedPrinters printers;
    QWidget window;
};

TEST_F(PrintersTest, ThePrinterInUseIsOneThatIsThere)
{
    EXPECT_EQ(printers.Current(), "");
    printers.Listed = {"Bridge", "Labels"};
    EXPECT_EQ(printers.Current(), "Bridge");
    printers.First = "Labels";
    EXPECT_EQ(printers.Current(), "Labels");
    printers.First = "Bridge";
    printers.SetCurrent("Labels");
    EXPECT_EQ(printers.Current(), "Labels");
    printers.Listed = {"Bridge"};
    EXPECT_EQ(printers.Current(), "Bridge"); // the other one was unplugged
    printers.OffersPdf = true;
    EXPECT_EQ(printers.Names(), QStringList({"Bridge", "PDF file"}));
    EXPECT_EQ(printers.Current(), "Bridge");
    printers.First = "";
    EXPECT_EQ(printers.Current(), "PDF file");
}

TEST_F(PrintersTest, OkSetsWhatWasChosenAndTheNextDialogShowsIt)
{
    printers.Listed = {"Bridge", "Chart room"};
    const auto choose = [](const QDialog& dialog) {
        EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "Bridge");
        EXPECT_EQ(List(dialog, "cboPaper").currentText(), "A4");
        QTest::keyClick(&List(dialog, "cboPrinters"), Qt::Key_Down);
        QTest::keyClicks(&List(dialog, "cboPaper"), "Let");
        Landscape(dialog).click();
    };
    EXPECT_TRUE(Ask(choose, Qt::Key_Return));
    ExpectSet("Chart room", QPageSize::Letter, QPageLayout::Landscape);

    const auto change = [](const QDialog& dialog) {
        EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "Chart room");
        EXPECT_TRUE(List(dialog, "cboPaper").currentText().startsWith("Letter"));
        EXPECT_TRUE(Landscape(dialog).isChecked());
        List(dialog, "cboPrinters").setCurrentIndex(0);
        List(dialog, "cboPaper").setCurrentIndex(0);
        dialog.findChild<QRadioButton*>("optPortrait")->click();
    };
    EXPECT_FALSE(Ask(change, Qt::Key_Escape));
    const auto cancel = [&](const QDialog& dialog) {
        change(dialog);
        dialog.findChild<QPushButton*>("cmdCancel")->click();
    };
    EXPECT_FALSE(Ask(cancel, Qt::Key_Return));
    ExpectSet("Chart room", QPageSize::Letter, QPageLayout::Landscape);
}

TEST_F(PrintersTest, APaperThatAnotherPrinterLacksGivesWay)
{
    printers.Listed = {"Bridge", "Labels"};
    printers.SetLayout(QPageLayout(QPageSize(QPageSize::A5), QPageLayout::Portrait, QMarginsF()));
    const auto choose = [](const QDialog& dialog) {
        QComboBox& paper = List(dialog, "cboPaper");
        List(dialog, "cboPrinters").setCurrentText("Labels");
        EXPECT_EQ(paper.count(), 2);
        EXPECT_EQ(paper.currentText(), "A5"); // both take it
        paper.setCurrentText("A6");
        List(dialog, "cboPrinters").setCurrentText("Bridge");
    };
    Ask(choose, Qt::Key_Return);
    // The one in use before:
    ExpectSet("Bridge", QPageSize::A5, QPageLayout::Portrait);
}

TEST_F(PrintersTest, WithoutAPrinterThePaperCanStillBeSet)
{
    const auto turn = [](const QDialog& dialog) {
        EXPECT_FALSE(List(dialog, "cboPrinters").isEnabled());
        EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "No printer connected to your system");
        Landscape(dialog).click();
    };
    EXPECT_TRUE(Ask(turn, Qt::Key_Return));
    ExpectSet("", QPageSize::A4, QPageLayout::Landscape);
}

TEST(SystemPrinters, ListPapersOfASizeOnceEvenWithoutAPrinter)
{
    const QList<QPageSize> papers = SystemPrinters().Papers("no such printer");
    ASSERT_FALSE(papers.isEmpty());
    for (int i = 1; i < papers.size(); i++)
        EXPECT_FALSE(papers[i].isEquivalentTo(papers[i - 1]));
}

TEST(SystemPrinters, EndWithTheOneForFilesUnlessItIsTakenAway)
{
    const SystemPrinters printers;
    EXPECT_EQ(printers.Names().value(printers.Names().size() - 1), "PDF file");
    qputenv("MEROV_NO_PDF_PRINTER", "1");
    EXPECT_FALSE(printers.Names().contains("PDF file"));
    qunsetenv("MEROV_NO_PDF_PRINTER");
}

/// The number of the error that a job ends with, 0 for none.
int ErrorOf(Printers& printers, const QString& file)
{
    try {
        const std::unique_ptr<PrintJob> job = printers.StartJob("Log of the day", file);
        job->Painter().drawText(1000, 1000, "Noon");
        job->EndDoc();
        return 0;
    } catch (const PrinterError& error) {
        EXPECT_STRNE(error.what(), "");
        return error.Number();
    }
}

TEST(PrintJob, LeavesAFileWholeOrAsItWas)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("Überfahrt 1.pdf");
    FilePrinters printers;
    printers.SetOrientation(QPageLayout::Landscape);
    {
        const std::unique_ptr<PrintJob> job = printers.StartJob("Broken off", path);
        job->NewPage();
        EXPECT_EQ(QRectF(job->Page()).topLeft(), QPointF(0, 0));
        EXPECT_NEAR(job->Twips(job->Paper().width()), 16838, 2);
        EXPECT_NEAR(job->Twips(-job->Paper().left()), 200, 2); // 10 points that Qt keeps free
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_EQ(ErrorOf(printers, path), 0);
    EXPECT_EQ(test::PdfText(path, 1).trimmed(), "Noon");
    EXPECT_TRUE(test::PdfTool("pdfinfo", {path}).contains(QRegularExpression("Page size: +842 x 595")));
    EXPECT_TRUE(test::PdfTool("pdfinfo", {path}).contains(QRegularExpression("Title: +Log of the day\n")));
    printers.StartJob("Broken off", path)->NewPage();
    EXPECT_EQ(test::PdfText(path, 1).trimmed(), "Noon");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);

    EXPECT_EQ(ErrorOf(printers, folder.filePath("no such folder/1.pdf")), PrinterFailed);
    EXPECT_EQ(ErrorOf(printers, folder.path()), PrinterFailed);
}

TEST(PrintJob, NeedsAPrinterThatIsThere)
{
    struct GonePrinters : FilePrinters {
        QStringList SystemNames() const override { return {"Gone"}; }
        QString Default() const override { return "Gone"; }
    } printers;
    EXPECT_EQ(ErrorOf(printers, {}), DriverMissing);
}

} // namespace merov::platform
