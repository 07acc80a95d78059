#include "numeric/solvers.h"

#include "numeric/math_lib.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace merov::numeric
{
namespace
{

using std::numbers::pi;
using test::ExpectNear;
using test::VectorOf;

const std::string Title = " Error in mathematical routine|", Failed = " failed. See doc for help.";

/// Functions given as lambdas, with the arguments that they were called with.
class Functions : public NumberedFunctions
{
public:
    explicit Functions(std::function<double(double)> one) : one_(std::move(one)) {}
    explicit Functions(std::function<double(const Vector&, int)> system) : system_(std::move(system)) {}

    double f(double x, int n) override
    {
        EXPECT_EQ(n, 4);
        Arguments.push_back(x);
        return one_(x);
    }
    double SysEq(const Vector& x, int n) override { return ++Equations, system_(x, n); }

    std::vector<double> Arguments;
    int Equations = 0;

private:
    std::function<double(double)> one_;
    std::function<double(const Vector&, int)> system_;
};

struct Range {
    double Lower = -LargestDouble, Upper = LargestDouble;
    bool Cyclic = false;
    int MaxIterations = 100;
};

/// What FindRoot finds; nothing when it has failed.
std::optional<double> Root(Functions& fn, double x0, double h, Range range = {}, bool showMessage = false)
{
    bool failed = false;
    const double root =
        FindRoot(fn, x0, h, range.Lower, range.Upper, range.Cyclic, 1e-8, range.MaxIterations, 4, showMessage, failed);
    EXPECT_EQ(failed, root == 0.0 && !showMessage); // never written with a box
    return root == 0.0 ? std::nullopt : std::optional(root);
}

Functions Line(double root)
{
    return Functions([root](double x) { return x - root; });
}

/// A function that gives these values one after the other, whatever its argument.
Functions Sequence(std::vector<double> values)
{
    return Functions([values, next = std::size_t{0}](double) mutable { return values.at(next++); });
}

TEST(ScaleToRangeTest, ClampsOrWraps)
{
    const struct {
        double X, Lower, Upper, Wrapped;
    } rows[] = {{100, -90, 90, -80},         {-100, -90, 90, 80},      {200, -90, 90, 20},
                {-200, -90, 90, -20},        {45, -90, 90, 45},        {370, 0, 360, 10},
                {-10, 0, 360, 350},          {-360, 0, 360, 360},      {360, 0, 360, 0},
                {10, -360, 0, -350},         {-370, -360, 0, -10},     {0, -360, 0, 0},
                {-5, -3, LargestDouble, -2}, {7, -3, LargestDouble, 7}};
    for (const auto& [x, lower, upper, wrapped] : rows)
        EXPECT_NEAR(ScaleToRange(x, lower, upper, true), wrapped, 1e-12) << x << " " << lower;
    EXPECT_EQ(ScaleToRange(9e-12, -90.0, 90.0, true), 0.0);
    EXPECT_EQ(ScaleToRange(100.0, -90.0, 90.0, false), 90.0);
    EXPECT_EQ(ScaleToRange(-100.0, -90.0, 90.0, false), -90.0);
    test::BoxRecorder boxes;
    EXPECT_EQ(ScaleToRange(5.0, 2.0, 2.0, true), 0.0);
    EXPECT_EQ(boxes.TakeOne(), Title + "Unable to scale your number due to an incorrect range. See doc for help.");
}

TEST(FindRootTest, SearchGoesTheWayThatBringsItNearer)
{
    Functions cosine([](double x) { return std::cos(x) - x; });
    for (const double x0 : {-3.0, 5.0})
        for (const double h : {0.1, -0.1})
            EXPECT_NEAR(Root(cosine, x0, h).value(), 0.7390851332151607, 1e-12) << x0 << " " << h;
    // Equal values at both ends of the first step: a negative function turns round, a positive one doesn't.
    Functions valley([](double x) { return x * x - 1.0; }), hill([](double x) { return 1.0 - x * x; });
    EXPECT_NEAR(Root(valley, -0.25, 0.5).value(), -1.0, 1e-12);
    EXPECT_NEAR(Root(hill, 0.25, 0.5).value(), 1.0, 1e-12);
    // A zero counts as positive: downwards it is passed, upwards it ends the search. Each value is asked for
    // afresh: the search, then the secant's pair.
    Functions down = Line(2.0), up = Line(2.0), there = Line(2.0);
    Root(down, 4.0, 1.0);
    EXPECT_EQ(down.Arguments, std::vector<double>({4, 3, 3, 4, 2, 1, 1, 4, 2}));
    Root(up, 1.0, 1.0);
    EXPECT_EQ(up.Arguments, std::vector<double>({1, 2, 1, 2}));
    Root(there, 2.0, 0.5);
    EXPECT_EQ(there.Arguments, std::vector<double>({2, 1.5, 1.5, 2}));
    // Round the end of the range.
    Functions sine([](double x) { return std::sin((x - 357.5) * DegToRad); });
    Root(sine, 2.0, 1.0, {0.0, 360.0, true});
    sine.Arguments.resize(10);
    EXPECT_EQ(sine.Arguments, std::vector<double>({2, 1, 1, 2, 0, 359, 358, 357, 357, 2}));
}

TEST(FindRootTest, SearchEndsAfter1500Steps)
{
    test::BoxRecorder boxes;
    Functions positive = Line(-1.0), negative = Line(11.0), far = Line(1501.0), farther = Line(1502.0);
    EXPECT_FALSE(Root(positive, 5.0, 1.0, {0.0, 10.0}, true)); // at its bound
    test::ExpectBox(boxes, BoxIcon::Error, Title + "Root-finding function (part 1)" + Failed);
    EXPECT_EQ(positive.Arguments.size(), 4u + 1500u);
    EXPECT_EQ(positive.Arguments.back(), 0.0);
    EXPECT_FALSE(Root(negative, 5.0, 1.0, {0.0, 10.0}));
    // A root ends the search in its last step, and comes too late in the next one.
    EXPECT_EQ(Root(far, 0.0, 1.0), 1501.0);
    EXPECT_FALSE(Root(farther, 0.0, 1.0));
}

TEST(FindRootTest, SecantEndsAtItsLimitAndWhenItRunsAway)
{
    test::BoxRecorder boxes;
    // On a straight line the second step shows that the first one has arrived.
    Functions line = Line(3.2), equal = Sequence({-1.0, 1.0, 5.0, 5.0});
    EXPECT_FALSE(Root(line, 0.0, 0.5, {.MaxIterations = 2}, true));
    EXPECT_EQ(boxes.TakeOne(), Title + "Root-finding function (part 2)" + Failed);
    EXPECT_NEAR(Root(line, 0.0, 0.5, {.MaxIterations = 3}).value(), 3.2, 1e-15);
    EXPECT_FALSE(Root(equal, 0.0, 0.5));
    // Nearly equal values throw the secant to -1e15 and then beyond 1e30: a failure, no fault.
    const double ulp = 0x1p-52;
    Functions away = Sequence({-1.0, 1.0, -1.0, 1.0, 1.0 + ulp, 1.0 + 2.0 * ulp, 1.0 + 3.0 * ulp});
    EXPECT_FALSE(Root(away, 0.0, 0.5));
    EXPECT_EQ(away.Arguments.size(), 6u);
    Functions huge = Sequence({-1.0, 1.0, -1.0, 1.0, -1e308, -1e307});
    EXPECT_FALSE(Root(huge, -1e20, 1e21));
}

TEST(SolveSystemTest, SolvesThreeEquations)
{
    // Burden and Faires, Numerical Analysis, ch. 10.3, example 1.
    Functions three([](const Vector& v, int n) {
        return n == 3   ? 3.0 * v[1] - std::cos(v[2] * v[3]) - 0.5
               : n == 4 ? v[1] * v[1] - 81.0 * (v[2] + 0.1) * (v[2] + 0.1) + std::sin(v[3]) + 1.06
                        : std::exp(-v[1] * v[2]) + 20.0 * v[3] + (10.0 * pi - 3.0) / 3.0;
    });
    Vector v = VectorOf({0.1, 0.1, -0.1});
    int first = 3;
    SolveSystem(three, v, 1e-8, 150, first);
    ExpectNear(v, {0.5, 0.0, -pi / 6.0}, 1e-8);
    EXPECT_EQ(first, 2);
}

TEST(SolveSystemTest, ReportsItsLimitASingularJacobianAndAnExactStart)
{
    test::BoxRecorder boxes;
    Functions noRoot([](const Vector& x, int n) { return x[n] * x[n] + n; });
    Vector x = VectorOf({0.7, 0.9}), y = VectorOf({2.0, 3.0}), zero = VectorOf({0.0, 0.0});
    int first = 1;
    SolveSystem(noRoot, x, 1e-8, 150, first);
    EXPECT_EQ(boxes.TakeOne(), Title + "Nonlinear system solution" + Failed);
    EXPECT_EQ(noRoot.Equations, 2 + 4 + 148 * 2); // rounds count from above the number of unknowns
    EXPECT_NE(x[1], 0.7);                         // left at its last value

    Functions twice([](const Vector& v, int) { return v[1] + v[2] - 1.0; });
    SolveSystem(twice, y, 1e-8, 150, first);
    EXPECT_EQ(boxes.TakeOne(), Title + "Singular matrix. Unable to invert it.");
    EXPECT_NEAR(y[1] + y[2], 1.0, 1e-6);
    // A start that solves the equations exactly leaves nothing to update the Jacobian with.
    Functions solved([](const Vector& v, int n) { return v[n]; });
    EXPECT_EQ(test::FaultOf([&] { SolveSystem(solved, zero, 1e-8, 150, first = 1); }), FaultDivisionByZero);
    ExpectNear(zero, {0.0, 0.0});
}

TEST(IntegrateSimpsonTest, GivesKnownIntegrals)
{
    Functions root([](double x) { return std::sqrt(x); }), cubic([](double x) { return x * x * x - x + 1.0; });
    EXPECT_NEAR(IntegrateSimpson(root, 1.0, 0.0, 1e-8, 100, 4), -2.0 / 3.0, 2e-8);
    EXPECT_NEAR(IntegrateSimpson(cubic, 0.0, 2.0, 1e-8, 100, 4), 4.0, 1e-15);
    EXPECT_EQ(IntegrateSimpson(cubic, 3.0, 3.0, 1e-8, 100, 4), 0.0);
    EXPECT_EQ(cubic.Arguments.size(), 10u); // no refinement
}

TEST(IntegrateSimpsonTest, TakesTheLeftHalfFirstAndStopsAtItsDepth)
{
    test::BoxRecorder boxes;
    // The halves are worked from the left until the one of the sixth level that holds the step.
    for (const auto& [at, halves] : {std::pair{1.0 / 3.0, 8u}, std::pair{2.0 / 3.0, 9u}}) {
        Functions step([edge = at](double x) { return x < edge ? 0.0 : 1.0; });
        EXPECT_EQ(IntegrateSimpson(step, 0.0, 1.0, 1e-12, 6, 4), 0.0);
        EXPECT_EQ(boxes.TakeOne(), Title + "Numerical Integration function" + Failed);
        EXPECT_EQ(step.Arguments.size(), 3u + 2u * halves) << at;
    }
    // Deeper than usual, with a right half waiting on each level.
    Functions spike([](double x) { return std::exp(-x * 1e15); });
    EXPECT_NEAR(IntegrateSimpson(spike, 0.0, 1.0, 1e-8, 100, 4), 1e-15, 1e-21);
}

TEST(SolversTest, FunctionsMayIntegrateInTheirTurn)
{
    Functions cosine([](double x) { return std::cos(x); });
    Functions sine([&](double x) { return IntegrateSimpson(cosine, 0.0, x, 1e-10, 100, 4) - 0.5; });
    EXPECT_NEAR(Root(sine, 0.0, 0.1).value(), pi / 6.0, 1e-9);
}

} // namespace
} // namespace merov::numeric
