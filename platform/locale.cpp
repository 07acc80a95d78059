#include "platform/locale.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"

#include <QTime>

namespace merov::platform
{

QLocale ScreenLocale()
{
    return QLocale::system();
}

void ApplyLocale(const QLocale& locale)
{
    numeric::SetDecimalSeparator(locale.decimalPoint().left(1).toStdString());
    std::array<std::string, 12> months;
    for (int month = 1; month <= 12; ++month)
        months[static_cast<std::size_t>(month - 1)] = locale.monthName(month, QLocale::ShortFormat).toStdString();
    ephemeris::SetMonthNames(months);
}

QString TimeOfDayText(double dateTime, const QLocale& locale)
{
    // The short form lacks the seconds; the long one ends, or in a few languages begins, with the zone.
    QString pattern = locale.timeFormat(QLocale::LongFormat);
    for (const char* zone : {"(t)", "[t]", ", t", "t"})
        pattern.remove(zone);
    const ephemeris::CivilTime civil = ephemeris::SplitDateTime(dateTime);
    return locale.toString(QTime(civil.Hour, civil.Minute, civil.Second), pattern.simplified());
}

} // namespace merov::platform
