#pragma once

#include <QLocale>
#include <QString>

namespace merov::platform
{

/// The locale of the screens: the system's. The pickers of dates take it too.
QLocale ScreenLocale();

/// Hands the decimal separator and the abbreviations of the months to the core's routines for numbers
/// and times. Start-up does so once.
void ApplyLocale(const QLocale& locale = ScreenLocale());

/// The time of day, with seconds, as the locale writes it.
/// @param dateTime  rounded to the second
QString TimeOfDayText(double dateTime, const QLocale& locale = ScreenLocale());

} // namespace merov::platform
