#pragma once

#include "output/sailing_outline.h"
#include "platform/rich_text.h"
#include "sailing/voyage.h"

#include <QString>

#include <optional>

namespace merov::output
{

/// The report of a voyage: its template with the markers replaced, and what follows the waypoints.
///
/// @param text           takes the report; what stood in it before goes
/// @param templateFile   path of CalcWP.rtf
/// @param voyage         one that was not refused
/// @param ellipsoidName  as the pages show it
/// @param earth          that the voyage was planned on; on the Normal Sphere miles are geographical ones
/// @return what is wrong with the template, as a sentence: it cannot be read, or has not the 11 markers
///         that the values go to in order. `text` is then as it was
[[nodiscard]] std::optional<QString> BuildSailingReport(platform::RichText& text, const QString& templateFile,
                                                        const sailing::Voyage& voyage, const QString& ellipsoidName,
                                                        const sailing::EarthModel& earth);

} // namespace merov::output
