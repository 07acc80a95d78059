#include "numeric/matrix_lib.h"

#include "support/expect.h"

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
    Matrix a = MatrixOf(2, {1, 2, 3, 4}), copy(3, 3);
    const Matrix b = MatrixOf(2, {10, 20, 30, 40});
    CopyMatrix(a, copy); // over the size of the first argument
    ExpectNear(copy, {1, 2, 0, 3, 4, 0, 0, 0, 0});
    AddMatrices(a, b, a);
    SubtractMatrices(b, a, a);
    ScaleMatrix(-2.0, a, a);
    ExpectNear(a, {2, 4, 6, 8});

    Vector u = VectorOf({1, -2, 3});
    const Vector v = VectorOf({4, 5, 6});
    SubtractMatrices(u, v, u);
    AddMatrices(u, u, u);
    ScaleMatrix(0.5, u, u);
    ExpectNear(u, {-3, -7, -3});
    EXPECT_EQ(DotProduct(u, v), -65.0);
    EXPECT_EQ(VectorNorm(VectorOf({3, 0, -4})), 5.0);
    EXPECT_EQ(FaultOf([] { VectorNorm(VectorOf({1e200})); }), FaultOverflow);
    EXPECT_EQ(FaultOf([] { DotProduct(VectorOf({1e200}), VectorOf({1e200})); }), FaultOverflow);
}

TEST(MatrixProducts, HoldInAllFourForms)
{
    const Matrix a = MatrixOf(3, {1, 2, 3, 4, 5, 6});
    Matrix t(3, 2), square(2, 2), outer(2, 3), roots = MatrixOf(3, {-4, 0, 2.25});
    Vector row(1, 3), column(1, 2);
    TransposeMatrix(a, t);
    MultiplyMatrices(a, t, square);
    ExpectNear(square, {14, 32, 32, 77});
    MultiplyMatrices(VectorOf({1, -1}), a, row);
    ExpectNear(row, {-3, -3, -3});
    MultiplyMatrices(a, VectorOf({1, 0, -1}), column);
    ExpectNear(column, {-2, -2});
    MultiplyMatrices(VectorOf({1, 2}), VectorOf({3, 4, 5}), outer);
    ExpectNear(outer, {3, 4, 5, 6, 8, 10});
    SquareRootElements(roots);
    ExpectNear(roots, {2, 0, 1.5});
    SquareRootElements(row);
    ExpectNear(row, std::vector<double>(3, std::sqrt(3.0)));

    // Sizes that don't fit leave the result alone.
    test::BoxRecorder boxes;
    MultiplyMatrices(a, a, outer);
    ExpectBox(boxes, BoxIcon::Warning, " Error in mathematical routine|Unable to multiply matrixes. No correct sizes.");
    ExpectNear(outer, {3, 4, 5, 6, 8, 10});
}

/// What InvertMatrix makes of a matrix.
struct Inverted {
    explicit Inverted(Matrix a) : Inverse(a.Rows(), a.Rows()) { InvertMatrix(a, Inverse, Determinant); }
    Matrix Inverse;
    double Determinant = 0.0;
};

TEST(Inverse, SwapsRowsAndCountsThemInTheSign)
{
    // The inverse of the Hilbert matrix has whole numbers.
    const Inverted hilbert(MatrixOf(3, {1, 1.0 / 2, 1.0 / 3, 1.0 / 2, 1.0 / 3, 1.0 / 4, 1.0 / 3, 1.0 / 4, 1.0 / 5}));
    ExpectNear(hilbert.Inverse, {9, -36, 30, -36, 192, -180, 30, -180, 180}, 1e-11);
    EXPECT_NEAR(hilbert.Determinant * 2160.0, 1.0, 1e-12);
    const Inverted swapped(MatrixOf(2, {0, 2, 3, 0})), single(MatrixOf(1, {-4}));
    ExpectNear(swapped.Inverse, {0, 1.0 / 3.0, 0.5, 0}, 1e-16);
    EXPECT_EQ(swapped.Determinant, -6.0);
    EXPECT_EQ(single.Inverse(1, 1), -0.25);
    EXPECT_EQ(single.Determinant, -4.0);
    // Negative elements count by their size: either choice of 1e-9 as pivot would stop with a box.
    EXPECT_EQ(Inverted(MatrixOf(2, {1e-9, 1, -1, 0})).Determinant, 1.0);
    EXPECT_EQ(Inverted(MatrixOf(2, {-1, 0, 1e-9, 1})).Determinant, -1.0);
}

TEST(Inverse, LimitOfThePivotIsAbsolute)
{
    test::BoxRecorder boxes;
    const Inverted tiny(MatrixOf(2, {1e-9, 0, 0, 1}));
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    EXPECT_EQ(Inverted(MatrixOf(2, {2e-8, 0, 0, 1})).Inverse(1, 1), 1.0 / 2e-8);
    // The caller goes on with what has been computed. The first of equal elements is the pivot.
    const Inverted dependent(MatrixOf(2, {2, 2, 2, 2}));
    EXPECT_EQ(boxes.TakeOne(), Singular);
    ExpectNear(dependent.Inverse, {0.5, 0, -1, 1});
    EXPECT_EQ(dependent.Determinant, 2.0);
}

TEST(UpperTriangularInverse, ReplacesTheMatrixOrStopsHalfDone)
{
    Matrix r = MatrixOf(4, {2, 1, 3, -2, 0, -4, 5, 1, 0, 0, 8, 6, 0, 0, 0, 0.5}), product(4, 4);
    const Matrix original = r;
    InvertUpperTriangular(r);
    MultiplyMatrices(original, r, product);
    ExpectNear(product, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 1e-15);

    test::BoxRecorder boxes;
    Matrix small = MatrixOf(3, {2, 1, 1, 0, 1e-9, 1, 0, 0, 4});
    InvertUpperTriangular(small);
    ExpectBox(boxes, BoxIcon::Warning, Singular);
    ExpectNear(small, {0.5, 1, 1, 0, 1e-9, 1, 0, 0, 4});
    // A zero is a fault where its own reciprocal comes first, and otherwise the box.
    Matrix zero = MatrixOf(2, {0, 1, 0, 1}), lastZero = MatrixOf(2, {1, 1, 0, 0});
    EXPECT_EQ(FaultOf([&] { InvertUpperTriangular(zero); }), FaultDivisionByZero);
    InvertUpperTriangular(lastZero);
    EXPECT_EQ(boxes.TakeOne(), Singular);
    // The limit also meets the inverted diagonal of the rows above: 1e9 has become 1e-9.
    Matrix large = MatrixOf(2, {1e9, 1, 0, 1}), tinyFirst = MatrixOf(2, {1e-9, 0, 0, 2});
    InvertUpperTriangular(large);
    EXPECT_EQ(boxes.TakeOne(), Singular);
    InvertUpperTriangular(tinyFirst);
    EXPECT_EQ(tinyFirst(2, 2), 0.5);
}

} // namespace
} // namespace merov::numeric
