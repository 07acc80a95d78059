#include "platform/time_picker.h"

#include "ephemeris/time_lib.h"
#include "platform/locale.h"

#include <algorithm>

namespace merov::platform
{
namespace
{

constexpr ephemeris::CivilTime First = {1900, 1, 1, 0, 0, 0};
constexpr ephemeris::CivilTime Last = {2100, 12, 31, 23, 59, 59};

// UTC stands for "no zone": every time of day exists in it.
QDateTime ToQt(const ephemeris::CivilTime& civil)
{
    return {QDate(civil.Year, civil.Month, civil.Day), QTime(civil.Hour, civil.Minute, civil.Second), Qt::UTC};
}

double FromQt(const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    return ephemeris::JoinDateTime({date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()});
}

} // namespace

TimePicker::TimePicker(QWidget* parent) : Field<QDateTimeEdit>(parent)
{
    setLocale(ScreenLocale());
    setTimeSpec(Qt::UTC);
    setDisplayFormat(QStringLiteral("d MMM yyyy HH:mm:ss"));
    setDateTimeRange(ToQt(First), ToQt(Last));
    setCalendarPopup(true);
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this] {
        if (!setting_ && OnChange) OnChange();
    });
}

double TimePicker::Value()
{
    interpretText();
    return FromQt(dateTime());
}

void TimePicker::SetValue(double dateTime)
{
    const double inRange = std::clamp(dateTime, ephemeris::JoinDateTime(First), ephemeris::JoinDateTime(Last));
    setting_ = true;
    setDateTime(ToQt(ephemeris::SplitDateTime(inRange)));
    setting_ = false;
}

QSize TimePicker::sizeHint() const
{
    // Qt reckons with the months in which the range begins and ends.
    const auto width = [this](int month) {
        return fontMetrics().horizontalAdvance(locale().monthName(month, QLocale::ShortFormat));
    };
    int widest = 0;
    for (int month = 1; month <= 12; ++month)
        widest = std::max(widest, width(month));
    return QDateTimeEdit::sizeHint() + QSize(widest - width(First.Month), 0);
}

/// QDateTimeEdit's own would walk through day, month, year, hour, minute and second.
bool TimePicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace merov::platform
