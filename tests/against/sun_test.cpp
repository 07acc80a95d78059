#include "ephemeris/sun.h"

#include "support/erfa_places.h"

#include <libnova/libnova.h>

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

constexpr int Dates = 2000;

/// A direction of the Sun, J2000.0, as the moving Earth sees it.
Place Seen(double direction[3], double velocity[3], double days, double dynamical)
{
    double seen[3];
    // The Sun far away: its own light isn't bent.
    eraAb(direction, velocity, 1e9, std::sqrt(1.0 - eraPdp(velocity, velocity)), seen);
    return ErfaApparent(seen, days, dynamical);
}

/// The Sun's place by eraEpv00, the Earth's heliocentric place turned round.
Place ErfaSun(double days, double& distance, double dynamical = 0.0)
{
    double velocity[3], earth[3], direction[3];
    ErfaEarth(days + dynamical, velocity, earth);
    eraPn(earth, &distance, direction);
    eraSxp(-1.0, direction, direction);
    return Seen(direction, velocity, days, dynamical);
}

/// The Sun's place by libnova's VSOP87, whose coordinates are of the ecliptic of J2000.0.
Place LibnovaSun(double days)
{
    ln_helio_posn sun{};
    ln_get_solar_geom_coords(ERFA_DJ00 + days, &sun);
    double direction[3], velocity[3], earth[3];
    eraS2c(sun.L * ERFA_DD2R, sun.B * ERFA_DD2R, direction);
    EclipticToEquatorJ2000(direction);
    ErfaEarth(days, velocity, earth);
    return Seen(direction, velocity, days, 0.0);
}

Place Ours(double T, double& distance)
{
    Place place;
    ephemeris::ComputeSunPosition(T, place.GHA, place.Dec, distance);
    return place;
}

TEST(SunAgainstErfa, PlaceAndDistance)
{
    // Newcomb's elements with five perturbations alone: 13" at the most. The Sun's latitude of up to 1.2" is
    // taken as 0, its aberration as constant (0.35").
    PlaceDifferences differences;
    double worstDistance = 0.0;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        double distance = 0.0, erfaDistance = 0.0;
        differences.Add(Ours(T, distance), ErfaSun(T * ERFA_DJC, erfaDistance));
        worstDistance = std::max(worstDistance, std::fabs(distance - erfaDistance));
    }
    differences.Print("Sun against eraEpv00");
    std::printf("%-46s max %.7f au\n", "Sun's distance", worstDistance);
    EXPECT_LT(differences.RmsHourAngle(), 0.1);
    EXPECT_LT(differences.RmsDec(), 0.1);
    EXPECT_LT(differences.MaxHourAngle(), 0.25);
    EXPECT_LT(differences.MaxDec(), 0.1);
    EXPECT_LT(worstDistance, 1e-4);
}

TEST(SunAgainstErfa, WithDynamicalTimeAsItWas)
{
    // The Sun as it was seen in 2004, with dynamical time 64.6 s ahead.
    PlaceDifferences differences;
    for (int i = 0; i < 366; ++i) {
        const double days = 1460.5 + i * 1.003;
        double distance = 0.0;
        differences.Add(Ours(days / ERFA_DJC, distance), ErfaSun(days, distance, 64.6 / ERFA_DAYSEC));
    }
    differences.Print("Sun in 2004, with Delta T of 64.6 s");
    EXPECT_LT(differences.MaxHourAngle(), 0.25);
    EXPECT_LT(differences.MaxDec(), 0.25);
}

TEST(SunAgainstLibnova, PlaceByVsop87)
{
    PlaceDifferences differences;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        double distance = 0.0;
        differences.Add(Ours(T, distance), LibnovaSun(T * ERFA_DJC));
    }
    differences.Print("Sun against libnova");
    EXPECT_LT(differences.MaxHourAngle(), 0.25);
    EXPECT_LT(differences.MaxDec(), 0.1);
}

} // namespace
} // namespace merov::test
