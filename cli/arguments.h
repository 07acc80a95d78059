#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

/// Words of the command line and what they stand for.

namespace merov::cli
{

/// The words behind the program's name, made ready for `app`: the words that name the command stand
/// first, so that options may stand anywhere, and a negative number that begins with its point gets a
/// zero before it, so that it never reads as an option. A plain word that names no command where one must
/// stand throws CLI::ValidationError.
std::vector<std::string> ArrangedWords(const CLI::App& app, int argc, const char* const* argv);

// Positional arguments and options of one meaning each. A word that does not fit is wrong usage, told
// with the argument's name. All numbers take a point, a sign and an exponent.
void AddNumber(CLI::App& command, const std::string& name, double& value, const std::string& help);
void AddOptionalNumber(CLI::App& command, const std::string& name, double& value, const std::string& help);
void AddLatitude(CLI::App& command, const std::string& name, double& value);  ///< -90..90
void AddLongitude(CLI::App& command, const std::string& name, double& value); ///< -180..360
void AddCourse(CLI::App& command, double& value);                             ///< any; reduced to 0..360
void AddTime(CLI::App& command, const std::string& name, double& value,
             const std::string& help);            ///< "YYYY-MM-DD HH:MM:SS"
void AddDate(CLI::App& command, double& value);   ///< "YYYY-MM-DD"
void AddHeight(CLI::App& command, double& value); ///< metres, 0 or more

/// --ellipsoid N: puts row N of the list (0..19) in force as soon as it is read.
void AddEllipsoid(CLI::App& command);

/// An option that takes the name of a file to write, whose ending tells its form.
/// @param endings  the forms that there are, in small letters; capital ones are taken as well
CLI::Option* AddOutputFile(CLI::App& command, const std::string& name, std::string& file,
                           const std::vector<std::string>& endings, const std::string& help);

/// An option that takes a number from `lower` to `upper`. @param want  what the number is, for wrong usage
CLI::Option* AddBounded(CLI::App& command, const std::string& name, std::optional<double>& value,
                        const std::string& help, const std::string& want, double lower, double upper);

/// --data DIR: the folder of Planet.dat.
void AddDataFolder(CLI::App& command);

} // namespace merov::cli
