#pragma once

/// The great circle: the geodesic of an ellipsoid through two positions.
///
/// Latitudes -90..90 and longitudes -180..180 are signed degrees, north and east positive; courses degrees
/// clockwise from north; distances nautical miles of the ellipsoid (geographical miles on the Normal
/// Sphere). r and a are the inverse flattening and the semi-major axis in miles (ellipsoid.h). Faults go to
/// the caller.

namespace merov::sailing
{

/// What GreatCircleVertex finds. What it does not set stays as it was handed in.
struct Vertex {
    double VertexLat = 0.0; ///< of the whole curve, also where it lies outside the track
    double VertexLong = 0.0;
    double CotVertex = 0.0;      ///< cotangent of its geocentric latitude; negative for a southern vertex
    double VertexDistance = 0.0; ///< from the departure; -1 outside the track and for equal positions
};

/// The vertex, the point of greatest latitude, of the geodesic through two positions, the short way round.
///
/// @param vertex  out. Equal positions (SameLatitude and SameLongitude) set VertexDistance alone. On one
///                meridian and on opposite ones the vertex is a pole, and VertexLong lies 90 degrees west of
///                long1
/// Both positions on the equator raise fault 11. A system that doesn't converge has shown its box.
///
/// The vertex of a sphere by Napier's analogies, then a search for the cotangent of its latitude with the
/// flattening's term in e^2 (LongitudeFromVertex); where that fails, the system of both end points. The
/// vertex is within 0.0013 degree of latitude and points are within 0.08 mile; from 15 degrees to 5 off the
/// antipode 0.0045 and 0.26, from 5 to 1 0.018 and 1.2 (tests/against/great_circle_test.cpp). Nearer to
/// it, and to or from a pole itself, the result is no help.
void GreatCircleVertex(double lat1, double long1, double lat2, double long2, Vertex& vertex, double r, double a);

/// Latitude at a longitude, of the geodesic that `vertex` belongs to, without the course there.
///
/// @param failed  set where no latitude is found, which no vertex of GreatCircleVertex leads to; otherwise
///                left alone
/// Within 0.0003 degree of latitude of the vertex, and with a pole as the vertex, it is VertexLat itself.
double GeodesicLatitudeAt(double longitude, const Vertex& vertex, double r, bool& failed);

/// The same with the course there.
///
/// @param fromLong, toLong  tell the direction of the track
/// @param course            out; 90 or 270 at the vertex. On one meridian (pole as the vertex, fromLong and
///                          toLong the same) it stays as handed in, which then should be the rhumb line's
double GeodesicLatitudeAt(double longitude, const Vertex& vertex, double r, double fromLong, double toLong,
                          double& course, bool& failed);

/// Length of the geodesic between two positions; 0 for equal ones (SameLatitude and SameLongitude).
///
/// Closed formula with its term in the flattening, due to H. Andoyer (J. Meeus, Astronomical Algorithms,
/// 2nd ed., 1998, chapter 11). Within 0.15 mile, 99 of 100 tracks within 0.05; 0.5 from 15 degrees to 5 off
/// the antipode and 2.6 from 5 to 1.
double GeodesicDistance(double lat1, double long1, double lat2, double long2, double r, double a);

} // namespace merov::sailing
