#include "sailing/composite_sailing.h"

#include "numeric/fault.h"
#include "numeric/message_box.h"
#include "sailing/geodesic_curve.h"
#include "sailing/naut_lib_fct.h"
#include "sailing/rhumb_line.h"
#include "sailing/rhumb_solutions.h"

#include <algorithm>
#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::GeoPosition;
using numeric::NormalizeLongitude;
using numeric::RadToDeg;
using numeric::Sign;

constexpr double NoLatitude = 999.0; // of a waypoint that the geodesic gives no latitude for
constexpr double GreatestCount = 1e5;

/// The track between two positions of an ellipsoid as the solution of a composite track sees it.
class LimitSearch
{
public:
    LimitSearch(const GeoPosition& departure, const GeoPosition& arrival, double limitLat, double r)
        : limitLat_(limitLat)
    {
        const double e = Eccentricity(r);
        functions_.Geodesic = {.DepLat = GeodeticToGeocentric(departure.Latitude, r) * DegToRad,
                               .DepLong = departure.Longitude * DegToRad,
                               .ArrLat = GeodeticToGeocentric(arrival.Latitude, r) * DegToRad,
                               .ArrLong = arrival.Longitude * DegToRad,
                               .Inclination = GeodeticToGeocentric(limitLat, r) * DegToRad,
                               .OneMinusE2 = 1.0 - e * e,
                               .HalfE2 = e * e / 2.0};
    }

    /// The longitude at which the geodesic from `from` touches the limit.
    /// @param side  1 if that lies to the east of it, else -1
    /// @param n     of the function that has the curve through `from`
    double TouchLong(const GeoPosition& from, int side, int n)
    {
        constexpr double Turn = 2.0 * numeric::Pi; // a touching point can lie behind 180 degrees
        // There the curve only touches zero, on one side, and no search finds a change of sign.
        if (SameLatitude(from.Latitude, limitLat_)) return from.Longitude;
        const double ratio = numeric::Quotient(std::tan(from.Latitude * DegToRad), std::tan(limitLat_ * DegToRad));
        const double start = NormalizeLongitude(from.Longitude + side * numeric::ArcCos(ratio) * RadToDeg);
        bool failed = false;
        const double found =
            numeric::FindRoot(functions_, start * DegToRad, 0.002, -Turn, Turn, false, 1e-8, 100, n, true, failed);
        return NormalizeLongitude(found * RadToDeg);
    }

private:
    double limitLat_;
    NautLibFct functions_;
};

/// The waypoints of one arc; `rows` as with JoinWaypoints.
/// @param vertex  of the arc. @param step  degrees of longitude, positive eastward
void BuildWaypoints(std::vector<Waypoint>& rows, const GeoPosition& from, const GeoPosition& to, const Vertex& vertex,
                    double step, const EarthModel& earth)
{
    const std::size_t start = rows.size();
    const int side = EastSign(from.Longitude, to.Longitude);
    rows.push_back({.Lat = from.Latitude, .Long = from.Longitude});
    double x = NormalizeLongitude(std::trunc((side + Sign(from.Longitude)) / 2.0 + from.Longitude));
    if (SameLongitude(x, from.Longitude)) x = NormalizeLongitude(x + step);
    // An arc that stays on its meridian has nothing to cut, though its side is that of a westward one.
    const bool onMeridian = SameLongitude(from.Longitude, to.Longitude);
    while (!onMeridian && EastSign(x, to.Longitude) == side && !SameLongitude(x, to.Longitude)) {
        bool failed = false;
        const double lat = GeodesicLatitudeAt(x, vertex, earth.InverseFlattening, failed);
        rows.push_back({.Lat = failed ? NoLatitude : lat, .Long = x});
        x = NormalizeLongitude(x + step);
    }
    rows.push_back({.Lat = to.Latitude, .Long = to.Longitude});
    JoinWaypoints(rows, start, vertex.VertexLat, earth);
}

/// Degrees of longitude between two meridians, the short way.
double LongBetween(double long1, double long2)
{
    return std::fabs(NormalizeLongitude(long2 - long1));
}

} // namespace

double LimitInHemisphere(double limit, double vertexLat)
{
    return std::fabs(limit) * Sign(vertexLat);
}

VoyageRefusal CheckLimit(double limitLat, double vertexLat, double depLat, double arrLat)
{
    // Not the sign of the limit: the equator as a limit has none, and lies below every end.
    const auto isBeyond = [=](double lat) {
        return Sign(lat) == Sign(vertexLat) && std::fabs(limitLat) < std::fabs(lat);
    };
    const auto refuse = [](const char* message, VoyageRefusal refusal) {
        numeric::ShowWarning(" Error in input data", {message});
        return refusal;
    };
    if (isBeyond(depLat))
        return refuse("The maximum latitude is smaller than the departure latitude.",
                      VoyageRefusal::LimitBelowDeparture);
    if (isBeyond(arrLat))
        return refuse("The maximum latitude is smaller than the arrival latitude.", VoyageRefusal::LimitBelowArrival);
    return VoyageRefusal::None;
}

CompositeTrack SolveComposite(const GeoPosition& departure, const GeoPosition& arrival, double limitLat,
                              const EarthModel& earth)
{
    const auto [r, a] = earth;
    CompositeTrack track{.IsComposite = true, .LimitLat = limitLat};
    LimitSearch search(departure, arrival, limitLat, r);
    const int departureFunction = Sign(departure.Latitude) == Sign(limitLat) ? 9 : 10;
    // One side for both: of opposite meridians neither lies to the east of the other.
    const int side = EastSign(departure.Longitude, arrival.Longitude);
    track.TouchLong1 = search.TouchLong(departure, side, departureFunction);
    track.TouchLong2 = search.TouchLong(arrival, -side, 11);
    track.LegDist[0] = GeodesicDistance(departure.Latitude, departure.Longitude, limitLat, track.TouchLong1, r, a);
    RhumbLineInverse(limitLat, track.TouchLong1, limitLat, track.TouchLong2, track.LimitCourse, track.LegDist[1], r, a);
    track.LegDist[2] = GeodesicDistance(limitLat, track.TouchLong2, arrival.Latitude, arrival.Longitude, r, a);
    return track;
}

std::vector<Waypoint> WaypointTable(const GeoPosition& departure, const GeoPosition& arrival, const Vertex& vertex,
                                    const CompositeTrack& composite, double interval, const EarthModel& earth)
{
    const double span = composite.IsComposite ? LongBetween(departure.Longitude, composite.TouchLong1) +
                                                    LongBetween(composite.TouchLong2, arrival.Longitude)
                                              : LongBetween(departure.Longitude, arrival.Longitude);
    const double count = numeric::Quotient(span, std::fabs(interval));
    if (count > GreatestCount) numeric::RaiseOverflow();
    std::vector<Waypoint> rows(1); // the blank row 0
    rows.reserve(static_cast<std::size_t>(count) + 10);

    // A step of more than half the way round would come out on the side of the other direction.
    const double step = std::min(std::fabs(interval), 180.0) * EastSign(departure.Longitude, arrival.Longitude);
    if (composite.IsComposite) {
        const double cotLimit = Cotangent(GeodeticToGeocentric(composite.LimitLat, earth.InverseFlattening));
        const auto arc = [&](const GeoPosition& from, const GeoPosition& to, double touchLong) {
            BuildWaypoints(rows, from, to,
                           {.VertexLat = composite.LimitLat, .VertexLong = touchLong, .CotVertex = cotLimit}, step,
                           earth);
        };
        arc(departure, {composite.LimitLat, composite.TouchLong1}, composite.TouchLong1);
        rows.back().Course = composite.LimitCourse;
        rows.back().Distance = composite.LegDist[1];
        arc({composite.LimitLat, composite.TouchLong2}, arrival, composite.TouchLong2);
    } else {
        BuildWaypoints(rows, departure, arrival, vertex, step, earth);
    }
    for (Waypoint& row : rows)
        row.ToGo = rows.back().Run - row.Run;
    rows.erase(rows.begin());
    return rows;
}

void JoinWaypoints(std::vector<Waypoint>& rows, std::size_t start, double vertexLat, const EarthModel& earth)
{
    const auto [r, a] = earth;
    const double alongVertex = EastSign(rows[start].Long, rows.back().Long) == 1 ? 90.0 : 270.0;
    for (std::size_t i = start; i < rows.size(); ++i) {
        Waypoint& row = rows[i];
        Waypoint& former = rows[i - 1];
        row.Run = former.Run + former.Distance;
        if (i + 1 == rows.size()) return;
        Waypoint& next = rows[i + 1];
        if (next.Lat == NoLatitude) {
            row.Course = former.Course;
            RhumbLineToLongitude(row.Lat, row.Long, row.Course, next.Long, next.Lat, row.Distance, r, a);
        } else {
            RhumbLineInverse(row.Lat, row.Long, next.Lat, next.Long, row.Course, row.Distance, r, a);
        }
        if (i > start && former.Lat == vertexLat && row.Lat == vertexLat) former.Course = alongVertex;
    }
}

} // namespace merov::sailing
