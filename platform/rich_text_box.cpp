#include "platform/rich_text_box.h"

#include <QPointer>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace merov::platform
{

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent)
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

void RichTextBox::Show(RichText&& text)
{
    const QPointer<QTextDocument> before = document();
    QTextDocument* const shown = text.Take().release();
    shown->setParent(this);
    setDocument(shown);
    delete before; // unless the change has deleted it already
}

std::optional<QString> RichTextBox::LoadFile(const QString& path)
{
    RichText text;
    if (std::optional<QString> wrong = text.LoadFile(path)) return wrong;
    Show(std::move(text));
    return {};
}

void RichTextBox::ShowPosition(int position)
{
    QTextCursor cursor(document());
    cursor.setPosition(std::clamp(position, 0, document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}

} // namespace merov::platform
