#pragma once

#include "fix/sight_session.h"
#include "platform/rich_text.h"
#include "sailing/ellipsoid.h"

#include <QString>

#include <optional>

namespace merov::output
{

/// The report of a finished fix: its template with the markers replaced, and a block per sight.
///
/// The sights of `session` are rebuilt as the report sees them (fix::BuildReportView) and stay so.
/// @param text          takes the report; what stood in it before goes
/// @param templateFile  path of NumResults.rtf
/// @param session       a finished fix whose report has not been built before: index 0 of its positions is
///                      still the estimated position, run with course and speed as typed
/// @param earth         that the fix was computed on
/// @param linesPerPage  of the printer, lines of Arial 12; the blocks of the sights then begin on the
///                      page behind the results. 0 without a printer: they follow at once
/// @return what is wrong with the template, as a sentence: it cannot be read, or has not the 33 markers
///         that the values go to in order. Text and session are then as they were. Faults of the
///         arithmetic go to the caller
[[nodiscard]] std::optional<QString> BuildNumericReport(platform::RichText& text, const QString& templateFile,
                                                        fix::SightSession& session, const sailing::EarthModel& earth,
                                                        int linesPerPage);

} // namespace merov::output
