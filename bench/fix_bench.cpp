#include "fix/fix_solution.h"
#include "fix/true_position.h"
#include "tests/fix/synthetic_sights.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/Rhumb.hpp>
#include <benchmark/benchmark.h>

// One pass of the full routine with 49 sights, all of it (49 positions along the rhumb line, altitude
// corrections, derivatives, least squares, biweight), beside GeographicLib's rhumb line for the 49 positions
// alone, by its series, problem by problem and along one line. A pass must cost no more.

namespace
{

using namespace merov;

const test::Ship Vessel{.At = {48.0, -12.0}};

/// 49 sights over eight hours with errors of half a minute or so, typed course and speed a little wrong.
fix::SightSession FullSession()
{
    fix::SightSession s = test::TakeSights(Vessel, test::PickStars(Vessel, test::EvenHours(49, -5.0, 3.0)));
    for (int i = 1; i <= s.ObsCount; ++i)
        s.ObsAltitude[i] += (i % 5 - 2) * 0.3 / 60.0;
    s.Course += 4.0;
    s.Speed += 0.8;
    return s;
}

void FixIteration(benchmark::State& state)
{
    fix::SightSession s = FullSession();
    const auto [r, a] = test::Wgs84();
    numeric::LastError journal;
    ComputeTruePosition(s, r, a, journal);
    if (s.NumUnknowns != 4) state.SkipWithError("not the full routine");

    numeric::ErrorTrap trap("benchmark", journal);
    fix::FixSolution solution(s, r, a, trap);
    solution.AllocateEquations();
    s.ObsLat[0] = s.TrueLat;
    s.ObsLong[0] = s.TrueLong;
    s.IterCount = 2;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(solution.Iterate());
}
BENCHMARK(FixIteration);

const GeographicLib::Rhumb& Series()
{
    static const GeographicLib::Rhumb rhumb(GeographicLib::Constants::WGS84_a(), GeographicLib::Constants::WGS84_f(),
                                            false);
    return rhumb;
}

double Metres(const fix::SightSession& s, int i)
{
    return (s.ObsTime[i] - s.TimeTruePos) * 24.0 * s.Speed * 1852.0;
}

void GeographicLibDirect(benchmark::State& state)
{
    const fix::SightSession s = FullSession();
    double lat = 0.0, lon = 0.0;
    for ([[maybe_unused]] auto _ : state)
        for (int i = 1; i <= s.ObsCount; ++i) {
            Series().Direct(Vessel.At.Latitude, Vessel.At.Longitude, s.Course, Metres(s, i), lat, lon);
            benchmark::DoNotOptimize(lat);
            benchmark::DoNotOptimize(lon);
        }
}
BENCHMARK(GeographicLibDirect);

void GeographicLibLine(benchmark::State& state)
{
    const fix::SightSession s = FullSession();
    double lat = 0.0, lon = 0.0;
    for ([[maybe_unused]] auto _ : state) {
        const GeographicLib::RhumbLine line = Series().Line(Vessel.At.Latitude, Vessel.At.Longitude, s.Course);
        for (int i = 1; i <= s.ObsCount; ++i) {
            line.Position(Metres(s, i), lat, lon);
            benchmark::DoNotOptimize(lat);
            benchmark::DoNotOptimize(lon);
        }
    }
}
BENCHMARK(GeographicLibLine);

/// A whole fix, the places of 49 bodies included.
void WholeFix(benchmark::State& state)
{
    const fix::SightSession entered = FullSession();
    const auto [r, a] = test::Wgs84();
    numeric::LastError journal;
    for ([[maybe_unused]] auto _ : state) {
        fix::SightSession s = entered;
        ComputeTruePosition(s, r, a, journal);
        benchmark::DoNotOptimize(s.TrueLat);
    }
}
BENCHMARK(WholeFix);

} // namespace
