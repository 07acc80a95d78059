#include "packaging/completion.h"
#include "packaging/manual_page.h"

#include "app/program_options.h"
#include "cli/commands.h"
#include "packaging/command_words.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

/// The manual pages and the completion: they tell what the programs declare.

namespace merov::packaging
{
namespace
{

Command CliWords()
{
    return WordsOf(*cli::DeclareCommands([](const cli::Job&) {}));
}

/// A tree of our own: nested commands, a choice, files, a flag, a text that man(7) would take apart.
Command SmallWords()
{
    CLI::App app("Does things: some.\nMore of it.", "small-one");
    app.require_subcommand(1);
    CLI::App* deep = app.add_subcommand("outer", "holds others")->add_subcommand("in-ner", ".starts with a point");
    deep->add_option("LAT")->required()->description("a \\ and a 'quote'");
    deep->add_option("FILE")->description("sights");
    deep->add_option("--how")->type_name("HOW:{slow,fast}")->description("pace");
    deep->add_option("--to,-t")->type_name("FILE.(pdf|txt)")->description("where")->needs(deep->get_option("--how"));
    deep->add_flag("--dry")->description("nothing happens");
    app.add_subcommand("plain", "is alone");
    return WordsOf(app);
}

/// What `line`, typed with its last word unfinished, completes to in bash, in a folder with a file of sights,
/// another file and a folder.
std::string BashProposes(const Command& program, const std::string& line)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(testing::TempDir()) / "merov_completion";
    fs::remove_all(folder);
    fs::create_directories(folder / "deck");
    for (const char* name : {"two.obs", "two.txt"})
        std::ofstream(folder / name) << "x";
    std::ofstream(folder / "script") << BashCompletion(program) << "cd '" << folder.string()
                                     << "'\neval \"COMP_WORDS=($1)\"\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                                        "$(complete -p \"${COMP_WORDS[0]}\" | sed 's/.*-F \\([^ ]*\\) .*/\\1/')\n"
                                        "(IFS='|'; echo \"${COMPREPLY[*]}\")\n";
    const std::string command = "bash '" + (folder / "script").string() + "' \"" + line + "\" 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    for (int letter = 0; pipe && (letter = std::fgetc(pipe.get())) != EOF;)
        text += static_cast<char>(letter);
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

} // namespace

TEST(CommandWords, TellsValuesAndNeeds)
{
    const Command words = SmallWords();
    const std::vector<const Command*> all = Flattened(words);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[2]->Path, "outer in-ner");
    const std::vector<Word>& options = all[2]->Options;
    ASSERT_EQ(options.size(), 4U); // with the help
    EXPECT_EQ(options[1].Choices, (std::vector<std::string>{"slow", "fast"}));
    EXPECT_EQ(options[2].Names, (std::vector<std::string>{"-t", "--to"}));
    EXPECT_EQ(options[2].Kind, ValueKind::File);
    EXPECT_EQ(options[2].Needs, std::vector<std::string>{"--how"});
    EXPECT_EQ(options[3].Kind, ValueKind::None);
    EXPECT_TRUE(all[2]->Arguments[0].Required);
    EXPECT_FALSE(all[2]->Arguments[1].Required);
}

TEST(ManualPage, KeepsTextFromTheFormatter)
{
    const std::string page = ManualPage(SmallWords(), "1 Jan 2026", "Small 1", ".SH END\n");
    for (const char* line : {".TH SMALL-ONE 1 \"1 Jan 2026\" \"Small 1\" \"User Commands\"\n",
                             "\nsmall\\-one \\- does things: some\n", ".SH DESCRIPTION\nMore of it.\n",
                             ".SS \\fBsmall\\-one outer in\\-ner\\fR [\\fIOPTIONS\\fR] \\fILAT\\fR [\\fIFILE\\fR]\n",
                             "\n\\&.starts with a point\n", "\na \\e and a \\(aqquote\\(aq\n",
                             "\n\\fB\\-\\-how\\fR \\fBslow\\fR|\\fBfast\\fR\n", "where; needs \\fB\\-\\-how\\fR\n"})
        EXPECT_NE(page.find(line), std::string::npos) << line << page;
    EXPECT_EQ(page.find("holds others"), std::string::npos); // told by what it holds
    EXPECT_TRUE(page.ends_with(".SH END\n"));
}

TEST(ManualPage, HasEveryWordOfThePrograms)
{
    const Command program = CliWords();
    const std::string page = ManualPage(program, "", "", "");
    for (const Command* command : Flattened(program))
        for (const std::vector<Word>* words : {&command->Arguments, &command->Options})
            for (const Word& word : *words) {
                EXPECT_FALSE(word.Description.empty()) << command->Path << ": " << word.Names.front();
                for (std::string name : word.Names) {
                    for (std::size_t at = 0; (at = name.find('-', at)) != std::string::npos; at += 2)
                        name.insert(at, 1, '\\');
                    EXPECT_NE(page.find(name), std::string::npos) << name;
                }
            }
}

TEST(Completion, ProposesInBash)
{
    const Command small = SmallWords();
    const Command program = CliWords();
    const Command desktop = WordsOf(*app::DeclareProgramOptions());
    struct Case {
        const Command* Program;
        std::string Line;
        std::string Proposals;
    };
    for (const Case& c : std::vector<Case>{
             {&small, "small-one ''", "outer|plain"},
             {&small, "small-one outer i", "in-ner"},
             {&small, "small-one outer in-ner --d", "--dry"},
             {&small, "small-one outer in-ner --how ''", "slow|fast"},
             {&small, "small-one outer in-ner --how slow --to t", "two.txt"},
             {&small, "small-one outer in-ner ''", ""},
             {&small, "small-one outer in-ner -5.5 t", "two.obs"},
             {&small, "small-one outer in-ner --dry --how fast -.5 ''", "deck|two.obs"},
             {&program, "merov-cli fix --view c", "chart"},
             {&program, "merov-cli --json body VE", "VEGA|VENUS"},
             {&program, "merov-cli body KA", "KAUS\\ AUST"},
             {&program, "merov-cli body ALN", "ALNA\\'IR|ALNILAM"},
             {&desktop, "merov tw", "two.obs"},
         })
        EXPECT_EQ(BashProposes(*c.Program, c.Line), c.Proposals) << c.Line;
}

TEST(Completion, DeclaresForFish)
{
    const std::string script = FishCompletion(SmallWords());
    for (const char* line :
         {"complete -c small-one -n 'not __fish_seen_subcommand_from outer plain' -f -a outer -d 'holds others'\n",
          "complete -c small-one -n '__fish_seen_subcommand_from outer; and __fish_seen_subcommand_from in-ner' -s t "
          "-l to -r -F -d 'where'\n",
          " -l how -x -a 'slow fast' -d 'pace'\n"})
        EXPECT_NE(script.find(line), std::string::npos) << line << script;
}

TEST(ProgramOptions, AnswersHelpAndVersionAlone)
{
    const auto answered = [](std::vector<const char*> words) {
        words.insert(words.begin(), "merov");
        return app::AnswerProgramOption(static_cast<int>(words.size()), words.data());
    };
    testing::internal::CaptureStdout();
    EXPECT_EQ(answered({"--version"}), 0);
    EXPECT_EQ(answered({"--help"}), 0);
    const std::string shown = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(shown.starts_with("merov 1.")) << shown;
    EXPECT_NE(shown.find("observation file (.obs) to open"), std::string::npos) << shown;
    for (const auto& words : std::vector<std::vector<const char*>>{
             {}, {"a.obs"}, {"--unknown"}, {"\"with", "blanks.obs\""}, {"--help", "me.obs"}})
        EXPECT_EQ(answered(words), std::nullopt);
}

} // namespace merov::packaging
