#include "sailing/eta_entries.h"

#include "numeric/inout_lib.h"
#include "numeric/message_box.h"

#include <algorithm>
#include <cmath>

namespace merov::sailing
{
namespace
{

constexpr double LeastInterval = 0.1; // knots, in the place of one that is refused as too small
constexpr std::size_t StepWidth = 5;  // characters of a text that a step writes

/// One field. In masks and texts "s" is the place of the decimal separator.
struct FieldLayout {
    std::string_view Control;
    std::string_view Mask;
    std::string_view Reset;
    double ResetValue;
    double Step; ///< of the spin button, which goes down above Lowest and up below Highest
    double Lowest;
    double Highest;
    std::string_view StepPattern;
};

/// By EtaField.
constexpr std::array<FieldLayout, EtaFieldCount> Layouts = {{
    {"mskDTG", "#####s##", "_____s__", 0.0, 0.0, 0.0, 0.0, {}},
    {"mskMinSpeed", "###s#", "_10s0", 10.0, 1.0, 1.0, 999.0, "##0.0"},
    {"mskMaxSpeed", "###s#", "_24s0", 24.0, 1.0, 1.0, 999.0, "##0.0"},
    {"mskInterv", "##s##", "_0s50", 0.5, 0.5, 0.5, 99.0, "#0.00"},
}};

constexpr std::array<EtaZone, 40> Zones = {{
    {"GMT +14", 1400},     {"GMT +13 3/4", 1375}, {"GMT +13", 1300},     {"GMT +12 3/4", 1275}, {"GMT +12", 1200},
    {"GMT +11 1/2", 1150}, {"GMT +11", 1100},     {"GMT +10 1/2", 1050}, {"GMT +10", 1000},     {"GMT +09 1/2", 950},
    {"GMT +09", 900},      {"GMT +08", 800},      {"GMT +07", 700},      {"GMT +06 1/2", 650},  {"GMT +06", 600},
    {"GMT +05 3/4", 575},  {"GMT +05 1/2", 550},  {"GMT +05", 500},      {"GMT +04 1/2", 450},  {"GMT +04", 400},
    {"GMT +03 1/2", 350},  {"GMT +03", 300},      {"GMT +02", 200},      {"GMT +01", 100},      {"GMT", 0},
    {"GMT -01", -100},     {"GMT -02", -200},     {"GMT -02 1/2", -250}, {"GMT -03", -300},     {"GMT -03 1/2", -350},
    {"GMT -04", -400},     {"GMT -05", -500},     {"GMT -06", -600},     {"GMT -07", -700},     {"GMT -08", -800},
    {"GMT -09", -900},     {"GMT -09 1/2", -950}, {"GMT -10", -1000},    {"GMT -11", -1100},    {"GMT -12", -1200},
}};

const FieldLayout& LayoutOf(EtaField field)
{
    return Layouts[static_cast<std::size_t>(field)];
}

bool IsEmpty(const std::string& text)
{
    return text.find_first_of("0123456789") == std::string::npos;
}

/// Shows why a field is refused, and puts "_" for the last character of its text.
bool Refuse(EtaEntries& entries, EtaField field, const char* reason)
{
    numeric::ShowWarning(" Error in input data", {reason});
    std::string& text = entries.Text(field);
    if (!text.empty()) text.back() = '_';
    return false;
}

/// One of the two speeds, and what is said of it.
struct SpeedRule {
    EtaField Field;
    EtaField Other;
    bool IsLower; ///< of the two
    const char* NotPositive;
    const char* WrongOrder;
};

constexpr SpeedRule MinSpeedRule = {EtaField::MinSpeed, EtaField::MaxSpeed, true,
                                    "Your minimum speed is zero or negative.",
                                    "Your minimum speed is greater than the maximum speed."};
constexpr SpeedRule MaxSpeedRule = {EtaField::MaxSpeed, EtaField::MinSpeed, false,
                                    "Your maximum speed is zero or negative.",
                                    "Your maximum speed is less than the minimum speed."};

/// True for a text that the last message about both speeds passes by.
bool PassesOnce(EtaEntries& entries, EtaField field)
{
    if (!entries.SkipSpeedCheck) return false;
    entries.SkipSpeedCheck = false;
    return entries.Text(field) == entries.TextsThen[static_cast<std::size_t>(field)];
}

bool LeaveSpeed(EtaEntries& entries, const SpeedRule& rule)
{
    if (PassesOnce(entries, rule.Field)) return true;
    double& speed = entries.Value(rule.Field);
    const double other = entries.Value(rule.Other);
    speed = numeric::ParseUnsigned(entries.Text(rule.Field));
    const bool isPositive = speed > 0.0;
    const bool isInOrder = rule.IsLower ? speed <= other : speed >= other;
    if (isPositive && isInOrder) return true;
    Refuse(entries, rule.Field, isPositive ? rule.WrongOrder : rule.NotPositive);
    if (isPositive) {
        entries.SkipSpeedCheck = true;
        entries.TextsThen = entries.Texts;
    }
    speed = other;
    return false;
}

bool LeaveInterval(EtaEntries& entries)
{
    double& interval = entries.Input.SpeedInterval;
    const double range = std::fabs(entries.Input.MaxSpeed - entries.Input.MinSpeed);
    interval = numeric::ParseUnsigned(entries.Text(EtaField::Interval));
    if (interval > 0.0 && interval <= range) return true;
    const bool isTooBig = interval > 0.0;
    Refuse(entries, EtaField::Interval,
           isTooBig ? "Your speed interval is too big." : "Your speed interval is negative or zero.");
    interval = isTooBig ? range : LeastInterval;
    return false;
}

bool LeaveDistance(EtaEntries& entries)
{
    double& distance = entries.Input.Distance;
    distance = numeric::ParseUnsigned(entries.Text(EtaField::Distance));
    if (distance >= 0.0) return true;
    distance = 0.0;
    return Refuse(entries, EtaField::Distance, "Negative distance.");
}

} // namespace

std::string_view ControlName(EtaField field)
{
    return LayoutOf(field).Control;
}

std::string EtaMask(EtaField field)
{
    return numeric::WithSeparator(LayoutOf(field).Mask);
}

std::string EtaResetText(EtaField field)
{
    return numeric::WithSeparator(LayoutOf(field).Reset);
}

std::span<const EtaZone> EtaZones()
{
    return Zones;
}

double& EtaEntries::Value(EtaField field)
{
    switch (field) {
    case EtaField::Distance:
        return Input.Distance;
    case EtaField::MinSpeed:
        return Input.MinSpeed;
    case EtaField::MaxSpeed:
        return Input.MaxSpeed;
    default:
        return Input.SpeedInterval;
    }
}

void ResetEtaField(EtaEntries& entries, EtaField field)
{
    entries.Text(field) = EtaResetText(field);
    entries.Value(field) = LayoutOf(field).ResetValue;
}

bool LeaveEtaField(EtaEntries& entries, EtaField field)
{
    if (field == EtaField::Distance) return LeaveDistance(entries);
    if (IsEmpty(entries.Text(field))) return true;
    switch (field) {
    case EtaField::MinSpeed:
        return LeaveSpeed(entries, MinSpeedRule);
    case EtaField::MaxSpeed:
        return LeaveSpeed(entries, MaxSpeedRule);
    default:
        return LeaveInterval(entries);
    }
}

bool StepEtaField(EtaEntries& entries, EtaField field, bool up)
{
    const FieldLayout& layout = LayoutOf(field);
    double& value = entries.Value(field);
    if (up ? value >= layout.Highest : value <= layout.Lowest) return true;
    value += up ? layout.Step : -layout.Step;
    entries.Text(field) = numeric::PadPrompt(numeric::FormatNumber(value, layout.StepPattern), StepWidth);
    return LeaveEtaField(entries, field);
}

} // namespace merov::sailing
