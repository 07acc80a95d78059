#pragma once

#include "platform/rtf_document.h"
#include "platform/rtf_reader.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <cmath>
#include <string>
#include <string_view>

/// What must hold for any bytes that come as a rich text; the fuzz target and the replay of its finds share it.

namespace merov::test
{

inline bool IsPlainLetter(QChar letter)
{
    return letter.unicode() >= 32 || letter == u'\t' || letter == u'\n';
}

/// A paragraph's margins, and the sizes of its letters, are such that a page can hold them.
inline bool CanBeLaidOut(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    for (const double size :
         {format.leftMargin(), format.rightMargin(), format.textIndent(), format.topMargin(), format.bottomMargin()})
        if (!(std::fabs(size) < 5000.0)) return false;
    for (auto part = block.begin(); !part.atEnd(); ++part)
        if (const double size = part.fragment().charFormat().fontPointSize(); !(size >= 0.0 && size <= 500.0))
            return false;
    return true;
}

/// Reads bytes as a rich text: they are refused with a sentence, or give a text within the reader's bounds.
/// @return what is wrong, empty when all holds
inline std::string CheckRichText(std::string_view bytes)
{
    const platform::RtfReading reading =
        platform::ReadRtf(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (const QString* refusal = std::get_if<QString>(&reading))
        return refusal->endsWith(u'.') ? "" : "the refusal is no sentence: " + refusal->toStdString();
    const QTextDocument& document = *std::get<std::unique_ptr<QTextDocument>>(reading);
    if (document.blockCount() > platform::MostRtfParagraphs + 1) return "too many paragraphs";
    if (document.characterCount() > static_cast<int>(bytes.size())) return "more letters than bytes";
    for (const QChar letter : document.toPlainText())
        if (!IsPlainLetter(letter)) return "a control character is in the text";
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (!CanBeLaidOut(block)) return "paragraph " + std::to_string(block.blockNumber() + 1) + " cannot be laid out";
    return {};
}

} // namespace merov::test
