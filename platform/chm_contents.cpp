#include "platform/chm_contents.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace merov::platform
{
namespace
{

/// An attribute of a tag, `value` of `<param name="Name" value="Files">`, with its entities resolved.
QString Attribute(const QString& tag, const QString& name)
{
    const QRegularExpression pattern("\\b" + name + "\\s*=\\s*\"([^\"]*)\"", QRegularExpression::CaseInsensitiveOption);
    const QString text = pattern.match(tag).captured(1);
    return text.contains('&') ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

bool IsTag(const QString& tag, QLatin1StringView name)
{
    return tag.startsWith(name, Qt::CaseInsensitive);
}

} // namespace

QList<ChmEntry> ReadChmContents(const QString& hhc)
{
    using namespace Qt::StringLiterals;
    QList<ChmEntry> entries;
    ChmEntry entry;
    int lists = 0; // those that are open
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    for (auto found = tags.globalMatch(hhc); found.hasNext();) {
        const QString tag = found.next().captured();
        if (IsTag(tag, "<ul"_L1)) lists++;
        if (IsTag(tag, "</ul"_L1)) lists = std::max(lists - 1, 0);
        if (IsTag(tag, "<object"_L1)) entry = {};
        if (IsTag(tag, "<param"_L1)) {
            const QString name = Attribute(tag, QStringLiteral("name")).toLower();
            if (name == "name"_L1) entry.Name = Attribute(tag, QStringLiteral("value"));
            if (name == "local"_L1) entry.Page = Attribute(tag, QStringLiteral("value"));
        }
        if (IsTag(tag, "</object"_L1) && !entry.Name.isEmpty()) {
            const int deepest = entries.isEmpty() ? 0 : entries.constLast().Level + 1;
            entry.Level = std::clamp(lists - 1, 0, deepest);
            entries += entry;
            entry = {};
        }
    }
    return entries;
}

} // namespace merov::platform
