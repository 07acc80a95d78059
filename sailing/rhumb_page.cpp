#include "sailing/rhumb_page.h"

#include "sailing/rhumb_line.h"
#include "sailing/rhumb_solutions.h"
#include "sailing/voyage.h"

#include <algorithm>

namespace merov::sailing
{
namespace
{

using enum SailingField;

constexpr SailingField RhumbFields[] = {Lat1, Long1, Lat2, Long2, Course, Distance};
constexpr auto WantedCount = 4;

bool CanCompute(const SailingData& data)
{
    const auto count = std::count_if(std::begin(RhumbFields), std::end(RhumbFields),
                                     [&data](SailingField field) { return data.Filled(field); });
    return count == WantedCount && (data.Filled(Course) || !data.Filled(Distance));
}

/// Solves the problem that the filled entries pose. @return what was computed
std::vector<SailingField> Solve(SailingData& data, const EarthModel& earth, numeric::ErrorTrap& trap)
{
    const double r = earth.InverseFlattening;
    const double a = earth.SemiMajorAxisNm;
    const double lat1 = data.Lat[1];
    const double long1 = data.Long[1];
    if (!data.Filled(Course)) {
        trap.Step([&] {
            RhumbLineInverse(lat1, long1, data.Lat[2], data.Long[2], data.RhumbCourse, data.RhumbDistance, r, a);
        });
        return {Course, Distance};
    }
    const double course = data.RhumbCourse;
    if (data.Filled(Distance)) {
        trap.Step([&] { RhumbLineDirect(lat1, long1, course, data.RhumbDistance, data.Lat[2], data.Long[2], r, a); });
        return {Lat2, Long2};
    }
    if (data.Filled(Lat2)) {
        trap.Step(
            [&] { RhumbLineToLatitude(lat1, long1, course, data.Lat[2], data.Long[2], data.RhumbDistance, r, a); });
        return {Long2, Distance};
    }
    trap.Step([&] { RhumbLineToLongitude(lat1, long1, course, data.Long[2], data.Lat[2], data.RhumbDistance, r, a); });
    return {Lat2, Distance};
}

} // namespace

double& SailingData::Value(SailingField field)
{
    if (field == Course) return RhumbCourse;
    if (field == Distance) return RhumbDistance;
    const int index = static_cast<int>(field);
    return (index % 2 == 0 ? Lat : Long)[index / 2 + 1];
}

RhumbOutcome ComputeRhumbPage(SailingData& data, bool demanded, const EarthModel& earth, numeric::LastError& journal)
{
    RhumbOutcome outcome{CanCompute(data), {}};
    const bool due = outcome.CanCompute && (demanded || !data.RhumbSolved);
    if (!due || !data.Filled(Lat1) || !data.Filled(Long1)) return outcome;
    numeric::ErrorTrap trap(SailingTrapLine, journal);
    outcome.Results = Solve(data, earth, trap);
    data.RhumbSolved = true;
    return outcome;
}

} // namespace merov::sailing
