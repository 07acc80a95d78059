#pragma once

/// The Sun, and with it the Earth's orbit: S. Newcomb's solar elements of 1900 with five long-period
/// perturbations, as in J. Meeus, Astronomical Formulae for Calculators, chapter 18.
///
/// T is Julian centuries of 36525 days from J2000.0, any value; the theory's own count from 1900
/// January 0.5 is T + 1. Angles are degrees. No routine allocates or faults.

namespace merov::ephemeris
{

/// Elements of the Sun's apparent orbit around the Earth.
/// @param T                 Julian centuries from J2000.0
/// @param MeanLongitude     out: degrees, the perturbations added, which may carry it a little beyond 0..360
/// @param MeanObliquity     out: mean obliquity of the ecliptic, degrees
/// @param MeanAnomaly       out: degrees, 0 up to 360
/// @param Eccentricity      out: of the orbit
/// @param RadiusCorrection  out: perturbation of the radius vector, astronomical units
void EarthElements(double T, double& MeanLongitude, double& MeanObliquity, double& MeanAnomaly, double& Eccentricity,
                   double& RadiusCorrection);

/// Solves Kepler's equation by plain iteration, E = M + e sin E, to 1e-11 radian.
/// @param Eccentricity      0 up to 0.1 here; the iteration converges below 1
/// @param MeanAnomaly       degrees, any turn
/// @param EquationOfCentre  out: true anomaly less mean anomaly, degrees. It lies near 0, or near 360 or
///                          -360 where the two anomalies stand on either side of zero: what is built on
///                          it must go through a sine, a cosine or Norm360
/// @param Radius            out: radius vector in units of the semi-major axis
void SolveKepler(double Eccentricity, double MeanAnomaly, double& EquationOfCentre, double& Radius);

/// The equation of the centre of SolveKepler, degrees; arguments as there.
double SunEquationOfCentre(double Eccentricity, double MeanAnomaly);

/// The Sun's geometric place, which is the Earth's seen from the Sun turned round.
struct SunTruePlace {
    double Longitude;     ///< true geometric longitude, mean equinox of date, degrees, any turn
    double MeanObliquity; ///< degrees
    double Radius;        ///< radius vector, astronomical units
};

/// The Sun's geometric place of the date: EarthElements and SolveKepler with the orbit's semi-major axis
/// of 1.0000002 and the correction of the radius. Aberration needs the longitude, planets need all three.
SunTruePlace ComputeSunTruePlace(double T);

/// The Sun's apparent place, referred to the true equator and equinox of date.
/// @param T            Julian centuries from J2000.0
/// @param GHA          out: Greenwich hour angle, degrees, 0 up to 360
/// @param Declination  out: degrees, north positive
/// @param Distance     out: radius vector, astronomical units
/// Aberration is a constant, 20.484 seconds of arc; the Sun's latitude is taken as 0.
void ComputeSunPosition(double T, double& GHA, double& Declination, double& Distance);

} // namespace merov::ephemeris
