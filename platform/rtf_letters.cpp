#include "platform/rtf_letters.h"

#include <array>

namespace merov::platform
{
namespace
{

constexpr char16_t NoLetter = u'\uFFFD';

/// Code page 1252, bytes 80 to 9F hex; all others are those of Latin-1.
constexpr std::array<char16_t, 32> Windows1252Middle{
    u'\u20AC', NoLetter,  u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021', // € ‚ ƒ „ … † ‡
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', NoLetter,  u'\u017D', NoLetter,  // ˆ ‰ Š ‹ Œ Ž
    NoLetter,  u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014', // ‘ ’ “ ” • – —
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', NoLetter,  u'\u017E', u'\u0178' // ˜ ™ š › œ ž Ÿ
};

/// The font "Symbol", bytes 20 to 7E hex: signs, digits and the Greek letters.
constexpr char16_t SymbolLow[] = u" !∀#∃%&∋()∗+,−./0123456789:;<=>?"
                                 u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                 u"‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼";
constexpr unsigned LowFirst = 0x20;
constexpr unsigned LowLast = 0x7E;
static_assert(std::size(SymbolLow) == LowLast - LowFirst + 2);

/// The font "Symbol", bytes A0 to E5 hex: relations, arrows, sets.
constexpr char16_t SymbolHigh[] = u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
                                  u"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                  u"◊⟨®©™∑";
constexpr unsigned HighFirst = 0xA0;
constexpr unsigned HighLast = 0xE5;
static_assert(std::size(SymbolHigh) == HighLast - HighFirst + 2);

} // namespace

bool IsSymbolFont(const QString& name)
{
    return name.compare(QLatin1String("Symbol"), Qt::CaseInsensitive) == 0;
}

QChar Windows1252Letter(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? Windows1252Middle[byte - 0x80u] : QChar(char16_t{byte});
}

QChar SymbolLetter(unsigned char byte)
{
    if (byte >= LowFirst && byte <= LowLast) return SymbolLow[byte - LowFirst];
    if (byte >= HighFirst && byte <= HighLast) return SymbolHigh[byte - HighFirst];
    switch (byte) {
    case '\t':
    case '\n':
    case '\v':
        return QChar(char16_t{byte});
    case 0xF1:
        return u'\u27E9'; // closes the angle bracket of 0xE1
    case 0xF2:
        return u'\u222B'; // integral
    default:
        return NoLetter;
    }
}

QString SymbolText(const QString& text)
{
    QString shown = text;
    for (QChar& letter : shown) {
        const char16_t code = letter.unicode();
        if (code <= 0xFF || (code >= 0xF020 && code <= 0xF0FF))
            letter = SymbolLetter(static_cast<unsigned char>(code & 0xFF));
    }
    return shown;
}

} // namespace merov::platform
