#pragma once

#include <QList>
#include <QString>

/// The table of contents of a compiled manual (".hhc").

namespace merov::platform
{

/// A line of the table.
struct ChmEntry {
    QString Name;
    QString Page;  ///< path within the manual, perhaps with "#" and an anchor; empty for a mere heading
    int Level = 0; ///< 0 for the chapters, one more for what stands below them
};

/// The lines of a table of contents from top to bottom, each at most one level deeper than the one
/// before. Lines without a name are left out, and so is what a damaged table leaves open.
/// @param hhc  the table's text
QList<ChmEntry> ReadChmContents(const QString& hhc);

} // namespace merov::platform
