#include "ephemeris/stars.h"

#include "column_sums.h"
#include "ephemeris/star_tables.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;

std::vector<double> Entry(std::string_view name)
{
    double ra = 9, dec = 9, motionRA = 9, motionDec = 9, magnitude = 9;
    StarCatalogueEntry(name, ra, dec, motionRA, motionDec, magnitude);
    return {ra, dec, motionRA, motionDec, magnitude};
}

TEST(StarCatalogue, RowsAreFoundByTheirExactNames)
{
    test::ExpectColumnSums(StarRows, [](const StarRow& star) { return Entry(star.Name); },
                           {19797.21001, -4400.7145, -291.053, -213.304, 2714.9});
    for (const char* name : {"", "A", "SIRIUS ", "Sirius", "KAUS AUSTR", "RIGIL", "SUNLOW", "ZZZ"})
        EXPECT_EQ(Entry(name), std::vector<double>(5)) << name;
}

TEST(StarCatalogue, NoPackedFormSlipsByAMinute)
{
    // By whole seconds: a double a hair below a whole minute would lose it, 20 seconds of arc or more.
    const auto unpacked = [](double packed) {
        const double seconds = std::round(packed * 1e5) / 10.0;
        return std::floor(seconds / 1e4) + std::fmod(std::floor(seconds / 100.0), 100.0) / 60.0 +
               std::fmod(seconds, 100.0) / 3600.0;
    };
    for (const StarRow& star : StarRows) {
        EXPECT_NEAR(numeric::DMSToDeg(star.RA), unpacked(star.RA), 1e-9) << star.Name;
        EXPECT_NEAR(std::fabs(numeric::DMSToDeg(star.Dec)), unpacked(std::fabs(star.Dec)), 1e-9) << star.Name;
    }
}

TEST(ProperMotion, FollowsAGreatCircle)
{
    const double ra = 200.0, a = ra * DegToRad, motionDec = 0.07, motionRA = -0.05;
    for (const double dec : {-80.0, -35.0, 0.0, 50.0, 89.2})
        for (const double T : {-2.0, 0.0, 0.3, 2.0}) {
            double movedDec, movedRA;
            ApplyProperMotion(dec, ra, motionDec, motionRA, T, movedDec, movedRA);
            // The great circle from the place in the direction of the motion, by vectors.
            const double d = dec * DegToRad, east = std::cos(d) * motionRA, rate = std::hypot(east, motionDec);
            const double s = rate * T * DegToRad, u = motionDec / rate, v = east / rate;
            const double outward = std::cos(s) * std::cos(d) - std::sin(s) * u * std::sin(d);
            const double x = outward * std::cos(a) - std::sin(s) * v * std::sin(a);
            const double y = outward * std::sin(a) + std::sin(s) * v * std::cos(a);
            const double z = std::cos(s) * std::sin(d) + std::sin(s) * u * std::cos(d);
            EXPECT_NEAR(movedDec, std::asin(z) / DegToRad, 1e-9) << dec << " " << T;
            EXPECT_NEAR(movedRA, numeric::Norm360(std::atan2(y, x) / DegToRad), 1e-7) << dec << " " << T;
        }
    double dec, sameRA;
    ApplyProperMotion(-40.3, 44.5, 0.0, 0.0, 1.7, dec, sameRA); // no motion
    EXPECT_NEAR(dec, -40.3, 1e-10);
    EXPECT_NEAR(sameRA, 44.5, 1e-10);
}

TEST(Precession, AgreesWithAPublishedExample)
{
    // J. Meeus, Astronomical Algorithms, example 20.b: theta Persei on 13.19 November 2028.
    double zeta, theta, z, dec, ra;
    PrecessionAngles(0.288670500, zeta, theta, z);
    EXPECT_NEAR(zeta, 665.7627, 5e-5);
    EXPECT_NEAR(theta, 578.5489, 5e-5);
    EXPECT_NEAR(z, 665.8288, 5e-5);
    ApplyPrecession(zeta / 3600.0, theta / 3600.0, z / 3600.0, 49.227750, 41.054063, dec, ra);
    EXPECT_NEAR(ra, 41.547214, 1e-6);
    EXPECT_NEAR(dec, 49.348483, 1e-6);
}

} // namespace
} // namespace merov::ephemeris
