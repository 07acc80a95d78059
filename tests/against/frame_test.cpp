#include "ephemeris/earth_frame.h"

#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"
#include "support/erfa_places.h"

#include <libnova/libnova.h>

#include <gtest/gtest.h>

namespace merov::test
{
namespace
{

constexpr int Dates = 2000;

/// rms and largest of a run of differences.
struct Spread {
    double Sum = 0.0;
    double Max = 0.0;
    int Count = 0;
    void Add(double difference)
    {
        Sum += difference * difference;
        Max = std::max(Max, std::fabs(difference));
        ++Count;
    }
    void Print(const char* what) const { std::printf("%-46s rms %.6f  max %.6f\n", what, std::sqrt(Sum / Count), Max); }
};

TEST(FrameAgainstErfa, NutationOf63TermsOfThe106)
{
    // The 43 terms left out are of 0.0003" or less each.
    Spread psi, eps;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        double ourPsi = 0.0, ourEps = 0.0, erfaPsi = 0.0, erfaEps = 0.0;
        ephemeris::ComputeNutation(T, ourPsi, ourEps);
        eraNut80(ERFA_DJ00, T * ERFA_DJC, &erfaPsi, &erfaEps);
        psi.Add(ourPsi - erfaPsi * ERFA_DR2AS);
        eps.Add(ourEps - erfaEps * ERFA_DR2AS);
    }
    psi.Print("nutation in longitude against eraNut80, \"");
    eps.Print("nutation in obliquity against eraNut80, \"");
    EXPECT_LT(psi.Max, 0.005);
    EXPECT_LT(eps.Max, 0.003);
}

TEST(FrameAgainstErfa, SiderealTime)
{
    Spread mean, apparent;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        const double days = T * ERFA_DJC;
        mean.Add(
            std::remainder(ephemeris::GreenwichMeanSiderealTime(T) - eraGmst82(ERFA_DJ00, days) * ERFA_DR2D, 360.0) *
            3600.0);
        double psi = 0.0, eps = 0.0;
        ephemeris::ComputeNutation(T, psi, eps);
        const double trueEps = ephemeris::ComputeSunTruePlace(T).MeanObliquity + eps / 3600.0;
        apparent.Add(
            std::remainder(ephemeris::GreenwichHourAngle(T, psi, trueEps, 0.0) - eraGst94(ERFA_DJ00, days) * ERFA_DR2D,
                           360.0) *
            3600.0);
    }
    mean.Print("mean sidereal time against eraGmst82, \"");
    apparent.Print("apparent sidereal time against eraGst94, \"");
    EXPECT_LT(mean.Max, 1e-4);
    EXPECT_LT(apparent.Max, 0.005); // ERFA adds two terms in the Moon's node, 0.003"
}

TEST(FrameAgainstErfa, BothMeanObliquities)
{
    Spread laskar, newcomb;
    RandomCenturies random;
    for (int i = 0; i < Dates; ++i) {
        const double T = random();
        const double erfa = eraObl80(ERFA_DJ00, T * ERFA_DJC) * ERFA_DR2AS;
        laskar.Add(ephemeris::MeanObliquitySeries(T) * 3600.0 - erfa);
        newcomb.Add(ephemeris::ComputeSunTruePlace(T).MeanObliquity * 3600.0 - erfa);
    }
    laskar.Print("obliquity for the Moon against eraObl80, \"");
    newcomb.Print("obliquity for the others against eraObl80, \"");
    EXPECT_LT(laskar.Max, 0.01);
    EXPECT_LT(newcomb.Max, 0.1); // elements of 1900
}

TEST(FrameAgainstLibnova, EclipticToEquator)
{
    for (double longitude = 0.5; longitude < 360.0; longitude += 7.0)
        for (double latitude = -60.0; latitude <= 60.0; latitude += 15.0) {
            ln_lnlat_posn ecliptic{longitude, latitude};
            ln_equ_posn equator{};
            ln_get_equ_from_ecl(&ecliptic, ERFA_DJ00, &equator);
            ln_nutation nutation{};
            ln_get_nutation(ERFA_DJ00, &nutation);
            double dec = 0.0, ra = 0.0;
            ephemeris::EclipticPointToEquator(latitude, longitude, nutation.ecliptic, dec, ra);
            EXPECT_NEAR(std::remainder(ra - equator.ra, 360.0), 0.0, 1e-9);
            EXPECT_NEAR(dec, equator.dec, 1e-9);
        }
}

} // namespace
} // namespace merov::test
