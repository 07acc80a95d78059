#include "fix/true_position.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "fix/fix_solution.h"
#include "numeric/math_lib.h"
#include "numeric/message_box.h"
#include "sailing/rhumb_line.h"

#include <cmath>

namespace merov::fix
{

using numeric::ErrorTrap;

namespace
{

constexpr short MaxIterations = 100;

/// The estimated position run to the time of the true position, in index 0.
void DeadReckon(SightSession& s, double r, double a, ErrorTrap& trap)
{
    trap.Step([&] {
        sailing::RhumbLineDirect(s.EstLat, s.EstLong, s.Course, s.Speed * 24.0 * (s.TimeTruePos - s.TimeEstPos),
                                 s.ObsLat[0], s.ObsLong[0], r, a);
    });
}

/// The place of each body, which doesn't depend on the ship's and is asked for once.
void PlaceBodies(SightSession& s, ErrorTrap& trap)
{
    for (int i = 1; i <= s.ObsCount; ++i) {
        trap.Step([&] {
            ephemeris::BodyPosition position;
            ephemeris::ComputeBodyPosition(s.ObsBody[i], s.ObsTime[i], position);
            s.ObsGHA[i] = numeric::Finite(position.GHA);
            s.ObsDec[i] = numeric::Finite(position.Declination);
            s.ObsDist[i] = numeric::Finite(position.Distance);
        });
    }
}

/// 4 unknowns where the sights allow course and speed to be corrected, otherwise 2. Without way on there
/// is no course to correct, and its equations would be empty.
void ChooseRoutine(SightSession& s)
{
    const bool full = TimeSpreadHours(s) > 3.0 && s.UseFullRoutine && s.ObsCount > 7 && s.GoodObsCount > 7;
    s.NumUnknowns = full && s.Speed != 0.0 ? 4 : 2;
}

/// Repeats until the corrections are small; the limit leaves the results of the last pass.
void IterateToConvergence(SightSession& s, FixSolution& solution)
{
    s.IterCount = 0;
    bool converged = false;
    while (!converged) {
        ++s.IterCount;
        if (s.IterCount > MaxIterations) {
            numeric::ShowError(" Error in nautical routine",
                               {"The main routine don't converge on a solution. See doc for help."});
            return;
        }
        converged = solution.Iterate();
    }
}

/// The sight that the solution trusts least, the first of equal ones; 0 when it trusts all fully.
int LeastTrustedSight(const SightSession& s)
{
    int least = 0;
    double lowest = 1.0;
    for (int i = 1; i <= s.ObsCount; ++i) {
        if (s.ObsWeight[i] < lowest) {
            lowest = s.ObsWeight[i];
            least = i;
        }
    }
    return least;
}

/// Names the worst sight when the position is uncertain by more than ten minutes of arc.
void CheckForWrongObservation(const SightSession& s)
{
    constexpr double Limit = 0.1666667; // degrees
    if (!(s.StdDev[1] > Limit || s.StdDev[2] > Limit)) return;
    const int worst = LeastTrustedSight(s);
    if (worst == 0) return;
    numeric::ShowInformation(
        "Wrong observation",
        {"The observation of " + s.ObsBody[worst] + " at " + ephemeris::FormatDateTime(s.ObsTime[worst], "hh:mm:ss") +
             " is most probably erroneous.",
         "Please check and correct if necessary.", "In the meantime, the following results are unreliable."});
}

} // namespace

void ComputeTruePosition(SightSession& session, double r, double a, numeric::LastError& journal)
{
    ErrorTrap trap("An error occured in the main subroutine.", journal);
    FixSolution solution(session, r, a, trap);
    session.SystErr = 0.0;

    DeadReckon(session, r, a, trap);
    const numeric::GeoPosition start{session.ObsLat[0], session.ObsLong[0]};
    session.ObsTime[0] = session.TimeTruePos;
    solution.RunToSights();
    PlaceBodies(session, trap);
    solution.ComputeAzimuths();

    session.GoodObsCount = MarkGoodObservations(session.ObsAzimuth, solution.ObsGood);
    ChooseRoutine(session);
    if (session.ObsCount < 2) {
        ShowTooFewObservations();
        return;
    }
    // Two lines of position cross without a word on their quality.
    if (session.ObsCount == 2) session.ObsWeight[1] = session.ObsWeight[2] = 1.0;

    solution.AllocateEquations();
    IterateToConvergence(session, solution);
    // From the ship's places of the last pass, which its correction has not moved.
    solution.ComputeAzimuths();
    solution.ComputeStatistics();

    session.TrueLat = session.ObsLat[0];
    trap.Assign(session.TrueLong, [&] { return numeric::NormalizeLongitude(session.ObsLong[0]); });
    if (session.NumUnknowns == 4) trap.Assign(session.Course, [&] { return numeric::Norm360(session.Course); });
    session.ObsLat[0] = start.Latitude;
    session.ObsLong[0] = start.Longitude;

    trap.Step([&] { CheckForWrongObservation(session); });
}

double TimeSpreadHours(const SightSession& session)
{
    if (session.ObsCount == 0) return 0.0;
    const double days =
        numeric::MaxOf(session.ObsTime, 1, session.ObsCount) - numeric::MinOf(session.ObsTime, 1, session.ObsCount);
    // Sights are timed to the second. Times from files and entries differ exactly; a time that carries
    // a rounding of its own must not let a spread of just 3 hours count as more.
    return std::round(days * 86400.0) / 3600.0;
}

void ShowTooFewObservations()
{
    numeric::ShowError(" Error when computing the true position",
                       {"You must enter at least 2 observations in order", "to get a star fix."});
}

} // namespace merov::fix
