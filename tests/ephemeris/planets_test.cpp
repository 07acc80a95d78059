#include "ephemeris/planets.h"

#include "column_sums.h"
#include "ephemeris/earth_frame.h"
#include "ephemeris/planet_tables.h"
#include "numeric/math_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>

namespace merov::ephemeris
{
namespace
{

using namespace tables;
using numeric::DegToRad;

TEST(Planets, TablesHaveTheSumsOfThePublishedOnes)
{
    std::vector<const double*> orbits;
    for (const MeanOrbit* o : {&VenusOrbit, &MarsOrbit, &JupiterOrbit})
        orbits.insert(orbits.end(), {o->Longitude, o->ThousandEccentricity, o->Inclination, o->Perihelion, o->Node});
    orbits.insert(orbits.end(), std::begin(PerturbingAnomalyTerms), std::end(PerturbingAnomalyTerms));
    test::ExpectColumnSums(orbits, [](const double* c) { return test::Row(c[0], c[1], c[2], c[3]); },
                           {34365.751589, 2179782.5649876, 0.02185, -0.00016392});

    const auto columns = [](const PerturbationTerm& t) {
        const auto& m = t.Multiples;
        return test::Row(t.Amplitude, m[0], m[1], m[2], m[3], t.Phase);
    };
    test::ExpectColumnSums(VenusLongitude, columns, {1911, 23, -24, 0, 5, -2084.499});
    test::ExpectColumnSums(VenusRadius, columns, {161256, 61, -73, 0, 17, -869.895});
    test::ExpectColumnSums(MarsLongitude, columns, {10483, 37, -7, -51, 20, 1196.036});
    test::ExpectColumnSums(MarsRadius, columns, {845741, 80, 0, -241, 123, 1907.1716});

    const auto jupiter = [](const JupiterTerm& t) {
        return test::Row(t.First, t.Second, t.A[0], t.A[1], t.A[2], t.B[0], t.B[1], t.B[2], t.C[0], t.C[1], t.C[2],
                         t.D);
    };
    test::ExpectColumnSums(
        JupiterTerms, jupiter,
        {7570, 11661, -1.090972, -0.178952, 0.000925, 1.809939, 0.006255, 0.000394, 114964, 11897, -43, 17894});
}

} // namespace
} // namespace merov::ephemeris
