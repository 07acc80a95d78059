#include "cli/command_line.h"

/// What all commands share: exit statuses, words and options, keys of the results.

namespace merov::test
{
namespace
{

TEST(CliUsage, WrongUsageSaysWhyAndNothingOnStandardOutput)
{
    const struct {
        std::string Begin, Reason;
        std::vector<std::string> Endings;
    } wrong[] = {
        {"", "A subcommand is required", {"", "--nosuch", "rhumb"}},
        {"", "\"frobnicate\" is no command", {"frobnicate", "frobnicate fix", "rhumb frobnicate", "frobnicate --help"}},
        {"fix", "FILE is required", {"", " --truncated"}},
        {"fix two_sights.obs", "not expected", {" two_sights.obs", " --nosuch"}},
        {"fix two_sights.obs --probability", "--probability: ", {"", " 0.9", " 95"}},
        {"fix two_sights.obs --view log", "--view: log", {""}},
        {"convert two_sights.obs", "OUT is required", {""}},
        {"body VEGA", "TIME", {"", " 2004-05-21 18:00:00", " 2004-02-30~18:00:00", " 2004-05-21~24:00:00"}},
        {"body VEGA 2004-05-21~18:00:00 --ellipsoid 3", "not expected", {""}},
        {"bodies VEGA 2004-05-21~18:00:00", "TIME: \"VEGA\" is not a time", {""}},
        {"sun 50 0", "DATE", {"", " 2004-06-31 10", " 2004-06-21~18:00:00 10"}},
        {"sun 50 0 2004-06-21", "HEIGHT", {"", " -1"}},
        {"sun 91 0 2004-06-21 10", "LAT: \"91\" is not a latitude", {""}},
        {"rhumb direct 1 2 3", "DISTANCE", {"", " ", " 4x", " 4,5", " nan", " -inf", " 1e400"}},
        {"rhumb direct 1 2 3 4", "not expected", {" 5", " --data ."}},
        {"rhumb direct 1 2 3 4 --ellipsoid", "--ellipsoid: ", {"", " -1", " 20", " 1.5", " WGS"}},
        {"gc 1 2 3", "LONG2", {"", " 4x", " 361"}},
        {"gc 1 2 3 4", "--interval", {" --interval -1", " --interval", " --gpx a.gpx"}},
        {"gc 1 2 3 4", "--max-lat", {" --max-lat 91", " --max-lat north"}},
        {"gc 1 2 3 4 --report a.doc", "\"a.doc\" is not a file name that ends in", {""}},
        {"eta 30", "MIN", {"", " 0 15 1 2026-05-01~23:50:00"}},
        {"eta 30 12 11 1 2026-05-01~23:50:00", "MAX: is below MIN", {""}},
        {"eta 30 12 15 0 2026-05-01~23:50:00", "STEP: is not above 0", {""}},
        {"eta 30 12 15 1", "DEPARTURE", {"", " 2026-05-01"}},
        {"eta 30 12 15 1 2026-05-01~23:50:00", "--round", {" --round 100"}},
        {"rhumb inverse 1 2 3 -180.1", "LONG2: \"-180.1\" is not a longitude", {""}},
    };
    for (const auto& [begin, reason, endings] : wrong)
        for (const std::string& ending : endings) {
            const std::string words = begin + ending;
            ExpectText(words, 2, "", reason);
            ExpectText(words.empty() ? "--json" : "--json " + words, 2, "", reason);
        }
}

TEST(CliUsage, HelpAndVersion)
{
    const std::pair<std::string, std::vector<std::string>> helps[] = {
        {"", {"fix", "convert", "body", "bodies", "sun", "rhumb", "gc", "eta", "--version"}},
        {" fix", {"FILE", "--json", "--probability", "--truncated", "--no-systematic", "--one-position", "--view"}},
        {" convert", {"IN", "OUT", "--json"}},
        {" body", {"CODE", "TIME", "--json", "--data"}},
        {" bodies", {"TIME", "--json", "--data"}},
        {" sun", {"LAT", "LONG", "DATE", "HEIGHT", "--json"}},
        {" gc", {"LAT1", "LONG2", "--max-lat", "--interval", "--report", "--gpx", "--ellipsoid", "--json"}},
        {" eta", {"DISTANCE", "MIN", "MAX", "STEP", "DEPARTURE", "--zone", "--arrival-zone", "--round", "--json"}},
        {" rhumb", {"direct", "inverse", "to-latitude", "to-longitude"}},
        {" rhumb direct", {"LAT1", "LONG1", "COURSE", "DISTANCE", "--ellipsoid", "--json"}},
        {" rhumb inverse", {"LAT1", "LONG1", "LAT2", "LONG2"}},
        {" rhumb to-latitude", {"LAT1", "LONG1", "COURSE", "LAT2"}},
        {" rhumb to-longitude", {"LAT1", "LONG1", "COURSE", "LONG2", "DISTANCE"}},
    };
    for (const auto& [command, wanted] : helps)
        for (const std::string& word : wanted)
            ExpectText("--help" + command, 0, word, "");
    EXPECT_EQ(RunCli("fix --help").Out, RunCli("--help fix").Out);
    ExpectText("--version", 0, "merov-cli ", "");
}

TEST(CliUsage, NumbersAreNeverOptions)
{
    const std::string direct = "rhumb direct --ellipsoid 0 ";
    ExpectJson(direct + "-8.5 -1e-05 -90 -.5", 0, R"({"Lat1":-8.5, "Long1":-1e-05, "Course":270, "Distance":-0.5})", 0);
    ExpectJson(direct + "+8.5 +.25 270 -1E+2", 0, R"({"Lat1":8.5, "Long1":0.25, "Course":270, "Distance":-100})", 0);
    ExpectJson(direct + "-0 -179.5 27. -5e-1", 0, R"({"Lat1":0, "Long1":-179.5, "Course":27, "Distance":-0.5})", 0);
}

TEST(CliUsage, OptionsStandAnywhere)
{
    const std::string line = "rhumb inverse -.5 -8.5 -1e-05 8.5";
    const std::string sphere = RunCli(line + " --json --ellipsoid 15").Out;
    const std::string usual = RunCli(line + " --json").Out;
    EXPECT_NE(sphere, usual);
    EXPECT_EQ(RunCli(line + " --json --ellipsoid 19").Out, usual);
    for (std::size_t gap = 0; gap != std::string::npos; gap = line.find(' ', gap + 1))
        for (const std::string options : {"--json --ellipsoid 15", "--ellipsoid=15 --json"}) {
            const std::string words = line.substr(0, gap) + (gap == 0 ? options + " " : " " + options);
            EXPECT_EQ(RunCli(words + line.substr(gap)).Out, sphere) << words;
        }
}

TEST(CliUsage, FilesMayBeCalledLikeCommandsAndNumbers)
{
    const ScratchFolder scratch;
    for (const std::string name : {"fix", "rhumb", "-8.5"}) {
        scratch.Write(name, ReadBytes("two_sights.obs"));
        EXPECT_EQ(RunCli("fix " + name, "cd " + scratch.File("")).Status, 0) << name;
    }
}

TEST(CliUsage, ResultsHaveTheKeysOfTheirCommandWhateverHappens)
{
    const std::string fix = "Boxes CircleRadius Course EllipseEW EllipseNS EstLat EstLong GoodObsCount IterCount "
                            "NumUnknowns ObsCount Observations OrigCourse OrigSpeed Panels Probability Speed StdDev "
                            "SystErr TimeEstPos TimeTruePos TrueLat TrueLong";
    const std::string place = "Boxes Declination Distance EclLatitude EclLongitude ";
    const std::string line = "Boxes Course Distance ";
    const std::string noFile = R"({"Boxes":[" File access error|The file name doesn't exist. Try again."]})";
    const std::string refused = R"({"Boxes":[" Error in nautical routine|..."]})";
    const struct {
        std::string Words;
        int Status;
        std::string Keys, Expected = "{}";
    } rows[] = {
        {"fix evening_stars.obs", 0, fix},
        {"fix nosuch.obs", 1, fix, noFile},
        {"convert nosuch.obs /nosuch/out.obs", 1, "Boxes", noFile},
        {"body VEGA 2004-05-21~18:00:00", 0, place + "GHA HelioDistance Magnitude"},
        {"body vega 2004-05-21~18:00:00", 1, place + "Error GHA HelioDistance Magnitude"},
        {"bodies 2004-05-21~18:00:00", 0, "Bodies Boxes"},
        {"sun 50 0 2004-06-21 10", 0, "Boxes SunEvents"},
        {"rhumb direct 1 2 3 4", 0, line + "Lat1 Lat2 Long1 Long2"},
        {"rhumb to-latitude 40 -10 45 40", 1, line + "Lat1 Lat2 Long1 Long2", refused},
        {"rhumb to-longitude 40 -10 0 20", 1, line + "Error Lat1 Lat2 Long1 Long2"},
    };
    for (const auto& [words, status, keys, expected] : rows)
        EXPECT_EQ(Keys(ExpectJson(words, status, expected)), keys) << words;
}

TEST(CliUsage, ResultsThatCannotBeWrittenAreNoSuccess)
{
    ExpectText("bodies 2004-05-21~18:00:00", 1, "", "could not be written", "exec >/dev/full");
}

} // namespace
} // namespace merov::test
