#include "fix/observation_file.h"

#include "ephemeris/time_lib.h"
#include "fix/file_access.h"
#include "numeric/inout_lib.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace merov::fix::tests
{

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const fs::path Corpus = MEROV_SOURCE_DIR "/fuzz/corpus/observation_file";
const std::string TwoSights = ReadBytes(Corpus / "current.obs");
const std::string AsTexts = ReadBytes(Corpus / "form_0_9.obs"); // other water

/// The bytes of a file with lines replaced, by their numbers from 1.
std::string With(std::string bytes, const std::vector<std::pair<int, std::string>>& lines)
{
    for (const auto& [number, line] : lines) {
        std::size_t first = 0;
        for (int i = 1; i < number; ++i)
            first = bytes.find('\n', first) + 1;
        bytes.replace(first, bytes.find("\r\n", first) - first, line);
    }
    return bytes;
}

/// Loads and saves in a folder of its own.
class ObservationFile : public testing::Test
{
protected:
    ObservationFile() { fs::create_directories(folder); }
    ~ObservationFile() override
    {
        fs::remove_all(folder);
        numeric::SetDecimalSeparator(".");
    }
    fs::path Write(const std::string& bytes, const char* name = "in.obs")
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return folder / name;
    }
    bool Load(const std::string& bytes) { return LoadObservationFile(Write(bytes), entry, session); }
    /// The bytes that a save of the loaded file writes.
    std::string Saved()
    {
        EXPECT_TRUE(ReadObservationGrid(entry, session));
        return FormatObservationFile(session);
    }
    /// What the fields show.
    std::string Texts() const
    {
        std::string all;
        for (const std::string& text : entry.Texts)
            all += text + "|";
        return all;
    }

    const fs::path folder = fs::temp_directory_path() / ("merov_obs_" + std::to_string(::getpid()));
    const fs::path target = folder / "out.obs";
    SightEntry entry;
    SightSession session;
    test::BoxRecorder boxes;
    test::FakeClock clock{38128.52};
};

TEST_F(ObservationFile, NumbersInTheNotationOfFiles)
{
    std::string texts;
    for (const double value : {270., 12.5, .25, -.05, -0., 1e-5, .0001, 1e14, 1.5e15, 1e300, -2.5 / 60, 100. / 3})
        texts += FileNumber(value) + " ";
    EXPECT_EQ(texts, "270 12.5 .25 -.05 0 1E-05 .0001 100000000000000 1.5E+15 1E+300 -.0416666666666667 "
                     "33.3333333333333 ");
}

TEST_F(ObservationFile, TwoSightsLoadAndSaveByteForByte)
{
    ASSERT_TRUE(Load(TwoSights));
    EXPECT_EQ(Texts(), "43°30'.0 N|008°15'.0 W|270°.0|012.5|12.0|039.4|-02.50|020|_68|020|_68|1013|29.91|");
    EXPECT_EQ(entry.Colour(EntryField::Course), FieldColour::Window);
    EXPECT_EQ(entry.Colour(EntryField::HeightMetres), FieldColour::Green);
    EXPECT_EQ(entry.Rows[2].Text, (std::array<std::string, 4>{"21 May 2004 18:05:40", "SUNLOW", "12°30'.0", "-02.50"}));
    EXPECT_TRUE(CheckInputFlags(entry));
    EXPECT_EQ(session.Course, 270.0);
    session.Course = session.Speed = 11.1; // what a fix corrects is not what was typed
    EXPECT_EQ(Saved(), TwoSights);
    ASSERT_TRUE(Load(With(TwoSights, {{1, "#2004-05-22 00:00:00#"}, {3, "#2004-05-22#"}})));
    EXPECT_EQ(Saved(), With(TwoSights, {{1, "#2004-05-22#"}, {3, "#2004-05-22#"}}));
}

TEST_F(ObservationFile, OlderFormsAndLineEndsGiveTheCurrentForm)
{
    const std::string form10 = ReadBytes(Corpus / "form_1_0_lf.obs");
    for (const std::string& bytes :
         {form10, form10.substr(0, form10.size() - 1), AsTexts, AsTexts.substr(0, AsTexts.size() - 2)}) {
        ASSERT_TRUE(Load(bytes));
        EXPECT_TRUE(CheckInputFlags(entry));
        EXPECT_EQ(Saved(), bytes[0] == '#' ? TwoSights : With(TwoSights, {{6, "20,-1,1013"}}));
    }
}

TEST_F(ObservationFile, CommaLocaleReadsAndWritesPoints)
{
    numeric::SetDecimalSeparator(",");
    // Texts that a point locale wrote are read, too: the point stands where the comma belongs.
    for (const std::string& bytes : {TwoSights, AsTexts, ReadBytes(Corpus / "form_0_9_comma.obs")}) {
        ASSERT_TRUE(Load(bytes));
        EXPECT_EQ(Texts().find('.'), std::string::npos) << Texts();
        EXPECT_EQ(entry.Rows[1][GridColumn::Altitude], "35°15',0");
        EXPECT_EQ(Saved(), bytes[0] == '#' ? TwoSights : With(TwoSights, {{6, "20,-1,1013"}}));
    }
}

TEST_F(ObservationFile, ZeroSightsLoadTheInputAlone)
{
    ASSERT_TRUE(Load(ReadBytes(Corpus / "no_sights.obs")));
    EXPECT_NEAR(session.EstLat, 43.5, 1e-13);
    EXPECT_FALSE(ReadObservationGrid(entry, session));
    EXPECT_EQ(boxes.TakeOne(), " Error in input data|Please fill the grid with the observations.");
}

TEST_F(ObservationFile, ValuesOutOfTheirLimitsLeaveTheDefault)
{
    const std::vector<std::pair<int, std::string>> records = {
        {1, "#1850-05-21 18:00:00#"}, {2, "95,-181"}, {4, "400,1234.5"}, {5, "-3,120"}, {6, "-60,71,2000"}};
    ASSERT_TRUE(Load(With(TwoSights, records)));
    const std::vector<std::string> texts = boxes.TakeTexts();
    EXPECT_EQ(texts.size(), 10u);
    EXPECT_EQ(texts.at(0), " Error in input data|The time of the estimated position|"
                           "does not lie in the years 1900 to 2100.");
    EXPECT_TRUE(CheckInputFlags(entry)) << "a load sets the flags";
    EXPECT_EQ(Texts(), "00°00'.0 N|000°00'.0 E|000°.0|000.0|00.0|000.0|+00.00|020|_68|020|_68|1013|29.91|");
    EXPECT_EQ(Saved(), With(TwoSights, {{1, "#2004-05-21 12:00:00#"}, {2, "0,0"}, {4, "0,0"}, {5, "0,0"}}))
        << "the present hour, 0, and the weather of an erased input";
}

TEST_F(ObservationFile, TextFormGoesThroughTheLeaveRules)
{
    const std::vector<std::pair<int, std::string>> records = {
        {2, "\"\",\"999\xB0__'.0 W\""}, {6, R"("_-5","___","0900")"}, {9, R"("no time","SUNLOW","abc","-2.5")"}};
    ASSERT_TRUE(Load(With(AsTexts, records)));
    EXPECT_EQ(boxes.TakeAll().size(), 2u); // longitude, pressure
    EXPECT_EQ(Texts(), "__°__'._ _|___°__'._ _|270°.0|_12.5|12.0|039.4|-02.50|_-5|_23|_20|_68|1013|29.91|");
    EXPECT_EQ(entry.InputFlags, (std::array{true, false, false, true, true, true, true, true}));
    EXPECT_EQ(entry.Colour(EntryField::Speed), FieldColour::Green);
    EXPECT_EQ(ephemeris::FormatIsoDateTime(session.TimeTruePos), "2004-05-21 18:30:00")
        << "leaving the first picker must not move the second";
    EXPECT_FALSE(ReadObservationGrid(entry, session));
    EXPECT_EQ(boxes.TakeOne(), "Incorrect data|Incorrect time in the grid.");
}

TEST_F(ObservationFile, DamagedRecordsAreNamed)
{
    struct {
        char form; // numeric or text
        int line;
        std::string damaged, what;
        int record = 0; // named instead of the line
    } const cases[] = {
        {'n', 1, "#2004-02-30 18:00:00#", "\"#2004-02-30 18:00:00#\" is not a date."},
        {'n', 2, "43.5", "It has 1 field instead of 2."},
        {'n', 4, "270,12,5", "It has 3 fields instead of 2."},
        {'n', 4, "", "It is empty."},
        {'n', 5, "12,\"-2.5\"", "\"-2.5\" is not a number."},
        {'n', 5, "nan,0", "\"nan\" is not a number."},
        {'n', 5, "12,1E999", "\"1E999\" is too large or too small."},
        {'n', 6, "20,20,\x01" + std::string(300, 'x'), "\"?" + std::string(39, 'x') + "...\" is not a number."},
        {'n', 7, "2.0", "\"2.0\" is not a whole number."},
        {'n', 7, "50", "It announces more than 49 observations."},
        {'n', 7, "99999999999999999999", "It announces more than 49 observations."},
        {'n', 7, "3", "It is missing.", 10},
        {'n', 7, "1", "It stands behind the last observation.", 9},
        {'n', 8, "#2004-05-21#,VEGA,35.25,0", "\"VEGA\" is not a text in quotes."},
        {'n', 9, "#2004-05-21#,\"VE,35.25,0", "It has 2 fields instead of 4."},
        {'t', 1, "\"noon\"", "\"noon\" is not a date."},
        {'t', 2, "\"N\xE9\",\"\"", "\"N\xC3\xA9\" is no valid latitude."},
        {'t', 5, "\"123.0\",\"\"", "\"123.0\" is no valid eye height."}};
    for (const auto& c : cases) {
        EXPECT_FALSE(Load(With(c.form == 't' ? AsTexts : TwoSights, {{c.line, c.damaged}})));
        EXPECT_EQ(boxes.TakeOne(), "File unreadable|Record " + std::to_string(c.record > 0 ? c.record : c.line) +
                                       " of the file is damaged:|" + c.what);
        EXPECT_EQ(entry.InputFlags, (std::array<bool, 8>{})) << "nothing half read is used";
        EXPECT_TRUE(entry.Rows[1][GridColumn::Time].empty());
    }
}

TEST_F(ObservationFile, OtherFilesAreNotObservations)
{
    for (const std::string& bytes : {std::string(), TwoSights + "\r\n", TwoSights.substr(0, TwoSights.size() - 3),
                                     TwoSights.substr(0, 40), std::string(1000, '\0'), std::string("\n")}) {
        EXPECT_FALSE(Load(bytes));
        EXPECT_EQ(boxes.TakeOne(), "File unreadable|Sorry, This is not an Merov file.|Please select the right file.");
    }
    EXPECT_FALSE(Load(std::string(LargestObservationFile, '\n') + TwoSights));
    EXPECT_EQ(boxes.TakeOne(), "File unreadable|The file is too large for observations.");
}

TEST_F(ObservationFile, FileErrorsByTheirKind)
{
    const std::string other = "An error occured during file access.|The program will try to resume execution|"
                              "but please report the following error:|Error ";
    const std::string badName = "Your file specification was invalid. Try another.";
    const auto expect = [&](const fs::path& path, const std::string& reading, const std::string& writing) {
        EXPECT_FALSE(LoadObservationFile(path, entry, session));
        EXPECT_EQ(boxes.TakeOne(), " File access error|" + reading);
        EXPECT_EQ(test::BoxRecorder::Summary(*WriteObservationFile(path, session)), " File access error|" + writing);
    };
    expect(folder / "none" / "x.obs", "The file name doesn't exist. Try again.",
           other + "2: No such file or directory");
    expect(folder, other + "21: Is a directory", other + "21: Is a directory");
    for (const fs::path& path : {fs::path(), folder / std::string(300, 'x'), fs::path(std::string("a\0b", 3))})
        expect(path, badName, badName);
    EXPECT_EQ(FileErrorBox(ENXIO, true).Lines.at(0), "The drive you specified was not found. Try again.");
    EXPECT_EQ(FileErrorBox(ENOMEDIUM, false).Lines.at(0), "Close the disk drive door and try again.");
    EXPECT_FALSE(LoadObservationFile("/dev/zero", entry, session));
    EXPECT_EQ(boxes.TakeOne(), "File unreadable|The file is too large for observations.");
}

TEST_F(ObservationFile, WhatIsNoPlainFileIsWrittenDirectly)
{
    ASSERT_EQ(::mkfifo(target.c_str(), 0600), 0);
    const int end = ::open(target.c_str(), O_RDWR | O_NONBLOCK);
    EXPECT_EQ(ReplaceFile(target, TwoSights), 0);
    std::string read(TwoSights.size(), '\0');
    EXPECT_EQ(::read(end, read.data(), read.size()), static_cast<ssize_t>(read.size()));
    ::close(end);
    EXPECT_EQ(read, TwoSights);
    EXPECT_TRUE(fs::is_fifo(target));
}

TEST_F(ObservationFile, ConversionReplacesContentKeepsLinkAndModeAndNeedsACompleteSession)
{
    Write(std::string(10000, 'x'), "out.obs");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("out.obs", folder / "link.obs");
    EXPECT_TRUE(ConvertObservationFile(Write(TwoSights), folder / "link.obs"));
    EXPECT_TRUE(fs::is_symlink(folder / "link.obs"));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(ConvertObservationFile(target, target)) << "onto itself";
    for (const auto& [bytes, box] :
         {std::pair{With(AsTexts, {{2, "\"\",\"\""}}),
                    "Missing data|Some data are missing.|Please check that the whole input form is completed."},
          {With(TwoSights, {{2, "91,0"}}), " Error in input data|Latitude > 90°."},
          {With(AsTexts, {{4, "\"400\xB0.0\",\"_12.5\""}}), " Error in input data|Course > 360°"},
          {With(TwoSights, {{8, "#2004-05-21#,\"VEGA\",-.5,0"}}), "Incorrect data|Incorrect altitude in the grid."}}) {
        EXPECT_FALSE(ConvertObservationFile(Write(bytes), target));
        EXPECT_EQ(boxes.TakeOne(), box);
    }
    EXPECT_EQ(ReadBytes(target), TwoSights) << "a refused conversion writes nothing";
}

TEST_F(ObservationFile, ProposedNames)
{
    std::string names;
    for (const int taken : {0, 1, 26, 52, 10000}) {
        int asked = 0;
        names += ProposeFileName(38128.75, [&](const std::string&) { return ++asked <= taken; }) + " ";
    }
    EXPECT_EQ(names, "21May04A.obs 21May04B.obs 21May04AA.obs 21May04BA.obs 21May04ZZ.obs ");
}

} // namespace merov::fix::tests
