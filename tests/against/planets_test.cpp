#include "ephemeris/astro_lib.h"
#include "ephemeris/magnitudes.h"
#include "ephemeris/planets.h"
#include "support/box_recorder.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

#include <libnova/libnova.h>

/// Planets against the full series of VSOP87 (libnova), reduced with ERFA. Both sides take Universal Time
/// for dynamical time.

namespace merov::test
{
namespace
{

using Heliocentric = void (*)(double, ln_helio_posn*);

/// Rectangular place, ecliptic and equinox of J2000.0, astronomical units.
void EclipticVector(Heliocentric body, double julianDay, double vector[3])
{
    ln_helio_posn place;
    body(julianDay, &place);
    eraS2p(place.L * ERFA_DD2R, place.B * ERFA_DD2R, place.R, vector);
}

/// The apparent place: where the planet stands from the Earth, both taken when the light left the planet.
/// To retard the Earth too amounts to annual aberration, but for terms of its second order.
Place Vsop87Place(Heliocentric body, double days, double& distance, double& helioDistance)
{
    const double julianDay = ERFA_DJ00 + days;
    double earth[3], planet[3], line[3], lightTime = 0.0;
    EclipticVector(ln_get_earth_helio_coords, julianDay, earth);
    for (int round = 0; round < 3; ++round) {
        EclipticVector(body, julianDay - lightTime, planet);
        eraPmp(planet, earth, line);
        lightTime = eraPm(line) * ERFA_AULT / ERFA_DAYSEC;
    }
    distance = eraPm(line);
    helioDistance = eraPm(planet);
    EclipticVector(ln_get_earth_helio_coords, julianDay - lightTime, earth);
    eraPmp(planet, earth, line);
    EclipticToEquatorJ2000(line);
    return ErfaApparent(line, days);
}

struct PlanetBounds {
    const char* Body;
    Heliocentric Reference;
    Bound HourAngle, Declination; // minutes of arc
    Bound Distance;               // relative, to the Earth and to the Sun
};

// The first three are bounded by what their theories leave out: perturbations below a thousandth of a degree
// of longitude, seen from as near as 0.27 (Venus) and 0.37 (Mars) astronomical units; for Jupiter terms that
// add up to half a minute of arc. Saturn's series are good to a tenth of a second; there the low-order
// place of the Sun shows, and what the formula of aberration leaves out.
const PlanetBounds Bounds[] = {
    {"VENUS", ln_get_venus_helio_coords, {0.12, 0.70}, {0.045, 0.40}, {4e-5, 1.3e-4}},
    {"MARS", ln_get_mars_helio_coords, {0.15, 0.85}, {0.055, 0.45}, {5e-5, 2.0e-4}},
    {"JUPITER", ln_get_jupiter_helio_coords, {0.21, 0.60}, {0.090, 0.38}, {6e-5, 1.4e-4}},
    {"SATURN", ln_get_saturn_helio_coords, {0.009, 0.028}, {0.003, 0.010}, {3e-6, 1e-5}},
};

TEST(PlanetsAgainst, Vsop87From1950To2050)
{
    BoxRecorder boxes;
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    for (const auto& [body, reference, hourAngle, declination, distances] : Bounds) {
        PlaceDifferences places;
        Spread geocentric, heliocentric;
        OverTheCentury(2000, [&, code = body, theory = reference](double T) {
            double distance, helioDistance;
            const Place theirs = Vsop87Place(theory, T * ERFA_DJC, distance, helioDistance);
            ephemeris::BodyPosition ours;
            ephemeris::ComputePlanetPosition(code, T, ours.GHA, ours.Declination, ours.Distance, ours.HelioDistance,
                                             ours.EclLatitude, ours.EclLongitude);
            places.Add({ours.GHA, ours.Declination}, theirs);
            geocentric.Add(ours.Distance / distance - 1.0);
            heliocentric.Add(ours.HelioDistance / helioDistance - 1.0);
        });
        const std::string name = body;
        EXPECT_TRUE(places.Within(name, hourAngle, declination));
        EXPECT_TRUE(geocentric.Within(name + ", distance, relative", distances));
        EXPECT_TRUE(heliocentric.Within(name + ", radius vector, relative", distances));
    }
}

// libnova leaves out Saturn's rings.
TEST(PlanetsAgainst, LibnovasMagnitudes)
{
    const std::pair<const char*, double (*)(double)> planets[] = {
        {"VENUS", ln_get_venus_magnitude}, {"MARS", ln_get_mars_magnitude}, {"JUPITER", ln_get_jupiter_magnitude}};
    BoxRecorder boxes;
    OverTheCentury(300, [&](double T) {
        const double days = T * ERFA_DJC, instant = 36526.5 + days; // J2000.0 as a date-time
        for (const auto& [body, theirs] : planets)
            EXPECT_NEAR(ephemeris::ComputeMagnitude(body, instant), theirs(ERFA_DJ00 + days), 0.005) << body << days;
    });
}

} // namespace
} // namespace merov::test
