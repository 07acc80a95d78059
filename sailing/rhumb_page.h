#pragma once

#include "numeric/arrays.h"
#include "numeric/error_trap.h"
#include "sailing/ellipsoid.h"

#include <array>
#include <cstddef>
#include <vector>

/// What the pages of the sailings know, and the rhumb line that follows from it.

namespace merov::sailing
{

/// The entries of the pages. Their numbers are those of the flags that tell which of them are filled.
enum class SailingField {
    Lat1, ///< position 1 of the rhumb line
    Long1,
    Lat2, ///< position 2
    Long2,
    DepLat, ///< departure of the great circle
    DepLong,
    ArrLat, ///< arrival
    ArrLong,
    MaxLat,       ///< not to be exceeded by the great circle
    LongInterval, ///< between its waypoints
    Course,       ///< of the rhumb line
    Distance      ///< likewise
};
constexpr std::size_t SailingFieldCount = 12;

/// The values of the entries. Degrees, north and east positive; miles of the ellipsoid in force.
struct SailingData {
    /// By position: 1 and 2 of the rhumb line, 3 departure and 4 arrival of the great circle; 5 holds the
    /// maximum latitude and the interval of longitude.
    numeric::BoundedArray<double> Lat{1, 5};
    numeric::BoundedArray<double> Long{1, 5};
    double RhumbCourse = 0.0;
    double RhumbDistance = 0.0;
    std::array<bool, SailingFieldCount> SailingFilled{}; ///< true for what the user has entered; results aren't
    bool RhumbSolved = false;                            ///< a rhumb line has been computed

    double& Value(SailingField field);
    double Value(SailingField field) const { return const_cast<SailingData*>(this)->Value(field); }
    bool& Filled(SailingField field) { return SailingFilled[static_cast<std::size_t>(field)]; }
    bool Filled(SailingField field) const { return SailingFilled[static_cast<std::size_t>(field)]; }
};

/// What became of a computation.
struct RhumbOutcome {
    bool CanCompute = false;           ///< the entries pose a problem
    std::vector<SailingField> Results; ///< the values that were computed; none where nothing was
};

/// Computes the rhumb line from the four entries that are filled: position 1 and either the course with the
/// distance, a latitude or a longitude, or position 2. Its results go into `data`.
///
/// Four entries must be filled, and no distance without a course; without a full position 1 nothing is
/// computed. Once a line has been computed, another one is only on demand.
/// @param demanded  the user asks for it
/// @param journal   a fault is told and written there; its result stays as it was
RhumbOutcome ComputeRhumbPage(SailingData& data, bool demanded, const EarthModel& earth, numeric::LastError& journal);

} // namespace merov::sailing
