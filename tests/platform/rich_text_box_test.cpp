#include "platform/rich_text_box.h"
#include "support/qt_text.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextList>

#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

class RichText : public testing::Test
{
protected:
    /// Shows a rich text of the given body: Arial 12, or Courier New 8 blue behind \\f1\\fs16\\cf1.
    std::optional<QString> Load(const QByteArray& body)
    {
        QFile file(Folder.filePath("test.rtf"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red0\\green0\\blue255;}" +
                   body);
        file.close();
        return Box.LoadFile(file.fileName());
    }

    QTextCharFormat FormatAt(int place) const
    {
        QTextCursor cursor(Box.document());
        cursor.setPosition(place + 1);
        return cursor.charFormat();
    }

    QTextBlock Line(int number) const { return Box.document()->findBlockByNumber(number); }

    QTemporaryDir Folder;
    RichTextBox Box;
};

TEST_F(RichText, MarkersAreReplacedInOrderWithTheirFormats)
{
    ASSERT_EQ(Load("Lat \\'a7 and {\\cf1\\f1\\fs16 \\'a7 more}\\par \\'a7.}"), std::nullopt);
    EXPECT_TRUE(Box.ReplaceMarker("§", "45°30'.0 N"));
    EXPECT_TRUE(Box.ReplaceMarker("§", "one\r\ntwo\vthree"));
    Box.SetColour(Qt::black);
    Box.SetSelectedText("!"); // goes on behind
    EXPECT_TRUE(Box.ReplaceMarker("§", ""));
    Box.SetSelectedText("end");
    EXPECT_FALSE(Box.ReplaceMarker("§", "x"));
    EXPECT_EQ(Box.toPlainText(), "Lat 45°30'.0 N and one\ntwo\nthree! more\nend.");
    EXPECT_EQ(Box.document()->blockCount(), 3);

    EXPECT_EQ(FormatAt(Box.Find("45")).fontFamilies(), QStringList("Arial"));
    for (const char* blue : {"one", "three", "more"}) {
        EXPECT_EQ(FormatAt(Box.Find(blue)).fontFamilies(), QStringList("Courier New")) << blue;
        EXPECT_EQ(FormatAt(Box.Find(blue)).foreground().color(), QColor(Qt::blue)) << blue;
    }
    EXPECT_EQ(FormatAt(Box.Find("!")).foreground().color(), QColor(Qt::black));
    EXPECT_EQ(FormatAt(Box.Find("!")).fontPointSize(), 8.0);
    EXPECT_EQ(FormatAt(Box.Find("end")).fontFamilies(), QStringList("Arial"));
}

TEST_F(RichText, FormatsHoldForTheSelectionAndTheNextText)
{
    ASSERT_EQ(Load("0123456789}"), std::nullopt);
    Box.Select(2, 3);
    Box.SetBold(true);
    Box.SetUnderline(true);
    EXPECT_EQ(Box.SelectedText(), "234");
    Box.SetSelectedText("AB");
    Box.SetBold(false);
    Box.SetItalic(true);
    Box.SetFontSize(8.0);
    Box.SetScript(TextScript::Subscript);
    Box.SetSelectedText("s");
    Box.SetScript(TextScript::Normal);
    Box.SetSelectedText("t");
    EXPECT_EQ(Box.toPlainText(), "01ABst56789");
    const auto expect = [this](int place, bool bold, bool italic, bool underlined, double points) {
        EXPECT_EQ(FormatAt(place).fontWeight() == QFont::Bold, bold) << place;
        EXPECT_EQ(FormatAt(place).fontItalic(), italic) << place;
        EXPECT_EQ(FormatAt(place).fontUnderline(), underlined) << place;
        EXPECT_EQ(FormatAt(place).fontPointSize(), points) << place;
    };
    expect(1, false, false, false, 12.0);
    expect(2, true, false, true, 12.0);
    expect(4, false, true, true, 8.0);
    expect(6, false, false, false, 12.0);
    EXPECT_LT(FormatAt(4).baselineOffset(), 0.0);
    EXPECT_EQ(FormatAt(5).baselineOffset(), 0.0);

    Box.Select(7, 2); // text that stays
    Box.SetFontName("Courier New");
    EXPECT_EQ(FormatAt(7).fontFamilies(), QStringList("Courier New"));
    EXPECT_EQ(FormatAt(9).fontFamilies(), QStringList("Arial"));
}

TEST_F(RichText, SymbolShowsAsGreekLettersOfTheTextFont)
{
    ASSERT_EQ(Load("}"), std::nullopt);
    Box.SetFontName("Courier New");
    Box.SetSelectedText("d");
    Box.SetFontName("Symbol");
    Box.SetSelectedText("d   D\xC2\xAB\r\n");
    Box.SetFontName("Courier New");
    Box.SetSelectedText("D");
    EXPECT_EQ(Box.toPlainText(), "dδ   Δ↔\nD");
    EXPECT_EQ(FormatAt(1).fontFamilies(), QStringList("Arial"));
    EXPECT_EQ(FormatAt(8).fontFamilies(), QStringList("Courier New"));
}

TEST_F(RichText, BulletsAndIndentsAddUp)
{
    ASSERT_EQ(Load("\\'a7\\par last}"), std::nullopt);
    Box.SelectAll();
    Box.SetIndent(210.0);
    Box.Select(0, 1);
    Box.SetBullet(300.0);
    Box.SetSelectedText("a\nb\n");
    Box.EndBullet();
    Box.SetParagraphAlignment(Qt::AlignHCenter);
    Box.SetSelectedText("c");
    ASSERT_EQ(Box.toPlainText(), "a\nb\nc\nlast");
    for (int line = 0; line < 4; ++line) {
        EXPECT_EQ(Line(line).textList() != nullptr, line < 2) << line;
        EXPECT_EQ(Line(line).blockFormat().leftMargin(), line < 2 ? 34.0 : 14.0) << line;
        EXPECT_EQ(Line(line).blockFormat().alignment(), line == 2 ? Qt::AlignHCenter : Qt::AlignLeft) << line;
    }
    Box.SelectAll();
    Box.SetIndent(0.0);
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 20.0);
    Box.SetBullet(150.0);
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 10.0);
    Box.EndBullet();
    Box.EndBullet(); // nothing left to end
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 0.0);
    EXPECT_EQ(Line(1).textList(), nullptr);
}

TEST_F(RichText, EmptyLinesAndBulletsHaveTheFormatOfWhatIsPutIn)
{
    ASSERT_EQ(Load("a\\par \\'a7}"), std::nullopt);
    ASSERT_TRUE(Box.ReplaceMarker("§", ""));
    Box.SetFontSize(6.0);
    Box.SetSelectedText("\n"); // a gap of half a line
    Box.SetFontSize(12.0);
    Box.SetBullet(300.0);
    Box.SetFontName("Courier New");
    Box.SetSelectedText("b\nc");
    const QTextBlock gap = Line(1);
    EXPECT_EQ(gap.text(), "");
    EXPECT_EQ(gap.charFormat().fontPointSize(), 6.0);
    for (const QTextBlock& line : {gap.next(), gap.next().next()}) { // bullets under each other
        EXPECT_EQ(line.charFormat().fontFamilies(), QStringList("Courier New"));
        EXPECT_EQ(line.charFormat().fontPointSize(), 12.0);
    }
}

TEST_F(RichText, PlacesOutsideTheTextAreCut)
{
    ASSERT_EQ(Load("one\\par two}"), std::nullopt);
    EXPECT_EQ(Box.Find("o"), 0);
    EXPECT_EQ(Box.Find("o", 1), 6);
    EXPECT_EQ(Box.Find("O"), -1);
    EXPECT_EQ(Box.Find("o", 99), -1);
    Box.Select(2, 99);
    EXPECT_EQ(Box.SelectedText(), "e\ntwo");
    EXPECT_EQ(Box.SelectionStart(), 2);
    Box.Select(-5, -5);
    Box.SetSelectedText("0");
    Box.Select(99, 1);
    Box.SetSelectedText("9");
    EXPECT_EQ(Box.toPlainText(), "0one\ntwo9");
    Box.ShowPosition(99);
    EXPECT_EQ(Box.textCursor().position(), 9);
}

TEST_F(RichText, PicturesLendTheirFormatToNoText)
{
    ASSERT_EQ(Box.LoadFile(MEROV_RUN_DIR "/NumResults.rtf"), std::nullopt);
    Box.SelectAll();
    Box.SetIndent(210.0);
    Box.Select(1, 0);
    Box.SetSelectedText("A");
    EXPECT_FALSE(FormatAt(1).isImageFormat());
    EXPECT_TRUE(FormatAt(0).isImageFormat());
    EXPECT_EQ(Box.document()->lastBlock().blockFormat().leftMargin(), 14.0);
}

TEST_F(RichText, FilesThatFailLeaveWhatIsShown)
{
    ASSERT_EQ(Load("first}"), std::nullopt);
    EXPECT_EQ(Load("second"), "The rich text file is damaged: it ends early, or a closing brace is missing.");
    EXPECT_NE(Box.LoadFile(Folder.filePath("none.rtf")), std::nullopt);
    EXPECT_EQ(Box.toPlainText(), "first");
    Box.SetSelectedText("still ");
    EXPECT_EQ(Box.toPlainText(), "still first");
}

TEST_F(RichText, NoSelectionOfTheUsersIsLeftOver)
{
    ASSERT_EQ(Load("some text}"), std::nullopt);
    Box.Select(0, 4);
    EXPECT_FALSE(Box.textCursor().hasSelection()); // a report's selection never shows
    Box.selectAll();
    Box.SetSelectedText("new");
    EXPECT_FALSE(Box.textCursor().hasSelection());
    Box.selectAll();
    ASSERT_EQ(Load("other}"), std::nullopt);
    EXPECT_FALSE(Box.textCursor().hasSelection());
    Box.selectAll();
    Box.ShowPosition(2);
    EXPECT_FALSE(Box.textCursor().hasSelection());

    QTest::keyClicks(&Box, "typed");
    EXPECT_EQ(Box.toPlainText(), "other");
}

TEST_F(RichText, PaperStaysWhiteOnADarkDesktop)
{
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::black));
    RichTextBox box;
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(Box.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(Box.palette().color(QPalette::Text), QColor(Qt::black));
    QApplication::setPalette(desktop);
}

} // namespace
} // namespace merov::platform
