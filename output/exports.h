#pragma once

#include "fix/sight_session.h"
#include "sailing/ellipsoid.h"
#include "sailing/voyage.h"

#include <QString>

#include <optional>

/// The report and the chart of a fix, and the report of a voyage, as files, made by the same routines as on the screen
/// and on paper. A QGuiApplication must exist, since texts are measured.

namespace merov::output
{

/// Writes the report of a finished fix: .pdf as it is printed on A4, .html with the picture in it, .txt
/// its words. A file that is there already is replaced once the new one is complete.
/// @param file     ends in .pdf, .html or .txt, in small or capital letters
/// @param appPath  folder of NumResults.rtf
/// @return what went wrong, as a sentence. Faults of the arithmetic go to the caller
[[nodiscard]] std::optional<QString> WriteReport(const QString& file, const QString& appPath, fix::SightSession session,
                                                 const sailing::EarthModel& earth);

/// Writes the chart of a finished fix in the size it starts with: .pdf the printed sheet with its legend on
/// A4, .png and .svg as on a screen of 1280 by 800.
/// @param file  ends in .pdf, .png or .svg, in small or capital letters
/// @return what went wrong, as a sentence; an empty one where a box has told it. Faults of the arithmetic
///         go to the caller
[[nodiscard]] std::optional<QString> WriteChart(const QString& file, fix::SightSession session,
                                                const sailing::EarthModel& earth);

/// Writes the report of a voyage on the ellipsoid in force, in the forms of WriteReport.
/// @param voyage   one that was not refused
/// @param appPath  folder of CalcWP.rtf
/// @return what went wrong, as a sentence
[[nodiscard]] std::optional<QString> WriteSailingReport(const QString& file, const QString& appPath,
                                                        const sailing::Voyage& voyage,
                                                        const sailing::EarthModel& earth);

} // namespace merov::output
