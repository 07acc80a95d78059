#include "platform/help_window.h"

#include "platform/chm_contents.h"
#include "platform/chm_file.h"
#include "support/box_recorder.h"
#include "support/qt_text.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

const QString ManualFile = QStringLiteral(MEROV_RUN_DIR "/Merov.chm");

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// Writes a manual with other bytes.
QString Write(const QTemporaryDir& folder, const QByteArray& bytes)
{
    QFile file(folder.filePath("manual.chm"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName();
}

TEST(ChmFile, HasTheTitleTheDefaultTopicAndThePages)
{
    const auto manual = ChmFile::Open(ManualFile);
    ASSERT_NE(manual, nullptr);
    EXPECT_EQ(manual->Title(), "Merov Manual");
    EXPECT_EQ(manual->DefaultTopic(), "index.html");
    EXPECT_EQ(manual->Object("Files.html"), BytesOf(MEROV_SOURCE_DIR "/docs/manual/files.html"));
    EXPECT_FALSE(manual->Object("missing.html"));
    EXPECT_FALSE(manual->Object(QString(600, 'a')));
    // The compiler looks at the links of the pages, not at those of the contents.
    for (const ChmEntry& entry : ReadChmContents(*manual->Object(manual->ContentsFile()))) {
        const auto html = manual->Object(entry.Page.section('#', 0, 0));
        const QString anchor = entry.Page.section('#', 1);
        EXPECT_TRUE(html && (anchor.isEmpty() || html->contains("id=\"" + anchor.toUtf8() + '"')))
            << entry.Page.toStdString();
    }
}

TEST(ChmFile, RefusesAMissingAShortAndADamagedFile)
{
    EXPECT_EQ(ChmFile::Open("/no/such/file.chm"), nullptr);
    const QTemporaryDir folder;
    const QByteArray bytes = BytesOf(ManualFile);
    for (const qsizetype length : {qsizetype(0), qsizetype(4), qsizetype(100), bytes.size() / 2, bytes.size() - 1})
        EXPECT_EQ(ChmFile::Open(Write(folder, bytes.left(length))), nullptr) << length;
    EXPECT_NE(ChmFile::Open(Write(folder, bytes)), nullptr);

    // Figures by which pages are unpacked: the size of the window, and where these figures stand.
    const qsizetype window = bytes.indexOf("LZXC") + 12;
    const qsizetype place = bytes.indexOf("/ControlData") + 12;
    for (const qsizetype where : {window, window + 1, window + 3, place, place + 1, place + 2}) {
        QByteArray damaged = bytes;
        damaged[where] = static_cast<char>(damaged[where] ^ 0x5b);
        EXPECT_EQ(ChmFile::Open(Write(folder, damaged)), nullptr) << where;
    }
}

TEST(ChmContents, ReadsLevelsAndLeavesOutWhatIsDamaged)
{
    const QString line = "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"%1\">"
                         "<PARAM NAME=\"Local\" VALUE=\"%2\"></OBJECT>";
    const QString table = "<body><object type=\"text/site properties\"><param name=\"Font\" value=\"x\"></object><ul>" +
                          line.arg("Time &amp; tide", "a.html") + "<ul><ul>" + line.arg("10°", "a.html#b") +
                          "</ul></ul></ul></ul></ul>" + line.arg("", "c.html") + line.arg("End", "") +
                          "<LI><OBJECT><param name=\"Name\" value=\"open";
    QString read;
    for (const ChmEntry& entry : ReadChmContents(table))
        read += QString("%1 %2 %3|").arg(entry.Level).arg(entry.Name, entry.Page);
    EXPECT_EQ(read, "0 Time & tide a.html|1 10° a.html#b|0 End |");
}

class HelpWindowTest : public testing::Test
{
protected:
    HelpWindowTest() { owner.show(); }
    QString Address() const { return page.source().toString(); }
    bool CanGoBack() const { return help.findChild<QAction*>("Back")->isEnabled(); }

    const QTemporaryDir folder;
    test::BoxRecorder boxes;
    QWidget owner;
    HelpWindow help{&owner};
    QTextBrowser& page = *help.findChild<QTextBrowser*>("page");
    QTreeWidget& contents = *help.findChild<QTreeWidget*>("contents");
};

TEST_F(HelpWindowTest, ShowsTheManualFollowsLinksAndComesBack)
{
    help.ShowTopic(ManualFile);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    EXPECT_EQ(help.windowTitle(), "Merov Manual");
    EXPECT_EQ(Address(), "chm:/index.html");
    EXPECT_GT(page.document()->begin().blockFormat().bottomMargin(), 0.0); // the style was found
    EXPECT_FALSE(CanGoBack());

    const QString link = "grid of observations";
    for (int i = 0; i < 20 && page.textCursor().selectedText() != link; i++)
        QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Return);
    EXPECT_EQ(Address(), "chm:/entries.html#grid");
    EXPECT_TRUE(page.toPlainText().contains("5°03'.2 N")); // UTF-8
    EXPECT_EQ(contents.currentItem()->text(0), "Keys of the grid");
    EXPECT_GT(page.verticalScrollBar()->value(), 0);
    for (const auto& [key, address] :
         {std::pair{Qt::Key_Left, "index.html"}, {Qt::Key_Right, "entries.html#grid"}, {Qt::Key_Home, "index.html"}}) {
        help.ShowTopic(ManualFile); // brought forward, as it stands
        QTest::keyClick(&help, key, Qt::AltModifier);
        EXPECT_EQ(Address(), QString("chm:/") + address);
    }
    QTest::keyClick(&contents, Qt::Key_Down);
    EXPECT_EQ(Address(), "chm:/first_fix.html");
}

TEST_F(HelpWindowTest, SearchesAndShowsWhatItFound)
{
    auto& search = *help.findChild<QLineEdit*>("search");
    auto& found = *help.findChild<QListWidget*>("found");
    help.ShowTopic(ManualFile);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&page, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, "loading");
    EXPECT_TRUE(found.isVisible() && !contents.isVisible());
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_EQ(Address(), "chm:/files.html#loading");
    EXPECT_EQ(found.currentItem()->text(), "Files: Loading");
    search.setText("xyzzy");
    EXPECT_EQ(found.item(0)->text(), "Nothing found");
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_TRUE(help.isVisible() && contents.isVisible() && !found.isVisible());
}

TEST_F(HelpWindowTest, StaysWithinTheManual)
{
    help.ShowTopic(ManualFile, "missing.html");
    EXPECT_TRUE(page.toPlainText().contains("no page \"missing.html\""));
    help.ShowTopic(ManualFile, "files.html");
    for (const char* outside : {"http://localhost/", "file:///etc/hostname", "mailto:a@b"})
        page.setSource(QUrl(outside));
    EXPECT_EQ(Address(), "chm:/files.html");
    EXPECT_FALSE(page.loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
}

TEST_F(HelpWindowTest, ClosesByEscapeAndWithItsOwner)
{
    help.ShowTopic(ManualFile, "files.html");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&page, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&owner));
    EXPECT_FALSE(help.isVisible());
    help.ShowTopic(ManualFile); // from the beginning
    EXPECT_TRUE(Address() == "chm:/index.html" && !CanGoBack());
    owner.close();
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpWindowTest, DamagedFiles)
{
    const QString damaged = Write(folder, BytesOf(ManualFile).chopped(200));
    help.ShowTopic(damaged);
    EXPECT_EQ(boxes.TakeOne(), "File unreadable|The manual is missing or damaged:|" + damaged.toStdString());
    EXPECT_FALSE(help.isVisible());
    // Without contents the page takes the whole window: the contents are filed under another name than the one that the
    // manual tells.
    help.ShowTopic(Write(folder, BytesOf(ManualFile).replace("/Merov.hhc", "/Merov.hhd")));
    EXPECT_TRUE(page.isVisible() && !contents.isVisible());
}

} // namespace
} // namespace merov::platform
