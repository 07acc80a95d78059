#pragma once

#include "numeric/clock.h"

#include <QDateTime>
#include <QTimeZone>

#include <functional>

namespace merov::platform
{

/// What sets the computer's clock: milliseconds since 1 January 1970, 00:00 UTC. False: the system
/// refused, as it does a user without the right to it.
using ClockSetter = std::function<bool(qint64 sinceEpoch)>;

/// Sets the clock of this computer.
bool SetComputerClock(qint64 sinceEpoch);

/// The computer's clock, its time zone and the event loop of the screens.
class SystemClock : public numeric::Clock
{
public:
    Moment Now() override;

    /// Runs the event loop for some 5 milliseconds.
    void ProcessEvents() override;
};

/// A date-time, days since 30 December 1899, of an instant or a local time without its zone, and back.
/// Rounded to the millisecond.
double DateTimeFromQt(const QDateTime& dateTime);
QDateTime QtFromDateTime(double dateTime);

/// The minutes by which UTC lies ahead of the zone's standard time: negative east of Greenwich, -60 for
/// central Europe in winter and in summer. Standard time is the one of January or July, whichever lies
/// less to the east.
int StandardBiasMinutes(const QTimeZone& zone, const QDateTime& at);

/// True while daylight time is in force: the clock's offset from GMT differs from the standard bias of
/// the computer's zone. The offset is that of the clock in force.
bool IsDaylightTime();

} // namespace merov::platform
