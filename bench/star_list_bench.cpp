#include "bench/by_date.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/magnitudes.h"
#include "planning/star_list.h"

#include <algorithm>

/// A tick of the star fix table with 30 bodies (places, magnitudes, altitudes, azimuths, texts, the sort),
/// beside the places and magnitudes of these bodies alone. A tick may cost three times as much at most.

namespace merov::bench
{
namespace
{

constexpr planning::Observer Ship{48.0, -12.0, 10.0};

/// The Moon, the planets and stars.
const std::vector<std::string_view>& ThirtyBodies()
{
    static const std::vector<std::string_view> bodies = [] {
        ephemeris::SetDataFolder(MEROV_RUN_DIR);
        std::vector<std::string_view> chosen{"MOONLOW", "MOONUPP", "VENUS", "MARS", "JUPITER", "SATURN"};
        for (const std::string_view code : ephemeris::BodyCodes())
            if (chosen.size() < 30 && !code.starts_with("SUN") && std::ranges::count(chosen, code) == 0)
                chosen.push_back(code);
        return chosen;
    }();
    return bodies;
}

double PlacesAndMagnitudes(double days)
{
    double sum = 0.0;
    ephemeris::BodyPosition position;
    for (const std::string_view code : ThirtyBodies()) {
        ephemeris::ComputeBodyPosition(code, J2000DateTime + days, position);
        sum += position.GHA + ephemeris::ComputeMagnitude(code, J2000DateTime + days);
    }
    return sum;
}
BENCHMARK_CAPTURE(ByDate, TickPlacesAndMagnitudes, PlacesAndMagnitudes)->Unit(benchmark::kMicrosecond);

std::vector<planning::StarRow> WholeTick(double days)
{
    std::vector<planning::StarRow> rows;
    for (const std::string_view code : ThirtyBodies())
        rows.push_back(planning::TableRow(planning::ObserveBody(code, Ship, J2000DateTime + days)));
    planning::SortByAzimuth(rows);
    return rows;
}
BENCHMARK_CAPTURE(ByDate, TickOfTheTable, WholeTick)->Unit(benchmark::kMicrosecond);

/// The list of the wizard's third step: 64 bodies, sorted and filtered.
int WholeList(double days)
{
    planning::StarList list;
    list.Build(Ship, J2000DateTime + days);
    return list.ListLast();
}
BENCHMARK_CAPTURE(ByDate, StarListBuilt, WholeList)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace merov::bench
