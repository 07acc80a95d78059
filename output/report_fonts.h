#pragma once

/// Fonts of the reports, sizes in points.

namespace merov::output
{

constexpr const char* LetterFont = "Arial";
constexpr const char* CodeFont = "Courier New"; ///< letters of one width, for what stands in columns
constexpr double LetterSize = 12.0;
constexpr double IndexSize = 8.0; ///< of letters below the line
constexpr double GapSize = 6.0;   ///< of empty lines within a block

} // namespace merov::output
