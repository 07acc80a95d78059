#pragma once

#include "fix/sight_session.h"

#include <string_view>

/// The reduction of sights: altitude corrections, the ship's run to each sight, azimuth, and the radii
/// of curvature of the ellipsoid.
///
/// Angles are degrees, north and east positive. The arrays of sights run from 1 to n, those that also
/// hold the instant of the true position from 0 to n. r and a are the inverse flattening and the
/// semi-major axis in miles (sailing/ellipsoid.h).

namespace merov::fix
{

/// Dip of the visible horizon, degrees. @param height  of the eye, metres; fault 5 for a negative one
double Dip(double height);

/// Refraction at 1010 millibars and 10 degrees Celsius, degrees, at an apparent altitude. G. G. Bennett,
/// Journal of Navigation 35, 255, 1982, with its second term. It is also evaluated below the horizon, where
/// it has poles near -4.4 degrees; -4.4 itself is a division by zero, fault 11.
double MeanRefraction(double apparent);

/// Parallax at an altitude without refraction, degrees, for the Earth's equatorial radius.
/// @param dist  astronomical units; 0 is a division by zero, fault 11
double Parallax(double altitude, double dist);

/// What brings the altitude of the limb observed to that of the centre, degrees: positive for "SUNLOW" and
/// "MOONLOW", negative for "SUNUPP" and "MOONUPP", 0 for other codes. @param dist  as Parallax's
double SemiDiameter(std::string_view body, double dist);

/// Altitude of a body's centre from the Earth's centre, degrees, for an observer at lat, lon.
double ComputedAltitude(double lat, double lon, double dec, double gha);

/// True altitude, computed altitude and intercept of each sight.
///
/// @param n                   number of sights, 0 or more
/// @param height              height of eye, metres, 0 or more
/// @param airTemp, waterTemp  degrees Celsius
/// @param pressure            millibars
/// @param lats, longs         position of the ship at each sight (indices 1..n are read)
/// @param body                body code; "SUNLOW", "SUNUPP", "MOONLOW" and "MOONUPP" name the limb
/// @param altitude, instCorr  instrument altitude and its correction, degrees
/// @param dist                distance of the body, astronomical units
/// @param dec, gha            declination and Greenwich hour angle
/// @param ho, hc, intercept   out, 1..n: true altitude, computed altitude, their difference
///
/// Dip, refraction, parallax and semi-diameter are taken in this order, on a spherical Earth, by the routines
/// above and with the factors of temperature and pressure. A fault (apparent altitude of -4.4 degrees,
/// distance 0, negative height of eye) abandons the call: the sights before it stand.
void CorrectAltitudes(int n, double height, double airTemp, double waterTemp, double pressure,
                      const numeric::Vector& lats, const numeric::Vector& longs,
                      const numeric::BoundedArray<std::string>& body, const numeric::Vector& altitude,
                      const numeric::Vector& instCorr, const numeric::Vector& dist, const numeric::Vector& dec,
                      const numeric::Vector& gha, numeric::Vector& ho, numeric::Vector& hc, numeric::Vector& intercept);

/// Carries the position of index 0 along the rhumb line to the time of each sight.
///
/// @param n              number of sights, 0 or more
/// @param course, speed  degrees, any value; knots
/// @param times          date-times, 0..n; sights before times[0] are reached backwards
/// @param lats, longs    in: index 0; out: 1..n, the longitudes reduced to -180..180
/// @param approxLat      out, 1..n: latitude reached with the meridian radius of the base latitude held
///                       constant, which the derivatives of the rhumb line are expanded about
void RunPositions(int n, double course, double speed, const numeric::Vector& times, numeric::Vector& lats,
                  numeric::Vector& longs, numeric::Vector& approxLat, double r, double a);

/// Azimuth of a body, 0 up to 360, clockwise from north. Fault 11 where its north component is exactly 0
/// while the east one is not, as for a body due east seen from the equator.
double ComputeAzimuth(double lat, double lon, double gha, double dec);

/// Radius of curvature of the meridian and of the prime vertical at latitude `lat`, miles.
double MeridionalRadius(double lat, double r, double a);
double PrimeVerticalRadius(double lat, double r, double a);

} // namespace merov::fix
