#include "ephemeris/astro_lib.h"
#include "ephemeris/sun_events.h"
#include "ephemeris/time_lib.h"

#include <benchmark/benchmark.h>

#include <libnova/libnova.h>

/// Venus, Mars and Jupiter by their orbits and by libnova's series; the moments of a day, and one rising,
/// passage and setting of the Sun by libnova.

namespace
{

using namespace merov::ephemeris;

constexpr double HalfHour = 1.0 / 48.0;

void PlanetPlace(benchmark::State& state, const char* body)
{
    double instant = JoinDateTime({2004, 5, 21, 18, 0, 0});
    for (auto _ : state) {
        BodyPosition position;
        ComputeBodyPosition(body, instant, position);
        benchmark::DoNotOptimize(position);
        instant += HalfHour;
    }
}

void PlanetPlaceLibnova(benchmark::State& state, void (*body)(double, ln_equ_posn*))
{
    double julianDay = 2453147.25;
    for (auto _ : state) {
        ln_equ_posn place;
        body(julianDay, &place);
        const double hourAngle = ln_range_degrees(ln_get_apparent_sidereal_time(julianDay) * 15.0 - place.ra);
        benchmark::DoNotOptimize(hourAngle);
        benchmark::DoNotOptimize(place);
        julianDay += HalfHour;
    }
}

BENCHMARK_CAPTURE(PlanetPlace, Venus, "VENUS");
BENCHMARK_CAPTURE(PlanetPlaceLibnova, Venus, ln_get_venus_equ_coords);
BENCHMARK_CAPTURE(PlanetPlace, Mars, "MARS");
BENCHMARK_CAPTURE(PlanetPlaceLibnova, Mars, ln_get_mars_equ_coords);
BENCHMARK_CAPTURE(PlanetPlace, Jupiter, "JUPITER");
BENCHMARK_CAPTURE(PlanetPlaceLibnova, Jupiter, ln_get_jupiter_equ_coords);

void SunEventsOfADay(benchmark::State& state)
{
    double day = JoinDateTime({2004, 5, 21, 0, 0, 0});
    for (auto _ : state) {
        SunEventTimes events;
        ComputeSunEvents(44.0, -8.0, day, 3.0, events);
        benchmark::DoNotOptimize(events);
        day += 1.0;
        if (day > 80000.0) day -= 36525.0;
    }
}
BENCHMARK(SunEventsOfADay);

void SunRiseTransitSetLibnova(benchmark::State& state)
{
    ln_lnlat_posn observer{-8.0, 44.0};
    double julianDay = 2453146.5;
    for (auto _ : state) {
        ln_rst_time times;
        ln_get_solar_rst(julianDay, &observer, &times);
        benchmark::DoNotOptimize(times);
        julianDay += 1.0;
    }
}
BENCHMARK(SunRiseTransitSetLibnova);

} // namespace
