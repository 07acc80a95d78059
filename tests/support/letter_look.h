#pragma once

#include <QBrush>
#include <QString>
#include <QTextCharFormat>

namespace merov::test
{

/// How letters look, in words: "Arial 12 bold #0000ff low".
inline QString LetterLook(const QTextCharFormat& format)
{
    QString look = format.fontFamilies().toStringList().join(',') + QString(" %1").arg(format.fontPointSize());
    if (format.fontWeight() == QFont::Bold) look += " bold";
    if (format.fontItalic()) look += " italic";
    if (format.fontUnderline()) look += " underlined";
    if (format.hasProperty(QTextFormat::ForegroundBrush)) look += " " + format.foreground().color().name();
    if (format.baselineOffset() != 0.0) look += format.baselineOffset() < 0.0 ? " low" : " high";
    if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) look += " sub";
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) look += " super";
    return look;
}

} // namespace merov::test
