#include "bench/by_date.h"
#include "ephemeris/moon.h"
#include "tests/support/erfa_places.h"

/// The Moon's apparent place, ours beside ERFA's: both sum the same 60 and 60 terms.

namespace merov::bench
{
namespace
{

test::Place MoonOurs(double days)
{
    test::Place place;
    double distance;
    ephemeris::ComputeMoonPosition(days / ERFA_DJC, place.GHA, place.Dec, distance);
    return place;
}
BENCHMARK_CAPTURE(ByDate, MoonOurs, MoonOurs);

test::Place MoonErfa(double days)
{
    double distance;
    return test::ErfaMoon(days, distance);
}
BENCHMARK_CAPTURE(ByDate, MoonErfa, MoonErfa);

} // namespace
} // namespace merov::bench
