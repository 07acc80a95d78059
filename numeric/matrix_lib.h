#pragma once

#include "numeric/arrays.h"

/// Dense linear algebra on small real matrices and vectors, all counted from 1.
///
/// Sizes are read from the arguments, and the caller allocates every result. Only AddMatrices,
/// SubtractMatrices, CopyMatrix and ScaleMatrix may write into one of their own arguments. Sizes
/// that don't fit are a programming error (assertion) unless a routine says otherwise.

namespace merov::numeric
{

/// C = A + B, element by element over the size of A.
void AddMatrices(const Matrix& A, const Matrix& B, Matrix& C);
void AddMatrices(const Vector& A, const Vector& B, Vector& C);

/// C = A - B, element by element over the size of A.
void SubtractMatrices(const Matrix& A, const Matrix& B, Matrix& C);
void SubtractMatrices(const Vector& A, const Vector& B, Vector& C);

/// B = A over the size of A; B may be larger.
void CopyMatrix(const Matrix& A, Matrix& B);
void CopyMatrix(const Vector& A, Vector& B);

/// B = s A.
void ScaleMatrix(double s, const Matrix& A, Matrix& B);
void ScaleMatrix(double s, const Vector& A, Vector& B);

/// C = A B: C(i,j) is the sum over k of A(i,k) B(k,j). Columns of A unequal to rows of B show the
/// box " Error in mathematical routine", "Unable to multiply matrixes. No correct sizes.", and C
/// isn't written.
void MultiplyMatrices(const Matrix& A, const Matrix& B, Matrix& C);

/// Row vector times matrix: c(j) is the sum over k of a(k) B(k,j).
void MultiplyMatrices(const Vector& a, const Matrix& B, Vector& c);

/// Matrix times column vector: c(i) is the sum over k of A(i,k) b(k).
void MultiplyMatrices(const Matrix& A, const Vector& b, Vector& c);

/// Outer product: C(i,j) = a(i) b(j).
void MultiplyMatrices(const Vector& a, const Vector& b, Matrix& C);

/// T = the transpose of A.
void TransposeMatrix(const Matrix& A, Matrix& T);

/// Inverse and determinant by Gauss-Jordan elimination with partial pivoting (Press et al.,
/// Numerical Recipes, ch. 2.1).
///
/// @param A    square; destroyed
/// @param Inv  of the size of A, zeroed by the caller; gets the inverse
/// @param det  gets the determinant
/// A pivot below 1e-08, whatever the size of the other elements, shows the box
/// " Error in mathematical routine", "Singular matrix. Unable to invert it."; Inv and det are then
/// partly computed.
void InvertMatrix(Matrix& A, Matrix& Inv, double& det);

/// Replaces the upper triangular matrix R by its inverse, row by row.
///
/// A zero on the diagonal is fault 11. Another diagonal element below 1e-08 shows the box of
/// InvertMatrix and leaves R half done; the element of the row in hand isn't held to that limit, and
/// those of the rows above are held to it in their inverted form.
void InvertUpperTriangular(Matrix& R);

/// Square root of the sum of squares of all elements. Fault 6 if it is too large.
double VectorNorm(const Vector& v);

/// Sum of a(i) b(i), i from 1 to the upper bound of a. Fault 6 if it is too large.
double DotProduct(const Vector& a, const Vector& b);

/// Replaces each element by the square root of its absolute value.
void SquareRootElements(Matrix& A);
void SquareRootElements(Vector& A);

} // namespace merov::numeric
