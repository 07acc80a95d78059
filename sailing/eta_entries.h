#pragma once

#include "sailing/eta_table.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// The entries of the table of arrivals: what their texts mean, whether they are taken, and what the fields
/// then show. A window only mirrors them.
///
/// In a mask "#" is a digit and the rest stands as it is; an unfilled place shows "_".

namespace merov::sailing
{

enum class EtaField {
    Distance, ///< to go, miles
    MinSpeed, ///< knots
    MaxSpeed, ///< knots
    Interval  ///< between two speeds, knots
};

constexpr std::size_t EtaFieldCount = 4;

/// Name of the control, such as "mskDTG".
std::string_view ControlName(EtaField field);

/// The mask, and the text of the field as it starts and after a reset: no distance, 10 to 24 knots by 0.5.
/// Both with the decimal separator in force.
std::string EtaMask(EtaField field);
std::string EtaResetText(EtaField field);

/// A zone in which times of departure and arrival can stand.
struct EtaZone {
    std::string_view Name; ///< "GMT +05 3/4"
    int Hundredths;        ///< of an hour east of Greenwich, 575
};

/// The zones as the lists show them, from +14 to -12 hours, and the place of "GMT" among them.
std::span<const EtaZone> EtaZones();
constexpr std::size_t EtaGmtZone = 24;

/// The entries of the page.
struct EtaEntries {
    std::array<std::string, EtaFieldCount> Texts; ///< by EtaField, as the fields show them
    EtaInput Input;                               ///< the values of the fields, and what else the page tells

    /// The speeds were found in the wrong order: the text that is left next passes if it still is as it was
    /// then, so that one mistake isn't told twice.
    bool SkipSpeedCheck = false;
    std::array<std::string, EtaFieldCount> TextsThen; ///< when SkipSpeedCheck was set

    std::string& Text(EtaField field) { return Texts[static_cast<std::size_t>(field)]; }
    double& Value(EtaField field);
};

/// Sets a field's value and text to those of the start. Nothing is checked.
void ResetEtaField(EtaEntries& entries, EtaField field);

/// The rule of a field, run when it is left. A speed must be above 0 and in order with the other one, an
/// interval above 0 and not greater than the range of speeds; a distance must not be negative, and an empty
/// one is 0. An empty speed or interval leaves the value as it was.
///
/// A refusal shows its box and puts "_" for the last character of the text. The value then is that of the
/// other speed, or for an interval the limit that it missed (at the lower end 0.1).
/// @return false for a refusal, after which the field keeps the focus
bool LeaveEtaField(EtaEntries& entries, EtaField field);

/// One step of a field's spin button: 1 knot for a speed, within 1..999, 0.5 knot for the interval, within
/// 0.5..99; none beyond. The text takes the new value, and the field is left.
/// @param field  not Distance
/// @return as LeaveEtaField; true where there is no step
bool StepEtaField(EtaEntries& entries, EtaField field, bool up);

} // namespace merov::sailing
