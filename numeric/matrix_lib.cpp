#include "numeric/matrix_lib.h"

#include "numeric/fault.h"
#include "numeric/message_box.h"

#include <cmath>
#include <utility>

namespace merov::numeric
{
namespace
{

/// A pivot below this counts as zero.
constexpr double SmallestPivot = 1e-08;

void WarnOf(const char* line)
{
    ShowWarning(" Error in mathematical routine", {line});
}

void WarnOfSingularMatrix()
{
    WarnOf("Singular matrix. Unable to invert it.");
}

/// C(i,j) = operation(i, j) over the size of `size`.
template <class Operation>
void ForEach(const Matrix& size, Matrix& C, Operation&& operation)
{
    for (int i = 1; i <= size.Rows(); ++i)
        for (int j = 1; j <= size.Columns(); ++j)
            C(i, j) = operation(i, j);
}

/// c(i) = operation(i) over the bounds of `size`.
template <class Operation>
void ForEach(const Vector& size, Vector& c, Operation&& operation)
{
    for (int i = size.Lower(); i <= size.Upper(); ++i)
        c[i] = operation(i);
}

/// The row of the largest element of column i, looked for from row i down; the first of equal ones.
int PivotRow(const Matrix& A, int i)
{
    int pivot = i;
    for (int k = i + 1; k <= A.Rows(); ++k)
        if (std::fabs(A(k, i)) > std::fabs(A(pivot, i))) pivot = k;
    return pivot;
}

void SwapRows(Matrix& A, int first, int second)
{
    for (int j = 1; j <= A.Columns(); ++j)
        std::swap(A(first, j), A(second, j));
}

void DivideRow(Matrix& A, int i, double divisor)
{
    for (int j = 1; j <= A.Columns(); ++j)
        A(i, j) /= divisor;
}

/// Subtracts `factor` times row i from row k.
void SubtractRow(Matrix& A, int k, double factor, int i)
{
    for (int j = 1; j <= A.Columns(); ++j)
        A(k, j) -= factor * A(i, j);
}

} // namespace

void AddMatrices(const Matrix& A, const Matrix& B, Matrix& C)
{
    ForEach(A, C, [&](int i, int j) { return A(i, j) + B(i, j); });
}

void AddMatrices(const Vector& A, const Vector& B, Vector& C)
{
    ForEach(A, C, [&](int i) { return A[i] + B[i]; });
}

void SubtractMatrices(const Matrix& A, const Matrix& B, Matrix& C)
{
    ForEach(A, C, [&](int i, int j) { return A(i, j) - B(i, j); });
}

void SubtractMatrices(const Vector& A, const Vector& B, Vector& C)
{
    ForEach(A, C, [&](int i) { return A[i] - B[i]; });
}

void CopyMatrix(const Matrix& A, Matrix& B)
{
    ForEach(A, B, [&](int i, int j) { return A(i, j); });
}

void CopyMatrix(const Vector& A, Vector& B)
{
    ForEach(A, B, [&](int i) { return A[i]; });
}

void ScaleMatrix(double s, const Matrix& A, Matrix& B)
{
    ForEach(A, B, [&](int i, int j) { return s * A(i, j); });
}

void ScaleMatrix(double s, const Vector& A, Vector& B)
{
    ForEach(A, B, [&](int i) { return s * A[i]; });
}

void MultiplyMatrices(const Matrix& A, const Matrix& B, Matrix& C)
{
    if (A.Columns() != B.Rows()) {
        WarnOf("Unable to multiply matrixes. No correct sizes.");
        return;
    }
    for (int i = 1; i <= A.Rows(); ++i)
        for (int j = 1; j <= B.Columns(); ++j) {
            double sum = 0.0;
            for (int k = 1; k <= A.Columns(); ++k)
                sum += A(i, k) * B(k, j);
            C(i, j) = sum;
        }
}

void MultiplyMatrices(const Vector& a, const Matrix& B, Vector& c)
{
    for (int j = 1; j <= B.Columns(); ++j) {
        double sum = 0.0;
        for (int k = 1; k <= B.Rows(); ++k)
            sum += a[k] * B(k, j);
        c[j] = sum;
    }
}

void MultiplyMatrices(const Matrix& A, const Vector& b, Vector& c)
{
    for (int i = 1; i <= A.Rows(); ++i) {
        double sum = 0.0;
        for (int k = 1; k <= A.Columns(); ++k)
            sum += A(i, k) * b[k];
        c[i] = sum;
    }
}

void MultiplyMatrices(const Vector& a, const Vector& b, Matrix& C)
{
    for (int i = 1; i <= a.Upper(); ++i)
        for (int j = 1; j <= b.Upper(); ++j)
            C(i, j) = a[i] * b[j];
}

void TransposeMatrix(const Matrix& A, Matrix& T)
{
    for (int i = 1; i <= A.Rows(); ++i)
        for (int j = 1; j <= A.Columns(); ++j)
            T(j, i) = A(i, j);
}

void InvertMatrix(Matrix& A, Matrix& Inv, double& det)
{
    const int n = A.Rows();
    for (int i = 1; i <= n; ++i)
        Inv(i, i) = 1.0;
    det = 1.0;
    for (int i = 1; i <= n; ++i) {
        const int row = PivotRow(A, i);
        if (row != i) {
            SwapRows(A, i, row);
            SwapRows(Inv, i, row);
            det = -det;
        }
        const double pivot = A(i, i);
        if (std::fabs(pivot) < SmallestPivot) {
            WarnOfSingularMatrix();
            return;
        }
        det *= pivot;
        DivideRow(A, i, pivot);
        DivideRow(Inv, i, pivot);
        for (int k = 1; k <= n; ++k) {
            if (k == i) continue;
            const double factor = A(k, i);
            SubtractRow(A, k, factor, i);
            SubtractRow(Inv, k, factor, i);
        }
    }
}

void InvertUpperTriangular(Matrix& R)
{
    const int n = R.Rows();
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j) {
            if (j == i) {
                R(i, i) = Quotient(1.0, R(i, i));
                continue;
            }
            double sum = 0.0;
            for (int k = i; k < j; ++k)
                sum += R(i, k) * R(k, j);
            if (std::fabs(R(j, j)) < SmallestPivot) {
                WarnOfSingularMatrix();
                return;
            }
            R(i, j) = -sum / R(j, j);
        }
}

double VectorNorm(const Vector& v)
{
    double sum = 0.0;
    for (const double element : v)
        sum += element * element;
    return SquareRoot(sum);
}

double DotProduct(const Vector& a, const Vector& b)
{
    double sum = 0.0;
    for (int i = 1; i <= a.Upper(); ++i)
        sum += a[i] * b[i];
    return Finite(sum);
}

void SquareRootElements(Matrix& A)
{
    ForEach(A, A, [&](int i, int j) { return std::sqrt(std::fabs(A(i, j))); });
}

void SquareRootElements(Vector& A)
{
    ForEach(A, A, [&](int i) { return std::sqrt(std::fabs(A[i])); });
}

} // namespace merov::numeric
