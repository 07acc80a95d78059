#pragma once

#include "output/print_lib.h"
#include "platform/print_job.h"

#include <QByteArray>
#include <QPageLayout>
#include <QString>
#include <QTextDocument>

#include <functional>
#include <optional>

/// Results as files. A file that is there already is replaced once the new one is complete.

namespace merov::output
{

/// Puts bytes into a file, whole or not at all.
/// @return what went wrong, as a sentence
[[nodiscard]] std::optional<QString> WriteBytes(const QString& file, const QByteArray& bytes);

/// Prints to a PDF file on A4.
/// @param title  among the properties of the file
/// @param page   draws on the job and ends it
/// @return what went wrong, as a sentence
[[nodiscard]] std::optional<QString> WritePdf(const QString& file, const QString& title,
                                              QPageLayout::Orientation orientation,
                                              const std::function<void(platform::PrintJob&)>& page);

/// Writes a text in the form that the name of the file ends in: .pdf as it is printed, .html with its
/// pictures in it, .txt its words.
/// @param text     takes the title among its properties
/// @param margins  of the pages
/// @return what went wrong, as a sentence
[[nodiscard]] std::optional<QString> WriteText(const QString& file, const QString& title, QTextDocument& text,
                                               const PrintMargins& margins);

/// The ending of a file's name in small letters, without its point.
QString Ending(const QString& file);

} // namespace merov::output
