#include "packaging/manual_page.h"

#include <cctype>

namespace merov::packaging
{
namespace
{

/// Plain text for man(7): its backslashes, hyphens that are typed and control characters at the start of
/// a line stand for themselves.
std::string Escaped(const std::string& text)
{
    std::string out;
    for (const char letter : text) {
        if (letter == '\\')
            out += "\\e";
        else if (letter == '-')
            out += "\\-";
        else if (letter == '\'')
            out += "\\(aq";
        else if (letter == '.' && (out.empty() || out.back() == '\n'))
            out += "\\&.";
        else
            out += letter;
    }
    return out;
}

std::string Bold(const std::string& text)
{
    return "\\fB" + Escaped(text) + "\\fR";
}
std::string Italic(const std::string& text)
{
    return "\\fI" + Escaped(text) + "\\fR";
}

/// The value of an option as a page shows it: the list alone where there is one, no bare type.
std::string ShownValue(const Word& word)
{
    const std::size_t list = word.Value.find('{');
    if (list != std::string::npos) {
        std::string words;
        for (const std::string& choice : word.Choices)
            words += (words.empty() ? "" : "|") + Bold(choice);
        return words;
    }
    return word.Value == "TEXT" || word.Value == "FLOAT" ? Italic("VALUE") : Italic(word.Value);
}

/// "merov-cli rhumb direct [OPTIONS] LAT1 LONG1 ..."
std::string Usage(const Command& program, const Command& command)
{
    std::string text = Bold(program.Name + (command.Path.empty() ? "" : " " + command.Path));
    if (!command.Options.empty()) text += " [" + Italic("OPTIONS") + "]";
    for (const Word& argument : command.Arguments) {
        const std::string name = Italic(argument.Names.front());
        text += argument.Required ? " " + name : " [" + name + "]";
    }
    return command.Commands.empty() ? text : text + " " + Italic("COMMAND") + " ...";
}

std::string Entry(const Word& word)
{
    std::string names;
    for (const std::string& name : word.Names)
        names += (names.empty() ? "" : ", ") + (name.starts_with('-') ? Bold(name) : Italic(name));
    if (word.Names.front().starts_with('-') && !word.Value.empty()) names += " " + ShownValue(word);
    std::string text = ".TP\n" + names + "\n" + Escaped(word.Description);
    for (const std::string& needed : word.Needs)
        text += "; needs " + Bold(needed);
    return text + "\n";
}

std::string Entries(const std::vector<Word>& words)
{
    std::string text;
    for (const Word& word : words)
        text += Entry(word);
    return text;
}

/// The options of a command that the program hasn't itself, such as its help.
std::vector<Word> OwnOptions(const Command& program, const Command& command)
{
    std::vector<Word> own;
    for (const Word& word : command.Options) {
        bool shared = false;
        for (const Word& other : program.Options)
            shared = shared || other.Names == word.Names;
        if (!shared) own.push_back(word);
    }
    return own;
}

/// The first line of a description as the words behind a name: "celestial navigation: fixes".
std::string Summary(const std::string& description)
{
    std::string line = description.substr(0, description.find('\n'));
    if (line.ends_with('.')) line.pop_back();
    if (!line.empty()) line[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(line[0])));
    return line;
}

} // namespace

std::string ManualPage(const Command& program, const std::string& date, const std::string& version,
                       const std::string& sections)
{
    std::string title;
    for (const char letter : program.Name)
        title += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    const std::size_t more = program.Description.find('\n');
    std::string text = ".TH " + title + " 1 \"" + date + "\" \"" + version + "\" \"User Commands\"\n";
    text += ".SH NAME\n" + Escaped(program.Name) + " \\- " + Escaped(Summary(program.Description)) + "\n";
    text += ".SH SYNOPSIS\n" + Usage(program, program) + "\n";
    if (more != std::string::npos) text += ".SH DESCRIPTION\n" + Escaped(program.Description.substr(more + 1)) + "\n";
    text += ".SH OPTIONS\n" + Entries(program.Arguments) + Entries(program.Options);
    if (!program.Commands.empty()) {
        text += ".SH COMMANDS\nOptions may stand anywhere among the words of a command; each command takes " +
                Bold("--help") + ".\n";
        for (const Command* command : Flattened(program)) {
            if (command == &program || !command->Commands.empty()) continue; // those below it tell it
            text += ".SS " + Usage(program, *command) + "\n" + Escaped(command->Description) + "\n";
            text += Entries(command->Arguments) + Entries(OwnOptions(program, *command));
        }
    }
    return text + sections;
}

} // namespace merov::packaging
