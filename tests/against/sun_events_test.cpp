#include "ephemeris/sun_events.h"

#include "ephemeris/astro_lib.h"
#include "support/box_recorder.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

/// The nine moments of a day against the Sun of ERFA, whose passages are sought by a search of their own.

namespace merov::test
{
namespace
{

constexpr double J2000DateTime = 36526.5;

/// How far the Sun has risen above `target`, or, for moment 4, gone beyond the meridian; degrees.
double Excess(int moment, double dateTime, double latitude, double longitude, double target)
{
    double distance;
    const Place sun = ErfaSun(dateTime - J2000DateTime, distance);
    const double hourAngle = (sun.GHA + longitude) * ERFA_DD2R;
    if (moment == 4) return std::remainder(hourAngle, ERFA_D2PI) * ERFA_DR2D;
    const double phi = latitude * ERFA_DD2R, delta = sun.Dec * ERFA_DD2R;
    const double sine = std::sin(phi) * std::sin(delta) + std::cos(phi) * std::cos(delta) * std::cos(hourAngle);
    return std::asin(sine) * ERFA_DR2D - target;
}

TEST(SunEventsAgainst, ErfaFrom1950To2050BelowSixtyDegrees)
{
    BoxRecorder boxes;
    std::mt19937_64 generator(209);
    const auto pick = [&](double from, double to) { return std::uniform_real_distribution(from, to)(generator); };
    Spread seconds;
    for (int i = 0; i < 400; ++i) {
        // At 56 degrees the Sun goes down to -9 even at midsummer.
        const double latitude = pick(-56, 56), longitude = pick(-180, 180), height = pick(0, 40);
        const double day = std::floor(J2000DateTime + pick(-18262, 18262));
        ephemeris::SunEventTimes events{};
        ASSERT_TRUE(ephemeris::ComputeSunEvents(latitude, longitude, day, height, events));
        EXPECT_TRUE(std::ranges::is_sorted(events)) << latitude << " " << longitude << " " << day;
        // The equation of time stays below 17 minutes.
        EXPECT_NEAR(events[4], day + (12 - longitude / 15) / 24, 17.0 / 1440);
        ephemeris::BodyPosition midnight;
        ephemeris::ComputeBodyPosition("SUNLOW", day, midnight);
        const double sunrise = ephemeris::SunriseAltitude(height, midnight.Distance);
        const double targets[] = {-9, -3, sunrise, 0, 0, 0, sunrise, -3, -9};
        for (int moment = 0; moment < 9; ++moment) {
            const double found = events[static_cast<std::size_t>(moment)], minute = 1.0 / 1440;
            const auto excess = [&](double time) { return Excess(moment, time, latitude, longitude, targets[moment]); };
            // The Sun rises in the morning and sinks in the evening; its hour angle grows.
            const double rate = (excess(found + minute) - excess(found - minute)) / (2 * minute);
            ASSERT_EQ(rate > 0, moment <= 4) << "moment " << moment;
            seconds.Add(excess(found) / rate * 86400);
        }
    }
    // The Sun is taken in whole seconds, and 0.1 minute of arc in its place is worth up to 0.8 s here.
    EXPECT_TRUE(seconds.Within("Sun's moments, s", {0.6, 2.5}));
}

} // namespace
} // namespace merov::test
