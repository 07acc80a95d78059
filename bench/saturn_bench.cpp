#include "ephemeris/astro_lib.h"
#include "ephemeris/saturn_lib.h"
#include "ephemeris/time_lib.h"

#include <benchmark/benchmark.h>

#include <libnova/libnova.h>

/// Saturn's hour angle and declination by our own series and by libnova's, each for a new instant every
/// time, since libnova keeps its last one.

namespace
{

using namespace merov::ephemeris;

constexpr double HalfHour = 1.0 / 48.0;

void SaturnPlace(benchmark::State& state)
{
    SetDataFolder(MEROV_RUN_DIR);
    double instant = JoinDateTime({2004, 5, 21, 18, 0, 0});
    for (auto _ : state) {
        BodyPosition position;
        ComputeBodyPosition("SATURN", instant, position);
        benchmark::DoNotOptimize(position);
        instant += HalfHour;
    }
}
BENCHMARK(SaturnPlace);

void SaturnPlaceLibnova(benchmark::State& state)
{
    double julianDay = 2453147.25;
    for (auto _ : state) {
        ln_equ_posn place;
        ln_get_saturn_equ_coords(julianDay, &place);
        const double hourAngle = ln_range_degrees(ln_get_apparent_sidereal_time(julianDay) * 15.0 - place.ra);
        benchmark::DoNotOptimize(hourAngle);
        benchmark::DoNotOptimize(place);
        julianDay += HalfHour;
    }
}
BENCHMARK(SaturnPlaceLibnova);

void SaturnHeliocentricPlace(benchmark::State& state)
{
    SetDataFolder(MEROV_RUN_DIR);
    double T = 0.04;
    for (auto _ : state) {
        double latitude, longitude, radius;
        SaturnHeliocentric(T, latitude, longitude, radius);
        benchmark::DoNotOptimize(longitude);
        T += HalfHour / 36525.0;
    }
}
BENCHMARK(SaturnHeliocentricPlace);

void SaturnHeliocentricPlaceLibnova(benchmark::State& state)
{
    double julianDay = 2453147.25;
    for (auto _ : state) {
        ln_helio_posn place;
        ln_get_saturn_helio_coords(julianDay, &place);
        benchmark::DoNotOptimize(place);
        julianDay += HalfHour;
    }
}
BENCHMARK(SaturnHeliocentricPlaceLibnova);

} // namespace
