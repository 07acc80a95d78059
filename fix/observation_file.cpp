#include "fix/observation_file.h"

#include "ephemeris/time_lib.h"

/// From the records of a file to the entries, and the jobs made of reading and writing.

namespace merov::fix
{
namespace
{

/// The letters behind the date of a proposed name: A to Z, then AA to ZZ.
constexpr int LetterCount = 26;
constexpr int LastName = LetterCount * (LetterCount + 1);

/// A time that a file brings goes into a picker; one beyond its range brings a box and leaves the
/// default. False for the latter.
bool LoadTime(double time, double& picker, const char* name)
{
    const bool good = IsPickerTime(time);
    if (good)
        picker = time;
    else
        numeric::ShowWarning(" Error in input data",
                             {std::string("The time of the ") + name, "does not lie in the years 1900 to 2100."});
    return good;
}

bool EnterNumeric(const NumericRecords& records, SightEntry& entry, SightSession& session)
{
    bool allTaken = true;
    const auto load = [&](EntryField field, double value) {
        if (LoadField(entry, session, field, value) == EntryVerdict::Refused) allTaken = false;
    };
    if (!LoadTime(records.TimeEstPos, entry.TimeEstPos, "estimated position")) allTaken = false;
    session.TimeEstPos = entry.TimeEstPos;
    entry.Flag(InputFlag::TimeEstPos) = true;
    load(EntryField::Latitude, records.EstLat);
    load(EntryField::Longitude, records.EstLong);
    if (!LoadTime(records.TimeTruePos, entry.TimeTruePos, "true position")) allTaken = false;
    LeaveTimeTruePos(entry, session);
    load(EntryField::Course, records.OrigCourse);
    load(EntryField::Speed, records.OrigSpeed);
    load(EntryField::HeightMetres, records.HeightOfEye);
    load(EntryField::InstCorr, records.DefaultInstCorr);
    load(EntryField::AirCelsius, records.AirTemp);
    load(EntryField::WaterCelsius, records.WaterTemp);
    load(EntryField::Millibars, records.Pressure);
    int row = 0;
    for (const NumericRecords::Sight& sight : records.Sights) {
        GridRow& cells = entry.Rows[++row];
        cells.Text = {ephemeris::FormatDateTime(sight.Time, GridTimePicture), sight.Body,
                      AltitudeCellText(sight.Altitude), CorrectionCellText(sight.InstCorr)};
        cells.Flag.fill(true);
    }
    return allTaken;
}

bool EnterTexts(const TextRecords& records, SightEntry& entry, SightSession& session)
{
    bool allTaken = LoadTime(records.TimeEstPos, entry.TimeEstPos, "estimated position");
    for (const auto& [field, text] : records.Fields)
        entry.Text(field) = text;
    int row = 0;
    for (const auto& cells : records.Rows) {
        entry.Rows[++row].Text = cells;
        entry.Rows[row].Flag.fill(true);
    }
    const auto leave = [&](EntryField field) {
        // A refused text goes, so that the default which stays in force is what shows.
        if (LeaveField(entry, session, field) != EntryVerdict::Refused) return;
        entry.Text(field) = EntryBlank(field);
        allTaken = false;
    };
    LeaveTimeEstPos(entry, session);
    leave(EntryField::Latitude);
    leave(EntryField::Longitude);
    // Only now: leaving the first picker has dragged the second one along.
    if (!LoadTime(records.TimeTruePos, entry.TimeTruePos, "true position")) allTaken = false;
    LeaveTimeTruePos(entry, session);
    for (const EntryField field :
         {EntryField::Course, EntryField::Speed, EntryField::HeightMetres, EntryField::InstCorr, EntryField::AirCelsius,
          EntryField::WaterCelsius, EntryField::Millibars})
        leave(field);
    return allTaken;
}

} // namespace

bool EnterRecords(const ObservationRecords& records, SightEntry& entry, SightSession& session)
{
    if (const auto* numeric = std::get_if<NumericRecords>(&records.Content))
        return EnterNumeric(*numeric, entry, session);
    return EnterTexts(std::get<TextRecords>(records.Content), entry, session);
}

namespace
{

/// What came of a file: nothing, all of its values, or some with the defaults for the others.
enum class Loaded { Nothing, Partly, Wholly };

Loaded LoadFile(const std::filesystem::path& path, SightEntry& entry, SightSession& session)
{
    EraseEntries(entry, session, ephemeris::CurrentGmtHour());
    const ObservationReading reading = ReadObservationFile(path);
    if (const auto* box = std::get_if<numeric::Box>(&reading)) {
        numeric::ShowBox(*box);
        return Loaded::Nothing;
    }
    return EnterRecords(std::get<ObservationRecords>(reading), entry, session) ? Loaded::Wholly : Loaded::Partly;
}

} // namespace

bool LoadObservationFile(const std::filesystem::path& path, SightEntry& entry, SightSession& session)
{
    return LoadFile(path, entry, session) != Loaded::Nothing;
}

bool ConvertObservationFile(const std::filesystem::path& source, const std::filesystem::path& target)
{
    SightEntry entry;
    SightSession session;
    if (LoadFile(source, entry, session) != Loaded::Wholly) return false;
    if (!CheckInputFlags(entry) || !ReadObservationGrid(entry, session)) return false;
    const auto box = WriteObservationFile(target, session);
    if (box) numeric::ShowBox(*box);
    return !box;
}

std::string ProposeFileName(double timeTruePos, const std::function<bool(const std::string&)>& exists)
{
    const std::string date = ephemeris::FormatDateTime(timeTruePos, "ddmmmyy");
    for (int number = 0;; ++number) {
        std::string letters(1, static_cast<char>('A' + number % LetterCount));
        if (number >= LetterCount) letters.insert(0, 1, static_cast<char>('A' + number / LetterCount - 1));
        const std::string name = date + letters + ".obs";
        if (number + 1 == LastName || !exists(name)) return name;
    }
}

} // namespace merov::fix
