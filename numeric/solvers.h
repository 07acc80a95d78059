#pragma once

#include "numeric/arrays.h"

/// Solvers for functions that are picked by number from an object.

namespace merov::numeric
{

/// What a solver works on. A solver never knows what a number means; whoever calls it hands over an
/// object that holds the fixed data of the problem.
class NumberedFunctions
{
public:
    virtual ~NumberedFunctions() = default;

    /// Value of function n at x. Numbers that the object does not know give 0.
    virtual double f(double x, int n) = 0;

    /// Value of equation n of a system at x (bounds 1..number of unknowns). Unknown numbers give 0.
    virtual double SysEq(const Vector& x, int n) = 0;
};

/// x brought into the range lower..upper: clamped, or wrapped when `cyclic`. A magnitude below 1e-11
/// becomes exactly 0. lower >= upper shows a box and gives 0.
double ScaleToRange(double x, double lower, double upper, bool cyclic);

/// A root of fn.f(., n): a marching search for a change of sign, then the secant method.
///
/// @param x0, h          start and step of the search
/// @param lower, upper   range of the search; `cyclic` wraps at its ends, otherwise it clamps
/// @param tolerance      the change of x below which the secant step ends, in the unit of x
/// @param maxIterations  limit of the secant part; 2 allows one step. The search has its own of 1500
/// @param showMessage    true shows a box on failure; false sets `failed` instead
/// @param failed         set to true on a failure with showMessage false, and otherwise left alone
/// @return the root, 0 after a failure
double FindRoot(NumberedFunctions& fn, double x0, double h, double lower, double upper, bool cyclic, double tolerance,
                int maxIterations, int n, bool showMessage, bool& failed);

/// Solves x.Upper() equations by Broyden's method with the inverse Jacobian kept up to date.
///
/// @param x              in: the start; out: the solution, bounds 1..number of unknowns
/// @param tolerance      length of the last step that ends the search
/// @param maxIterations  limit; the count starts above the number of unknowns. Passing it shows a box
///                       and leaves x at its last value
/// @param firstEquation  equation i is fn.SysEq(x, firstEquation - 1 + i); lowered by one on return,
///                       so that a caller who calls again sets it anew
void SolveSystem(NumberedFunctions& fn, Vector& x, double tolerance, int maxIterations, int& firstEquation);

/// The integral of fn.f(., n) from a to b by adaptive Simpson quadrature.
///
/// @param tolerance  absolute error aimed at
/// @param maxLevel   depth of halving; passing it shows a box and gives 0
double IntegrateSimpson(NumberedFunctions& fn, double a, double b, double tolerance, int maxLevel, int n);

} // namespace merov::numeric
