#pragma once

#include "fix/sight_entry.h"
#include "fix/sight_session.h"
#include "numeric/error_trap.h"
#include "output/chart_settings.h"

namespace merov::app
{

/// What the main window knows of one astro fix. It lives as long as the window; the surfaces that show
/// and change it are handed a reference.
struct FixInput {
    fix::SightEntry Entry;     ///< what stands in the entries; the widgets only mirror it
    fix::SightSession Session; ///< the values behind the entries, and the results of the last fix
    double StoredTime = 0.0; ///< captured time that waits for the next edit of a time cell; date-time, GMT, 0 for none
    output::ChartSettings Chart; ///< how large the chart is drawn
    numeric::LastError Journal;  ///< the last error message, which both error traps share
};

} // namespace merov::app
