#pragma once

#include "numeric/error_trap.h"
#include "sailing/composite_sailing.h"
#include "sailing/ellipsoid.h"
#include "sailing/great_circle.h"

#include <optional>
#include <vector>

namespace merov::sailing
{

/// What a voyage along a great circle is planned from. Degrees, north and east positive.
struct VoyageInput {
    double DepLat = 0.0;
    double DepLong = 0.0;
    double ArrLat = 0.0;
    double ArrLong = 0.0;
    std::optional<double> MaxLat = std::nullopt;       ///< not to be exceeded; its sign is of no meaning
    std::optional<double> LongInterval = std::nullopt; ///< between two waypoints, degrees above 0
};

/// First line of the error trap's box for all sailings.
constexpr const char* SailingTrapLine = "An error occured in the RL/GC/ETA subroutine.";

/// A planned voyage. After a refusal only Input, Refusal, Track and LimitLat mean something. What a fault
/// left without a value is 0, or empty.
struct Voyage {
    VoyageInput Input;
    VoyageRefusal Refusal = VoyageRefusal::None;
    Vertex Track;                   ///< the vertex of the whole track
    std::optional<double> LimitLat; ///< the limit in the hemisphere of the vertex; only one with the vertex on
                                    ///< the track is looked at
    CompositeTrack Composite;       ///< its values only with IsComposite
    double Total = 0.0;             ///< theoretical distance, miles: of the geodesic, or of the composite track
    double RhumbCourse = 0.0;       ///< the single rhumb line from departure to arrival
    double RhumbDistance = 0.0;
    std::vector<Waypoint> Waypoints; ///< empty without an interval, and where a fault ended their computation
    double Sum = 0.0;                ///< of the rhumb lines between the waypoints; 0 without waypoints
    double Period = 0.0;             ///< of the geodesic, degrees of longitude
    double DepartureCourse = 0.0;    ///< of the geodesic from departure to arrival, also of a composite track
    double ArrivalCourse = 0.0;
};

/// Plans a voyage under the error trap: a fault ends its step with the box " ERROR REPORT", and the next
/// one runs. A refusal has shown its box, and what would follow isn't computed.
/// @param input    departure and arrival must be two positions; the interval as WaypointTable takes it
/// @param journal  of the program's traps
Voyage PlanVoyage(const VoyageInput& input, const EarthModel& earth, numeric::LastError& journal);

} // namespace merov::sailing
