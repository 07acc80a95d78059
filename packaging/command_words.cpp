#include "packaging/command_words.h"

#include "ephemeris/astro_lib.h"

#include <algorithm>
#include <sstream>

namespace merov::packaging
{
namespace
{

/// The parts of a text between separators.
std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

/// What stands in `text` between `open` and `close`; empty where they don't.
std::string Between(const std::string& text, char open, char close)
{
    const std::size_t from = text.find(open);
    const std::size_t to = text.rfind(close);
    return from == std::string::npos || to == std::string::npos || to < from ? ""
                                                                             : text.substr(from + 1, to - from - 1);
}

/// What a value is, by the names that the commands use throughout: a list in braces, FILE with its
/// endings in brackets, DIR, an observation file IN or FILE, the CODE of a body.
void TellKind(Word& word)
{
    const std::string& name = word.Names.front();
    const bool option = name.starts_with('-');
    word.Kind = ValueKind::Free;
    if (const std::string list = Between(word.Value, '{', '}'); !list.empty()) {
        word.Kind = ValueKind::Choice;
        word.Choices = Split(list, ',');
    } else if (word.Value.starts_with("FILE")) {
        word.Kind = ValueKind::File;
        word.Choices = Split(Between(word.Value, '(', ')'), '|');
    } else if (word.Value == "DIR") {
        word.Kind = ValueKind::Folder;
    } else if (!option && (name == "FILE" || name == "IN" || name == "OUT")) {
        word.Kind = ValueKind::File;
        word.Choices = {"obs"};
    } else if (!option && (name == "CODE" || name == "BODY")) {
        word.Kind = ValueKind::Choice;
        for (const std::string_view code : ephemeris::BodyCodes())
            word.Choices.emplace_back(code);
    }
}

Word WordOf(const CLI::Option& option)
{
    Word word;
    if (option.get_positional())
        word.Names.push_back(option.get_name(true));
    else {
        for (const std::string& name : option.get_snames())
            word.Names.push_back("-" + name);
        for (const std::string& name : option.get_lnames())
            word.Names.push_back("--" + name);
    }
    word.Description = option.get_description();
    word.Required = option.get_required();
    for (const CLI::Option* needed : option.get_needs())
        word.Needs.push_back(needed->get_name());
    if (option.get_items_expected_max() > 0) {
        word.Value = option.get_type_name();
        TellKind(word);
    }
    return word;
}

Command CommandOf(const CLI::App& app, const std::string& path)
{
    Command command;
    command.Path = path;
    command.Name = app.get_name();
    command.Description = app.get_description();
    for (const CLI::Option* option : app.get_options())
        (option->get_positional() ? command.Arguments : command.Options).push_back(WordOf(*option));
    for (const CLI::App* below : app.get_subcommands({}))
        command.Commands.push_back(CommandOf(*below, (path.empty() ? "" : path + " ") + below->get_name()));
    return command;
}

} // namespace

Command WordsOf(const CLI::App& app)
{
    return CommandOf(app, "");
}

std::vector<const Command*> Flattened(const Command& command)
{
    std::vector<const Command*> all{&command};
    for (const Command& below : command.Commands)
        for (const Command* one : Flattened(below))
            all.push_back(one);
    return all;
}

} // namespace merov::packaging
