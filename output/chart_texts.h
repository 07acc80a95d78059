#pragma once

#include "fix/sight_session.h"

#include <QString>

#include <array>

namespace merov::output
{

/// A part of the legend, and whether it stands in bold letters.
struct LegendText {
    QString Text;
    bool Bold = false;
};

using ChartLegend = std::array<LegendText, 3>;

/// The line below a printed chart: the time, the fix with its motion, the program.
ChartLegend ChartLegendOf(const fix::SightSession& session);

} // namespace merov::output
