#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The masked entry fields of an astro fix, of the sailings and of the check of the compasses: their control
/// names, masks and blank texts.
///
/// In a mask "#" is a digit, "9" an optional digit or sign, "?" a letter, "&" any character, and the
/// rest stands as it is. An unfilled place shows "_". Positions count characters from 0.

namespace merov::fix
{

/// The fields of the input tabs, then the two masked editors of the observation grid, then those of the
/// sailings and of the compasses. All positions have the layout and the rule of the estimated position.
enum class EntryField {
    Latitude,        ///< "45°30'.2 N"
    Longitude,       ///< "008°15'.0 W"
    Course,          ///< degrees true, "270°.0"
    Speed,           ///< knots
    HeightMetres,    ///< height of eye
    HeightFeet,      ///< its twin
    InstCorr,        ///< default instrument correction, minutes of arc, "-02.50"
    AirCelsius,      ///< air temperature
    AirFahrenheit,   ///< its twin
    WaterCelsius,    ///< water temperature
    WaterFahrenheit, ///< its twin
    Millibars,       ///< atmospheric pressure
    InchesHg,        ///< its twin
    CellAltitude,    ///< editor of the altitude column, "35°15'.0"
    CellCorrection,  ///< editor of the correction column, minutes of arc
    MaxLatitude,     ///< of a great circle, without hemisphere, "45°30'"
    LongInterval,    ///< between waypoints, by 10', "05°30'"
    TrackCourse,     ///< of a rhumb line, degrees true
    TrackDistance,   ///< of a rhumb line, miles
    Bearing,         ///< what a compass shows of a body or a heading, degrees
    Variation        ///< magnetic variation without its sign, degrees
};

/// Number of the fields of the input tabs: those before CellAltitude.
constexpr std::size_t EntryFieldCount = 13;

/// Name of the control, such as "mskLat(5)".
std::string_view ControlName(EntryField field);

/// What the field holds, as messages call it: "latitude", "eye height".
std::string_view EntryName(EntryField field);

/// The mask and the text of the erased field, with the decimal separator in force.
std::string EntryMask(EntryField field);
std::string EntryBlank(EntryField field);

/// True when the text holds a digit beside those of the field's mask: a field without one counts as empty.
bool HasDigit(EntryField field, std::string_view text);

/// `text` as the field's mask holds it: one that is too short is filled with "_" on the left, and a
/// point or a comma in the separator's place becomes the separator in force. Nothing for a text that
/// does not fit the mask. Where the field is an angle, "9" takes no sign.
std::optional<std::string> FitToMask(EntryField field, std::string_view text);

/// What a key types at a position of a field: in the hemisphere's place "+" and "n" give "N", "-" and
/// "s" give "S" (longitude "+" "e" "E", "-" "w" "W"); in the altitude editor "9" at position 0 and
/// "6" to "9" at position 3 give 0, which types nothing. Any other key gives itself.
char MapKey(EntryField field, int position, char key);

} // namespace merov::fix
