#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// The words of a command line as its declarations tell them: the one source of --help, of the manual
/// pages and of the completion.

namespace merov::packaging
{

/// What a value is, as far as a shell can propose one.
enum class ValueKind { None, Free, Choice, File, Folder };

/// An option, or an argument that is told by its place.
struct Word {
    std::vector<std::string> Names;   ///< "-h", "--help", or the one name of an argument
    std::string Value;                ///< as the help names it, such as "VIEW:{chart,fix}"; empty for a flag
    std::string Description;          ///< one sentence
    std::vector<std::string> Needs;   ///< options that must be given with it
    ValueKind Kind = ValueKind::None; ///< of the value
    std::vector<std::string> Choices; ///< the values that there are, or the endings of a file's name
    bool Required = false;
};

/// A command and those below it. The program itself is the first one.
struct Command {
    std::string Path;        ///< "" for the program, else "rhumb direct"
    std::string Name;        ///< the last word of the path, or the program's name
    std::string Description; ///< lines
    std::vector<Word> Arguments;
    std::vector<Word> Options;
    std::vector<Command> Commands;
};

/// The words that `app` declares, with all that stands below it.
Command WordsOf(const CLI::App& app);

/// `command` and all below it, each before those that it holds.
std::vector<const Command*> Flattened(const Command& command);

} // namespace merov::packaging
