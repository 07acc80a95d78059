#include "ephemeris/magnitudes.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::ephemeris
{
namespace
{

TEST(Magnitudes, PlanetsOnDatesOfRecordAndBodiesThatDoNotChange)
{
    test::BoxRecorder boxes;
    SetDataFolder(MEROV_RUN_DIR);
    const struct {
        const char* Body;
        CivilTime Date;
        double Magnitude, Tolerance;
    } cases[] = {
        {"VENUS", {1992, 12, 20}, -4.217, 0.002}, // r 0.724604, distance 0.910947, phase angle 72.96 (J. Meeus)
        {"SATURN", {1992, 12, 16}, 0.748, 0.003}, // r 9.867882, distance 10.464606, rings 16.442 (J. Meeus)
        {"MARS", {2003, 8, 28}, -2.9, 0.05},      // perihelic opposition (almanac)
        {"JUPITER", {2004, 3, 4}, -2.5, 0.05},    // opposition (almanac)
        {"SUNLOW", {1900, 2, 1}, -26.86, 0},      {"SUNUPP", {2050, 8, 1}, -26.86, 0},
        {"MOONLOW", {1900, 2, 1}, -11, 0},        {"MOONUPP", {2050, 8, 1}, -11, 0},
        {"RIGIL KENT", {2050, 8, 1}, 0, 0},       {"SIRIUS", {2050, 8, 1}, -1.6, 0},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(ComputeMagnitude(c.Body, JoinDateTime(c.Date)), c.Magnitude, c.Tolerance) << c.Body;
}

} // namespace
} // namespace merov::ephemeris
