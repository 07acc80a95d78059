#include "fix/run_fix.h"

#include "fix/true_position.h"

#include <utility>

namespace merov::fix
{
namespace
{

/// Course and speed are left once more, which undoes the correction of a former run. False when one is
/// refused: the fix would then be computed from another value than the one that stands in the field.
bool ReadMotion(SightEntry& entry, SightSession& session)
{
    // The last valid entries, in case that a field has been emptied since.
    session.Course = session.OrigCourse;
    session.Speed = session.OrigSpeed;
    return LeaveField(entry, session, EntryField::Course) != EntryVerdict::Refused &&
           LeaveField(entry, session, EntryField::Speed) != EntryVerdict::Refused;
}

/// Copies a coordinate of the estimated position from its entry. False after the box of a refused one.
bool ReadCoordinate(const SightEntry& entry, EntryField field, double& coordinate)
{
    const EntryResult result = CheckEntry(field, entry.Text(field));
    if (result.Verdict == EntryVerdict::Valid) coordinate = result.Value;
    if (result.Box) numeric::ShowBox(*result.Box);
    return result.Verdict != EntryVerdict::Refused;
}

/// Sizes and clears the arrays of results; the sights stay.
void AllocateResults(SightSession& session)
{
    auto times = std::move(session.ObsTime);
    auto bodies = std::move(session.ObsBody);
    auto altitudes = std::move(session.ObsAltitude);
    auto corrections = std::move(session.ObsInstCorr);
    AllocateObservations(session, session.ObsCount);
    session.ObsTime = std::move(times);
    session.ObsBody = std::move(bodies);
    session.ObsAltitude = std::move(altitudes);
    session.ObsInstCorr = std::move(corrections);
}

} // namespace

bool RunFix(SightEntry& entry, SightSession& session, double r, double a, numeric::LastError& journal)
{
    if (!CheckInputFlags(entry)) return false;
    if (!ReadMotion(entry, session)) return false;
    if (!ReadCoordinate(entry, EntryField::Latitude, session.EstLat)) return false;
    if (!ReadCoordinate(entry, EntryField::Longitude, session.EstLong)) return false;
    session.UseFullRoutine = entry.UseFullRoutine;
    session.FindSystErr = entry.FindSystErr;
    session.OneEstPos = entry.OneEstPos;
    if (!ReadObservationGrid(entry, session)) return false;
    if (session.ObsCount < 2) {
        ShowTooFewObservations();
        return false;
    }
    SortObservationGrid(entry, session.ObsCount);
    AllocateResults(session);
    ComputeTruePosition(session, r, a, journal);
    return true;
}

} // namespace merov::fix
