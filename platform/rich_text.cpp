#include "platform/rich_text.h"

#include "platform/rtf_letters.h"
#include "platform/rtf_reader.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace merov::platform
{

RichText::RichText() : document_(std::make_unique<QTextDocument>()), selection_(document_.get())
{
    document_->setUndoRedoEnabled(false);
}

std::optional<QString> RichText::LoadFile(const QString& path)
{
    RtfReading reading = ReadRtfFile(path);
    if (const QString* wrong = std::get_if<QString>(&reading)) return *wrong;
    document_ = std::move(std::get<std::unique_ptr<QTextDocument>>(reading));
    document_->setUndoRedoEnabled(false);
    Select(0, 0);
    return {};
}

std::unique_ptr<QTextDocument> RichText::Take()
{
    std::unique_ptr<QTextDocument> taken = std::move(document_);
    *this = RichText();
    return taken;
}

int RichText::Find(const QString& text, int from) const
{
    const QTextCursor found = document_->find(text, std::max(from, 0), QTextDocument::FindCaseSensitively);
    return found.isNull() ? -1 : found.selectionStart();
}

void RichText::Select(int start, int length)
{
    const int last = document_->characterCount() - 1;
    start = std::clamp(start, 0, last);
    length = std::clamp(length, 0, last - start);
    selection_ = QTextCursor(document_.get());
    selection_.setPosition(length > 0 ? start + 1 : start); // a cursor has the format of what precedes it
    nextFormat_ = selection_.charFormat();
    if (nextFormat_.isImageFormat()) nextFormat_ = selection_.blockCharFormat();
    symbolOn_ = false;
    selection_.setPosition(start);
    selection_.setPosition(start + length, QTextCursor::KeepAnchor);
}

void RichText::SelectAll()
{
    Select(0, document_->characterCount());
}

QString RichText::SelectedText() const
{
    QString text = selection_.selectedText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\v');
}

void RichText::SetSelectedText(const QString& text)
{
    QString shown = symbolOn_ ? SymbolText(QString(text).remove(u'\r')) : QString(text).remove(u'\r');
    shown.replace(u'\v', QChar::LineSeparator);
    // The format of a paragraph's beginning is that of its bullet, and the height of an empty line.
    QTextCursor beginning(document_.get());
    beginning.setPosition(selection_.selectionStart());
    if (beginning.atBlockStart()) beginning.setBlockCharFormat(nextFormat_);
    selection_.insertText(shown, nextFormat_);
}

bool RichText::ReplaceMarker(const QString& marker, const QString& text)
{
    const int place = Find(marker);
    if (place < 0) return false;
    Select(place, static_cast<int>(marker.size()));
    SetSelectedText(text);
    return true;
}

void RichText::SetColour(const QColor& colour)
{
    QTextCharFormat change;
    change.setForeground(colour);
    Format(change);
}

void RichText::SetFontName(const QString& name)
{
    symbolOn_ = IsSymbolFont(name);
    QTextCharFormat change;
    change.setFontFamilies({symbolOn_ ? TextFontName : name});
    Format(change);
}

void RichText::SetFontSize(double points)
{
    QTextCharFormat change;
    change.setFontPointSize(points);
    Format(change);
}

void RichText::SetBold(bool on)
{
    QTextCharFormat change;
    change.setFontWeight(on ? QFont::Bold : QFont::Normal);
    Format(change);
}

void RichText::SetItalic(bool on)
{
    QTextCharFormat change;
    change.setFontItalic(on);
    Format(change);
}

void RichText::SetUnderline(bool on)
{
    QTextCharFormat change;
    change.setFontUnderline(on);
    Format(change);
}

void RichText::SetScript(TextScript script)
{
    QTextCharFormat change;
    platform::SetScript(change, script);
    Format(change);
}

void RichText::SetParagraphAlignment(Qt::Alignment alignment)
{
    QTextBlockFormat change;
    change.setAlignment(alignment);
    selection_.mergeBlockFormat(change);
}

void RichText::SetIndent(double twips)
{
    IndentParagraphs(selection_, twips);
}

void RichText::SetBullet(double twips)
{
    BulletParagraphs(selection_, twips);
}

void RichText::EndBullet()
{
    EndBullets(selection_);
}

/// Changes the selected text, and what is put in next.
void RichText::Format(const QTextCharFormat& change)
{
    nextFormat_.merge(change);
    if (selection_.hasSelection()) selection_.mergeCharFormat(change);
}

} // namespace merov::platform
