#include "sailing/geodesic_curve.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::NormalizeLongitude;
using numeric::Pi;
using numeric::Quotient;
using numeric::RadToDeg;

// Where a search leaves the region in which its function has a value, this keeps it moving and never
// reads as a root.
constexpr double Nudge = 1e-13;

double OneMinusE2(double r)
{
    return GeodesicProblemOn(r).OneMinusE2;
}

// w / (integral of integrand n from 0 to w).
double MeanRate(double w, double i, double oneMinusE2, int n)
{
    RateIntegrands integrands(i, oneMinusE2);
    return Quotient(1.0, Quotient(numeric::IntegrateSimpson(integrands, 0.0, w, 1e-8, 100, n), w));
}

// A longitude x on the geodesic of inclination i with its vertex there: how far it passes off the point
// psi, lambda, in tangents of latitude.
double MissAtPoint(double psi, double lambda, double i, double x, double oneMinusE2)
{
    return std::tan(i) * std::cos(GeodesicRateCos(psi, i, oneMinusE2) * ReduceRadians(x - lambda)) - std::tan(psi);
}

// The same with x as the longitude at which it crosses the equator.
double MissFromNode(double psi, double lambda, double i, double x, double oneMinusE2)
{
    return std::tan(i) * std::sin(GeodesicRate(psi, i, oneMinusE2) * ReduceRadians(lambda - x)) - std::tan(psi);
}

double DegreesFromVertex(double c, double k, const GeodesicProblem& p)
{
    return LongitudeFromVertex(c, k, p.HalfE2) * RadToDeg;
}

// x: the trial cotangent of the vertex of a geodesic through both points.
double LongitudeResidualOfVertex(double x, GeodesicProblem& p)
{
    if (std::fabs(Quotient(x, p.ArrLat)) > 1.0 || std::fabs(Quotient(x, p.DepLat)) > 1.0) return p.LastResidual + Nudge;
    const int s1 = EastSign(p.VertexLong, p.DepLong);
    const int s2 = EastSign(p.VertexLong, p.ArrLong);
    p.LastResidual = NormalizeLongitude((p.ArrLong - p.DepLong) - s2 * DegreesFromVertex(x, p.ArrLat, p) +
                                        s1 * DegreesFromVertex(x, p.DepLat, p));
    return p.LastResidual;
}

// x: the trial cotangent of the latitude at the longitude DepLong.
double LongitudeResidualOfPoint(double x, GeodesicProblem& p)
{
    if (x == 0.0 || std::fabs(p.CotVertex / x) > 1.0) return p.LastResidual + Nudge;
    const int s = EastSign(p.VertexLong, p.DepLong);
    p.LastResidual = NormalizeLongitude(p.DepLong - p.VertexLong - s * DegreesFromVertex(p.CotVertex, x, p));
    return p.LastResidual;
}

} // namespace

GeodesicProblem GeodesicProblemOn(double r)
{
    const double e = Eccentricity(r);
    GeodesicProblem problem;
    problem.OneMinusE2 = 1.0 - e * e;
    problem.HalfE2 = e * e / 2.0;
    return problem;
}

RateIntegrands::RateIntegrands(double inclination, double oneMinusE2)
    : tan2_(std::tan(inclination) * std::tan(inclination)), oneMinusE2_(oneMinusE2)
{
}

double RateIntegrands::f(double x, int n)
{
    if (n != 7 && n != 8) return 0.0;
    const double q = n == 7 ? std::cos(x) : std::sin(x);
    const double t = tan2_ * (q * q);
    return std::sqrt((oneMinusE2_ * oneMinusE2_ + t) / (oneMinusE2_ + t));
}

double RateIntegrands::SysEq(const numeric::Vector& /*x*/, int /*n*/)
{
    return 0.0;
}

double GeodeticToGeocentric(double lat, double r)
{
    return std::atan(OneMinusE2(r) * std::tan(lat * DegToRad)) * RadToDeg;
}

double GeocentricToGeodetic(double lat, double r)
{
    return std::atan(std::tan(lat * DegToRad) / OneMinusE2(r)) * RadToDeg;
}

double Cotangent(double lat)
{
    return std::tan((numeric::Sign(lat) * 90.0 - lat) * DegToRad);
}

double LatitudeOfCotangent(double cotangent)
{
    return numeric::Sign(cotangent) * 90.0 - std::atan(cotangent) * RadToDeg;
}

int EastSign(double long1, double long2)
{
    return numeric::AngleSide(long1, long2) < 0 ? 1 : -1;
}

double ReduceRadians(double x)
{
    if (std::fabs(x) <= Pi) return x;
    const double r = numeric::RealMod(x, 2.0 * Pi);
    return std::fabs(r) > Pi ? r - 2.0 * Pi * numeric::Sign(r) : r;
}

double LongitudeFromVertex(double cotVertex, double cotLat, double halfE2)
{
    const double c = cotVertex;
    const double k = cotLat;
    const double onSphere = numeric::ArcCos(Quotient(c, k));
    const double c2 = c * c + 1.0;
    // Beyond the equator the arc from the vertex is more than a quarter of the circle.
    double arc = std::atan(numeric::SquareRoot((k * k - c * c) / c2));
    if (numeric::Sign(c) * numeric::Sign(k) < 0) arc = Pi - arc;
    return onSphere - halfE2 * (std::fabs(c) / std::sqrt(c2)) * arc;
}

double GeodesicRate(double psi, double i, double oneMinusE2)
{
    if (std::fabs(psi) > std::fabs(i)) psi = numeric::Sign(psi) * std::fabs(i);
    const double w = numeric::ArcSin(Quotient(std::tan(psi), std::tan(i)));
    return MeanRate(w, i, oneMinusE2, 8);
}

double GeodesicRateCos(double psi, double i, double oneMinusE2)
{
    if (std::fabs(i) < std::fabs(psi)) return GeodesicRate(i, i, oneMinusE2);
    if (std::fabs(i) == std::fabs(psi)) return GeodesicRate(psi, i, oneMinusE2);
    return MeanRate(numeric::ArcCos(std::tan(psi) / std::tan(i)), i, oneMinusE2, 7);
}

double GeodesicPeriod(double vertexLat, double r)
{
    const double psi = GeodeticToGeocentric(vertexLat, r) * DegToRad;
    return 360.0 / GeodesicRate(psi, psi, OneMinusE2(r));
}

double GeodesicQuarterPeriod(double vertexLat, double r)
{
    const double psi = GeodeticToGeocentric(vertexLat, r) * DegToRad;
    return 90.0 / GeodesicRate(psi, psi, OneMinusE2(r));
}

//  n   x                                  result
//  5   cotangent of the vertex latitude   longitude missed between both points, degrees
//  6   cotangent of a latitude            longitude missed at that latitude, degrees
//  9   longitude of the vertex            missed at the first point, tangent of latitude
//  10  the same, from a departure in the other hemisphere
//  11  the same                           missed at the second point
double GeodesicFunction(double x, int n, GeodesicProblem& problem)
{
    const GeodesicProblem& p = problem;
    switch (n) {
    case 5:
        return LongitudeResidualOfVertex(x, problem);
    case 6:
        return LongitudeResidualOfPoint(x, problem);
    case 9:
    case 10:
        return MissAtPoint(p.DepLat, p.DepLong, p.Inclination, x, p.OneMinusE2);
    case 11:
        return MissAtPoint(p.ArrLat, p.ArrLong, p.Inclination, x, p.OneMinusE2);
    default:
        return 0.0;
    }
}

//  n     first point  second point  x2
//  1, 2  1            2             longitude of the vertex
//  3, 4  3            4             longitude of the equator crossing
//  5, 6  5            6             longitude of the vertex, points in two hemispheres
double GeodesicEquation(double x1, double x2, int n, const GeodesicProblem& p)
{
    switch (n) {
    case 1:
    case 5:
        return MissAtPoint(p.DepLat, p.DepLong, x1, x2, p.OneMinusE2);
    case 2:
    case 6:
        return MissAtPoint(p.ArrLat, p.ArrLong, x1, x2, p.OneMinusE2);
    case 3:
        return MissFromNode(p.DepLat, p.DepLong, x1, x2, p.OneMinusE2);
    case 4:
        return MissFromNode(p.ArrLat, p.ArrLong, x1, x2, p.OneMinusE2);
    default:
        return 0.0;
    }
}

} // namespace merov::sailing
