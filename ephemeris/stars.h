#pragma once

#include <string_view>

/// The 58 navigational stars: catalogue of J2000.0 and the way from there to the apparent place.
///
/// T is Julian centuries of 36525 days from J2000.0. Angles are degrees unless a routine says otherwise.
/// No routine allocates.

namespace merov::ephemeris
{

/// The catalogue's figures of one star.
/// @param BodyCode   name in capitals, compared exactly, such as "KAUS AUST"
/// @param RA         out: right ascension of J2000.0, packed H.MMSSs (2.58156 is 2h 58m 15.6s)
/// @param Dec        out: declination of J2000.0, packed D.MMSS (-40.1817 is -40 deg 18' 17")
/// @param MotionRA   out: proper motion in right ascension, seconds of arc per year
/// @param MotionDec  out: proper motion in declination, seconds of arc per year
/// @param Magnitude  out: visual magnitude
/// A name that is in no row gives 0 for all five.
void StarCatalogueEntry(std::string_view BodyCode, double& RA, double& Dec, double& MotionRA, double& MotionDec,
                        double& Magnitude);

/// Moves a star by its proper motion, along a great circle.
/// @param Dec, RA              place at T = 0, degrees
/// @param MotionDec, MotionRA  degrees per century; the motion in right ascension is scaled by the
///                             cosine of the declination here
/// @param T                    centuries, negative before J2000.0
/// @param DecOut, RAOut        out: the moved place, degrees; right ascension 0 up to 360
void ApplyProperMotion(double Dec, double RA, double MotionDec, double MotionRA, double T, double& DecOut,
                       double& RAOut);

/// The three angles of precession from J2000.0 to the date, seconds of arc (IAU 1976; J. H. Lieske et
/// al., A&A 58, 1, 1977).
void PrecessionAngles(double T, double& Zeta, double& Theta, double& Z);

/// Carries a place from the mean equator and equinox of J2000.0 to those of the date, rigorously.
/// @param Zeta, Theta, Z  angles of precession, degrees
/// @param Dec, RA         place of J2000.0, degrees
/// @param DecOut, RAOut   out: place of the date, degrees; right ascension 0 up to 360. They may be the
///                        variables of Dec and RA
void ApplyPrecession(double Zeta, double Theta, double Z, double Dec, double RA, double& DecOut, double& RAOut);

/// A star's apparent place, referred to the true equator and equinox of date. Annual parallax, the
/// E-terms of aberration and the bending of light are left out.
/// @param BodyCode     one of the 58 names; any other gives the place of right ascension 0, declination 0
/// @param T            Julian centuries from J2000.0
/// @param GHA          out: Greenwich hour angle, degrees, 0 up to 360
/// @param Declination  out: degrees, north positive
void ComputeStarPosition(std::string_view BodyCode, double T, double& GHA, double& Declination);

} // namespace merov::ephemeris
