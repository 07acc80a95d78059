#include "platform/printers.h"
#include "support/qt_text.h"

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

class ListedPrinters : public Printers
{
public:
    QStringList Listed;
    QString First;

    QStringList Names() const override { return Listed; }
    QList<QPageSize> Papers(const QString& printer) const override
    {
        if (printer == "Labels") return {QPageSize(QPageSize::A6), QPageSize(QPageSize::A5)};
        return Printers::Papers(printer);
    }

protected:
    QString Default() const override { return First; }
    QPageSize DefaultPaper() const override { return QPageSize(QPageSize::A4); }
};

class PrintersTest : public testing::Test
{
protected:
    /// Shows the dialog, runs `use` on it and presses a key in it.
    template <class Use>
    bool Ask(Use use, Qt::Key key)
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
    static QRadioButton& Option(const QDialog& dialog, const char* name)
    {
        return *dialog.findChild<QRadioButton*>(name);
    }
    void ExpectSet(const QString& printer, QPageSize::PageSizeId paper, QPageLayout::Orientation orientation)
    {
        EXPECT_EQ(printers.Current(), printer);
        EXPECT_EQ(printers.Layout().pageSize().id(), paper);
        EXPECT_EQ(printers.Layout().orientation(), orientation);
        EXPECT_TRUE(printers.Layout().isValid());
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
    printers.SetCurrent("Bridge");
    EXPECT_EQ(printers.Current(), "Bridge");
    printers.Listed = {"Labels"};
    EXPECT_EQ(printers.Current(), "Labels"); // the other one was unplugged
}

TEST_F(PrintersTest, OkSetsWhatWasChosenAndTheNextDialogShowsIt)
{
    printers.Listed = {"Bridge", "Chart room"};
    EXPECT_TRUE(Ask(
        [](const QDialog& dialog) {
            EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "Bridge");
            EXPECT_EQ(List(dialog, "cboPaper").currentText(), "A4");
            QTest::keyClick(&List(dialog, "cboPrinters"), Qt::Key_Down);
            QTest::keyClicks(&List(dialog, "cboPaper"), "Let");
            QTest::mouseClick(&Option(dialog, "optLandscape"), Qt::LeftButton, {}, QPoint(8, 8));
        },
        Qt::Key_Return));
    ExpectSet("Chart room", QPageSize::Letter, QPageLayout::Landscape);

    const auto change = [](const QDialog& dialog) {
        EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "Chart room");
        EXPECT_TRUE(List(dialog, "cboPaper").currentText().startsWith("Letter"));
        EXPECT_TRUE(Option(dialog, "optLandscape").isChecked());
        List(dialog, "cboPrinters").setCurrentIndex(0);
        List(dialog, "cboPaper").setCurrentIndex(0);
        Option(dialog, "optPortrait").setChecked(true);
    };
    EXPECT_FALSE(Ask(change, Qt::Key_Escape));
    EXPECT_FALSE(Ask(
        [change](const QDialog& dialog) {
            change(dialog);
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
        },
        Qt::Key_Return));
    ExpectSet("Chart room", QPageSize::Letter, QPageLayout::Landscape);
}

TEST_F(PrintersTest, APaperThatAnotherPrinterLacksGivesWay)
{
    printers.Listed = {"Bridge", "Labels"};
    printers.SetLayout(QPageLayout(QPageSize(QPageSize::A5), QPageLayout::Portrait, QMarginsF()));
    Ask(
        [](const QDialog& dialog) {
            QComboBox& paper = List(dialog, "cboPaper");
            List(dialog, "cboPrinters").setCurrentText("Labels");
            EXPECT_EQ(paper.count(), 2);
            EXPECT_EQ(paper.currentText(), "A5"); // both take it
            paper.setCurrentText("A6");
            List(dialog, "cboPrinters").setCurrentText("Bridge");
            EXPECT_EQ(paper.currentText(), "A5"); // the one in use
        },
        Qt::Key_Return);
    ExpectSet("Bridge", QPageSize::A5, QPageLayout::Portrait);
}

TEST_F(PrintersTest, WithoutAPrinterThePaperCanStillBeSet)
{
    EXPECT_TRUE(Ask(
        [](const QDialog& dialog) {
            EXPECT_FALSE(List(dialog, "cboPrinters").isEnabled());
            EXPECT_EQ(List(dialog, "cboPrinters").currentText(), "No printer connected to your system");
            Option(dialog, "optLandscape").click();
        },
        Qt::Key_Return));
    ExpectSet("", QPageSize::A4, QPageLayout::Landscape);
}

TEST(SystemPrinters, ListPapersOfASizeOnceEvenWithoutAPrinter)
{
    const SystemPrinters printers;
    const QList<QPageSize> papers = printers.Papers("no such printer");
    ASSERT_FALSE(papers.isEmpty());
    for (int i = 1; i < papers.size(); i++)
        EXPECT_FALSE(papers[i].isEquivalentTo(papers[i - 1]));
    EXPECT_TRUE(printers.Layout().isValid());
}

} // namespace
} // namespace merov::platform
