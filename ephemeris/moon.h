#pragma once

/// The Moon: the ELP-2000/82 theory of M. Chapront-Touze and J. Chapront, cut to 60 terms each in
/// longitude with distance and in latitude, as in J. Meeus, Astronomical Algorithms, first edition,
/// chapter 45.

namespace merov::ephemeris
{

/// The length by which the Moon's distance in km is divided, and by which whoever needs km again
/// multiplies. It is a scale of this program, not the astronomical unit of the other bodies.
constexpr double MoonDistanceUnit = 149565800.0;

/// The Moon's geocentric place, mean ecliptic and equinox of date, before nutation.
struct MoonEclipticPlace {
    double Longitude;  ///< degrees, any turn
    double Latitude;   ///< degrees, north positive
    double Kilometres; ///< distance of the centres of Earth and Moon
};

/// The periodic series of the Moon. @param T  Julian centuries from J2000.0, any value
/// Allocates nothing.
MoonEclipticPlace ComputeMoonEcliptic(double T);

/// The Moon's geocentric apparent place, referred to the true equator and equinox of date.
/// @param T            Julian centuries from J2000.0, any value
/// @param GHA          out: Greenwich hour angle, degrees, 0 up to 360, less a fixed half minute of arc
/// @param Declination  out: degrees, north positive
/// @param Distance     out: distance of the centres, km / 149565800
/// Parallax, semi-diameter and limb are left to the altitude corrections. Allocates nothing.
void ComputeMoonPosition(double T, double& GHA, double& Declination, double& Distance);

} // namespace merov::ephemeris
