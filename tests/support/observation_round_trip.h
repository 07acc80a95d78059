#pragma once

#include "fix/observation_file.h"
#include "numeric/inout_lib.h"

#include <cmath>
#include <string>
#include <string_view>

/// What must hold for any bytes that come as an observation file; the fuzz target and the replay of its
/// finds share it.

namespace merov::test
{

/// Takes all boxes without a word.
class BoxSwallower : public numeric::BoxReceiver
{
public:
    BoxSwallower() : scope_(*this) {}
    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        Last = box.Lines.empty() ? "" : box.Lines.front();
        return numeric::BoxAnswer::Ok;
    }
    std::string Last; ///< first line of the last box

private:
    numeric::ScopedBoxReceiver scope_;
};

/// Parses, enters and reads a file; an empty text when one of these refuses it, else what a save writes.
inline std::string SavedForm(std::string_view bytes, fix::SightSession& session)
{
    const fix::ObservationReading reading = fix::ParseObservationFile(bytes);
    const auto* records = std::get_if<fix::ObservationRecords>(&reading);
    if (records == nullptr) return {};
    fix::SightEntry entry;
    fix::EraseEntries(entry, session, 38128.75);
    fix::EnterRecords(*records, entry, session);
    if (!fix::ReadObservationGrid(entry, session)) return {};
    return fix::FormatObservationFile(session);
}

/// True when every number of a session that was read lies within the limits of the entries.
inline bool IsWithinLimits(const fix::SightSession& s)
{
    const auto within = [](double value, double low, double high) { return value >= low && value <= high; };
    bool good = within(s.EstLat, -90, 90) && within(s.EstLong, -180, 180) && within(s.OrigCourse, 0, 360) &&
                within(s.OrigSpeed, 0, 999.9) && within(s.HeightOfEye, 0, 99.9) &&
                within(s.DefaultInstCorr, -99.99, 99.99) && within(s.AirTemp, -50, 70) &&
                within(s.WaterTemp, -50, 70) && within(s.Pressure, 940, 1070) && fix::IsPickerTime(s.TimeEstPos) &&
                fix::IsPickerTime(s.TimeTruePos) && s.ObsCount >= 1 && s.ObsCount <= fix::MaxObservations;
    for (int i = 1; good && i <= s.ObsCount; ++i)
        good = within(s.ObsAltitude[i], 0, 90) && within(s.ObsInstCorr[i], -99.99 / 60, 99.99 / 60) &&
               std::isfinite(s.ObsTime[i]);
    return good;
}

/// True when a session that was saved and loaded is the one before, but for what the oldest form may hold beyond the
/// places that a load shows: temperatures count to the whole degree, corrections to a hundredth of a minute.
inline bool IsSameToItsPlaces(fix::SightSession before, const fix::SightSession& loaded)
{
    const auto near = [](double& value, double other, double places) {
        const bool same = std::fabs(value - other) <= 0.501 * places;
        value = other;
        return same;
    };
    bool same = before.ObsCount == loaded.ObsCount && near(before.AirTemp, loaded.AirTemp, 1.0) &&
                near(before.WaterTemp, loaded.WaterTemp, 1.0);
    for (int i = 1; same && i <= before.ObsCount; ++i)
        same = near(before.ObsInstCorr[i], loaded.ObsInstCorr[i], 0.01 / 60.0);
    return same && fix::FormatObservationFile(before) == fix::FormatObservationFile(loaded);
}

/// What is wrong with a session that was read from a file: with its values, or once it is saved and loaded, twice.
inline std::string CheckSession(const fix::SightSession& session, BoxSwallower& boxes)
{
    if (!IsWithinLimits(session)) return "a value is out of its limits";
    boxes.Last.clear();
    const std::string first = fix::FormatObservationFile(session);
    fix::SightSession again, third;
    const std::string second = SavedForm(first, again);
    if (second.empty()) return "what was saved cannot be loaded: " + boxes.Last;
    if (!IsSameToItsPlaces(session, again)) return "the second save differs:\n" + first + second;
    return SavedForm(second, third) == second ? "" : "the third save differs from\n" + second;
}

/// Loads `bytes` and saves, loads and saves again: with a point and with a comma as the separator.
/// @return what is wrong, empty when all holds
inline std::string CheckRoundTrip(std::string_view bytes)
{
    BoxSwallower boxes;
    std::string wrong;
    for (const char* separator : {".", ","}) {
        numeric::SetDecimalSeparator(separator);
        fix::SightSession session;
        if (!SavedForm(bytes, session).empty() && wrong.empty()) wrong = CheckSession(session, boxes);
    }
    numeric::SetDecimalSeparator(".");
    return wrong;
}

} // namespace merov::test
