#pragma once

#include "platform/text_styles.h"

#include <QColor>
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>

#include <optional>

/// The view of a report or document: loads rich text files, and lets a report replace markers and put
/// in text of its own.
///
/// Reports work on a selection of their own, which never shows. Positions count the characters from the
/// top; the end of a paragraph and a picture are one each. The formats that are set hold for the
/// selected text and for the next text put in; behind replaced text they go on as they are.

namespace merov::platform
{

class RichTextBox : public QTextEdit
{
public:
    /// Read-only and empty: black on white like the paper it is printed on, whatever the desktop's
    /// colours. The user can select and copy.
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Shows a file, scrolled to its top; nothing is selected and the next text goes in at the top.
    /// @return what is wrong with the file, as a sentence; what was shown before then stays
    [[nodiscard]] std::optional<QString> LoadFile(const QString& path);

    /// Where a text begins that stands at `from` or behind, capital and small letters distinguished;
    /// -1 when there is none. It is not looked for across the ends of paragraphs.
    int Find(const QString& text, int from = 0) const;

    /// Selects a part; what lies outside the text is cut. Formats are those of its first character;
    /// with `length` 0, those of the character before it.
    void Select(int start, int length);

    void SelectAll();

    int SelectionStart() const { return Selection.selectionStart(); }

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

    /// Scrolls a position into sight and puts the user's cursor there, with nothing selected.
    void ShowPosition(int position);

private:
    void Format(const QTextCharFormat& change);

    QTextCursor Selection;
    QTextCharFormat NextFormat; ///< of the text put in next
    bool SymbolOn = false;
};

} // namespace merov::platform
