#include "fix/entry_twins.h"

#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace merov::fix
{
namespace
{

using numeric::FormatNumber;

constexpr double MetresPerFoot = 0.3048;

/// A spin button: it steps down from `LowestDown` and up from `HighestUp` at most.
struct Spin {
    EntryField Field;
    double LowestDown;
    double HighestUp;
    double Step;
    std::string_view Pattern;
    std::size_t Width; ///< the text is filled with "_" to this width
};

constexpr std::array<Spin, 6> SpinTable = {{
    {EntryField::Millibars, 941.0, 1069.0, 1.0, "#000", 4},
    {EntryField::InchesHg, 27.86, 31.49, 0.1, "00.00", 0},
    {EntryField::AirCelsius, -49.0, 69.0, 1.0, "##0", 3},
    {EntryField::WaterCelsius, -49.0, 69.0, 1.0, "##0", 3},
    {EntryField::AirFahrenheit, -57.0, 157.0, 1.0, "##0", 3},
    {EntryField::WaterFahrenheit, -57.0, 157.0, 1.0, "##0", 3},
}};

} // namespace

std::optional<EntryTwin> TwinOf(EntryField field, double value)
{
    const auto twin = [](EntryField other, double converted, std::string_view pattern, std::size_t width = 0) {
        return EntryTwin{other, converted, numeric::PadPrompt(FormatNumber(converted, pattern), width)};
    };
    switch (field) {
    case EntryField::HeightMetres:
        return twin(EntryField::HeightFeet, value * numeric::FeetPerMetre, "000.0");
    case EntryField::HeightFeet:
        return twin(EntryField::HeightMetres, value * MetresPerFoot, "00.0");
    case EntryField::AirCelsius:
        return twin(EntryField::AirFahrenheit, numeric::CelsiusToFahrenheit(value), "##0", 3);
    case EntryField::AirFahrenheit:
        return twin(EntryField::AirCelsius, numeric::FahrenheitToCelsius(value), "##0", 3);
    case EntryField::WaterCelsius:
        return twin(EntryField::WaterFahrenheit, numeric::CelsiusToFahrenheit(value), "##0", 3);
    case EntryField::WaterFahrenheit:
        return twin(EntryField::WaterCelsius, numeric::FahrenheitToCelsius(value), "##0", 3);
    case EntryField::Millibars:
        return twin(EntryField::InchesHg, numeric::MillibarToInHg(value), "00.00");
    case EntryField::InchesHg:
        return twin(EntryField::Millibars, numeric::InHgToMillibar(value), "0000");
    default:
        return std::nullopt;
    }
}

std::optional<std::string> StepText(EntryField field, double value, bool up)
{
    const auto spin =
        std::find_if(SpinTable.begin(), SpinTable.end(), [field](const Spin& row) { return row.Field == field; });
    if (spin == SpinTable.end() || (up ? value > spin->HighestUp : value < spin->LowestDown)) return std::nullopt;
    return numeric::PadPrompt(FormatNumber(value + (up ? spin->Step : -spin->Step), spin->Pattern), spin->Width);
}

} // namespace merov::fix
