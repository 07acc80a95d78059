#include "output/grid_printing.h"
#include "output/numeric_report.h"
#include "sailing/ellipsoid.h"
#include "support/fake_printers.h"
#include "support/no_printers.h"
#include "support/pdf_tools.h"
#include "support/qt_text.h"

#include <QImage>
#include <QPainter>
#include <QTextCursor>

namespace merov::output
{
namespace
{

using platform::OverlayGrid;
using test::PdfText;
using test::PdfWord;

constexpr PrintMargins ReportMargins{1500, 1000, 500, 1000};

class PrintLibTest : public testing::Test
{
protected:
    test::FakePrinters printers;
};

/// A finished fix with `n` sights, whose numbers don't matter.
fix::SightSession Session(int n, bool full)
{
    fix::SightSession s;
    fix::AllocateObservations(s, n);
    s.StdDev.Resize(1, 4, 0.01);
    s.NumUnknowns = full ? 4 : 2;
    s.TimeTruePos = s.TimeEstPos = s.ObsTime[0] = 45000.5;
    for (int i = 1; i <= n; i++) {
        s.ObsTime[i] = 45000.4;
        s.ObsBody[i] = "SIRIUS";
        s.ObsAltitude[i] = 50.0;
        s.ObsDist[i] = 1e9;
    }
    return s;
}

TEST_F(PrintLibTest, TextKeepsItsMarginsAndBreaksPagesBetweenLines)
{
    QTextDocument text;
    QTextCursor cursor(&text);
    QTextCharFormat letters;
    letters.setFontFamilies({"Arial"});
    letters.setFontPointSize(12);
    QImage square(96, 96, QImage::Format_RGB32);
    square.fill(Qt::green);
    cursor.insertImage(square);
    QTextBlockFormat indented;
    indented.setLeftMargin(20);  // 15 points
    indented.setRightMargin(40); // 30 points
    cursor.insertBlock(indented);
    for (int i = 1; i <= 2000; i++)
        cursor.insertText(QString("w%1 ").arg(i), letters);
    for (int i = 0; i < 60; i++)
        cursor.insertBlock();
    const int pages = PrintRichText(text, *printers.StartJob("A text", {}), ReportMargins);
    const QString file = printers.Jobs.back().File;

    const std::vector<PdfWord> words = test::PdfWords(file);
    ASSERT_EQ(words.size(), 2000U);
    const QRectF room(QPointF(75 + 15, 50), QPointF(595.28 - 25 - 30, 841.89 - 50)); // points, of A4
    for (std::size_t i = 0; i < words.size(); i++) {
        ASSERT_EQ(words[i].Text, QString("w%1").arg(i + 1)); // once, and whole
        ASSERT_TRUE(room.adjusted(-0.5, -0.5, 0.5, 0.5).contains(words[i].Place)) << words[i].Text.toStdString();
        const bool first = i == 0 || words[i].Page > words[i - 1].Page;
        EXPECT_TRUE(!first || std::abs(words[i].Place.left() - 90) < 0.5);
    }
    EXPECT_NEAR(words[0].Place.top(), 50 + 72, 3); // behind a picture of an inch
    EXPECT_TRUE(test::PdfTool("pdfimages", {"-list", file}).contains(QRegularExpression(" 96 +96 .* 96 +96 ")));
    EXPECT_TRUE(test::PdfFontsEmbedded(file));
    EXPECT_EQ(words.back().Page, pages); // none for the blank lines
    EXPECT_EQ(test::PdfPages(file), pages);
}

TEST_F(PrintLibTest, DetailsBeginBehindTheFirstPage)
{
    // 11.693 inches of 72 points, or 11, by the 13.41 points of a line of Arial 12.
    EXPECT_EQ(LinesPerPage(printers), 62);
    EXPECT_EQ(LinesPerPage(test::NoPrinters()), 0);
    for (const QPageSize::PageSizeId paper : {QPageSize::A4, QPageSize::Letter}) {
        printers.SetLayout(QPageLayout(QPageSize(paper), QPageLayout::Portrait, QMarginsF()));
        for (const int sights : {2, 9, 16, 20})
            for (const bool full : {false, true}) {
                platform::RichText report;
                fix::SightSession session = Session(sights, full);
                ASSERT_FALSE(BuildNumericReport(report, MEROV_RUN_DIR "/NumResults.rtf", session,
                                                sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex),
                                                LinesPerPage(printers)));
                PrintRichText(report.Document(), *printers.StartJob("Report", {}), ReportMargins);
                for (const PdfWord& word : test::PdfWords(printers.Jobs.back().File)) {
                    if (word.Text != "Details:") continue;
                    EXPECT_EQ(word.Page, 2) << sights;
                    EXPECT_LT(word.Place.top(), 50 + 12 * 13.8) << sights;
                }
            }
    }
    EXPECT_EQ(LinesPerPage(printers), 59);
}

class GridPrintingTest : public PrintLibTest
{
protected:
    GridPrintingTest()
    {
        grid.SetSize(1 + 4, 3);
        const char* headings[] = {"Speed", "ETA in GMT  ", "ETA in LT  "};
        for (int column = 0; column < 3; column++) {
            grid.SetText(0, column, headings[column]);
            grid.SetColumnWidth(column, 100);
        }
        grid.SetRowHeight(0, 40);
        for (int row = 1; row < 4; row++) {
            grid.SetRowHeight(row, 20);
            grid.SetText(row, 0, QString(" %1 ").arg(row + 9));
        }
    }
    OverlayGrid grid; // its last row is blank
};

TEST_F(GridPrintingTest, CellsStandWhereHandWorkPutsThem)
{
    // 2.4 twips count as 2. Columns 100 px = 1500 twips, rows 20 px = 300.
    // ScaleX = 2.4 * 100 / (15 * 20) * 0.5 = 0.4, ScaleY = 2.4 * 50 / (15 * 10) * 0.7 = 0.56.
    // Column: 1500 * 0.4 = 600, / 2 = 300, 301 dots. Row: 168 / 2 = 84, 85 dots = 204 twips, one line.
    // Heading: 600 * 0.56 = 336, / 2 = 168, 169 dots * 0.8 = 135.2 dots = 324.48 twips, one line of 202.
    GridPrintMeasures on{.Width = 4000,
                         .Height = 3400,
                         .ScaleWidth = 3750,
                         .ScaleHeight = 3150,
                         .TwipsX = 2.4,
                         .TwipsY = 2.4,
                         .ScreenSample = {20, 10},
                         .PaperSample = {100, 50},
                         .LineHeight = 202};
    std::vector<PrintedCell> cells = PlanGrid(grid, {}, on, 0.5, 0.7);
    // Edges: 1440 - 125 = 1315 and 3750 - 1315 = 2435: two columns of 722.4 reach it, the third is cut off.
    // Downwards 1315 .. 3150 - 1315 = 1835: the heading ends at 1639.48, the first row at 1843.48.
    ASSERT_EQ(cells.size(), 3U * 4U);
    EXPECT_EQ(cells[0].Frame, QRect(548, 548, 301, 135));
    EXPECT_EQ(cells[1].Frame, QRect(849, 548, 301, 135));
    // Text: 1345 / 2.4 = 560.4, 2007.4 / 2.4 = 836.4; bottom (1315 + 202 + 15) / 2.4 = 638.3.
    EXPECT_EQ(cells[0].Text, QRect(560, 560, 836 - 560, 638 - 560));
    EXPECT_EQ(cells[2].Frame, QRect(548, 683, 301, 768 - 683));
    EXPECT_EQ(cells[0].CellText, "    Speed");
    EXPECT_EQ(cells[1].CellText, "    ETA in GMT (Merov)");
    EXPECT_EQ(cells[2].CellText, "    10");
    // A row a page, each behind its heading; none for the blank one.
    for (std::size_t i = 0; i < cells.size(); i++) {
        EXPECT_EQ(cells[i].Page, static_cast<int>(i) / 4 + 1);
        EXPECT_EQ(cells[i].Row, i % 4 < 2 ? 0 : cells[i].Page);
    }

    // With room for three rows and a bottom edge that the third just doesn't reach.
    on.Height = on.ScaleHeight = 1440 + 324.48 + 3 * 204 + 1440 + 0.01;
    on.Width = on.ScaleWidth = 9000;
    cells = PlanGrid(grid, {}, on, 0.5, 0.7);
    ASSERT_EQ(cells.size(), 3U * 4U);
    EXPECT_EQ(cells.back().Page, 1);
    EXPECT_EQ(cells.back().Row, 3);
    EXPECT_EQ(cells[2].CellText, "    ETA in LT          (1.2)");
    on.Height = on.ScaleHeight -= 0.02; // now it does
    EXPECT_EQ(PlanGrid(grid, {}, on, 0.5, 0.7).back().Page, 2);
}

TEST_F(GridPrintingTest, AGridIsPrintedWithItsHeadingOnEachPage)
{
    grid.SetSize(1 + 120, 3);
    for (int row = 0; row <= 120; row++)
        for (int column = 0; column < 3; column++)
            grid.SetText(row, column, row == 0 ? "Title" : QString("r%1c%2").arg(row).arg(column));
    const int pages = PrintGrid(grid, *printers.StartJob("Table", {}), {}, 0.77, 0.7);
    const QString file = printers.Jobs.back().File;
    EXPECT_GT(pages, 1);
    EXPECT_EQ(test::PdfPages(file), pages);
    QStringList words;
    for (int page = 1; page <= pages; page++) {
        QStringList onPage = PdfText(file, page).simplified().split(' ');
        EXPECT_EQ(onPage.mid(0, 5).join(' '), "Title Title (Merov) Title (1.2)");
        words += onPage.mid(5);
    }
    ASSERT_EQ(words.size(), 120 * 3);
    for (int i = 0; i < words.size(); i++)
        EXPECT_EQ(words[i], QString("r%1c%2").arg(i / 3 + 1).arg(i % 3));
    EXPECT_TRUE(test::PdfFontsEmbedded(file));
    EXPECT_TRUE(grid.updatesEnabled());
}

} // namespace
} // namespace merov::output
