#include "planning/star_plan.h"

#include "ephemeris/time_lib.h"
#include "numeric/message_box.h"

#include <algorithm>

namespace merov::planning
{
namespace
{

// The events at which the observations of a morning and of an evening start.
constexpr int MorningStart = 0;
constexpr int EveningStart = 7;

constexpr double NoEvent = 0.0; // what the search leaves of a moment that doesn't come about

std::string TimeText(double instant)
{
    return instant == NoEvent ? "-" : ephemeris::FormatDateTime(instant, "d mmm yyyy hh:mm");
}

} // namespace

double StarPlan::EventTime() const
{
    return events_[static_cast<std::size_t>(eventIndex_)];
}

bool StarPlan::GoToStep(int target)
{
    const bool isNeighbour = target == step_ + 1 || target == step_ - 1;
    if (target != FirstStep && (!isNeighbour || isWhatIsUp_)) return false;
    switch (target) {
    case 1:
        stepDone_ = false;
        isWhatIsUp_ = false;
        break;
    case 2:
        if (!ComputeEvents()) return false;
        break;
    case 3:
        if (!MakeList()) return false;
        break;
    case LastStep:
        if (!IsAnyPicked()) return false;
        stepDone_ = true;
        break;
    default:
        return false;
    }
    step_ = target;
    return true;
}

bool StarPlan::ComputeEvents()
{
    if (!std::ranges::all_of(InputFlags, [](bool flag) { return flag; })) {
        numeric::ShowWarning("Missing data",
                             {"Some data are missing.", "Please check that the whole input form is completed."});
        return false;
    }
    if (!ephemeris::ComputeSunEvents(Place.Lat, Place.Long, Date, Place.Height, events_)) {
        numeric::ShowWarning("No rise/set times", {"At your latitude, the Sun is now circumpolar.",
                                                   "There is neither sunrise, nor sunset."});
        return false;
    }
    list_.Clear();
    return true;
}

bool StarPlan::MakeList()
{
    if (list_.ListLast() == 0) {
        const int index = Morning ? MorningStart : EveningStart;
        if (events_[static_cast<std::size_t>(index)] == NoEvent) {
            numeric::ShowWarning("No rise/set times", {"On this day the Sun doesn't reach the altitude at which these "
                                                       "observations start.",
                                                       "Please choose the other time, or another date."});
            return false;
        }
        eventIndex_ = index;
        list_.Build(Place, EventTime());
    }
    stepDone_ = false;
    return true;
}

bool StarPlan::IsAnyPicked() const
{
    if (std::ranges::any_of(list_.Rows(), &ListedBody::Picked)) return true;
    numeric::ShowWarning("No star selected", {"There is no star selected.", "Please select at least one star."});
    return false;
}

void StarPlan::WhatIsUp(const Observer& place, double instant)
{
    Place = {place.Lat, place.Long, WhatIsUpHeight};
    Date = instant;
    isWhatIsUp_ = true;
    step_ = LastStep;
    stepDone_ = true;
}

std::string StarPlan::EventText(int index) const
{
    return TimeText(events_[static_cast<std::size_t>(index)]);
}

std::string StarPlan::ListCaption() const
{
    return "Select the stars you want to observe from " + TimeText(EventTime()) + ".";
}

std::vector<StarRow> StarPlan::TableAt(double instant) const
{
    std::vector<StarRow> rows;
    for (const ListedBody& body : BodiesAt(instant, true))
        rows.push_back(TableRow(body));
    return rows;
}

std::vector<ListedBody> StarPlan::SkyAt(double instant) const
{
    return BodiesAt(instant, false);
}

std::vector<ListedBody> StarPlan::BodiesAt(double instant, bool pickedOnly) const
{
    if (isWhatIsUp_) return VisibleBodies(Place, instant);
    std::vector<ListedBody> bodies;
    for (const ListedBody& row : list_.Rows()) {
        if (pickedOnly && !row.Picked) continue;
        bodies.push_back(ObserveBody(row.Body, Place, instant));
        bodies.back().Picked = row.Picked;
    }
    return bodies;
}

} // namespace merov::planning
