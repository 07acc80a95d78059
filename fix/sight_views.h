#pragma once

#include "fix/sight_session.h"

/// The sights of a finished fix as its two displays see them. Each view rebuilds ObsLat, ObsLong, ObsHo,
/// ObsHc, ObsIntercept and ObsAzimuth from the session, with Course and Speed as they stand after the
/// fix; the last view built is the one that the session holds. r and a are the inverse flattening and
/// the semi-major axis in miles (sailing/ellipsoid.h). Faults go to the caller, who reports them.

namespace merov::fix
{

/// The report's view: intercepts from the estimated position, as a navigator works them by hand.
///
/// Index 0 becomes the estimated position run to TimeTruePos. With OneEstPos every sight is worked from
/// that one position, otherwise each from the position that the ship had reached at its time.
void BuildReportView(SightSession& session, double r, double a);

/// The chart's view: intercepts from the track through the true position. Index 0 stays as it was.
void BuildChartView(SightSession& session, double r, double a);

/// Miles from each sight to the time of the true position at the session's speed, bounds 1..ObsCount;
/// negative for a sight taken after it.
numeric::Vector ObsDistRun(const SightSession& session);

} // namespace merov::fix
