#include "ephemeris/sun.h"

#include "ephemeris/earth_frame.h"
#include "numeric/math_lib.h"

#include <cmath>

namespace merov::ephemeris
{

using numeric::DegToRad;
using numeric::Norm360;

void EarthElements(double T, double& MeanLongitude, double& MeanObliquity, double& MeanAnomaly, double& Eccentricity,
                   double& RadiusCorrection)
{
    const double T1 = T + 1.0; // from 1900 January 0.5
    const double T2 = T1 * T1;
    const double T3 = T2 * T1;
    MeanLongitude = Norm360(279.69668 + 36000.76892 * T1 + 0.0003025 * T2);
    MeanObliquity = Norm360(23.452294 - 0.0130125 * T1 - 1.64e-6 * T2 + 5.03e-7 * T3);
    MeanAnomaly = Norm360(358.47583 + 35999.04975 * T1 - 0.00015 * T2 - 3.3e-6 * T3);
    Eccentricity = 0.01675104 - 4.18e-5 * T1 - 1.26e-7 * T2;

    const double a = Norm360(153.23 + 22518.7541 * T1) * DegToRad;                 // Venus
    const double b = Norm360(216.57 + 45037.5082 * T1) * DegToRad;                 // Venus
    const double c = Norm360(312.69 + 32964.3577 * T1) * DegToRad;                 // Jupiter
    const double d = Norm360(350.74 + 445267.1142 * T1 - 0.00144 * T2) * DegToRad; // Moon
    const double e = Norm360(231.19 + 20.2 * T1) * DegToRad;                       // long period
    const double h = Norm360(353.4 + 65928.7155 * T1) * DegToRad;                  // Jupiter
    MeanLongitude +=
        (134.0 * std::cos(a) + 154.0 * std::cos(b) + 200.0 * std::cos(c) + 179.0 * std::sin(d) + 178.0 * std::sin(e)) /
        100000.0;
    RadiusCorrection = (543.0 * std::sin(a) + 1575.0 * std::sin(b) + 1627.0 * std::sin(c) + 3076.0 * std::cos(d) +
                        927.0 * std::sin(h)) /
                       100000000.0;
}

void SolveKepler(double Eccentricity, double MeanAnomaly, double& EquationOfCentre, double& Radius)
{
    const double anomaly = Norm360(MeanAnomaly);
    const double mean = anomaly * DegToRad;
    double eccentric = mean;
    double sine = std::sin(eccentric);
    for (double change = 1.0; change > 1e-11;) {
        const double next = Eccentricity * sine + mean;
        change = std::fabs(next - eccentric);
        eccentric = next;
        sine = std::sin(eccentric);
    }
    const double x = std::cos(eccentric) - Eccentricity;
    const double y = std::sqrt(1.0 - Eccentricity * Eccentricity) * sine;
    Radius = numeric::Hypot2(x, y);
    EquationOfCentre = numeric::Atan2Deg(x, y) - anomaly;
}

double SunEquationOfCentre(double Eccentricity, double MeanAnomaly)
{
    double equationOfCentre = 0.0;
    double radius = 0.0;
    SolveKepler(Eccentricity, MeanAnomaly, equationOfCentre, radius);
    return equationOfCentre;
}

SunTruePlace ComputeSunTruePlace(double T)
{
    double meanLongitude = 0.0;
    double meanObliquity = 0.0;
    double meanAnomaly = 0.0;
    double eccentricity = 0.0;
    double radiusCorrection = 0.0;
    EarthElements(T, meanLongitude, meanObliquity, meanAnomaly, eccentricity, radiusCorrection);
    double equationOfCentre = 0.0;
    double radius = 0.0;
    SolveKepler(eccentricity, meanAnomaly, equationOfCentre, radius);
    return {meanLongitude + equationOfCentre, meanObliquity, 1.0000002 * radius + radiusCorrection};
}

void ComputeSunPosition(double T, double& GHA, double& Declination, double& Distance)
{
    const SunTruePlace sun = ComputeSunTruePlace(T);
    Distance = sun.Radius;
    double deltaPsi = 0.0;
    double deltaEps = 0.0;
    ComputeNutation(T, deltaPsi, deltaEps);
    const double longitude = sun.Longitude + (deltaPsi - AberrationConstant) / 3600.0;
    const double obliquity = sun.MeanObliquity + deltaEps / 3600.0;
    double rightAscension = 0.0;
    numeric::EclipticToEquator(longitude, obliquity, rightAscension, Declination);
    GHA = GreenwichHourAngle(T, deltaPsi, obliquity, rightAscension);
}

} // namespace merov::ephemeris
