#include "ephemeris/stars.h"

#include "ephemeris/star_tables.h"
#include "numeric/math_lib.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

#include <vector>

namespace merov::test
{
namespace
{

/// The Earth's velocity at dates over 1950..2050.
struct Date {
    double T;
    double Velocity[3];
};

const std::vector<Date>& Dates()
{
    static const std::vector<Date> dates = [] {
        std::vector<Date> made(500);
        RandomCenturies random;
        for (Date& date : made) {
            date.T = random();
            double sun[3];
            ErfaEarth(date.T * ERFA_DJC, date.Velocity, sun);
        }
        return made;
    }();
    return dates;
}

/// The catalogue's figures in radians. With `alongTheParallel` its motion in right ascension is the one
/// along the parallel of the star, as catalogues mean it; without, that of the coordinate, as the
/// program takes it.
ErfaStarData CatalogueData(const ephemeris::StarRow& row, bool alongTheParallel)
{
    ErfaStarData data;
    data.RA = numeric::DMSToDeg(row.RA) * 15.0 * ERFA_DD2R;
    data.Dec = numeric::DMSToDeg(row.Dec) * ERFA_DD2R;
    data.MotionRA = row.MotionRA * ERFA_DAS2R / (alongTheParallel ? std::cos(data.Dec) : 1.0);
    data.MotionDec = row.MotionDec * ERFA_DAS2R;
    return data;
}

/// Our places of `row` beside ERFA's, added to two sets.
void Compare(const ephemeris::StarRow& row, bool alongTheParallel, PlaceDifferences& one, PlaceDifferences& all)
{
    const ErfaStarData data = CatalogueData(row, alongTheParallel);
    for (Date date : Dates()) {
        Place ours;
        ephemeris::ComputeStarPosition(row.Name, date.T, ours.GHA, ours.Dec);
        const Place theirs = ErfaStar(data, date.T * ERFA_DJC, date.Velocity);
        one.Add(ours, theirs);
        all.Add(ours, theirs);
    }
}

TEST(StarsAgainstErfa, TheReductionIsGoodToAHundredthOfAMinute)
{
    // Left out or simplified: the eccentricity of the orbit in aberration (0.35"), products of nutation and
    // aberration, both to the first order, which grows near the pole.
    PlaceDifferences all;
    for (const ephemeris::StarRow& row : ephemeris::StarRows) {
        PlaceDifferences one;
        Compare(row, false, one, all);
        if (row.Name == "POLARIS") one.Print("POLARIS against ERFA");
        EXPECT_LT(one.MaxHourAngle(), 0.01) << row.Name;
        EXPECT_LT(one.MaxDec(), 0.01) << row.Name;
    }
    all.Print("58 stars against ERFA");
    EXPECT_LT(all.RmsHourAngle(), 0.006);
    EXPECT_LT(all.RmsDec(), 0.006);
}

TEST(StarsAgainstErfa, TheScaledProperMotionCostsFastStarsUpToAMinuteAndAHalf)
{
    // The program scales the motion in right ascension by the cosine of the declination once more than the
    // catalogue's figures ask for. What that moves is 1 - cos(dec) of the motion since 2000.
    PlaceDifferences all;
    for (const ephemeris::StarRow& row : ephemeris::StarRows) {
        PlaceDifferences one;
        Compare(row, true, one, all);
        const double cosDec = std::cos(numeric::DMSToDeg(row.Dec) * ERFA_DD2R);
        const double expected = std::fabs(row.MotionRA) * 50.0 * (1.0 - cosDec) / 60.0;
        EXPECT_NEAR(one.MaxHourAngle(), expected, 0.02) << row.Name;
        if (expected > 0.05) one.Print(std::string(row.Name) + ", motion along the parallel");
    }
    all.Print("58 stars, motion along the parallel");
}

} // namespace
} // namespace merov::test
