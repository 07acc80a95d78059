#include "fix/entry_rules.h"

#include "fix/entry_twins.h"
#include "numeric/inout_lib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace merov::fix
{
namespace
{

using numeric::DecimalSeparator;
using numeric::FormatNumber;

constexpr std::string_view CorrectionPattern = "+00.00;-00.00";
constexpr std::string_view AltitudePattern = "00°00'.0";
constexpr double LargestCorrection = 99.99;   // minutes
constexpr double SuspiciousCorrection = 60.0; // minutes

/// Limits of a temperature or a pressure, and how messages write them.
struct Limits {
    EntryField Field;
    double Low;
    double High;
    std::string_view LowText; ///< a point between digits is shown as the decimal separator
    std::string_view HighText;
};

constexpr std::array<Limits, 6> LimitTable = {{
    {EntryField::AirCelsius, -50.0, 70.0, "-50°C.", "+70°C."},
    {EntryField::WaterCelsius, -50.0, 70.0, "-50°C.", "+70°C."},
    {EntryField::AirFahrenheit, -58.0, 158.0, "-58°F.", "+158°F."},
    {EntryField::WaterFahrenheit, -58.0, 158.0, "-58°F.", "+158°F."},
    {EntryField::Millibars, 940.0, 1070.0, "940 mbars.", "1070 mbars."},
    {EntryField::InchesHg, 27.76, 31.59, "27.76 inHg.", "31.59 inHg."},
}};

const Limits& LimitsOf(EntryField field)
{
    return *std::find_if(LimitTable.begin(), LimitTable.end(),
                         [field](const Limits& row) { return row.Field == field; });
}

/// `text` without any of the given piece.
std::string Without(std::string text, std::string_view piece)
{
    for (std::size_t hit; (hit = text.find(piece)) != std::string::npos;)
        text.erase(hit, piece.size());
    return text;
}

std::string WithoutLastCharacter(std::string text)
{
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((byte & 0xC0) != 0x80) break;
    }
    return text;
}

/// True for a sign or none, digits, and at most one decimal separator among them, when the prompts
/// and the degree sign are left out. The parsers read no further than the first character that does
/// not belong to a number.
bool IsDecimal(std::string_view entry)
{
    std::string text = Without(Without(std::string(entry), "_"), "°");
    const std::size_t separator = text.find(DecimalSeparator());
    if (separator != std::string::npos) text.erase(separator, DecimalSeparator().size());
    if (text.starts_with('+') || text.starts_with('-')) text.erase(0, 1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

EntryResult Taken(double value, std::string text)
{
    return {EntryVerdict::Valid, value, std::nullopt, std::move(text)};
}

/// A refusal; the field keeps its text.
EntryResult RefusedAsItIs(std::vector<std::string> lines, std::string text)
{
    numeric::Box box{" Error in input data", std::move(lines), numeric::BoxIcon::Warning, numeric::BoxButtons::Ok};
    return {EntryVerdict::Refused, 0.0, std::move(box), std::move(text)};
}

EntryResult RefusedAsItIs(std::string line, std::string text)
{
    return RefusedAsItIs(std::vector<std::string>{std::move(line)}, std::move(text));
}

/// A refusal; the last character of the text goes and all others move on by one.
EntryResult RefusedAndShifted(std::string line, const std::string& text)
{
    return RefusedAsItIs(std::move(line), "_" + WithoutLastCharacter(text));
}

/// True for the positions, whose text stands after a refusal.
bool KeepsRefusedText(EntryField field)
{
    return field == EntryField::Latitude || field == EntryField::Longitude || field == EntryField::MaxLatitude ||
           field == EntryField::LongInterval;
}

/// True for the fields in which a refusal empties the last place and moves nothing.
bool LosesLastPlace(EntryField field)
{
    return field == EntryField::TrackCourse || field == EntryField::TrackDistance || field == EntryField::Bearing ||
           field == EntryField::Variation;
}

std::string NotValid(EntryField field)
{
    return "The " + std::string(EntryName(field)) + " is not valid.";
}

/// @param whole  the text with all places of a latitude
EntryResult CheckLatitude(const std::string& text, const std::string& whole)
{
    const double value = numeric::ParseLat(whole);
    if (value == numeric::BeyondRange) return RefusedAsItIs("Latitude > 90°.", text);
    if (value == numeric::BadMinutes) return RefusedAsItIs("The latitude has more than 59'.", text);
    if (value == numeric::BadHemisphere) return RefusedAsItIs("A latitude can only be N (North) or S (South).", text);
    return Taken(value, text);
}

EntryResult CheckLongitude(const std::string& text, const std::string& whole)
{
    const double value = numeric::ParseLong(whole, false);
    if (value == numeric::BeyondRange) return RefusedAsItIs("Longitude > 180°.", text);
    if (value == numeric::BadMinutes) return RefusedAsItIs("The longitude has more than 59'.", text);
    if (value == numeric::BadHemisphere) return RefusedAsItIs("A longitude can only be W (West) or E (East).", text);
    return Taken(value, text);
}

EntryResult CheckLongInterval(const std::string& text)
{
    const EntryResult result = CheckLongitude(text, "_" + text + DecimalSeparator() + "0 E");
    if (result.Verdict == EntryVerdict::Valid && result.Value == 0.0)
        return RefusedAsItIs("You entered a longitude interval of 00°00'...", text);
    return result;
}

EntryResult CheckCourse(const std::string& text)
{
    const double value = numeric::ParseCourse(text);
    if (value == numeric::NegativeCourse) return RefusedAndShifted("Negative Course.", text);
    if (value == numeric::CourseAbove360) return RefusedAndShifted("Course > 360°", text);
    return Taken(value, text);
}

EntryResult CheckBearing(const std::string& text)
{
    const double value = numeric::ParseCourse(text);
    if (value == numeric::NegativeCourse) return RefusedAsItIs("Negative bearing or heading.", text);
    if (value == numeric::CourseAbove360) return RefusedAsItIs("Bearing or heading > 360°", text);
    return Taken(value, text);
}

EntryResult CheckVariation(const std::string& text)
{
    const double value = numeric::ParseCourse(text);
    if (value == numeric::NegativeCourse)
        return RefusedAsItIs(std::vector<std::string>{"Don't enter a negative value for the variation.",
                                                      "Choose de W/- option button instead."},
                             text);
    if (value == numeric::CourseAbove360) return RefusedAsItIs(NotValid(EntryField::Variation), text);
    return Taken(std::fabs(value), text);
}

EntryResult CheckSpeed(const std::string& text)
{
    const double value = numeric::ParseUnsigned(text);
    return value < 0.0 ? RefusedAndShifted("Your speed is negative.", text) : Taken(value, text);
}

EntryResult CheckDistance(const std::string& text)
{
    const double value = numeric::ParseUnsigned(text);
    return value < 0.0 ? RefusedAndShifted("Negative distance.", text) : Taken(value, text);
}

EntryResult CheckHeight(EntryField field, const std::string& text)
{
    const double value = numeric::ParseUnsigned(text);
    if (value < 0.0) return RefusedAndShifted("The eye height is negative.", text);
    // A height in feet that the field in metres cannot show would be another one after a save.
    if (field == EntryField::HeightFeet && !FitToMask(EntryField::HeightMetres, TwinOf(field, value)->Text))
        return RefusedAndShifted(NotValid(field), text);
    return Taken(value, text);
}

EntryResult CheckInstCorr(const std::string& text)
{
    const double value = numeric::ParseNumber(text);
    if (std::fabs(value) > LargestCorrection)
        return RefusedAndShifted("The instrumental correction is not valid. Try again please.", text);
    EntryResult result = Taken(value, FormatNumber(value, CorrectionPattern));
    if (std::fabs(value) > SuspiciousCorrection) {
        result.Verdict = EntryVerdict::Suspicious;
        result.Box = numeric::Box{"Probable error in input data",
                                  {"Are you sure the instrumental correction is higher than 1° ?",
                                   " I suggest you throw your sextant overboard."},
                                  numeric::BoxIcon::Question,
                                  numeric::BoxButtons::Ok};
    }
    return result;
}

/// The message about a value beyond a limit, with the separator in force.
std::string LimitMessage(EntryField field, std::string_view comparison, std::string_view limit)
{
    std::string number(limit);
    const std::size_t end = number.find(' ');
    const std::size_t point = number.find('.');
    if (point < end && end != std::string::npos) number.replace(point, 1, DecimalSeparator());
    return "The " + std::string(EntryName(field)) + " is " + std::string(comparison) + " than " + number;
}

EntryResult CheckLimits(const Limits& limits, double value, const std::string& text)
{
    if (value < limits.Low) return RefusedAndShifted(LimitMessage(limits.Field, "lower", limits.LowText), text);
    if (value > limits.High) return RefusedAndShifted(LimitMessage(limits.Field, "higher", limits.HighText), text);
    return Taken(value, text);
}

EntryResult CheckTemperature(EntryField field, const std::string& text)
{
    const double value = numeric::ParseNumber(text);
    if (value == numeric::NotNumeric) return RefusedAndShifted(NotValid(field), text);
    return CheckLimits(LimitsOf(field), value, text);
}

/// The limits of a field whose text is not empty. What the mask holds is not looked at.
EntryResult CheckContent(EntryField field, const std::string& text)
{
    switch (field) {
    case EntryField::Latitude:
        return CheckLatitude(text, text);
    case EntryField::Longitude:
        return CheckLongitude(text, text);
    case EntryField::MaxLatitude:
        return CheckLatitude(text, text + DecimalSeparator() + "0 N");
    case EntryField::LongInterval:
        return CheckLongInterval(text);
    case EntryField::InstCorr:
        return CheckInstCorr(text);
    case EntryField::AirCelsius:
    case EntryField::AirFahrenheit:
    case EntryField::WaterCelsius:
    case EntryField::WaterFahrenheit:
        return CheckTemperature(field, text);
    default:
        break;
    }
    if (!IsDecimal(text)) return RefusedAndShifted(NotValid(field), text);
    switch (field) {
    case EntryField::Course:
    case EntryField::TrackCourse:
        return CheckCourse(text);
    case EntryField::TrackDistance:
        return CheckDistance(text);
    case EntryField::Bearing:
        return CheckBearing(text);
    case EntryField::Variation:
        return CheckVariation(text);
    case EntryField::Speed:
        return CheckSpeed(text);
    case EntryField::HeightMetres:
    case EntryField::HeightFeet:
        return CheckHeight(field, text);
    default:
        return CheckLimits(LimitsOf(field), numeric::ParseUnsigned(text), text);
    }
}

/// Minutes that a text of the correction column says; numeric::NotNumeric if none.
double CellMinutes(std::string_view text)
{
    return numeric::ParseNumber(FitToMask(EntryField::CellCorrection, text).value_or(std::string(text)));
}

/// The text in which a load shows a value.
std::string LoadText(EntryField field, double value)
{
    switch (field) {
    case EntryField::Latitude:
        return numeric::FormatLat(std::clamp(value, -99.0, 99.0));
    case EntryField::Longitude:
        if (value >= -180.0 && value <= 360.0) return numeric::FormatLong(value);
        // Beyond that no turn is taken off, so that the rule sees what the file says.
        return numeric::FormatDegMin(199.0, "000°00'.0") + (value < 0.0 ? " W" : " E");
    case EntryField::Course:
        return FormatNumber(value, "000°.0");
    case EntryField::Speed:
    case EntryField::HeightFeet:
        return FormatNumber(value, "000.0");
    case EntryField::HeightMetres:
        return FormatNumber(value, "00.0");
    case EntryField::InstCorr:
        return FormatNumber(value, CorrectionPattern);
    case EntryField::Millibars:
        return FormatNumber(value, "0000");
    case EntryField::InchesHg:
        return FormatNumber(value, "00.00");
    default:
        return value < 0.0 ? numeric::PadPrompt(FormatNumber(value, "##0"), 3) : FormatNumber(value, "000");
    }
}

} // namespace

EntryResult CheckEntry(EntryField field, std::string_view text)
{
    if (!HasDigit(field, text)) return {EntryVerdict::Empty, 0.0, std::nullopt, std::string(text)};
    const std::optional<std::string> fitted = FitToMask(field, text);
    const std::string shown = fitted ? *fitted : std::string(text);
    EntryResult result = CheckContent(field, shown);
    if (!fitted && result.Verdict != EntryVerdict::Refused)
        result =
            KeepsRefusedText(field) ? RefusedAsItIs(NotValid(field), shown) : RefusedAndShifted(NotValid(field), shown);
    if (result.Verdict == EntryVerdict::Refused && LosesLastPlace(field))
        result.Text = WithoutLastCharacter(shown) + "_";
    return result;
}

EntryResult CheckValue(EntryField field, double value)
{
    return CheckEntry(field, LoadText(field, value));
}

std::optional<double> ReadAltitudeCell(std::string_view text)
{
    const auto fitted = FitToMask(EntryField::CellAltitude, text);
    if (!fitted || !HasDigit(EntryField::CellAltitude, *fitted)) return std::nullopt;
    const double altitude = numeric::ParseLat(*fitted + " N");
    if (altitude > 90.0) return std::nullopt;
    return altitude;
}

std::optional<double> ReadCorrectionCell(std::string_view text)
{
    const double value = CellMinutes(text);
    if (std::fabs(value) > LargestCorrection) return std::nullopt;
    return value;
}

EntryResult CheckAltitudeCell(std::string_view text)
{
    std::string shown(text);
    if (!HasDigit(EntryField::CellAltitude, text)) return {EntryVerdict::Empty, 0.0, std::nullopt, shown};
    if (const auto altitude = ReadAltitudeCell(text)) return Taken(*altitude, AltitudeCellText(*altitude));
    const double code = numeric::ParseLat(shown + " N");
    if (code == numeric::BeyondRange) return RefusedAsItIs("Altitude > 90°.", shown);
    if (code == numeric::BadMinutes) return RefusedAsItIs("The altitude has more than 59'.", shown);
    return RefusedAsItIs(NotValid(EntryField::CellAltitude), shown);
}

EntryResult CheckCorrectionCell(std::string_view text)
{
    if (!HasDigit(EntryField::CellCorrection, text)) return {EntryVerdict::Empty, 0.0, std::nullopt, std::string(text)};
    const double value = std::clamp(CellMinutes(text), -LargestCorrection, LargestCorrection);
    return Taken(value, FormatNumber(value, CorrectionPattern));
}

std::string AltitudeCellText(double altitude)
{
    return numeric::FormatDegMin(std::clamp(altitude, -999.0, 999.0), AltitudePattern);
}

std::string CorrectionCellText(double instCorr)
{
    return FormatNumber(std::clamp(instCorr, -999.0, 999.0) * 60.0, CorrectionPattern);
}

} // namespace merov::fix
