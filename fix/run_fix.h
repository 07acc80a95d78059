#pragma once

#include "fix/sight_entry.h"
#include "fix/sight_session.h"
#include "numeric/error_trap.h"

namespace merov::fix
{

/// Computes the true position from the entries as they stand.
///
/// In this order: all required entries must be made; course, speed and position are read anew from
/// their texts, which undoes the correction of a former run; the check boxes go into the session; the
/// grid is read; two sights at least; the rows of the grid are sorted by time, the session's arrays
/// keeping the order in which the rows stood; then the fix.
///
/// @param entry    its rows are sorted; a text that is refused now shows what its rule leaves
/// @param session  takes inputs and results; Probability comes from here
/// @param r, a     inverse flattening and semi-major axis in nautical miles of the ellipsoid
/// @param journal  the program's last error message
/// @return true when a fix was computed, whatever it reported; false after the box of a check
bool RunFix(SightEntry& entry, SightSession& session, double r, double a, numeric::LastError& journal);

} // namespace merov::fix
