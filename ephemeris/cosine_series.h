#pragma once

/// Sums of periodic terms A cos(B + C t), several terms at a time.

namespace merov::ephemeris
{

/// Terms are summed in groups of this many, whatever the processor, so that a sum has the same last
/// digit on every machine.
constexpr int CosineLanes = 8;

/// The terms of one sum, by columns: three arrays of Count values each.
struct CosineTerms {
    const double* A; ///< amplitude, any unit
    const double* B; ///< phase, radians
    const double* C; ///< frequency, radians per unit of the time
    int Count;       ///< a multiple of CosineLanes; fill up with terms whose three values are 0
};

/// The sum of A cos(B + C t) over `terms`.
/// Each cosine is within 1e-14 of the exact one for arguments up to 1e5 radians and loses as much
/// beyond them as the argument itself; the cosine of 0 is exactly 1. Takes the widest registers that
/// the processor has; the result does not depend on them.
double SumCosineSeries(const CosineTerms& terms, double t);

/// The same sum by instructions that every processor of the family has.
double SumCosineSeriesPortable(const CosineTerms& terms, double t);

} // namespace merov::ephemeris
