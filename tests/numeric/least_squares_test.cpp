#include "numeric/least_squares.h"

#include "numeric/expect.h"
#include "numeric/math_lib.h"
#include "numeric/matrices.h"
#include "numeric/matrix_lib.h"

#include <gtest/gtest.h>

#include <cmath>

namespace merov::numeric
{
namespace
{

using test::ExpectBox;
using test::ExpectNear;
using test::FaultOf;
using test::MatrixOf;
using test::VectorOf;

/// Ten points near the line 2 + 0.5 t at t = 1..10, the seventh 0.014 off; the others within 0.004.
struct LineWithOutlier {
    LineWithOutlier()
    {
        const double noise[] = {3, -2, 1, -4, 2, 0, 14, -1, 3, -2};
        for (int i = 1; i <= 10; ++i) {
            A(i, 1) = 1.0;
            A(i, 2) = i;
            b[i] = 2.0 + 0.5 * i + noise[i - 1] / 1000.0;
        }
    }
    void FirstSolution()
    {
        SolveLeastSquares(A, b, x, false, R);
        ComputeResiduals(A, b, x, r);
    }
    Matrix A{10, 2}, R{2, 2};
    Vector b{1, 10}, r{1, 10}, weights{1, 10}, x{1, 2};
};

/// One pass of the robust solution with the weights as a full matrix and the general routines.
void PassWithFullMatrix(const Matrix& A, const Vector& b, Vector& r, Vector& x, Vector& weights, Matrix& R)
{
    const int m = A.Rows(), n = A.Columns();
    Matrix W(m, m), weightedA(m, n), transposed(n, m), N(n, n);
    Vector weightedB(1, m), c(1, n), y(1, n);
    const double s = MeanAbsDeviation(r);
    for (int i = 1; i <= m; ++i)
        W(i, i) = TukeyWeight(r[i] / s);
    SquareRootElements(W);
    MultiplyMatrices(W, A, weightedA);
    MultiplyMatrices(W, b, weightedB);
    TransposeMatrix(weightedA, transposed);
    MultiplyMatrices(transposed, weightedA, N);
    MultiplyMatrices(transposed, weightedB, c);
    for (int i = 1; i <= n; ++i)
        for (int j = i; j <= n; ++j) {
            double sum = 0.0;
            for (int k = 1; k < i; ++k)
                sum += R(k, i) * R(k, j);
            R(i, j) = i == j ? std::sqrt(N(i, i) - sum) : (N(i, j) - sum) / R(i, i);
        }
    for (int i = 1; i <= n; ++i) {
        double sum = 0.0;
        for (int k = 1; k < i; ++k)
            sum += y[k] * R(k, i);
        y[i] = (c[i] - sum) / R(i, i);
    }
    for (int i = n; i >= 1; --i) {
        double sum = 0.0;
        for (int k = i + 1; k <= n; ++k)
            sum += R(i, k) * x[k];
        x[i] = (y[i] - sum) / R(i, i);
    }
    ComputeResiduals(A, b, x, r);
    for (int i = 1; i <= m; ++i)
        weights[i] = W(i, i);
}

TEST(LeastSquares, FitsALineAndHandsOutTheFactor)
{
    // The line nearest to (0, 6), (1, 0), (2, 0) is 5 - 3 t (Strang, Linear Algebra, ch. 4.3).
    const Matrix A = MatrixOf(3, 2, {1, 0, 1, 1, 1, 2});
    const Vector b = VectorOf({6, 0, 0});
    Vector x(1, 2), r(1, 3);
    Matrix R = MatrixOf(2, 2, {7, 7, 7, 7});
    SolveLeastSquares(A, b, x, false, R);
    ExpectNear(x, VectorOf({5, -3}), 1e-13);
    ExpectNear(R, MatrixOf(2, 2, {7, 7, 7, 7}), 0.0);
    ComputeResiduals(A, b, x, r);
    ExpectNear(r, VectorOf({-1, 2, -1}), 1e-13); // computed minus observed
    SolveLeastSquares(A, b, x, true, R);
    ExpectNear(R, MatrixOf(2, 2, {std::sqrt(3.0), std::sqrt(3.0), 0, std::sqrt(2.0)}), 1e-15);
}

TEST(LeastSquares, FaultLeavesTheSolutionAlone)
{
    Vector x = VectorOf({7, 8});
    Matrix R = MatrixOf(2, 2, {9, 9, 9, 9});
    const auto solveEqualColumns = [&](int rows) {
        Matrix A(rows, 2);
        for (int i = 1; i <= rows; ++i)
            A(i, 1) = A(i, 2) = 1.0;
        SolveLeastSquares(A, Vector(1, rows, 1.0), x, true, R);
    };
    EXPECT_EQ(FaultOf([&] { solveEqualColumns(4); }), FaultDivisionByZero); // last diagonal element 0
    EXPECT_EQ(FaultOf([&] { solveEqualColumns(5); }), FaultIllegalCall);    // a hair below 0
    EXPECT_EQ(FaultOf([&] { SolveLeastSquares(Matrix(3, 2), Vector(1, 3, 1.0), x, true, R); }), FaultDivisionByZero);
    EXPECT_EQ(FaultOf([&] { SolveLeastSquares(MatrixOf(1, 1, {1e200}), VectorOf({1}), x, true, R); }), FaultOverflow);
    ExpectNear(x, VectorOf({7, 8}), 0.0);
    ExpectNear(R, MatrixOf(2, 2, {9, 9, 9, 9}), 0.0);
}

TEST(Biweight, FallsFromOneToZeroAtItsLimit)
{
    EXPECT_EQ(TukeyWeight(0.0), 1.0);
    EXPECT_EQ(TukeyWeight(4.685), 0.0);
    EXPECT_EQ(TukeyWeight(-4.6851), 0.0);
    EXPECT_EQ(TukeyWeight(1e9), 0.0);
    EXPECT_GT(TukeyWeight(-4.6849), 0.0);
    EXPECT_NEAR(TukeyWeight(-2.3425), 0.5625, 1e-15);
}

TEST(RobustLeastSquares, OutlierCountsLeast)
{
    LineWithOutlier line;
    line.FirstSolution();
    ExpectNear(line.x, VectorOf({2.000440 - 0.000107, 0.500194}), 1e-6);
    SolveRobustLeastSquares(line.A, line.b, line.r, line.x, line.weights, true, line.R);
    // Computed with 40 decimal digits.
    ExpectNear(line.x, VectorOf({2.000440377896784, 0.499982988618709}), 1e-13);
    ExpectNear(line.weights,
               VectorOf({0.97437267147245, 0.96896328900854, 0.99996982556954, 0.89059475087243, 0.99796399570011,
                         0.99060759271592, 0.36495740394133, 0.96511835839306, 0.99644311203443, 0.92348241685047}),
               1e-11);
    ExpectNear(line.R, MatrixOf(2, 2, {2.927284093199988, 15.616998210672549, 0, 8.635731796191863}), 1e-11);
    Vector residuals(1, 10);
    ComputeResiduals(line.A, line.b, line.x, residuals); // unweighted
    ExpectNear(line.r, residuals, 0.0);
    EXPECT_EQ(MinOf(line.weights, -1, -1), line.weights[7]);
}

TEST(RobustLeastSquares, EqualsTheProductWithAFullMatrixOfWeights)
{
    LineWithOutlier line;
    line.A(3, 2) = -0.0;
    line.b[3] = 2.001;
    line.b[7] += 0.25; // weight 0
    line.FirstSolution();
    Vector x(1, 2), r = line.r, weights(1, 10);
    Matrix R(2, 2);
    SolveRobustLeastSquares(line.A, line.b, line.r, line.x, line.weights, true, line.R);
    PassWithFullMatrix(line.A, line.b, r, x, weights, R);
    EXPECT_EQ(weights[7], 0.0);
    ExpectNear(line.x, x, 0.0);
    ExpectNear(line.r, r, 0.0);
    ExpectNear(line.weights, weights, 0.0);
    ExpectNear(line.R, R, 0.0);
}

TEST(RobustLeastSquares, FaultLeavesWhatTheCallerNeeds)
{
    // As many equations as unknowns: no residuals, no scale.
    Matrix R(2, 2);
    Vector x = VectorOf({3, 4}), r = VectorOf({0, 0}), weights = VectorOf({0.5, 0.5});
    const auto solve = [&] {
        SolveRobustLeastSquares(MatrixOf(2, 2, {1, 0, 0, 1}), VectorOf({3, 4}), r, x, weights, true, R);
    };
    EXPECT_EQ(FaultOf(solve), FaultDivisionByZero);
    r = VectorOf({-0.5, -0.5});
    EXPECT_EQ(FaultOf(solve), FaultDivisionByZero);
    ExpectNear(r, VectorOf({-0.5, -0.5}), 0.0);
    // Residuals far from 0 beside their scatter: all weights are 0.
    r = VectorOf({10, 10.1});
    EXPECT_EQ(FaultOf(solve), FaultDivisionByZero);
    ExpectNear(x, VectorOf({3, 4}), 0.0);
    ExpectNear(weights, VectorOf({0.5, 0.5}), 0.0);
}

TEST(RobustLeastSquares, LimitOfPassesKeepsTheLastOne)
{
    // Numbers so large that rounding alone keeps the gradient above its limit.
    test::BoxRecorder boxes;
    LineWithOutlier line;
    ScaleMatrix(1e7, line.A, line.A);
    ScaleMatrix(1e7, line.b, line.b);
    line.FirstSolution();
    Vector x = line.x, r = line.r, weights(1, 10);
    Matrix R(2, 2);
    SolveRobustLeastSquares(line.A, line.b, line.r, line.x, line.weights, true, line.R);
    ExpectBox(boxes, BoxIcon::Error,
              " Error in mathematical routine|Overdetermined system not solved by weighted least square method.|"
              "See doc for help.");
    for (int pass = 1; pass <= 1001; ++pass)
        PassWithFullMatrix(line.A, line.b, r, x, weights, R);
    ExpectNear(line.x, x, 0.0);
    ExpectNear(line.r, r, 0.0);
    ExpectNear(line.weights, weights, 0.0);
    ExpectNear(line.R, R, 0.0);
}

} // namespace
} // namespace merov::numeric
