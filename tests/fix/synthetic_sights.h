#pragma once

#include "ephemeris/astro_lib.h"
#include "fix/true_position.h"
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

struct Conditions {
    double HeightOfEye, AirTemp, WaterTemp, Pressure; ///< metres, degrees Celsius, millibars
};

/// True altitude from an instrument altitude, degrees, by the steps of the Nautical Almanac.
inline double WorkAltitude(double instrument, const std::string& body, double distanceAu, const Conditions& c)
{
    const double airF = 32.0 + 1.8 * c.AirTemp, waterF = 32.0 + 1.8 * c.WaterTemp;
    const double dip = 0.029283 * 60.0 * std::sqrt(c.HeightOfEye) + 0.11 * (airF - waterF); // minutes
    const double apparent = instrument - dip / 60.0;
    const double bennett = 1.0 / std::tan((apparent + 7.31 / (apparent + 4.4)) * Degree);
    const double mean = bennett - 0.06 * std::sin((14.7 * bennett + 13.0) * Degree);
    const double warmth = airF < 40.0 ? 520.0 / (460.0 + airF) : airF > 60.0 ? 500.0 / (460.0 + airF) : 1.0;
    const double refracted = apparent - mean * (c.Pressure / 1010.16 + warmth - 1.0) / 60.0;
    const double parallax = std::asin(4.26345151e-05 / distanceAu * std::cos(refracted * Degree)) / Degree;
    double semiDiameter = 0.0;
    if (body.starts_with("SUN")) semiDiameter = 0.266564 / distanceAu;
    if (body.starts_with("MOON")) semiDiameter = 0.2725 * 0.9507 * 384401.0 / (149565800.0 * distanceAu);
    return refracted + parallax + (body.ends_with("UPP") ? -semiDiameter : semiDiameter);
}

struct Horizontal {
    double Altitude, Azimuth; ///< degrees
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
    double Course = 60.0, Speed = 12.0;
};

/// Where she is `hours` later (or earlier), by integration along the loxodrome on WGS 1984.
inline numeric::GeoPosition TrackPosition(const Ship& ship, double hours)
{
    constexpr double a = 6378137.0 / 1852.0, e2 = 0.00669437999014;
    constexpr int steps = 400;
    const auto squash = [](double lat) { return 1 - e2 * std::pow(std::sin(lat), 2); };
    const auto meridian = [&](double lat) { return a * (1 - e2) / std::pow(squash(lat), 1.5); };
    double phi = ship.At.Latitude * Degree, lambda = ship.At.Longitude * Degree;
    const double ds = ship.Speed * hours / steps;
    const double north = ds * std::cos(ship.Course * Degree), east = ds * std::sin(ship.Course * Degree);
    for (int i = 0; i < steps; ++i) {
        const double middle = phi + north / meridian(phi) / 2;
        lambda += east * std::sqrt(squash(middle)) / (a * std::cos(middle));
        phi += north / meridian(middle);
    }
    return {phi / Degree, lambda / Degree};
}

/// A sight to take: hours from the ship's instant, the body, and where it stands.
struct Plan {
    double Hours;
    std::string Body;
    double Azimuth = 0.0;
};

/// Stars at 20 to 65 degrees of altitude that cross each other best: for each hour the one whose bearing,
/// modulo `period`, is farthest from those chosen before. 180 gives lines of position that cross well, 360
/// bearings all around the horizon.
inline std::vector<Plan> PickStars(const Ship& ship, const std::vector<double>& hours, double period = 180.0)
{
    std::vector<Plan> plans;
    for (const double hour : hours) {
        Plan best{hour, ""};
        double widest = -1.0;
        const numeric::GeoPosition from = TrackPosition(ship, hour);
        for (const std::string_view code : ephemeris::BodyCodes()) {
            if (ephemeris::IsPlanet(code) || code.starts_with("SUN") || code.starts_with("MOON")) continue;
            ephemeris::BodyPosition body;
            ephemeris::ComputeBodyPosition(code, ship.Time + hour / 24.0, body);
            const Horizontal seen = LookAt(from, body);
            double room = seen.Altitude < 20.0 || seen.Altitude > 65.0 ? -2.0 : period / 2.0;
            for (const Plan& other : plans)
                room = std::min(room, std::fabs(std::remainder(seen.Azimuth - other.Azimuth, period)));
            if (room <= widest) continue;
            widest = room;
            best = {hour, std::string(code), seen.Azimuth};
        }
        plans.push_back(best);
    }
    return plans;
}

/// `n` hours evenly from `first` to `last`.
inline std::vector<double> EvenHours(int n, double first, double last)
{
    std::vector<double> hours;
    for (int i = 0; i < n; ++i)
        hours.push_back(first + (last - first) * i / (n - 1));
    return hours;
}

/// A session with error-free sights of `plans`, true position wanted at the ship's instant. The estimated
/// position is hers of one hour before, off by `estimateOff` degrees; course and speed are typed true.
inline fix::SightSession TakeSights(const Ship& ship, const std::vector<Plan>& plans,
                                    numeric::GeoPosition estimateOff = {0.12, -0.15})
{
    const numeric::GeoPosition estimate = TrackPosition(ship, -1.0);
    fix::SightSession s;
    s.HeightOfEye = 9.0;
    s.AirTemp = 4.0;
    const Conditions c{s.HeightOfEye, s.AirTemp, s.WaterTemp, s.Pressure};
    s.TimeTruePos = ship.Time;
    s.TimeEstPos = ship.Time - 1.0 / 24.0;
    s.EstLat = estimate.Latitude + estimateOff.Latitude;
    s.EstLong = estimate.Longitude + estimateOff.Longitude;
    s.Course = s.OrigCourse = ship.Course;
    s.Speed = s.OrigSpeed = ship.Speed;
    AllocateObservations(s, static_cast<int>(plans.size()));
    for (int i = 1; i <= s.ObsCount; ++i) {
        const auto& [hours, code, azimuth] = plans[static_cast<std::size_t>(i - 1)];
        s.ObsTime[i] = ship.Time + hours / 24.0;
        s.ObsBody[i] = code;
        s.ObsInstCorr[i] = -1.5 / 60.0;
        ephemeris::BodyPosition body;
        ephemeris::ComputeBodyPosition(code, s.ObsTime[i], body);
        const double altitude = LookAt(TrackPosition(ship, hours), body).Altitude;
        double instrument = altitude; // the one that corrects to the true altitude
        for (int pass = 0; pass < 50; ++pass)
            instrument += altitude - WorkAltitude(instrument, code, body.Distance, c);
        s.ObsAltitude[i] = instrument - s.ObsInstCorr[i];
    }
    return s;
}

/// Reads all altitudes `constant` minutes too high, and each third one `spread` higher or lower than that.
inline void Misread(fix::SightSession& s, double constant, double spread)
{
    for (int i = 1; i <= s.ObsCount; ++i)
        s.ObsAltitude[i] += (constant + (i % 3 - 1) * spread) / 60.0;
}

inline sailing::EarthModel Wgs84()
{
    return sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
}

/// The session after its fix.
inline fix::SightSession Fix(fix::SightSession s)
{
    const auto [r, a] = Wgs84();
    numeric::LastError journal;
    ComputeTruePosition(s, r, a, journal);
    return s;
}

/// How far two positions are apart in minutes of arc, all of them alike, also those of longitude.
inline double MinutesApart(const numeric::GeoPosition& a, const numeric::GeoPosition& b)
{
    return std::hypot(a.Latitude - b.Latitude, std::remainder(a.Longitude - b.Longitude, 360.0)) * 60.0;
}

} // namespace merov::test
