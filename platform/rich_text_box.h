#pragma once

#include "platform/rich_text.h"

#include <QString>
#include <QTextEdit>

#include <optional>

namespace merov::platform
{

/// The view of a report or document. What it shows is made elsewhere, as a RichText, and handed over.
class RichTextBox : public QTextEdit
{
public:
    /// Read-only and empty: black on white like the paper it is printed on, whatever the desktop's
    /// colours. The user can select and copy.
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Shows a text, scrolled to its top, nothing selected. The text handed over is left empty.
    void Show(RichText&& text);

    /// Shows a file.
    /// @return what is wrong with the file, as a sentence; what was shown before then stays
    [[nodiscard]] std::optional<QString> LoadFile(const QString& path);

    /// Scrolls a position into sight and puts the user's cursor there, with nothing selected. Positions
    /// are those of RichText; what lies outside the text is cut.
    void ShowPosition(int position);
};

} // namespace merov::platform
