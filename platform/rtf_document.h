#pragma once

#include "platform/rtf_format.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <optional>

/// The document that grows while a rich text file is read: runs of letters in one format, paragraphs,
/// bullets and pictures, within bounds that keep a hostile file from eating the machine's memory.

namespace merov::platform
{

constexpr int MostRtfParagraphs = 20'000;
constexpr int MostRtfRuns = 100'000; ///< pieces of text of one format

/// Picture elements in all pictures of a document together.
constexpr qint64 MostRtfPixels = 4'000'000;

class RtfDocument
{
public:
    /// @param document empty, to be filled; both must outlive this object
    RtfDocument(QTextDocument& document, const RtfTables& tables);

    /// Adds a UTF-16 unit in a format. Control characters but the tab, the separators of paragraphs and
    /// lines are dropped.
    void PutLetter(char16_t letter, const RtfFormat& format);

    /// Adds the label of a list in front of a paragraph: one sign makes it a bulleted paragraph, a
    /// number or letter stands as text.
    void PutLabel(const QString& label, const RtfFormat& format);

    /// Breaks the line within a paragraph.
    void BreakLine(const RtfFormat& format);

    /// Ends a paragraph. The next one begins only with what comes behind it, so the end of a paragraph
    /// at the end of the file leaves no empty one.
    void EndParagraph(const RtfFormat& format);

    /// Adds a picture.
    /// @param png  the file's bytes
    /// @param goal its size in twips; an empty one means a pixel for each of its own
    /// @return false for one that is damaged or too large
    bool PutPicture(const QByteArray& png, QSize goal, const RtfFormat& format);

    /// Puts in what is still held back. Needed once, at the end.
    void Finish();

    /// True once the bounds are passed. What is put in after that is dropped.
    bool IsFull() const { return Paragraphs > MostRtfParagraphs || Runs > MostRtfRuns; }

private:
    void Begin(const RtfFormat& format);
    void Flush();
    void ShapeParagraph(const RtfFormat& format);

    QTextDocument& Target;
    const RtfTables& Tables;
    QTextCursor Cursor;
    QString Run;
    RtfFormat RunFormat;
    std::optional<RtfParagraph> Shaped; ///< what the present paragraph was last given
    bool Bulleted = false;              ///< the present paragraph is to have a bullet
    bool BreakPending = false;
    int Paragraphs = 1;
    int Runs = 0;
    int Pictures = 0;
    qint64 Pixels = 0;
};

} // namespace merov::platform
