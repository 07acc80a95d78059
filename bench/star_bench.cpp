#include "bench/by_date.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/earth_frame.h"
#include "ephemeris/stars.h"
#include "ephemeris/sun.h"
#include "tests/support/erfa_places.h"

/// A star's apparent place, ours beside the same steps by ERFA; nutation, ours and ERFA's; the Sun.

namespace merov::bench
{
namespace
{

test::Place StarOurs(double days)
{
    test::Place place;
    ephemeris::ComputeStarPosition("SIRIUS", days / ERFA_DJC, place.GHA, place.Dec);
    return place;
}
BENCHMARK_CAPTURE(ByDate, StarOurs, StarOurs);

ephemeris::BodyPosition StarThroughTheDoor(double days)
{
    ephemeris::BodyPosition position;
    ephemeris::ComputeBodyPosition("SIRIUS", J2000DateTime + days, position);
    return position;
}
BENCHMARK_CAPTURE(ByDate, StarThroughTheDoor, StarThroughTheDoor);

/// The Earth's velocity from the Sun's mean longitude and two terms of the equation of the centre, good
/// to a hundredth of itself: the cheapest that a navigator's aberration allows.
void EarthVelocity(double days, double velocity[3])
{
    const double t = days / ERFA_DJC, anomaly = eraFalp03(t);
    const double longitude =
        eraFaf03(t) + eraFaom03(t) - eraFad03(t) + 0.03342 * std::sin(anomaly) + 0.00035 * std::sin(2.0 * anomaly);
    const double obliquity = 84381.448 * ERFA_DAS2R, k = 20.49552 * ERFA_DAS2R;
    velocity[0] = k * std::sin(longitude);
    velocity[1] = -k * std::cos(longitude) * std::cos(obliquity);
    velocity[2] = -k * std::cos(longitude) * std::sin(obliquity);
}

test::Place StarErfa(double days)
{
    constexpr double Hours = 6.0 + 45.0 / 60.0 + 8.9 / 3600.0, South = 16.0 + 42.0 / 60.0 + 58.0 / 3600.0;
    double velocity[3];
    EarthVelocity(days, velocity);
    return test::ErfaStar({Hours * 15.0 * ERFA_DD2R, -South * ERFA_DD2R, -0.545 * ERFA_DAS2R, -1.211 * ERFA_DAS2R},
                          days, velocity);
}
BENCHMARK_CAPTURE(ByDate, StarErfa, StarErfa);

double NutationOurs(double days)
{
    double psi, eps;
    ephemeris::ComputeNutation(days / ERFA_DJC, psi, eps);
    return psi + eps;
}
BENCHMARK_CAPTURE(ByDate, NutationOurs, NutationOurs);

double NutationErfa(double days)
{
    double psi, eps;
    eraNut80(ERFA_DJ00, days, &psi, &eps);
    return psi + eps;
}
BENCHMARK_CAPTURE(ByDate, NutationErfa, NutationErfa);

test::Place SunOurs(double days)
{
    test::Place place;
    double distance;
    ephemeris::ComputeSunPosition(days / ERFA_DJC, place.GHA, place.Dec, distance);
    return place;
}
BENCHMARK_CAPTURE(ByDate, SunOurs, SunOurs);

} // namespace
} // namespace merov::bench
