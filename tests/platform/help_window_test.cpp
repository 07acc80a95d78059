#include "platform/help_window.h"

#include "platform/chm_contents.h"
#include "platform/chm_file.h"
#include "support/box_recorder.h"
#include "support/qt_text.h"

#include <QAction>
#include <QFile>
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
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
}

TEST(ChmFile, HasTheTitleTheDefaultTopicAndThePages)
{
    const auto manual = ChmFile::Open(ManualFile);
    ASSERT_NE(manual, nullptr);
    EXPECT_EQ(manual->Title(), "Merov Manual");
    EXPECT_EQ(manual->DefaultTopic(), "index.html");
    EXPECT_EQ(manual->ContentsFile(), "Merov.hhc");
    EXPECT_EQ(manual->Object("Files.html"), BytesOf(MEROV_SOURCE_DIR "/docs/manual/files.html"));
    EXPECT_FALSE(manual->Object("missing.html"));
    EXPECT_FALSE(manual->Object(QString(600, 'a')));
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
    const QList<ChmEntry> entries = ReadChmContents(table);
    ASSERT_EQ(entries.size(), 3);
    EXPECT_EQ(entries[0].Name, "Time & tide");
    EXPECT_EQ(entries[0].Level, 0);
    EXPECT_EQ(entries[1].Page, "a.html#b");
    EXPECT_EQ(entries[1].Level, 1);
    EXPECT_EQ(entries[2].Name, "End");
    EXPECT_EQ(entries[2].Level, 0);
}

class HelpWindowTest : public testing::Test
{
protected:
    HelpWindowTest()
    {
        owner.resize(300, 200);
        owner.show();
    }
    QString Text() const { return page.toPlainText(); }
    QString Address() const { return page.source().toString(); }
    QAction& Command(const char* name) { return *help.findChild<QAction*>(name); }

    /// Goes to the next link by the Tab key until it is the wanted one, and follows it.
    void FollowLink(const QString& text)
    {
        for (int i = 0; i < 20 && page.textCursor().selectedText() != text; i++)
            QTest::keyClick(&page, Qt::Key_Tab);
        EXPECT_EQ(page.textCursor().selectedText(), text);
        QTest::keyClick(&page, Qt::Key_Return);
    }

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
    EXPECT_FALSE(Command("Back").isEnabled());

    FollowLink("grid of observations");
    EXPECT_EQ(Address(), "chm:/entries.html#grid");
    EXPECT_TRUE(Text().contains("5°03'.2 N")); // UTF-8
    EXPECT_EQ(contents.currentItem()->text(0), "Keys of the grid");
    EXPECT_GT(page.verticalScrollBar()->value(), 0);
    QTest::keyClick(&help, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Address(), "chm:/index.html");
    QTest::keyClick(&help, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Address(), "chm:/entries.html#grid");

    help.ShowTopic(ManualFile); // brought forward, as it stands
    EXPECT_EQ(Address(), "chm:/entries.html#grid");
    QTest::keyClick(&help, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Address(), "chm:/index.html");
    QTest::keyClick(&contents, Qt::Key_Down);
    EXPECT_EQ(Address(), "chm:/first_fix.html");
}

TEST_F(HelpWindowTest, StaysWithinTheManual)
{
    help.ShowTopic(ManualFile, "wizard.html");
    EXPECT_TRUE(Text().contains("no page \"wizard.html\""));
    help.ShowTopic(ManualFile, "files.html");
    for (const char* outside : {"http://localhost/", "file:///etc/hostname", "mailto:a@b"})
        page.setSource(QUrl(outside));
    EXPECT_EQ(Address(), "chm:/files.html");
    EXPECT_FALSE(page.loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
}

/// The compiler looks at the links of the pages, not at those of the contents.
TEST_F(HelpWindowTest, EveryLineOfTheContentsHasItsPlace)
{
    const auto manual = ChmFile::Open(ManualFile);
    ASSERT_NE(manual, nullptr);
    for (const ChmEntry& entry : ReadChmContents(*manual->Object(manual->ContentsFile()))) {
        const auto html = manual->Object(entry.Page.section('#', 0, 0));
        ASSERT_TRUE(html) << entry.Page.toStdString();
        const QString anchor = entry.Page.section('#', 1);
        EXPECT_TRUE(anchor.isEmpty() || html->contains("id=\"" + anchor.toUtf8() + '"')) << entry.Page.toStdString();
    }
}

TEST_F(HelpWindowTest, ClosesByEscapeAndWithItsOwner)
{
    help.ShowTopic(ManualFile, "files.html");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&page, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
    help.ShowTopic(ManualFile);
    EXPECT_EQ(Address(), "chm:/index.html"); // from the beginning
    EXPECT_FALSE(Command("Back").isEnabled());
    owner.close();
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpWindowTest, AFileThatCantBeReadBringsABoxAndNoWindow)
{
    const QTemporaryDir folder;
    const QByteArray bytes = BytesOf(ManualFile);
    const QString damaged = Write(folder, bytes.left(bytes.size() - 200));
    help.ShowTopic(damaged);
    EXPECT_EQ(boxes.TakeOne(), "File unreadable|The manual is missing or damaged:|" + damaged.toStdString());
    EXPECT_FALSE(help.isVisible());
}

TEST_F(HelpWindowTest, WithoutContentsThePageTakesTheWholeWindow)
{
    // The contents are filed under another name than the one that the manual tells.
    QByteArray bytes = BytesOf(ManualFile);
    bytes.replace("/Merov.hhc", "/Merov.hhd");
    const QTemporaryDir folder;
    help.ShowTopic(Write(folder, bytes));
    EXPECT_TRUE(page.isVisible());
    EXPECT_FALSE(contents.isVisible());
}

} // namespace
} // namespace merov::platform
