#include "platform/help_search.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>
#include <utility>

namespace merov::platform
{
namespace
{

/// The words of a text in small letters. Signs within a word, as in "alna'ir", part it.
QStringList WordsOf(const QString& text)
{
    static const QRegularExpression gaps(QStringLiteral("[^\\p{L}\\p{N}]+"));
    return text.toLower().split(gaps, Qt::SkipEmptyParts);
}

QString PlainText(const QString& html)
{
    return QTextDocumentFragment::fromHtml(html).toPlainText();
}

/// How many of `words` begin with `beginning`.
qsizetype Count(const QStringList& words, const QString& beginning)
{
    return std::count_if(words.begin(), words.end(), [&](const QString& word) { return word.startsWith(beginning); });
}

} // namespace

void HelpSearch::AddPage(const QString& page, const QString& html)
{
    static const QRegularExpression heading(
        QStringLiteral("<h1[^>]*>(?<page>.*?)</h1>|<h2[^>]*\\bid=\"(?<id>[^\"]*)\"[^>]*>(?<part>.*?)</h2>"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    QString title = page;
    Section section;
    qsizetype start = -1; // of the section's text; no section before the first heading
    const auto end = [&](qsizetype place) {
        if (start >= 0) section.Text = WordsOf(PlainText(html.mid(start, place - start)));
        if (start >= 0) sections_ += std::exchange(section, {});
    };
    for (auto found = heading.globalMatch(html); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        end(match.capturedStart());
        start = match.capturedEnd();
        const bool isPage = match.hasCaptured(QStringLiteral("page"));
        const QString words = PlainText(match.captured(isPage ? QStringLiteral("page") : QStringLiteral("part")));
        if (isPage) title = words;
        section.Hit.Title = isPage ? title : title + ": " + words;
        section.Hit.Page = isPage ? page : page + '#' + match.captured(QStringLiteral("id"));
        section.Title = WordsOf(words);
    }
    end(html.size());
}

QList<HelpHit> HelpSearch::Find(const QString& words) const
{
    const QStringList wanted = WordsOf(words);
    if (wanted.isEmpty()) return {};
    struct Ranked {
        const Section* Found;
        qsizetype InTitle = 0; // wanted words in the title
        qsizetype Hits = 0;
    };
    QList<Ranked> ranked;
    for (const Section& section : sections_) {
        Ranked rank{&section};
        const bool all = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
            const qsizetype inTitle = Count(section.Title, word);
            const qsizetype hits = inTitle + Count(section.Text, word);
            rank.InTitle += inTitle > 0 ? 1 : 0;
            rank.Hits += hits;
            return hits > 0;
        });
        if (all) ranked += rank;
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked& a, const Ranked& b) {
        return std::pair(a.InTitle, a.Hits) > std::pair(b.InTitle, b.Hits);
    });
    QList<HelpHit> hits;
    for (const Ranked& rank : ranked)
        hits += rank.Found->Hit;
    return hits;
}

} // namespace merov::platform
