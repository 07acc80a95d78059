#pragma once

#include "platform/rich_text.h"

#include <QString>

#include <optional>

namespace merov::output
{

/// What stands in a report's template where a value goes; the values go in from the top.
inline const QString TemplateMarker = QStringLiteral("§");

/// Loads a report's template and indents it from the edge of its view.
/// @param markers  that it must have
/// @return what is wrong with it, as a sentence: it cannot be read, or has another number of markers;
///         `text` is then not to be used
[[nodiscard]] std::optional<QString> LoadTemplate(platform::RichText& text, const QString& file, int markers);

} // namespace merov::output
