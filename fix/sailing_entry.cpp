#include "fix/sailing_entry.h"

#include "numeric/inout_lib.h"

#include <cmath>

namespace merov::fix
{
namespace
{

using enum SailingField;

// Limits and step of the spin buttons, degrees.
constexpr double SpinStep = 1.0;
constexpr double HighestLimit = 89.0;
constexpr double LeastInterval = 1.0;
constexpr double GreatestInterval = 99.0;

constexpr std::size_t DegMinBytes = 7; // of "45°30'", six characters

SailingField After(SailingField field, int steps)
{
    return static_cast<SailingField>(static_cast<int>(field) + steps);
}

bool IsLatitude(SailingField field)
{
    return static_cast<int>(field) % 2 == 0;
}

/// The text of a result in its field.
std::string ResultText(SailingField field, double value)
{
    if (field == Course) return numeric::FormatNumber(value, "000°.0");
    if (field == Distance) return numeric::FormatNumber(value, "00000.00");
    return IsLatitude(field) ? numeric::FormatLat(value) : numeric::FormatLong(value);
}

} // namespace

EntryField RuleOf(SailingField field)
{
    switch (field) {
    case MaxLat:
        return EntryField::MaxLatitude;
    case LongInterval:
        return EntryField::LongInterval;
    case Course:
        return EntryField::TrackCourse;
    case Distance:
        return EntryField::TrackDistance;
    default:
        return IsLatitude(field) ? EntryField::Latitude : EntryField::Longitude;
    }
}

std::string ControlName(SailingField field)
{
    if (field >= MaxLat) return std::string(ControlName(RuleOf(field)));
    return (IsLatitude(field) ? "mskLat(" : "mskLong(") + std::to_string(static_cast<int>(field) / 2) + ")";
}

SailingEntry::SailingEntry(numeric::LastError& journal) : journal_(journal)
{
    Clear();
}

void SailingEntry::Clear()
{
    for (std::size_t i = 0; i < SailingFieldCount; ++i)
        EraseField(static_cast<SailingField>(i));
    data_ = {};
}

void SailingEntry::SetText(SailingField field, std::string_view text)
{
    TextOf(field) = text;
    colours_[static_cast<std::size_t>(field)] = FieldColour::Window;
}

EntryVerdict SailingEntry::LeaveField(SailingField field)
{
    const EntryResult result = CheckEntry(RuleOf(field), Text(field));
    if (result.Verdict == EntryVerdict::Refused) {
        numeric::ShowBox(*result.Box);
        SetText(field, result.Text);
        return result.Verdict;
    }
    data_.Filled(field) = result.Verdict == EntryVerdict::Valid;
    if (data_.Filled(field)) {
        data_.Value(field) = result.Value;
        SetText(field, result.Text);
    }
    ComputeRhumbLine(false);
    return result.Verdict;
}

void SailingEntry::ComputeRhumbLine(bool demanded)
{
    if (Page != SailingPage::RhumbLine) return;
    const sailing::RhumbOutcome outcome =
        sailing::ComputeRhumbPage(data_, demanded, sailing::ActiveEllipsoid(), journal_);
    cannotCompute_ = !outcome.CanCompute;
    for (const SailingField field : outcome.Results)
        ShowResult(field);
}

void SailingEntry::ShowResult(SailingField field)
{
    SetText(field, ResultText(field, data_.Value(field)));
    colours_[static_cast<std::size_t>(field)] = FieldColour::Yellow;
}

void SailingEntry::EraseField(SailingField field)
{
    SetText(field, EntryBlank(RuleOf(field)));
    data_.Value(field) = 0.0;
    data_.Filled(field) = false;
    if (field == MaxLat) limitHemisphere_.clear();
    ComputeRhumbLine(false);
}

void SailingEntry::EraseRhumbLine()
{
    for (const SailingField field : {Lat1, Long1, Lat2, Long2, Course, Distance})
        EraseField(field);
    data_.RhumbSolved = false;
}

void SailingEntry::EraseGreatCircle()
{
    for (const SailingField field : {DepLat, DepLong, ArrLat, ArrLong, MaxLat, LongInterval})
        EraseField(field);
}

void SailingEntry::ShiftPositions()
{
    for (const SailingField first : {Lat1, Long1}) {
        const SailingField second = After(first, 2);
        const std::string blank = EntryBlank(RuleOf(first));
        const std::string kept = Text(second);
        if (data_.Filled(first)) SetText(second, Text(first));
        if (data_.Filled(first) && !data_.Filled(second)) SetText(first, blank);
        if (data_.Filled(second)) SetText(first, kept);
        if (data_.Filled(second) && !data_.Filled(first)) SetText(second, blank);
    }
    for (const SailingField field : {Lat1, Long1, Lat2, Long2})
        data_.Filled(field) = false;
    for (const SailingField field : {Lat1, Long1, Lat2, Long2})
        LeaveField(field);
    EraseField(Course);
    EraseField(Distance);
}

void SailingEntry::SelectPage(SailingPage page)
{
    Page = page;
    if (page == SailingPage::RhumbLine) CopyPositions(DepLat, Lat1);
    if (page == SailingPage::GreatCircle) {
        CopyPositions(Lat1, DepLat);
        limitHemisphere_.clear();
    }
}

/// Copies two positions, where all four entries are filled, from the fields of one page to those of the other.
void SailingEntry::CopyPositions(SailingField from, SailingField to)
{
    for (int i = 0; i < 4; ++i)
        if (!data_.Filled(After(from, i))) return;
    for (int i = 0; i < 4; ++i) {
        SetText(After(to, i), Text(After(from, i)));
        LeaveField(After(to, i));
    }
}

EntryVerdict SailingEntry::StepField(SailingField field, bool up)
{
    double& value = data_.Value(field);
    if (field == MaxLat) {
        if (up && value == 0.0)
            value = std::fabs(data_.Lat[3]) > std::fabs(data_.Lat[4]) ? data_.Lat[3] : data_.Lat[4];
        else if (up && value <= HighestLimit)
            value += SpinStep;
        else if (!up && value >= SpinStep)
            value -= SpinStep;
        SetText(field, numeric::FormatLat(value).substr(0, DegMinBytes));
    } else {
        if (up && value < GreatestInterval)
            value += SpinStep;
        else if (!up && value > LeastInterval)
            value -= SpinStep;
        SetText(field, numeric::FormatLong(value).substr(1, DegMinBytes));
    }
    return LeaveField(field);
}

bool SailingEntry::CheckPositions() const
{
    const bool complete =
        data_.Filled(DepLat) && data_.Filled(DepLong) && data_.Filled(ArrLat) && data_.Filled(ArrLong);
    if (!complete) {
        numeric::ShowWarning(" Missing data", {"Departure and/or arrival position not complete. Please correct."});
        return false;
    }
    if (data_.Lat[3] == data_.Lat[4] && data_.Long[3] == data_.Long[4]) {
        numeric::ShowWarning(" Departure = Arrival ?", {"Same departure and arrival positions. Please correct."});
        return false;
    }
    return true;
}

sailing::VoyageInput SailingEntry::VoyageInput() const
{
    sailing::VoyageInput input{data_.Lat[3], data_.Long[3], data_.Lat[4], data_.Long[4], {}, {}};
    if (data_.Filled(MaxLat)) input.MaxLat = data_.Lat[5];
    if (data_.Filled(LongInterval)) input.LongInterval = data_.Long[5];
    return input;
}

void SailingEntry::TakeLimit(const sailing::Voyage& voyage)
{
    if (!voyage.LimitLat) return;
    data_.Lat[5] = *voyage.LimitLat;
    limitHemisphere_ = data_.Lat[5] > 0.0 ? "N" : "S";
    if (voyage.Refusal == sailing::VoyageRefusal::None) return;
    const std::string& text = Text(MaxLat);
    SetText(MaxLat, text.substr(0, text.size() - 2) + "_'");
}

} // namespace merov::fix
