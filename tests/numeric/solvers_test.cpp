#include "numeric/solvers.h"

#include "numeric/expect.h"
#include "numeric/math_lib.h"
#include "numeric/matrices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace merov::numeric
{
namespace
{

using test::ExpectBox;
using test::ExpectNear;
using test::FaultOf;
using test::VectorOf;

std::string Failure(const std::string& what)
{
    return " Error in mathematical routine|" + what + " failed. See doc for help.";
}

/// Functions given as lambdas, with the arguments that they were called with.
class Functions : public NumberedFunctions
{
public:
    explicit Functions(std::function<double(double, int)> one) : one_(std::move(one)) {}
    explicit Functions(std::function<double(const Vector&, int)> system) : system_(std::move(system)) {}

    double f(double x, int n) override
    {
        Arguments.push_back(x);
        return one_(x, n);
    }
    double SysEq(const Vector& x, int n) override
    {
        ++Equations;
        return system_(x, n);
    }

    std::vector<double> Arguments;
    int Equations = 0;

private:
    std::function<double(double, int)> one_;
    std::function<double(const Vector&, int)> system_;
};

/// FindRoot with a box and, unless told otherwise, no range to speak of.
double Root(Functions& fn, double x0, double h, int maxIterations = 100, double lower = -LargestDouble,
            double upper = LargestDouble, bool cyclic = false)
{
    bool failed = false;
    const double root = FindRoot(fn, x0, h, lower, upper, cyclic, 1e-8, maxIterations, 4, true, failed);
    EXPECT_FALSE(failed); // never written with a box
    return root;
}

/// A function that gives these values one after the other, whatever its argument.
Functions Sequence(std::vector<double> values)
{
    return Functions([values, next = std::size_t{0}](double, int) mutable { return values.at(next++); });
}

TEST(ScaleToRangeTest, ClampsOrWraps)
{
    struct Range {
        double lower, upper;
        std::vector<std::pair<double, double>> wrapped; // a number and what becomes of it
    };
    for (const Range& range :
         {Range{-90, 90, {{100, -80}, {-100, 80}, {200, 20}, {-200, -20}, {45, 45}, {9e-12, 0}}},
          Range{0, 360, {{370, 10}, {-10, 350}, {-360, 360}, {360, 0}}},
          Range{-360, 0, {{10, -350}, {-370, -10}, {0, 0}}}, Range{-3, LargestDouble, {{-5, -2}, {7, 7}}}})
        for (const auto& [x, result] : range.wrapped)
            EXPECT_NEAR(ScaleToRange(x, range.lower, range.upper, true), result, 1e-12) << x;
    EXPECT_EQ(ScaleToRange(100.0, -90.0, 90.0, false), 90.0);
    EXPECT_EQ(ScaleToRange(-100.0, -90.0, 90.0, false), -90.0);
    test::BoxRecorder boxes;
    EXPECT_EQ(ScaleToRange(5.0, 2.0, 2.0, true), 0.0);
    EXPECT_EQ(boxes.TakeOne(), " Error in mathematical routine|Unable to scale your number due to an incorrect range. "
                               "See doc for help.");
}

TEST(FindRootTest, FindsTheRootFromEitherSideWithEitherStep)
{
    Functions cosine([](double x, int n) {
        EXPECT_EQ(n, 4);
        return std::cos(x) - x;
    });
    for (const double x0 : {-3.0, 0.0, 2.0, 5.0})
        for (const double h : {0.1, -0.1})
            EXPECT_NEAR(Root(cosine, x0, h), 0.7390851332151607, 1e-12) << x0 << " " << h;
}

TEST(FindRootTest, ZeroAtTheStartCountsAsPositive)
{
    Functions line([](double x, int) { return x - 2.0; });
    EXPECT_EQ(Root(line, 2.0, 0.5), 2.0);
    // Each value is asked for afresh: the search, then the first pair of the secant.
    EXPECT_EQ(line.Arguments, std::vector<double>({2.0, 1.5, 1.5, 2.0}));
}

TEST(FindRootTest, SearchGoesTheWayThatBringsItNearer)
{
    // Equal values at both ends of the first step: a negative function turns round, a positive one doesn't.
    Functions valley([](double x, int) { return x * x - 1.0; });
    EXPECT_NEAR(Root(valley, -0.25, 0.5), -1.0, 1e-12);
    Functions hill([](double x, int) { return 1.0 - x * x; });
    EXPECT_NEAR(Root(hill, 0.25, 0.5), 1.0, 1e-12);
    // On its way down it passes a zero, on its way up it stops there.
    Functions line([](double x, int) { return x - 2.0; });
    EXPECT_EQ(Root(line, 4.0, 1.0), 2.0);
    EXPECT_EQ(*std::min_element(line.Arguments.begin(), line.Arguments.end()), 1.0);
    EXPECT_EQ(Root(line, 3.0, 1.0), 2.0);
    EXPECT_EQ(*std::min_element(line.Arguments.begin(), line.Arguments.end()), 1.0);
    line.Arguments.clear();
    EXPECT_EQ(Root(line, 1.0, 1.0), 2.0);
    EXPECT_EQ(*std::max_element(line.Arguments.begin(), line.Arguments.end()), 2.0);
}

TEST(FindRootTest, SearchAtTheBoundEndsAfter1500Steps)
{
    test::BoxRecorder boxes;
    Functions positive([](double x, int) { return x + 1.0; });
    EXPECT_EQ(Root(positive, 5.0, 1.0, 100, 0.0, 10.0), 0.0);
    ExpectBox(boxes, BoxIcon::Error, Failure("Root-finding function (part 1)"));
    EXPECT_EQ(positive.Arguments.size(), 4u + 1500u);
    EXPECT_EQ(positive.Arguments.back(), 0.0);

    bool failed = false;
    Functions negative([](double x, int) { return x - 11.0; });
    EXPECT_EQ(FindRoot(negative, 5.0, 1.0, 0.0, 10.0, false, 1e-8, 100, 1, false, failed), 0.0);
    EXPECT_TRUE(failed);
    // A root ends the search in its last step, and comes too late in the next one.
    Functions far([](double x, int) { return x - 1501.0; });
    EXPECT_EQ(Root(far, 0.0, 1.0), 1501.0);
    Functions farther([](double x, int) { return x - 1502.0; });
    EXPECT_EQ(Root(farther, 0.0, 1.0), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Failure("Root-finding function (part 1)"));
    // Success leaves the flag to the caller.
    FindRoot(far, 1500.5, 1.0, -LargestDouble, LargestDouble, false, 1e-8, 100, 1, false, failed);
    EXPECT_TRUE(failed);
}

TEST(FindRootTest, SearchWrapsRoundTheRange)
{
    Functions sine([](double x, int) { return std::sin((x - 357.5) * DegToRad); });
    const double root = Root(sine, 2.0, 1.0, 100, 0.0, 360.0, true);
    EXPECT_NEAR(std::sin((root - 357.5) * DegToRad), 0.0, 1e-10);
    // 2, 1 and then downwards over the end of the range to 357; the secant begins from there.
    EXPECT_EQ(std::vector<double>(sine.Arguments.begin() + 4, sine.Arguments.begin() + 11),
              std::vector<double>({0.0, 359.0, 358.0, 357.0, 357.0, 2.0, sine.Arguments[10]}));
}

TEST(FindRootTest, LimitOfTheSecant)
{
    test::BoxRecorder boxes;
    // On a straight line the second step shows that the first one has arrived.
    Functions line([](double x, int) { return x - 3.2; });
    EXPECT_EQ(Root(line, 0.0, 0.5, 2), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Failure("Root-finding function (part 2)"));
    EXPECT_NEAR(Root(line, 0.0, 0.5, 3), 3.2, 1e-15);

    Functions equal = Sequence({-1.0, 1.0, 5.0, 5.0});
    EXPECT_EQ(Root(equal, 0.0, 0.5), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Failure("Root-finding function (part 2)"));
    EXPECT_EQ(equal.Arguments.size(), 4u);
    bool failed = false;
    Functions again = Sequence({-1.0, 1.0, 5.0, 5.0});
    EXPECT_EQ(FindRoot(again, 0.0, 0.5, -9.0, 9.0, false, 1e-8, 100, 1, false, failed), 0.0);
    EXPECT_TRUE(failed);
}

TEST(FindRootTest, SecantThatRunsAwayIsAFailureNotAFault)
{
    test::BoxRecorder boxes;
    const double ulp = 0x1p-52;
    // Nearly equal values throw the secant to -1e15 and then beyond 1e30.
    Functions away = Sequence({-1.0, 1.0, -1.0, 1.0, 1.0 + ulp, 1.0 + 2.0 * ulp, 1.0 + 3.0 * ulp});
    EXPECT_EQ(Root(away, 0.0, 0.5), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Failure("Root-finding function (part 2)"));
    EXPECT_EQ(away.Arguments.size(), 6u);
    Functions huge = Sequence({-1.0, 1.0, -1.0, 1.0, -1e308, -1e307});
    EXPECT_EQ(Root(huge, -1e20, 1e21), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Failure("Root-finding function (part 2)"));
}

TEST(SolveSystemTest, SolvesTwoAndThreeEquations)
{
    Functions circleAndCurve(
        [](const Vector& x, int n) { return n == 5 ? x[1] * x[1] + x[2] * x[2] - 4.0 : std::exp(x[1]) + x[2] - 1.0; });
    Vector x = VectorOf({1.0, -1.7});
    int first = 5;
    SolveSystem(circleAndCurve, x, 1e-10, 150, first);
    ExpectNear(x, VectorOf({1.004168738474660, -1.729637287025870}), 1e-12);
    EXPECT_EQ(first, 4);

    // Burden and Faires, Numerical Analysis, ch. 10.3, example 1.
    Functions three([](const Vector& v, int n) {
        switch (n) {
        case 1:
            return 3.0 * v[1] - std::cos(v[2] * v[3]) - 0.5;
        case 2:
            return v[1] * v[1] - 81.0 * (v[2] + 0.1) * (v[2] + 0.1) + std::sin(v[3]) + 1.06;
        default:
            return std::exp(-v[1] * v[2]) + 20.0 * v[3] + (10.0 * std::numbers::pi - 3.0) / 3.0;
        }
    });
    Vector v = VectorOf({0.1, 0.1, -0.1});
    first = 1;
    SolveSystem(three, v, 1e-8, 150, first);
    ExpectNear(v, VectorOf({0.5, 0.0, -std::numbers::pi / 6.0}), 1e-8);
}

TEST(SolveSystemTest, CountsRoundsFromAboveTheNumberOfUnknowns)
{
    test::BoxRecorder boxes;
    Functions noRoot([](const Vector& x, int n) { return x[n] * x[n] + n; });
    Vector x = VectorOf({0.7, 0.9});
    int first = 1;
    SolveSystem(noRoot, x, 1e-8, 150, first);
    EXPECT_EQ(boxes.TakeOne(), Failure("Nonlinear system solution"));
    EXPECT_EQ(noRoot.Equations, 2 + 4 + 148 * 2);
    EXPECT_NE(x[1], 0.7); // left at its last value
}

TEST(SolveSystemTest, SingularJacobianIsReportedAndTheRestGoesOn)
{
    test::BoxRecorder boxes;
    Functions twice([](const Vector& x, int) { return x[1] + x[2] - 1.0; });
    Vector x = VectorOf({2.0, 3.0});
    int first = 1;
    SolveSystem(twice, x, 1e-8, 150, first);
    EXPECT_EQ(boxes.TakeOne(), " Error in mathematical routine|Singular matrix. Unable to invert it.");
    EXPECT_NEAR(x[1] + x[2], 1.0, 1e-6);
    // A start that solves the equations exactly leaves nothing to update the Jacobian with.
    Functions solved([](const Vector& v, int n) { return v[n]; });
    Vector zero = VectorOf({0.0, 0.0});
    first = 1;
    EXPECT_EQ(FaultOf([&] { SolveSystem(solved, zero, 1e-8, 150, first); }), FaultDivisionByZero);
    ExpectNear(zero, VectorOf({0.0, 0.0}), 0.0);
}

TEST(IntegrateSimpsonTest, GivesKnownIntegrals)
{
    struct Row {
        std::function<double(double)> f;
        double a, b, value;
    };
    const double pi = std::numbers::pi;
    const Row rows[] = {
        {[](double x) { return std::exp(x); }, 0.0, 1.0, std::numbers::e - 1.0},
        {[](double x) { return 4.0 / (1.0 + x * x); }, 0.0, 1.0, pi},
        {[](double x) { return 4.0 / (1.0 + x * x); }, 1.0, 0.0, -pi},
        {[](double x) { return std::sqrt(x); }, 0.0, 1.0, 2.0 / 3.0},
        {[pi](double x) { return std::sin(x) * std::sin(x); }, -pi, pi, pi},
        // Burden and Faires, Numerical Analysis, ch. 4.6, to the digits given there.
        {[](double x) { return 100.0 / (x * x) * std::sin(10.0 / x); }, 1.0, 3.0, -1.426024756},
    };
    for (const Row& row : rows) {
        Functions fn([&](double x, int) { return row.f(x); });
        EXPECT_NEAR(IntegrateSimpson(fn, row.a, row.b, 1e-8, 100, 7), row.value, 2e-8) << row.value;
    }
    Functions cubic([](double x, int) { return x * x * x - x + 1.0; });
    EXPECT_NEAR(IntegrateSimpson(cubic, 0.0, 2.0, 1e-8, 100, 7), 4.0, 1e-15);
    EXPECT_EQ(cubic.Arguments.size(), 5u); // exact, so no refinement
    EXPECT_EQ(IntegrateSimpson(cubic, 3.0, 3.0, 1e-8, 100, 7), 0.0);
    EXPECT_EQ(cubic.Arguments.size(), 10u);
}

TEST(IntegrateSimpsonTest, TakesTheLeftHalfFirstAndStopsAtItsDepth)
{
    test::BoxRecorder boxes;
    // The halves are worked from the left until the one of the sixth level that holds the step.
    for (const auto& [at, halves] : {std::pair{1.0 / 3.0, 8u}, std::pair{2.0 / 3.0, 9u}}) {
        Functions step([edge = at](double x, int) { return x < edge ? 0.0 : 1.0; });
        EXPECT_EQ(IntegrateSimpson(step, 0.0, 1.0, 1e-12, 6, 7), 0.0);
        EXPECT_EQ(boxes.TakeOne(), Failure("Numerical Integration function"));
        EXPECT_EQ(step.Arguments.size(), 3u + 2u * halves) << at;
    }
    // Deeper than usual, with a right half waiting on each level.
    Functions spike([](double x, int) { return std::exp(-x * 1e15); });
    EXPECT_NEAR(IntegrateSimpson(spike, 0.0, 1.0, 1e-8, 100, 7), 1e-15, 1e-21);
    EXPECT_LT(*std::min_element(spike.Arguments.begin() + 3, spike.Arguments.end()), 0x1p-52);
}

TEST(SolversTest, FunctionsMayIntegrateAndSearchInTheirTurn)
{
    // 1: the sine as the integral of the cosine, 2; 3: the arc sine as a root of 1 less its argument.
    class Nested : public NumberedFunctions
    {
    public:
        double f(double x, int n) override
        {
            if (n == 1) return IntegrateSimpson(*this, 0.0, x, 1e-10, 100, 2) - target_;
            if (n == 2) return std::cos(x);
            target_ = x;
            bool failed = false;
            const double root = FindRoot(*this, 0.0, 0.1, -2.0, 2.0, false, 1e-10, 50, 1, true, failed);
            target_ = 0.0;
            return root;
        }
        double SysEq(const Vector&, int) override { return 0.0; }

    private:
        double target_ = 0.0;
    } nested;
    EXPECT_NEAR(nested.f(0.5, 3), std::numbers::pi / 6.0, 1e-9);
    EXPECT_NEAR(IntegrateSimpson(nested, 0.0, std::numbers::pi, 1e-8, 100, 1), 2.0, 1e-8);
    EXPECT_NEAR(IntegrateSimpson(nested, 0.0, 0.5, 1e-8, 100, 3), 0.5 * std::asin(0.5) + std::sqrt(0.75) - 1.0, 1e-8);
}

} // namespace
} // namespace merov::numeric
