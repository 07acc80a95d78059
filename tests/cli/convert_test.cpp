#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <unistd.h>

/// The command convert.

namespace merov::test
{
namespace
{

namespace fs = std::filesystem;

/// Converts with --json, which must end with `status`; gives the boxes.
std::vector<std::string> Convert(const std::string& from, const std::string& to, int status)
{
    const ProgramRun run = RunCli({"convert", from, to, "--json"});
    EXPECT_EQ(run.Status, status) << from << " to " << to;
    EXPECT_EQ(run.Json().keys(), QStringList{"Boxes"});
    return BoxTexts(run.Json());
}

int FileCount(const fs::path& folder)
{
    return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(CliConvert, ThreeFormsGiveOneFileByteForByte)
{
    const ScratchFolder scratch;
    const std::string target = scratch.File("out.obs");
    const std::string current = ReadBytes(Sample("two_sights.obs"));
    for (const char* form : {"two_sights.obs", "old_form_1_0.obs", "old_form_0_9.obs"}) {
        EXPECT_TRUE(Convert(Sample(form), target, 0).empty());
        EXPECT_EQ(ReadBytes(target), current) << form;
    }
    const std::string own = scratch.Write("own.obs", ReadBytes(Sample("old_form_0_9.obs")));
    const ProgramRun inPlace = RunCli({"convert", own, own});
    EXPECT_EQ(inPlace.Status, 0);
    EXPECT_EQ(inPlace.Out, "File " + own + " saved.\n");
    EXPECT_EQ(ReadBytes(own), current);
    EXPECT_EQ(FileCount(scratch.Path()), 2);
}

TEST(CliConvert, WrittenFileIsExactToTheByte)
{
    // All notations: digits that repeat, no zero before the point, whole numbers, midnight without its time.
    const std::string bytes = "#2004-05-21#\r\n"
                              "43.5,-8.25\r\n"
                              "#2004-05-21 18:30:00#\r\n"
                              "270,12.5\r\n"
                              "12,-2.5\r\n"
                              "20,-5,1013\r\n"
                              "2\r\n"
                              "#2004-05-21 18:02:15#,\"VEGA\",35.25,-.0416666666666667\r\n"
                              "#2004-05-21 18:05:40#,\"ALNA'IR\",.5,1.66650000000000\r\n"
                              "\"This is an Merov 1.x observations data file.\"\r\n";
    const ScratchFolder scratch;
    const std::string target = scratch.File("out.obs");
    EXPECT_TRUE(Convert(scratch.Write("in.obs", bytes), target, 0).empty());
    std::string expected = bytes;
    expected.replace(expected.find("1.66650000000000"), 16, "1.6665");
    EXPECT_EQ(ReadBytes(target), expected);
}

TEST(CliConvert, FailureLeavesTheOldFileWhole)
{
    const ScratchFolder scratch;
    const std::string old = "an old file";
    const std::string target = scratch.Write("old.obs", old);
    const auto expectOld = [&] {
        EXPECT_EQ(ReadBytes(target), old);
        EXPECT_EQ(FileCount(scratch.Path()), 2);
    };
    const std::string damaged = scratch.Write("damaged.obs", "#2004-05-21#\r\n");
    EXPECT_EQ(Convert(damaged, target, 1).size(), 1u);
    expectOld();
    EXPECT_EQ(Convert(scratch.File("nosuch.obs"), target, 1),
              std::vector<std::string>{" File access error|The file name doesn't exist. Try again."});
    expectOld();
    // A medium without room: nothing can be written to any file.
    const ProgramRun full = RunCliAfter("trap '' XFSZ; ulimit -f 0", {"convert", Sample("two_sights.obs"), target});
    EXPECT_EQ(full.Status, 1);
    EXPECT_EQ(full.Out, "");
    EXPECT_NE(full.Err.find("File access error"), std::string::npos) << full.Err;
    expectOld();
    EXPECT_EQ(Convert(Sample("two_sights.obs"), scratch.File("nosuch/out.obs"), 1).size(), 1u);
    EXPECT_EQ(Convert(Sample("two_sights.obs"), scratch.Path().string(), 1).size(), 1u);
    expectOld();
    if (::geteuid() == 0) return; // root writes anywhere
    fs::permissions(target, fs::perms::owner_read);
    EXPECT_EQ(Convert(Sample("two_sights.obs"), target, 1).size(), 1u);
    expectOld();
}

} // namespace
} // namespace merov::test
