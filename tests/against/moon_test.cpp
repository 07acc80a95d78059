#include "ephemeris/moon.h"

#include "support/erfa_places.h"

#include <libnova/libnova.h>

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

constexpr int Dates = 2000;
constexpr double HalfMinute = 0.5 / 60.0; // what the program takes off the Moon's hour angle

Place Ours(double T, double& kilometres)
{
    Place place;
    double distance = 0.0;
    ephemeris::ComputeMoonPosition(T, place.GHA, place.Dec, distance);
    kilometres = distance * ephemeris::MoonDistanceUnit;
    return place;
}

TEST(MoonAgainstErfa, PlaceAndDistance)
{
    // Both are the same cut of one theory; ERFA gives where the Moon is, ours where it is seen, 0.7" behind.
    PlaceDifferences differences;
    double worstDistance = 0.0;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        double kilometres = 0.0, distance = 0.0;
        Place ours = Ours(T, kilometres);
        ours.GHA += HalfMinute;
        differences.Add(ours, ErfaMoon(T * ERFA_DJC, distance));
        worstDistance = std::max(worstDistance, std::fabs(kilometres - distance * ERFA_DAU / 1000.0));
    }
    differences.Print("Moon, half minute put back, against eraMoon98");
    std::printf("%-46s max %.2f km\n", "Moon's distance", worstDistance);
    EXPECT_LT(differences.MaxHourAngle(), 0.02);
    EXPECT_LT(differences.MaxDec(), 0.01);
    EXPECT_LT(worstDistance, 0.5);
}

TEST(MoonAgainstErfa, TheHalfMinuteStandsForTheMissingDynamicalTime)
{
    // The Moon as it was seen in 2004, with dynamical time 64.6 s ahead: it moves 0.55 of a minute of arc
    // in that time, eastward, which the fixed term takes up.
    PlaceDifferences differences, without;
    for (int i = 0; i < 1000; ++i) {
        const double days = 1460.5 + i * 0.366;
        double kilometres = 0.0, distance = 0.0;
        Place ours = Ours(days / ERFA_DJC, kilometres);
        const Place seen = ErfaMoon(days, distance, 64.6 / ERFA_DAYSEC);
        differences.Add(ours, seen);
        ours.GHA += HalfMinute;
        without.Add(ours, seen);
    }
    differences.Print("Moon in 2004, with Delta T of 64.6 s");
    without.Print("the same without the half minute");
    EXPECT_LT(differences.RmsHourAngle(), 0.2);
    EXPECT_GT(without.RmsHourAngle(), 2.0 * differences.RmsHourAngle());
}

TEST(MoonAgainstLibnova, PlaceByTheFullTheory)
{
    // What the cut to 60 and 60 terms leaves out of ELP-2000/82: 12" at the most.
    PlaceDifferences differences;
    double worstDistance = 0.0;
    RandomCenturies random;
    for (int i = 0; i < 300; ++i) {
        const double days = random() * ERFA_DJC;
        ln_rect_posn moon{};
        ln_get_lunar_geo_posn(ERFA_DJ00 + days, &moon, 0.0);
        double direction[3] = {moon.X, moon.Y, moon.Z};
        EclipticToEquatorJ2000(direction);
        double kilometres = 0.0;
        Place ours = Ours(days / ERFA_DJC, kilometres);
        ours.GHA += HalfMinute;
        differences.Add(ours, ErfaApparent(direction, days));
        worstDistance = std::max(worstDistance, std::fabs(kilometres - eraPm(direction)));
    }
    differences.Print("Moon, half minute put back, against libnova");
    std::printf("%-46s max %.2f km\n", "Moon's distance", worstDistance);
    EXPECT_LT(differences.MaxHourAngle(), 0.25);
    EXPECT_LT(differences.MaxDec(), 0.15);
    EXPECT_LT(worstDistance, 15.0);
}

} // namespace
} // namespace merov::test
