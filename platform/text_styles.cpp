#include "platform/text_styles.h"

#include "platform/twips.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include <functional>

namespace merov::platform
{
namespace
{

/// Lowering and raising, percent of the height of the letters.
constexpr double ScriptOffset = 25.0;

/// Where a paragraph keeps the indent of its bullet, twips; its left margin is the sum of both.
constexpr int BulletIndentProperty = QTextFormat::UserProperty + 1;

using ParagraphJob = std::function<void(QTextCursor& paragraph, QTextBlockFormat& format)>;

/// Does a job for each paragraph of a selection and sets the format that it leaves.
void ForEachParagraph(const QTextCursor& cursor, const ParagraphJob& job)
{
    const QTextDocument& document = *cursor.document();
    const QTextBlock end = document.findBlock(cursor.selectionEnd()).next();
    for (QTextBlock block = document.findBlock(cursor.selectionStart()); block.isValid() && block != end;
         block = block.next()) {
        QTextCursor paragraph(block);
        QTextBlockFormat format = block.blockFormat();
        job(paragraph, format);
        paragraph.setBlockFormat(format);
    }
}

/// Moves the text of a paragraph from its present bullet's indent to another.
void ChangeBulletIndent(QTextBlockFormat& format, double twips)
{
    const double indent = format.leftMargin() - format.doubleProperty(BulletIndentProperty) / TwipsPerPixel;
    format.setLeftMargin(indent + twips / TwipsPerPixel);
    format.setProperty(BulletIndentProperty, twips);
}

} // namespace

void SetScript(QTextCharFormat& format, TextScript script)
{
    format.setVerticalAlignment(QTextCharFormat::AlignNormal);
    format.setBaselineOffset(script == TextScript::Normal      ? 0.0
                             : script == TextScript::Subscript ? -ScriptOffset
                                                               : ScriptOffset);
}

void IndentParagraphs(const QTextCursor& cursor, double twips)
{
    ForEachParagraph(cursor, [twips](QTextCursor&, QTextBlockFormat& format) {
        format.setLeftMargin((twips + format.doubleProperty(BulletIndentProperty)) / TwipsPerPixel);
    });
}

void BulletParagraphs(const QTextCursor& cursor, double twips)
{
    ForEachParagraph(cursor, [twips](QTextCursor&, QTextBlockFormat& format) { ChangeBulletIndent(format, twips); });
    QTextListFormat bullets;
    bullets.setStyle(QTextListFormat::ListDisc);
    bullets.setIndent(0); // the margin holds it
    QTextCursor(cursor).createList(bullets);
}

void EndBullets(const QTextCursor& cursor)
{
    ForEachParagraph(cursor, [](QTextCursor& paragraph, QTextBlockFormat& format) {
        QTextList* const list = paragraph.currentList();
        if (list == nullptr) return;
        list->remove(paragraph.block());
        format = paragraph.blockFormat();
        ChangeBulletIndent(format, 0.0);
    });
}

} // namespace merov::platform
