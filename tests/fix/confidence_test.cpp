#include "fix/confidence.h"

#include "numeric/fault.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace merov::fix::tests
{

TEST(EllipseFactor, IsTheChiSquareQuantileWithTwoDegreesOfFreedom)
{
    const std::pair<double, double> rows[] = {{0.3935, 1.0},   {0.5, 1.38629},   {0.6826, 2.29518}, {0.8647, 4.0},
                                              {0.95, 5.99146}, {0.9544, 6.1757}, {0.99, 9.21034},   {0.999, 13.81551}};
    for (const auto& [p, factor] : rows) {
        EXPECT_EQ(EllipseFactor(p), factor);
        EXPECT_NEAR(factor, -2.0 * std::log(1.0 - p), 6e-4) << p;
    }
    for (const double p : {0.0, 0.94999999, 1.0})
        EXPECT_EQ(EllipseFactor(p), -1.0) << p;
}

/// Probability of a point within `radius`, its coordinates normal with deviations 1 and `ratio`, by
/// integration over the smaller coordinate.
double ProbabilityWithin(double radius, double ratio)
{
    if (ratio == 0.0) return std::erf(radius / std::numbers::sqrt2);
    constexpr int Steps = 4000;
    double sum = 0.0;
    for (int i = 0; i < Steps; ++i) {
        const double t = std::numbers::pi * ((i + 0.5) / Steps - 0.5);
        const double x = radius * std::cos(t), y = radius * std::sin(t) / ratio;
        sum += std::exp(-y * y / 2.0) * std::erf(x / std::numbers::sqrt2) * x;
    }
    return sum * std::numbers::pi / Steps / (ratio * std::sqrt(2.0 * std::numbers::pi));
}

TEST(EquivalentCircleRadius, HoldsThePositionWithItsProbability)
{
    for (const double p : {0.5, 0.95, 0.99, 0.999})
        for (int i = 0; i <= 10; ++i) {
            const double smaller = 3.0 * (i / 10.0), radius = EquivalentCircleRadius(p, 3.0, smaller);
            EXPECT_NEAR(ProbabilityWithin(radius / 3.0, i / 10.0), p, 5e-6) << p << " " << i;
            EXPECT_EQ(EquivalentCircleRadius(p, smaller, 3.0), radius);
        }
    EXPECT_NEAR(EquivalentCircleRadius(0.5, 4.0, 1.0), 4.0 * (0.70585 + 0.74993) / 2.0, 1e-12);
    EXPECT_EQ(EquivalentCircleRadius(0.95, 1.0, 1.0), 2.44775);
    EXPECT_EQ(EquivalentCircleRadius(0.95, 0.0, 2.0), 2.0 * 1.95996);
    EXPECT_EQ(EquivalentCircleRadius(0.9544, 1.0, 1.0), -1.0);
    EXPECT_THROW(EquivalentCircleRadius(0.95, 0.0, 0.0), numeric::Fault);
}

TEST(InterpolateTable, MeetsItsNodesAndIsLinearBothWays)
{
    numeric::Matrix table(3, 2);
    numeric::Vector rows(1, 3), columns(1, 2);
    const auto plane = [](double x, double y) { return 2.0 + 3.0 * x - 5.0 * y + 0.5 * x * y; };
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 2; ++j)
            table(i, j) = plane(rows[i] = i * i, columns[j] = 10.0 * j);
    for (const auto& [x, y] : {std::pair{1.0, 10.0}, {1.0, 13.0}, {2.5, 20.0}, {8.0, 13.0}, {9.0, 20.0}})
        EXPECT_NEAR(InterpolateTable(table, rows, columns, x, y), plane(x, y), 1e-12) << x << " " << y;
    EXPECT_THROW(InterpolateTable(table, rows, columns, 9.5, 10.0), numeric::Fault);
}

} // namespace merov::fix::tests
