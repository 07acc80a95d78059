#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A search for words in the pages of a manual.

namespace merov::platform
{

/// A section of a page in which all words were found.
struct HelpHit {
    QString Title; ///< "Files: Loading", or of the part above the first section "Files"
    QString Page;  ///< path within the manual, with the anchor of the section: "files.html#loading"
};

/// The text of a manual by its sections, each from a heading to the next one.
class HelpSearch
{
public:
    /// Adds a page. Headings `<h1>` and `<h2>` begin a section; one without an id belongs to the section
    /// above it.
    /// @param page  path within the manual, without an anchor
    void AddPage(const QString& page, const QString& html);

    /// The sections that have every word of `words`, small and capital letters being equal and the beginning
    /// of a word being enough. Those with more of the words in their titles come first, then those with more
    /// hits, then as they were added. Empty for words without a letter or digit.
    QList<HelpHit> Find(const QString& words) const;

private:
    struct Section {
        HelpHit Hit;
        QStringList Title; ///< words in small letters
        QStringList Text;
    };
    QList<Section> sections_;
};

} // namespace merov::platform
