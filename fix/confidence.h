#pragma once

#include "numeric/arrays.h"

/// How far a position can be trusted: the error ellipse and the circle of equivalent probability.

namespace merov::fix
{

/// The squared scale of the error ellipse: the quantile of the chi-square distribution with two degrees
/// of freedom at probability `p`, from a table of eight probabilities (0.3935, 0.5, 0.6826, 0.8647, 0.95,
/// 0.9544, 0.99, 0.999), compared exactly. -1.0 for any other.
double EllipseFactor(double p);

/// Radius of the circle about the true position that holds it with probability `p`.
///
/// @param p               0.5, 0.95, 0.99 or 0.999; any other gives -1.0
/// @param sigma1, sigma2  standard deviations along two directions at right angles, in either order, 0
///                        or more; both 0 are a fault
/// @return in the unit of the two
/// Table by H. L. Harter, Journal of the American Statistical Association 55, 723, 1960.
double EquivalentCircleRadius(double p, double sigma1, double sigma2);

/// Linear interpolation both ways in a table.
///
/// @param table         one row per row value, one column per column value
/// @param rowValues     ascending, 1..rows
/// @param columnValues  ascending, 1..columns
/// @param x, y          row and column value looked for, within the ranges of the two; outside is fault 5
double InterpolateTable(const numeric::Matrix& table, const numeric::Vector& rowValues,
                        const numeric::Vector& columnValues, double x, double y);

} // namespace merov::fix
