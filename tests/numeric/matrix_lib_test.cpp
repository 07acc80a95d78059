#include "numeric/matrix_lib.h"

#include "numeric/expect.h"
#include "numeric/matrices.h"

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

const char* const Singular = " Error in mathematical routine|Singular matrix. Unable to invert it.";

TEST(MatrixSums, MayBeWrittenInPlace)
{
    Matrix a = MatrixOf(2, 2, {1, 2, 3, 4});
    const Matrix b = MatrixOf(2, 2, {10, 20, 30, 40});
    Matrix copy(3, 3);
    CopyMatrix(a, copy); // over the size of the first argument
    ExpectNear(copy, MatrixOf(3, 3, {1, 2, 0, 3, 4, 0, 0, 0, 0}), 0.0);
    AddMatrices(a, b, a);
    SubtractMatrices(b, a, a);
    ScaleMatrix(-2.0, a, a);
    ExpectNear(a, MatrixOf(2, 2, {2, 4, 6, 8}), 0.0);

    Vector u = VectorOf({1, -2, 3});
    const Vector v = VectorOf({4, 5, 6});
    SubtractMatrices(u, v, u);
    AddMatrices(u, u, u);
    ScaleMatrix(0.5, u, u);
    ExpectNear(u, VectorOf({-3, -7, -3}), 0.0);
    EXPECT_EQ(DotProduct(u, v), -65.0);
    EXPECT_EQ(VectorNorm(VectorOf({3, 0, -4})), 5.0);
    EXPECT_EQ(FaultOf([] { VectorNorm(VectorOf({1e200})); }), FaultOverflow);
    EXPECT_EQ(FaultOf([] { DotProduct(VectorOf({1e200}), VectorOf({1e200})); }), FaultOverflow);
}

TEST(MatrixProducts, HoldInAllFourForms)
{
    const Matrix a = MatrixOf(2, 3, {1, 2, 3, 4, 5, 6});
    Matrix t(3, 2), square(2, 2), outer(2, 3);
    TransposeMatrix(a, t);
    ExpectNear(t, MatrixOf(3, 2, {1, 4, 2, 5, 3, 6}), 0.0);
    MultiplyMatrices(a, t, square);
    ExpectNear(square, MatrixOf(2, 2, {14, 32, 32, 77}), 0.0);
    Vector row(1, 3), column(1, 2);
    MultiplyMatrices(VectorOf({1, -1}), a, row);
    ExpectNear(row, VectorOf({-3, -3, -3}), 0.0);
    MultiplyMatrices(a, VectorOf({1, 0, -1}), column);
    ExpectNear(column, VectorOf({-2, -2}), 0.0);
    MultiplyMatrices(VectorOf({1, 2}), VectorOf({3, 4, 5}), outer);
    ExpectNear(outer, MatrixOf(2, 3, {3, 4, 5, 6, 8, 10}), 0.0);
    Matrix roots = MatrixOf(1, 3, {-4, 0, 2.25});
    SquareRootElements(roots);
    ExpectNear(roots, MatrixOf(1, 3, {2, 0, 1.5}), 0.0);
    SquareRootElements(row);
    ExpectNear(row, VectorOf({std::sqrt(3.0), std::sqrt(3.0), std::sqrt(3.0)}), 0.0);
}

TEST(MatrixProducts, SizesThatDontFitLeaveTheResultAlone)
{
    test::BoxRecorder boxes;
    const Matrix a = MatrixOf(2, 3, {1, 2, 3, 4, 5, 6});
    Matrix c = MatrixOf(2, 3, {9, 9, 9, 9, 9, 9});
    MultiplyMatrices(a, a, c);
    ExpectNear(c, MatrixOf(2, 3, {9, 9, 9, 9, 9, 9}), 0.0);
    ExpectBox(boxes, BoxIcon::Warning, " Error in mathematical routine|Unable to multiply matrixes. No correct sizes.");
}

/// What InvertMatrix makes of a matrix.
struct Inverted {
    explicit Inverted(Matrix a) : Inverse(a.Rows(), a.Rows()) { InvertMatrix(a, Inverse, Determinant); }
    Matrix Inverse;
    double Determinant = 0.0;
};

TEST(Inverse, IsThatOfTheHilbertMatrix)
{
    Matrix hilbert(4, 4);
    for (int i = 1; i <= 4; ++i)
        for (int j = 1; j <= 4; ++j)
            hilbert(i, j) = 1.0 / (i + j - 1);
    const Inverted result(hilbert);
    ExpectNear(
        result.Inverse,
        MatrixOf(4, 4,
                 {16, -120, 240, -140, -120, 1200, -2700, 1680, 240, -2700, 6480, -4200, -140, 1680, -4200, 2800}),
        1e-8);
    EXPECT_NEAR(result.Determinant * 6048000.0, 1.0, 1e-12);
}

TEST(Inverse, SwapsRowsAndCountsThemInTheSign)
{
    const Inverted swapped(MatrixOf(2, 2, {0, 2, 3, 0})), single(MatrixOf(1, 1, {-4}));
    ExpectNear(swapped.Inverse, MatrixOf(2, 2, {0, 1.0 / 3.0, 0.5, 0}), 1e-16);
    EXPECT_EQ(swapped.Determinant, -6.0);
    EXPECT_EQ(single.Inverse(1, 1), -0.25);
    EXPECT_EQ(single.Determinant, -4.0);
    // Negative elements count by their size: either choice of 1e-9 as pivot would stop with a box.
    EXPECT_EQ(Inverted(MatrixOf(2, 2, {1e-9, 1, -1, 0})).Determinant, 1.0);
    EXPECT_EQ(Inverted(MatrixOf(2, 2, {-1, 0, 1e-9, 1})).Determinant, -1.0);
}

TEST(Inverse, LimitOfThePivotIsAbsolute)
{
    test::BoxRecorder boxes;
    const Inverted tiny(MatrixOf(2, 2, {1e-9, 0, 0, 1}));
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    EXPECT_EQ(Inverted(MatrixOf(2, 2, {2e-8, 0, 0, 1})).Inverse(1, 1), 1.0 / 2e-8);
    // The caller goes on with what has been computed.
    const Inverted dependent(MatrixOf(2, 2, {2, 2, 2, 2}));
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    ExpectNear(dependent.Inverse, MatrixOf(2, 2, {0.5, 0, -1, 1}), 0.0);
    EXPECT_EQ(dependent.Determinant, 2.0);
}

TEST(UpperTriangularInverse, ReplacesTheMatrix)
{
    Matrix r = MatrixOf(4, 4, {2, 1, 3, -2, 0, -4, 5, 1, 0, 0, 8, 6, 0, 0, 0, 0.5});
    const Matrix original = r;
    Matrix product(4, 4), unit(4, 4);
    InvertUpperTriangular(r);
    MultiplyMatrices(original, r, product);
    for (int i = 1; i <= 4; ++i)
        unit(i, i) = 1.0;
    ExpectNear(product, unit, 1e-15);
    EXPECT_EQ(r(1, 2), 0.125);
}

TEST(UpperTriangularInverse, SmallDiagonalStopsHalfDone)
{
    test::BoxRecorder boxes;
    Matrix r = MatrixOf(3, 3, {2, 1, 1, 0, 1e-9, 1, 0, 0, 4});
    InvertUpperTriangular(r);
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    ExpectNear(r, MatrixOf(3, 3, {0.5, 1, 1, 0, 1e-9, 1, 0, 0, 4}), 0.0);
    // A zero is a fault where its own reciprocal comes first, and otherwise the box.
    Matrix zero = MatrixOf(2, 2, {0, 1, 0, 1});
    EXPECT_EQ(FaultOf([&] { InvertUpperTriangular(zero); }), FaultDivisionByZero);
    Matrix lastZero = MatrixOf(2, 2, {1, 1, 0, 0});
    InvertUpperTriangular(lastZero);
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    // The limit also meets the inverted diagonal of the rows above: 1e9 has become 1e-9.
    Matrix large = MatrixOf(2, 2, {1e9, 1, 0, 1});
    InvertUpperTriangular(large);
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    Matrix tinyFirst = MatrixOf(2, 2, {1e-9, 0, 0, 2});
    InvertUpperTriangular(tinyFirst);
    EXPECT_EQ(tinyFirst(2, 2), 0.5);
}

} // namespace
} // namespace merov::numeric
