#pragma once

#include "fix/sight_entry.h"
#include "fix/sight_session.h"
#include "numeric/message_box.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// Observation files (".obs"): one sight session as lines of comma-separated fields in Latin-1, told
/// by a closing sentence in the last line. Three forms are read, the current one is written. Nothing
/// here opens a dialog; failures are boxes, handed back or shown as each routine says.

namespace merov::fix
{

/// The forms by their closing sentences: 1.x, 1.0 (the same records) and 0.9 (all fields as texts).
enum class ObservationForm { Current, Numeric10, Text09 };

/// The content of a numeric file, values as they stand in it: finite, but not yet held to any limit.
struct NumericRecords {
    struct Sight {
        double Time = 0.0;     ///< date-time, GMT
        std::string Body;      ///< body code, unchecked
        double Altitude = 0.0; ///< degrees
        double InstCorr = 0.0; ///< degrees
    };
    double TimeEstPos = 0.0; ///< date-time, GMT
    double EstLat = 0.0;     ///< degrees
    double EstLong = 0.0;
    double TimeTruePos = 0.0;
    double OrigCourse = 0.0;      ///< degrees
    double OrigSpeed = 0.0;       ///< knots
    double HeightOfEye = 0.0;     ///< metres
    double DefaultInstCorr = 0.0; ///< minutes of arc
    double AirTemp = 0.0;         ///< degrees Celsius
    double WaterTemp = 0.0;
    double Pressure = 0.0;     ///< millibars
    std::vector<Sight> Sights; ///< at most MaxObservations
};

/// The content of a text file: the fields' texts, which fit their masks, and the rows' cells.
struct TextRecords {
    double TimeEstPos = 0.0;
    double TimeTruePos = 0.0;
    std::vector<std::pair<EntryField, std::string>> Fields;
    std::vector<std::array<std::string, GridColumnCount>> Rows; ///< at most MaxObservations
};

struct ObservationRecords {
    ObservationForm Form = ObservationForm::Current;
    std::variant<NumericRecords, TextRecords> Content;
};

/// What reading gives: the whole content, or the box that tells why there is none.
using ObservationReading = std::variant<ObservationRecords, numeric::Box>;

/// Largest file that is read, bytes. A full session takes less than 5000.
constexpr std::size_t LargestObservationFile = 1 << 20;

/// Takes the bytes of a file apart. CR LF and LF end a line.
/// The box is "File unreadable": with the information icon where the last line is none of the closing
/// sentences; with the warning icon where a record is missing, does not match its type, holds a number
/// that is not finite or a date that does not exist, where there are more than 49 observations, or
/// records left over; it names the record, counted from 1.
ObservationReading ParseObservationFile(std::string_view bytes);

/// Reads a file. A file error gives the box " File access error", a file larger than
/// LargestObservationFile "File unreadable".
ObservationReading ReadObservationFile(const std::filesystem::path& path);

/// Puts the content of a file into erased entries and the session, by the rules of the entries: what
/// lies outside its limits brings its box and leaves the default. Nothing is computed.
/// @return true when every value was taken
bool EnterRecords(const ObservationRecords& records, SightEntry& entry, SightSession& session);

/// Loads a file: erases the entries, with the present hour as the default time, reads the file and
/// enters its records.
/// @return false, with its box shown and the entries erased, when the file could not be read
bool LoadObservationFile(const std::filesystem::path& path, SightEntry& entry, SightSession& session);

/// A number as files hold it: up to 15 significant digits, ".25", "-.05", "270", "1E-05".
/// @param value  finite; -0 is written as 0
std::string FileNumber(double value);

/// The bytes of the current form, from the session's inputs and the arrays that ReadObservationGrid
/// fills. Body codes must be of the 66.
std::string FormatObservationFile(const SightSession& session);

/// Writes the current form. The target is replaced whole or not at all: a new file is written beside
/// it, brought to the disk and given its name; a failure removes the new file and leaves the old one.
/// What is no plain file, such as /dev/stdout, is written directly.
/// @return the box " File access error" on failure
std::optional<numeric::Box> WriteObservationFile(const std::filesystem::path& path, const SightSession& session);

/// Writes the current form of any of the three forms. All required entries must be there and the grid
/// must be readable, as for a fix, and every value must be taken: a conversion changes none.
/// @return false, with the box shown, when the source could not be read, held a value that its entry
///         refuses, or the target could not be written
bool ConvertObservationFile(const std::filesystem::path& source, const std::filesystem::path& target);

/// The name that a save proposes: day, month and year of the true position's time and a letter,
/// "21May04A.obs"; the first for which `exists` is false. Behind Z come AA, AB to ZZ, which is given
/// even if it exists.
std::string ProposeFileName(double timeTruePos, const std::function<bool(const std::string& name)>& exists);

} // namespace merov::fix
