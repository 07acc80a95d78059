#include "ephemeris/time_lib.h"

#include "numeric/clock.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"

#include <cmath>
#include <cstdint>

namespace merov::ephemeris
{
namespace
{

constexpr double SecondsPerDay = 86400.0;
constexpr std::int64_t WholeDay = 86400;
constexpr int DateTimeEpoch = 719468 - 25569; // 30 December 1899, counted from 1 March of year 0

// 1 January 100 and 31 December 9999 as date-times.
constexpr double FirstDay = -657434.0;
constexpr double LastDay = 2958465.0;

/// Date-time of a day's start. Years are counted from March, so that a leap day ends its year.
/// (H. Hinnant, chrono-compatible low-level date algorithms.)
int DaysOfCivil(int year, int month, int day)
{
    const int marchYear = month > 2 ? year : year - 1;
    const int era = marchYear / 400; // years 100..9999 only: never negative
    const int yearOfEra = marchYear - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - DateTimeEpoch;
}

/// Year, month and day of a date-time's day: the reverse of DaysOfCivil.
void CivilOfDays(int days, CivilTime& civil)
{
    const int z = days + DateTimeEpoch;
    const int era = z / 146097;
    const int dayOfEra = z - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    civil.Day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    civil.Month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    civil.Year = yearOfEra + era * 400 + (civil.Month <= 2 ? 1 : 0);
}

int DaysInMonth(int month, int year)
{
    constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : Days[month - 1];
}

/// Seconds since midnight of local time, as the 32-bit float in which a pause is measured.
float SecondsSinceMidnight()
{
    const double local = numeric::CurrentClock().Now().Local;
    return static_cast<float>((local - std::floor(local)) * SecondsPerDay);
}

} // namespace

CivilTime SplitDateTime(double dateTime)
{
    const double rounded = std::floor(numeric::Finite(dateTime) * SecondsPerDay + 0.5);
    if (rounded < FirstDay * SecondsPerDay || rounded >= (LastDay + 1.0) * SecondsPerDay) numeric::RaiseOverflow();
    const double days = std::floor(rounded / SecondsPerDay);
    const auto seconds = static_cast<int>(rounded - days * SecondsPerDay);
    CivilTime civil;
    CivilOfDays(static_cast<int>(days), civil);
    civil.Hour = seconds / 3600;
    civil.Minute = seconds / 60 % 60;
    civil.Second = seconds % 60;
    return civil;
}

double JoinDateTime(const CivilTime& civil)
{
    const int days = DaysOfCivil(civil.Year, civil.Month, civil.Day);
    const int seconds = (civil.Hour * 60 + civil.Minute) * 60 + civil.Second;
    // One division of an exact whole number: the nearest double to the instant.
    return static_cast<double>(days * WholeDay + seconds) / SecondsPerDay;
}

bool IsValidCivil(const CivilTime& civil)
{
    return civil.Year >= 100 && civil.Year <= 9999 && civil.Month >= 1 && civil.Month <= 12 && civil.Day >= 1 &&
           civil.Day <= DaysInMonth(civil.Month, civil.Year) && civil.Hour >= 0 && civil.Hour <= 23 &&
           civil.Minute >= 0 && civil.Minute <= 59 && civil.Second >= 0 && civil.Second <= 59;
}

bool IsLeapYear(int Year)
{
    return Year % 4 == 0 && (Year % 100 != 0 || Year % 400 == 0);
}

double CenturiesFromJ2000(int Day, int Month, int Year, double Hours)
{
    int dayOfYear = 31 * (Month - 1) + Day - 5 * (Month - 2) / 12;
    if (Month > 2) dayOfYear -= IsLeapYear(Year) ? 2 : 3;
    const int y = Year - 2000;
    int y1 = y - 1;
    if (y <= 0) {
        // Up to 2000 the divisions below, which cut towards zero, take the leap day of the year itself.
        y1 = y;
        dayOfYear -= 1;
    }
    const int days = 365 * y + y1 / 4 - y1 / 100 + y1 / 400 + dayOfYear;
    return (days - 0.5 + Hours / 24.0) / 36525.0;
}

double CenturiesFromJ2000(double dateTime)
{
    const CivilTime civil = SplitDateTime(dateTime);
    const double dayFraction = ((civil.Hour * 60 + civil.Minute) * 60 + civil.Second) / SecondsPerDay;
    return CenturiesFromJ2000(civil.Day, civil.Month, civil.Year, dayFraction * 24.0);
}

double GreenwichMeanSiderealTime(double T)
{
    // Seconds of time. The 100 whole days in the published 8640184.812866 seconds a century stand in the
    // factor 36625 of the daily rotation, which keeps the polynomial small.
    constexpr double Terms[] = {67310.54841, 184.812866, 0.093104, -6.2e-6};
    const double polynomial = numeric::Polynomial(T, 3, Terms);
    const double rotation = SecondsPerDay * numeric::FracPart(36625.0 * T);
    return numeric::Norm360((rotation + polynomial) / 240.0);
}

double GmtOffsetDays()
{
    const numeric::Clock::Moment now = numeric::CurrentClock().Now();
    // Zones differ by whole seconds; what lies beside them comes from the size of the two numbers.
    return std::round((now.Utc - now.Local) * SecondsPerDay) / SecondsPerDay;
}

void PauseSeconds(float Seconds)
{
    float start = SecondsSinceMidnight();
    for (float now = start; now - start < Seconds; now = SecondsSinceMidnight()) {
        numeric::CurrentClock().ProcessEvents();
        if (SecondsSinceMidnight() < start) start -= static_cast<float>(SecondsPerDay);
    }
}

double CurrentGmt()
{
    return numeric::CurrentClock().Now().Utc;
}

double CurrentGmtHour()
{
    // A date-time holds a whole hour only to some 1e-9 of it.
    return std::floor(CurrentGmt() * 24.0 + 1e-7) / 24.0;
}

} // namespace merov::ephemeris
