#pragma once

#include <string>
#include <string_view>

/// The text forms of numbers, angles and positions: what masked entries hold, what reports show.
///
/// Texts are UTF-8; positions in a text count characters, not bytes.

namespace merov::numeric
{

/// The character between the whole and the decimal part of a number on screens and in reports, as
/// UTF-8. A point until SetDecimalSeparator is called, which start-up does once from the locale.
const std::string& DecimalSeparator();
void SetDecimalSeparator(std::string separator);

// What a parser returns for a text that is no valid entry; never valid results.
constexpr double BeyondRange = 997.0;   ///< ParseLat, ParseLong: beyond 90 or 180 degrees
constexpr double BadMinutes = 998.0;    ///< ParseLat, ParseLong: minutes above 59; ParseCourse: negative
constexpr double BadHemisphere = 999.0; ///< ParseLat, ParseLong: no hemisphere letter
constexpr double NegativeCourse = 998.0;
constexpr double CourseAbove360 = 999.0;
constexpr double NotNumeric = 999.0; ///< ParseNumber: not a number

/// Latitude in signed degrees from the text of a latitude entry, "45°30'.2 N"; unfinished digits
/// ("_") count as blanks. 999 for a wrong hemisphere letter (looked at first), 998 for minutes above
/// 59, 997 for more than 90 degrees.
double ParseLat(std::string_view text);

/// Longitude from the text of a longitude entry, "008°15'.0 W"; unfinished digits count as 0.
/// @param eastPositive  true gives 0..360 eastward for a west longitude, false gives -180..180
/// Codes as ParseLat, with 180 as the limit.
double ParseLong(std::string_view text, bool eastPositive);

/// The number in a course entry, "270°.5": "°" and "_" are dropped. 999 above 360, 998 if negative.
double ParseCourse(std::string_view text);

/// The number in an entry that cannot be negative: "_" is dropped. -1.0 if it is negative.
double ParseUnsigned(std::string_view text);

/// The number in a signed entry: "_" is dropped. 999 if the rest isn't a number.
double ParseNumber(std::string_view text);

/// `value` through a number pattern.
///
/// "0" is a digit that always shows, "#" one that shows only if significant, "." the place of the
/// decimal separator; a ";" divides the pattern for positive numbers from that for negative ones;
/// any other character stands as it is. Digits fill the whole-number places from the right, surplus
/// ones stand in front of the first place. The value is rounded half away from zero on its decimal
/// form with 15 digits. The sign of the value itself picks the pattern, so -0.04 through "+0.0;-0.0" is
/// "-0.0"; a pattern for all numbers shows a value that rounds to zero without a minus sign.
/// @param value    any finite number; a value that isn't finite shows as the pattern of 0
/// @param pattern  such as "000°.0", "##0.0", "+00.00;-00.00"
std::string FormatNumber(double value, std::string_view pattern);

/// Degrees and minutes through a pattern such as "00°00'.0", "000°00'.0", "+0°00'.0;-0°00'.0" or
/// "00°00'": the packed form DegToDM(x) * 100, rounded to the last place shown and then carried, so
/// that minutes never show as 60. In the three-digit pattern 360 degrees show as 0.
std::string FormatDegMin(double x, std::string_view pattern);

/// "45°30'.2 N". @param x  degrees, -90..90; negative is south
std::string FormatLat(double x);

/// "008°15'.0 W". @param x  degrees, -180..360 east positive; others are first brought to -180..180
std::string FormatLong(double x);

/// The number of characters of a UTF-8 text, and a text without its blanks at both ends.
std::size_t CountCharacters(std::string_view text);
std::string_view TrimBlanks(std::string_view text);

/// The layout of an entry, such as "##s#", with the decimal separator in the place of its first 's'.
std::string WithSeparator(std::string_view layout);

/// `text` filled up with '_' on the left to `width` characters, as entries show an unfilled mask.
std::string PadPrompt(std::string_view text, std::size_t width);

} // namespace merov::numeric
