#include "fix/observation_file.h"
#include "fix/synthetic_sights.h"
#include "support/erfa_places.h"
#include "tools/sample_voyages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

/// The sky of the made samples, worked out without the program: ERFA's places of the bodies, Hipparcos'
/// places of the stars, the almanac's corrections and an integrated track.

namespace merov::samples
{
namespace
{

/// A star of the Hipparcos catalogue at J2000.0: hours, minutes, seconds; degrees, minutes, seconds (the
/// sign apart); proper motion along the parallel and in declination, 0.001" a year.
struct HipparcosStar {
    double RA[3];
    char Sign;
    double Dec[3];
    double Motion[2];
};

const std::map<std::string, HipparcosStar> HipparcosStars{
    {"ACHERNAR", {{1, 37, 42.85}, '-', {57, 14, 12.3}, {87.0, -38.2}}},
    {"ACRUX", {{12, 26, 35.90}, '-', {63, 5, 56.7}, {-35.8, -14.9}}},
    {"ALDEBARAN", {{4, 35, 55.24}, '+', {16, 30, 33.5}, {63.5, -188.9}}},
    {"ALKAID", {{13, 47, 32.44}, '+', {49, 18, 47.8}, {-121.2, -14.9}}},
    {"ALPHARD", {{9, 27, 35.24}, '-', {8, 39, 31.0}, {-15.2, 34.4}}},
    {"ALPHECCA", {{15, 34, 41.27}, '+', {26, 42, 52.9}, {120.3, -89.6}}},
    {"ALTAIR", {{19, 50, 47.00}, '+', {8, 52, 6.0}, {536.2, 385.3}}},
    {"ANTARES", {{16, 29, 24.46}, '-', {26, 25, 55.2}, {-12.1, -23.3}}},
    {"ARCTURUS", {{14, 15, 39.67}, '+', {19, 10, 56.7}, {-1093.4, -2000.1}}},
    {"CANOPUS", {{6, 23, 57.11}, '-', {52, 41, 44.4}, {19.9, 23.2}}},
    {"CAPELLA", {{5, 16, 41.36}, '+', {45, 59, 52.8}, {75.3, -426.9}}},
    {"DENEB", {{20, 41, 25.92}, '+', {45, 16, 49.2}, {2.0, 1.9}}},
    {"DENEBOLA", {{11, 49, 3.58}, '+', {14, 34, 19.4}, {-497.7, -114.7}}},
    {"GACRUX", {{12, 31, 9.96}, '-', {57, 6, 47.6}, {28.2, -265.1}}},
    {"HAMAL", {{2, 7, 10.41}, '+', {23, 27, 44.7}, {188.6, -148.1}}},
    {"KOCHAB", {{14, 50, 42.33}, '+', {74, 9, 19.8}, {-32.6, 11.4}}},
    {"MENKAR", {{3, 2, 16.77}, '+', {4, 5, 23.1}, {-10.4, -76.8}}},
    {"MIAPLACIDUS", {{9, 13, 11.98}, '-', {69, 43, 1.9}, {-156.5, 109.0}}},
    {"MIRFAK", {{3, 24, 19.37}, '+', {49, 51, 40.2}, {23.8, -26.2}}},
    {"POLARIS", {{2, 31, 49.09}, '+', {89, 15, 50.8}, {44.5, -11.9}}},
    {"POLLUX", {{7, 45, 18.95}, '+', {28, 1, 34.3}, {-626.6, -45.8}}},
    {"REGULUS", {{10, 8, 22.31}, '+', {11, 58, 2.0}, {-248.7, 5.6}}},
    {"RIGEL", {{5, 14, 32.27}, '-', {8, 12, 5.9}, {1.3, 0.5}}},
    {"SCHEDAR", {{0, 40, 30.44}, '+', {56, 32, 14.4}, {50.9, -32.1}}},
    {"SIRIUS", {{6, 45, 8.92}, '-', {16, 42, 58.0}, {-546.0, -1223.1}}},
    {"SPICA", {{13, 25, 11.58}, '-', {11, 9, 40.8}, {-42.4, -30.7}}},
    {"VEGA", {{18, 36, 56.34}, '+', {38, 47, 1.3}, {200.9, 286.2}}},
};

/// A body as ERFA has it, the distance in astronomical units, and by how many minutes an altitude may differ.
struct Reference {
    ephemeris::BodyPosition Body;
    double Tolerance;
    const char* Why;
};

ephemeris::BodyPosition Star(const HipparcosStar& star, double days)
{
    const auto arc = [](const double parts[3]) { return parts[0] + parts[1] / 60.0 + parts[2] / 3600.0; };
    test::ErfaStarData data;
    data.RA = arc(star.RA) * 15.0 * ERFA_DD2R;
    data.Dec = (star.Sign == '-' ? -1.0 : 1.0) * arc(star.Dec) * ERFA_DD2R;
    data.MotionRA = star.Motion[0] * ERFA_DMAS2R / std::cos(data.Dec);
    data.MotionDec = star.Motion[1] * ERFA_DMAS2R;
    double velocity[3], earth[3];
    test::ErfaEarth(days, velocity, earth);
    const test::Place place = test::ErfaStar(data, days, velocity);
    return {place.GHA, place.Dec, 272000.0};
}

/// The Moon, with a minute between universal and dynamical time, as in our days: a fixed term of the
/// program's Moon stands for it. The program's unit of distance is 149565800 km.
ephemeris::BodyPosition Moon(double days)
{
    double distance = 0.0;
    const test::Place place = test::ErfaMoon(days, distance, 60.0 / 86400.0);
    return {place.GHA, place.Dec, distance * ERFA_DAU / 149565800e3};
}

/// The Sun (number 0) or a planet by its number from the Sun, with light time and aberration.
ephemeris::BodyPosition Wanderer(int number, double days)
{
    double velocity[3], earth[3], line[3], direction[3], seen[3];
    test::ErfaEarth(days, velocity, earth);
    double distance = 0.0;
    for (int pass = 0; pass < 3; ++pass) {
        double heliocentric[2][3] = {};
        const double lightTime = distance * ERFA_AULT / ERFA_DAYSEC;
        if (number > 0) eraPlan94(ERFA_DJ00, days - lightTime, number, heliocentric);
        eraPmp(heliocentric[0], earth, line);
        eraPn(line, &distance, direction);
    }
    eraAb(direction, velocity, 1.0, std::sqrt(1.0 - eraPdp(velocity, velocity)), seen);
    const test::Place place = test::ErfaApparent(seen, days);
    return {place.GHA, place.Dec, distance};
}

Reference ReferenceOf(const std::string& body, double time)
{
    const double days = time - 36526.5; // from J2000.0
    if (body.starts_with("SUN")) return {Wanderer(0, days), 0.2, "the Sun's series, a fixed aberration"};
    if (body.starts_with("MOON")) return {Moon(days), 0.5, "60 terms of the Moon's series"};
    if (body == "VENUS") return {Wanderer(2, days), 0.3, "a minute of dynamical time, mean elements"};
    if (body == "JUPITER") return {Wanderer(5, days), 1.5, "ERFA's Jupiter, 81\" at most"};
    return {Star(HipparcosStars.at(body), days), 0.05, "the catalogue's rounding and proper motions"};
}

test::Horizontal Look(const Voyage& voyage, const ephemeris::BodyPosition& body, double time)
{
    const test::Ship ship{voyage.At, TimeOf(voyage.TimeTruePos), voyage.Course, voyage.Speed};
    return test::LookAt(test::TrackPosition(ship, (time - ship.Time) * 24.0), body);
}

TEST(SampleSkyTest, AltitudesAreThoseOfErfa)
{
    constexpr double rounding = 0.05;
    std::map<std::string, double> largest;
    for (const Voyage& voyage : Voyages()) {
        const auto path = std::filesystem::path(MEROV_SOURCE_DIR) / "data" / "Observations" / voyage.File;
        const fix::ObservationReading reading = fix::ReadObservationFile(path);
        const auto& records = std::get<fix::NumericRecords>(std::get<fix::ObservationRecords>(reading).Content);
        ASSERT_EQ(records.Sights.size(), voyage.Sights.size());
        for (std::size_t i = 0; i < records.Sights.size(); ++i) {
            const auto& [time, body, altitude, instCorr] = records.Sights[i];
            SCOPED_TRACE(std::string(voyage.File) + " " + body);
            EXPECT_EQ(body, voyage.Sights[i].Body);
            EXPECT_NEAR(time, TimeOf(voyage.Sights[i].Time), 1e-6);
            EXPECT_NEAR(instCorr * 60.0, voyage.Typed.InstCorr, 1e-9);
            const Reference reference = ReferenceOf(body, time);
            const auto& [height, air, water, pressure] = voyage.Typed.Sky;
            const double apparent = altitude + (voyage.Typed.InstCorr - voyage.SystErr - voyage.Sights[i].Slip) / 60.0;
            const double observed =
                test::WorkAltitude(apparent, body, reference.Body.Distance, {height, air, water, pressure});
            const double off = (observed - Look(voyage, reference.Body, time).Altitude) * 60.0;
            EXPECT_NEAR(off, 0.0, rounding + reference.Tolerance) << reference.Why;
            largest[reference.Why] = std::max(largest[reference.Why], std::fabs(off));
        }
    }
    for (const auto& [why, worst] : largest)
        std::printf("altitudes within %.3f' of ERFA's (%s)\n", worst, why.c_str());
}

TEST(SampleSkyTest, BodiesCanBeSeenAndMeasured)
{
    for (const Voyage& voyage : Voyages())
        for (const MadeSight& sight : voyage.Sights) {
            const std::string body = sight.Body;
            const double time = TimeOf(sight.Time);
            const test::Horizontal seen = Look(voyage, ReferenceOf(body, time).Body, time);
            const test::Horizontal sun = Look(voyage, Wanderer(0, time - 36526.5), time);
            SCOPED_TRACE(voyage.File + (" " + body) + ", Sun at " + std::to_string(sun.Altitude));
            const double azimuth = seen.Azimuth * ERFA_DD2R, altitude = seen.Altitude * ERFA_DD2R;
            const double sunAzimuth = sun.Azimuth * ERFA_DD2R, sunAltitude = sun.Altitude * ERFA_DD2R;
            const double apart = eraSeps(azimuth, altitude, sunAzimuth, sunAltitude) * ERFA_DR2D;
            const double fromAbove = eraPas(azimuth, altitude, sunAzimuth, sunAltitude);
            EXPECT_GT(seen.Altitude, 15.0);
            EXPECT_LT(seen.Altitude, 70.0);
            if (body.starts_with("MOON")) {
                EXPECT_EQ(body == "MOONUPP", std::cos(fromAbove) > 0.0); // the limb must be lit
                EXPECT_GT(apart, 30.0);
                EXPECT_GT(sun.Altitude, -12.0);
            } else if (body == "VENUS") {
                EXPECT_GT(apart, 30.0); // by day with the telescope, near its greatest brilliancy
            } else if (body == "JUPITER") {
                EXPECT_LT(sun.Altitude, 0.0);
            } else if (!body.starts_with("SUN")) {
                EXPECT_LT(sun.Altitude, -5.0);  // dark enough for bright stars
                EXPECT_GT(sun.Altitude, -12.0); // with the horizon still sharp
            }
        }
}

} // namespace
} // namespace merov::samples
