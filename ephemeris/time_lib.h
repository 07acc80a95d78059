#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Dates and time scales.
///
/// A date-time is a double counting days since 30 December 1899, 00:00, in the Gregorian calendar;
/// its fraction is the time of day. Times are GMT unless a routine says local. One time scale is
/// known, Universal Time; the ephemeris uses it in place of dynamical time too.

namespace merov::ephemeris
{

/// A date-time split into its civil parts, whole seconds.
struct CivilTime {
    int Year = 1899;
    int Month = 12; ///< 1..12
    int Day = 30;   ///< 1..31
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

/// The civil parts of a date-time, which is first rounded as a whole to the second.
/// @param dateTime  within the years 100..9999; fault 6 beyond them, fault 5 for a NaN. The same holds
///                  for every routine here that takes a date-time
CivilTime SplitDateTime(double dateTime);

/// The date-time of civil parts, which must be valid (IsValidCivil).
double JoinDateTime(const CivilTime& civil);

/// True for a date and a time of day that exist, years 100..9999.
bool IsValidCivil(const CivilTime& civil);

/// True for a leap year of the Gregorian calendar, which is taken for all years.
bool IsLeapYear(int Year);

/// The time argument T of all series: Julian centuries of 36525 days from J2000.0, reckoned directly
/// from GMT.
/// @param Day, Month, Year  a valid date
/// @param Hours             0 up to 24
double CenturiesFromJ2000(int Day, int Month, int Year, double Hours);

/// T of a date-time, whose time of day is taken in whole seconds.
double CenturiesFromJ2000(double dateTime);

/// Greenwich mean sidereal time in degrees, 0 up to 360 (IAU 1982 expression, S. Aoki et al., A&A 105,
/// 359, 1982). @param T  Julian centuries from J2000.0
double GreenwichMeanSiderealTime(double T);

/// GMT minus the computer's local time, as a fraction of a day.
double GmtOffsetDays();

/// Waits, letting the screens handle their events, also across midnight.
/// @param Seconds  0 or more
void PauseSeconds(float Seconds);

/// The current GMT, and the current GMT cut to the whole hour: the default of a time picker.
double CurrentGmt();
double CurrentGmtHour();

/// The system's abbreviations of the months, January first, in which times are shown; English until
/// set. Trailing points are dropped.
void SetMonthNames(const std::array<std::string, 12>& names);
const std::string& MonthName(int month);

/// A date-time through a picture made of "d", "dd", "mmm", "yy", "yyyy", "hh", "mm" (minutes behind
/// "hh"), "ss" and other characters, which stand as they are: "d mmm yyyy hh:mm:ss". With seconds in
/// the picture the instant is rounded to the second, without them that second to the minute (half a
/// minute goes up), and a picture of a date alone shows the day in which the instant falls once rounded
/// to the second. "mm" without "hh" before it is the number of the month.
std::string FormatDateTime(double dateTime, std::string_view picture);

/// The date-time in a text such as "21 May 2004 18:02:15": day, month (the system's or the English
/// abbreviation or name, any case, or a number), year and time of day, which may be missing. Dates may
/// also stand as "2004-05-21", "21/5/2004" (the day always before a month in figures) or "May 21, 2004",
/// hours also as "6:02:15 PM". Years have three or four digits. Nothing for a text that is no date.
std::optional<double> ParseDateTime(std::string_view text);

/// The date-time in "YYYY-MM-DD HH:MM:SS", and with `dateOnly` in "YYYY-MM-DD"; nothing for any other
/// text or a date or time that doesn't exist.
std::optional<double> ParseIsoDateTime(std::string_view text, bool dateOnly = false);

/// "YYYY-MM-DD HH:MM:SS", the instant rounded to the second.
std::string FormatIsoDateTime(double dateTime);

} // namespace merov::ephemeris
