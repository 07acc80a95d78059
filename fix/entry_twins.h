#pragma once

#include "fix/entry_fields.h"

#include <optional>
#include <string>

/// Fields that hold one value in two units, and the steps of the spin buttons.

namespace merov::fix
{

/// The other field of a unit pair: metres and feet, Celsius and Fahrenheit, millibars and inches.
struct EntryTwin {
    EntryField Field;
    double Value;     ///< in the twin's unit
    std::string Text; ///< what the twin shows
};

/// The twin of a field that has just taken `value`; nothing for a field without a twin.
std::optional<EntryTwin> TwinOf(EntryField field, double value);

/// The text after one step of the field's spin button, which the field's rule then checks.
/// Temperatures go by 1 degree, millibars by 1, inches of mercury by 0.1.
/// @param value  the field's present value in its own unit
/// @return nothing at the end of the range, and for a field without a spin button
std::optional<std::string> StepText(EntryField field, double value, bool up);

} // namespace merov::fix
