#include "ephemeris/earth_frame.h"

#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

TEST(FrameAgainst, ErfaFrom1950To2050)
{
    Spread longitude, obliquity, mean, apparent, laskar, newcomb; // seconds of arc
    OverTheCentury(2000, [&](double T) {
        const double days = T * ERFA_DJC;
        double psi, eps, erfaPsi, erfaEps;
        ephemeris::ComputeNutation(T, psi, eps);
        eraNut80(ERFA_DJ00, days, &erfaPsi, &erfaEps);
        longitude.Add(psi - erfaPsi * ERFA_DR2AS);
        obliquity.Add(eps - erfaEps * ERFA_DR2AS);

        const double meanEps = ephemeris::ComputeSunTruePlace(T).MeanObliquity;
        const double erfaMeanEps = eraObl80(ERFA_DJ00, days) * ERFA_DR2AS;
        laskar.Add(ephemeris::MeanObliquitySeries(T) * 3600.0 - erfaMeanEps);
        newcomb.Add(meanEps * 3600.0 - erfaMeanEps);

        const auto turned = [](double ours, double theirs) {
            return 3600.0 * std::remainder(ours - theirs * ERFA_DR2D, 360.0);
        };
        mean.Add(turned(ephemeris::GreenwichMeanSiderealTime(T), eraGmst82(ERFA_DJ00, days)));
        const double sidereal = ephemeris::GreenwichHourAngle(T, psi, meanEps + eps / 3600.0, 0.0);
        apparent.Add(turned(sidereal, eraGst94(ERFA_DJ00, days)));
    });
    // The 43 terms of nutation left out are of 0.0003" or less each.
    EXPECT_TRUE(longitude.Within("nutation in longitude against eraNut80, \"", {0.001, 0.005}));
    EXPECT_TRUE(obliquity.Within("nutation in obliquity against eraNut80, \"", {0.001, 0.003}));
    EXPECT_TRUE(laskar.Within("obliquity for the Moon against eraObl80, \"", {0.003, 0.01}));
    EXPECT_TRUE(newcomb.Within("obliquity for the others against eraObl80, \"", {0.06, 0.1})); // elements of 1900
    EXPECT_TRUE(mean.Within("mean sidereal time against eraGmst82, \"", {2e-6, 1e-5}));
    // ERFA adds two terms in the Moon's node, 0.003".
    EXPECT_TRUE(apparent.Within("apparent sidereal time against eraGst94, \"", {0.003, 0.005}));
}

TEST(FrameAgainst, ErfasTurnFromEclipticToEquator)
{
    for (double longitude = 0.5; longitude < 360.0; longitude += 7.0)
        for (double latitude = -60.0; latitude <= 60.0; latitude += 15.0) {
            double vector[3], ra, dec, ourRA, ourDec;
            eraS2c(longitude * ERFA_DD2R, latitude * ERFA_DD2R, vector);
            EclipticToEquatorJ2000(vector);
            eraC2s(vector, &ra, &dec);
            ephemeris::EclipticPointToEquator(latitude, longitude, 84381.448 / 3600.0, ourDec, ourRA);
            EXPECT_NEAR(std::remainder(ourRA - ra * ERFA_DR2D, 360.0), 0.0, 1e-9);
            EXPECT_NEAR(ourDec, dec * ERFA_DR2D, 1e-9);
        }
}

} // namespace
} // namespace merov::test
