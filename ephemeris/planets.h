#pragma once

#include <string_view>

/// Venus, Mars, Jupiter and Saturn.
///
/// Venus, Mars and Jupiter come from mean elements of 1900 with their largest periodic perturbations, as
/// in J. Meeus, Astronomical Formulae for Calculators, chapters 23 and 24; Saturn from its series
/// (saturn_lib.h). T is Julian centuries of 36525 days from J2000.0. Angles are degrees. No routine
/// allocates. Against the full VSOP87 over 1950 to 2050, in minutes of arc of hour angle times cosine of
/// declination (tests/against/planets_test): Venus 0.10 rms and 0.62 at most, Mars 0.13 and 0.77, Jupiter
/// 0.19 and 0.57, Saturn 0.007 and 0.025; in declination about half of that or less.

namespace merov::ephemeris
{

/// A planet's orbit on a date, perturbed.
/// @param T             Julian centuries from J2000.0
/// @param L             out: mean longitude with its perturbations
/// @param Node          out: longitude of the ascending node, 0 up to 360
/// @param Inclination   out: 0 up to 360
/// @param MeanAnomaly   out: with its perturbations, any turn
/// @param Eccentricity  out
/// @param RadiusTerm    out: what is added to the radius vector, for Jupiter to the semi-major axis;
///                      astronomical units
void VenusElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                   double& RadiusTerm);
void MarsElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                  double& RadiusTerm);
void JupiterElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                     double& RadiusTerm);

/// Semi-major axes of the orbits, astronomical units.
constexpr double VenusSemiMajorAxis = 0.7233316;
constexpr double MarsSemiMajorAxis = 1.5236883;
constexpr double JupiterSemiMajorAxis = 5.202561;

/// Heliocentric place for the mean ecliptic and equinox of date.
/// @param BodyCode   "VENUS", "MARS", "JUPITER" or "SATURN"; any other counts as "VENUS"
/// @param T          Julian centuries from J2000.0
/// @param Latitude   out: degrees
/// @param Longitude  out: degrees, any turn
/// @param Radius     out: astronomical units
void PlanetHeliocentric(std::string_view BodyCode, double T, double& Latitude, double& Longitude, double& Radius);

/// Carries a heliocentric ecliptic place to the Earth's centre.
/// @param SunRadius, SunLongitude      the Sun's geocentric place, its latitude being 0
/// @param Radius, Latitude, Longitude  the planet's heliocentric place
/// @param EclLatitude, EclLongitude    out: geocentric place; longitude 0 up to 360
/// @return geocentric distance, in the unit of both radii
/// Fault 11 for a planet in the line through the Earth along the ecliptic's axis.
double GeocentricEcliptic(double SunRadius, double SunLongitude, double Radius, double Latitude, double Longitude,
                          double& EclLatitude, double& EclLongitude);

/// Carries a heliocentric equatorial direction to the Earth's centre.
/// @param Ratio          distance of the Sun from the Earth over that of the planet from the Sun
/// @param SunLongitude   the Sun's geocentric longitude
/// @param Eps            obliquity of the ecliptic
/// @param Dec, RA        heliocentric declination and right ascension
/// @param DecOut, RAOut  out: geocentric ones; right ascension 0 up to 360
void ShiftToGeocentre(double Ratio, double SunLongitude, double Eps, double Dec, double RA, double& DecOut,
                      double& RAOut);

/// A planet's apparent place, referred to the true equator and equinox of date.
/// @param BodyCode       "VENUS", "MARS", "JUPITER" or "SATURN"
/// @param T              Julian centuries from J2000.0
/// @param GHA            out: Greenwich hour angle, 0 up to 360
/// @param Declination    out: north positive
/// @param Distance       out: geocentric distance, astronomical units
/// @param HelioDistance  out: heliocentric radius vector, astronomical units
/// @param EclLatitude    out: geocentric ecliptic latitude
/// @param EclLongitude   out: geocentric ecliptic longitude, 0 up to 360
/// The planet stands where it was when its light left it, by one round of correction; the Earth isn't
/// retarded. Without the series file "SATURN" gets the file's box twice and the Sun's direction.
void ComputePlanetPosition(std::string_view BodyCode, double T, double& GHA, double& Declination, double& Distance,
                           double& HelioDistance, double& EclLatitude, double& EclLongitude);

} // namespace merov::ephemeris
