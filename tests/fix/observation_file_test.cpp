#include "fix/observation_file.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"
#include "support/observation_round_trip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace merov::fix
{
namespace
{

namespace fs = std::filesystem;
using Field = EntryField;

const std::string Current = "\"This is an Merov 1.x observations data file.\"";
const std::string Form10 = "\"This is an Mero 1.0 observations data file.\"";
const std::string Form09 = "\"This is an Mero 0.9 observations datas file.\"";

const std::vector<std::string> TwoSights = {"#2004-05-21 18:00:00#",
                                            "43.5,-8.25",
                                            "#2004-05-21 18:30:00#",
                                            "270,12.5",
                                            "12,-2.5",
                                            "20,20,1013",
                                            "2",
                                            "#2004-05-21 18:02:15#,\"VEGA\",35.25,-.0416666666666667",
                                            "#2004-05-21 18:05:40#,\"SUNLOW\",12.5,-.0416666666666667",
                                            Current};

/// In Latin-1, where the degree sign is one byte.
const std::vector<std::string> TwoSightsAsTexts = {"\"21 May 2004 18:00:00\"",
                                                   "\"43\xB0"
                                                   "30'.0 N\",\"_08\xB0"
                                                   "15'.0 W\"",
                                                   "\"21 May 2004 18:30:00\"",
                                                   "\"270\xB0.0\",\"_12.5\"",
                                                   "\"12.0\",\"-02.50\"",
                                                   "\"_20\",\"_20\",\"1013\"",
                                                   "2",
                                                   "\"21 May 2004 18:02:15\",\"VEGA\",\"35\xB0"
                                                   "15'.0\",\"-02.50\"",
                                                   "\"21 May 2004 18:05:40\",\"SUNLOW\",\"12\xB0"
                                                   "30'.0\",\"-02.50\"",
                                                   Form09};

std::string Joined(const std::vector<std::string>& lines, const char* end = "\r\n")
{
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line + end;
    return bytes;
}

/// `lines` with line `number`, counted from 1, replaced.
std::vector<std::string> With(std::vector<std::string> lines, std::size_t number, const std::string& line)
{
    lines.at(number - 1) = line;
    return lines;
}

std::string ReadBytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Loads and saves in a folder of its own.
class ObservationFile : public testing::Test
{
protected:
    ObservationFile() : folder(fs::temp_directory_path() / ("merov_obs_" + std::to_string(::getpid())))
    {
        fs::create_directories(folder);
    }
    ~ObservationFile() override
    {
        fs::remove_all(folder);
        numeric::SetDecimalSeparator(".");
    }

    fs::path Write(const std::string& bytes, const std::string& name = "in.obs")
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return folder / name;
    }
    bool Load(const std::vector<std::string>& lines)
    {
        return LoadObservationFile(Write(Joined(lines)), entry, session);
    }

    /// The bytes of what a save of the loaded file writes.
    std::string Saved()
    {
        EXPECT_TRUE(ReadObservationGrid(entry, session));
        return FormatObservationFile(session);
    }

    fs::path folder;
    SightEntry entry;
    SightSession session;
    test::BoxRecorder boxes;
    test::FakeClock clock{38128.52};
};

TEST_F(ObservationFile, NumbersInTheNotationOfFiles)
{
    struct {
        double value;
        const char* text;
    } const cases[] = {
        {270, "270"},
        {12.5, "12.5"},
        {.25, ".25"},
        {-.05, "-.05"},
        {-0.0, "0"},
        {1e-5, "1E-05"},
        {-2.5 / 60.0, "-.0416666666666667"},
        {100.0 / 3.0, "33.3333333333333"},
        {1e14, "100000000000000"},
        {1.5e15, "1.5E+15"},
        {1e300, "1E+300"},
        {0.0001, ".0001"},
        {45.4999999999999953, "45.5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FileNumber(c.value), c.text);
}

TEST_F(ObservationFile, TwoSightsLoadAndSaveByteForByte)
{
    ASSERT_TRUE(Load(TwoSights));
    EXPECT_EQ(entry.Text(Field::Latitude), "43°30'.0 N");
    EXPECT_EQ(entry.Text(Field::Longitude), "008°15'.0 W");
    EXPECT_EQ(entry.Text(Field::Course), "270°.0");
    EXPECT_EQ(entry.Text(Field::Speed), "012.5");
    EXPECT_EQ(entry.Text(Field::HeightMetres), "12.0");
    EXPECT_EQ(entry.Text(Field::HeightFeet), "039.4");
    EXPECT_EQ(entry.Text(Field::InstCorr), "-02.50");
    EXPECT_EQ(entry.Text(Field::AirCelsius), "020");
    EXPECT_EQ(entry.Text(Field::Millibars), "1013");
    EXPECT_EQ(entry.Colour(Field::Course), FieldColour::Window);
    EXPECT_EQ(entry.Colour(Field::HeightMetres), FieldColour::Green);
    const GridRow& row = entry.Rows[2];
    EXPECT_EQ(row.Text, (std::array<std::string, 4>{"21 May 2004 18:05:40", "SUNLOW", "12°30'.0", "-02.50"}));
    EXPECT_EQ(row.Flag, (std::array<bool, 4>{true, true, true, true}));
    EXPECT_TRUE(CheckInputFlags(entry));
    EXPECT_EQ(session.Course, 270.0);
    EXPECT_EQ(session.OrigSpeed, 12.5);
    session.Course = 255.3; // what a fix corrects is not what was typed
    session.Speed = 11.1;
    EXPECT_EQ(Saved(), Joined(TwoSights));
}

TEST_F(ObservationFile, AllFormsAndLineEndsGiveTheCurrentForm)
{
    const std::string expected = Joined(TwoSights);
    for (const auto& lines : {With(TwoSights, 10, Form10), TwoSightsAsTexts})
        for (const char* end : {"\r\n", "\n"}) {
            std::string bytes = Joined(lines, end);
            for (int last = 0; last < 2; ++last) {
                ASSERT_TRUE(LoadObservationFile(Write(bytes), entry, session));
                EXPECT_TRUE(CheckInputFlags(entry));
                EXPECT_EQ(Saved(), expected);
                bytes.resize(bytes.size() - std::string(end).size()); // without an end of the last line
            }
        }
}

TEST_F(ObservationFile, CommaLocaleReadsAndWritesPoints)
{
    numeric::SetDecimalSeparator(",");
    ASSERT_TRUE(Load(TwoSights));
    EXPECT_EQ(entry.Text(Field::Latitude), "43°30',0 N");
    EXPECT_EQ(entry.Rows[1][GridColumn::Correction], "-02,50");
    EXPECT_EQ(Saved(), Joined(TwoSights));
    // A text file that a point locale wrote: the point stands where the comma belongs.
    ASSERT_TRUE(Load(TwoSightsAsTexts));
    EXPECT_EQ(entry.Text(Field::Speed), "_12,5");
    EXPECT_EQ(entry.Rows[1][GridColumn::Altitude], "35°15',0");
    EXPECT_EQ(Saved(), Joined(TwoSights));
}

TEST_F(ObservationFile, MidnightIsWrittenWithoutItsTime)
{
    ASSERT_TRUE(Load(With(With(TwoSights, 1, "#2004-05-22 00:00:00#"), 3, "#2004-05-22#")));
    EXPECT_EQ(session.TimeEstPos, session.TimeTruePos);
    EXPECT_EQ(Saved().substr(0, 14), "#2004-05-22#\r\n");
}

TEST_F(ObservationFile, ZeroSightsLoadTheInputAlone)
{
    for (const char* count : {"0", "-3"}) {
        auto lines = With(TwoSights, 7, count);
        lines.erase(lines.begin() + 7, lines.begin() + 9);
        ASSERT_TRUE(Load(lines));
        EXPECT_NEAR(session.EstLat, 43.5, 1e-13);
        EXPECT_FALSE(ReadObservationGrid(entry, session));
        EXPECT_EQ(boxes.TakeOne(), " Error in input data|Please fill the grid with the observations.");
    }
}

TEST_F(ObservationFile, ValuesOutOfTheirLimitsLeaveTheDefault)
{
    auto lines = With(TwoSights, 1, "#1850-05-21 18:00:00#");
    lines = With(With(With(With(lines, 2, "95,181"), 4, "400,1234.5"), 5, "-3,120"), 6, "-60,71,2000");
    ASSERT_TRUE(Load(lines));
    EXPECT_EQ(boxes.TakeTexts(),
              (std::vector<std::string>{
                  " Error in input data|The time of the estimated position|does not lie in the years 1900 to 2100.",
                  " Error in input data|Latitude > 90°.", " Error in input data|Longitude > 180°.",
                  " Error in input data|Course > 360°", " Error in input data|The speed is not valid.",
                  " Error in input data|The eye height is negative.",
                  " Error in input data|The instrumental correction is not valid. Try again please.",
                  " Error in input data|The temperature is lower than -50°C.",
                  " Error in input data|The temperature is higher than +70°C.",
                  " Error in input data|The atmospheric pressure is higher than 1070 mbars."}));
    EXPECT_TRUE(CheckInputFlags(entry)) << "a load sets the flags";
    EXPECT_EQ(entry.Text(Field::Latitude), "00°00'.0 N") << "what shows is what is used";
    EXPECT_EQ(entry.Text(Field::Millibars), "1013");
    EXPECT_EQ(entry.Text(Field::WaterFahrenheit), "_68");
    EXPECT_EQ(session.TimeEstPos, 38128.5) << "the present hour";
    EXPECT_EQ(Saved(),
              Joined(With(With(With(With(With(TwoSights, 1, "#2004-05-21 12:00:00#"), 2, "0,0"), 4, "0,0"), 5, "0,0"),
                          6, "20,20,1013")));
}

TEST_F(ObservationFile, RefusedCellsAreNeverTakenForOthers)
{
    struct {
        const char* record;
        const char* line;
    } const cases[] = {
        {"#2004-05-21 18:02:15#,\"Vega\",35.25,0", "Incorrect celestal body name in the grid."},
        {"#2004-05-21 18:02:15#,\"VEGA\",-.5,0", "Incorrect altitude in the grid."},
        {"#2004-05-21 18:02:15#,\"VEGA\",95,0", "Incorrect altitude in the grid."},
        {"#2004-05-21 18:02:15#,\"VEGA\",1E+308,0", "Incorrect altitude in the grid."},
        {"#2004-05-21 18:02:15#,\"VEGA\",35.25,2", "Incorrect instrumental error in the grid."},
        {"#2004-05-21 18:02:15#,\"VEGA\",35.25,-1E+308", "Incorrect instrumental error in the grid."},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(Load(With(TwoSights, 8, c.record)));
        EXPECT_FALSE(ReadObservationGrid(entry, session)) << c.record;
        EXPECT_EQ(boxes.TakeOne(), std::string("Incorrect data|") + c.line);
    }
}

TEST_F(ObservationFile, TextFormGoesThroughTheLeaveRules)
{
    auto lines = With(TwoSightsAsTexts, 2,
                      "\"\",\"181\xB0"
                      "15'.0 W\"");
    lines = With(lines, 6, "\"_-5\",\"___\",\"0900\"");
    lines = With(lines, 9, "\"no time\",\"SUNLOW\",\"abc\",\"-2.5\"");
    ASSERT_TRUE(Load(lines));
    EXPECT_EQ(boxes.TakeTexts(),
              (std::vector<std::string>{" Error in input data|Longitude > 180°.",
                                        " Error in input data|The atmospheric pressure is lower than 940 mbars."}));
    EXPECT_FALSE(entry.Flag(InputFlag::EstLat));
    EXPECT_FALSE(entry.Flag(InputFlag::EstLong));
    EXPECT_TRUE(entry.Flag(InputFlag::Course));
    EXPECT_EQ(entry.Text(Field::Longitude), "___°__'._ _");
    EXPECT_EQ(entry.Text(Field::Millibars), "1013");
    EXPECT_EQ(entry.Text(Field::AirFahrenheit), "_23");
    EXPECT_EQ(entry.Colour(Field::Speed), FieldColour::Green);
    EXPECT_EQ(ephemeris::FormatIsoDateTime(session.TimeTruePos), "2004-05-21 18:30:00")
        << "leaving the first picker must not move the second";
    EXPECT_FALSE(ReadObservationGrid(entry, session));
    EXPECT_EQ(boxes.TakeOne(), "Incorrect data|Incorrect time in the grid.");
}

TEST_F(ObservationFile, DamagedRecordsAreNamed)
{
    struct {
        std::vector<std::string> lines;
        const char* text; // record number, then what is wrong
    } const cases[] = {
        {With(TwoSights, 1, "#2004-02-30 18:00:00#"), "1|\"#2004-02-30 18:00:00#\" is not a date."},
        {With(TwoSights, 3, "2004-05-21"), "3|\"2004-05-21\" is not a date."},
        {With(TwoSights, 2, "43.5"), "2|It has 1 field instead of 2."},
        {With(TwoSights, 4, "270,12,5"), "4|It has 3 fields instead of 2."},
        {With(TwoSights, 4, ""), "4|It is empty."},
        {With(TwoSights, 5, "abc,-2.5"), "5|\"abc\" is not a number."},
        {With(TwoSights, 5, "12,\"-2.5\""), "5|\"-2.5\" is not a number."},
        {With(TwoSights, 5, "nan,0"), "5|\"nan\" is not a number."},
        {With(TwoSights, 5, "12,1E999"), "5|\"1E999\" is too large or too small."},
        {With(TwoSights, 6, "20,20,"), "6|\"\" is not a number."},
        {With(TwoSights, 6, "20,20,\x01" + std::string(300, 'x')),
         "6|\"?xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" is not a number."},
        {With(TwoSights, 7, "2.0"), "7|\"2.0\" is not a whole number."},
        {With(TwoSights, 7, "1E9"), "7|\"1E9\" is not a whole number."},
        {With(TwoSights, 7, "50"), "7|It announces more than 49 observations."},
        {With(TwoSights, 7, "99999999999999999999"), "7|It announces more than 49 observations."},
        {With(TwoSights, 7, "3"), "10|It is missing."},
        {With(TwoSights, 7, "1"), "9|It stands behind the last observation."},
        {With(TwoSights, 7, "0"), "8|It stands behind the last observation."},
        {With(TwoSights, 8, "#2004-05-21 18:02:15#,VEGA,35.25,0"), "8|\"VEGA\" is not a text in quotes."},
        {With(TwoSights, 9, "#2004-05-21 18:02:15#,\"VE,35.25,0"), "9|It has 2 fields instead of 4."},
        {With(TwoSightsAsTexts, 1, "\"noon\""), "1|\"noon\" is not a date."},
        {With(TwoSightsAsTexts, 2, "\"N\xE9\",\"\""), "2|\"N\xC3\xA9\" is no valid latitude."},
        {With(TwoSightsAsTexts, 5, "\"123.0\",\"\""), "5|\"123.0\" is no valid eye height."},
        {With(TwoSightsAsTexts, 8, "\"\",\"\",\"\""), "8|It has 3 fields instead of 4."},
        {{Current}, "1|It is missing."},
    };
    for (const auto& c : cases) {
        const std::string text = c.text;
        EXPECT_FALSE(Load(c.lines)) << text;
        const auto shown = boxes.TakeAll();
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].Icon, numeric::BoxIcon::Warning);
        EXPECT_EQ(test::BoxRecorder::Summary(shown[0]), "File unreadable|Record " + text.substr(0, text.find('|')) +
                                                            " of the file is damaged:" + text.substr(text.find('|')));
        EXPECT_EQ(entry.InputFlags, (std::array<bool, 8>{})) << "nothing half read is used";
        EXPECT_TRUE(entry.Rows[1][GridColumn::Time].empty());
    }
}

TEST_F(ObservationFile, OtherFilesAreNotObservations)
{
    const std::string good = Joined(TwoSights);
    for (const std::string& bytes :
         {std::string(), good + "\r\n", good.substr(0, good.size() - 3), "\xFF\xFE" + good.substr(good.size() - 48),
          good.substr(0, 40), Current + " \r\n", std::string(1000, '\0'), std::string("\n")}) {
        EXPECT_FALSE(LoadObservationFile(Write(bytes), entry, session));
        const auto shown = boxes.TakeAll();
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(test::BoxRecorder::Summary(shown[0]),
                  "File unreadable|Sorry, This is not an Merov file.|Please select the right file.");
        EXPECT_EQ(shown[0].Icon, numeric::BoxIcon::Information);
    }
    EXPECT_FALSE(LoadObservationFile(Write(std::string(LargestObservationFile, '\n') + good), entry, session));
    EXPECT_EQ(boxes.TakeOne(), "File unreadable|The file is too large for observations.");
}

TEST_F(ObservationFile, FileErrorsByTheirKind)
{
    const std::string title = " File access error|";
    const std::string other = title + "An error occured during file access.|The program will try to resume execution|"
                                      "but please report the following error:|Error ";
    const auto load = [&](const fs::path& path) {
        EXPECT_FALSE(LoadObservationFile(path, entry, session));
        return boxes.TakeOne();
    };
    EXPECT_EQ(load(folder / "none.obs"), title + "The file name doesn't exist. Try again.");
    EXPECT_EQ(load(""), title + "Your file specification was invalid. Try another.");
    EXPECT_EQ(load(folder / std::string(300, 'x')), title + "Your file specification was invalid. Try another.");
    EXPECT_EQ(load(std::string("a\0b", 3)), title + "Your file specification was invalid. Try another.");
    EXPECT_EQ(load(folder), other + "21: Is a directory");
    EXPECT_EQ(load("/dev/zero"), "File unreadable|The file is too large for observations.");

    ASSERT_TRUE(Load(TwoSights));
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    const auto save = [&](const fs::path& path) {
        const auto box = WriteObservationFile(path, session);
        return box ? test::BoxRecorder::Summary(*box) : "saved";
    };
    EXPECT_EQ(save(folder / "none" / "out.obs"), other + "2: No such file or directory");
    EXPECT_EQ(save(folder), other + "21: Is a directory");
    EXPECT_EQ(save(""), title + "Your file specification was invalid. Try another.");
}

TEST_F(ObservationFile, WhatIsNoPlainFileIsWrittenDirectly)
{
    ASSERT_TRUE(Load(TwoSights));
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int end = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    EXPECT_FALSE(WriteObservationFile(pipe, session).has_value());
    std::string bytes(10000, '\0');
    const auto count = ::read(end, bytes.data(), bytes.size());
    ::close(end);
    EXPECT_EQ(bytes.substr(0, static_cast<std::size_t>(std::max<long>(count, 0))), Joined(TwoSights));
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(ObservationFile, FailedWriteLeavesTheOldFileAlone)
{
    ASSERT_TRUE(Load(TwoSights));
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    const fs::path target = Write("old", "out.obs");
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{100, limit.rlim_max};
    const auto former = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small); // the disk is full after 100 bytes
    const auto box = WriteObservationFile(target, session);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, former);
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(box->Lines.back(), "Error 27: File too large");
    EXPECT_EQ(ReadBytes(target), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 2) << "in.obs and out.obs";
}

TEST_F(ObservationFile, WriteReplacesContentAndKeepsLinkAndMode)
{
    ASSERT_TRUE(Load(TwoSights));
    ASSERT_TRUE(ReadObservationGrid(entry, session));
    const fs::path target = Write(std::string(10000, 'x'), "out.obs");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("out.obs", folder / "link.obs");
    EXPECT_FALSE(WriteObservationFile(folder / "link.obs", session).has_value());
    EXPECT_EQ(ReadBytes(target), Joined(TwoSights));
    EXPECT_TRUE(fs::is_symlink(folder / "link.obs"));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ObservationFile, ConversionNeedsACompleteSession)
{
    const fs::path target = folder / "out.obs";
    EXPECT_TRUE(ConvertObservationFile(Write(Joined(TwoSightsAsTexts)), target));
    EXPECT_EQ(ReadBytes(target), Joined(TwoSights));
    EXPECT_TRUE(ConvertObservationFile(target, target)) << "onto itself";
    EXPECT_EQ(ReadBytes(target), Joined(TwoSights));

    EXPECT_FALSE(ConvertObservationFile(Write(Joined(With(TwoSightsAsTexts, 2, "\"\",\"\""))), target));
    EXPECT_EQ(boxes.TakeOne(),
              "Missing data|Some data are missing.|Please check that the whole input form is completed.");
    EXPECT_FALSE(ConvertObservationFile(Write(Joined(With(TwoSights, 8, "#2004-05-21#,\"X\",1,0"))), target));
    EXPECT_EQ(boxes.TakeOne(), "Incorrect data|Incorrect celestal body name in the grid.");
    EXPECT_EQ(ReadBytes(target), Joined(TwoSights)) << "a refused conversion writes nothing";
}

TEST_F(ObservationFile, ProposedNames)
{
    const double time = 38128.75; // 21 May 2004
    std::size_t taken = 0;
    std::vector<std::string> asked;
    const auto exists = [&](const std::string& name) {
        asked.push_back(name);
        return asked.size() <= taken;
    };
    const auto proposal = [&](std::size_t count) {
        taken = count;
        asked.clear();
        return ProposeFileName(time, exists);
    };
    EXPECT_EQ(proposal(0), "21May04A.obs");
    EXPECT_EQ(proposal(1), "21May04B.obs");
    EXPECT_EQ(proposal(26), "21May04AA.obs");
    EXPECT_EQ(proposal(52), "21May04BA.obs");
    EXPECT_EQ(proposal(10000), "21May04ZZ.obs");
}

TEST(ObservationFileReplay, SeedsAndFindsOfTheFuzzerHold)
{
    int files = 0;
    for (const char* folder : {"/fuzz/corpus/observation_file", "/tests/fix/data/fuzz"})
        for (const auto& file : fs::directory_iterator(MEROV_SOURCE_DIR + std::string(folder))) {
            EXPECT_EQ(test::CheckRoundTrip(ReadBytes(file.path())), "") << file.path();
            ++files;
        }
    EXPECT_GE(files, 18);
}

} // namespace
} // namespace merov::fix
