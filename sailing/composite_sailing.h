#pragma once

#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/great_circle.h"

#include <cstddef>
#include <vector>

/// Great circles that a navigator can sail: kept below a limit of latitude, and cut into rhumb lines.
///
/// Latitudes and longitudes are signed degrees, north and east positive; courses degrees clockwise from
/// north; distances nautical miles of the ellipsoid (geographical miles on the Normal Sphere). Faults go
/// to the caller.

namespace merov::sailing
{

/// A track that keeps to a limit of latitude: a geodesic that touches it, a rhumb line along it and a
/// second geodesic. Degrees and miles.
struct CompositeTrack {
    bool IsComposite = false;
    double LimitLat = 0.0; ///< in the hemisphere of the vertex
    double TouchLong1 = 0.0;
    double TouchLong2 = 0.0;
    double LegDist[3] = {0.0, 0.0, 0.0};
    double LimitCourse = 0.0; ///< of the rhumb line on the limit
};

/// One row of the table of waypoints.
struct Waypoint {
    double Lat = 0.0;
    double Long = 0.0;
    double Course = 0.0;   ///< of the rhumb line to the next waypoint
    double Distance = 0.0; ///< of that line, miles
    double Run = 0.0;      ///< from the departure along the rhumb lines
    double ToGo = 0.0;     ///< to the arrival along the rhumb lines
};

/// Why a voyage has no result behind its vertex.
enum class VoyageRefusal { None, LimitBelowDeparture, LimitBelowArrival };

/// A limit of latitude in the hemisphere of the vertex. @param limit  -90..90, its sign is of no meaning
double LimitInHemisphere(double limit, double vertexLat);

/// Refuses a limit that an end of the track in the hemisphere of the vertex lies beyond, with a box.
/// @param limitLat  as LimitInHemisphere gives it
VoyageRefusal CheckLimit(double limitLat, double vertexLat, double depLat, double arrLat);

/// The track that keeps to a limit. The points where its geodesics touch are those where a geodesic with
/// its vertex on the limit passes through the end of the track: searched from the spherical solution
/// (Bowditch, The American Practical Navigator, composite sailing). A search that fails has shown its box
/// and its longitude is 0.
/// @param limitLat  beyond neither end (CheckLimit) and below the vertex of the whole track; not 0
CompositeTrack SolveComposite(const numeric::GeoPosition& departure, const numeric::GeoPosition& arrival,
                              double limitLat, const EarthModel& earth);

/// The waypoints of a track, departure and arrival included: on each arc from the next whole degree of
/// longitude ahead on, the interval apart.
/// @param vertex     of the whole track
/// @param composite  where it is composite, its arcs are cut in the place of the whole track
/// @param interval   degrees of longitude, above 0. 0 raises fault 11, one that gives more than 100000
///                   waypoints fault 6; one of 180 and more cuts once at most
std::vector<Waypoint> WaypointTable(const numeric::GeoPosition& departure, const numeric::GeoPosition& arrival,
                                    const Vertex& vertex, const CompositeTrack& composite, double interval,
                                    const EarthModel& earth);

/// Fills courses, distances and runs of table rows from the rhumb lines between them.
///
/// A latitude of 999 stands for one that was not found: the former course is run on to its longitude.
/// Two neighbours exactly on the latitude of the vertex are joined due east or west.
/// @param rows       the rows of one arc from `start` on, behind those of former arcs; row 0 is blank
/// @param start      at least 1
/// @param vertexLat  of the arc
void JoinWaypoints(std::vector<Waypoint>& rows, std::size_t start, double vertexLat, const EarthModel& earth);

} // namespace merov::sailing
