#include "fix/file_access.h"
#include "fix/observation_file.h"

#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <array>
#include <charconv>

/// Writing: the current form, byte for byte.

namespace merov::fix
{
namespace
{

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view MidnightTime = " 00:00:00";

/// A date as files hold it; at midnight without the time of day.
std::string FileDate(double dateTime)
{
    std::string text = ephemeris::FormatIsoDateTime(dateTime);
    if (text.ends_with(MidnightTime)) text.erase(text.size() - MidnightTime.size());
    return "#" + text + "#";
}

/// One record from the notations of its fields.
std::string Record(std::initializer_list<std::string> fields)
{
    std::string line;
    for (const std::string& field : fields) {
        if (!line.empty()) line += ',';
        line += field;
    }
    return line.append(LineEnd);
}

} // namespace

std::string FileNumber(double value)
{
    if (value == 0.0) return "0";
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 15);
    std::string text(buffer.data(), end.ptr);
    if (const std::size_t exponent = text.find('e'); exponent != std::string::npos) text[exponent] = 'E';
    if (text.starts_with("0.")) text.erase(0, 1);
    if (text.starts_with("-0.")) text.erase(1, 1);
    return text;
}

std::string FormatObservationFile(const SightSession& session)
{
    std::string bytes = Record({FileDate(session.TimeEstPos)});
    bytes += Record({FileNumber(session.EstLat), FileNumber(session.EstLong)});
    bytes += Record({FileDate(session.TimeTruePos)});
    bytes += Record({FileNumber(session.OrigCourse), FileNumber(session.OrigSpeed)});
    bytes += Record({FileNumber(session.HeightOfEye), FileNumber(session.DefaultInstCorr)});
    bytes += Record({FileNumber(session.AirTemp), FileNumber(session.WaterTemp), FileNumber(session.Pressure)});
    bytes += Record({std::to_string(session.ObsCount)});
    for (int i = 1; i <= session.ObsCount; ++i)
        bytes += Record({FileDate(session.ObsTime[i]), "\"" + session.ObsBody[i] + "\"",
                         FileNumber(session.ObsAltitude[i]), FileNumber(session.ObsInstCorr[i])});
    return bytes.append("\"This is an Merov 1.x observations data file.\"").append(LineEnd);
}

std::optional<numeric::Box> WriteObservationFile(const std::filesystem::path& path, const SightSession& session)
{
    const int error = ReplaceFile(path, FormatObservationFile(session));
    if (error == 0) return std::nullopt;
    return FileErrorBox(error, false);
}

} // namespace merov::fix
