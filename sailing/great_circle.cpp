#include "sailing/great_circle.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/naut_lib_fct.h"
#include "sailing/rhumb_line.h"

#include <algorithm>
#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::HalfPi;
using numeric::NormalizeLongitude;
using numeric::Quotient;
using numeric::RadToDeg;
using numeric::Sign;

constexpr double SmallAngle = 1e-11; // radians

// Half the difference and half the sum of two latitudes and half their difference of longitude, radians,
// kept off the zeros that the formulas divide by.
struct HalfAngles {
    double D, M, L;
};

HalfAngles HalfAnglesOf(double lat1, double long1, double lat2, double long2)
{
    HalfAngles h{((lat2 - lat1) / 2.0) * DegToRad, ((lat1 + lat2) / 2.0) * DegToRad,
                 (NormalizeLongitude(long2 - long1) / 2.0) * DegToRad};
    if (std::fabs(h.D) < SmallAngle) h.D = Sign(h.D) * 1e-9;
    if (std::fabs(h.M) < SmallAngle) h.M = SmallAngle;
    if (std::fabs(h.L) < SmallAngle) h.L = SmallAngle;
    return h;
}

bool SamePosition(double lat1, double long1, double lat2, double long2)
{
    return SameLatitude(lat1, lat2) && SameLongitude(long1, long2);
}

// Two positions with what the search for their vertex needs.
struct Track {
    double Lat1, Long1, Lat2, Long2;
    double Psi1 = 0.0, Psi2 = 0.0; // geocentric latitudes, degrees
    double K1 = 0.0, K2 = 0.0;     // their signed cotangents

    bool FirstIsGreater() const { return std::fabs(Lat2) < std::fabs(Lat1); }
};

// A track along a meridian, or over a pole to the opposite one: true, with a pole as the vertex.
bool VertexAtPole(const Track& t, Vertex& vertex, double r, double a)
{
    const bool oneMeridian = SameLongitude(t.Long1, t.Long2);
    if (!oneMeridian && !SameLongitude(NormalizeLongitude(t.Long1 + 180.0), t.Long2)) return false;
    vertex.CotVertex = 0.0;
    vertex.VertexLong = NormalizeLongitude(t.Long1 - 90.0);
    if (oneMeridian) {
        vertex.VertexLat = 90.0 * Sign(t.FirstIsGreater() ? t.Lat1 : t.Lat2);
        vertex.VertexDistance = -1.0;
    } else {
        vertex.VertexLat = t.Lat1 + t.Lat2 >= 0.0 ? 90.0 : -90.0;
        vertex.VertexDistance = GeodesicDistance(t.Lat1, t.Long1, vertex.VertexLat, vertex.VertexLong, r, a);
    }
    return true;
}

// The vertex on a sphere with the same latitudes, by Napier's analogies.
void EstimateVertex(const Track& t, Vertex& vertex)
{
    const double phi1 = t.Lat1 * DegToRad;
    const HalfAngles h = HalfAnglesOf(t.Lat1, t.Long1, t.Lat2, t.Long2);
    const double tanL = std::tan(h.L);
    const double s = std::fabs(std::atan(Quotient(Quotient(std::cos(h.D), std::sin(h.M)), tanL)));
    const double u = std::fabs(std::atan(Quotient(Quotient(std::sin(h.D), std::cos(h.M)), tanL)));
    const double angle = t.FirstIsGreater() ? s + u : s - u; // of the track at the departure

    const double v =
        std::fabs(numeric::ArcCos(std::cos(phi1) * std::sin(angle))) * Sign(t.FirstIsGreater() ? t.Lat1 : t.Lat2);
    // A departure that is the vertex may lie beyond it by a rounding.
    const double ratio = std::clamp(Quotient(std::tan(phi1), std::tan(v)), -1.0, 1.0);
    const double w = std::fabs(numeric::ArcCos(ratio)) * RadToDeg;
    const int side = angle < HalfPi ? EastSign(t.Long1, t.Long2) : EastSign(t.Long2, t.Long1);
    vertex.VertexLat = v * RadToDeg;
    vertex.VertexLong = NormalizeLongitude(t.Long1 + side * w);
}

// By function 5, from the estimate in `vertex`; false where the search fails. A southern vertex is
// searched on the northern mirror image, so that both hemispheres give the same track.
bool SearchVertex(const Track& t, NautLibFct& functions, Vertex& vertex)
{
    const double mirror = vertex.VertexLat < 0.0 ? -1.0 : 1.0;
    GeodesicProblem& p = functions.Geodesic;
    p.DepLat = mirror * t.K1;
    p.ArrLat = mirror * t.K2;
    p.DepLong = t.Long1;
    p.ArrLong = t.Long2;
    p.VertexLong = vertex.VertexLong;
    bool failed = false;
    const double c = numeric::FindRoot(functions, mirror * vertex.CotVertex, 0.001, -numeric::LargestDouble,
                                       numeric::LargestDouble, false, 1e-8, 750, 5, false, failed);
    if (!failed) vertex.CotVertex = mirror * c;
    return !failed;
}

// By the nonlinear system of the two end points, where the search has failed.
void SolveVertex(const Track& t, NautLibFct& functions, Vertex& vertex)
{
    GeodesicProblem& p = functions.Geodesic;
    p.DepLat = t.Psi1 * DegToRad;
    p.ArrLat = t.Psi2 * DegToRad;
    p.DepLong = t.Long1 * DegToRad;
    p.ArrLong = t.Long2 * DegToRad;
    const double nodeLong = NormalizeLongitude(EastSign(vertex.VertexLong, t.Long1) * 90.0 + vertex.VertexLong);
    const double inclination = vertex.VertexLat * DegToRad;
    const double quarter = 90.0 / GeodesicRate(inclination, inclination, p.OneMinusE2);
    const auto nearNode = [&](double longitude) {
        return EastSign(nodeLong + quarter, longitude) == -1 && EastSign(nodeLong - quarter, longitude) == 1;
    };
    numeric::Vector x(1, 2);
    x[1] = inclination;
    x[2] = vertex.VertexLong * DegToRad;
    int firstEquation = 5;
    if (Sign(t.Psi1) == Sign(t.Psi2)) {
        firstEquation = 1;
    } else if (nearNode(t.Long1) && nearNode(t.Long2)) {
        firstEquation = 3;
        x[1] = inclination * EastSign(nodeLong, vertex.VertexLong);
        x[2] = nodeLong * DegToRad;
    }
    const bool fromNode = firstEquation == 3;
    numeric::SolveSystem(functions, x, 1e-8, 150, firstEquation);
    vertex.CotVertex =
        std::tan(HalfPi - std::fabs(x[1])) * Sign(std::fabs(t.Psi2) < std::fabs(t.Psi1) ? t.Psi1 : t.Psi2);
    // The search fails where the estimate lies on the wrong side of the departure: the system tells the
    // right one.
    double vertexLong = x[2] * RadToDeg;
    if (fromNode) vertexLong += Sign(vertex.CotVertex) * Sign(x[1]) * 90.0 / GeodesicRate(x[1], x[1], p.OneMinusE2);
    vertex.VertexLong = NormalizeLongitude(numeric::Finite(vertexLong));
}

// The geocentric latitude, degrees, off the zero that has no cotangent.
double Geocentric(double lat, double r)
{
    const double psi = GeodeticToGeocentric(lat, r);
    return psi == 0.0 ? 1e-7 : psi;
}

} // namespace

void GreatCircleVertex(double lat1, double long1, double lat2, double long2, Vertex& vertex, double r, double a)
{
    if (SamePosition(lat1, long1, lat2, long2)) {
        vertex.VertexDistance = -1.0;
        return;
    }
    NautLibFct functions;
    functions.Geodesic = GeodesicProblemOn(r);
    Track t{lat1, long1, lat2, long2};
    if (VertexAtPole(t, vertex, r, a)) return;
    EstimateVertex(t, vertex);

    t.Psi1 = Geocentric(lat1, r);
    t.Psi2 = Geocentric(lat2, r);
    t.K1 = Cotangent(t.Psi1);
    t.K2 = Cotangent(t.Psi2);
    // From the position nearer to the vertex: from the other one the estimate may lie where function 5
    // has no value.
    const double nearLong = t.FirstIsGreater() ? long1 : long2;
    const double away = NormalizeLongitude((nearLong - vertex.VertexLong) * EastSign(vertex.VertexLong, nearLong));
    vertex.CotVertex = std::cos(away * DegToRad) * (t.FirstIsGreater() ? t.K1 : t.K2);
    const bool onSphere = r == SphereInverseFlattening; // there the estimate is exact
    if (!onSphere && !SearchVertex(t, functions, vertex)) SolveVertex(t, functions, vertex);

    // The system may set the vertex a trifle below a departure that is the vertex itself.
    if (std::fabs(vertex.CotVertex) > std::fabs(t.K1)) vertex.CotVertex = t.K1;
    const int s = EastSign(vertex.VertexLong, long1);
    const double apart = LongitudeFromVertex(vertex.CotVertex, t.K1, functions.Geodesic.HalfE2) * RadToDeg;
    vertex.VertexLong = NormalizeLongitude(long1 - s * apart);
    vertex.VertexLat = GeocentricToGeodetic(LatitudeOfCotangent(vertex.CotVertex), r);
    const bool outside = EastSign(long1, vertex.VertexLong) != EastSign(long1, long2) ||
                         EastSign(long2, vertex.VertexLong) != EastSign(long2, long1);
    vertex.VertexDistance =
        outside ? -1.0
                : GeodesicDistance(GeocentricToGeodetic(t.Psi1, r), long1, vertex.VertexLat, vertex.VertexLong, r, a);
}

double GeodesicDistance(double lat1, double long1, double lat2, double long2, double r, double a)
{
    if (SamePosition(lat1, long1, lat2, long2)) return 0.0;
    constexpr double K = 10800.0 / numeric::Pi; // minutes of arc in a radian
    const double f = 1.0 / r;
    const HalfAngles half = HalfAnglesOf(lat1, long1, lat2, long2);
    const double sinD = std::sin(half.D), cosD = std::cos(half.D);
    const double sinM = std::sin(half.M), cosM = std::cos(half.M);
    const double tanL = std::tan(half.L);
    // cos S / cos T of Napier's analogies, without the loss of digits near one meridian.
    const double u = Quotient(Quotient(cosD, sinM), tanL);
    const double v = Quotient(Quotient(sinD, cosM), tanL);
    const double ratio = std::sqrt((1.0 + v * v) / (1.0 + u * u));
    const double h = std::atan(Quotient(ratio, std::tan(half.M)));
    const double d = std::fabs(h) * 6875.4935415716145;
    const double c = d / K;

    const double sinC = std::sin(c), sinHalfC = std::sin(c / 2.0), cosHalfC = std::cos(c / 2.0);
    const double U = Quotient(sinM * sinM * (cosD * cosD) * (3.0 * sinC - c) * (f * K / 2.0), cosHalfC * cosHalfC);
    const double W = Quotient(cosM * cosM * (sinD * sinD) * (3.0 * sinC + c) * (f * K / 2.0), sinHalfC * sinHalfC);
    return (a / K) * (d + U - W);
}

} // namespace merov::sailing
