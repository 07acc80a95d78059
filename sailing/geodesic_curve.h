#pragma once

#include "numeric/solvers.h"

/// The geodesic of an ellipsoid as a curve of longitude and geocentric latitude.
///
/// The inclination i of a geodesic is the geocentric latitude of its vertex, its point of greatest
/// latitude. Seen from the vertex the curve is tan psi = tan i cos(F (lambda - lambda of the vertex)), on
/// the sphere with F = 1; on an ellipsoid the phase rate F is a mean over the arc. Cotangents of latitudes
/// have the sign of their latitude. Longitudes and geographic latitudes are signed degrees, north and east
/// positive; the phase rates and whatever they enter into work in radians. r is the inverse flattening
/// (ellipsoid.h).

namespace merov::sailing
{

/// The fixed data of a search on a geodesic. The four fields of the end points hold what the function asks
/// for: 5 the cotangents of their geocentric latitudes and degrees of longitude, 6 only DepLong, the
/// longitude aimed at in degrees, 9 to 11 and the equations geocentric latitudes and longitudes in radians.
struct GeodesicProblem {
    double DepLat = 0.0;
    double DepLong = 0.0;
    double ArrLat = 0.0;
    double ArrLong = 0.0;
    double VertexLong = 0.0;   ///< degrees
    double CotVertex = 0.0;    ///< cotangent of the geocentric latitude of the vertex, for function 6
    double Inclination = 0.0;  ///< i in radians, for functions 7 to 11
    double OneMinusE2 = 1.0;   ///< 1 - e^2
    double HalfE2 = 0.0;       ///< e^2 / 2
    double LastResidual = 0.0; ///< what function 5 or 6 gave last; the functions keep it themselves
};

/// A problem on the ellipsoid r, its other fields as above.
GeodesicProblem GeodesicProblemOn(double r);

/// The integrands of the phase rates, by number: 7 the cosine form, 8 the sine form.
class RateIntegrands : public numeric::NumberedFunctions
{
public:
    /// @param inclination  i, radians
    /// @param oneMinusE2   1 - e^2
    RateIntegrands(double inclination, double oneMinusE2);

    /// sqrt((c^2 + T^2 q^2) / (c + T^2 q^2)) with c = 1 - e^2, T = tan i and q = cos x (n = 7) or sin x (n = 8),
    /// x in radians; other numbers give 0.
    double f(double x, int n) override;

    /// There are no equations: 0.
    double SysEq(const numeric::Vector& x, int n) override;

private:
    double tan2_; // of the inclination, squared
    double oneMinusE2_;
};

/// Geocentric latitude, degrees, of a geographic one: atan((1 - e^2) tan phi).
double GeodeticToGeocentric(double lat, double r);

/// Geographic latitude, degrees, of a geocentric one: atan(tan psi / (1 - e^2)).
double GeocentricToGeodetic(double lat, double r);

/// Signed cotangent of a latitude in degrees: tan(90 - lat), south tan(-90 - lat), and 0 for latitude 0.
double Cotangent(double lat);

/// The latitude in degrees with a signed cotangent; 0 for 0.
double LatitudeOfCotangent(double cotangent);

/// 1 when long2 lies east of long1 by less than 180 degrees, otherwise -1, so also when both are the same.
/// Longitudes in degrees, any value.
int EastSign(double long1, double long2);

/// A difference of longitudes in radians, reduced to -pi..pi.
double ReduceRadians(double x);

/// How far, in radians (0..pi), a point lies from the vertex in longitude: the great circle's part and the
/// flattening's, to its term in e^2 (C. F. F. Karney, Algorithms for geodesics, J. Geod. 87, 2013, equation 8).
/// @param cotVertex  cotangent of the geocentric latitude of the vertex
/// @param cotLat     of the point's; its magnitude isn't below that of cotVertex, or a box shows and
///                   fault 5 follows. 0 raises fault 11
double LongitudeFromVertex(double cotVertex, double cotLat, double halfE2);

/// Phase rate F between the equator crossing and latitude psi: w / (integral of function 8 from 0 to w)
/// with sin w = tan psi / tan i.
/// @param psi  geocentric latitude, radians; beyond the inclination it counts as it. 0 raises fault 11
/// @param i    inclination, radians
double GeodesicRate(double psi, double i, double oneMinusE2);

/// Phase rate F between the vertex and latitude psi, by function 7 with cos w = tan psi / tan i; at the
/// vertex and beyond it that of the whole quarter. Arguments as with GeodesicRate, but psi may be 0.
double GeodesicRateCos(double psi, double i, double oneMinusE2);

/// Degrees of longitude in which the geodesic with its vertex at a geographic latitude (degrees, not 0: fault
/// 11) swings north and south once, and a quarter of them: 360 and 90 on the sphere, less on an ellipsoid.
double GeodesicPeriod(double vertexLat, double r);
double GeodesicQuarterPeriod(double vertexLat, double r);

/// Value of function n (5, 6 or 9 to 11; others give 0) at x for `problem`.
double GeodesicFunction(double x, int n, GeodesicProblem& problem);

/// Value of equation n (1 to 6; others give 0) for an inclination x1 and a longitude x2, radians.
double GeodesicEquation(double x1, double x2, int n, const GeodesicProblem& problem);

} // namespace merov::sailing
