#include "packaging/completion.h"

#include <algorithm>

namespace merov::packaging
{
namespace
{

std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// A character that no shell takes for more than itself.
bool IsPlain(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9') ||
           letter == '-' || letter == '.';
}

/// A word as bash takes it literally.
std::string Quoted(const std::string& text)
{
    std::string out = "'";
    for (const char letter : text)
        out += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return out + "'";
}

/// Words for bash, each literally.
std::string AllQuoted(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += " " + (std::all_of(word.begin(), word.end(), IsPlain) ? word : Quoted(word));
    return text;
}

/// `text` with a backslash before each character of `special`.
std::string Guarded(const std::string& text, const std::string& special)
{
    std::string out;
    for (const char letter : text)
        out += special.find(letter) == std::string::npos ? std::string(1, letter) : std::string("\\") + letter;
    return out;
}

/// A word, or a list of words, as fish takes it literally.
std::string FishQuoted(const std::string& text)
{
    return "'" + Guarded(text, "\\'") + "'";
}
std::string FishList(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + Guarded(word, "\\' \"$()*?[]{}<>&|;#~");
    return FishQuoted(text);
}

std::string FunctionName(const std::string& program)
{
    std::string name = "_" + program;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

/// The bash command that proposes the values of a word; empty where there are none to propose.
std::string BashProposal(const Word& word, const std::string& function)
{
    switch (word.Kind) {
    case ValueKind::Choice:
        return function + "_words" + AllQuoted(word.Choices);
    case ValueKind::File:
        return function + "_files " + Joined(word.Choices);
    case ValueKind::Folder:
        return function + "_files /";
    case ValueKind::None:
    case ValueKind::Free:
        break;
    }
    return "";
}

std::vector<std::string> OptionNames(const Command& command)
{
    std::vector<std::string> names;
    for (const Word& option : command.Options)
        for (const std::string& name : option.Names)
            names.push_back(name);
    return names;
}

std::vector<std::string> CommandNames(const Command& command)
{
    std::vector<std::string> names;
    for (const Command& below : command.Commands)
        names.push_back(below.Name);
    return names;
}

/// The helpers of a completion: FUNCTION stands for its name, what is being typed is in `typed`.
constexpr const char* BashHelpers = R"bash(FUNCTION_words() {
    local word
    for word; do
        [[ $word != "$typed"* ]] || COMPREPLY+=("$(printf %q "$word")")
    done
}
# Folders, and the files with one of the endings.
FUNCTION_files() {
    local ending
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        compgen -d -- "$typed"
        for ending in "${@#/}"; do
            [ -z "$ending" ] || compgen -f -X "!*.$ending" -- "$typed"
        done
    )
}
)bash";

/// Finds the command that has been typed and the place of the argument that is being typed.
constexpr const char* BashSearch = R"bash(    local typed=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local command= place=1 skip= i word
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [ -n "$skip" ]; then
            skip=
        elif [[ ,VALUED, == *",$word,"* ]]; then
            skip=1
        elif [[ ,COMMANDS, == *",${command:+$command }$word,"* ]]; then
            command=${command:+$command }$word
        elif [[ $word != -[a-zA-Z-]* ]]; then
            place=$((place + 1))
        fi
    done
)bash";

std::string Replaced(std::string text, const std::string& what, const std::string& with)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// A pattern that matches one of `command`'s names of an option behind the command: "fix:--view".
std::string Pattern(const Command& command, const Word& option)
{
    std::string pattern;
    for (const std::string& name : option.Names)
        pattern += (pattern.empty() ? "" : " | ") + Quoted(command.Path + ":" + name);
    return pattern;
}

} // namespace

std::string BashCompletion(const Command& program)
{
    const std::string function = FunctionName(program.Name);
    const std::vector<const Command*> all = Flattened(program);
    std::string valued;   // options that a value follows
    std::string commands; // paths
    std::string values;   // cases by the option before
    std::string places;   // cases by the place of an argument
    std::string options;  // cases by the command
    std::string below;
    for (const Command* command : all) {
        commands += (commands.empty() ? "" : ",") + command->Path;
        options += "        " + Quoted(command->Path) + ") " + function + "_words" + AllQuoted(OptionNames(*command)) +
                   " ;;\n";
        if (!command->Commands.empty())
            below += "        " + Quoted(command->Path + ":1") + ") " + function + "_words" +
                     AllQuoted(CommandNames(*command)) + " ;;\n";
        for (const Word& option : command->Options) {
            if (option.Kind == ValueKind::None) continue;
            for (const std::string& name : option.Names)
                if (("," + valued + ",").find("," + name + ",") == std::string::npos)
                    valued += (valued.empty() ? "" : ",") + name;
            values += "        " + Pattern(*command, option) + ") " + BashProposal(option, function) + "; return ;;\n";
        }
        for (std::size_t i = 0; i < command->Arguments.size(); ++i)
            if (const std::string proposal = BashProposal(command->Arguments[i], function); !proposal.empty())
                places += "        " + Quoted(command->Path + ":" + std::to_string(i + 1)) + ") " + proposal + " ;;\n";
    }
    std::string text = Replaced(BashHelpers, "FUNCTION", function) + function + "() {\n" +
                       Replaced(Replaced(BashSearch, "VALUED", Quoted(valued)), "COMMANDS", Quoted(commands));
    if (!values.empty())
        text += "    case $command:$before in\n" + Replaced(values, ") ; return", ") return") + "    esac\n";
    text += "    if [[ $typed == -* ]]; then\n        case $command in\n" + options +
            "        esac\n        return\n    fi\n";
    if (!(below + places).empty()) text += "    case $command:$place in\n" + below + places + "    esac\n";
    return "# Completion of " + program.Name + " for bash.\n" + text + "}\ncomplete -F " + function + " " +
           program.Name + "\n";
}

std::string FishCompletion(const Command& program)
{
    std::string text = "# Completion of " + program.Name + " for fish.\n";
    for (const Command* command : Flattened(program)) {
        // What has been typed holds the words of this command and none of those below it.
        std::string condition;
        std::string path = command->Path;
        std::replace(path.begin(), path.end(), ' ', '\n');
        for (std::size_t from = 0; from < path.size();) {
            const std::size_t to = std::min(path.find('\n', from), path.size());
            condition += (condition.empty() ? "" : "; and ") + std::string("__fish_seen_subcommand_from ") +
                         path.substr(from, to - from);
            from = to + 1;
        }
        if (!command->Commands.empty())
            condition += (condition.empty() ? "" : "; and ") + std::string("not __fish_seen_subcommand_from ") +
                         Joined(CommandNames(*command));
        const std::string start =
            "complete -c " + program.Name + (condition.empty() ? "" : " -n " + FishQuoted(condition));
        bool files = false;
        for (const Word& argument : command->Arguments) {
            files = files || argument.Kind == ValueKind::File || argument.Kind == ValueKind::Folder;
            if (argument.Kind == ValueKind::Choice) text += start + " -f -a " + FishList(argument.Choices) + "\n";
        }
        if (!files) text += start + " -f\n";
        for (const Command& below : command->Commands)
            text += start + " -f -a " + below.Name + " -d " + FishQuoted(below.Description) + "\n";
        for (const Word& option : command->Options) {
            text += start;
            for (const std::string& name : option.Names)
                text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
            if (option.Kind == ValueKind::File || option.Kind == ValueKind::Folder)
                text += " -r -F";
            else if (option.Kind != ValueKind::None)
                text += " -x";
            if (option.Kind == ValueKind::Choice) text += " -a " + FishList(option.Choices);
            text += " -d " + FishQuoted(option.Description) + "\n";
        }
    }
    return text;
}

} // namespace merov::packaging
