#pragma once

#include "platform/text_styles.h"

#include <QColor>
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>
#include <optional>

namespace merov::platform
{

/// A rich text in the making, without a view: loads a file, and lets a report replace its markers and put
/// in text of its own. Nothing is laid out until a view or a page asks for it, which makes hundreds of
/// changes as cheap as their letters.
///
/// Positions count the characters from the top; the end of a paragraph and a picture are one each. The
/// formats that are set hold for the selected text and for the next text put in; behind replaced text
/// they go on as they are. A text that has been moved from can only be assigned to or destroyed.
class RichText
{
public:
    RichText();

    /// Takes the text of a file; nothing is selected and the next text goes in at the top.
    /// @return what is wrong with the file, as a sentence; the text is then as before
    [[nodiscard]] std::optional<QString> LoadFile(const QString& path);

    QTextDocument& Document() { return *document_; }
    const QTextDocument& Document() const { return *document_; }

    /// Hands the text over; an empty one is left.
    std::unique_ptr<QTextDocument> Take();

    /// Where a text begins that stands at `from` or behind, capital and small letters distinguished;
    /// -1 when there is none. It is not looked for across the ends of paragraphs.
    int Find(const QString& text, int from = 0) const;

    /// Selects a part; what lies outside the text is cut. Formats are those of its first character;
    /// with `length` 0, those of the character before it.
    void Select(int start, int length);

    void SelectAll();

    int SelectionStart() const { return selection_.selectionStart(); }

    /// The selected text, paragraphs apart by "\n", broken lines by "\v", a picture as U+FFFC.
    QString SelectedText() const;

    /// Replaces the selected text, or puts text in where nothing is selected, and stands behind it with
    /// nothing selected. "\n" and "\r\n" begin a paragraph like the present one, "\v" breaks the line.
    void SetSelectedText(const QString& text);

    /// Replaces the first marker from the top, with the marker's formats.
    /// @return false when there is none; nothing changes then
    bool ReplaceMarker(const QString& marker, const QString& text);

    void SetColour(const QColor& colour);

    /// With "Symbol", the text put in from then on appears in Greek letters and signs of the text's
    /// font (see SymbolText), until another font is set or something is selected.
    void SetFontName(const QString& name);

    /// @param points above 0
    void SetFontSize(double points);

    void SetBold(bool on);
    void SetItalic(bool on);
    void SetUnderline(bool on);

    /// Lowers or raises letters in the size that is set.
    void SetScript(TextScript script);

    void SetParagraphAlignment(Qt::Alignment alignment);

    /// @param twips from the left margin to the text, or to its bullet
    void SetIndent(double twips);

    /// @param twips from the bullet to the text
    void SetBullet(double twips);

    void EndBullet();

private:
    void Format(const QTextCharFormat& change);

    std::unique_ptr<QTextDocument> document_;
    QTextCursor selection_;
    QTextCharFormat nextFormat_; ///< of the text put in next
    bool symbolOn_ = false;
};

} // namespace merov::platform
