#include "fix/file_access.h"
#include "fix/observation_file.h"
#include "fix/record_reader.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"

#include <array>
#include <initializer_list>
#include <utility>

/// Reading: the bytes of a file to its records, nothing of which is used before all are good.

namespace merov::fix
{
namespace
{

constexpr std::array<std::pair<std::string_view, ObservationForm>, 3> ClosingSentences = {{
    {"\"This is an Merov 1.x observations data file.\"", ObservationForm::Current},
    {"\"This is an Mero 1.0 observations data file.\"", ObservationForm::Numeric10},
    {"\"This is an Mero 0.9 observations datas file.\"", ObservationForm::Text09},
}};

numeric::Box NotAnObservationFile()
{
    return {"File unreadable",
            {"Sorry, This is not an Merov file.", "Please select the right file."},
            numeric::BoxIcon::Information,
            numeric::BoxButtons::Ok};
}

numeric::Box TooLarge()
{
    return {"File unreadable",
            {"The file is too large for observations."},
            numeric::BoxIcon::Warning,
            numeric::BoxButtons::Ok};
}

/// The last line of a file, without its end, and what stands before it.
std::pair<std::string_view, std::string_view> SplitLastLine(std::string_view bytes)
{
    if (bytes.ends_with('\n')) bytes.remove_suffix(1);
    if (bytes.ends_with('\r')) bytes.remove_suffix(1);
    const std::size_t before = bytes.rfind('\n');
    const std::size_t first = before == std::string_view::npos ? 0 : before + 1;
    return {bytes.substr(first), bytes.substr(0, first)};
}

/// The number of observations, 0 for a number below 1.
int ReadCount(RecordReader& in)
{
    in.Next(1);
    const int count = in.WholeNumber();
    if (count > MaxObservations) in.Damage("It announces more than 49 observations.");
    return in.Problem() || count < 1 ? 0 : count;
}

NumericRecords ReadNumericRecords(RecordReader& in)
{
    NumericRecords records;
    in.Next(1);
    records.TimeEstPos = in.Date();
    in.Next(2);
    records.EstLat = in.Number();
    records.EstLong = in.Number();
    in.Next(1);
    records.TimeTruePos = in.Date();
    in.Next(2);
    records.OrigCourse = in.Number();
    records.OrigSpeed = in.Number();
    in.Next(2);
    records.HeightOfEye = in.Number();
    records.DefaultInstCorr = in.Number();
    in.Next(3);
    records.AirTemp = in.Number();
    records.WaterTemp = in.Number();
    records.Pressure = in.Number();
    for (int count = ReadCount(in); count > 0; --count) {
        in.Next(4);
        NumericRecords::Sight sight;
        sight.Time = in.Date();
        sight.Body = in.Text();
        sight.Altitude = in.Number();
        sight.InstCorr = in.Number();
        records.Sights.push_back(std::move(sight));
    }
    in.End();
    return records;
}

double ReadDateText(RecordReader& in)
{
    const std::string text = in.Text();
    const auto date = ephemeris::ParseDateTime(text);
    if (!date) in.Damage(RecordReader::Quoted(text) + " is not a date.");
    return date.value_or(0.0);
}

/// The text of a field. One without a digit is an empty entry, which keeps the erased field's text.
void ReadFieldText(RecordReader& in, EntryField field, TextRecords& records)
{
    const std::string text = in.Text();
    const auto fitted = FitToMask(field, text);
    if (!fitted && !numeric::TrimBlanks(text).empty())
        in.Damage(RecordReader::Quoted(text) + " is no valid " + std::string(EntryName(field)) + ".");
    if (fitted && HasDigit(field, *fitted)) records.Fields.emplace_back(field, *fitted);
}

/// The text of a cell: in its editor's layout if it fits, otherwise as it stands, for the grid to judge.
std::string ReadCellText(RecordReader& in, EntryField editor)
{
    const std::string text = in.Text();
    return FitToMask(editor, text).value_or(text);
}

TextRecords ReadTextRecords(RecordReader& in)
{
    TextRecords records;
    const auto readFields = [&](std::initializer_list<EntryField> fields) {
        in.Next(fields.size());
        for (const EntryField field : fields)
            ReadFieldText(in, field, records);
    };
    in.Next(1);
    records.TimeEstPos = ReadDateText(in);
    readFields({EntryField::Latitude, EntryField::Longitude});
    in.Next(1);
    records.TimeTruePos = ReadDateText(in);
    readFields({EntryField::Course, EntryField::Speed});
    readFields({EntryField::HeightMetres, EntryField::InstCorr});
    readFields({EntryField::AirCelsius, EntryField::WaterCelsius, EntryField::Millibars});
    for (int count = ReadCount(in); count > 0; --count) {
        in.Next(GridColumnCount);
        auto& cells = records.Rows.emplace_back();
        cells[0] = in.Text();
        cells[1] = in.Text();
        cells[2] = ReadCellText(in, EntryField::CellAltitude);
        cells[3] = ReadCellText(in, EntryField::CellCorrection);
    }
    in.End();
    return records;
}

} // namespace

ObservationReading ParseObservationFile(std::string_view bytes)
{
    const auto [last, before] = SplitLastLine(bytes);
    for (const auto& [sentence, form] : ClosingSentences) {
        if (last != sentence) continue;
        RecordReader in(before);
        ObservationRecords records{form, {}};
        if (form == ObservationForm::Text09)
            records.Content = ReadTextRecords(in);
        else
            records.Content = ReadNumericRecords(in);
        if (in.Problem()) return *in.Problem();
        return records;
    }
    return NotAnObservationFile();
}

ObservationReading ReadObservationFile(const std::filesystem::path& path)
{
    const FileBytes file = ReadWholeFile(path, LargestObservationFile);
    if (file.Error != 0) return FileErrorBox(file.Error, true);
    if (file.TooLarge) return TooLarge();
    return ParseObservationFile(file.Bytes);
}

} // namespace merov::fix
