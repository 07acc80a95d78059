#include "platform/rtf_format.h"

#include "platform/rtf_letters.h"
#include "platform/text_styles.h"
#include "platform/twips.h"

#include <algorithm>
#include <array>

namespace merov::platform
{
namespace
{

constexpr int LargestIndent = 31680; ///< twips: 22 inches, the widest page that word processors know
constexpr int LargestSize = 1000;    ///< half-points

int Bounded(int twips)
{
    return std::clamp(twips, -LargestIndent, LargestIndent);
}

using Shift = RtfFormat::Shift;

/// A control word, the number that it means when it stands alone, and what it sets.
struct Rule {
    std::string_view Word;
    int Alone;
    void (*Apply)(RtfFormat& format, int number);
};

constexpr std::array Rules{
    Rule{"f", 0, [](RtfFormat& f, int n) { f.Font = n; }},
    Rule{"fs", 24, [](RtfFormat& f, int n) { f.HalfPoints = std::clamp(n, 2, LargestSize); }},
    Rule{"cf", 0, [](RtfFormat& f, int n) { f.Colour = n; }},
    Rule{"b", 1, [](RtfFormat& f, int n) { f.Bold = n != 0; }},
    Rule{"i", 1, [](RtfFormat& f, int n) { f.Italic = n != 0; }},
    Rule{"ul", 1, [](RtfFormat& f, int n) { f.Underlined = n != 0; }},
    Rule{"ulnone", 0, [](RtfFormat& f, int) { f.Underlined = false; }},
    Rule{"sub", 1, [](RtfFormat& f, int n) { f.Script = n != 0 ? Shift::Subscript : Shift::None; }},
    Rule{"super", 1, [](RtfFormat& f, int n) { f.Script = n != 0 ? Shift::Superscript : Shift::None; }},
    Rule{"nosupersub", 0, [](RtfFormat& f, int) { f.Script = Shift::None; }},
    Rule{"dn", 6, [](RtfFormat& f, int n) { f.Script = n != 0 ? Shift::Lowered : Shift::None; }},
    Rule{"up", 6, [](RtfFormat& f, int n) { f.Script = n != 0 ? Shift::Raised : Shift::None; }},
    Rule{"plain", 0,
         [](RtfFormat& f, int) {
             const RtfParagraph kept = f.Paragraph;
             f = RtfFormat();
             f.Paragraph = kept;
         }},
    Rule{"pard", 0, [](RtfFormat& f, int) { f.Paragraph = RtfParagraph(); }},
    Rule{"ql", 0, [](RtfFormat& f, int) { f.Paragraph.Align = Qt::AlignLeft; }},
    Rule{"qc", 0, [](RtfFormat& f, int) { f.Paragraph.Align = Qt::AlignHCenter; }},
    Rule{"qr", 0, [](RtfFormat& f, int) { f.Paragraph.Align = Qt::AlignRight; }},
    Rule{"qj", 0, [](RtfFormat& f, int) { f.Paragraph.Align = Qt::AlignJustify; }},
    Rule{"li", 0, [](RtfFormat& f, int n) { f.Paragraph.LeftIndent = Bounded(n); }},
    Rule{"ri", 0, [](RtfFormat& f, int n) { f.Paragraph.RightIndent = Bounded(n); }},
    Rule{"fi", 0, [](RtfFormat& f, int n) { f.Paragraph.FirstIndent = Bounded(n); }},
    Rule{"sb", 0, [](RtfFormat& f, int n) { f.Paragraph.SpaceBefore = Bounded(n); }},
    Rule{"sa", 0, [](RtfFormat& f, int n) { f.Paragraph.SpaceAfter = Bounded(n); }}};

void ShiftLetters(QTextCharFormat& letters, Shift shift)
{
    switch (shift) {
    case Shift::None:
        break;
    case Shift::Subscript:
        letters.setVerticalAlignment(QTextCharFormat::AlignSubScript);
        break;
    case Shift::Superscript:
        letters.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        break;
    case Shift::Lowered:
        SetScript(letters, TextScript::Subscript);
        break;
    case Shift::Raised:
        SetScript(letters, TextScript::Superscript);
        break;
    }
}

} // namespace

const RtfTables::Font& RtfTables::FontOf(int number) const
{
    static const Font none{TextFontName, false};
    const auto found = Fonts.constFind(number < 0 ? DefaultFont : number);
    return found == Fonts.constEnd() ? none : *found;
}

bool RtfTables::IsSymbol(int number) const
{
    const Font& font = FontOf(number);
    return font.IsSymbol || IsSymbolFont(font.Name);
}

bool ApplyRtfFormat(std::string_view word, std::optional<int> number, RtfFormat& format)
{
    const auto rule = std::find_if(Rules.begin(), Rules.end(), [word](const Rule& r) { return r.Word == word; });
    if (rule == Rules.end()) return false;
    rule->Apply(format, number.value_or(rule->Alone));
    return true;
}

QTextCharFormat LetterFormat(const RtfFormat& format, const RtfTables& tables)
{
    QTextCharFormat letters;
    const QString& name = tables.FontOf(format.Font).Name;
    letters.setFontFamilies({tables.IsSymbol(format.Font) || name.isEmpty() ? TextFontName : name});
    letters.setFontPointSize(format.HalfPoints / 2.0);
    if (format.Bold) letters.setFontWeight(QFont::Bold);
    if (format.Italic) letters.setFontItalic(true);
    if (format.Underlined) letters.setFontUnderline(true);
    ShiftLetters(letters, format.Script);
    const QColor colour = tables.Colours.value(format.Colour);
    if (colour.isValid()) letters.setForeground(colour);
    return letters;
}

QTextBlockFormat ParagraphFormat(const RtfParagraph& paragraph)
{
    QTextBlockFormat block;
    block.setAlignment(paragraph.Align);
    block.setLeftMargin(paragraph.LeftIndent / TwipsPerPixel);
    block.setRightMargin(paragraph.RightIndent / TwipsPerPixel);
    block.setTextIndent(paragraph.FirstIndent / TwipsPerPixel);
    block.setTopMargin(paragraph.SpaceBefore / TwipsPerPixel);
    block.setBottomMargin(paragraph.SpaceAfter / TwipsPerPixel);
    return block;
}

} // namespace merov::platform
