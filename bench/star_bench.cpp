// A star's apparent place, ours beside the same steps by ERFA.

#include "ephemeris/astro_lib.h"
#include "ephemeris/earth_frame.h"
#include "ephemeris/stars.h"
#include "ephemeris/sun.h"
#include "tests/support/erfa_places.h"

#include <benchmark/benchmark.h>

namespace merov
{
namespace
{

/// Instants a little less than a day apart, so that no call repeats the one before.
class Instants
{
public:
    double Next() { return days_ = days_ < 18000.0 ? days_ + 0.97 : -18000.0; }

private:
    double days_ = -18000.0;
};

const test::ErfaStarData Sirius{(6.0 + 45.0 / 60.0 + 8.9 / 3600.0) * 15.0 * ERFA_DD2R,
                                -(16.0 + 42.0 / 60.0 + 58.0 / 3600.0) * ERFA_DD2R, -0.545 * ERFA_DAS2R,
                                -1.211 * ERFA_DAS2R};

void StarOurs(benchmark::State& state)
{
    Instants instants;
    double gha = 0.0;
    double dec = 0.0;
    for (auto _ : state) {
        ephemeris::ComputeStarPosition("SIRIUS", instants.Next() / ERFA_DJC, gha, dec);
        benchmark::DoNotOptimize(gha);
        benchmark::DoNotOptimize(dec);
    }
}
BENCHMARK(StarOurs);

void StarThroughTheDoor(benchmark::State& state)
{
    Instants instants;
    ephemeris::BodyPosition position;
    for (auto _ : state) {
        ephemeris::ComputeBodyPosition("SIRIUS", 36526.5 + instants.Next(), position);
        benchmark::DoNotOptimize(position);
    }
}
BENCHMARK(StarThroughTheDoor);

void StarErfa(benchmark::State& state)
{
    Instants instants;
    for (auto _ : state) {
        const double days = instants.Next();
        double velocity[3];
        test::ErfaEarthVelocity(days, velocity);
        test::Place place = test::ErfaStar(Sirius, days, velocity);
        benchmark::DoNotOptimize(place);
    }
}
BENCHMARK(StarErfa);

void NutationOurs(benchmark::State& state)
{
    Instants instants;
    double psi = 0.0;
    double eps = 0.0;
    for (auto _ : state) {
        ephemeris::ComputeNutation(instants.Next() / ERFA_DJC, psi, eps);
        benchmark::DoNotOptimize(psi);
        benchmark::DoNotOptimize(eps);
    }
}
BENCHMARK(NutationOurs);

void NutationErfa(benchmark::State& state)
{
    Instants instants;
    double psi = 0.0;
    double eps = 0.0;
    for (auto _ : state) {
        eraNut80(ERFA_DJ00, instants.Next(), &psi, &eps);
        benchmark::DoNotOptimize(psi);
        benchmark::DoNotOptimize(eps);
    }
}
BENCHMARK(NutationErfa);

void SunOurs(benchmark::State& state)
{
    Instants instants;
    double gha = 0.0;
    double dec = 0.0;
    double distance = 0.0;
    for (auto _ : state) {
        ephemeris::ComputeSunPosition(instants.Next() / ERFA_DJC, gha, dec, distance);
        benchmark::DoNotOptimize(gha);
        benchmark::DoNotOptimize(dec);
    }
}
BENCHMARK(SunOurs);

} // namespace
} // namespace merov
