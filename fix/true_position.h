#pragma once

#include "fix/sight_session.h"
#include "numeric/error_trap.h"

namespace merov::fix
{

/// The true position (most probable position) at TimeTruePos, from all sights of a session.
///
/// Iterated robust least squares: the sights are carried to one position along the rhumb line of
/// course and speed, linearised, solved with Tukey's biweight, and the corrections applied until they
/// are small (0.0004 degree of latitude and longitude; with the full routine 0.25 degree of course and
/// 0.025 knot), at most 100 times. The full routine also solves for course and speed; it needs sights
/// spread over more than 3 hours, more than 7 of them, more than 7 on bearings of their own, UseFullRoutine
/// and a ship that makes way.
///
/// @param session  in: the entries, and ObsCount sights in ObsTime, ObsBody, ObsAltitude and ObsInstCorr,
///                 with all arrays sized by AllocateObservations. Out: every result. ObsLat[0] and
///                 ObsLong[0] hold the dead-reckoned position at TimeTruePos, TrueLong is reduced to
///                 -180..180, and after the full routine Course is reduced to 0..360. The truncated
///                 routine leaves Course and Speed alone
/// @param r, a     inverse flattening and semi-major axis in miles (sailing/ellipsoid.h)
/// @param journal  the program's last error message
///
/// A fault ends the step in which it rises, shows the box " ERROR REPORT" unless the same was shown
/// within the last second, leaves the step's target as it was, and the next step runs. Fewer than two
/// sights, no convergence, and a sight that is most probably wrong bring a box each.
/// Method: least squares with the observer's motion as unknown, G. H. Kaplan, Navigation 42(4), 1995;
/// weights: F. Mosteller and J. W. Tukey, Data Analysis and Regression, 1977.
void ComputeTruePosition(SightSession& session, double r, double a, numeric::LastError& journal);

/// Hours between the first and the last sight, ObsTime[1..ObsCount], to the whole second; 0 without
/// sights.
double TimeSpreadHours(const SightSession& session);

/// The box that asks for at least two observations.
void ShowTooFewObservations();

} // namespace merov::fix
