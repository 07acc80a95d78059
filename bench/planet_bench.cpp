#include "bench/by_date.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/saturn_lib.h"
#include "ephemeris/sun_events.h"

#include <libnova/libnova.h>

/// The planets, ours and by libnova's series; the moments of a day, and one rising, passage and setting of the
/// Sun by libnova.

namespace merov::bench
{
namespace
{

constexpr double J2000JulianDay = 2451545.0;

void Planet(benchmark::State& state, const char* body)
{
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    ByDate(state, [body](double days) {
        ephemeris::BodyPosition position;
        ephemeris::ComputeBodyPosition(body, J2000DateTime + days, position);
        return position;
    });
}

void PlanetLibnova(benchmark::State& state, void (*body)(double, ln_equ_posn*))
{
    ByDate(state, [body](double days) {
        const double julianDay = J2000JulianDay + days;
        ln_equ_posn place;
        body(julianDay, &place);
        place.ra = ln_range_degrees(ln_get_apparent_sidereal_time(julianDay) * 15.0 - place.ra); // the hour angle
        return place;
    });
}

BENCHMARK_CAPTURE(Planet, Venus, "VENUS");
BENCHMARK_CAPTURE(PlanetLibnova, Venus, ln_get_venus_equ_coords);
BENCHMARK_CAPTURE(Planet, Mars, "MARS");
BENCHMARK_CAPTURE(PlanetLibnova, Mars, ln_get_mars_equ_coords);
BENCHMARK_CAPTURE(Planet, Jupiter, "JUPITER");
BENCHMARK_CAPTURE(PlanetLibnova, Jupiter, ln_get_jupiter_equ_coords);
BENCHMARK_CAPTURE(Planet, Saturn, "SATURN");
BENCHMARK_CAPTURE(PlanetLibnova, Saturn, ln_get_saturn_equ_coords);

ln_helio_posn SaturnHeliocentric(double days)
{
    ln_helio_posn place;
    ephemeris::SaturnHeliocentric(days / 36525.0, place.B, place.L, place.R);
    return place;
}
BENCHMARK_CAPTURE(ByDate, SaturnHeliocentric, SaturnHeliocentric);

ln_helio_posn SaturnHeliocentricLibnova(double days)
{
    ln_helio_posn place;
    ln_get_saturn_helio_coords(J2000JulianDay + days, &place);
    return place;
}
BENCHMARK_CAPTURE(ByDate, SaturnHeliocentricLibnova, SaturnHeliocentricLibnova);

ephemeris::SunEventTimes SunEventsOfADay(double days)
{
    ephemeris::SunEventTimes events;
    ephemeris::ComputeSunEvents(44.0, -8.0, J2000DateTime + days, 3.0, events);
    return events;
}
BENCHMARK_CAPTURE(ByDate, SunEventsOfADay, SunEventsOfADay);

ln_rst_time SunRiseTransitSetLibnova(double days)
{
    ln_lnlat_posn observer{-8.0, 44.0};
    ln_rst_time times;
    ln_get_solar_rst(J2000JulianDay + days, &observer, &times);
    return times;
}
BENCHMARK_CAPTURE(ByDate, SunRiseTransitSetLibnova, SunRiseTransitSetLibnova);

} // namespace
} // namespace merov::bench
