#include "fix/fix_summary.h"

#include "ephemeris/time_lib.h"
#include "fix/true_position.h"
#include "numeric/inout_lib.h"

namespace merov::fix
{

using numeric::FormatNumber;

namespace
{

std::string RoutineText(FixRoutine routine)
{
    switch (routine) {
    case FixRoutine::Full:
        return "Full";
    case FixRoutine::UserPreference:
        return "Trunc. User preference.";
    case FixRoutine::TooFewObs:
        return "Trunc. Not enough obs.";
    case FixRoutine::TooFewGoodObs:
        return "Trunc. Not enough good obs.";
    case FixRoutine::ShortTimeSpread:
        return "Trunc. Not enough time spread.";
    case FixRoutine::NoSpeed:
        return "Trunc. No speed.";
    }
    return "";
}

/// An arc in degrees as minutes.
std::string Minutes(double degrees)
{
    return FormatNumber(degrees * 60.0, "#0'.00");
}

} // namespace

FixRoutine RoutineTaken(const SightSession& session)
{
    if (session.NumUnknowns == 4) return FixRoutine::Full;
    if (!session.UseFullRoutine) return FixRoutine::UserPreference;
    if (session.ObsCount < 8) return FixRoutine::TooFewObs;
    if (session.GoodObsCount < 8) return FixRoutine::TooFewGoodObs;
    return TimeSpreadHours(session) > 3.0 ? FixRoutine::NoSpeed : FixRoutine::ShortTimeSpread;
}

std::vector<FixPanel> FixPanels(const SightSession& session)
{
    return {
        {"TimeTruePos", ephemeris::FormatDateTime(session.TimeTruePos, "d mmm yyyy hh:mm:ss")},
        {"MPP", numeric::FormatLat(session.TrueLat) + " " + numeric::FormatLong(session.TrueLong)},
        {"Proba", FormatNumber(session.Probability * 100.0, "#0.0") + " %"},
        {"Ellipse", "NS " + Minutes(session.EllipseNS) + " EW " + Minutes(session.EllipseEW)},
        {"Circle", "R " + Minutes(session.CircleRadius)},
        {"Course", FormatNumber(session.Course, "000°.0")},
        {"Speed", FormatNumber(session.Speed, "##0'.0")},
        {"Full", RoutineText(RoutineTaken(session))},
        {"Iter", "Iter " + std::to_string(session.IterCount)},
        {"SystErr", session.FindSystErr ? "Err " + FormatNumber(session.SystErr, "+#0'.0;-#0'.0") : ""},
    };
}

} // namespace merov::fix
