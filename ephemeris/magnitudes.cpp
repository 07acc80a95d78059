#include "ephemeris/magnitudes.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/stars.h"
#include "ephemeris/time_lib.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"

#include <cmath>

namespace merov::ephemeris
{

namespace
{

using numeric::DegToRad;

constexpr double SunMagnitude = -26.86;
constexpr double MoonMagnitude = -11.0;

/// What the rings of Saturn add to the magnitude of the ball; the Earth's latitude above their plane
/// gives their opening. The plane is that of J. Meeus, Astronomical Algorithms, chapter 44.
double RingBrightness(const BodyPosition& saturn, double instant)
{
    const double T = CenturiesFromJ2000(instant);
    const double inclination = (28.075216 - 0.012998 * T + 4e-6 * T * T) * DegToRad;
    const double node = 169.50847 + 1.394681 * T + 0.000412 * T * T;
    const double latitude = saturn.EclLatitude * DegToRad;
    const double fromNode = (saturn.EclLongitude - node) * DegToRad;
    const double B = numeric::ArcSin(std::sin(inclination) * std::cos(latitude) * std::sin(fromNode) -
                                     std::sin(latitude) * std::cos(inclination));
    const double sine = std::sin(std::fabs(B));
    return -2.6 * sine + 1.25 * sine * sine;
}

/// Magnitude of a planet by its distances and its phase angle (formulas of the Astronomical Almanac since
/// 1984, as in J. Meeus, Astronomical Algorithms, chapter 40).
double PlanetMagnitude(std::string_view bodyCode, double instant)
{
    BodyPosition planet, sun;
    ComputeBodyPosition(bodyCode, instant, planet);
    ComputeBodyPosition("SUNLOW", instant, sun);
    const double r = planet.HelioDistance;
    const double delta = planet.Distance;
    const double R = sun.Distance;
    const double cosPhase = numeric::Quotient(r * r + delta * delta - R * R, 2.0 * r * delta);
    const double i = numeric::ArcCos(cosPhase) * numeric::RadToDeg;
    const double m = 5.0 * numeric::Log10(r * delta);
    if (bodyCode == "VENUS") return m - 4.4 + (0.0009 + (0.000239 - 6.5e-7 * i) * i) * i;
    if (bodyCode == "MARS") return m - 1.52 + 0.016 * i;
    if (bodyCode == "JUPITER") return m - 9.4 + 0.005 * i;
    return m - 8.88 + 0.044 * i + RingBrightness(planet, instant);
}

} // namespace

double ComputeMagnitude(std::string_view bodyCode, double instant)
{
    if (IsPlanet(bodyCode)) return PlanetMagnitude(bodyCode, instant);
    if (bodyCode == "SUNLOW" || bodyCode == "SUNUPP") return SunMagnitude;
    if (bodyCode == "MOONLOW" || bodyCode == "MOONUPP") return MoonMagnitude;
    double rightAscension, declination, motionRA, motionDec, magnitude;
    StarCatalogueEntry(bodyCode, rightAscension, declination, motionRA, motionDec, magnitude);
    return magnitude;
}

} // namespace merov::ephemeris
