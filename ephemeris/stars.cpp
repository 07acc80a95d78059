#include "ephemeris/stars.h"

#include "ephemeris/angle_multiples.h"
#include "ephemeris/earth_frame.h"
#include "ephemeris/star_tables.h"
#include "ephemeris/sun.h"
#include "numeric/math_lib.h"

#include <algorithm>

namespace merov::ephemeris
{

using numeric::ArcCos;
using numeric::Atan2Deg;
using numeric::Norm360;
using numeric::RadToDeg;

void StarCatalogueEntry(std::string_view BodyCode, double& RA, double& Dec, double& MotionRA, double& MotionDec,
                        double& Magnitude)
{
    const auto place = std::ranges::lower_bound(StarRows, BodyCode, {}, &StarRow::Name);
    const StarRow row = place != StarRows.end() && place->Name == BodyCode ? *place : StarRow{};
    RA = row.RA;
    Dec = row.Dec;
    MotionRA = row.MotionRA;
    MotionDec = row.MotionDec;
    Magnitude = row.Magnitude;
}

void ApplyProperMotion(double Dec, double RA, double MotionDec, double MotionRA, double T, double& DecOut,
                       double& RAOut)
{
    const Phase colatitude = PhaseOf(90.0 - Dec);
    const double eastRate = PhaseOf(Dec).Cos * MotionRA;
    const Phase angle = PhaseOf(Atan2Deg(MotionDec, eastRate));
    const Phase arc = PhaseOf(numeric::Hypot2(eastRate, MotionDec) * T);

    const double x = colatitude.Sin * arc.Cos - colatitude.Cos * arc.Sin * angle.Cos;
    const double y = angle.Sin * arc.Sin;
    const double w = colatitude.Cos * arc.Cos + colatitude.Sin * arc.Sin * angle.Cos;
    DecOut = 90.0 - ArcCos(w) * RadToDeg;
    RAOut = Norm360(RA + Atan2Deg(x, y));
}

void PrecessionAngles(double T, double& Zeta, double& Theta, double& Z)
{
    constexpr double ZetaTerms[] = {0.0, 2306.2181, 0.30188, 0.017998};
    constexpr double ThetaTerms[] = {0.0, 2004.3109, -0.42665, -0.041833};
    constexpr double ZTerms[] = {0.0, 2306.2181, 1.09468, 0.018203};
    Zeta = numeric::Polynomial(T, 3, ZetaTerms);
    Theta = numeric::Polynomial(T, 3, ThetaTerms);
    Z = numeric::Polynomial(T, 3, ZTerms);
}

void ApplyPrecession(double Zeta, double Theta, double Z, double Dec, double RA, double& DecOut, double& RAOut)
{
    const Phase theta = PhaseOf(Theta);
    const Phase side = PhaseOf(90.0 - Dec);
    const Phase angle = PhaseOf(RA + Zeta);

    const double x = theta.Sin * side.Cos - theta.Cos * side.Sin * angle.Cos;
    const double y = angle.Sin * side.Sin;
    const double w = theta.Cos * side.Cos + theta.Sin * side.Sin * angle.Cos;
    DecOut = 90.0 - ArcCos(w) * RadToDeg;
    RAOut = Norm360(180.0 - Atan2Deg(x, y) + Z);
}

void ComputeStarPosition(std::string_view BodyCode, double T, double& GHA, double& Declination)
{
    double ra = 0.0;
    double dec = 0.0;
    double motionRA = 0.0;
    double motionDec = 0.0;
    double magnitude = 0.0;
    StarCatalogueEntry(BodyCode, ra, dec, motionRA, motionDec, magnitude);
    // Packed forms to degrees; seconds of arc per year to degrees per century.
    ra = numeric::DMSToDeg(ra) * 15.0;
    dec = numeric::DMSToDeg(dec);
    ApplyProperMotion(dec, ra, motionDec / 36.0, motionRA / 36.0, T, dec, ra);

    double zeta = 0.0;
    double theta = 0.0;
    double z = 0.0;
    PrecessionAngles(T, zeta, theta, z);
    ApplyPrecession(zeta / 3600.0, theta / 3600.0, z / 3600.0, dec, ra, dec, ra);

    const SunTruePlace sun = ComputeSunTruePlace(T);
    double deltaPsi = 0.0;
    double deltaEps = 0.0;
    ComputeNutation(T, deltaPsi, deltaEps);
    ApplyNutationAberration(sun.MeanObliquity, deltaPsi, deltaEps, sun.Longitude, ra, dec, ra, Declination);
    GHA = GreenwichHourAngle(T, deltaPsi, sun.MeanObliquity + deltaEps / 3600.0, ra);
}

} // namespace merov::ephemeris
