#pragma once

#include "ephemeris/sun_events.h"
#include "planning/star_list.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// The planning of a star fix in four steps, without its screen.

namespace merov::planning
{

/// The entries of the first step that must be valid, by the index of their flag.
enum class PlanFlag { Date, Latitude, Longitude, HeightOfEye };
constexpr std::size_t PlanFlagCount = 4;

/// The height of eye for which "What is up?" shows the sky, metres.
constexpr double WhatIsUpHeight = 10.0;

/// The state of the star fix wizard and its rules. Boxes go through the box port.
class StarPlan
{
public:
    static constexpr int FirstStep = 1;
    static constexpr int LastStep = 4;

    // Entered in step 1.
    Observer Place;    ///< WizLat, WizLong, WizHeight
    double Date = 0.0; ///< WizDate, date-time, GMT
    std::array<bool, PlanFlagCount> InputFlags{};

    // Chosen in step 2.
    bool Morning = true; ///< optTime(0) "Sunrise", else optTime(1) "Sunset"

    int Step() const { return step_; }              ///< 1 to 4; 4 in "What is up?"
    bool StepDone() const { return stepDone_; }     ///< the table has been reached
    bool IsWhatIsUp() const { return isWhatIsUp_; } ///< the sky of a moment, without steps
    const ephemeris::SunEventTimes& SunEvents() const { return events_; }
    int EventIndex() const { return eventIndex_; } ///< 0 or 7
    double EventTime() const;                      ///< the event that the list is made for, date-time, GMT
    StarList& List() { return list_; }
    const StarList& List() const { return list_; }

    /// Goes to the next step or back, if what the step needs is there; else its box tells why not, and the
    /// step stays.
    ///
    /// Step 2 needs the four flags ("Missing data") and a sunrise on the day ("No rise/set times"), computes
    /// the times of the day and forgets the list; twilights that the Sun doesn't reach bring the boxes of
    /// ComputeSunEvents and have no time. Step 3 needs a time of the chosen event and builds the list for it,
    /// unless there is one; step 4 needs a picked row ("No star selected"). Step 1 needs nothing, and ends
    /// "What is up?".
    /// @param target  the present step plus or minus one; 1 always. Any other does nothing
    /// @return true when the step has become `target`
    bool GoToStep(int target);

    /// "What is up?": the observer's sky at a moment, all bodies, no steps, from a height of eye of
    /// WhatIsUpHeight, whatever `place` says.
    /// @param instant  date-time, GMT
    void WhatIsUp(const Observer& place, double instant);

    /// The texts of the second step: event `index` (0..8) as "d mmm yyyy hh:mm", "-" for one that doesn't come
    /// about; and of the third: "Select the stars you want to observe from 21 Jun 2004 02:36."
    std::string EventText(int index) const;
    std::string ListCaption() const;

    /// The rows of the table for a moment, in the order of the list, unsorted: the picked bodies, also those that
    /// have set, or in "What is up?" all above the horizon.
    std::vector<StarRow> TableAt(double instant) const;

    /// All bodies of the list at a moment, with their marks, also those that have set, or in "What is up?"
    /// all above the horizon.
    std::vector<ListedBody> SkyAt(double instant) const;

private:
    bool ComputeEvents();
    bool MakeList();
    bool IsAnyPicked() const;
    std::vector<ListedBody> BodiesAt(double instant, bool pickedOnly) const;

    int step_ = FirstStep;
    bool stepDone_ = false;
    bool isWhatIsUp_ = false;
    ephemeris::SunEventTimes events_{};
    int eventIndex_ = 0;
    StarList list_;
};

} // namespace merov::planning
