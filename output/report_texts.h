#pragma once

#include "fix/sight_session.h"

#include <string>

/// The wording of the numeric report where it depends on how the fix went. All texts are UTF-8; "\n"
/// begins a new line.

namespace merov::output
{

/// A time as the report writes it, "21 May 2004 18:02:15". @param time  date-time, GMT
std::string ReportTime(double time);

/// True where the fix corrected course and speed.
bool TookFullRoutine(const fix::SightSession& session);

/// Whether course and speed were corrected, and if not, why.
std::string RoutineSentence(const fix::SightSession& session);

/// Body, time and weight of each sight, one a line.
std::string WeightList(const fix::SightSession& session);

/// The deviations of course and speed, where they were corrected, and the systematic error.
std::string MotionAndError(const fix::SightSession& session);

/// Which estimated positions the details of the sights start from.
std::string EstimatedPositionsSentence(const fix::SightSession& session);

/// The lines of Arial 12 that the results take on the first page, its margins counted in. What too few
/// good sights are told in more than a line is not counted.
int ReportLines(const fix::SightSession& session);

} // namespace merov::output
