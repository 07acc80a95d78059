#include "platform/rich_text_box.h"

#include "platform/rtf_letters.h"
#include "platform/rtf_reader.h"

#include <QPointer>
#include <QTextDocument>

#include <algorithm>
#include <memory>
#include <utility>

namespace merov::platform
{

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent), Selection(document())
{
    setReadOnly(true);
    setTabChangesFocus(true);
    setAcceptDrops(false);
    document()->setUndoRedoEnabled(false);
    QPalette paper = palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
}

std::optional<QString> RichTextBox::LoadFile(const QString& path)
{
    RtfReading reading = ReadRtfFile(path);
    if (const QString* wrong = std::get_if<QString>(&reading)) return *wrong;

    const QPointer<QTextDocument> before = document();
    QTextDocument* const read = std::get<std::unique_ptr<QTextDocument>>(reading).release();
    read->setParent(this);
    setDocument(read);
    Select(0, 0);
    delete before; // unless the change has deleted it already
    return {};
}

int RichTextBox::Find(const QString& text, int from) const
{
    const QTextCursor found = document()->find(text, std::max(from, 0), QTextDocument::FindCaseSensitively);
    return found.isNull() ? -1 : found.selectionStart();
}

void RichTextBox::Select(int start, int length)
{
    const int last = document()->characterCount() - 1;
    start = std::clamp(start, 0, last);
    length = std::clamp(length, 0, last - start);
    Selection = QTextCursor(document());
    Selection.setPosition(length > 0 ? start + 1 : start); // a cursor has the format of what precedes it
    NextFormat = Selection.charFormat();
    if (NextFormat.isImageFormat()) NextFormat = Selection.blockCharFormat();
    SymbolOn = false;
    Selection.setPosition(start);
    Selection.setPosition(start + length, QTextCursor::KeepAnchor);
}

void RichTextBox::SelectAll()
{
    Select(0, document()->characterCount());
}

QString RichTextBox::SelectedText() const
{
    QString text = Selection.selectedText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\v');
}

void RichTextBox::SetSelectedText(const QString& text)
{
    QString shown = SymbolOn ? SymbolText(QString(text).remove(u'\r')) : QString(text).remove(u'\r');
    shown.replace(u'\v', QChar::LineSeparator);
    if (textCursor().hasSelection()) ShowPosition(textCursor().selectionStart());
    // The format of a paragraph's beginning is that of its bullet, and the height of an empty line.
    QTextCursor beginning(document());
    beginning.setPosition(Selection.selectionStart());
    if (beginning.atBlockStart()) beginning.setBlockCharFormat(NextFormat);
    Selection.insertText(shown, NextFormat);
}

bool RichTextBox::ReplaceMarker(const QString& marker, const QString& text)
{
    const int place = Find(marker);
    if (place < 0) return false;
    Select(place, static_cast<int>(marker.size()));
    SetSelectedText(text);
    return true;
}

void RichTextBox::SetColour(const QColor& colour)
{
    QTextCharFormat change;
    change.setForeground(colour);
    Format(change);
}

void RichTextBox::SetFontName(const QString& name)
{
    SymbolOn = IsSymbolFont(name);
    QTextCharFormat change;
    change.setFontFamilies({SymbolOn ? TextFontName : name});
    Format(change);
}

void RichTextBox::SetFontSize(double points)
{
    QTextCharFormat change;
    change.setFontPointSize(points);
    Format(change);
}

void RichTextBox::SetBold(bool on)
{
    QTextCharFormat change;
    change.setFontWeight(on ? QFont::Bold : QFont::Normal);
    Format(change);
}

void RichTextBox::SetItalic(bool on)
{
    QTextCharFormat change;
    change.setFontItalic(on);
    Format(change);
}

void RichTextBox::SetUnderline(bool on)
{
    QTextCharFormat change;
    change.setFontUnderline(on);
    Format(change);
}

void RichTextBox::SetScript(TextScript script)
{
    QTextCharFormat change;
    platform::SetScript(change, script);
    Format(change);
}

void RichTextBox::SetParagraphAlignment(Qt::Alignment alignment)
{
    QTextBlockFormat change;
    change.setAlignment(alignment);
    Selection.mergeBlockFormat(change);
}

void RichTextBox::SetIndent(double twips)
{
    IndentParagraphs(Selection, twips);
}

void RichTextBox::SetBullet(double twips)
{
    BulletParagraphs(Selection, twips);
}

void RichTextBox::EndBullet()
{
    EndBullets(Selection);
}

void RichTextBox::ShowPosition(int position)
{
    QTextCursor cursor(document());
    cursor.setPosition(std::clamp(position, 0, document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}

/// Changes the selected text, and what is put in next.
void RichTextBox::Format(const QTextCharFormat& change)
{
    NextFormat.merge(change);
    if (Selection.hasSelection()) Selection.mergeCharFormat(change);
}

} // namespace merov::platform
