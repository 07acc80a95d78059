#pragma once

#include "numeric/arrays.h"

/// What ties the altitude of each sight to latitude, longitude, course and speed at the instant of the
/// true position, and which sights say something new about course and speed.

namespace merov::fix
{

/// The flags of sights, 1..n; 0 and 1.
using SightFlags = numeric::BoundedArray<unsigned char>;

/// Marks the sights whose line of position isn't nearly parallel to that of a good sight before them.
///
/// @param azimuths  degrees, 1..n
/// @param good      out, 1..n: 0 for a sight strictly within 3.6 degrees of the bearing of an earlier good
///                  sight or of its opposite
/// @return the number of good sights
short MarkGoodObservations(const numeric::Vector& azimuths, SightFlags& good);

/// Derivatives per sight, each 1..n. Angles in them are radians, speed is knots. Index i is the position
/// at the sight, 0 the one at the instant of the true position; the derivative of one longitude by the
/// other is 1.
struct MotionPartials {
    explicit MotionPartials(int n);

    numeric::Vector PartialLat; ///< of the computed altitude by the sight's latitude
    numeric::Vector PartialLong;
    numeric::Vector LatByLat; ///< of the sight's latitude by latitude 0
    numeric::Vector LongByLat;
    numeric::Vector LatByCourse; ///< of the sight's position by course and speed: only with four unknowns
    numeric::Vector LongByCourse;
    numeric::Vector LatBySpeed;
    numeric::Vector LongBySpeed;
};

/// Fills `partials` for sights that RunPositions has placed and CorrectAltitudes has worked.
///
/// @param n              number of sights
/// @param course, speed  degrees, any value; knots. Courses strictly within half a degree of east or
///                       west, written in 0..360, take formulas without the cosine of the course
/// @param times          date-times, 0..n
/// @param lats, longs    positions, 0..n, degrees
/// @param approxLat      of RunPositions, 1..n, degrees
/// @param decs, ghas, hcs  declination, Greenwich hour angle and computed altitude, degrees, 1..n
/// @param numUnknowns    4 fills all eight arrays, 2 leaves the last four alone
/// @param r, a           inverse flattening and semi-major axis in miles
///
/// On an ellipsoid these are the exact derivatives of RhumbLineDirect (within 1e-8 of its numeric
/// derivatives, tests/fix/motion_partials_test). A body in the zenith, or a latitude at or beyond a
/// pole, is a fault that abandons the call.
void ComputePartials(int n, double course, double speed, const numeric::Vector& times, const numeric::Vector& lats,
                     const numeric::Vector& longs, const numeric::Vector& approxLat, const numeric::Vector& decs,
                     const numeric::Vector& ghas, const numeric::Vector& hcs, int numUnknowns, MotionPartials& partials,
                     double r, double a);

} // namespace merov::fix
