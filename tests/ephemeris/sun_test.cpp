#include "ephemeris/sun.h"

#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;

TEST(Sun, ElementsAtJ2000)
{
    double longitude, obliquity, anomaly, eccentricity, radius;
    EarthElements(0.0, longitude, obliquity, anomaly, eccentricity, radius);
    EXPECT_NEAR(longitude, 280.46170, 5e-6);
    EXPECT_NEAR(obliquity, 23.43928, 5e-6);
    EXPECT_NEAR(anomaly, 357.52543, 5e-6);
    EXPECT_NEAR(eccentricity, 0.0167091, 5e-8);
    EXPECT_NEAR(radius, 0.0000110, 5e-8);
}

TEST(Sun, KeplersEquationIsSolved)
{
    for (const double e : {0.0, 0.0068, 0.0167, 0.0485, 0.0934, 0.1})
        for (double mean = -700.0; mean < 700.0; mean += 7.3) {
            double centre, radius;
            SolveKepler(e, mean, centre, radius);
            EXPECT_EQ(SunEquationOfCentre(e, mean), centre);
            // Back from the true anomaly to the mean one.
            const double half = (numeric::Norm360(mean) + centre) * DegToRad / 2.0;
            const double eccentric =
                2.0 * std::atan2(std::sqrt(1.0 - e) * std::sin(half), std::sqrt(1.0 + e) * std::cos(half));
            const double back = (eccentric - e * std::sin(eccentric)) * numeric::RadToDeg;
            EXPECT_NEAR(std::remainder(back - mean, 360.0), 0.0, 2e-9) << e << " " << mean;
            EXPECT_NEAR(radius, 1.0 - e * std::cos(eccentric), 1e-11);
        }
}

} // namespace
} // namespace merov::ephemeris
