#include "app/public.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace merov::app
{
namespace
{

/// `text` without the characters at its end that `drops` tells.
template <class Drops>
QString WithoutEnd(QString text, Drops drops)
{
    while (text.size() > 1 && drops(text.back()))
        text.chop(1);
    return text;
}

} // namespace

QString VersionTextOf(const QString& version)
{
    const QStringList parts = version.split('.');
    return QStringList(parts.mid(0, 2)).join('.') + parts.value(2).left(1);
}

QString StartFileOf(const QString& commandLine)
{
    const auto end = std::find(commandLine.begin(), commandLine.end(), QChar(u'\0'));
    QString path;
    std::copy_if(commandLine.begin(), end, std::back_inserter(path),
                 [](QChar letter) { return letter > QChar(31) && letter != u'"'; });
    return path;
}

ProgramTables InitialTables(const QString& folder, const QString& version)
{
    ProgramTables tables;
    const QString path = WithoutEnd(folder, [](QChar letter) { return letter == u' '; });
    tables.AppPath = WithoutEnd(path, [](QChar letter) { return letter == u'/' || letter == u'\\'; });
    tables.VersionText = VersionTextOf(version);
    return tables;
}

} // namespace merov::app
