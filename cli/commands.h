#pragma once

#include "cli/outcome.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <string>

/// The commands of merov-cli. Each Add function declares the command's words and options on `app`
/// and hands the job that does it to `run`, to be called once the command line has been read.

namespace merov::cli
{

/// Does the job of the command that was given, with the boxes that it has shown so far at hand.
using Job = std::function<Outcome(const BoxLog&)>;

/// Takes a job over; called while the command line is being read.
using JobTaker = std::function<void(Job)>;

/// The whole command line, with all commands declared; `run` gets the job of the one that is given.
std::unique_ptr<CLI::App> DeclareCommands(const JobTaker& run);

void AddFixCommand(CLI::App& app, const JobTaker& run);
void AddConvertCommand(CLI::App& app, const JobTaker& run);
void AddBodyCommands(CLI::App& app, const JobTaker& run); ///< body and bodies
void AddSunCommand(CLI::App& app, const JobTaker& run);
void AddRhumbCommand(CLI::App& app, const JobTaker& run);
void AddGcCommand(CLI::App& app, const JobTaker& run);
void AddEtaCommand(CLI::App& app, const JobTaker& run);
void AddAzimuthCommand(CLI::App& app, const JobTaker& run);
void AddStarsCommand(CLI::App& app, const JobTaker& run);

/// A command below `app` with its description; its job runs when it is given. `--json` comes with it.
CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description);

/// True when an option, such as "--json", was given to the command in use.
bool Wants(const CLI::App& app, const std::string& option);

} // namespace merov::cli
