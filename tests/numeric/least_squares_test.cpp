#include "numeric/least_squares.h"

#include "numeric/math_lib.h"
#include "numeric/matrix_lib.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace merov::numeric
{
namespace
{

using test::Elements;
using test::ExpectNear;
using test::FaultOf;
using test::MatrixOf;
using test::VectorOf;

/// Ten points near the line 2 + 0.5 t at t = 1..10, the seventh 0.014 off; the others within 0.004.
struct LineWithOutlier {
    explicit LineWithOutlier(double scale = 1.0)
    {
        const double noise[] = {3, -2, 1, -4, 2, 0, 14, -1, 3, -2};
        for (int i = 1; i <= 10; ++i) {
            A(i, 1) = scale;
            A(i, 2) = scale * i;
            b[i] = scale * (2.0 + 0.5 * i + noise[i - 1] / 1000.0);
        }
    }
    void FirstSolution()
    {
        SolveLeastSquares(A, b, x, false, R);
        ComputeResiduals(A, b, x, r);
    }
    void RobustSolution() { SolveRobustLeastSquares(A, b, r, x, weights, true, R); }
    /// One pass of the robust solution with the weights as a full matrix and the general routines.
    void PassWithFullMatrix()
    {
        Matrix W(10, 10), weightedA(10, 2);
        Vector weightedB(1, 10);
        const double scale = MeanAbsDeviation(r);
        for (int i = 1; i <= 10; ++i)
            weights[i] = W(i, i) = std::sqrt(TukeyWeight(r[i] / scale));
        MultiplyMatrices(W, A, weightedA);
        MultiplyMatrices(W, b, weightedB);
        SolveLeastSquares(weightedA, weightedB, x, true, R);
        ComputeResiduals(A, b, x, r);
    }

    Matrix A{10, 2}, R{2, 2};
    Vector b{1, 10}, r{1, 10}, weights{1, 10}, x{1, 2};
};

TEST(LeastSquares, FitsALineAndHandsOutTheFactor)
{
    // The line nearest to (0, 6), (1, 0), (2, 0) is 5 - 3 t (Strang, Linear Algebra, ch. 4.3).
    const Matrix A = MatrixOf(2, {1, 0, 1, 1, 1, 2});
    const Vector b = VectorOf({6, 0, 0});
    Vector x(1, 2), r(1, 3);
    Matrix R = MatrixOf(2, {7, 7, 7, 7});
    SolveLeastSquares(A, b, x, false, R);
    ExpectNear(x, {5, -3}, 1e-13);
    ExpectNear(R, {7, 7, 7, 7});
    ComputeResiduals(A, b, x, r);
    ExpectNear(r, {-1, 2, -1}, 1e-13); // computed minus observed
    SolveLeastSquares(A, b, x, true, R);
    ExpectNear(R, {std::sqrt(3.0), std::sqrt(3.0), 0, std::sqrt(2.0)}, 1e-15);
}

TEST(LeastSquares, FaultLeavesTheSolutionAlone)
{
    Vector x = VectorOf({7, 8});
    Matrix R = MatrixOf(2, {9, 9, 9, 9});
    const auto solve = [&](const Matrix& A) {
        return FaultOf([&] { SolveLeastSquares(A, Vector(1, A.Rows(), 1.0), x, true, R); });
    };
    EXPECT_EQ(solve(MatrixOf(2, {1, 1, 1, 1, 1, 1, 1, 1})), FaultDivisionByZero);    // last diagonal element 0
    EXPECT_EQ(solve(MatrixOf(2, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1})), FaultIllegalCall); // a hair below 0
    EXPECT_EQ(solve(Matrix(3, 2)), FaultDivisionByZero);
    EXPECT_EQ(solve(MatrixOf(1, {1e200})), FaultOverflow);
    ExpectNear(x, {7, 8});
    ExpectNear(R, {9, 9, 9, 9});
}

TEST(RobustLeastSquares, BiweightFallsFromOneToZeroAtItsLimit)
{
    EXPECT_EQ(TukeyWeight(0.0), 1.0);
    EXPECT_EQ(TukeyWeight(4.685), 0.0);
    EXPECT_EQ(TukeyWeight(-4.6851), 0.0);
    EXPECT_GT(TukeyWeight(-4.6849), 0.0);
    EXPECT_NEAR(TukeyWeight(-2.3425), 0.5625, 1e-15);
}

TEST(RobustLeastSquares, OutlierCountsLeast)
{
    LineWithOutlier line;
    line.FirstSolution();
    line.RobustSolution(); // expected: computed with 40 decimal digits
    ExpectNear(line.x, {2.000440377896784, 0.499982988618709}, 1e-13);
    ExpectNear(line.weights,
               {0.97437267147245, 0.96896328900854, 0.99996982556954, 0.89059475087243, 0.99796399570011,
                0.99060759271592, 0.36495740394133, 0.96511835839306, 0.99644311203443, 0.92348241685047},
               1e-11);
    ExpectNear(line.R, {2.927284093199988, 15.616998210672549, 0, 8.635731796191863}, 1e-11);
}

TEST(RobustLeastSquares, FaultLeavesWhatTheCallerNeeds)
{
    Matrix unit = MatrixOf(2, {1, 0, 0, 1}), R(2, 2);
    Vector x = VectorOf({3, 4}), r, weights = VectorOf({0.5, 0.5});
    // Residuals without scatter have no scale; far from 0 beside their scatter they get no weight.
    for (const Vector& residuals : {VectorOf({0, 0}), VectorOf({10, 10.1}), VectorOf({-0.5, -0.5})}) {
        r = residuals;
        const auto solve = [&] { SolveRobustLeastSquares(unit, VectorOf({3, 4}), r, x, weights, true, R); };
        EXPECT_EQ(FaultOf(solve), FaultDivisionByZero);
    }
    ExpectNear(r, {-0.5, -0.5});
    ExpectNear(x, {3, 4});
    ExpectNear(weights, {0.5, 0.5});
}

TEST(RobustLeastSquares, EqualsPassesWithAFullMatrixOfWeights)
{
    test::BoxRecorder boxes;
    // In the second case numbers so large that rounding alone keeps the gradient above its limit.
    for (const auto& [scale, passes] : {std::pair{1.0, 1}, std::pair{1e7, 1001}}) {
        LineWithOutlier line(scale);
        line.b[7] += 0.25 * scale;
        line.FirstSolution();
        LineWithOutlier byHand = line;
        line.RobustSolution();
        for (int pass = 1; pass <= passes; ++pass)
            byHand.PassWithFullMatrix();
        EXPECT_EQ(line.weights[7], 0.0);
        EXPECT_EQ(Elements(line.x), Elements(byHand.x));
        EXPECT_EQ(Elements(line.r), Elements(byHand.r));
        EXPECT_EQ(Elements(line.weights), Elements(byHand.weights));
        EXPECT_EQ(Elements(line.R), Elements(byHand.R));
    }
    test::ExpectBox(boxes, BoxIcon::Error,
                    " Error in mathematical routine|Overdetermined system not solved by weighted least square method.|"
                    "See doc for help.");
}

} // namespace
} // namespace merov::numeric
