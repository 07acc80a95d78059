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

/// Square of the first eccentricity.
double SquaredEccentricity(double r)
{
    const double e = sailing::Eccentricity(r);
    return e * e;
}

} // namespace

double Dip(double height)
{
    return numeric::SquareRoot(height) * 0.029283; // 1.757 minutes for the square root of a metre
}

double MeanRefraction(double apparent)
{
    double minutes = Quotient(1.0, std::tan((apparent + Quotient(7.31, apparent + 4.4)) * DegToRad));
    minutes -= 0.06 * std::sin((14.7 * minutes + 13.0) * DegToRad);
    return minutes / 60.0;
}

double Parallax(double altitude, double dist)
{
    constexpr double EarthRadiusAu = 4.26345151e-05;
    return numeric::ArcSin(Quotient(std::cos(altitude * DegToRad) * EarthRadiusAu, dist)) * RadToDeg;
}

double SemiDiameter(std::string_view body, double dist)
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

double ComputedAltitude(double lat, double lon, double dec, double gha)
{
    const double phi = lat * DegToRad;
    const double delta = dec * DegToRad;
    const double hourAngle = (gha + lon) * DegToRad;
    return numeric::ArcSin(std::sin(phi) * std::sin(delta) + std::cos(phi) * std::cos(delta) * std::cos(hourAngle)) *
           RadToDeg;
}

void CorrectAltitudes(int n, double height, double airTemp, double waterTemp, double pressure, const Vector& lats,
                      const Vector& longs, const numeric::BoundedArray<std::string>& body, const Vector& altitude,
                      const Vector& instCorr, const Vector& dist, const Vector& dec, const Vector& gha, Vector& ho,
                      Vector& hc, Vector& intercept)
{
    const double airF = numeric::CelsiusToFahrenheit(airTemp);
    const double waterF = numeric::CelsiusToFahrenheit(waterTemp);
    const double dip = Dip(height) + (airF - waterF) * (0.11 / 60.0); // for a degree Fahrenheit 0.11 minute
    const double temperatureFactor = TemperatureFactor(airF);
    const double pressureFactor = pressure / 1010.16;

    for (int i = 1; i <= n; ++i) {
        const double apparent = altitude[i] + instCorr[i] - dip;
        const double refracted = apparent - (pressureFactor + temperatureFactor - 1.0) * MeanRefraction(apparent);
        ho[i] = numeric::Finite(refracted + Parallax(refracted, dist[i]) + SemiDiameter(body[i], dist[i]));
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
