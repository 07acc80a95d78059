#pragma once

#include <QString>

#include <ostream>

/// Lets a failed comparison show a text of Qt. It stands in the global namespace, where QString is.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
