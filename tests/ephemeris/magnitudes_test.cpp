#include "ephemeris/magnitudes.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::ephemeris
{
namespace
{

TEST(Magnitudes, PlanetsOnDatesOfRecord)
{
    test::BoxRecorder boxes;
    SetDataFolder(MEROV_RUN_DIR);
    struct Case {
        const char* Body;
        CivilTime Date;
        double Magnitude;
        double Tolerance;
        const char* Source;
    };
    const Case cases[] = {
        {"VENUS",
         {1992, 12, 20, 0, 0, 0},
         -4.217,
         0.002,
         "r 0.724604, distance 0.910947, phase angle 72.96 (J. Meeus)"},
        {"SATURN", {1992, 12, 16, 0, 0, 0}, 0.748, 0.003, "r 9.867882, distance 10.464606, rings 16.442 (J. Meeus)"},
        {"MARS", {2003, 8, 28, 0, 0, 0}, -2.9, 0.05, "perihelic opposition (almanac)"},
        {"JUPITER", {2004, 3, 4, 0, 0, 0}, -2.5, 0.05, "opposition (almanac)"},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(ComputeMagnitude(c.Body, JoinDateTime(c.Date)), c.Magnitude, c.Tolerance)
            << c.Body << ": " << c.Source;
}

TEST(Magnitudes, SunMoonAndStarsDoNotChange)
{
    test::BoxRecorder boxes;
    for (const double instant : {JoinDateTime({1900, 2, 1, 3, 0, 0}), JoinDateTime({2050, 8, 1, 0, 0, 0})}) {
        EXPECT_EQ(ComputeMagnitude("SUNLOW", instant), -26.86);
        EXPECT_EQ(ComputeMagnitude("SUNUPP", instant), -26.86);
        EXPECT_EQ(ComputeMagnitude("MOONLOW", instant), -11.0);
        EXPECT_EQ(ComputeMagnitude("MOONUPP", instant), -11.0);
        EXPECT_EQ(ComputeMagnitude("RIGIL KENT", instant), 0.0);
        EXPECT_NEAR(ComputeMagnitude("SIRIUS", instant), -1.5, 0.15);
        EXPECT_NEAR(ComputeMagnitude("POLARIS", instant), 2.0, 0.15);
    }
}

} // namespace
} // namespace merov::ephemeris
