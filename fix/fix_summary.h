#pragma once

#include "fix/sight_session.h"

#include <string>
#include <vector>

namespace merov::fix
{

/// The routine that a fix took: the full one, or why it was the truncated one.
enum class FixRoutine {
    Full,
    UserPreference,  ///< UseFullRoutine is off
    TooFewObs,       ///< fewer than 8 observations
    TooFewGoodObs,   ///< fewer than 8 of them on bearings of their own
    ShortTimeSpread, ///< at most 3 hours between the first and the last
    NoSpeed          ///< a ship at rest: there is no course to correct
};

/// The routine of the finished fix in `session`; of several reasons the first in the order above.
FixRoutine RoutineTaken(const SightSession& session);

/// One panel of the status bar.
struct FixPanel {
    std::string Key;
    std::string Text; ///< UTF-8
};

/// The summary of a finished fix, panel by panel in their order from the left: "TimeTruePos", "MPP",
/// "Proba", "Ellipse", "Circle", "Course", "Speed", "Full", "Iter", "SystErr". The last is empty when
/// no systematic error was looked for.
std::vector<FixPanel> FixPanels(const SightSession& session);

} // namespace merov::fix
