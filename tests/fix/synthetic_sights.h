#pragma once

#include "ephemeris/astro_lib.h"
#include "fix/sight_session.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

/// Sights of a ship whose position and motion are known, worked backwards without any routine of the fix:
/// vectors instead of spherical trigonometry, an integrated track instead of the rhumb line's formulas,
/// almanac corrections in minutes of arc. Only the places of the bodies come from the program.

namespace merov::test
{

constexpr double Degree = std::numbers::pi / 180.0;

/// The weather and the eye of the observer.
struct Conditions {
    double HeightOfEye = 9.0;
    double AirTemp = 12.0;
    double WaterTemp = 9.0;
    double Pressure = 1018.0;
};

/// True altitude from an instrument altitude, degrees, by the steps of the Nautical Almanac.
inline double WorkAltitude(double instrument, const std::string& body, double distanceAu, const Conditions& c)
{
    const double airF = 32.0 + 1.8 * c.AirTemp;
    const double waterF = 32.0 + 1.8 * c.WaterTemp;
    const double dip = 0.029283 * 60.0 * std::sqrt(c.HeightOfEye) + 0.11 * (airF - waterF); // minutes
    const double apparent = instrument - dip / 60.0;

    const double bennett = 1.0 / std::tan((apparent + 7.31 / (apparent + 4.4)) * Degree);
    const double mean = bennett - 0.06 * std::sin((14.7 * bennett + 13.0) * Degree);
    const double warmth = airF < 40.0 ? 520.0 / (460.0 + airF) : airF > 60.0 ? 500.0 / (460.0 + airF) : 1.0;
    const double refraction = mean * (c.Pressure / 1010.16 + warmth - 1.0);

    const double refracted = apparent - refraction / 60.0;
    const double parallax = std::asin(4.26345151e-05 / distanceAu * std::cos(refracted * Degree)) / Degree;
    double semiDiameter = 0.0;
    if (body.starts_with("SUN")) semiDiameter = 0.266564 / distanceAu;
    if (body.starts_with("MOON")) semiDiameter = 0.2725 * 0.9507 * 384401.0 / (149565800.0 * distanceAu);
    return refracted + parallax + (body.ends_with("UPP") ? -semiDiameter : semiDiameter);
}

/// The instrument altitude, degrees, that shows the body at a true altitude.
inline double InstrumentAltitude(double trueAltitude, const std::string& body, double distanceAu, const Conditions& c)
{
    double altitude = trueAltitude;
    for (int i = 0; i < 50; ++i)
        altitude += trueAltitude - WorkAltitude(altitude, body, distanceAu, c);
    return altitude;
}

/// Altitude and bearing of a direction, degrees.
struct Horizontal {
    double Altitude;
    double Azimuth;
};

/// By vectors: the body's direction against the observer's zenith, north and east.
inline Horizontal LookAt(const numeric::GeoPosition& from, const ephemeris::BodyPosition& body)
{
    const double phi = from.Latitude * Degree, lambda = from.Longitude * Degree;
    const double dec = body.Declination * Degree, east = -body.GHA * Degree;
    const double x = std::cos(dec) * std::cos(east), y = std::cos(dec) * std::sin(east), z = std::sin(dec);
    const double up = std::cos(phi) * (x * std::cos(lambda) + y * std::sin(lambda)) + std::sin(phi) * z;
    const double north = -std::sin(phi) * (x * std::cos(lambda) + y * std::sin(lambda)) + std::cos(phi) * z;
    const double right = -x * std::sin(lambda) + y * std::cos(lambda);
    const double azimuth = std::atan2(right, north) / Degree;
    return {std::atan2(up, std::hypot(north, right)) / Degree, azimuth < 0.0 ? azimuth + 360.0 : azimuth};
}

/// A ship's true position at one instant and her true motion.
struct Ship {
    numeric::GeoPosition At;
    double Time = 38128.875; ///< 21 May 2004, 21:00 GMT
    double Course = 60.0;
    double Speed = 12.0;
};

/// Where she is `hours` later (or earlier), by integration along the loxodrome on WGS 1984.
inline numeric::GeoPosition TrackPosition(const Ship& ship, double hours)
{
    constexpr double a = 6378137.0 / 1852.0;
    constexpr double e2 = 0.00669437999014;
    constexpr int steps = 400;
    double phi = ship.At.Latitude * Degree, lambda = ship.At.Longitude * Degree;
    const double ds = ship.Speed * hours / steps;
    for (int i = 0; i < steps; ++i) {
        const double north = ds * std::cos(ship.Course * Degree), east = ds * std::sin(ship.Course * Degree);
        const auto meridian = [&](double lat) {
            return a * (1 - e2) / std::pow(1 - e2 * std::pow(std::sin(lat), 2), 1.5);
        };
        const double middle = phi + north / meridian(phi) / 2;
        lambda += east / (a / std::sqrt(1 - e2 * std::pow(std::sin(middle), 2)) * std::cos(middle));
        phi += north / meridian(middle);
    }
    return {phi / Degree, lambda / Degree};
}

/// A sight to take: hours from the ship's instant, and the body; an empty name picks a star.
struct Plan {
    double Hours;
    std::string Body;
};

/// Stars at 20 to 65 degrees of altitude that cross each other best: for each hour the one whose bearing,
/// modulo `period`, is farthest from those chosen before. 180 gives lines of position that cross well, 360
/// bearings all around the horizon.
inline std::vector<Plan> PickStars(const Ship& ship, const std::vector<double>& hours, double period = 180.0)
{
    std::vector<Plan> plans;
    std::vector<double> taken;
    for (const double hour : hours) {
        Plan best{hour, ""};
        double bestAzimuth = 0.0, widest = -1.0;
        const numeric::GeoPosition from = TrackPosition(ship, hour);
        for (const std::string_view code : ephemeris::BodyCodes()) {
            if (ephemeris::IsPlanet(code) || code.starts_with("SUN") || code.starts_with("MOON")) continue;
            ephemeris::BodyPosition body;
            ephemeris::ComputeBodyPosition(code, ship.Time + hour / 24.0, body);
            const Horizontal seen = LookAt(from, body);
            if (seen.Altitude < 20.0 || seen.Altitude > 65.0) continue;
            double room = period / 2.0;
            for (const double other : taken)
                room = std::min(room, std::fabs(std::remainder(seen.Azimuth - other, period)));
            if (room > widest) {
                widest = room;
                best.Body = code;
                bestAzimuth = seen.Azimuth;
            }
        }
        plans.push_back(best);
        taken.push_back(bestAzimuth);
    }
    return plans;
}

/// A session with error-free sights of `plans`, true position wanted at the ship's instant. The estimated
/// position is hers of one hour before, off by `estimateOff` degrees; course and speed are typed true.
inline fix::SightSession TakeSights(const Ship& ship, const std::vector<Plan>& plans,
                                    numeric::GeoPosition estimateOff = {0.12, -0.15}, const Conditions& c = {})
{
    fix::SightSession s;
    s.HeightOfEye = c.HeightOfEye;
    s.AirTemp = c.AirTemp;
    s.WaterTemp = c.WaterTemp;
    s.Pressure = c.Pressure;
    s.TimeTruePos = ship.Time;
    s.TimeEstPos = ship.Time - 1.0 / 24.0;
    const numeric::GeoPosition estimate = TrackPosition(ship, -1.0);
    s.EstLat = estimate.Latitude + estimateOff.Latitude;
    s.EstLong = estimate.Longitude + estimateOff.Longitude;
    s.Course = s.OrigCourse = ship.Course;
    s.Speed = s.OrigSpeed = ship.Speed;

    AllocateObservations(s, static_cast<int>(plans.size()));
    for (int i = 1; i <= s.ObsCount; ++i) {
        const Plan& plan = plans[static_cast<std::size_t>(i - 1)];
        s.ObsTime[i] = ship.Time + plan.Hours / 24.0;
        s.ObsBody[i] = plan.Body;
        s.ObsInstCorr[i] = -1.5 / 60.0;
        ephemeris::BodyPosition body;
        ephemeris::ComputeBodyPosition(plan.Body, s.ObsTime[i], body);
        const double altitude = LookAt(TrackPosition(ship, plan.Hours), body).Altitude;
        s.ObsAltitude[i] = InstrumentAltitude(altitude, plan.Body, body.Distance, c) - s.ObsInstCorr[i];
    }
    return s;
}

/// `n` hours evenly from `first` to `last`.
inline std::vector<double> EvenHours(int n, double first, double last)
{
    std::vector<double> hours;
    for (int i = 0; i < n; ++i)
        hours.push_back(first + (last - first) * i / (n - 1));
    return hours;
}

/// The earth model of the tests.
inline sailing::EarthModel Wgs84()
{
    return sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
}

/// Difference of two positions in minutes of arc: north, and east in minutes of longitude.
inline double LatOff(const fix::SightSession& s, const Ship& ship)
{
    return (s.TrueLat - ship.At.Latitude) * 60.0;
}
inline double LongOff(const fix::SightSession& s, const Ship& ship)
{
    return std::remainder(s.TrueLong - ship.At.Longitude, 360.0) * 60.0;
}

} // namespace merov::test
