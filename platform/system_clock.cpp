#include "platform/system_clock.h"

#include "ephemeris/time_lib.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace merov::platform
{
namespace
{

constexpr double MsecsPerDay = 86400000.0;
constexpr double UnixEpoch = 25569.0; // 1 January 1970 as a date-time

} // namespace

bool SetComputerClock(qint64 sinceEpoch)
{
    timespec time{};
    time.tv_sec = static_cast<time_t>(sinceEpoch / 1000);
    time.tv_nsec = static_cast<long>(sinceEpoch % 1000) * 1000000L;
    return clock_settime(CLOCK_REALTIME, &time) == 0;
}

numeric::Clock::Moment SystemClock::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    const double utc = DateTimeFromQt(now.toUTC());
    return {utc, utc + now.offsetFromUtc() / 86400.0};
}

void SystemClock::ProcessEvents()
{
    QEventLoop loop;
    QTimer::singleShot(5, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

double DateTimeFromQt(const QDateTime& dateTime)
{
    // The fields as they are shown, whatever zone they are in.
    const QDateTime shown(dateTime.date(), dateTime.time(), Qt::UTC);
    return static_cast<double>(shown.toMSecsSinceEpoch()) / MsecsPerDay + UnixEpoch;
}

QDateTime QtFromDateTime(double dateTime)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround((dateTime - UnixEpoch) * MsecsPerDay), Qt::UTC);
}

int StandardBiasMinutes(const QTimeZone& zone, const QDateTime& at)
{
    // A zone's own mark of its standard time won't do: Ireland calls its summer time standard.
    const auto offsetOn = [&](int month) {
        return zone.offsetFromUtc(QDateTime(QDate(at.date().year(), month, 1), QTime(0, 0), Qt::UTC));
    };
    return -std::min(offsetOn(1), offsetOn(7)) / 60;
}

bool IsDaylightTime()
{
    const int bias = StandardBiasMinutes(QTimeZone::systemTimeZone(), QDateTime::currentDateTimeUtc());
    return std::fabs(bias / 60.0 / 24.0 - ephemeris::GmtOffsetDays()) >= 1e-11;
}

} // namespace merov::platform
