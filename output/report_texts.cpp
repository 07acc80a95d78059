#include "output/report_texts.h"

#include "ephemeris/time_lib.h"
#include "fix/fix_summary.h"
#include "fix/true_position.h"
#include "numeric/inout_lib.h"

#include <cmath>

namespace merov::output
{
namespace
{

using fix::FixRoutine;
using fix::SightSession;
using numeric::FormatNumber;

/// Letters that the names of the bodies fill in the list of weights.
constexpr std::size_t BodyWidth = 13;

/// Why the truncated routine was taken.
std::string TruncationReason(const SightSession& s, FixRoutine routine)
{
    switch (routine) {
    case FixRoutine::UserPreference:
        return "the user preference.";
    case FixRoutine::TooFewObs:
        return "the number of observations = " + std::to_string(s.ObsCount) + ", less than 8.";
    case FixRoutine::TooFewGoodObs:
        return "the number of good observations = " + std::to_string(s.GoodObsCount) +
               ", less than 8.\n"
               "Some observations are either too close to other observations bearings\n"
               "or about in the opposite direction to supply valuable additional\n"
               "information in order to correct the course and speed.";
    case FixRoutine::NoSpeed:
        return "the speed of 0 knot, which leaves no course to correct.";
    case FixRoutine::ShortTimeSpread:
    case FixRoutine::Full:
        break;
    }
    return "an insufficient time spread between the observations: \n" + FormatNumber(fix::TimeSpreadHours(s), "#0.0") +
           " hours less or equal to 3 hours.";
}

std::string PaddedBody(const std::string& body)
{
    const std::size_t letters = numeric::CountCharacters(body);
    return body + std::string(letters < BodyWidth ? BodyWidth - letters : 1, ' ');
}

/// What the sign of the systematic error says of the observer.
const char* ErrorMeaning(double systErr)
{
    if (std::abs(systErr) < 0.05) return "which means that you have no personal error";
    return systErr > 0.0 ? "meaning you always overestimate the sextant altitude of this quantity"
                         : "meaning you always underestimate the sextant altitude of this quantity";
}

} // namespace

std::string ReportTime(double time)
{
    return ephemeris::FormatDateTime(time, "d mmm yyyy hh:mm:ss");
}

bool TookFullRoutine(const SightSession& s)
{
    return fix::RoutineTaken(s) == FixRoutine::Full;
}

std::string RoutineSentence(const SightSession& s)
{
    const std::string course = "course = " + FormatNumber(s.Course, "000°.0");
    const std::string speed = " and the speed = " + FormatNumber(s.Speed, "##0.0") + " knot(s)";
    const FixRoutine routine = fix::RoutineTaken(s);
    if (routine == FixRoutine::Full)
        return "The program had enough good observations to use the full routine and\nto correct the " + course +
               speed + ".";
    return "The program used a truncated routine and didn't try to correct the\n" + course + speed + " due to\n" +
           TruncationReason(s, routine);
}

std::string WeightList(const SightSession& s)
{
    std::string list;
    for (int i = 1; i <= s.ObsCount; ++i) {
        if (i > 1) list += '\n';
        list += PaddedBody(s.ObsBody[i]) + ReportTime(s.ObsTime[i]) + " = " +
                (s.ObsCount > 2 ? FormatNumber(s.ObsWeight[i] * 100.0, "##0.0") + " %" : "100 %");
    }
    return list;
}

std::string MotionAndError(const SightSession& s)
{
    std::string text;
    if (TookFullRoutine(s))
        text = "Course " + FormatNumber(s.Course, "000°.0") + " ± " + FormatNumber(s.StdDev[3], "#0°.0") + "\nSpeed " +
               FormatNumber(s.Speed, "##0.0") + " knot(s) ± " + FormatNumber(s.StdDev[4], "#0.0") + " knot(s).\n";
    if (!s.FindSystErr)
        return text + "No attempt was made at finding the systematic error\naccording to the user preference";
    return text + "The systematic error (uncorrected index error + personal error) is " +
           FormatNumber(s.SystErr, "+#0'.0;-#0'.0") + "\n" + ErrorMeaning(s.SystErr);
}

std::string EstimatedPositionsSentence(const SightSession& s)
{
    if (s.OneEstPos)
        return "using a single estimated position (user preference)\non " + ReportTime(s.TimeTruePos) +
               " (time of the true position) obtained from the\nestimated position given by the user";
    return "using a recalculated position for each observation from the initial\nestimated position given by the user";
}

int ReportLines(const SightSession& s)
{
    const bool full = TookFullRoutine(s);
    const int position = full ? 21 : 20; // heading and positions, with the margins of the page
    const int motion = full ? 3 : 6;
    const int statistics = 6 + s.ObsCount + (full ? 2 : 0) + 2 + 3;
    const int conditions = 9;
    return position + motion + statistics + conditions;
}

} // namespace merov::output
