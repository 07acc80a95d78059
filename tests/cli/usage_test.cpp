#include "cli/command_line.h"

#include <gtest/gtest.h>

/// Exit statuses, words and options that all commands share.

namespace merov::test
{
namespace
{

const std::string Evening = "2004-05-21 18:00:00";

TEST(CliUsage, WrongUsageSaysNothingOnStandardOutput)
{
    const std::string file = Sample("evening_stars.obs");
    const Words direct{"rhumb", "direct", "1", "2", "3"};
    const std::vector<Words> wrong{
        {},
        {"nosuch"},
        {"--nosuch"},
        {"fix"},
        {"fix", file, file},
        {"fix", file, "--nosuch"},
        {"fix", file, "--probability"},
        {"fix", file, "--probability", "0.9"},
        {"fix", file, "--probability", "95"},
        {"fix", file, "--view", "log"},
        {"fix", file, "--view", "2"},
        {"fix", file, "--ellipsoid", "20"},
        {"convert"},
        {"convert", file},
        {"body"},
        {"body", "VEGA"},
        {"body", "VEGA", "2004-05-21", "18:00:00"},
        {"body", "VEGA", "2004-05-21"},
        {"body", "VEGA", "2004-05-21T18:00:00"},
        {"body", "VEGA", "2004-02-30 18:00:00"},
        {"body", "VEGA", "2004-05-21 24:00:00"},
        {"body", "VEGA", "21 May 2004 18:00:00"},
        {"body", "VEGA", Evening, "--ellipsoid", "3"},
        {"bodies"},
        {"bodies", "VEGA", Evening},
        {"sun", "50", "0", "2004-06-21"},
        {"sun", "50", "0", "2004-06-31", "10"},
        {"sun", "50", "0", Evening, "10"},
        {"sun", "91", "0", "2004-06-21", "10"},
        {"sun", "50", "361", "2004-06-21", "10"},
        {"sun", "50", "0", "2004-06-21", "-1"},
        {"rhumb"},
        {"rhumb", "nosuch"},
        direct,
        Plus(direct, {"4", "5"}),
        Plus(direct, {"4x"}),
        Plus(direct, {""}),
        Plus(direct, {"nan"}),
        Plus(direct, {"inf"}),
        Plus(direct, {"-inf"}),
        Plus(direct, {"1e400"}),
        Plus(direct, {"4,5"}),
        Plus(direct, {"4", "--data", "."}),
        Plus(direct, {"4", "--ellipsoid"}),
        Plus(direct, {"4", "--ellipsoid", "-1"}),
        Plus(direct, {"4", "--ellipsoid", "20"}),
        Plus(direct, {"4", "--ellipsoid", "1.5"}),
        Plus(direct, {"4", "--ellipsoid", "WGS"}),
        {"rhumb", "direct", "-90.1", "2", "3", "4"},
        {"rhumb", "inverse", "1", "2", "3", "-180.1"},
    };
    for (const Words& words : wrong) {
        for (const Words& all : {words, Plus(words, {"--json"})}) {
            SCOPED_TRACE(Shown(all));
            const ProgramRun run = RunCli(all);
            EXPECT_EQ(run.Status, 2);
            EXPECT_EQ(run.Out, "");
            EXPECT_NE(run.Err, "");
        }
    }
}

TEST(CliUsage, HelpAndVersion)
{
    const std::vector<std::pair<Words, std::vector<std::string>>> helps{
        {{}, {"fix", "convert", "body", "bodies", "sun", "rhumb", "--version"}},
        {{"fix"},
         {"FILE", "--json", "--probability", "--truncated", "--no-systematic", "--one-position", "--view", "report",
          "--ellipsoid", "--data"}},
        {{"convert"}, {"IN", "OUT", "--json"}},
        {{"body"}, {"CODE", "TIME", "--json", "--data"}},
        {{"bodies"}, {"TIME", "--json", "--data"}},
        {{"sun"}, {"LAT", "LONG", "DATE", "HEIGHT", "--json"}},
        {{"rhumb"}, {"direct", "inverse", "to-latitude", "to-longitude"}},
        {{"rhumb", "direct"}, {"LAT1", "LONG1", "COURSE", "DISTANCE", "--ellipsoid", "--json"}},
        {{"rhumb", "inverse"}, {"LAT1", "LONG1", "LAT2", "LONG2", "--ellipsoid"}},
        {{"rhumb", "to-latitude"}, {"LAT1", "LONG1", "COURSE", "LAT2", "--ellipsoid"}},
        {{"rhumb", "to-longitude"}, {"LAT1", "LONG1", "COURSE", "LONG2", "DISTANCE", "--ellipsoid"}},
    };
    for (const auto& [command, wanted] : helps) {
        SCOPED_TRACE(Shown(command));
        const ProgramRun run = RunCli(Plus(command, {"--help"}));
        EXPECT_EQ(run.Status, 0);
        EXPECT_EQ(run.Err, "");
        for (const std::string& word : wanted)
            EXPECT_NE(run.Out.find(word), std::string::npos) << word;
        EXPECT_EQ(RunCli(Plus({"--help"}, command)).Out, run.Out);
    }
    const ProgramRun version = RunCli({"--version"});
    EXPECT_EQ(version.Status, 0);
    EXPECT_EQ(version.Out.substr(0, 10), "merov-cli ");
}

TEST(CliUsage, NumbersAreNeverOptions)
{
    const std::vector<std::pair<Words, std::vector<double>>> cases{
        {{"-8.5", "-1e-05", "-90", "-.5"}, {-8.5, -1e-05, -0.5}},
        {{"+8.5", "+.25", "270", "-1E+2"}, {8.5, 0.25, -100.0}},
        {{"-0", "-179.999", "270.", "-5e-1"}, {0.0, -179.999, -0.5}},
    };
    for (const auto& [numbers, expected] : cases) {
        SCOPED_TRACE(Shown(numbers));
        const ProgramRun run = RunCli(Plus({"rhumb", "direct", "--json"}, numbers));
        ASSERT_EQ(run.Status, 0) << run.Err;
        const QJsonObject line = run.Json();
        EXPECT_EQ(line["Lat1"].toDouble(99.0), expected[0]);
        EXPECT_EQ(line["Long1"].toDouble(999.0), expected[1]);
        EXPECT_EQ(line["Course"].toDouble(), 270.0);
        EXPECT_EQ(line["Distance"].toDouble(), expected[2]);
    }
}

TEST(CliUsage, OptionsStandAnywhere)
{
    const Words words{"rhumb", "inverse", "-.5", "-8.5", "-1e-05", "8.5"};
    const std::string expected = RunCli(Plus(words, {"--json", "--ellipsoid", "15"})).Out;
    EXPECT_NE(expected, RunCli(Plus(words, {"--json"})).Out); // the sphere is another Earth
    for (std::size_t place = 0; place <= words.size(); ++place)
        for (const Words& options : {Words{"--json", "--ellipsoid", "15"}, Words{"--ellipsoid=15", "--json"}}) {
            Words all = words;
            all.insert(all.begin() + static_cast<std::ptrdiff_t>(place), options.begin(), options.end());
            SCOPED_TRACE(Shown(all));
            EXPECT_EQ(RunCli(all).Out, expected);
        }
    EXPECT_EQ(RunCli(Plus(words, {"--json", "--ellipsoid", "19"})).Out, RunCli(Plus(words, {"--json"})).Out);
}

TEST(CliUsage, FilesMayBeCalledLikeCommandsAndNumbers)
{
    const ScratchFolder scratch;
    const std::string bytes = ReadBytes(Sample("two_sights.obs"));
    for (const std::string name : {"fix", "rhumb", "-8.5"}) {
        scratch.Write(name, bytes);
        EXPECT_EQ(RunCliAfter("cd " + scratch.Path().string(), {"fix", name}).Status, 0) << name;
    }
}

TEST(CliUsage, ResultsThatCannotBeWrittenAreNoSuccess)
{
    EXPECT_EQ(RunCliAfter("exec >/dev/full", {"bodies", Evening}).Status, 1);
}

} // namespace
} // namespace merov::test
