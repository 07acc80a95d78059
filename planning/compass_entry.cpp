#include "planning/compass_entry.h"

#include <cmath>

namespace merov::planning
{
namespace
{

using enum CompassField;
using fix::EntryVerdict;
using fix::FieldColour;

constexpr std::array AllFields = {Latitude, Longitude, GyroBearing, GyroHeading, CompassHeading, Variation};

bool IsPosition(CompassField field)
{
    return field == Latitude || field == Longitude;
}

} // namespace

fix::EntryField RuleOf(CompassField field)
{
    switch (field) {
    case Latitude:
        return fix::EntryField::Latitude;
    case Longitude:
        return fix::EntryField::Longitude;
    case Variation:
        return fix::EntryField::Variation;
    default:
        return fix::EntryField::Bearing;
    }
}

std::string ControlName(CompassField field)
{
    if (field == Latitude) return "mskLat";
    if (field == Longitude) return "mskLong";
    std::string name(fix::ControlName(RuleOf(field)));
    if (field == Variation) return name;
    return name + "(" + std::to_string(static_cast<int>(field) - static_cast<int>(GyroBearing)) + ")";
}

CompassEntry::CompassEntry()
{
    EraseAll();
}

CompassReadings CompassEntry::Readings() const
{
    return {Value(GyroBearing), Value(GyroHeading), Value(CompassHeading), Value(Variation)};
}

void CompassEntry::SetText(CompassField field, std::string_view text)
{
    texts_[Index(field)] = text;
    colours_[Index(field)] = FieldColour::Window;
}

void CompassEntry::EnterField(CompassField field)
{
    colours_[Index(field)] = FieldColour::Window;
}

EntryVerdict CompassEntry::LeaveField(CompassField field)
{
    const fix::EntryResult result = fix::CheckEntry(RuleOf(field), Text(field));
    if (result.Box) numeric::ShowBox(*result.Box);
    SetText(field, result.Text);
    if (result.Verdict == EntryVerdict::Valid) {
        colours_[Index(field)] = FieldColour::Green;
        values_[Index(field)] = field == Variation && !east_ ? -result.Value : result.Value;
    }
    if (result.Verdict == EntryVerdict::Empty && IsPosition(field)) values_[Index(field)] = 0.0;
    return result.Verdict;
}

void CompassEntry::EraseField(CompassField field)
{
    SetText(field, fix::EntryBlank(RuleOf(field)));
    values_[Index(field)] = 0.0;
}

void CompassEntry::EraseAll()
{
    for (const CompassField field : AllFields)
        EraseField(field);
}

void CompassEntry::SetVariationEast(bool east)
{
    east_ = east;
    const double size = std::fabs(Value(Variation));
    values_[Index(Variation)] = east ? size : -size;
}

bool CompassEntry::CheckPosition() const
{
    for (const CompassField field : {Latitude, Longitude})
        if (!fix::HasDigit(RuleOf(field), Text(field))) {
            numeric::ShowWarning("Missing latitude/longitude", {"Please enter the latitude and/or longitude."});
            return false;
        }
    return true;
}

bool CompassEntry::ConfirmPosition() const
{
    if (Value(Latitude) != 0.0 || Value(Longitude) != 0.0) return true;
    const numeric::Box question{"Missing latitude and longitude",
                                {"The latitude and longitude are equal to zero.",
                                 "Do you want to display the visible stars for",
                                 "a latitude of 0° and a longitude of 0° ?"},
                                numeric::BoxIcon::Question,
                                numeric::BoxButtons::YesNo,
                                true};
    return numeric::ShowBox(question) == numeric::BoxAnswer::Yes;
}

void CompassEntry::ShowVariation()
{
    texts_[Index(Variation)] = BearingText(std::fabs(Value(Variation)));
}

} // namespace merov::planning
