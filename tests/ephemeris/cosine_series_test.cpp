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
    const double a[CosineLanes] = {1.0}, zeros[CosineLanes] = {};
    for (const double range : {2.0, 100.0, 1e5}) {
        std::uniform_real_distribution<double> angle(-range, range);
        for (int i = 0; i < 20000; ++i) {
            const double b[CosineLanes] = {angle(generator)};
            const double expected = static_cast<double>(std::cos(static_cast<long double>(b[0])));
            ASSERT_NEAR(SumCosineSeries({a, b, zeros, CosineLanes}, 1.0), expected, 1e-14) << b[0];
        }
    }
    EXPECT_EQ(SumCosineSeries({a, zeros, zeros, CosineLanes}, 0.2), 1.0); // a constant term is exact
    EXPECT_EQ(SumCosineSeries({a, zeros, zeros, 0}, 0.2), 0.0);
}

TEST(CosineSeries, EveryLaneCountsAndWideAndPortableSumsAreTheSameToTheLastDigit)
{
    constexpr int Count = 5 * CosineLanes;
    std::mt19937_64 generator(282);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    double a[Count], b[Count], c[Count];
    for (int round = 0; round < 2000; ++round) {
        const double t = 4.0 * any(generator);
        double expected = 0.0;
        for (int i = 0; i < Count; ++i) {
            a[i] = any(generator);
            b[i] = 7.0 * any(generator);
            c[i] = 1e4 * any(generator);
            expected += a[i] * std::cos(b[i] + c[i] * t);
        }
        const double sum = SumCosineSeries({a, b, c, Count}, t);
        ASSERT_NEAR(sum, expected, 1e-12);
        ASSERT_EQ(sum, SumCosineSeriesPortable({a, b, c, Count}, t));
    }
}

} // namespace
} // namespace merov::ephemeris
