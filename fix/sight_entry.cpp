#include "fix/sight_entry.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "fix/entry_twins.h"
#include "numeric/math_lib.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace merov::fix
{
namespace
{

using ephemeris::ParseDateTime;

constexpr double ErasedPressure = 1013.0;  // millibars
constexpr double ErasedTemperature = 20.0; // degrees Celsius

/// The flag that a valid entry of a field sets; none for weather, which has usable defaults.
std::optional<InputFlag> FlagOf(EntryField field)
{
    switch (field) {
    case EntryField::Latitude:
        return InputFlag::EstLat;
    case EntryField::Longitude:
        return InputFlag::EstLong;
    case EntryField::Course:
        return InputFlag::Course;
    case EntryField::Speed:
        return InputFlag::Speed;
    case EntryField::HeightMetres:
    case EntryField::HeightFeet:
        return InputFlag::HeightOfEye;
    case EntryField::InstCorr:
        return InputFlag::InstCorr;
    default:
        return std::nullopt;
    }
}

/// Puts a valid value of a field, in the field's unit, into the session.
void StoreValue(SightSession& session, EntryField field, double value)
{
    switch (field) {
    case EntryField::Latitude:
        session.EstLat = value;
        break;
    case EntryField::Longitude:
        session.EstLong = value;
        break;
    case EntryField::Course:
        session.Course = session.OrigCourse = value;
        break;
    case EntryField::Speed:
        session.Speed = session.OrigSpeed = value;
        break;
    case EntryField::HeightMetres:
        session.HeightOfEye = value;
        break;
    case EntryField::InstCorr:
        session.DefaultInstCorr = value;
        break;
    case EntryField::AirCelsius:
        session.AirTemp = value;
        break;
    case EntryField::WaterCelsius:
        session.WaterTemp = value;
        break;
    case EntryField::Millibars:
        session.Pressure = value;
        break;
    default:
        // The session knows one field of each pair.
        if (const auto twin = TwinOf(field, value)) StoreValue(session, twin->Field, twin->Value);
    }
}

/// A value that has passed its rule: session, text, flag and twin.
void TakeValue(SightEntry& entry, SightSession& session, EntryField field, double value, const std::string& text)
{
    StoreValue(session, field, value);
    entry.Text(field) = text;
    if (const auto flag = FlagOf(field)) entry.Flag(*flag) = true;
    if (const auto twin = TwinOf(field, value)) entry.Text(twin->Field) = twin->Text;
}

/// The session's value of a field of a unit pair, in the field's unit.
double PairValue(const SightSession& session, EntryField field)
{
    switch (field) {
    case EntryField::HeightMetres:
        return session.HeightOfEye;
    case EntryField::HeightFeet:
        return TwinOf(EntryField::HeightMetres, session.HeightOfEye)->Value;
    case EntryField::AirCelsius:
        return session.AirTemp;
    case EntryField::AirFahrenheit:
        return numeric::CelsiusToFahrenheit(session.AirTemp);
    case EntryField::WaterCelsius:
        return session.WaterTemp;
    case EntryField::WaterFahrenheit:
        return numeric::CelsiusToFahrenheit(session.WaterTemp);
    case EntryField::InchesHg:
        return numeric::MillibarToInHg(session.Pressure);
    default:
        return session.Pressure;
    }
}

/// True for the fields that a load runs through their leave rule, which turns them green. The others
/// are only shown.
bool IsLeftByLoad(EntryField field)
{
    return field == EntryField::HeightMetres || field == EntryField::AirCelsius || field == EntryField::WaterCelsius ||
           field == EntryField::Millibars;
}

double ErasedValue(EntryField field)
{
    if (field == EntryField::Millibars) return ErasedPressure;
    return field == EntryField::AirCelsius || field == EntryField::WaterCelsius ? ErasedTemperature : 0.0;
}

/// One row of the grid as the session takes it.
struct Sight {
    double time;
    std::string body;
    double altitude;
    double instCorr;
};

bool RefuseRow(const std::string& line)
{
    numeric::ShowWarning("Incorrect data", {line});
    return false;
}

/// Converts a row, its cells in the order of the columns. False after the box of a bad cell.
bool ReadRow(const GridRow& row, Sight& sight)
{
    const auto time = ParseDateTime(row[GridColumn::Time]);
    if (!time) return RefuseRow("Incorrect time in the grid.");
    if (!ephemeris::IsBodyCode(row[GridColumn::Body])) return RefuseRow("Incorrect celestal body name in the grid.");
    const auto altitude = ReadAltitudeCell(row[GridColumn::Altitude]);
    if (!altitude) return RefuseRow("Incorrect altitude in the grid.");
    const auto minutes = ReadCorrectionCell(row[GridColumn::Correction]);
    if (!minutes) return RefuseRow("Incorrect instrumental error in the grid.");
    sight = {*time, row[GridColumn::Body], *altitude, *minutes / 60.0};
    return true;
}

/// The number of a row's cells that hold a committed value.
std::size_t FilledCells(const GridRow& row)
{
    return static_cast<std::size_t>(std::count(row.Flag.begin(), row.Flag.end(), true));
}

/// Rows from the first to the one before an empty row, at least 1; 0 after the box of a row with
/// missing cells. The cells of the first row are looked at when they are converted.
int CountRows(const SightEntry& entry)
{
    int count = 1;
    for (; count < entry.Rows.Upper(); ++count) {
        const std::size_t filled = FilledCells(entry.Rows[count + 1]);
        if (filled == 0) break;
        if (filled < GridColumnCount) {
            numeric::ShowWarning("Missing data", {"Some data are missing or incorrect in the grid."});
            return 0;
        }
    }
    return count;
}

} // namespace

void EraseEntries(SightEntry& entry, SightSession& session, double defaultTime)
{
    entry.TimeEstPos = entry.TimeTruePos = defaultTime;
    entry.InputFlags.fill(false);
    entry.Colours.fill(FieldColour::Window);
    for (std::size_t i = 0; i < EntryFieldCount; ++i)
        entry.Texts[i] = EntryBlank(static_cast<EntryField>(i));
    entry.Rows.Resize(1, MaxObservations);
    session.EstLat = session.EstLong = 0.0;
    session.Course = session.Speed = 0.0;
    session.HeightOfEye = 0.0;
    session.Pressure = ErasedPressure;
    session.AirTemp = session.WaterTemp = ErasedTemperature;
}

void EnterField(SightEntry& entry, EntryField field)
{
    entry.Colour(field) = FieldColour::Window;
    if (field == EntryField::InstCorr) entry.Flag(InputFlag::InstCorr) = false;
}

EntryVerdict LeaveField(SightEntry& entry, SightSession& session, EntryField field)
{
    const EntryResult result = CheckEntry(field, entry.Text(field));
    if (result.Box) numeric::ShowBox(*result.Box);
    switch (result.Verdict) {
    case EntryVerdict::Empty:
        break;
    case EntryVerdict::Refused:
        entry.Text(field) = result.Text;
        entry.Colour(field) = FieldColour::Window;
        break;
    default:
        TakeValue(entry, session, field, result.Value, result.Text);
        entry.Colour(field) = result.Verdict == EntryVerdict::Valid ? FieldColour::Green : FieldColour::Orange;
    }
    return result.Verdict;
}

EntryVerdict PassField(SightEntry& entry, SightSession& session, EntryField field)
{
    const auto twin = TwinOf(field, 0.0);
    const bool showsPair = twin && entry.Text(field) == TwinOf(twin->Field, PairValue(session, twin->Field))->Text;
    if (!showsPair) return LeaveField(entry, session, field);
    entry.Colour(field) = FieldColour::Green;
    return EntryVerdict::Valid;
}

void StepField(SightEntry& entry, SightSession& session, EntryField field, bool up)
{
    const EntryResult present = CheckEntry(field, entry.Text(field));
    const bool isValid = present.Verdict == EntryVerdict::Valid;
    const auto text = StepText(field, isValid ? present.Value : PairValue(session, field), up);
    if (!text) return;
    entry.Text(field) = *text;
    LeaveField(entry, session, field);
}

EntryVerdict LoadField(SightEntry& entry, SightSession& session, EntryField field, double value)
{
    EntryResult result = CheckValue(field, value);
    const EntryVerdict verdict = result.Verdict;
    if (result.Box) numeric::ShowBox(*result.Box);
    if (verdict == EntryVerdict::Refused)
        result = CheckValue(field, ErasedValue(field));
    else if (IsLeftByLoad(field))
        entry.Colour(field) = FieldColour::Green;
    TakeValue(entry, session, field, result.Value, result.Text);
    return verdict;
}

bool IsPickerTime(double time)
{
    return time >= ephemeris::JoinDateTime({1900, 1, 1}) && time <= ephemeris::JoinDateTime({2100, 12, 31, 23, 59, 59});
}

void LeaveTimeEstPos(SightEntry& entry, SightSession& session)
{
    session.TimeEstPos = entry.TimeEstPos;
    entry.Flag(InputFlag::TimeEstPos) = true;
    if (!entry.Flag(InputFlag::TimeTruePos)) entry.TimeTruePos = entry.TimeEstPos;
}

void LeaveTimeTruePos(SightEntry& entry, SightSession& session)
{
    session.TimeTruePos = entry.TimeTruePos;
    entry.Flag(InputFlag::TimeTruePos) = true;
}

EntryVerdict CommitCell(SightEntry& entry, int row, GridColumn column, std::string_view text)
{
    EntryResult result{EntryVerdict::Valid, 0.0, std::nullopt, std::string(text)};
    if (column == GridColumn::Altitude) result = CheckAltitudeCell(text);
    if (column == GridColumn::Correction) result = CheckCorrectionCell(text);
    if (result.Box) numeric::ShowBox(*result.Box);
    GridRow& cells = entry.Rows[row];
    if (result.Verdict == EntryVerdict::Empty) return result.Verdict;
    cells[column] = result.Text;
    cells.Flag[static_cast<std::size_t>(column)] = result.Verdict == EntryVerdict::Valid;
    if (column != GridColumn::Correction && cells[GridColumn::Correction].empty()) {
        cells[GridColumn::Correction] = entry.Text(EntryField::InstCorr);
        cells.Flag[static_cast<std::size_t>(GridColumn::Correction)] = true;
    }
    return result.Verdict;
}

void ClearCell(SightEntry& entry, int row, GridColumn column)
{
    GridRow& cells = entry.Rows[row];
    cells[column].clear();
    cells.Flag[static_cast<std::size_t>(column)] = false;
    if (FilledCells(cells) == 0)
        numeric::ShowInformation("Row empty",
                                 {"If you want to delete the entire row,", "please use <Control> <Delete>."});
}

void RemoveRow(SightEntry& entry, int row)
{
    for (int below = row + 1; below <= entry.Rows.Upper(); ++below)
        entry.Rows[below - 1] = std::move(entry.Rows[below]);
    entry.Rows[entry.Rows.Upper()] = GridRow();
}

bool CheckRowFull(const SightEntry& entry, int row)
{
    const GridRow& cells = entry.Rows[row];
    const bool isFull = FilledCells(cells) == GridColumnCount;
    const bool isBegun = cells.Flag[0] || cells.Flag[1] || cells.Flag[2];
    if (isFull || !isBegun) return true;
    numeric::ShowInformation("Row not fully filled", {"Data missing for the observation " + std::to_string(row) + "."});
    return false;
}

bool CheckInputFlags(const SightEntry& entry)
{
    const auto& flags = entry.InputFlags;
    if (std::find(flags.begin(), flags.end(), false) == flags.end()) return true;
    numeric::ShowWarning("Missing data",
                         {"Some data are missing.", "Please check that the whole input form is completed."});
    return false;
}

bool ReadObservationGrid(const SightEntry& entry, SightSession& session)
{
    if (entry.Rows[1][GridColumn::Time].empty()) {
        numeric::ShowWarning(" Error in input data", {"Please fill the grid with the observations."});
        return false;
    }
    const int count = CountRows(entry);
    if (count == 0) return false;
    numeric::BoundedArray<Sight> sights(1, count);
    for (int i = 1; i <= count; ++i)
        if (!ReadRow(entry.Rows[i], sights[i])) return false;

    session.ObsCount = static_cast<short>(count);
    session.ObsTime.Resize(0, count);
    session.ObsBody.Resize(1, count);
    session.ObsAltitude.Resize(1, count);
    session.ObsInstCorr.Resize(1, count);
    for (int i = 1; i <= count; ++i) {
        session.ObsTime[i] = sights[i].time;
        session.ObsBody[i] = sights[i].body;
        session.ObsAltitude[i] = sights[i].altitude;
        session.ObsInstCorr[i] = sights[i].instCorr;
    }
    return true;
}

void SortObservationGrid(SightEntry& entry, int count)
{
    struct Timed {
        double time;
        std::array<std::string, GridColumnCount> text;
    };
    std::vector<Timed> rows;
    for (int i = 1; i <= count; ++i) {
        const auto time = ParseDateTime(entry.Rows[i][GridColumn::Time]);
        if (!time) return;
        rows.push_back({*time, entry.Rows[i].Text});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Timed& a, const Timed& b) { return a.time < b.time; });
    for (int i = 1; i <= count; ++i)
        entry.Rows[i].Text = std::move(rows[static_cast<std::size_t>(i - 1)].text);
}

} // namespace merov::fix
