#pragma once

#include "ephemeris/sun_events.h"
#include "numeric/solvers.h"
#include "sailing/rhumb_line.h"

namespace merov::sailing
{

/// The functions that the solvers search, by number, with the fixed data of their problem.
///
/// Whoever searches makes an object of his own, fills the record of his problem and hands the object
/// to the solver; no two searches share a record.
///
/// | n        | record  | argument                     |
/// |----------|---------|------------------------------|
/// | 0        | Sailing | course, degrees              |
/// | 1, 3, 4  | Sailing | distance, miles              |
/// | 2, 14    | Sailing | latitude, degrees            |
/// | 12, 13   | Sun     | date-time, GMT               |
class NautLibFct : public numeric::NumberedFunctions
{
public:
    SailingProblem Sailing;      ///< the rhumb line aimed at
    ephemeris::SunFunctions Sun; ///< the hour angle or altitude of the Sun aimed at

    /// Value of function n at x; numbers that are not in the table give 0.
    double f(double x, int n) override;

    /// Value of equation n of a system at x, bounds 1..2; unknown numbers give 0.
    double SysEq(const numeric::Vector& x, int n) override;
};

} // namespace merov::sailing
