#include "cli/arguments.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <functional>
#include <optional>

namespace merov::cli
{
namespace
{

/// The number that a whole word stands for, nothing for any other word or one that isn't finite.
std::optional<double> NumberIn(const std::string& word)
{
    const char* begin = word.data() + (word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0);
    double value = 0.0;
    const auto [stop, error] = std::from_chars(begin, word.data() + word.size(), value);
    if (error == std::errc::result_out_of_range || error != std::errc() || stop != word.data() + word.size())
        return std::nullopt;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

/// Adds a word that `read` turns into a value; what it cannot read is wrong usage, told with `want`.
CLI::Option* AddWord(CLI::App& command, const std::string& name, const std::string& help, const std::string& want,
                     const std::function<bool(const std::string&)>& read)
{
    return command.add_option_function<std::string>(
        name,
        [name, want, read](const std::string& word) {
            if (!read(word)) throw CLI::ValidationError(name, "\"" + word + "\" is not " + want);
        },
        help);
}

CLI::Option* AddNumberWithin(CLI::App& command, const std::string& name, double& value, const std::string& help,
                             const std::string& want, double lower, double upper)
{
    return AddWord(command, name, help, want, [&value, lower, upper](const std::string& word) {
        const std::optional<double> number = NumberIn(word);
        if (!number || *number < lower || *number > upper) return false;
        value = *number;
        return true;
    });
}

/// The names of the options of `app` and its commands that a value follows.
void CollectValued(const CLI::App& app, std::vector<std::string>& names)
{
    for (const CLI::Option* option : app.get_options())
        if (option->get_expected_min() > 0)
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
    for (const CLI::App* command : app.get_subcommands({}))
        CollectValued(*command, names);
}

bool IsOptionWord(const std::string& word)
{
    return word.size() > 1 && word[0] == '-' && !NumberIn(word);
}

} // namespace

std::vector<std::string> ArrangedWords(const CLI::App& app, int argc, const char* const* argv)
{
    std::vector<std::string> valued;
    CollectValued(app, valued);
    std::vector<std::string> commands;
    std::vector<std::string> rest;
    const CLI::App* current = &app; // null once the command is known
    bool valueFollows = false;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        if (word.starts_with("-.") && NumberIn(word)) word.insert(1, "0");
        const CLI::App* command = nullptr;
        if (!valueFollows && current != nullptr && !IsOptionWord(word)) {
            for (const CLI::App* candidate : current->get_subcommands({}))
                if (candidate->get_name() == word) command = candidate;
            if (command == nullptr) throw CLI::ValidationError("\"" + std::string(argv[i]) + "\" is no command");
            current = command->get_subcommands({}).empty() ? nullptr : command;
        }
        valueFollows = !valueFollows && std::find(valued.begin(), valued.end(), word) != valued.end();
        (command != nullptr ? commands : rest).push_back(word);
    }
    commands.insert(commands.end(), rest.begin(), rest.end());
    return commands;
}

void AddNumber(CLI::App& command, const std::string& name, double& value, const std::string& help)
{
    AddOptionalNumber(command, name, value, help);
    command.get_option(name)->required();
}

void AddOptionalNumber(CLI::App& command, const std::string& name, double& value, const std::string& help)
{
    AddNumberWithin(command, name, value, help, "a number", -numeric::LargestDouble, numeric::LargestDouble);
}

void AddLatitude(CLI::App& command, const std::string& name, double& value)
{
    AddNumberWithin(command, name, value, "latitude in degrees, north positive", "a latitude, -90 to 90", -90.0, 90.0)
        ->required();
}

void AddLongitude(CLI::App& command, const std::string& name, double& value)
{
    AddNumberWithin(command, name, value, "longitude in degrees, east positive", "a longitude, -180 to 360", -180.0,
                    360.0)
        ->required();
}

void AddCourse(CLI::App& command, double& value)
{
    AddWord(command, "COURSE", "true course in degrees", "a number", [&value](const std::string& word) {
        const std::optional<double> number = NumberIn(word);
        if (!number) return false;
        value = *number < 0.0 || *number > 360.0 ? numeric::Norm360(*number) : *number;
        return true;
    })->required();
}

void AddTime(CLI::App& command, const std::string& name, double& value, const std::string& help)
{
    AddWord(command, name, help + ", \"YYYY-MM-DD HH:MM:SS\"", "a time \"YYYY-MM-DD HH:MM:SS\"",
            [&value](const std::string& word) {
                const std::optional<double> time = ephemeris::ParseIsoDateTime(word);
                if (time) value = *time;
                return time.has_value();
            })
        ->required();
}

void AddDate(CLI::App& command, double& value)
{
    AddWord(command, "DATE", "day in GMT, \"YYYY-MM-DD\"", "a date \"YYYY-MM-DD\"", [&value](const std::string& word) {
        const std::optional<double> date = ephemeris::ParseIsoDateTime(word, true);
        if (date) value = *date;
        return date.has_value();
    })->required();
}

void AddHeight(CLI::App& command, double& value)
{
    AddNumberWithin(command, "HEIGHT", value, "height of eye in metres", "a height in metres, 0 or more", 0.0,
                    numeric::LargestDouble)
        ->required();
}

void AddEllipsoid(CLI::App& command)
{
    AddWord(command, "--ellipsoid", "reference ellipsoid: index in the list, 0 to 19 (19, WGS 1984)",
            "an index of an ellipsoid, 0 to 19",
            [](const std::string& word) {
                int index = -1;
                const char* end = word.data() + word.size();
                const auto [stop, error] = std::from_chars(word.data(), end, index);
                if (error != std::errc() || stop != end || index < 0 || index >= sailing::EllipsoidCount) return false;
                sailing::SelectEllipsoid(index);
                return true;
            })
        ->type_name("N");
}

CLI::Option* AddOutputFile(CLI::App& command, const std::string& name, std::string& file,
                           const std::vector<std::string>& endings, const std::string& help)
{
    const std::string forms = CLI::detail::join(endings, ", .");
    const auto read = [&file, endings](const std::string& word) {
        file = word;
        const std::string ending = std::filesystem::path(CLI::detail::to_lower(word)).extension().string();
        return !ending.empty() && std::find(endings.begin(), endings.end(), ending.substr(1)) != endings.end();
    };
    return AddWord(command, name, help, "a file name that ends in ." + forms, read)
        ->type_name("FILE.(" + CLI::detail::join(endings, "|") + ")");
}

CLI::Option* AddBounded(CLI::App& command, const std::string& name, std::optional<double>& value,
                        const std::string& help, const std::string& want, double lower, double upper)
{
    return AddWord(command, name, help, want, [&value, lower, upper](const std::string& word) {
        value = NumberIn(word);
        return value && *value >= lower && *value <= upper;
    });
}

void AddDataFolder(CLI::App& command)
{
    AddWord(command, "--data", "folder of Planet.dat (the program's own)", "a folder", [](const std::string& word) {
        ephemeris::SetDataFolder(word);
        return !word.empty();
    })->type_name("DIR");
}

} // namespace merov::cli
