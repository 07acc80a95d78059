#pragma once

#include <QTextCharFormat>
#include <QTextCursor>

/// Styles that reports set in twips and points and that Qt's formats do not have as such: the indent
/// of a paragraph apart from that of its bullet, and letters below the line in the size that was set.

namespace merov::platform
{

enum class TextScript { Normal, Subscript, Superscript };

/// Puts letters below or above the line by a quarter of their height. Their size stays: a smaller one
/// is set beside it.
void SetScript(QTextCharFormat& format, TextScript script);

/// Sets the indent of the paragraphs that a cursor stands in or selects, twips from the margin. The
/// text of a bulleted paragraph stands further in by the indent of its bullet.
void IndentParagraphs(const QTextCursor& cursor, double twips);

/// Gives these paragraphs a bullet at their indent, the text `twips` behind it. Paragraphs that are
/// typed behind them are bulleted alike.
void BulletParagraphs(const QTextCursor& cursor, double twips);

/// Takes the bullets of these paragraphs and their indents away.
void EndBullets(const QTextCursor& cursor);

} // namespace merov::platform
