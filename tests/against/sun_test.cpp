#include "ephemeris/sun.h"

#include "support/erfa_places.h"

#include <libnova/libnova.h>

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

/// The Sun's place by libnova's VSOP87, whose coordinates are of the ecliptic of J2000.0.
Place LibnovaSun(double days)
{
    ln_helio_posn sun{};
    ln_get_solar_geom_coords(ERFA_DJ00 + days, &sun);
    double direction[3], velocity[3], earth[3];
    eraS2c(sun.L * ERFA_DD2R, sun.B * ERFA_DD2R, direction);
    EclipticToEquatorJ2000(direction);
    ErfaEarth(days, velocity, earth);
    return ErfaSeen(direction, velocity, days);
}

Place Ours(double T, double& distance)
{
    Place place;
    ephemeris::ComputeSunPosition(T, place.GHA, place.Dec, distance);
    return place;
}

TEST(SunAgainst, ErfaAndLibnovaFrom1950To2050)
{
    // Newcomb's elements with five perturbations alone: 13" at the most. The Sun's latitude of up to 1.2" is
    // taken as 0, its aberration as constant (0.35").
    PlaceDifferences erfa, libnova;
    Spread distances;
    OverTheCentury(2000, [&](double T) {
        double distance, erfaDistance;
        const Place ours = Ours(T, distance);
        erfa.Add(ours, ErfaSun(T * ERFA_DJC, erfaDistance));
        libnova.Add(ours, LibnovaSun(T * ERFA_DJC));
        distances.Add(distance - erfaDistance);
    });
    EXPECT_TRUE(erfa.Within("Sun against eraEpv00", {0.1, 0.25}, {0.03, 0.1}));
    EXPECT_TRUE(libnova.Within("Sun against libnova", {0.1, 0.25}, {0.03, 0.1}));
    EXPECT_TRUE(distances.Within("Sun's distance, au", {1e-5, 3e-5}));
}

TEST(SunAgainst, ErfaWithDynamicalTimeAsItWas)
{
    // The Sun as it was seen in 2004, with dynamical time 64.6 s ahead.
    PlaceDifferences differences;
    for (int i = 0; i < 366; ++i) {
        const double days = 1460.5 + i * 1.003;
        double distance, erfaDistance;
        differences.Add(Ours(days / ERFA_DJC, distance), ErfaSun(days, erfaDistance, 64.6 / ERFA_DAYSEC));
    }
    EXPECT_TRUE(differences.Within("Sun in 2004, with Delta T of 64.6 s", {0.1, 0.25}, {0.1, 0.25}));
}

} // namespace
} // namespace merov::test
