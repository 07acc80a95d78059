#pragma once

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

/// The command line of the desktop program, declared once for its help, its manual page and the shells.

namespace merov::app
{

/// The declared words: an observation file, help and version.
std::unique_ptr<CLI::App> DeclareProgramOptions();

/// Prints the help or the version where that alone is asked for. Anything else on the command line is
/// the path of a file, or for the window system.
/// @return the status to end with; nothing where the program has to go on
std::optional<int> AnswerProgramOption(int argc, const char* const* argv);

} // namespace merov::app
