#include "platform/rtf_reader.h"
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
    if (const QString* wrong = std::get_if<QString>(&reading)) {
        ADD_FAILURE() << body.toStdString() << ": " << wrong->toStdString();
        return std::make_unique<QTextDocument>();
    }
    return std::move(std::get<Document>(reading));
}

/// Why a whole file is refused; empty when it is read.
QString Refusal(const QByteArray& file)
{
    const RtfReading reading = ReadRtf(file);
    const QString* wrong = std::get_if<QString>(&reading);
    return wrong != nullptr ? *wrong : QString();
}

QTextCharFormat FormatOf(const QTextDocument& document, const char* letter)
{
    return document.find(letter, 0, QTextDocument::FindCaseSensitively).charFormat();
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
    const struct {
        const char* Body;
        const char* Text;
    } cases[] = {
        {"plain  text\r\n goes\non", "plain  text goeson"},
        {"\\{braces\\} \\\\", "{braces} \\"},
        {"\\'a7\\'bd\\'B0\\'b1 \\'80 \\'93\\'94\\'9f \\'81", "§½°± € “”Ÿ \uFFFD"},
        {"\\u945?\\u8596?\\u945\\'61.", "α↔α."},
        {"\\uc2\\u945 xy\\uc0\\u946z{\\uc3\\u947 abc}\\u948z\\uc1\\u949\\tab y", "αβzγδzεy"},
        {"\\u945{x}", "αx"}, // a brace ends the letters that stand for one
        {"\\u-10179?\\u-8704? \\u-10179?! \\u-8704?", "\U0001F600 \uFFFD! \uFFFD"},
        {"a\\u10?\\u0?\\'01\\u-4?\\u8233?b", "ab"},
        {"{\\f2 d D \\'ab\\'b1}d", "δ Δ ↔±d"},
        {"{\\f2\\u-3925?\\u-3996?}", "↔δ"}, // bytes of the font as private letters
        {"a\\tab b\\~c\\_d\\-e\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet", "a\tb c\u2011de—–‘’“”•"},
        {"a\\unknown12 b\\another-5c{\\*\\generator Some {nested \\par text};}\\*d", "abcd"},
        {"{\\info{\\title T}}{\\stylesheet{\\s1 Heading;}}{\\header H\\par}a{\\footnote f}", "a"},
        {"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt shown}}", "shown"},
        {"a\\bin3 }{\\b", "ab"}, // the raw bytes hold braces
        {"a\\par\\par b\\line c\\\nd\\par", "a\n\nb\nc\nd"},
        {"{\\listtext 1.\\tab}one\\par{\\pntext\\f2\\'b7\\tab}two\\par{\\*\\pn\\pnlvlblt}three", "1.\tone\ntwo\nthree"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.Body)->toPlainText(), QString::fromUtf8(c.Text)) << c.Body;
    EXPECT_EQ(Refusal(QByteArrayLiteral("{\\rtf1 no tables}\r\n \0")), "");
}

TEST(RtfReader, FormatsOfLettersFollowTheGroups)
{
    const Document document = Read("a{\\f1\\fs17\\b\\i\\ul\\cf1 b{\\b0\\cf2\\ulnone c}d\\plain e}f{\\sub g\\nosupersub "
                                   "h\\super i}{\\dn4\\fs16 j\\up4 k\\up0 l}{\\f2 d}{\\f9\\cf9 m}");
    const auto expect = [&](const char* letter, const char* family, double points, bool bold, bool italic,
                            bool underlined, const QColor& colour) {
        const QTextCharFormat format = FormatOf(*document, letter);
        EXPECT_EQ(format.fontFamilies().toStringList(), QStringList(family)) << letter;
        EXPECT_EQ(format.fontPointSize(), points) << letter;
        EXPECT_EQ(format.fontWeight() == QFont::Bold, bold) << letter;
        EXPECT_EQ(format.fontItalic(), italic) << letter;
        EXPECT_EQ(format.fontUnderline(), underlined) << letter;
        EXPECT_EQ(format.hasProperty(QTextFormat::ForegroundBrush), colour.isValid()) << letter;
        if (colour.isValid()) {
            EXPECT_EQ(format.foreground().color(), colour) << letter;
        }
    };
    expect("a", "Arial", 12.0, false, false, false, {});
    expect("b", "Courier New", 8.5, true, true, true, QColor(0, 0, 255));
    expect("c", "Courier New", 8.5, false, true, false, QColor(255, 20, 0));
    expect("d", "Courier New", 8.5, true, true, true, QColor(0, 0, 255));
    expect("e", "Arial", 12.0, false, false, false, {});
    expect("f", "Arial", 12.0, false, false, false, {});
    expect("δ", "Arial", 12.0, false, false, false, {}); // of no font that a machine may lack
    expect("m", "Arial", 12.0, false, false, false, {});

    EXPECT_EQ(FormatOf(*document, "g").verticalAlignment(), QTextCharFormat::AlignSubScript);
    EXPECT_EQ(FormatOf(*document, "h").verticalAlignment(), QTextCharFormat::AlignNormal);
    EXPECT_EQ(FormatOf(*document, "i").verticalAlignment(), QTextCharFormat::AlignSuperScript);
    const QTextCharFormat lowered = FormatOf(*document, "j");
    EXPECT_LT(lowered.baselineOffset(), 0.0);
    EXPECT_EQ(lowered.verticalAlignment(), QTextCharFormat::AlignNormal); // Qt shrinks the others
    EXPECT_EQ(lowered.fontPointSize(), 8.0);
    EXPECT_GT(FormatOf(*document, "k").baselineOffset(), 0.0);
    EXPECT_EQ(FormatOf(*document, "l").baselineOffset(), 0.0);
}

TEST(RtfReader, ParagraphsHaveTheFormatThatStandsAtTheirEnd)
{
    const Document document = Read("a\\li300\\ri150\\fi-75\\sb30\\sa45\\qc\\par b\\pard\\par\\qr\\fs40\\par{\\qj c}");
    ASSERT_EQ(document->blockCount(), 4);
    const QTextBlock first = document->firstBlock();
    const QTextBlockFormat format = first.blockFormat();
    EXPECT_EQ(format.leftMargin(), 20.0);
    EXPECT_EQ(format.rightMargin(), 10.0);
    EXPECT_EQ(format.textIndent(), -5.0);
    EXPECT_EQ(format.topMargin(), 2.0);
    EXPECT_EQ(format.bottomMargin(), 3.0);
    EXPECT_EQ(format.alignment(), Qt::AlignHCenter);
    EXPECT_EQ(first.next().blockFormat().leftMargin(), 0.0);
    EXPECT_EQ(first.next().blockFormat().alignment(), Qt::AlignLeft);
    const QTextBlock empty = first.next().next();
    EXPECT_EQ(empty.blockFormat().alignment(), Qt::AlignRight);
    EXPECT_EQ(empty.charFormat().fontPointSize(), 20.0); // the height of an empty line
    EXPECT_EQ(document->lastBlock().blockFormat().alignment(), Qt::AlignJustify);
}

TEST(RtfReader, LabelsOfOneSignAreBullets)
{
    const Document document = Read("{\\pntext\\f2\\'b7\\tab}\\fi-300\\li510 a\\par{\\listtext\\bullet\\tab}b\\par c");
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        const bool bulleted = block.text() != "c";
        ASSERT_EQ(block.textList() != nullptr, bulleted) << block.text().toStdString();
        EXPECT_EQ(block.blockFormat().leftMargin(), 34.0);
        EXPECT_EQ(block.blockFormat().textIndent(), bulleted ? 0.0 : -20.0);
        if (bulleted) {
            EXPECT_EQ(block.textList()->format().style(), QTextListFormat::ListDisc);
        }
    }
}

TEST(RtfReader, PicturesHaveTheirSize)
{
    const QByteArray png = PngHex(8, 4);
    const Document document = Read("{\\*\\shppict{\\pict{\\*\\picprop x}\\pngblip\\picwgoal480\\pichgoal240 " +
                                   png.left(60) + "\n" + png.mid(60) + "}}{\\nonshppict{\\pict\\pngblip " + png +
                                   "}}{\\pict\\pngblip " + png + "}{\\pict\\wmetafile8 0102}a{\\pict\\pngblip\\bin" +
                                   QByteArray::number(png.size() / 2) + " " + QByteArray::fromHex(png) + "}");
    const QString text = QTextCursor(document->firstBlock()).block().text();
    EXPECT_EQ(text, QString::fromUtf8("\uFFFC\uFFFCa\uFFFC"));
    const auto picture = [&](int place) {
        QTextCursor cursor(document.get());
        cursor.setPosition(place + 1);
        return cursor.charFormat().toImageFormat();
    };
    EXPECT_EQ(picture(0).width(), 32.0);
    EXPECT_EQ(picture(0).height(), 16.0);
    EXPECT_EQ(picture(1).width(), 0.0); // its own
    for (const int place : {0, 1, 3}) {
        const QVariant image = document->resource(QTextDocument::ImageResource, QUrl(picture(place).name()));
        EXPECT_EQ(image.value<QImage>().size(), QSize(8, 4)) << place;
    }
}

TEST(RtfReader, DamagedFilesAreRefusedWithAReason)
{
    const QByteArray early = "it ends early, or a closing brace is missing";
    const QByteArray picture = "a picture in it is damaged or too large";
    QByteArray huge = QByteArray::fromHex(PngHex(2, 2));
    huge.replace(18, 2, "\x7f\xff").replace(22, 2, "\x7f\xff"); // the size in its head, without its check sum
    const struct {
        QByteArray File;
        QByteArray Reason;
    } cases[] = {
        {"{\\rtf1 a", early},
        {"{\\rtf1 {a}", early},
        {"{\\rtf1", early},
        {"{\\rtf1 a}}", "it goes on behind its last brace"},
        {"{\\rtf1 a} b", "it goes on behind its last brace"},
        {"{\\rtf1 a\\", "it ends within a control word"},
        {"{\\rtf1 a\\'4", "it ends within a character code"},
        {"{\\rtf1 a\\'4g}", "a character code is not hexadecimal"},
        {"{\\rtf1 \\bin9 12345}", "it ends within raw bytes"},
        {"{\\rtf1 \\bin-1 }", "it ends within raw bytes"},
        {"{\\rtf1{\\pict\\pngblip 12x}}", "a picture in it is not hexadecimal"},
        {"{\\rtf1{\\pict\\pngblip 0011}}", picture},
        {"{\\rtf1{\\pict\\pngblip " + PngHex(40, 40).chopped(40) + "}}", picture},
        {"{\\rtf1{\\pict\\pngblip " + huge.toHex() + "}}", picture},
        {"{\\rtf1 " + QByteArray(DeepestRtfGroup, '{'), "its groups are nested too deeply"},
        {"{\\rtf1 " + QByteArray("\\par x").repeated(MostRtfParagraphs + 1) + "}", "it is too long"},
        {"{\\rtf1 " + QByteArray("\\b x\\b0 y").repeated(MostRtfRuns / 2 + 2) + "}", "it is too long"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Refusal(c.File), "The rich text file is damaged: " + c.Reason + ".") << c.File.left(60).toStdString();

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
    EXPECT_EQ(FormatOf(*document, "a").fontPointSize(), 500.0);
    EXPECT_EQ(document->firstBlock().blockFormat().leftMargin(), -2112.0);
    EXPECT_EQ(document->firstBlock().blockFormat().topMargin(), 2112.0);
}

TEST(RtfReader, FilesThatCannotBeReadAreTold)
{
    const QTemporaryDir folder;
    const auto refused = [](const QString& path) {
        const RtfReading reading = ReadRtfFile(path);
        return std::holds_alternative<QString>(reading) ? std::get<QString>(reading) : QString();
    };
    EXPECT_TRUE(refused(folder.filePath("none.rtf")).startsWith("The file cannot be opened: "));
    EXPECT_TRUE(refused(folder.path()).startsWith("The file cannot be "));
    QFile large(folder.filePath("large.rtf"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write("{\\rtf1 ");
    large.resize(qint64{1} << 33); // sparse
    large.close();
    EXPECT_EQ(refused(large.fileName()), "The file is too large for a rich text file.");
}

/// Each document of the program, cut short and with bytes changed: a refusal or a document, no crash.
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
        for (int round = 0; round < 200; ++round) {
            QByteArray changed = whole;
            for (int change = 0; change < 4; ++change)
                changed[static_cast<qsizetype>(random() % static_cast<unsigned>(whole.size()))] =
                    "{}\\'*;0f\xff\n"[random() % 10];
            Refusal(changed);
        }
    }
}

} // namespace
} // namespace merov::platform
