#include "fix/file_access.h"
#include "fix/observation_file.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"
#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <unistd.h>

namespace merov::fix::tests
{

namespace fs = std::filesystem;

/// Saves into a folder whose disk fills up.
class SaveFailure : public testing::Test
{
protected:
    SaveFailure() { fs::create_directories(folder); }
    ~SaveFailure() override { fs::remove_all(folder); }

    /// All files of the folder by name, with their bytes.
    std::map<std::string, std::string> Files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& file : fs::directory_iterator(folder))
            files[file.path().filename()] = ReadWholeFile(file.path(), LargestObservationFile).Bytes;
        return files;
    }
    std::optional<numeric::Box> SaveWithRoom(std::size_t room, const fs::path& path)
    {
        const test::FullDisk full(room);
        return WriteObservationFile(path, session);
    }

    const fs::path folder = fs::temp_directory_path() / ("merov_save_" + std::to_string(::getpid()));
    const fs::path sample = MEROV_SOURCE_DIR "/data/Observations/twelve_sights.obs";
    const std::string bytes = ReadWholeFile(sample, LargestObservationFile).Bytes;
    const std::string fullDisk =
        " File access error|An error occured during file access.|The program will try to resume "
        "execution|but please report the following error:|Error 27: File too large";
    SightEntry entry;
    SightSession session;
    test::BoxRecorder boxes;
    test::FakeClock clock;
};

TEST_F(SaveFailure, AtEachByteTheOldFileStandsAndNothingIsLeftBehind)
{
    ASSERT_TRUE(LoadObservationFile(sample, entry, session) && ReadObservationGrid(entry, session));
    ASSERT_EQ(ReplaceFile(folder / "old.obs", "the old file"), 0);
    fs::create_symlink("old.obs", folder / "link.obs");
    const auto before = Files();
    for (std::size_t room = 0; room < bytes.size(); ++room)
        for (const char* name : {"old.obs", "link.obs", "new.obs"}) {
            const auto box = SaveWithRoom(room, folder / name);
            ASSERT_EQ(box ? test::BoxRecorder::Summary(*box) : "", fullDisk) << name << " with " << room;
            ASSERT_EQ(Files(), before) << name << " with " << room;
        }
    EXPECT_EQ(FormatObservationFile(session), bytes) << "what was entered";
    EXPECT_FALSE(SaveWithRoom(bytes.size(), folder / "link.obs")) << "room for all";
    EXPECT_EQ(Files(), (std::map<std::string, std::string>{{"link.obs", bytes}, {"old.obs", bytes}}));
}

TEST_F(SaveFailure, AConversionOntoItselfFailsWithItsBoxAndCanBeRepeated)
{
    ASSERT_EQ(ReplaceFile(folder / "voyage.obs", bytes), 0);
    const auto before = Files();
    for (std::size_t room = 0; room < bytes.size(); room += 7) {
        const test::FullDisk full(room);
        ASSERT_FALSE(ConvertObservationFile(folder / "voyage.obs", folder / "voyage.obs"));
        ASSERT_EQ(boxes.TakeTexts(), std::vector{fullDisk}) << room;
        ASSERT_EQ(Files(), before) << room;
    }
    EXPECT_TRUE(ConvertObservationFile(folder / "voyage.obs", folder / "voyage.obs"));
    EXPECT_EQ(Files(), before);
}

TEST_F(SaveFailure, AFullDeviceIsTold)
{
    const auto box = WriteObservationFile("/dev/full", session);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Lines.back(), "Error 28: No space left on device");
}

} // namespace merov::fix::tests
