#pragma once

/// The rhumb line forwards: from a position, a course and a distance to the arrival.
///
/// Latitudes and longitudes are signed degrees, north and east positive; courses degrees clockwise
/// from north; distances nautical miles of the ellipsoid (geographical miles on the Normal Sphere).
/// r and a are the inverse flattening and the semi-major axis in miles (ellipsoid.h).

namespace merov::sailing
{

/// How a trial of a solver runs the direct problem. Every other caller uses Plain.
enum class RhumbMode {
    Plain = 0,          ///< warns of a pole
    TrialLatitude = 3,  ///< latitude and longitude, no warning
    TrialLongitude = 4, ///< the same
    GivenLatitude = 11, ///< the arrival latitude comes in, only the longitude is computed
    LatitudeOnly = 12   ///< only the arrival latitude is computed
};

/// The fixed data of a search for a rhumb line, which the functions of the search read.
struct SailingProblem {
    double DepLat = 0.0; ///< departure, degrees
    double DepLong = 0.0;
    double ArrLat = 0.0; ///< arrival aimed at, degrees
    double ArrLong = 0.0;
    double Course = 0.0;   ///< degrees
    double Distance = 0.0; ///< miles
    double TrialLat = 0.0; ///< in and out of the trial, degrees
    double TrialLong = 0.0;
    double InverseFlattening = 0.0;
    double SemiMajorAxis = 0.0;
    double TargetParts = 0.0; ///< meridional parts aimed at, minutes
};

/// Carries a position along a rhumb line.
///
/// @param lat1, long1  departure; a latitude of exactly -90 is taken as -89.999999
/// @param course       any value; it is not reduced first
/// @param distance     miles; negative runs backwards along the same line; 0 gives the departure
/// @param lat2, long2  out; the longitude reduced to -180..180. A track that crosses a pole shows a
///                     warning, unless one was shown within the last second, and gives +-90 and 0
/// A result that is no finite number raises fault 5 or 6.
///
/// Radii of curvature, meridian arc to its term in e^2 and isometric latitude as in J. P. Snyder, Map
/// Projections: A Working Manual, USGS Professional Paper 1395 (1987). Up to 80 degrees of latitude
/// within 0.002 mile of the exact line over 100 miles, 0.02 over 1000 and 0.05 over 3000; within half a
/// degree of east and west 0.007 over 1000 and 0.13 over 3000 (tests/against/rhumb_test.cpp). On the
/// Normal Sphere the results are those of the tables of meridional parts, which hold the shape of
/// Clarke 1880.
void RhumbLineDirect(double lat1, double long1, double course, double distance, double& lat2, double& long2, double r,
                     double a);

/// The same in a mode of a solver's trial: lat2 comes in with GivenLatitude, long2 is left alone with
/// LatitudeOnly, and no mode but Plain warns of a pole.
void RhumbLineTrial(RhumbMode mode, double lat1, double long1, double course, double distance, double& lat2,
                    double& long2, double r, double a);

/// Value of search function n (0 to 4 or 14; others give 0) at x for `problem`; rhumb_line.cpp has their
/// table. A trial beyond a pole raises fault 5, but in function 1.
double RhumbLineFunction(double x, int n, SailingProblem& problem);

/// True for a course within half a degree of east or west (both bounds excluded), written 89.5 to 90.5 or
/// 269.5 to 270.5, where the longitude comes from the mean latitude.
inline bool InEastWestBand(double course)
{
    return (course > 89.5 && course < 90.5) || (course > 269.5 && course < 270.5);
}

/// A latitude of exactly -90 as -89.999999, any other as it is: the isometric latitude has no value at
/// the south pole.
inline double OffSouthPole(double lat)
{
    return lat == -90.0 ? -89.999999 : lat;
}

/// True when both latitudes have one sign and lie within 8e-5 degrees, or both within 4e-5 of 0.
bool SameLatitude(double lat1, double lat2);

/// x + 360 below 0, x - 360 above 180, else x: the other way of writing a longitude.
double FlipLongitude(double x);

/// True when both longitudes lie within 8e-5 degrees, also across 180 and 0 degrees.
bool SameLongitude(double long1, double long2);

/// The full-circle course from an angle c (degrees, any sign) and the two positions; due north is 360.
double CourseFromQuadrant(double c, double lat1, double long1, double lat2, double long2);

/// Isometric latitude in radians of the latitude phi (radians) with eccentricity e (Snyder 1987, section
/// 3). Fault 5 beyond the poles.
double IsometricLatitude(double phi, double e);

} // namespace merov::sailing
