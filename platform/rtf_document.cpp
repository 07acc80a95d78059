#include "platform/rtf_document.h"

#include "platform/text_styles.h"
#include "platform/twips.h"

#include <QBuffer>
#include <QImageReader>
#include <QTextBlock>
#include <QUrl>

#include <algorithm>

namespace merov::platform
{
namespace
{

constexpr char16_t LineBreak = u'\u2028';

/// What may stand in a document's text: no controls, no separators of Qt's own.
bool IsText(char16_t letter)
{
    const bool control = (letter < 0x20 && letter != u'\t') || (letter >= 0x7F && letter < 0xA0);
    const bool separator = letter == u'\u2028' || letter == u'\u2029';
    const bool noCharacter = letter == u'\uFFFC' || letter >= 0xFFFE || (letter >= 0xFDD0 && letter <= 0xFDEF);
    return !control && !separator && !noCharacter;
}

/// Half of a letter outside the basic plane without its other half shows as the sign for a letter that
/// could not be read.
void MendSurrogates(QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair)
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
}

} // namespace

RtfDocument::RtfDocument(QTextDocument& document, const RtfTables& tables)
    : Target(document), Tables(tables), Cursor(&document)
{
    Target.setUndoRedoEnabled(false);
    Cursor.beginEditBlock();
}

void RtfDocument::PutLetter(char16_t letter, const RtfFormat& format)
{
    if (!IsText(letter) || IsFull()) return;
    Begin(format);
    Run += QChar(letter);
}

void RtfDocument::PutLabel(const QString& label, const RtfFormat& format)
{
    const QString sign = label.trimmed();
    if (sign.size() == 1 && !sign[0].isLetterOrNumber()) {
        Begin(format);
        Bulleted = true;
        return;
    }
    for (const QChar letter : label)
        PutLetter(letter.unicode(), format);
}

void RtfDocument::BreakLine(const RtfFormat& format)
{
    if (IsFull()) return;
    Begin(format);
    Run += QChar(LineBreak);
}

void RtfDocument::EndParagraph(const RtfFormat& format)
{
    if (IsFull()) return;
    Begin(format);
    Flush();
    ShapeParagraph(format);
    BreakPending = true;
}

bool RtfDocument::PutPicture(const QByteArray& png, QSize goal, const RtfFormat& format)
{
    QBuffer bytes;
    bytes.setData(png);
    QImageReader reader(&bytes, "png");
    const QSize size = reader.size(); // from the head alone: nothing is unpacked yet
    if (size.isEmpty() || qint64{size.width()} * size.height() > MostRtfPixels - Pixels) return false;
    const QImage image = reader.read();
    if (image.isNull()) return false;
    Pixels += qint64{image.width()} * image.height();
    if (IsFull()) return true;

    Begin(format);
    Flush();
    const QString name = QStringLiteral("picture-%1").arg(++Pictures);
    Target.addResource(QTextDocument::ImageResource, QUrl(name), image);
    QTextImageFormat picture;
    picture.setName(name);
    if (!goal.isEmpty()) {
        picture.setWidth(goal.width() / TwipsPerPixel);
        picture.setHeight(goal.height() / TwipsPerPixel);
    }
    ShapeParagraph(format);
    Cursor.insertImage(picture);
    return true;
}

void RtfDocument::Finish()
{
    Flush();
    Cursor.endEditBlock();
}

/// Makes ready for what comes next: the paragraph that was waiting for it, and a run of its format.
void RtfDocument::Begin(const RtfFormat& format)
{
    if (BreakPending) {
        Cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        BreakPending = false;
        Bulleted = false;
        Shaped.reset();
        ++Paragraphs;
    }
    if (!Run.isEmpty() && format != RunFormat) Flush();
    RunFormat = format;
}

void RtfDocument::Flush()
{
    if (Run.isEmpty()) return;
    MendSurrogates(Run);
    ShapeParagraph(RunFormat);
    Cursor.insertText(Run, LetterFormat(RunFormat, Tables));
    Run.clear();
    ++Runs;
}

/// Gives the present paragraph its format; the last one given holds. Its letters' format is that of an
/// empty paragraph's line, and of the bullet.
void RtfDocument::ShapeParagraph(const RtfFormat& format)
{
    if (Shaped == format.Paragraph) return;
    Shaped = format.Paragraph;
    Cursor.setBlockFormat(ParagraphFormat(format.Paragraph));
    Cursor.setBlockCharFormat(LetterFormat(format, Tables));
    if (!Bulleted) return;
    const int hanging = std::max(-format.Paragraph.FirstIndent, 0);
    QTextBlockFormat block = Cursor.blockFormat();
    block.setTextIndent(0.0);
    block.setLeftMargin((format.Paragraph.LeftIndent - hanging) / TwipsPerPixel);
    Cursor.setBlockFormat(block);
    BulletParagraphs(Cursor, hanging);
}

} // namespace merov::platform
