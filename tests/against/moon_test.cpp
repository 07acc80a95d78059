#include "ephemeris/moon.h"

#include "support/erfa_places.h"

#include <libnova/libnova.h>

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

constexpr double HalfMinute = 0.5 / 60.0; // what the program takes off the Moon's hour angle

/// Our place, the half minute put back.
Place Ours(double T, double& kilometres)
{
    Place place;
    double distance = 0.0;
    ephemeris::ComputeMoonPosition(T, place.GHA, place.Dec, distance);
    place.GHA += HalfMinute;
    kilometres = distance * ephemeris::MoonDistanceUnit;
    return place;
}

TEST(MoonAgainst, ErfaFrom1950To2050)
{
    // Both are the same cut of one theory; ERFA gives where the Moon is, ours where it is seen, 0.7" behind.
    PlaceDifferences differences;
    Spread distances;
    OverTheCentury(2000, [&](double T) {
        double kilometres, distance;
        differences.Add(Ours(T, kilometres), ErfaMoon(T * ERFA_DJC, distance));
        distances.Add(kilometres - distance * ERFA_DAU / 1000.0);
    });
    EXPECT_TRUE(differences.Within("Moon, half minute put back, against eraMoon98", {0.012, 0.02}, {0.005, 0.01}));
    EXPECT_TRUE(distances.Within("Moon's distance, km", {0.2, 0.5}));
}

TEST(MoonAgainst, LibnovasFullTheory)
{
    // What the cut to 60 and 60 terms leaves out of ELP-2000/82: 12" at the most.
    PlaceDifferences differences;
    Spread distances;
    OverTheCentury(300, [&](double T) {
        ln_rect_posn moon{};
        ln_get_lunar_geo_posn(ERFA_DJ00 + T * ERFA_DJC, &moon, 0.0);
        double direction[3] = {moon.X, moon.Y, moon.Z};
        EclipticToEquatorJ2000(direction);
        double kilometres;
        differences.Add(Ours(T, kilometres), ErfaApparent(direction, T * ERFA_DJC));
        distances.Add(kilometres - eraPm(direction));
    });
    EXPECT_TRUE(differences.Within("Moon, half minute put back, against libnova", {0.08, 0.25}, {0.03, 0.15}));
    EXPECT_TRUE(distances.Within("Moon's distance, km", {5.0, 15.0}));
}

TEST(MoonAgainst, TheHalfMinuteStandsForTheMissingDynamicalTime)
{
    // The Moon as it was seen in 2004, with dynamical time 64.6 s ahead: it moves 0.55 of a minute of arc
    // in that time, eastward, which the fixed term takes up.
    PlaceDifferences differences, without;
    for (int i = 0; i < 1000; ++i) {
        const double days = 1460.5 + i * 0.366;
        double kilometres, distance;
        const Place ours = Ours(days / ERFA_DJC, kilometres);
        const Place seen = ErfaMoon(days, distance, 64.6 / ERFA_DAYSEC);
        differences.Add({ours.GHA - HalfMinute, ours.Dec}, seen);
        without.Add(ours, seen);
    }
    EXPECT_TRUE(differences.Within("Moon in 2004, with Delta T of 64.6 s", {0.2, 0.4}, {0.3, 0.4}));
    EXPECT_TRUE(without.Within("the same without the half minute", {0.7, 0.8}, {0.3, 0.4}));
    EXPECT_GT(without.HourAngle.Rms(), 2.0 * differences.HourAngle.Rms());
}

} // namespace
} // namespace merov::test
