#pragma once

#include "numeric/solvers.h"

#include <array>

namespace merov::ephemeris
{

/// Nine moments of a day, date-times in GMT, by index: 0 and 1 morning with the Sun at -9 and -3
/// degrees, 2 sunrise from the height of eye, 3 centre of the Sun at 0 degrees, 4 meridian passage,
/// 5 to 8 the same moments of the evening in reverse order.
using SunEventTimes = std::array<double, 9>;

/// Hour angle in degrees at which a body of `declination` stands at `altitude` for an observer at
/// `latitude`; all degrees. Where it never does, ArcCos shows its box and its limit comes back.
double SemiDiurnalArc(double altitude, double latitude, double declination);

/// Altitude of the Sun's centre, degrees, when its upper limb stands on the visible horizon: dip,
/// refraction, parallax and semi-diameter together.
/// @param heightOfEye  metres, 0 or more; fault 5 for a negative one
/// @param sunDistance  astronomical units
double SunriseAltitude(double heightOfEye, double sunDistance);

/// The Sun's functions that a solver searches; argument x is a date-time in GMT.
class SunFunctions : public numeric::NumberedFunctions
{
public:
    double TargetHourAngle = 0.0; ///< function 12: degrees
    double TargetAltitude = 0.0;  ///< function 13: degrees
    double Latitude = 0.0;        ///< function 13: observer, radians
    double Longitude = 0.0;       ///< function 13: observer, radians, east positive

    /// 12: NormalizeLongitude(GHA of the Sun - TargetHourAngle); 13: altitude of the Sun's centre at
    /// the observer's position, degrees, minus TargetAltitude. Other numbers give 0.
    double f(double x, int n) override;
    double SysEq(const numeric::Vector& x, int n) override;
};

/// The nine moments of a day.
/// @param latitude, longitude  observer, degrees, north and east positive
/// @param date                 any instant of the day, GMT
/// @param heightOfEye          metres, 0 or more
/// @param events               out; untouched when the Sun neither rises nor sets
/// @return false when the Sun neither rises nor sets that day
/// Moments that the Sun does not reach are 0, with the boxes of ArcCos and FindRoot where these tell of it.
bool ComputeSunEvents(double latitude, double longitude, double date, double heightOfEye, SunEventTimes& events);

} // namespace merov::ephemeris
