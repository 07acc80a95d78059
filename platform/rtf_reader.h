#pragma once

#include <QByteArray>
#include <QString>
#include <QTextDocument>

#include <memory>
#include <variant>

/// Rich text files (Rich Text Format 1.9, letters in code page 1252 or as \u) as documents that a view
/// shows and a printer prints.
///
/// Read are fonts, sizes, bold, italic, underline, colours, sub- and superscript; alignment, indents
/// and spacing of paragraphs; list labels, PNG pictures, tabs, dashes and quotes. Letters of the font
/// "Symbol" become Unicode. Tables, fields, headers and whatever else a word processor may write is
/// skipped, the text in it kept where it is text of the page.

namespace merov::platform
{

/// Largest file that is read, bytes. The program's own take less than 20000.
constexpr qint64 LargestRtfFile = 2 << 20;

/// Deepest nesting of groups that is read.
constexpr int DeepestRtfGroup = 200;

/// What reading gives: the document, or why there is none, as one sentence for a box.
using RtfReading = std::variant<std::unique_ptr<QTextDocument>, QString>;

/// Reads a rich text. Refused, with a sentence each, are: another kind of file, braces that do not
/// match, a file that ends early, character codes and pictures that are no hexadecimal digits, damaged
/// or huge pictures, and what is longer or nested deeper than the bounds.
RtfReading ReadRtf(const QByteArray& bytes);

/// Reads a file; one that is missing, unreadable or too large is refused too.
RtfReading ReadRtfFile(const QString& path);

} // namespace merov::platform
