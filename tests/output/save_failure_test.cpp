#include "output/file_output.h"
#include "support/full_disk.h"
#include "support/qt_text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextCursor>

#include <functional>

namespace merov::output
{
namespace
{

using Write = std::function<std::optional<QString>(const QString& file)>;

/// Writes results into a folder whose disk fills up.
class SaveFailureTest : public testing::Test
{
protected:
    SaveFailureTest()
    {
        QTextCursor cursor(&text);
        cursor.insertText("Position 43°30'.0 N 008°15'.0 W");
    }
    QByteArray Bytes(const QString& name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void Put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    /// With room for fewer than all bytes, every `step` of them: a sentence tells of the failure, the old file stands
    /// and nothing else is left. With room again the file is replaced.
    void ExpectWholeOrOld(const QString& ending, const Write& write, std::size_t step)
    {
        SCOPED_TRACE(ending.toStdString());
        const QString name = "result." + ending;
        ASSERT_EQ(write(folder.filePath(name)), std::nullopt);
        const auto size = static_cast<std::size_t>(Bytes(name).size());
        Put(name, "old");
        for (std::size_t room = 0; room < size; room += step)
            for (const QString& target : {name, "new." + ending}) {
                std::optional<QString> failure;
                {
                    const test::FullDisk full(room);
                    failure = write(folder.filePath(target));
                }
                ASSERT_TRUE(failure &&
                            failure->startsWith("The file " + folder.filePath(target) + " could not be written: "))
                    << room;
                ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(name)) << room;
                ASSERT_EQ(Bytes(name), "old") << room;
            }
        EXPECT_EQ(write(folder.filePath(name)), std::nullopt);
        EXPECT_EQ(static_cast<std::size_t>(Bytes(name).size()), size);
        QFile::remove(folder.filePath(name));
    }

    const QTemporaryDir folder;
    QTextDocument text;
};

TEST_F(SaveFailureTest, AFileIsReplacedWholeOrNotAtAll)
{
    const QByteArray picture(700, 'p');
    ExpectWholeOrOld(
        "gpx", [&](const QString& file) { return WriteBytes(file, picture); }, 1);
    const auto writeText = [&](const QString& file) {
        return WriteText(file, "Position", text, {1000, 1000, 1000, 1000});
    };
    ExpectWholeOrOld("txt", writeText, 1);
    ExpectWholeOrOld("html", writeText, 7);
    ExpectWholeOrOld("pdf", writeText, 499);
}

} // namespace
} // namespace merov::output
