#include "ephemeris/sun_events.h"

#include "ephemeris/astro_lib.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"

#include <cmath>

namespace merov::ephemeris
{

namespace
{

using numeric::ArcCos;
using numeric::ArcSin;
using numeric::DegToRad;
using numeric::Quotient;
using numeric::RadToDeg;

constexpr int HourAngleFunction = 12;
constexpr int AltitudeFunction = 13;

/// The instant near `start` at which a function of the Sun passes through its target.
double FindInstant(SunFunctions& sun, double start, int function)
{
    constexpr double TwoMinutes = 2.0 / 60.0 / 24.0;
    constexpr double InstantTolerance = 0.0005; // days
    constexpr int MaxIterations = 100;
    bool failed = false; // stays so: a failure shows its box
    return numeric::FindRoot(sun, start, TwoMinutes, -numeric::LargestDouble, numeric::LargestDouble, false,
                             InstantTolerance, MaxIterations, function, true, failed);
}

BodyPosition SunAt(double instant)
{
    BodyPosition sun;
    ComputeBodyPosition("SUNLOW", instant, sun);
    return sun;
}

} // namespace

double SemiDiurnalArc(double altitude, double latitude, double declination)
{
    const double h = altitude * DegToRad;
    const double phi = latitude * DegToRad;
    const double delta = declination * DegToRad;
    return ArcCos(Quotient(std::sin(h) - std::sin(phi) * std::sin(delta), std::cos(phi) * std::cos(delta))) * RadToDeg;
}

double SunriseAltitude(double heightOfEye, double sunDistance)
{
    const double dip = -0.029283 * numeric::SquareRoot(heightOfEye);
    // Refraction at the apparent altitude of the horizon, minutes of arc (G. G. Bennett, Journal of
    // Navigation 35, 255, 1982).
    double refraction = Quotient(1.0, std::tan((dip + Quotient(7.31, dip + 4.4)) * DegToRad));
    refraction -= 0.06 * std::sin((14.7 * refraction + 13.0) * DegToRad);
    double altitude = dip - refraction / 60.0;
    altitude += ArcSin(std::cos(altitude * DegToRad) * 4.26345151e-05 / sunDistance) * RadToDeg; // parallax
    return altitude - 0.266564 / sunDistance;                                                    // upper limb
}

double SunFunctions::f(double x, int n)
{
    if (n == HourAngleFunction) return numeric::NormalizeLongitude(SunAt(x).GHA - TargetHourAngle);
    if (n != AltitudeFunction) return 0.0;
    const BodyPosition sun = SunAt(x);
    const double delta = sun.Declination * DegToRad;
    const double hourAngle = sun.GHA * DegToRad + Longitude;
    const double sine =
        std::sin(Latitude) * std::sin(delta) + std::cos(Latitude) * std::cos(delta) * std::cos(hourAngle);
    return ArcSin(sine) * RadToDeg - TargetAltitude;
}

double SunFunctions::SysEq(const numeric::Vector&, int)
{
    return 0.0;
}

namespace
{

/// Takes out moments of other nights: where the Sun comes close to an altitude and doesn't reach it, the search
/// may end days or years away.
void KeepMomentsOfDay(SunEventTimes& events)
{
    constexpr std::size_t Passage = 4;
    constexpr double HalfDay = 0.52; // from the passage to midnight, and some minutes
    for (std::size_t i = 0; i < events.size(); ++i) {
        const double apart = i < Passage ? events[Passage] - events[i] : events[i] - events[Passage];
        if (apart < 0.0 || apart > HalfDay) events[i] = 0.0;
    }
}

} // namespace

bool ComputeSunEvents(double latitude, double longitude, double date, double heightOfEye, SunEventTimes& events)
{
    const double day = std::floor(date);
    const BodyPosition sun = SunAt(day);
    if (std::fabs(std::tan(latitude * DegToRad) * std::tan(sun.Declination * DegToRad)) > 1.0) return false;

    SunFunctions functions;
    functions.TargetHourAngle = numeric::Norm360(-longitude);
    functions.Latitude = latitude * DegToRad;
    functions.Longitude = longitude * DegToRad;
    events[4] = FindInstant(functions, day + (12.0 - longitude / 15.0) / 24.0, HourAngleFunction);

    struct Pair {
        std::size_t Morning;
        std::size_t Evening;
        double Altitude;
    };
    const Pair pairs[] = {{3, 5, 0.0}, {2, 6, SunriseAltitude(heightOfEye, sun.Distance)}, {1, 7, -3.0}, {0, 8, -9.0}};
    for (const Pair& pair : pairs) {
        functions.TargetAltitude = pair.Altitude;
        const double halfArc = SemiDiurnalArc(pair.Altitude, latitude, sun.Declination) / 360.0;
        events[pair.Morning] = FindInstant(functions, events[4] - halfArc, AltitudeFunction);
        events[pair.Evening] = FindInstant(functions, events[4] + halfArc, AltitudeFunction);
    }
    KeepMomentsOfDay(events);
    return true;
}

} // namespace merov::ephemeris
