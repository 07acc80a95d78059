#include "ephemeris/planets.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/saturn_lib.h"
#include "ephemeris/sun.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"

#include <cmath>

namespace merov::ephemeris
{

namespace
{

using numeric::PolarToRect;
using numeric::Quotient;

/// Days that light takes for one astronomical unit.
constexpr double LightDaysPerUnit = 0.0057756;
constexpr double DaysPerCentury = 36525.0;

/// Heliocentric latitude and longitude from the elements and the equation of the centre.
void PlaceInOrbit(double L, double node, double inclination, double equationOfCentre, double& latitude,
                  double& longitude)
{
    double fromNode = 0.0;
    // The orbit stands to the ecliptic as the ecliptic to the equator.
    numeric::EclipticToEquator(L - node + equationOfCentre, inclination, fromNode, latitude);
    longitude = fromNode + node;
}

} // namespace

void PlanetHeliocentric(std::string_view BodyCode, double T, double& Latitude, double& Longitude, double& Radius)
{
    if (BodyCode == "SATURN") {
        SaturnHeliocentric(T, Latitude, Longitude, Radius);
        return;
    }
    double L, node, inclination, meanAnomaly, eccentricity, radiusTerm, equationOfCentre, radius;
    if (BodyCode == "JUPITER") {
        JupiterElements(T, L, node, inclination, meanAnomaly, eccentricity, radiusTerm);
        SolveKepler(eccentricity, meanAnomaly, equationOfCentre, radius);
        Radius = (radiusTerm + JupiterSemiMajorAxis) * radius;
    } else if (BodyCode == "MARS") {
        MarsElements(T, L, node, inclination, meanAnomaly, eccentricity, radiusTerm);
        SolveKepler(eccentricity, meanAnomaly, equationOfCentre, radius);
        Radius = MarsSemiMajorAxis * radius + radiusTerm;
    } else {
        VenusElements(T, L, node, inclination, meanAnomaly, eccentricity, radiusTerm);
        SolveKepler(eccentricity, meanAnomaly, equationOfCentre, radius);
        Radius = VenusSemiMajorAxis * radius + radiusTerm;
    }
    PlaceInOrbit(L, node, inclination, equationOfCentre, Latitude, Longitude);
}

double GeocentricEcliptic(double SunRadius, double SunLongitude, double Radius, double Latitude, double Longitude,
                          double& EclLatitude, double& EclLongitude)
{
    double sunX, sunY, sunZ, x, y, z;
    PolarToRect(SunRadius, 0.0, SunLongitude, sunX, sunY, sunZ);
    PolarToRect(Radius, Latitude, Longitude, x, y, z);
    x += sunX;
    y += sunY;
    EclLatitude = std::atan(Quotient(z, numeric::Hypot2(x, y))) * numeric::RadToDeg;
    EclLongitude = numeric::Atan2Deg(x, y);
    return std::sqrt(x * x + y * y + z * z);
}

void ShiftToGeocentre(double Ratio, double SunLongitude, double Eps, double Dec, double RA, double& DecOut,
                      double& RAOut)
{
    // With the complement of the Sun's longitude in the place of a latitude and the obliquity in that of a
    // longitude, the components come out as the Sun's y, z and x along the equator's axes.
    double sunY, sunZ, sunX, x, y, z, radius;
    PolarToRect(Ratio, 90.0 - SunLongitude, Eps, sunY, sunZ, sunX);
    PolarToRect(1.0, Dec, RA, x, y, z);
    numeric::RectToPolar3(x + sunX, y + sunY, z + sunZ, radius, DecOut, RAOut);
}

void ComputePlanetPosition(std::string_view BodyCode, double T, double& GHA, double& Declination, double& Distance,
                           double& HelioDistance, double& EclLatitude, double& EclLongitude)
{
    const SunTruePlace sun = ComputeSunTruePlace(T);
    double latitude, longitude, radius;
    PlanetHeliocentric(BodyCode, T, latitude, longitude, radius);
    const double firstDistance =
        GeocentricEcliptic(sun.Radius, sun.Longitude, radius, latitude, longitude, EclLatitude, EclLongitude);

    const double emission = T - LightDaysPerUnit * firstDistance / DaysPerCentury;
    PlanetHeliocentric(BodyCode, emission, latitude, longitude, radius);
    HelioDistance = radius;
    Distance = GeocentricEcliptic(sun.Radius, sun.Longitude, radius, latitude, longitude, EclLatitude, EclLongitude);

    double deltaPsi, deltaEps, declination, rightAscension;
    ComputeNutation(T, deltaPsi, deltaEps);
    EclipticPointToEquator(latitude, longitude, sun.MeanObliquity, declination, rightAscension);
    ShiftToGeocentre(Quotient(sun.Radius, HelioDistance), sun.Longitude, sun.MeanObliquity, declination, rightAscension,
                     declination, rightAscension);
    ApplyNutationAberration(sun.MeanObliquity, deltaPsi, deltaEps, sun.Longitude, rightAscension, declination,
                            rightAscension, Declination);
    GHA = GreenwichHourAngle(T, deltaPsi, sun.MeanObliquity + deltaEps / 3600.0, rightAscension);
}

} // namespace merov::ephemeris
