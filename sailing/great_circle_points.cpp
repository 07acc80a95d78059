// Points of a great circle whose vertex is known.

#include "sailing/great_circle.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/naut_lib_fct.h"
#include "sailing/rhumb_line.h"

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::NormalizeLongitude;
using numeric::Quotient;
using numeric::RadToDeg;
using numeric::Sign;

constexpr double SmallAngle = 1e-11;
constexpr double AtVertex = 0.0003;   // degrees of latitude
constexpr double StepOn = 0.00027777; // degrees of longitude

// A point of the geodesic.
struct Point {
    double Lat = 0.0;      // degrees
    double Cot = 0.0;      // of its geocentric latitude
    bool IsVertex = false; // so close to it that it counts as the vertex
};

// The cotangent at a longitude, by inserting the arc into the flattening's term over and over. Near the
// equator, where cotangents have no bound, the search finds none.
double CotangentBySubstitution(double longitude, const Vertex& vertex, double halfE2)
{
    const double c = vertex.CotVertex;
    const double cosInclination = std::fabs(c) / std::sqrt(c * c + 1.0);
    const double apart = std::fabs(NormalizeLongitude(longitude - vertex.VertexLong)) * DegToRad;
    double onSphere = apart;
    for (int i = 0; i < 5; ++i) {
        double arc = std::atan(cosInclination * std::tan(onSphere));
        if (arc < 0.0) arc += numeric::Pi;
        onSphere = apart + halfE2 * cosInclination * arc;
    }
    double t = std::cos(onSphere) / c;
    if (std::fabs(t) < SmallAngle) t = SmallAngle;
    return 1.0 / t;
}

// By function 6 from the estimate k, on the northern mirror image as with the vertex.
double SearchCotangent(double longitude, double k, const Vertex& vertex, const GeodesicProblem& constants)
{
    const double mirror = vertex.CotVertex < 0.0 ? -1.0 : 1.0;
    const double size = std::fabs(k);
    const double step = size < 28.0 ? 0.01 : size < 57.0 ? size * 0.5 : size * 3.0;
    NautLibFct functions;
    functions.Geodesic = constants;
    functions.Geodesic.DepLong = longitude;
    functions.Geodesic.VertexLong = vertex.VertexLong;
    functions.Geodesic.CotVertex = mirror * vertex.CotVertex;
    bool failed = false;
    const double found = numeric::FindRoot(functions, mirror * k, step, -1e10, 1e10, true, 1e-8, 500, 6, false, failed);
    return failed ? CotangentBySubstitution(longitude, vertex, constants.HalfE2) : mirror * found;
}

// True for a point in the hemisphere of the vertex.
bool OnVertexSide(double longitude, const Vertex& vertex, double r, double oneMinusE2)
{
    // The quarter period, for which an integral is needed, lies between these bounds.
    constexpr double margin = 0.001; // degrees
    const double away = std::fabs(NormalizeLongitude(longitude - vertex.VertexLong));
    if (vertex.VertexLat != 0.0) {
        if (away < 90.0 * std::sqrt(oneMinusE2) - margin) return true;
        if (away > 90.0 + margin) return false;
    }
    const double quarter = GeodesicQuarterPeriod(vertex.VertexLat, r);
    return EastSign(NormalizeLongitude(vertex.VertexLong + quarter), longitude) == -1 &&
           EastSign(NormalizeLongitude(vertex.VertexLong - quarter), longitude) == 1;
}

Point PointAt(double longitude, const Vertex& vertex, double r, const GeodesicProblem& constants)
{
    const double vertexPsi = GeodeticToGeocentric(vertex.VertexLat, r);
    const double psi = vertexPsi * DegToRad;
    const double d = NormalizeLongitude(vertex.VertexLong - longitude) * DegToRad;
    double g = std::fabs(std::atan(std::tan(psi) * std::cos(d))) * RadToDeg;
    g *= OnVertexSide(longitude, vertex, r, constants.OneMinusE2) ? Sign(vertex.VertexLat) : -Sign(vertex.VertexLat);
    if (std::fabs(g - vertexPsi) < AtVertex) return {vertex.VertexLat, 0.0, true};

    if (std::fabs(g) < SmallAngle) g = SmallAngle;
    double k = Cotangent(g);
    if (r != SphereInverseFlattening) {
        k = SearchCotangent(longitude, k, vertex, constants);
        g = LatitudeOfCotangent(k);
    }
    return {GeocentricToGeodetic(g, r), k};
}

// A vertex at a pole: the track is a meridian or runs over the pole.
bool IsPole(const Vertex& vertex)
{
    return std::fabs(vertex.VertexLat) == 90.0;
}

} // namespace

double GeodesicLatitudeAt(double longitude, const Vertex& vertex, double r, bool& /*failed*/)
{
    if (IsPole(vertex)) return vertex.VertexLat;
    return PointAt(longitude, vertex, r, GeodesicProblemOn(r)).Lat;
}

double GeodesicLatitudeAt(double longitude, const Vertex& vertex, double r, double fromLong, double toLong,
                          double& course, bool& failed)
{
    if (IsPole(vertex)) {
        if (SameLongitude(fromLong, toLong)) return vertex.VertexLat;
        const bool towards = SameLongitude(longitude, fromLong);
        course = towards == (vertex.VertexLat > 0.0) ? 360.0 : 180.0;
        return vertex.VertexLat;
    }
    const GeodesicProblem constants = GeodesicProblemOn(r);
    const Point point = PointAt(longitude, vertex, r, constants);
    const int side = EastSign(fromLong, toLong);
    if (point.IsVertex) {
        course = side == 1 ? 90.0 : 270.0;
        return point.Lat;
    }
    const double c = vertex.CotVertex;
    const double k2 = point.Cot * point.Cot;
    const double angle = std::fabs(std::atan((1.0 - constants.HalfE2 * k2 / (k2 + 1.0)) *
                                             numeric::SquareRoot(Quotient(k2 + 1.0, k2 - c * c)) * c)) *
                         RadToDeg;
    // A point a little further on tells the quadrant.
    const double nextLong = NormalizeLongitude(longitude + side * StepOn);
    const double nextLat = GeodesicLatitudeAt(nextLong, vertex, r, failed);
    course = CourseFromQuadrant(angle, point.Lat, longitude, nextLat, nextLong);
    return point.Lat;
}

} // namespace merov::sailing
