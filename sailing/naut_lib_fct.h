#pragma once

#include "ephemeris/sun_events.h"
#include "numeric/solvers.h"
#include "sailing/geodesic_curve.h"
#include "sailing/rhumb_line.h"

namespace merov::sailing
{

/// The functions that the solvers search or integrate, by number, with the fixed data of their problem.
///
/// Whoever searches makes an object of his own, fills the record of his problem and hands the object
/// to the solver; no two searches share a record.
///
/// | n        | record   | argument                                             |
/// |----------|----------|------------------------------------------------------|
/// | 0        | Sailing  | course, degrees                                      |
/// | 1, 3, 4  | Sailing  | distance, miles                                      |
/// | 2, 14    | Sailing  | latitude, degrees                                    |
/// | 5        | Geodesic | cotangent of the geocentric latitude of the vertex   |
/// | 6        | Geodesic | cotangent of the geocentric latitude of a point      |
/// | 7, 8     | Geodesic | arc, radians: integrands of the phase rates          |
/// | 9, 10    | Geodesic | longitude of the vertex, radians; at the first point |
/// | 11       | Geodesic | the same, at the second point                        |
/// | 12, 13   | Sun      | date-time, GMT                                       |
///
/// | equation | record   | x[1]                 | x[2]                                      |
/// |----------|----------|----------------------|-------------------------------------------|
/// | 1, 2     | Geodesic | inclination, radians | longitude of the vertex, radians          |
/// | 3, 4     | Geodesic | inclination, radians | longitude of the equator crossing         |
/// | 5, 6     | Geodesic | inclination, radians | longitude of the vertex, two hemispheres  |
class NautLibFct : public numeric::NumberedFunctions
{
public:
    SailingProblem Sailing;      ///< the rhumb line aimed at
    GeodesicProblem Geodesic;    ///< the geodesic aimed at
    ephemeris::SunFunctions Sun; ///< the hour angle or altitude of the Sun aimed at

    /// Value of function n at x; numbers that are not in the table give 0.
    double f(double x, int n) override;

    /// Value of equation n of a system at x, bounds 1..2; unknown numbers give 0.
    double SysEq(const numeric::Vector& x, int n) override;
};

} // namespace merov::sailing
