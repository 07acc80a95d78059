#include "platform/rich_text_box.h"
#include "support/letter_look.h"
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
class RichTextBoxTest : public testing::Test
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
    QString LookOf(const QString& text) { return test::LetterLook(FormatAt(Box.Find(text))); }
    QTextBlock Line(int number) const { return Box.document()->findBlockByNumber(number); }

    QTemporaryDir Folder;
    RichTextBox Box;
};

TEST_F(RichTextBoxTest, MarkersAreReplacedInOrderWithTheirFormats)
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
    EXPECT_EQ(LookOf("45") + LookOf("end"), "Arial 12Arial 12");
    for (const char* blue : {"one", "three", "more"})
        EXPECT_EQ(LookOf(blue), "Courier New 8 #0000ff") << blue;
    EXPECT_EQ(LookOf("!"), "Courier New 8 #000000");
}

TEST_F(RichTextBoxTest, FormatsHoldForTheSelectionAndTheNextText)
{
    Load("0123456789}");
    Box.Select(2, 3);
    EXPECT_EQ(Box.SelectedText(), "234");
    Box.SetBold(true);
    Box.SetUnderline(true);
    Box.SetSelectedText("AB");
    Box.SetBold(false);
    Box.SetItalic(true);
    Box.SetFontSize(8.0);
    Box.SetScript(TextScript::Subscript);
    Box.SetSelectedText("s");
    Box.SetScript(TextScript::Normal);
    Box.SetSelectedText("t");
    EXPECT_EQ(Box.toPlainText(), "01ABst56789");
    Box.Select(7, 2); // text that stays
    Box.SetFontName("Courier New");
    QString looks;
    for (const QChar letter : QString("1Ast568"))
        looks += letter + (" " + LookOf(letter)) + "|";
    EXPECT_EQ(looks, "1 Arial 12|A Arial 12 bold underlined|s Arial 8 italic underlined low|"
                     "t Arial 8 italic underlined|5 Arial 12|6 Courier New 12|8 Arial 12|");
}

TEST_F(RichTextBoxTest, SymbolShowsAsGreekLettersOfTheTextFont)
{
    ASSERT_EQ(Load("}"), std::nullopt);
    Box.SetFontName("Courier New");
    Box.SetSelectedText("d");
    Box.SetFontName("Symbol");
    Box.SetSelectedText("d   D\xC2\xAB\r\n");
    Box.SetFontName("Courier New");
    Box.SetSelectedText("D");
    EXPECT_EQ(Box.toPlainText(), "dδ   Δ↔\nD");
    EXPECT_EQ(LookOf("δ") + LookOf("D"), "Arial 0Courier New 0"); // in an empty text no size is set
}

TEST_F(RichTextBoxTest, BulletsAndIndentsAddUp)
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
    Box.SetBullet(150.0);
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 10.0);
    Box.EndBullet();
    Box.EndBullet(); // nothing left to end
    EXPECT_TRUE(Line(1).blockFormat().leftMargin() == 0.0 && Line(1).textList() == nullptr);
}

TEST_F(RichTextBoxTest, EmptyLinesAndBulletsHaveTheFormatOfWhatIsPutIn)
{
    ASSERT_EQ(Load("a\\par \\'a7}"), std::nullopt);
    ASSERT_TRUE(Box.ReplaceMarker("§", ""));
    Box.SetFontSize(6.0);
    Box.SetSelectedText("\n"); // a gap of half a line
    Box.SetFontSize(12.0);
    Box.SetBullet(300.0);
    Box.SetFontName("Courier New");
    Box.SetSelectedText("b\nc");
    EXPECT_EQ(Box.toPlainText(), "a\n\nb\nc");
    EXPECT_EQ(Line(1).charFormat().fontPointSize(), 6.0);
    for (const int line : {2, 3}) // bullets under each other
        EXPECT_EQ(test::LetterLook(Line(line).charFormat()), "Courier New 12");
}

TEST_F(RichTextBoxTest, PlacesOutsideTheTextAreCut)
{
    ASSERT_EQ(Load("one\\par two}"), std::nullopt);
    for (const auto& [text, from, place] : {std::tuple{"o", 0, 0}, {"o", 1, 6}, {"O", 0, -1}, {"o", 99, -1}})
        EXPECT_EQ(Box.Find(text, from), place) << text << from;
    Box.Select(2, 99);
    EXPECT_EQ(Box.SelectedText(), "e\ntwo");
    Box.Select(-5, -5);
    Box.SetSelectedText("0");
    Box.Select(99, 1);
    Box.SetSelectedText("9");
    EXPECT_EQ(Box.toPlainText(), "0one\ntwo9");
    Box.ShowPosition(99);
    EXPECT_EQ(Box.textCursor().position(), 9);
}

TEST_F(RichTextBoxTest, PicturesLendTheirFormatToNoText)
{
    ASSERT_EQ(Box.LoadFile(MEROV_RUN_DIR "/NumResults.rtf"), std::nullopt);
    Box.SelectAll();
    Box.SetIndent(210.0);
    Box.Select(1, 0);
    Box.SetSelectedText("A");
    EXPECT_TRUE(FormatAt(0).isImageFormat() && !FormatAt(1).isImageFormat());
    EXPECT_EQ(Box.document()->lastBlock().blockFormat().leftMargin(), 14.0);
}

TEST_F(RichTextBoxTest, FilesThatFailLeaveWhatIsShown)
{
    Load("first}");
    EXPECT_EQ(Load("second"), "The rich text file is damaged: it ends early, or a closing brace is missing.");
    EXPECT_NE(Box.LoadFile(Folder.filePath("none.rtf")), std::nullopt);
    Box.SetSelectedText("still ");
    EXPECT_EQ(Box.toPlainText(), "still first");
}

TEST_F(RichTextBoxTest, NoSelectionOfTheUsersIsLeftOver)
{
    ASSERT_EQ(Load("some text}"), std::nullopt);
    Box.Select(0, 4);
    EXPECT_FALSE(Box.textCursor().hasSelection()); // a report's selection never shows
    const std::function<void()> ways[] = {[this] { Box.SetSelectedText("new"); }, [this] { Load("other}"); },
                                          [this] { Box.ShowPosition(2); }};
    for (const auto& change : ways) {
        Box.selectAll();
        change();
        EXPECT_FALSE(Box.textCursor().hasSelection());
    }
    QTest::keyClicks(&Box, "typed");
    EXPECT_EQ(Box.toPlainText(), "other");
}

TEST_F(RichTextBoxTest, PaperStaysWhiteOnADarkDesktop)
{
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::black));
    EXPECT_EQ(RichTextBox().palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(Box.palette().color(QPalette::Base), QColor(Qt::white));
    QApplication::setPalette(desktop);
}

} // namespace merov::platform
