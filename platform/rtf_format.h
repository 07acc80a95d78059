#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>

#include <optional>
#include <string_view>

/// The formatting state of a rich text file: what its control words set, and the Qt formats that come
/// of it. Numbers are held as the file gives them (half-points, twips), cut to sensible bounds.

namespace merov::platform
{

/// The tables at the head of a rich text file.
struct RtfTables {
    struct Font {
        QString Name;
        bool IsSymbol = false; ///< of the symbol character set
    };
    QHash<int, Font> Fonts;
    int DefaultFont = 0;
    QList<QColor> Colours; ///< an invalid one is the colour of the view's text

    const Font& FontOf(int number) const;
    bool IsSymbol(int number) const;
};

struct RtfParagraph {
    Qt::Alignment Align = Qt::AlignLeft;
    int LeftIndent = 0; ///< twips, as are all of these
    int RightIndent = 0;
    int FirstIndent = 0; ///< of the first line, relative to LeftIndent
    int SpaceBefore = 0;
    int SpaceAfter = 0;
    bool operator==(const RtfParagraph&) const = default;
};

struct RtfFormat {
    enum class Shift { None, Subscript, Superscript, Lowered, Raised }; ///< the last two keep their size
    int Font = -1;                                                      ///< -1: the default font
    int HalfPoints = 24;
    int Colour = 0;
    bool Bold = false;
    bool Italic = false;
    bool Underlined = false;
    Shift Script = Shift::None;
    RtfParagraph Paragraph;
    bool operator==(const RtfFormat&) const = default;
};

/// Applies a control word that sets the format of letters or paragraphs.
/// @param number of the word; one that is missing means the word's own default
/// @return false for any other word
bool ApplyRtfFormat(std::string_view word, std::optional<int> number, RtfFormat& format);

/// The format of letters. Fonts of the symbol set become the font of the text, see SymbolLetter; a font
/// or colour that is in no table becomes that of the text.
QTextCharFormat LetterFormat(const RtfFormat& format, const RtfTables& tables);

/// The format of a paragraph. With a bullet, the negative indent of its first line is the bullet's.
QTextBlockFormat ParagraphFormat(const RtfParagraph& paragraph);

} // namespace merov::platform
