// The Moon's apparent place, ours beside ERFA's: both sum the same 60 and 60 terms.

#include "ephemeris/moon.h"
#include "tests/support/erfa_places.h"

#include <benchmark/benchmark.h>

namespace merov
{
namespace
{

void MoonOurs(benchmark::State& state)
{
    double days = -18000.0;
    double gha = 0.0;
    double dec = 0.0;
    double distance = 0.0;
    for (auto _ : state) {
        days = days < 18000.0 ? days + 0.97 : -18000.0;
        ephemeris::ComputeMoonPosition(days / ERFA_DJC, gha, dec, distance);
        benchmark::DoNotOptimize(gha);
        benchmark::DoNotOptimize(dec);
        benchmark::DoNotOptimize(distance);
    }
}
BENCHMARK(MoonOurs);

void MoonErfa(benchmark::State& state)
{
    double days = -18000.0;
    double distance = 0.0;
    for (auto _ : state) {
        days = days < 18000.0 ? days + 0.97 : -18000.0;
        test::Place place = test::ErfaMoon(days, distance);
        benchmark::DoNotOptimize(place);
        benchmark::DoNotOptimize(distance);
    }
}
BENCHMARK(MoonErfa);

} // namespace
} // namespace merov
