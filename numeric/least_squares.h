#pragma once

#include "numeric/arrays.h"

/// Overdetermined linear systems A x = b, plain and robust.
///
/// A has m rows (one for each observation) and n columns, m not below n; b, r and the weights run
/// over 1..m, x over 1..n, R is n by n and upper triangular. The caller allocates them all. The unit
/// of x is that of b over that of A. Elements that aren't finite raise fault 5 or 6.

namespace merov::numeric
{

/// The least-squares solution by normal equations and a Cholesky factor (Golub and Van Loan, Matrix
/// Computations, ch. 5.3).
///
/// @param x           gets the solution
/// @param wantFactor  true copies the factor R of A'A = R'R to `R`, otherwise `R` isn't touched
/// Fault 5 when A'A isn't positive definite, fault 11 when a diagonal element of its factor is 0;
/// x and R then stay as they were.
void SolveLeastSquares(const Matrix& A, const Vector& b, Vector& x, bool wantFactor, Matrix& R);

/// Residuals, computed minus observed: r(i) is the sum over j of A(i,j) x(j), minus b(i).
void ComputeResiduals(const Matrix& A, const Vector& b, const Vector& x, Vector& r);

/// Tukey's biweight of a residual of u scale units: (1 - (u/4.685)^2)^2, and 0 for |u| above 4.685
/// (Beaton and Tukey, Technometrics 16, 1974).
double TukeyWeight(double u);

/// The robust solution by least squares with Tukey's biweight, reweighted until the gradient of the
/// weighted sum of squares is shorter than 0.001. The scale is the mean absolute deviation of the
/// residuals from their mean, without a further factor.
///
/// @param r           in: residuals of a first solution; out: residuals of x in the unweighted system
/// @param x           gets the solution
/// @param weights     get the square roots of the last biweights, 0..1
/// @param wantFactor  true copies the factor of the last weighted system to `R`
/// More than 1000 passes show the box " Error in mathematical routine"; the values of the last pass
/// stand. Residuals that are all equal are fault 11 and change nothing. Faults as in
/// SolveLeastSquares, for instance when all weights are 0, leave x as it was before that pass.
/// `weights` are written at the end only.
void SolveRobustLeastSquares(const Matrix& A, const Vector& b, Vector& r, Vector& x, Vector& weights, bool wantFactor,
                             Matrix& R);

} // namespace merov::numeric
