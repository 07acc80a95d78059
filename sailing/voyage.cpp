#include "sailing/voyage.h"

#include "numeric/math_lib.h"
#include "sailing/geodesic_curve.h"
#include "sailing/rhumb_solutions.h"

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::ErrorTrap;
using numeric::GeoPosition;

/// A voyage while it is planned.
struct Plan {
    Voyage& Result;
    GeoPosition Departure;
    GeoPosition Arrival;
    const EarthModel& Earth;
    ErrorTrap& Trap;
};

/// The limit of latitude and the track that keeps to it. False when the limit is refused.
bool KeepToLimit(const Plan& plan, double maxLat)
{
    Voyage& v = plan.Result;
    const double vertexLat = v.Track.VertexLat;
    const double limitLat = LimitInHemisphere(maxLat, vertexLat);
    v.LimitLat = limitLat;
    v.Refusal = CheckLimit(limitLat, vertexLat, plan.Departure.Latitude, plan.Arrival.Latitude);
    if (v.Refusal != VoyageRefusal::None) return false;
    if (std::fabs(vertexLat) > std::fabs(limitLat))
        plan.Trap.Step([&] { v.Composite = SolveComposite(plan.Departure, plan.Arrival, limitLat, plan.Earth); });
    return true;
}

void MeasureTotal(const Plan& plan)
{
    Voyage& v = plan.Result;
    plan.Trap.Assign(v.Total, [&] {
        const double* leg = v.Composite.LegDist;
        if (v.Composite.IsComposite) return leg[0] + leg[1] + leg[2];
        return GeodesicDistance(plan.Departure.Latitude, plan.Departure.Longitude, plan.Arrival.Latitude,
                                plan.Arrival.Longitude, plan.Earth.InverseFlattening, plan.Earth.SemiMajorAxisNm);
    });
}

void CutIntoWaypoints(const Plan& plan, double interval)
{
    Voyage& v = plan.Result;
    plan.Trap.Step([&] {
        v.Waypoints = WaypointTable(plan.Departure, plan.Arrival, v.Track, v.Composite, interval, plan.Earth);
        v.Sum = v.Waypoints.back().Run;
    });
}

/// The course of the whole geodesic at one of its ends. Where it runs along a meridian it is that of the
/// rhumb line.
void FindCourse(const Plan& plan, double longitude, double& course)
{
    const Voyage& v = plan.Result;
    course = v.RhumbCourse;
    plan.Trap.Step([&] {
        double found = course;
        bool failed = false;
        GeodesicLatitudeAt(longitude, v.Track, plan.Earth.InverseFlattening, plan.Departure.Longitude,
                           plan.Arrival.Longitude, found, failed);
        course = found;
    });
}

} // namespace

Voyage PlanVoyage(const VoyageInput& input, const EarthModel& earth, numeric::LastError& journal)
{
    ErrorTrap trap(SailingTrapLine, journal);
    Voyage v;
    v.Input = input;
    const double r = earth.InverseFlattening; // not one binding of both, which clang 14 keeps out of a lambda
    const double a = earth.SemiMajorAxisNm;
    const Plan plan{v, {input.DepLat, input.DepLong}, {input.ArrLat, input.ArrLong}, earth, trap};

    trap.Step([&] { GreatCircleVertex(input.DepLat, input.DepLong, input.ArrLat, input.ArrLong, v.Track, r, a); });
    const bool vertexOnTrack = v.Track.VertexDistance != -1.0;
    if (input.MaxLat && vertexOnTrack && !KeepToLimit(plan, *input.MaxLat)) return v;
    MeasureTotal(plan);
    if (input.LongInterval) CutIntoWaypoints(plan, *input.LongInterval);
    trap.Step([&] {
        RhumbLineInverse(input.DepLat, input.DepLong, input.ArrLat, input.ArrLong, v.RhumbCourse, v.RhumbDistance, r,
                         a);
    });
    trap.Assign(v.Period, [&] { return GeodesicPeriod(v.Track.VertexLat, r); });
    FindCourse(plan, input.DepLong, v.DepartureCourse);
    FindCourse(plan, input.ArrLong, v.ArrivalCourse);
    return v;
}

} // namespace merov::sailing
