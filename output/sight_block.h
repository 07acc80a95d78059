#pragma once

#include "fix/sight_session.h"
#include "platform/rich_text.h"

namespace merov::output
{

/// Puts in the details of one sight as a navigator works it by hand: estimated position, hour angle,
/// declination, altitudes, intercept, azimuth and run. They begin at the beginning of a paragraph and
/// end in an empty one.
/// @param session   its sights as the report sees them (fix::BuildReportView)
/// @param i         1..ObsCount
/// @param distRun   miles from the sight to the time of the true position, negative for a later sight
void PutSightBlock(platform::RichText& text, const fix::SightSession& session, int i, double distRun);

} // namespace merov::output
