#include "ephemeris/sun_events.h"

#include "ephemeris/astro_lib.h"
#include "support/box_recorder.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

/// The nine moments of a day against the Sun of ERFA (eraEpv00), whose passages are sought by a search of
/// their own.

namespace merov::ephemeris
{
namespace
{

constexpr double J2000DateTime = 36526.5;

/// The Sun's apparent place; the Earth retarded by the light time, which is its aberration.
test::Place ErfaSun(double dateTime)
{
    const double days = dateTime - J2000DateTime;
    double velocity[3], earth[3], sun[3];
    test::ErfaEarth(days - ERFA_AULT / ERFA_DAYSEC, velocity, earth);
    eraSxp(-1.0, earth, sun);
    return test::ErfaApparent(sun, days);
}

/// How far the Sun has risen above `target`, or, for moment 4, gone beyond the meridian; degrees.
double Excess(int moment, double dateTime, double latitude, double longitude, double target)
{
    const test::Place sun = ErfaSun(dateTime);
    const double hourAngle = (sun.GHA + longitude) * ERFA_DD2R;
    if (moment == 4) return std::remainder(hourAngle, ERFA_D2PI) * ERFA_DR2D;
    const double phi = latitude * ERFA_DD2R, delta = sun.Dec * ERFA_DD2R;
    return std::asin(std::sin(phi) * std::sin(delta) + std::cos(phi) * std::cos(delta) * std::cos(hourAngle)) *
               ERFA_DR2D -
           target;
}

TEST(SunEventsAgainst, ErfaFrom1950To2050BelowSixtyDegrees)
{
    test::BoxRecorder boxes;
    std::mt19937_64 generator(209);
    const auto pick = [&](double from, double to) { return std::uniform_real_distribution(from, to)(generator); };
    double sum = 0.0, largest = 0.0;
    int count = 0;
    for (int i = 0; i < 400; ++i) {
        // At 56 degrees the Sun goes down to -9 even at midsummer.
        const double latitude = pick(-56, 56), longitude = pick(-180, 180), height = pick(0, 40);
        const double day = std::floor(J2000DateTime + pick(-18262, 18262));
        SunEventTimes events{};
        ASSERT_TRUE(ComputeSunEvents(latitude, longitude, day, height, events));
        BodyPosition midnight;
        ComputeBodyPosition("SUNLOW", day, midnight);
        const double sunrise = SunriseAltitude(height, midnight.Distance);
        const double targets[] = {-9, -3, sunrise, 0, 0, 0, sunrise, -3, -9};
        for (int moment = 0; moment < 9; ++moment) {
            const double found = events[static_cast<std::size_t>(moment)];
            const auto excess = [&](double time) { return Excess(moment, time, latitude, longitude, targets[moment]); };
            // The Sun rises in the morning and sinks in the evening; its hour angle grows.
            const double minute = 1.0 / 1440;
            const double rate = (excess(found + minute) - excess(found - minute)) / (2 * minute);
            ASSERT_EQ(rate > 0, moment <= 4) << "moment " << moment;
            const double seconds = excess(found) / rate * 86400;
            sum += seconds * seconds;
            largest = std::fmax(largest, std::fabs(seconds));
            ++count;
        }
    }
    std::printf("Sun's moments: rms %.2f s, largest %.2f s\n", std::sqrt(sum / count), largest);
    // The Sun is taken in whole seconds, and 0.1 minute of arc in its place is worth up to 0.8 s here.
    EXPECT_LT(std::sqrt(sum / count), 0.6);
    EXPECT_LT(largest, 2.5);
}

} // namespace
} // namespace merov::ephemeris
