/// Writes what the package tells of a program's command line, from the declarations of the program
/// itself:
///   write_command_files merov|merov-cli man DATE VERSION SECTIONS >PAGE
///   write_command_files merov|merov-cli bash|fish >COMPLETION
/// SECTIONS is the file that a manual page ends with.

#include "app/program_options.h"
#include "cli/commands.h"
#include "packaging/completion.h"
#include "packaging/manual_page.h"

#include <fstream>
#include <iostream>
#include <iterator>

int main(int argc, char** argv)
{
    using namespace merov;
    const std::vector<std::string> given(argv + 1, argv + argc);
    const std::string program = given.size() < 2 ? "" : given[0];
    if (program != "merov" && program != "merov-cli") return 2;
    const std::unique_ptr<CLI::App> app =
        program == "merov" ? app::DeclareProgramOptions() : cli::DeclareCommands([](const cli::Job&) {});
    const packaging::Command words = packaging::WordsOf(*app);

    if (given[1] == "man" && given.size() == 5) {
        std::ifstream in(given[4]);
        const std::string sections((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (!in || sections.empty()) return 1;
        std::cout << packaging::ManualPage(words, given[2], given[3], sections);
    } else if (given[1] == "bash" && given.size() == 2) {
        std::cout << packaging::BashCompletion(words);
    } else if (given[1] == "fish" && given.size() == 2) {
        std::cout << packaging::FishCompletion(words);
    } else {
        return 2;
    }
    return std::cout.flush() ? 0 : 1;
}
