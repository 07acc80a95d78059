#pragma once

#include "fix/sight_session.h"

/// Sights worked backwards: from a ship that stands at a known place to what her sextant shows.

namespace merov::samples
{

/// Gives every sight the altitude that the sextant would show without any error of reading.
///
/// @param s              ObsTime, ObsBody and ObsInstCorr of all sights, the weather and the height of eye; index 0
///                       of ObsTime, ObsLat and ObsLong holds the true position. Out: ObsAltitude, and as by-products
///                       the places of the ship and of the bodies
/// @param course, speed  the ship's true motion, degrees and knots
/// All corrections are undone by trial, to 1e-9 degree.
void TakeAltitudes(fix::SightSession& s, double course, double speed);

} // namespace merov::samples
