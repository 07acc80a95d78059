#include "platform/masked_edit.h"

#include <QKeyEvent>

namespace merov::platform
{
namespace
{

constexpr QChar Prompt = u'_';

bool IsPlace(QChar c)
{
    return c == u'#' || c == u'9' || c == u'?' || c == u'&';
}

/// One character of a mask as Qt writes it. All places are optional ones there: a "_" in a place that
/// Qt requires to be filled would shift the rest of a text that is set.
QString QtMask(QChar c)
{
    switch (c.unicode()) {
    case u'#':
        return QStringLiteral("0");
    case u'9':
        return QStringLiteral("#");
    case u'?':
        return QStringLiteral("a");
    case u'&':
        return QStringLiteral("x");
    default:
        return QStringLiteral("\\") + c;
    }
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// True when a place takes a key. Qt lets more through, such as the digit of a square.
bool Fits(QChar place, QChar key)
{
    switch (place.unicode()) {
    case u'#':
        return IsDigit(key);
    case u'9':
        return IsDigit(key) || key == u'+' || key == u'-';
    case u'?':
        return key.unicode() < 0x80 && key.isLetter();
    default:
        return true;
    }
}

/// True for a key that types a character, not a command.
bool Types(const QKeyEvent& event)
{
    const QString typed = event.text();
    return typed.size() == 1 && typed.front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

MaskedEdit::MaskedEdit(QWidget* parent) : Field<QLineEdit>(parent)
{
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
}

void MaskedEdit::SetMask(const QString& mask)
{
    mask_ = mask;
    QString qtMask;
    for (const QChar c : mask)
        qtMask += QtMask(c);
    setInputMask(qtMask + u';' + Prompt);
    clear();
}

bool MaskedEdit::IsBlank() const
{
    const QString shown = Text();
    for (qsizetype i = 0; i < mask_.size(); ++i)
        if (IsPlace(mask_[i]) && shown[i] != Prompt) return false;
    return true;
}

void MaskedEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->modifiers() == Qt::AltModifier && event->key() >= Qt::Key_A && event->key() <= Qt::Key_Z) {
        event->ignore(); // meant for a caption or a menu; where none has the letter, it types nothing
        return;
    }
    const qsizetype cursor = hasSelectedText() ? selectionStart() : cursorPosition();
    if (!Types(*event) || JumpsToLiteral(cursor, event->text().front())) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    const qsizetype place = NextPlace(cursor);
    if (place == mask_.size()) return;
    const QChar typed = event->text().front();
    const QChar key = KeyMap ? KeyMap(static_cast<int>(place), typed) : typed;
    if (key.isNull() || !Fits(mask_[place], key)) return;
    QKeyEvent mapped(event->type(), event->key(), Qt::NoModifier, key);
    QLineEdit::keyPressEvent(&mapped);
}

/// True for a key that is the literal at the cursor, or a literal further on that can be nothing else.
bool MaskedEdit::JumpsToLiteral(qsizetype cursor, QChar key) const
{
    if (IsPlace(key)) return false;
    const qsizetype literal = mask_.indexOf(key, cursor);
    return literal == cursor || (literal > cursor && !key.isLetterOrNumber());
}

/// The place in which a character typed at `cursor` lands; the mask's length where there is none.
qsizetype MaskedEdit::NextPlace(qsizetype cursor) const
{
    while (cursor < mask_.size() && !IsPlace(mask_[cursor]))
        ++cursor;
    return cursor;
}

} // namespace merov::platform
