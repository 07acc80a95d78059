#include "ephemeris/cosine_series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace merov::ephemeris
{
namespace
{

TEST(CosineSeries, EachCosineIsExactTo14Places)
{
    std::mt19937_64 generator(281);
    for (const double range : {2.0, 100.0, 1e5}) {
        std::uniform_real_distribution<double> angle(-range, range);
        for (int i = 0; i < 20000; ++i) {
            const double a[CosineLanes] = {1.0};
            const double b[CosineLanes] = {angle(generator)};
            const double c[CosineLanes] = {};
            const double expected = static_cast<double>(std::cos(static_cast<long double>(b[0])));
            ASSERT_NEAR(SumCosineSeries({a, b, c, CosineLanes}, 1.0), expected, 1e-14) << b[0];
        }
    }
}

TEST(CosineSeries, EveryLaneCountsAndTheTimeTurnsTheAngle)
{
    double a[3 * CosineLanes], b[3 * CosineLanes], c[3 * CosineLanes];
    double expected = 0.0;
    for (int i = 0; i < 3 * CosineLanes; ++i) {
        a[i] = 1.0 + i * i;
        b[i] = 0.37 * i;
        c[i] = 213.3 - 40.0 * i;
        expected += a[i] * std::cos(b[i] + c[i] * -0.21);
    }
    EXPECT_NEAR(SumCosineSeries({a, b, c, 3 * CosineLanes}, -0.21), expected, 1e-10);
    EXPECT_EQ(SumCosineSeries({a, b, c, 0}, -0.21), 0.0);
}

TEST(CosineSeries, ConstantTermsAreExact)
{
    const double a[CosineLanes] = {213.54295595986};
    const double zeros[CosineLanes] = {};
    EXPECT_EQ(SumCosineSeries({a, zeros, zeros, CosineLanes}, 0.2), 213.54295595986);
}

TEST(CosineSeries, WideAndPortableSumsAreTheSameToTheLastDigit)
{
    std::mt19937_64 generator(282);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    double a[5 * CosineLanes], b[5 * CosineLanes], c[5 * CosineLanes];
    for (int round = 0; round < 2000; ++round) {
        for (int i = 0; i < 5 * CosineLanes; ++i) {
            a[i] = any(generator);
            b[i] = 7.0 * any(generator);
            c[i] = 1e4 * any(generator);
        }
        const double t = 4.0 * any(generator);
        ASSERT_EQ(SumCosineSeries({a, b, c, 5 * CosineLanes}, t),
                  SumCosineSeriesPortable({a, b, c, 5 * CosineLanes}, t));
    }
}

} // namespace
} // namespace merov::ephemeris
