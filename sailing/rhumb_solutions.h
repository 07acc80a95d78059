#pragma once

/// The rhumb line from other knowns than course and distance.
///
/// Latitudes -90..90 and longitudes -180..180, signed degrees, north and east positive; courses degrees
/// 0..360 clockwise from north; distances nautical miles of the ellipsoid (geographical miles on the
/// Normal Sphere). r and a are the inverse flattening and the semi-major axis in miles (ellipsoid.h).
///
/// On an ellipsoid the direct problem (rhumb_line.h) is solved backwards by searches, so that a result
/// always leads back to the position it was computed for; on the Normal Sphere the traditional formulas
/// with meridional parts give it at once. A search that fails has shown its box and its result counts
/// as 0. A position beyond a pole, or a course that never meets the meridian, raises a fault. A
/// departure latitude of exactly -90 is taken as -89.999999.

namespace merov::sailing
{

/// Course and distance from one position to another, the short way round.
///
/// @param lat2, long2  arrival; a latitude of exactly -90 is taken as -89.999999
/// @param course       out; due north is 360. 0 where both positions are the same
/// @param distance     out; 0 where both positions are the same
/// Latitudes that are the same (SameLatitude) give 90 or 270. On an ellipsoid the course is the exact
/// one to some 1e-7 mile across the line (outside the band near east and west); the distance has the
/// accuracy of RhumbLineDirect (tests/against/rhumb_test.cpp). To a pole itself no course is exact.
void RhumbLineInverse(double lat1, double long1, double lat2, double long2, double& course, double& distance, double r,
                      double a);

/// Longitude and distance at which a course reaches a latitude.
///
/// @param lat2      latitude aimed at; -90 raises fault 5
/// @param long2     out; 0 where a box tells that there is no solution
/// @param distance  out; 0 where a box tells that there is no solution. More than 21638.8 miles, the
///                  way round the Earth, is none
/// The same latitude (SameLatitude) is refused with a box and gives `long1` and 0. The longitude is
/// exact on an ellipsoid, the distance has the accuracy of RhumbLineDirect, in the band near east and
/// west of its latitude divided by the cosine of the course.
void RhumbLineToLatitude(double lat1, double long1, double course, double lat2, double& long2, double& distance,
                         double r, double a);

/// Latitude and distance at which a course reaches a longitude.
///
/// @param long2     longitude aimed at, the short way round
/// @param lat2      out; 0 where a box tells that there is no solution
/// @param distance  out; 0 where a box tells that there is no solution
/// The same longitude (SameLongitude) is refused with a box and gives `lat1` and 0.
void RhumbLineToLongitude(double lat1, double long1, double course, double long2, double& lat2, double& distance,
                          double r, double a);

} // namespace merov::sailing
