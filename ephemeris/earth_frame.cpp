#include "ephemeris/earth_frame.h"

#include "ephemeris/angle_multiples.h"
#include "ephemeris/nutation_tables.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace merov::ephemeris
{
namespace
{

using numeric::DegToRad;
using numeric::Norm360;
using numeric::RadToDeg;

/// Mean obliquity by powers of T / 100: degrees first, then seconds of arc.
constexpr double LaskarCoefficients[] = {23.43929111,     -4680.93 / 3600.0, -1.55 / 3600.0,  1999.25 / 3600.0,
                                         -51.38 / 3600.0, -249.67 / 3600.0,  -39.05 / 3600.0, 7.12 / 3600.0,
                                         27.87 / 3600.0,  5.79 / 3600.0,     2.45 / 3600.0};

// A term's argument is the sum of two parts, of D and M and of M', F and the node, of which far fewer
// than 63 are different.
using PartOfTwo = std::array<std::int8_t, 2>;
using PartOfThree = std::array<std::int8_t, 3>;

template <class Key, class Part>
constexpr DistinctKeys<Key, NutationTerms.size()> PartsOfNutation(Part part)
{
    std::array<Key, NutationTerms.size()> keys{};
    for (std::size_t i = 0; i < keys.size(); ++i)
        keys[i] = part(NutationTerms[i]);
    return DistinctKeys(keys);
}

constexpr auto SunParts = PartsOfNutation<PartOfTwo>([](const NutationTerm& t) { return PartOfTwo{t.D, t.M}; });
constexpr auto MoonParts = PartsOfNutation<PartOfThree>([](const NutationTerm& t) {
    return PartOfThree{t.MPrime, t.F, t.Omega};
});

/// The phases of all parts at one instant.
struct NutationPhases {
    std::array<Phase, SunParts.Count> Sun;
    std::array<Phase, MoonParts.Count> Moon;

    explicit NutationPhases(double T)
    {
        const double T2 = T * T;
        const double T3 = T2 * T;
        const AngleMultiples<-2, 2> d(Norm360(297.85036 + 445267.11148 * T - 0.0019142 * T2 + T3 / 189474.0));
        const AngleMultiples<-1, 2> m(Norm360(357.52772 + 35999.05034 * T - 0.0001603 * T2 - T3 / 300000.0));
        const AngleMultiples<-2, 3> mPrime(Norm360(134.96298 + 477198.867398 * T + 0.0086972 * T2 + T3 / 56250.0));
        const AngleMultiples<-2, 2> f(Norm360(93.27191 + 483202.017538 * T - 0.0036825 * T2 + T3 / 327270.0));
        const AngleMultiples<0, 2> omega(Norm360(125.04452 - 1934.136261 * T + 0.0020708 * T2 + T3 / 450000.0));

        for (std::size_t i = 0; i < SunParts.Count; ++i)
            Sun[i] = d[SunParts.Keys[i][0]] * m[SunParts.Keys[i][1]];
        for (std::size_t i = 0; i < MoonParts.Count; ++i)
            Moon[i] = mPrime[MoonParts.Keys[i][0]] * (f[MoonParts.Keys[i][1]] * omega[MoonParts.Keys[i][2]]);
    }
};

} // namespace

void ComputeNutation(double T, double& DeltaPsi, double& DeltaEps)
{
    const NutationPhases phases(T);
    double psi = 0.0;
    double eps = 0.0;
    for (std::size_t i = 0; i < NutationTerms.size(); ++i) {
        const NutationTerm& term = NutationTerms[i];
        const Phase argument = phases.Sun[SunParts.IndexOf[i]] * phases.Moon[MoonParts.IndexOf[i]];
        psi += argument.Sin * (term.Psi + term.PsiRate * T);
        eps += argument.Cos * (term.Eps + term.EpsRate * T);
    }
    DeltaPsi = psi / 10000.0;
    DeltaEps = eps / 10000.0;
}

double MeanObliquitySeries(double T)
{
    return Norm360(numeric::Polynomial(T / 100.0, 10, LaskarCoefficients));
}

void ApplyNutationAberration(double MeanEps, double DeltaPsi, double DeltaEps, double SunLongitude, double RA,
                             double Dec, double& RAOut, double& DecOut)
{
    const Phase meanEps = PhaseOf(MeanEps);
    const Phase eps = PhaseOf(MeanEps + DeltaEps / 3600.0);
    const Phase sun = PhaseOf(SunLongitude);
    const Phase ra = PhaseOf(RA);
    const Phase dec = PhaseOf(Dec);
    const double tanDec = dec.Sin / dec.Cos;
    const double tanEps = eps.Sin / eps.Cos;

    const double nutationRA = (meanEps.Cos + meanEps.Sin * ra.Sin * tanDec) * DeltaPsi - ra.Cos * tanDec * DeltaEps;
    const double nutationDec = meanEps.Sin * ra.Cos * DeltaPsi + ra.Sin * DeltaEps;
    const double aberrationRA = -AberrationConstant * (ra.Cos * sun.Cos * eps.Cos + ra.Sin * sun.Sin) / dec.Cos;
    const double aberrationDec =
        -AberrationConstant * (sun.Cos * eps.Cos * (tanEps * dec.Cos - ra.Sin * dec.Sin) + ra.Cos * dec.Sin * sun.Sin);

    RAOut = RA + (nutationRA + aberrationRA) / 3600.0;
    DecOut = Dec + (nutationDec + aberrationDec) / 3600.0;
}

void EclipticPointToEquator(double Latitude, double Longitude, double Eps, double& Dec, double& RA)
{
    const Phase latitude = PhaseOf(Latitude);
    const Phase longitude = PhaseOf(Longitude);
    const Phase eps = PhaseOf(Eps);

    const double z = eps.Cos * latitude.Sin + eps.Sin * latitude.Cos * longitude.Sin;
    const double x = eps.Sin * latitude.Sin - eps.Cos * latitude.Cos * longitude.Sin;
    const double y = latitude.Cos * longitude.Cos;
    Dec = 90.0 - numeric::ArcCos(z) * RadToDeg;
    if (x == 0.0 && y != 0.0)
        RA = y > 0.0 ? 0.0 : 180.0; // the limit of the arc tangent, which itself has no value there
    else
        RA = numeric::Atan2Deg(x, y) - 90.0;
}

double GreenwichHourAngle(double T, double DeltaPsi, double TrueEps, double RA)
{
    const double equationOfEquinoxes = std::cos(TrueEps * DegToRad) * DeltaPsi / 3600.0;
    return Norm360(GreenwichMeanSiderealTime(T) + equationOfEquinoxes - RA);
}

} // namespace merov::ephemeris
