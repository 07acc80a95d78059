#include "fix/nautical_lib.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"

#include <cmath>

namespace merov::fix
{

using numeric::DegToRad;
using numeric::Quotient;
using numeric::RadToDeg;
using numeric::Vector;

namespace
{

/// Refraction factor of the air temperature in degrees Fahrenheit; 1 between 40 and 60.
double TemperatureFactor(double fahrenheit)
{
    if (fahrenheit < 40.0) return Quotient(520.0, fahrenheit + 460.0);
    if (fahrenheit > 60.0) return 500.0 / (fahrenheit + 460.0);
    return 1.0;
}

/// Mean refraction in degrees at an apparent altitude in degrees.
double MeanRefraction(double apparent)
{
    double minutes = Quotient(1.0, std::tan((apparent + Quotient(7.31, apparent + 4.4)) * DegToRad));
    minutes -= 0.06 * std::sin((14.7 * minutes + 13.0) * DegToRad);
    return minutes / 60.0;
}

/// What brings the limb that was observed to the centre, degrees; 0 for stars and planets.
double SemiDiameter(const std::string& body, double dist)
{
    // The Moon's mean distance over its distance, its mean parallax, the ratio of the radii.
    if (body == "MOONLOW" || body == "MOONUPP") {
        const double moon = Quotient(384401.0 / 149565800.0, dist) * 0.9507 * 0.2725;
        return body == "MOONLOW" ? moon : -moon;
    }
    if (body == "SUNLOW") return Quotient(0.266564, dist);
    if (body == "SUNUPP") return -Quotient(0.266564, dist);
    return 0.0;
}

/// Altitude of a body in degrees for an observer at lat, lon.
double ComputedAltitude(double lat, double lon, double dec, double gha)
{
    const double phi = lat * DegToRad;
    const double delta = dec * DegToRad;
    const double hourAngle = (gha + lon) * DegToRad;
    return numeric::ArcSin(std::sin(phi) * std::sin(delta) + std::cos(phi) * std::cos(delta) * std::cos(hourAngle)) *
           RadToDeg;
}

/// Square of the first eccentricity.
double SquaredEccentricity(double r)
{
    const double e = sailing::Eccentricity(r);
    return e * e;
}

} // namespace

void CorrectAltitudes(int n, double height, double airTemp, double waterTemp, double pressure, const Vector& lats,
                      const Vector& longs, const numeric::BoundedArray<std::string>& body, const Vector& altitude,
                      const Vector& instCorr, const Vector& dist, const Vector& dec, const Vector& gha, Vector& ho,
                      Vector& hc, Vector& intercept)
{
    constexpr double EarthRadiusAu = 4.26345151e-05;
    const double airF = numeric::CelsiusToFahrenheit(airTemp);
    const double waterF = numeric::CelsiusToFahrenheit(waterTemp);
    // 1.757 minutes for the square root of a metre, 0.11 minute for a degree Fahrenheit between air and water.
    const double dip = numeric::SquareRoot(height) * 0.029283 + (airF - waterF) * (0.11 / 60.0);
    const double temperatureFactor = TemperatureFactor(airF);
    const double pressureFactor = pressure / 1010.16;

    for (int i = 1; i <= n; ++i) {
        const double apparent = altitude[i] + instCorr[i] - dip;
        const double refracted = apparent - (pressureFactor + temperatureFactor - 1.0) * MeanRefraction(apparent);
        const double parallax =
            numeric::ArcSin(Quotient(std::cos(refracted * DegToRad) * EarthRadiusAu, dist[i])) * RadToDeg;
        ho[i] = numeric::Finite(refracted + parallax + SemiDiameter(body[i], dist[i]));
        hc[i] = numeric::Finite(ComputedAltitude(lats[i], longs[i], dec[i], gha[i]));
        intercept[i] = ho[i] - hc[i];
    }
}

void RunPositions(int n, double course, double speed, const Vector& times, Vector& lats, Vector& longs,
                  Vector& approxLat, double r, double a)
{
    const double baseRadius = MeridionalRadius(lats[0], r, a);
    const double cosCourse = std::cos(course * DegToRad);
    for (int i = 1; i <= n; ++i) {
        const double days = times[i] - times[0];
        approxLat[i] = numeric::Finite(days * (speed * RadToDeg * 24.0) * cosCourse / baseRadius + lats[0]);
        sailing::RhumbLineDirect(lats[0], longs[0], course, days * (speed * 24.0), lats[i], longs[i], r, a);
    }
}

double ComputeAzimuth(double lat, double lon, double gha, double dec)
{
    const double phi = lat * DegToRad;
    const double delta = dec * DegToRad;
    const double hourAngle = (lon + gha) * DegToRad;
    const double north = std::cos(phi) * std::sin(delta) - std::cos(delta) * std::sin(phi) * std::cos(hourAngle);
    const double east = -std::cos(delta) * std::sin(hourAngle);
    return numeric::Atan2Deg(north, east);
}

double MeridionalRadius(double lat, double r, double a)
{
    const double e2 = SquaredEccentricity(r);
    const double s = std::sin(lat * DegToRad);
    return a * (1.0 - e2) / std::pow(1.0 - e2 * s * s, 1.5);
}

double PrimeVerticalRadius(double lat, double r, double a)
{
    const double e2 = SquaredEccentricity(r);
    const double s = std::sin(lat * DegToRad);
    return a / std::sqrt(1.0 - e2 * s * s);
}

} // namespace merov::fix
