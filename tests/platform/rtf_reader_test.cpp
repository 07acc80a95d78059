#include "platform/rtf_reader.h"
#include "support/letter_look.h"
#include "support/qt_text.h"

#include "platform/rtf_document.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QUrl>

#include <gtest/gtest.h>

#include <random>

namespace merov::platform
{
namespace
{

using Document = std::unique_ptr<QTextDocument>;

/// What stands before the text of most cases: two fonts of text, Symbol, and two colours.
const QByteArray Head =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}{\\f1 Courier {\\*\\falt Mono}New;}{\\f2\\fcharset2 Sym;}}"
    "{\\colortbl;\\red0\\green0\\blue255;\\red300\\green20\\blue-5;}";

Document Read(const QByteArray& body)
{
    RtfReading reading = ReadRtf(Head + body + "}");
    EXPECT_TRUE(std::holds_alternative<Document>(reading)) << body.toStdString();
    return std::move(std::get<Document>(reading)); // throws, and so fails the test, when it was refused
}

/// Why a whole file is refused; empty when it is read.
QString Reason(const RtfReading& reading)
{
    const QString* wrong = std::get_if<QString>(&reading);
    return wrong != nullptr ? *wrong : QString();
}
QString Refusal(const QByteArray& file)
{
    return Reason(ReadRtf(file));
}

QString LookOf(const QTextDocument& document, const QString& letter)
{
    return test::LetterLook(document.find(letter, 0, QTextDocument::FindCaseSensitively).charFormat());
}

QByteArray PngHex(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, "PNG");
    return bytes.data().toHex();
}

TEST(RtfReader, TextIsReadAsAWordProcessorShowsIt)
{
    const std::pair<const char*, const char*> cases[] = {
        {"plain  text\r\n goes\non \\{braces\\} \\\\", "plain  text goeson {braces} \\"},
        {"\\'a7\\'bd\\'B0\\'b1 \\'80 \\'93\\'94\\'9f \\'81", "§½°± € “”Ÿ \uFFFD"},
        {"\\uc2\\u945 xy\\uc0\\u946z{\\uc3\\u947 abc}\\u948z\\uc1\\u949\\tab y", "αβzγδzεy"},
        {"\\u945?\\u8596?\\u945\\'61.\\u945{x}", "α↔α.αx"}, // a brace ends the letters that stand for one
        {"\\u-10179?\\u-8704? \\u-10179?! \\u-8704?", "\U0001F600 \uFFFD! \uFFFD"},
        {"a\\u10?\\u0?\\'01\\u-4?\\u8233?b", "ab"},
        {"{\\f2 d D \\'ab\\'b1\\u-3925?\\u-3996?}d", "δ Δ ↔±↔δd"}, // also bytes of the font as private letters
        {"a\\tab b\\~c\\_d\\-e\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet", "a\tb c\u2011de—–‘’“”•"},
        {"a\\unknown12 b\\another-5c{\\*\\generator Some {nested \\par text};}\\*d", "abcd"},
        {"{\\info{\\title T}}{\\stylesheet{\\s1 Heading;}}{\\header H\\par}a{\\footnote f}", "a"},
        {"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt shown}}a\\bin3 }{\\b", "shownab"}, // raw bytes hold braces
        {"a\\par\\par b\\line c\\\nd\\par", "a\n\nb\nc\nd"},
        {"{\\listtext 1.\\tab}one\\par{\\pntext\\f2\\'b7\\tab}two\\par{\\*\\pn\\pnlvlblt}three", "1.\tone\ntwo\nthree"},
    };
    for (const auto& [body, text] : cases)
        EXPECT_EQ(Read(body)->toPlainText(), text) << body;
    EXPECT_EQ(Refusal(QByteArrayLiteral("{\\rtf1 no tables}\r\n \0")), "");
}

TEST(RtfReader, FormatsOfLettersFollowTheGroups)
{
    const Document document = Read("a{\\f1\\fs17\\b\\i\\ul\\cf1 b{\\b0\\cf2\\ulnone c}d\\plain e}f{\\sub g\\nosupersub "
                                   "h\\super i}{\\dn4\\fs16 j\\up4 k\\up0 l}{\\f2 d}{\\f9\\cf9 m}");
    QString looks;
    for (const QChar letter : QString("abcdefghijklδm"))
        looks += letter + (" " + LookOf(*document, letter)) + "|";
    // The Greek letter is of no font that a machine may lack.
    EXPECT_EQ(looks, "a Arial 12|b Courier New 8.5 bold italic underlined #0000ff|c Courier New 8.5 italic #ff1400|"
                     "d Courier New 8.5 bold italic underlined #0000ff|e Arial 12|f Arial 12|g Arial 12 sub|h Arial 12|"
                     "i Arial 12 super|j Arial 8 low|k Arial 8 high|l Arial 8|δ Arial 12|m Arial 12|");
}

TEST(RtfReader, ParagraphsHaveTheFormatThatStandsAtTheirEnd)
{
    const Document document = Read("a\\li300\\ri150\\fi-75\\sb30\\sa45\\qc\\par b\\pard\\par\\qr\\fs40\\par{\\qj c}");
    QString read;
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        const QTextBlockFormat f = block.blockFormat();
        for (const double size : {f.leftMargin(), f.rightMargin(), f.textIndent(), f.topMargin(), f.bottomMargin()})
            read += QString("%1 ").arg(size);
        read += QString("%1|").arg(int(f.alignment()), 0, 16);
    }
    EXPECT_EQ(read, "20 10 -5 2 3 4|0 0 0 0 0 1|0 0 0 0 0 2|0 0 0 0 0 8|");       // alignments as in Qt::Alignment
    EXPECT_EQ(document->findBlockByNumber(2).charFormat().fontPointSize(), 20.0); // the height of an empty line
}

TEST(RtfReader, LabelsOfOneSignAreBullets)
{
    const Document document = Read("{\\pntext\\f2\\'b7\\tab}\\fi-300\\li510 a\\par{\\listtext\\bullet\\tab}b\\par c");
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        const bool bulleted = block.text() != "c";
        EXPECT_EQ(block.textList() && block.textList()->format().style() == QTextListFormat::ListDisc, bulleted);
        EXPECT_EQ(block.blockFormat().leftMargin(), 34.0);
        EXPECT_EQ(block.blockFormat().textIndent(), bulleted ? 0.0 : -20.0);
    }
}

TEST(RtfReader, PicturesHaveTheirSize)
{
    const QByteArray png = PngHex(8, 4);
    const Document document = Read("{\\*\\shppict{\\pict{\\*\\picprop x}\\pngblip\\picwgoal480\\pichgoal240 " +
                                   png.left(60) + "\n" + png.mid(60) + "}}{\\nonshppict{\\pict\\pngblip " + png +
                                   "}}{\\pict\\pngblip " + png + "}{\\pict\\wmetafile8 0102}a{\\pict\\pngblip\\bin" +
                                   QByteArray::number(png.size() / 2) + " " + QByteArray::fromHex(png) + "}");
    EXPECT_EQ(document->toPlainText(), "\uFFFC\uFFFCa\uFFFC");
    QTextCursor cursor(document.get());
    const auto picture = [&](int place) { return cursor.setPosition(place + 1), cursor.charFormat().toImageFormat(); };
    EXPECT_EQ(QSizeF(picture(0).width(), picture(0).height()), QSizeF(32.0, 16.0));
    EXPECT_EQ(picture(1).width(), 0.0); // its own
    for (const int place : {0, 1, 3}) {
        const QVariant image = document->resource(QTextDocument::ImageResource, QUrl(picture(place).name()));
        EXPECT_EQ(image.value<QImage>().size(), QSize(8, 4)) << place;
    }
}

TEST(RtfReader, DamagedFilesAreRefusedWithAReason)
{
    const QByteArray picture = "{\\rtf1{\\pict\\pngblip ";
    QByteArray huge = QByteArray::fromHex(PngHex(2, 2));
    huge.replace(18, 2, "\x7f\xff").replace(22, 2, "\x7f\xff"); // the size in its head, without its check sum
    const std::pair<const char*, QByteArrayList> cases[] = {
        {"it ends early, or a closing brace is missing", {"{\\rtf1 a", "{\\rtf1 {a}", "{\\rtf1"}},
        {"it goes on behind its last brace", {"{\\rtf1 a}}", "{\\rtf1 a} b"}},
        {"it ends within a control word", {"{\\rtf1 a\\"}},
        {"it ends within a character code", {"{\\rtf1 a\\'4"}},
        {"a character code is not hexadecimal", {"{\\rtf1 a\\'4g}"}},
        {"it ends within raw bytes", {"{\\rtf1 \\bin9 12345}", "{\\rtf1 \\bin-1 }"}},
        {"a picture in it is not hexadecimal", {picture + "12x}}"}},
        {"a picture in it is damaged or too large",
         {picture + "0011}}", picture + PngHex(40, 40).chopped(40) + "}}", picture + huge.toHex() + "}}"}},
        {"its groups are nested too deeply", {"{\\rtf1 " + QByteArray(DeepestRtfGroup, '{')}},
        {"it is too long",
         {"{\\rtf1 " + QByteArray("\\par x").repeated(MostRtfParagraphs + 1) + "}",
          "{\\rtf1 " + QByteArray("\\b x\\b0 y").repeated(MostRtfRuns / 2 + 2) + "}"}},
    };
    for (const auto& [reason, files] : cases)
        for (const QByteArray& file : files)
            EXPECT_EQ(Refusal(file), QString("The rich text file is damaged: %1.").arg(reason))
                << file.left(60).toStdString();
    for (const char* other : {"", "{", "{\\rt", "plain text", "\xEF\xBB\xBF{\\rtf1 a}"})
        EXPECT_EQ(Refusal(other), "The file is not a rich text file.") << other;
    const QByteArray braces(DeepestRtfGroup - 1, '{');
    EXPECT_EQ(Refusal("{\\rtf1 " + braces + QByteArray(braces.size(), '}') + "}"), "");
    EXPECT_EQ(Refusal("{\\rtf1 " + QByteArray(LargestRtfFile, 'a') + "}"),
              "The file is too large for a rich text file.");
}

TEST(RtfReader, WildNumbersAreCut)
{
    const Document document = Read("\\fs99999999999999\\li-2147483648\\sb999999999\\cf-7\\f-3\\uc-4\\u99999999 a");
    EXPECT_EQ(LookOf(*document, "a"), "Arial 500");
    EXPECT_EQ(document->firstBlock().blockFormat().leftMargin(), -2112.0);
    EXPECT_EQ(document->firstBlock().blockFormat().topMargin(), 2112.0);
}

TEST(RtfReader, FilesThatCannotBeReadAreTold)
{
    const QTemporaryDir folder;
    const auto refused = [](const QString& path) { return Reason(ReadRtfFile(path)); };
    EXPECT_TRUE(refused(folder.filePath("none.rtf")).startsWith("The file cannot be opened: "));
    EXPECT_TRUE(refused(folder.path()).startsWith("The file cannot be "));
    QFile large(folder.filePath("large.rtf"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write("{\\rtf1 ");
    large.resize(qint64{1} << 33); // sparse
    large.close();
    EXPECT_EQ(refused(large.fileName()), "The file is too large for a rich text file.");
}

TEST(RtfReader, CutAndChangedDocumentsNeverCrash)
{
    std::mt19937 random(12);
    for (const char* name : {"NumResults.rtf", "CalcWP.rtf", "InfoProg.rtf"}) {
        QFile file(QStringLiteral(MEROV_RUN_DIR "/") + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray whole = file.readAll().trimmed();
        ASSERT_EQ(Refusal(whole), "") << name;
        for (qsizetype length = 0; length < whole.size(); length += 37)
            EXPECT_NE(Refusal(whole.left(length)), "") << name << " cut to " << length;
        QByteArray changed;
        for (int change = 0; change < 800; ++change) {
            if (change % 4 == 0) changed = whole;
            changed[qsizetype(random() % unsigned(whole.size()))] = "{}\\'*;0f\xff\n"[random() % 10];
            Refusal(changed);
        }
    }
}

} // namespace
} // namespace merov::platform
