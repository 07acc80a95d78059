#include "ephemeris/stars.h"

#include "ephemeris/earth_frame.h"
#include "ephemeris/star_tables.h"
#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;
using numeric::Norm360;

struct Row {
    double RA = 9, Dec = 9, MotionRA = 9, MotionDec = 9, Magnitude = 9;
    explicit Row(std::string_view name) { StarCatalogueEntry(name, RA, Dec, MotionRA, MotionDec, Magnitude); }
};

TEST(StarCatalogueTest, RowsAreFoundByTheirExactNames)
{
    double sums[5] = {};
    double number = 0.0;
    for (const StarRow& star : StarRows) {
        const Row row(star.Name);
        number += 1.0;
        const double values[5] = {row.RA, row.Dec, row.MotionRA, row.MotionDec, row.Magnitude};
        for (int i = 0; i < 5; ++i)
            sums[i] += number * values[i];
    }
    const double expected[5] = {19797.21001, -4400.7145, -291.053, -213.304, 2714.9};
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(sums[i], expected[i], 1e-8) << i;
    EXPECT_EQ(Row("RIGIL KENT").Magnitude, 0.0);
    EXPECT_EQ(Row("RIGIL KENT").MotionRA, -3.608);
    EXPECT_EQ(Row("ZUBEN'UBI").Magnitude, 2.9);
    EXPECT_EQ(Row("ALNA'IR").Dec, -46.574);
    for (const char* name : {"", "A", "SIRIUS ", "Sirius", "KAUS AUSTR", "RIGIL", "SUNLOW", "ZZZ"}) {
        const Row row(name);
        EXPECT_TRUE(row.RA == 0 && row.Dec == 0 && row.MotionRA == 0 && row.MotionDec == 0 && row.Magnitude == 0)
            << name;
    }
}

TEST(StarCatalogueTest, NoPackedFormSlipsByAMinute)
{
    // By whole numbers: a double a hair below a whole minute would lose it, 20 seconds of arc or more.
    for (const StarRow& star : StarRows) {
        const long ra = std::lround(star.RA * 1e5); // HMMSSs
        EXPECT_NEAR(numeric::DMSToDeg(star.RA),
                    static_cast<double>(ra / 100000) + static_cast<double>(ra / 1000 % 100) / 60.0 +
                        static_cast<double>(ra % 1000) / 36000.0,
                    1e-9)
            << star.Name;
        const long dec = std::lround(std::fabs(star.Dec) * 1e4); // DDMMSS
        EXPECT_LT(dec % 100, 60) << star.Name;
        EXPECT_NEAR(std::fabs(numeric::DMSToDeg(star.Dec)),
                    static_cast<double>(dec / 10000) + static_cast<double>(dec / 100 % 100) / 60.0 +
                        static_cast<double>(dec % 100) / 3600.0,
                    1e-9)
            << star.Name;
    }
}

TEST(ProperMotionTest, FollowsAGreatCircle)
{
    for (const double dec : {-80.0, -35.0, 0.0, 50.0, 89.2})
        for (const double T : {-2.0, -0.5, 0.3, 2.0}) {
            const double ra = 200.0, motionDec = 0.07, motionRA = -0.05;
            double movedDec = 0.0, movedRA = 0.0;
            ApplyProperMotion(dec, ra, motionDec, motionRA, T, movedDec, movedRA);
            // The great circle from the place in the direction of the motion, by vectors.
            const double a = ra * DegToRad, d = dec * DegToRad;
            const double east = std::cos(d) * motionRA, rate = std::hypot(east, motionDec), s = rate * T * DegToRad;
            const double u = motionDec / rate, v = east / rate;
            const double x = std::cos(s) * std::cos(d) * std::cos(a) +
                             std::sin(s) * (-u * std::sin(d) * std::cos(a) - v * std::sin(a));
            const double y = std::cos(s) * std::cos(d) * std::sin(a) +
                             std::sin(s) * (-u * std::sin(d) * std::sin(a) + v * std::cos(a));
            const double z = std::cos(s) * std::sin(d) + std::sin(s) * u * std::cos(d);
            EXPECT_NEAR(movedDec, std::asin(z) / DegToRad, 1e-9) << dec << " " << T;
            EXPECT_NEAR(movedRA, Norm360(std::atan2(y, x) / DegToRad), 1e-7) << dec << " " << T;
        }
}

TEST(ProperMotionTest, NoTimeAndNoMotionKeepThePlace)
{
    double dec = 0.0, ra = 0.0;
    ApplyProperMotion(-40.3, 44.5, 0.01, -0.02, 0.0, dec, ra);
    EXPECT_NEAR(dec, -40.3, 1e-10);
    EXPECT_NEAR(ra, 44.5, 1e-10);
    ApplyProperMotion(-40.3, 44.5, 0.0, 0.0, 1.7, dec, ra);
    EXPECT_NEAR(dec, -40.3, 1e-10);
    EXPECT_NEAR(ra, 44.5, 1e-10);
}

TEST(PrecessionTest, AgreesWithAPublishedExample)
{
    // J. Meeus, Astronomical Algorithms, example 20.b: theta Persei on 13.19 November 2028.
    double zeta = 0.0, theta = 0.0, z = 0.0;
    PrecessionAngles(0.288670500, zeta, theta, z);
    EXPECT_NEAR(zeta, 665.7627, 5e-5);
    EXPECT_NEAR(theta, 578.5489, 5e-5);
    EXPECT_NEAR(z, 665.8288, 5e-5);
    double dec = 0.0, ra = 0.0;
    ApplyPrecession(zeta / 3600.0, theta / 3600.0, z / 3600.0, 49.227750, 41.054063, dec, ra);
    EXPECT_NEAR(ra, 41.547214, 1e-6);
    EXPECT_NEAR(dec, 49.348483, 1e-6);
    PrecessionAngles(0.0, zeta, theta, z);
    ApplyPrecession(zeta, theta, z, -60.8, 219.9, dec, ra);
    EXPECT_NEAR(ra, 219.9, 1e-9);
    EXPECT_NEAR(dec, -60.8, 1e-9);
}

TEST(StarPositionTest, KnownPlaces)
{
    const double T = CenturiesFromJ2000(1, 1, 2004, 0.0);
    double psi = 0.0, eps = 0.0;
    ComputeNutation(T, psi, eps);
    const double sidereal = GreenwichHourAngle(T, psi, ComputeSunTruePlace(T).MeanObliquity + eps / 3600.0, 0.0);
    const struct {
        const char* Name;
        double GHA, Dec, RA;
    } cases[] = {
        {"SIRIUS", 358.6612, -16.7203, 101.3343},
        {"POLARIS", 60.8340, 89.2865, 39.1615},
        {"VEGA", 180.7371, 38.7854, 279.2584},
    };
    for (const auto& c : cases) {
        double gha = 0.0, dec = 0.0;
        ComputeStarPosition(c.Name, T, gha, dec);
        EXPECT_NEAR(gha, c.GHA, 5e-5) << c.Name;
        EXPECT_NEAR(dec, c.Dec, 5e-5) << c.Name;
        EXPECT_NEAR(Norm360(sidereal - gha), c.RA, 5e-5) << c.Name;
    }
}

TEST(StarPositionTest, AnUnknownNameGivesTheVernalPoint)
{
    for (const double T : {-0.5, 0.0, 0.04, 0.5}) {
        double gha = 0.0, dec = 0.0;
        ComputeStarPosition("sunlow", T, gha, dec);
        // The equinox of J2000.0 in the frame of the date: general precession in right ascension and
        // declination, 1.28 and 0.557 degrees a century, plus nutation and aberration.
        const double ra = Norm360(GreenwichMeanSiderealTime(T) - gha);
        EXPECT_NEAR(numeric::NormalizeLongitude(ra), 1.2812 * T, 0.012) << T;
        EXPECT_NEAR(dec, 0.5568 * T, 0.01) << T;
    }
}

} // namespace
} // namespace merov::ephemeris
