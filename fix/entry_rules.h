#pragma once

#include "fix/entry_fields.h"
#include "numeric/message_box.h"

#include <optional>
#include <string>
#include <string_view>

/// The rules of the entries: what a text means, whether it is taken, and what the field then shows.
/// A window only mirrors these rules; a file that is loaded goes through them too.

namespace merov::fix
{

/// What a field makes of its text when it is left.
enum class EntryVerdict {
    Empty,      ///< no digit: nothing changes, nothing is said
    Valid,      ///< taken, green
    Suspicious, ///< taken with a warning, orange
    Refused     ///< not taken; the box tells why
};

/// What a rule gives.
struct EntryResult {
    EntryVerdict Verdict = EntryVerdict::Empty;
    double Value = 0.0;              ///< in the field's own unit; 0 unless Valid or Suspicious
    std::optional<numeric::Box> Box; ///< to be shown: for Refused always, for Suspicious too
    std::string Text;                ///< what the field shows from now on
};

/// The rule of a field, run when the field is left.
///
/// Limits, all inclusive: latitude 90, longitude 180 degrees; course 0..360; speed and height 0 or
/// more, as far as the mask holds them, a height in feet as far as its twin in metres holds it; bearing and
/// variation 0..360;
/// correction -99.99..99.99 minutes, suspicious above 60; temperature -50..70 Celsius, -58..158
/// Fahrenheit; pressure 940..1070 millibars, 27.76..31.59 inches. A text that is no number, has a
/// sign where there can be none, or does not fit the mask is refused, so that a value is never read
/// from a part of what the field shows.
///
/// A longitude interval of 0 is refused; a maximum latitude counts north, an interval east. What has no
/// limit here ends where its mask does.
///
/// After a refusal the text is "_" and the text without its last character; positions keep theirs, and
/// course and distance of a track, bearing and variation have "_" in place of their last character. The default
/// correction is shown anew through "+00.00;-00.00".
/// @param field  any but the editors of the grid
EntryResult CheckEntry(EntryField field, std::string_view text);

/// The same for a value that comes from a file: it is first brought into the text in which a load
/// shows it, and Value is what that text says. So a latitude counts to 0'.1, a course, speed and
/// height to 0.1, a correction to 0'.01, a temperature or pressure to the whole number.
/// @param value  finite; a longitude may also count 0..360 eastward
EntryResult CheckValue(EntryField field, double value);

/// The altitude cell of the grid, when its editor is left. Valid: Value in degrees 0..90, Text
/// through "00°00'.0". Refused: the cell keeps the raw text and turns red.
EntryResult CheckAltitudeCell(std::string_view text);

/// The correction cell of the grid, when its editor is left. Never refused: Value in minutes is cut
/// to -99.99..99.99, a text that is no number counting as 999; Text through "+00.00;-00.00".
EntryResult CheckCorrectionCell(std::string_view text);

/// Altitude in degrees, 0..90, that a cell of the grid says; nothing for a text that lacks the
/// editor's layout or its limits, which must not be taken for some other angle.
std::optional<double> ReadAltitudeCell(std::string_view text);

/// Correction in minutes, -99.99..99.99, that a cell of the grid says; nothing for any other text.
std::optional<double> ReadCorrectionCell(std::string_view text);

/// The texts in which a file's altitude and correction (both degrees) are shown in the grid. They
/// may lie outside the limits; reading the grid then refuses them.
std::string AltitudeCellText(double altitude);
std::string CorrectionCellText(double instCorr);

} // namespace merov::fix
