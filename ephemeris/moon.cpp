#include "ephemeris/moon.h"

#include "ephemeris/angle_multiples.h"
#include "ephemeris/earth_frame.h"
#include "ephemeris/moon_tables.h"
#include "numeric/math_lib.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace merov::ephemeris
{
namespace
{

using numeric::Norm360;

/// The fundamental arguments, degrees, 0 up to 360.
struct MoonArguments {
    double LPrime; ///< the Moon's mean longitude
    double D;      ///< mean elongation
    double M;      ///< the Sun's mean anomaly
    double MPrime; ///< the Moon's mean anomaly
    double F;      ///< argument of latitude

    explicit MoonArguments(double T)
    {
        const double T2 = T * T;
        const double T3 = T2 * T;
        const double T4 = T3 * T;
        LPrime = Norm360(218.3164591 + 481267.88134236 * T - 0.0013268 * T2 + T3 / 538841.0 - T4 / 65194000.0);
        D = Norm360(297.8502042 + 445267.1115168 * T - 0.00163 * T2 + T3 / 545868.0 - T4 / 113065000.0);
        M = Norm360(357.5291092 + 35999.0502909 * T - 0.0001536 * T2 + T3 / 24490000.0);
        MPrime = Norm360(134.9634114 + 477198.8676313 * T + 0.008997 * T2 + T3 / 69699.0 - T4 / 14712000.0);
        F = Norm360(93.2720993 + 483202.0175273 * T - 0.0034029 * T2 - T3 / 3526000.0 + T4 / 863310000.0);
    }
};

// The argument of a term is the sum of two parts, of D and M and of M' and F, of which far fewer than
// the 120 of both tables are different.
using ArgumentPart = std::array<std::int8_t, 2>;
constexpr std::size_t LongitudeRows = MoonLongitudeTerms.size();
constexpr std::size_t AllRows = LongitudeRows + MoonLatitudeTerms.size();

template <class Part>
constexpr DistinctKeys<ArgumentPart, AllRows> PartsOfMoon(Part part)
{
    std::array<ArgumentPart, AllRows> keys{};
    for (std::size_t i = 0; i < AllRows; ++i)
        keys[i] =
            part(i < LongitudeRows ? MoonLongitudeTerms[i].Argument : MoonLatitudeTerms[i - LongitudeRows].Argument);
    return DistinctKeys(keys);
}

constexpr auto SunParts = PartsOfMoon([](const MoonArgument& a) { return ArgumentPart{a.D, a.M}; });
constexpr auto MoonParts = PartsOfMoon([](const MoonArgument& a) { return ArgumentPart{a.MPrime, a.F}; });

/// The phases of all parts at one instant. Those of D and M carry the weight of their terms: a power of
/// the factor of the Earth's eccentricity for each multiple of the Sun's anomaly.
struct MoonPhases {
    std::array<Phase, SunParts.Count> Sun;
    std::array<Phase, MoonParts.Count> Moon;

    MoonPhases(const MoonArguments& arguments, const AngleMultiples<-3, 4>& mPrime, const AngleMultiples<-3, 3>& f,
               double E)
    {
        const AngleMultiples<0, 4> d(arguments.D);
        const AngleMultiples<-2, 2> m(arguments.M);
        const double weights[] = {1.0, E, E * E};
        for (std::size_t i = 0; i < SunParts.Count; ++i) {
            const auto [dMultiple, mMultiple] = SunParts.Keys[i];
            const double weight = weights[std::abs(mMultiple)];
            const Phase phase = d[dMultiple] * m[mMultiple];
            Sun[i] = {weight * phase.Cos, weight * phase.Sin};
        }
        for (std::size_t i = 0; i < MoonParts.Count; ++i)
            Moon[i] = mPrime[MoonParts.Keys[i][0]] * f[MoonParts.Keys[i][1]];
    }

    /// The weighted phase of a row, those of the latitude counted on from the longitude's.
    Phase OfRow(std::size_t row) const { return Sun[SunParts.IndexOf[row]] * Moon[MoonParts.IndexOf[row]]; }
};

} // namespace

MoonEclipticPlace ComputeMoonEcliptic(double T)
{
    const MoonArguments arguments(T);
    const AngleMultiples<-3, 4> mPrime(arguments.MPrime);
    const AngleMultiples<-3, 3> f(arguments.F);
    const double eccentricityFactor = 1.0 - 0.002516 * T - 7.4e-6 * T * T;
    const MoonPhases phases(arguments, mPrime, f, eccentricityFactor);

    double sumLongitude = 0.0;
    double sumDistance = 0.0;
    for (std::size_t i = 0; i < LongitudeRows; ++i) {
        const Phase phase = phases.OfRow(i);
        sumLongitude += MoonLongitudeTerms[i].Longitude * phase.Sin;
        sumDistance += MoonLongitudeTerms[i].Distance * phase.Cos;
    }
    double sumLatitude = 0.0;
    for (std::size_t i = 0; i < MoonLatitudeTerms.size(); ++i)
        sumLatitude += MoonLatitudeTerms[i].Latitude * phases.OfRow(LongitudeRows + i).Sin;

    // Additive terms: Venus (A1), Jupiter (A2) and the Earth's flattening.
    const Phase lPrime = PhaseOf(arguments.LPrime);
    const Phase a1 = PhaseOf(Norm360(119.75 + 131.849 * T));
    const Phase a2 = PhaseOf(Norm360(53.09 + 479264.29 * T));
    const Phase a3 = PhaseOf(Norm360(313.45 + 481266.484 * T));
    sumLongitude += 3958.0 * a1.Sin + 1962.0 * (lPrime * f[-1]).Sin + 318.0 * a2.Sin;
    sumLatitude += -2235.0 * lPrime.Sin + 382.0 * a3.Sin + 175.0 * (a1 * f[-1]).Sin + 175.0 * (a1 * f[1]).Sin +
                   127.0 * (lPrime * mPrime[-1]).Sin - 115.0 * (lPrime * mPrime[1]).Sin;

    return {arguments.LPrime + sumLongitude / 1000000.0, sumLatitude / 1000000.0, 385000.56 + sumDistance / 1000.0};
}

void ComputeMoonPosition(double T, double& GHA, double& Declination, double& Distance)
{
    const MoonEclipticPlace place = ComputeMoonEcliptic(T);
    Distance = place.Kilometres / MoonDistanceUnit;
    double deltaPsi = 0.0;
    double deltaEps = 0.0;
    ComputeNutation(T, deltaPsi, deltaEps);
    const double obliquity = MeanObliquitySeries(T) + deltaEps / 3600.0;
    double rightAscension = 0.0;
    EclipticPointToEquator(place.Latitude, place.Longitude + deltaPsi / 3600.0, obliquity, Declination, rightAscension);
    GHA = GreenwichHourAngle(T, deltaPsi, obliquity, rightAscension + 0.5 / 60.0);
}

} // namespace merov::ephemeris
