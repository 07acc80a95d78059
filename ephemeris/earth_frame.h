#pragma once

/// The Earth's frame: nutation, obliquity, aberration and the turns between frames, common to the
/// reduction of all bodies.
///
/// T is the time argument of all series, Julian centuries of 36525 days from J2000.0 (time_lib.h), any
/// value. Angles are degrees, but nutation is given in seconds of arc. No routine allocates; a place
/// at which a formula has no value is named where it can occur.

namespace merov::ephemeris
{

/// The constant of annual aberration, seconds of arc.
constexpr double AberrationConstant = 20.484;

/// Nutation of the date, by the 63 largest terms of the IAU 1980 theory in the arguments of J. Meeus,
/// Astronomical Algorithms, chapter 21.
/// @param T         Julian centuries from J2000.0
/// @param DeltaPsi  out: nutation in longitude, seconds of arc
/// @param DeltaEps  out: nutation in obliquity, seconds of arc
void ComputeNutation(double T, double& DeltaPsi, double& DeltaEps);

/// Mean obliquity of the ecliptic in degrees, 0 up to 360, by J. Laskar's series of degree 10 (A&A 157,
/// 59, 1986). It serves the Moon alone: stars, Sun and planets take the mean obliquity of EarthElements
/// (sun.h), which belongs to their theory.
/// @param T  Julian centuries from J2000.0; the series holds for -100 to 100
double MeanObliquitySeries(double T);

/// Shifts a mean place of the date by nutation and annual aberration, both to the first order.
/// @param MeanEps             mean obliquity, degrees
/// @param DeltaPsi, DeltaEps  nutation, seconds of arc
/// @param SunLongitude        the Sun's true geometric longitude, degrees, any turn
/// @param RA, Dec             mean place of the date, degrees; not at a pole, where the shift in right
///                            ascension has no value (no body of the program comes nearer than 0.5)
/// @param RAOut, DecOut       out: the apparent place, degrees, not normalised; may be the variables
///                            of RA and Dec
/// Formulas of J. Meeus, Astronomical Algorithms, chapter 22, without the terms in the eccentricity.
void ApplyNutationAberration(double MeanEps, double DeltaPsi, double DeltaEps, double SunLongitude, double RA,
                             double Dec, double& RAOut, double& DecOut);

/// Turns ecliptic into equatorial coordinates. All angles are degrees.
/// @param Latitude, Longitude  ecliptic place; latitude -90..90, longitude any turn
/// @param Eps                  obliquity of the ecliptic
/// @param Dec                  out: declination, -90..90
/// @param RA                   out: right ascension, -90 up to 270
/// Where the vector points along the axis of right ascension 0 or 180, the limit is taken.
void EclipticPointToEquator(double Latitude, double Longitude, double Eps, double& Dec, double& RA);

/// The last step to every place: Greenwich hour angle, apparent sidereal time less right ascension, in
/// degrees, 0 up to 360. Apparent sidereal time is the mean one plus the equation of the equinoxes,
/// cos(TrueEps) * DeltaPsi.
/// @param T         Julian centuries from J2000.0
/// @param DeltaPsi  nutation in longitude, seconds of arc
/// @param TrueEps   true obliquity, degrees: a mean obliquity plus DeltaEps / 3600
/// @param RA        apparent right ascension, degrees, any turn
double GreenwichHourAngle(double T, double DeltaPsi, double TrueEps, double RA);

} // namespace merov::ephemeris
