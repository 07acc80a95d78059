#pragma once

#include <QChar>
#include <QString>

/// Letters of two one-byte encodings as Unicode: Windows code page 1252, in which rich text files are
/// written, and the encoding of the font "Symbol", which no machine needs to have installed.

namespace merov::platform
{

/// The family that stands in for "Symbol": its letters are shown in the font of the text.
inline const QString TextFontName = QStringLiteral("Arial");

/// True for the name of the font whose letters go through SymbolLetter.
bool IsSymbolFont(const QString& name);

/// The letter of a byte in code page 1252 (Unicode consortium, CP1252.TXT); the five bytes without a
/// letter give U+FFFD.
QChar Windows1252Letter(unsigned char byte);

/// The letter of a byte in the font "Symbol": "d" gives a small delta, "D" a capital one, 0xAB the
/// arrow to both sides (Unicode consortium, mapping of the Adobe Symbol encoding). Bytes without a
/// letter of their own, and the parts that large brackets are put together from, give U+FFFD.
QChar SymbolLetter(unsigned char byte);

/// A text as the font "Symbol" shows it. Letters above U+00FF stay, but for the private ones U+F020 to
/// U+F0FF, by which word processors write the bytes of that font.
QString SymbolText(const QString& text);

} // namespace merov::platform
