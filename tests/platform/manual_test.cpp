#include "platform/chm_contents.h"
#include "platform/chm_file.h"
#include "platform/help_search.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

/// The manual as it is compiled: its pages, the search in them, and what it says of the program's messages.

namespace merov::platform
{
namespace
{

/// What a pattern captures, from the beginning of a text to its end.
QStringList Captures(const QString& text, const QString& pattern)
{
    QStringList captures;
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    for (auto found = expression.globalMatch(text); found.hasNext();)
        captures += found.next().captured(1);
    return captures;
}

/// The words of a piece of a page.
QString Plain(const QString& html)
{
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

/// The program's sources, literals being joined where the compiler joins them.
QString Sources()
{
    QString all;
    for (const char* folder : {"numeric", "ephemeris", "sailing", "fix", "planning", "platform", "output", "app"})
        for (QDirIterator next(QString(MEROV_SOURCE_DIR "/") + folder, {"*.cpp", "*.h"}); next.hasNext();) {
            QFile file(next.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            all += QString::fromUtf8(file.readAll());
        }
    static const QRegularExpression seam("\"\\s+\"(?=[^,;)}]*\")");
    return all.replace(seam, "").simplified();
}

class ManualTest : public testing::Test
{
protected:
    QString Page(const QString& page) const { return QString::fromUtf8(manual->Object(page).value_or(QByteArray())); }
    bool Has(const QString& page) const
    {
        const QString anchor = page.section('#', 1);
        return Page(page.section('#', 0, 0)).contains(anchor.isEmpty() ? "<h1>" : "id=\"" + anchor + '"');
    }
    QStringList Pages() const
    {
        QStringList pages;
        for (const ChmEntry& entry : ReadChmContents(Page(manual->ContentsFile())))
            if (!entry.Page.contains('#')) pages += entry.Page;
        return pages;
    }

    const std::unique_ptr<ChmFile> manual = ChmFile::Open(MEROV_RUN_DIR "/Merov.chm");
};

TEST_F(ManualTest, HasEveryPageInItsContentsAndNoBrokenLinkOrPicture)
{
    const QStringList pages = Pages();
    EXPECT_EQ(pages.size(), QDir(MEROV_SOURCE_DIR "/docs/manual", "*.html").count());
    for (const QString& page : pages) {
        const QString html = Page(page);
        for (const QString& link : Captures(html, "<a\\s+href=\"([^\"]*)\""))
            EXPECT_TRUE(Has(link.startsWith('#') ? page + link : link)) << (page + ' ' + link).toStdString();
        for (const QString& picture : Captures(html, "<img\\s+src=\"([^\"]*)\"")) {
            const QImage image = QImage::fromData(manual->Object(picture).value_or(QByteArray()));
            EXPECT_TRUE(!image.isNull() && image.width() <= 620) << picture.toStdString();
        }
        EXPECT_EQ(html.count("<h2"), html.count("<h2 id=")) << page.toStdString();
    }
    for (const char* asked : {"azimuth.html", "wizard.html#step4", "wizard.html#whatisup"})
        EXPECT_TRUE(Has(asked)) << asked; // by the program
}

TEST_F(ManualTest, QuotesAndExplainsEveryMessageAsTheProgramHasIt)
{
    const QString sources = Sources();
    const QString page = Page("messages.html");
    const QStringList quotes = Captures(page, "<[bi]>(.*?)</[bi]>");
    EXPECT_GT(quotes.size(), 150);
    for (const QString& quote : quotes)
        for (const QString& part : Plain(quote).split(u'…', Qt::SkipEmptyParts))
            EXPECT_TRUE(sources.contains(part.trimmed()) || part == "Ctrl") << part.toStdString();

    const QString words = Plain(page);
    const QStringList boxes =
        Captures(sources, "(?:Show(?:Warning|Error|Information)\\(|\\bBox(?: \\w+)?\\{)\\s*(\"[^;]*?\\});?");
    EXPECT_GT(boxes.size(), 35);
    for (const QString& box : boxes)
        for (const QString& text : Captures(box, "\"([^\"]*)\""))
            EXPECT_TRUE(!text.trimmed().contains(' ') || words.contains(text.trimmed())) << text.toStdString();
}

TEST(HelpSearch, FindsAllWordsByTheirBeginningsAndTitlesFirst)
{
    HelpSearch search;
    search.AddPage("a.html", "<title>Zenith</title><h1>Files</h1><p>A ship&amp;sea, ship</p>"
                             "<h2 id=\"old\">Old <b>forms</b></h2><p>Reading the ship's file</p><h2>of 1.0</h2>");
    search.AddPage("b.html", "<h1>Ship</h1><p>at rest, filed</p>");
    const auto found = [&search](const QString& words) {
        QString hits;
        for (const HelpHit& hit : search.Find(words))
            hits += hit.Title + '|' + hit.Page + ' ';
        return hits.trimmed();
    };
    EXPECT_EQ(found("SHIP"), "Ship|b.html Files|a.html Files: Old forms|a.html#old");
    EXPECT_EQ(found("fil shi"), "Files|a.html Ship|b.html Files: Old forms|a.html#old");
    EXPECT_EQ(found("sea"), "Files|a.html");
    EXPECT_EQ(found("forms 1"), "Files: Old forms|a.html#old");
    for (const char* nothing : {"", " ?! ", "hip", "ship nowhere", "zenith", "amp"})
        EXPECT_EQ(found(nothing), "") << nothing;
}

TEST_F(ManualTest, CanBeSearched)
{
    HelpSearch search;
    for (const QString& page : Pages())
        search.AddPage(page, Page(page));
    for (const auto& [words, title] : {std::pair{"systematic error", "What the numbers mean: Systematic error"},
                                       {"sky dome", "Star fix wizard: Graphic display"},
                                       {"night", "Screens: Night colours"}}) {
        const QList<HelpHit> hits = search.Find(words);
        EXPECT_TRUE(!hits.isEmpty() && hits[0].Title == title) << words;
    }
}

} // namespace
} // namespace merov::platform
