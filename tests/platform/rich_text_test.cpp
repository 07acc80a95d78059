#include "platform/rich_text.h"
#include "support/letter_look.h"
#include "support/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextList>

#include <gtest/gtest.h>

namespace merov::platform
{
class RichTextTest : public testing::Test
{
protected:
    /// Loads a rich text of the given body: Arial 12, or Courier New 8 blue behind \\f1\\fs16\\cf1.
    std::optional<QString> Load(const QByteArray& body)
    {
        QFile file(Folder.filePath("test.rtf"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red0\\green0\\blue255;}" +
                   body);
        file.close();
        return Text.LoadFile(file.fileName());
    }

    QTextCharFormat FormatAt(int place)
    {
        QTextCursor cursor(&Text.Document());
        cursor.setPosition(place + 1);
        return cursor.charFormat();
    }
    QString LookOf(const QString& text) { return test::LetterLook(FormatAt(Text.Find(text))); }
    QTextBlock Line(int number) { return Text.Document().findBlockByNumber(number); }

    QTemporaryDir Folder;
    RichText Text;
};

TEST_F(RichTextTest, MarkersAreReplacedInOrderWithTheirFormats)
{
    ASSERT_EQ(Load("Lat \\'a7 and {\\cf1\\f1\\fs16 \\'a7 more}\\par \\'a7.}"), std::nullopt);
    EXPECT_TRUE(Text.ReplaceMarker("§", "45°30'.0 N"));
    EXPECT_TRUE(Text.ReplaceMarker("§", "one\r\ntwo\vthree"));
    Text.SetColour(Qt::black);
    Text.SetSelectedText("!"); // goes on behind
    EXPECT_TRUE(Text.ReplaceMarker("§", ""));
    Text.SetSelectedText("end");
    EXPECT_FALSE(Text.ReplaceMarker("§", "x"));
    EXPECT_EQ(Text.Document().toPlainText(), "Lat 45°30'.0 N and one\ntwo\nthree! more\nend.");
    EXPECT_EQ(Text.Document().blockCount(), 3);
    EXPECT_EQ(LookOf("45") + LookOf("end"), "Arial 12Arial 12");
    for (const char* blue : {"one", "three", "more"})
        EXPECT_EQ(LookOf(blue), "Courier New 8 #0000ff") << blue;
    EXPECT_EQ(LookOf("!"), "Courier New 8 #000000");
}

TEST_F(RichTextTest, FormatsHoldForTheSelectionAndTheNextText)
{
    Load("0123456789}");
    Text.Select(2, 3);
    EXPECT_EQ(Text.SelectedText(), "234");
    Text.SetBold(true);
    Text.SetUnderline(true);
    Text.SetSelectedText("AB");
    Text.SetBold(false);
    Text.SetItalic(true);
    Text.SetFontSize(8.0);
    Text.SetScript(TextScript::Subscript);
    Text.SetSelectedText("s");
    Text.SetScript(TextScript::Normal);
    Text.SetSelectedText("t");
    EXPECT_EQ(Text.Document().toPlainText(), "01ABst56789");
    Text.Select(7, 2); // text that stays
    Text.SetFontName("Courier New");
    QString looks;
    for (const QChar letter : QString("1Ast568"))
        looks += letter + (" " + LookOf(letter)) + "|";
    EXPECT_EQ(looks, "1 Arial 12|A Arial 12 bold underlined|s Arial 8 italic underlined low|"
                     "t Arial 8 italic underlined|5 Arial 12|6 Courier New 12|8 Arial 12|");
}

TEST_F(RichTextTest, SymbolShowsAsGreekLettersOfTheTextFont)
{
    ASSERT_EQ(Load("}"), std::nullopt);
    Text.SetFontName("Courier New");
    Text.SetSelectedText("d");
    Text.SetFontName("Symbol");
    Text.SetSelectedText("d   D\xC2\xAB\r\n");
    Text.SetFontName("Courier New");
    Text.SetSelectedText("D");
    EXPECT_EQ(Text.Document().toPlainText(), "dδ   Δ↔\nD");
    EXPECT_EQ(LookOf("δ") + LookOf("D"), "Arial 0Courier New 0"); // in an empty text no size is set
}

TEST_F(RichTextTest, BulletsAndIndentsAddUp)
{
    ASSERT_EQ(Load("\\'a7\\par last}"), std::nullopt);
    Text.SelectAll();
    Text.SetIndent(210.0);
    Text.Select(0, 1);
    Text.SetBullet(300.0);
    Text.SetSelectedText("a\nb\n");
    Text.EndBullet();
    Text.SetParagraphAlignment(Qt::AlignHCenter);
    Text.SetSelectedText("c");
    ASSERT_EQ(Text.Document().toPlainText(), "a\nb\nc\nlast");
    for (int line = 0; line < 4; ++line) {
        EXPECT_EQ(Line(line).textList() != nullptr, line < 2) << line;
        EXPECT_EQ(Line(line).blockFormat().leftMargin(), line < 2 ? 34.0 : 14.0) << line;
        EXPECT_EQ(Line(line).blockFormat().alignment(), line == 2 ? Qt::AlignHCenter : Qt::AlignLeft) << line;
    }
    Text.SelectAll();
    Text.SetIndent(0.0);
    Text.SetBullet(150.0);
    EXPECT_EQ(Line(1).blockFormat().leftMargin(), 10.0);
    Text.EndBullet();
    Text.EndBullet(); // nothing left to end
    EXPECT_TRUE(Line(1).blockFormat().leftMargin() == 0.0 && Line(1).textList() == nullptr);
}

TEST_F(RichTextTest, EmptyLinesAndBulletsHaveTheFormatOfWhatIsPutIn)
{
    ASSERT_EQ(Load("a\\par \\'a7}"), std::nullopt);
    ASSERT_TRUE(Text.ReplaceMarker("§", ""));
    Text.SetFontSize(6.0);
    Text.SetSelectedText("\n"); // a gap of half a line
    Text.SetFontSize(12.0);
    Text.SetBullet(300.0);
    Text.SetFontName("Courier New");
    Text.SetSelectedText("b\nc");
    EXPECT_EQ(Text.Document().toPlainText(), "a\n\nb\nc");
    EXPECT_EQ(Line(1).charFormat().fontPointSize(), 6.0);
    for (const int line : {2, 3}) // bullets under each other
        EXPECT_EQ(test::LetterLook(Line(line).charFormat()), "Courier New 12");
}

TEST_F(RichTextTest, PlacesOutsideTheTextAreCut)
{
    ASSERT_EQ(Load("one\\par two}"), std::nullopt);
    for (const auto& [text, from, place] : {std::tuple{"o", 0, 0}, {"o", 1, 6}, {"O", 0, -1}, {"o", 99, -1}})
        EXPECT_EQ(Text.Find(text, from), place) << text << from;
    Text.Select(2, 99);
    EXPECT_EQ(Text.SelectedText(), "e\ntwo");
    Text.Select(-5, -5);
    Text.SetSelectedText("0");
    Text.Select(99, 1);
    Text.SetSelectedText("9");
    EXPECT_EQ(Text.Document().toPlainText(), "0one\ntwo9");
}

TEST_F(RichTextTest, PicturesLendTheirFormatToNoText)
{
    ASSERT_EQ(Text.LoadFile(MEROV_RUN_DIR "/NumResults.rtf"), std::nullopt);
    Text.SelectAll();
    Text.SetIndent(210.0);
    Text.Select(1, 0);
    Text.SetSelectedText("A");
    EXPECT_TRUE(FormatAt(0).isImageFormat() && !FormatAt(1).isImageFormat());
    EXPECT_EQ(Text.Document().lastBlock().blockFormat().leftMargin(), 14.0);
}

TEST_F(RichTextTest, WorkIsCheapAndHandedOver)
{
    ASSERT_EQ(Load("\\'a7\\par last}"), std::nullopt);
    EXPECT_NE(Load("damaged"), std::nullopt); // leaves the text and its place
    Text.SetSelectedText("first ");
    Text.ReplaceMarker("§", "a\nb");
    Text.SetBullet(300.0);
    RichText moved = std::move(Text);
    moved.SelectAll();
    moved.SetIndent(210.0);
    EXPECT_EQ(moved.Document().findChild<QAbstractTextDocumentLayout*>(), nullptr); // nothing was laid out
    EXPECT_FALSE(moved.Document().isUndoRedoEnabled());
    const std::unique_ptr<QTextDocument> taken = moved.Take();
    EXPECT_EQ(taken->toPlainText(), "first a\nb\nlast");
    moved.SetSelectedText("new");
    EXPECT_EQ(moved.Document().toPlainText() + taken->lastBlock().text(), "newlast");
}

} // namespace merov::platform
