#include "app/observation_files.h"
#include "app/observation_grid.h"
#include "app/tab_in.h"
#include "fix/observation_file.h"
#include "numeric/inout_lib.h"
#include "platform/masked_edit.h"
#include "support/fake_clock.h"
#include "support/full_disk.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"
#include "support/scripted_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

const QString Samples = MEROV_SOURCE_DIR "/data/Observations";

/// The files and the fields of one input, in a folder of its own.
class ObservationFilesTest : public testing::Test
{
protected:
    ObservationFilesTest() { tabIn.InstallMasks(); }
    ~ObservationFilesTest() override { numeric::SetDecimalSeparator("."); }

    bool Load(const QString& startFile = {})
    {
        return files.Load(startFile, [this] {
            ++erasures;
            tabIn.Erase();
        });
    }
    QString Path(const QString& name) const { return folder.filePath(name); }
    void Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QByteArray Bytes(const QString& path) const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    const platform::MaskedEdit& Field(const char* name) { return *tabIn.findChild<platform::MaskedEdit*>(name); }
    /// All that was entered, as one text.
    std::string Entered() const
    {
        const fix::SightEntry& entry = input.Entry;
        std::string all = std::to_string(entry.TimeEstPos) + "|" + std::to_string(entry.TimeTruePos);
        for (const std::string& text : entry.Texts)
            all += "|" + text;
        for (const fix::GridRow& row : entry.Rows)
            for (const std::string& text : row.Text)
                all += "|" + text;
        return all;
    }

    test::FakeClock clock;
    test::ScreenBoxes boxes;
    QTemporaryDir folder;
    test::ScriptedDialogs dialogs;
    FixInput input;
    TabIn tabIn{input};
    ObservationFiles files{input, tabIn, dialogs, folder.path(), Samples};
    int erasures = 0;
};

TEST_F(ObservationFilesTest, EachSampleComesBackFromASave)
{
    for (const QString& sample : QDir(Samples).entryList({"*.obs"}, QDir::Files)) {
        SCOPED_TRACE(sample.toStdString());
        ASSERT_TRUE(Load(Samples + "/" + sample));
        const std::string entered = Entered();
        const QString saved = Path("Überfahrt " + sample);
        dialogs.Answers = {saved};
        files.Save();
        EXPECT_EQ(boxes.TakeOne(), "File saved confirmation|File " + saved.toStdString() + " saved.");
        tabIn.Erase();
        dialogs.Answers = {saved};
        ASSERT_TRUE(Load());
        EXPECT_EQ(Entered(), entered);
    }
}

TEST_F(ObservationFilesTest, TheFieldsShowAFileWithTheSeparatorInForce)
{
    numeric::SetDecimalSeparator(",");
    tabIn.InstallMasks();
    ASSERT_TRUE(Load(Samples + "/two_sights.obs"));
    EXPECT_EQ(erasures, 1);
    EXPECT_TRUE(dialogs.Questions.empty());
    EXPECT_EQ(Field("mskLat(5)").Text(), "38°43',0 N");
    EXPECT_EQ(Field("mskSpeed").Text(), "013,5");
    EXPECT_EQ(Field("mskHeightF").Text(), "027,9");
    EXPECT_EQ(platform::FieldColour(Field("mskSpeed")), QApplication::palette().color(QPalette::Base));
    EXPECT_EQ(platform::FieldColour(Field("mskHeightM")), QColor(0, 255, 0));

    dialogs.Answers = {Path("21May04A.obs")};
    files.Save();
    boxes.TakeOne();
    EXPECT_EQ(Bytes(Path("21May04A.obs")), Bytes(Samples + "/two_sights.obs"));
}

TEST_F(ObservationFilesTest, ASaveTakesTheOpenCellAndProposesTheNextLetterOfTheDay)
{
    ASSERT_TRUE(Load(Samples + "/two_sights.obs"));
    tabIn.Grid().GoTo(1, static_cast<int>(fix::GridColumn::Body));
    tabIn.Grid().EditGridCell('V');
    files.Save();
    EXPECT_EQ(input.Session.ObsBody[1].front(), 'V');
    Write("14Sep24A.obs", "");
    files.Save();
    ASSERT_EQ(dialogs.Questions.size(), 2U);
    const platform::FileQuestion& first = dialogs.Questions[0];
    EXPECT_EQ(first.Title, "Save observations data");
    EXPECT_EQ(first.Folder, folder.path());
    EXPECT_EQ(first.FileName, "14Sep24A.obs");
    EXPECT_EQ(first.Extension, "obs");
    EXPECT_EQ(first.Places, QStringList{Samples});
    EXPECT_EQ(dialogs.Questions[1].FileName, "14Sep24B.obs");
}

TEST_F(ObservationFilesTest, AFailedSaveAsksAnewAndLeavesTheOldFile)
{
    ASSERT_TRUE(Load(Samples + "/two_sights.obs"));
    const std::string entered = Entered();
    Write("14Sep24A.obs", "old");
    dialogs.Answers = {Path("14Sep24A.obs"), Path("gone/a.obs"), std::nullopt};
    {
        const test::FullDisk full(100);
        files.Save();
    }
    const std::vector<std::string> shown = boxes.TakeTexts();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].rfind(" File access error|An error occured during file access.|", 0), 0U) << shown[0];
    EXPECT_EQ(shown[1].rfind(" File access error|", 0), 0U) << shown[1];
    EXPECT_EQ(dialogs.Questions.size(), 3U);
    EXPECT_EQ(dialogs.Questions[2].FileName, "14Sep24B.obs");
    const auto size = static_cast<std::size_t>(Bytes(Samples + "/two_sights.obs").size());
    for (std::size_t room = 0; room < size; ++room) {
        dialogs.Answers = {Path("14Sep24A.obs"), std::nullopt};
        const test::FullDisk full(room);
        files.Save();
        ASSERT_EQ(boxes.TakeTexts(), std::vector{shown[0]}) << room;
        ASSERT_EQ(Bytes(Path("14Sep24A.obs")), "old") << room;
        ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << room;
        ASSERT_EQ(Entered(), entered) << room;
    }

    dialogs.Questions.clear();
    tabIn.Erase();
    files.Save();
    EXPECT_EQ(boxes.Count(), 1U);
    EXPECT_NE(boxes.TakeOne().find("Please fill the grid with the observations."), std::string::npos);
    EXPECT_TRUE(dialogs.Questions.empty()) << "an empty grid isn't saved";
}

TEST_F(ObservationFilesTest, ALoadThatFailsAsksForAnotherFile)
{
    ASSERT_TRUE(Load(Samples + "/two_sights.obs"));
    const std::string entered = Entered();
    dialogs.Answers = {std::nullopt};
    EXPECT_FALSE(Load());
    dialogs.Answers = {QString()};
    EXPECT_FALSE(Load());
    EXPECT_EQ(erasures, 1);
    EXPECT_EQ(Entered(), entered);
    EXPECT_EQ(dialogs.Questions[0].Title, "Load observations data");
    EXPECT_EQ(dialogs.Questions[0].FileName, "");

    Write("notes.obs", Bytes(Samples + "/two_sights.obs") + "\r\n");
    dialogs.Answers = {Path("notes.obs"), folder.path(), Samples + "/sun_run_sun.obs"};
    EXPECT_TRUE(Load("gone.obs"));
    const std::vector<std::string> shown = boxes.TakeTexts();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0], " File access error|The file name doesn't exist. Try again.");
    EXPECT_EQ(shown[1], "File unreadable|Sorry, This is not an Merov file.|Please select the right file.");
    EXPECT_EQ(shown[2].rfind(" File access error|", 0), 0U) << shown[2];
    EXPECT_EQ(erasures, 5);
    EXPECT_EQ(dialogs.Questions.size(), 5U);

    dialogs.Answers = {std::nullopt};
    EXPECT_FALSE(Load("gone.obs"));
    boxes.TakeOne();
    EXPECT_EQ(input.Entry.Rows[1][fix::GridColumn::Body], "");
    EXPECT_EQ(Field("mskLat(5)").Text(), "__°__'._ _");
}

TEST_F(ObservationFilesTest, DialogsStartWhereTheUserMayWrite)
{
    const QString program = Path("program");
    const QString documents = Path("documents");
    QDir().mkpath(program + "/Observations");
    const auto only = [](const QString& writable) {
        return [writable](const QString& asked) { return asked == writable; };
    };
    EXPECT_EQ(ObservationsFolder(program, documents, only(program + "/Observations")), program + "/Observations");
    EXPECT_EQ(ObservationsFolder(program, documents, only(program)), documents + "/Merov/Observations");
    EXPECT_EQ(ObservationsFolder(documents, "", only(documents)), documents + "/Observations") << "not made yet";
    EXPECT_EQ(ObservationsFolder(program, documents), program + "/Observations");
    EXPECT_FALSE(CanWriteIn(Path("gone")));

    const QString own = documents + "/Merov/Observations";
    ObservationFiles installed(input, tabIn, dialogs, own, Samples);
    installed.Load({}, [] {});
    EXPECT_TRUE(QDir(own).exists());
    ObservationFiles aboard(input, tabIn, dialogs, Samples, Samples);
    aboard.Load({}, [] {});
    EXPECT_EQ(dialogs.Questions.back().Places, QStringList());
}

} // namespace
} // namespace merov::app
