#include "ephemeris/astro_lib.h"
#include "fix/observation_file.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// The type of observation files: told by what stands in them, among the types that this system knows.

namespace merov
{

TEST(MimeType, IsToldByTheClosingSentence)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath("mime/packages"));
    ASSERT_TRUE(QFile::copy(MEROV_SOURCE_DIR "/packaging/merov-mime.xml", folder.path() + "/mime/packages/merov.xml"));
    if (QProcess::execute("update-mime-database", {folder.path() + "/mime"}) != 0)
        GTEST_SKIP() << "update-mime-database is missing";
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    const QMimeDatabase types;
    const QString ours = "application/x-merov-observations";
    ASSERT_TRUE(types.mimeTypeForName(ours).isValid());
    EXPECT_EQ(types.mimeTypeForName(ours).parentMimeTypes(), QStringList{"text/plain"});
    EXPECT_EQ(types.mimeTypeForName(ours).iconName(), "application-x-merov-observations");

    QByteArray sample;
    for (const QFileInfo& info : QDir(MEROV_SOURCE_DIR "/data/Observations").entryInfoList({"*.obs"})) {
        QFile file(info.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        sample = file.readAll();
        EXPECT_EQ(types.mimeTypeForFile(info).name(), ours) << info.filePath().toStdString();
        const QString copy = folder.path() + "/a copy";
        QFile::remove(copy);
        ASSERT_TRUE(file.copy(copy));
        EXPECT_EQ(types.mimeTypeForFile(copy).name(), ours) << info.filePath().toStdString();
    }

    // Neither other files of this ending nor texts that quote the sentence.
    for (const QByteArray& bytes :
         {QByteArray("     2.11           OBSERVATION DATA    M (MIXED)           RINEX VERSION\n"),
          "As it ends:\n" + sample, sample.chopped(30), QByteArray()})
        EXPECT_NE(types.mimeTypeForFileNameAndData("gps.obs", bytes).name(), ours) << bytes.toStdString();
}

/// Some desktops look no farther than 4096 bytes.
TEST(MimeType, LongestFileEndsInReach)
{
    fix::SightSession session;
    fix::AllocateObservations(session, fix::MaxObservations);
    session.EstLat = session.EstLong = -100.0 / 3.0;
    for (int i = 1; i <= session.ObsCount; ++i) {
        session.ObsTime[i] = 45000.123;
        session.ObsBody[i] = "KAUS AUST";
        session.ObsAltitude[i] = 100.0 / 3.0;
        session.ObsInstCorr[i] = -1.0 / 30.0;
    }
    EXPECT_LE(fix::FormatObservationFile(session).size(), 4096U);
}

} // namespace merov
