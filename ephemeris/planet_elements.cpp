#include "ephemeris/angle_multiples.h"
#include "ephemeris/planet_tables.h"
#include "ephemeris/planets.h"
#include "numeric/math_lib.h"

#include <cmath>

// T1, centuries from 1900 January 0.5, is the time of all formulas here.

namespace merov::ephemeris
{

namespace
{

using namespace tables;
using numeric::DegToRad;
using numeric::Norm360;
using numeric::Polynomial;

struct Elements {
    double L;
    double Node;
    double Inclination;
    double MeanAnomaly;
    double Eccentricity;
};

/// The mean elements, before all perturbations.
Elements MeanElements(const MeanOrbit& orbit, double T1)
{
    Elements mean;
    mean.L = Norm360(Polynomial(T1, 3, orbit.Longitude));
    mean.Node = Norm360(Polynomial(T1, 3, orbit.Node));
    mean.Inclination = Norm360(Polynomial(T1, 3, orbit.Inclination));
    mean.MeanAnomaly = mean.L - mean.Node - Norm360(Polynomial(T1, 3, orbit.Perihelion));
    mean.Eccentricity = Polynomial(T1, 3, orbit.ThousandEccentricity) / 1000.0;
    return mean;
}

/// Mean anomalies of the four planets that perturb each other, degrees, 0 up to 360.
struct Anomalies {
    double Planet[4]; ///< Earth, Venus, Mars, Jupiter
};

Anomalies PerturbingAnomalies(double T1)
{
    Anomalies anomalies;
    for (int i = 0; i < 4; ++i)
        anomalies.Planet[i] = Norm360(Polynomial(T1, 3, PerturbingAnomalyTerms[i]));
    return anomalies;
}

template <int Count>
double SumPerturbations(const PerturbationTerm (&terms)[Count], const Anomalies& anomalies)
{
    double sum = 0.0;
    for (const PerturbationTerm& term : terms) {
        double argument = term.Phase;
        for (int i = 0; i < 4; ++i)
            argument += term.Multiples[i] * anomalies.Planet[i];
        sum += term.Amplitude * std::cos(argument * DegToRad);
    }
    return sum;
}

/// What Venus and Mars have in common: the mean elements, with `longPeriod` added to longitude and
/// anomaly and `longitudeShift` to the longitude alone, degrees.
void HandOut(const Elements& mean, double longPeriod, double longitudeShift, double& L, double& Node,
             double& Inclination, double& MeanAnomaly, double& Eccentricity)
{
    MeanAnomaly = mean.MeanAnomaly + longPeriod;
    L = mean.L + longitudeShift + longPeriod;
    Node = mean.Node;
    Inclination = mean.Inclination;
    Eccentricity = mean.Eccentricity;
}

/// Values of all waves at T1.
struct Waves {
    double Value[WaveCount];
};

Waves JupiterWaves(double T1)
{
    const double P = 237.47555 + 3034.9061 * T1;
    const double Q = 265.9165 + 1222.1139 * T1;
    const double S = 243.51721 + 428.4677 * T1;
    const AngleMultiples<0, 2> v(5.0 * Q - 2.0 * P);
    const AngleMultiples<0, 5> zeta(Q - P);
    const AngleMultiples<0, 2> q(Q);

    Waves waves;
    double* value = waves.Value;
    value[One] = 1.0;
    value[SinV] = v[1].Sin;
    value[CosV] = v[1].Cos;
    value[Sin2V] = v[2].Sin;
    value[SinW] = std::sin((2.0 * P - 6.0 * Q + 3.0 * S) * DegToRad);
    for (int k = 1; k <= 4; ++k)
        value[SinZeta + k - 1] = zeta[k].Sin;
    for (int k = 1; k <= 5; ++k)
        value[CosZeta + k - 1] = zeta[k].Cos;
    value[SinQ] = q[1].Sin;
    value[CosQ] = q[1].Cos;
    value[Sin2Q] = q[2].Sin;
    value[Cos2Q] = q[2].Cos;
    return waves;
}

double ByPowers(const double (&c)[3], double v)
{
    return c[0] + (c[1] + c[2] * v) * v;
}

} // namespace

void VenusElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                   double& RadiusTerm)
{
    const double T1 = T + 1.0;
    const Anomalies anomalies = PerturbingAnomalies(T1);
    const double longPeriod = 0.00077 * std::sin((237.24 + 150.27 * T1) * DegToRad);
    const double longitudeShift = SumPerturbations(VenusLongitude, anomalies) / 100000.0;
    RadiusTerm = SumPerturbations(VenusRadius, anomalies) / 1000000000.0;
    HandOut(MeanElements(VenusOrbit, T1), longPeriod, longitudeShift, L, Node, Inclination, MeanAnomaly, Eccentricity);
}

void MarsElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                  double& RadiusTerm)
{
    const double T1 = T + 1.0;
    const Anomalies anomalies = PerturbingAnomalies(T1);
    const double x =
        Norm360(3.0 * anomalies.Planet[3] - 8.0 * anomalies.Planet[2] + 4.0 * anomalies.Planet[0]) * DegToRad;
    const double longPeriod = -0.01133 * std::sin(x) - 0.00933 * std::cos(x);
    const double longitudeShift = SumPerturbations(MarsLongitude, anomalies) / 100000.0;
    RadiusTerm = SumPerturbations(MarsRadius, anomalies) / 1000000000.0;
    HandOut(MeanElements(MarsOrbit, T1), longPeriod, longitudeShift, L, Node, Inclination, MeanAnomaly, Eccentricity);
}

void JupiterElements(double T, double& L, double& Node, double& Inclination, double& MeanAnomaly, double& Eccentricity,
                     double& RadiusTerm)
{
    const double T1 = T + 1.0;
    const double v = T1 / 5.0 + 0.1;
    const Waves waves = JupiterWaves(T1);
    double A = 0.0, B = 0.0, C = 0.0, D = 0.0;
    for (const JupiterTerm& term : JupiterTerms) {
        const double factor = waves.Value[term.First] * waves.Value[term.Second];
        A += ByPowers(term.A, v) * factor;
        B += ByPowers(term.B, v) * factor;
        C += ByPowers(term.C, v) * factor;
        D += term.D * factor;
    }
    const Elements mean = MeanElements(JupiterOrbit, T1);
    // The anomaly takes the mean eccentricity, so it must come before that is perturbed.
    MeanAnomaly = mean.MeanAnomaly + A - B / mean.Eccentricity;
    L = mean.L + A;
    Eccentricity = mean.Eccentricity + C / 10000000.0;
    RadiusTerm = D / 1000000.0;
    Node = mean.Node;
    Inclination = mean.Inclination;
}

} // namespace merov::ephemeris
