#include "fix/motion_partials.h"

#include "fix/nautical_lib.h"
#include "fix/synthetic_sights.h"
#include "sailing/rhumb_line.h"

#include <gtest/gtest.h>

namespace merov::fix::tests
{

/// The flags of sights on these azimuths, "1" for a good one.
std::string Good(const std::vector<double>& bearings)
{
    numeric::Vector azimuths(1, static_cast<int>(bearings.size()));
    std::copy(bearings.begin(), bearings.end(), azimuths.begin());
    SightFlags good(1, azimuths.Upper());
    const short count = MarkGoodObservations(azimuths, good);
    std::string flags;
    for (const unsigned char flag : good)
        flags += flag != 0 ? '1' : '0';
    EXPECT_EQ(count, std::count(flags.begin(), flags.end(), '1'));
    return flags;
}

TEST(MarkGoodObservations, BearingsWithinThreePointSixDegreesAddNothing)
{
    for (const double beside : {100.0, 103.0, 103.5, 96.5, 277.0, 276.5, 283.5})
        EXPECT_EQ(Good({100.0, beside}), "10") << beside;
    for (const double apart : {103.6, 96.4, 276.4, 283.6})
        EXPECT_EQ(Good({100.0, apart}), "11") << apart;
    EXPECT_EQ(Good({359.0, 2.0, 178.0}), "100");
    EXPECT_EQ(Good({0.0, 90.0, 180.0, 270.0}), "1100");
    EXPECT_EQ(Good({100.0, 102.0, 104.0}), "101") << "the second, knocked out, doesn't test the third";
}

/// One sight, run from a base position, and the derivatives at it.
class ComputePartialsTest : public testing::Test
{
protected:
    struct Motion {
        double Lat, Course, Speed, Hours;
    };

    void Compute(const Motion& m)
    {
        times[0] = 38128.5;
        times[1] = 38128.5 + m.Hours / 24.0;
        lats[0] = m.Lat;
        longs[0] = 25.0;
        RunPositions(1, m.Course, m.Speed, times, lats, longs, approx, r, a);
        hcs[1] = Altitude(lats[1], longs[1]);
        ComputePartials(1, m.Course, m.Speed, times, lats, longs, approx, decs, ghas, hcs, 4, p, r, a);
    }
    double Altitude(double lat, double lon) const
    {
        return test::LookAt({lat, lon}, {.GHA = ghas[1], .Declination = decs[1]}).Altitude;
    }
    /// Slope at 0 by a central difference with Richardson's extrapolation.
    template <class Function>
    static double Slope(const Function& f)
    {
        const auto central = [&](double step) { return (f(step) - f(-step)) / (2.0 * step); };
        return (4.0 * central(0.01) - central(0.02)) / 3.0;
    }
    /// Compares the six derivatives of the run with numeric ones of the rhumb line.
    void ExpectDerivativesOfTheRun(const Motion& m)
    {
        Compute(m);
        const double ofLat[] = {p.LatByLat[1], p.LatByCourse[1], p.LatBySpeed[1]};
        const double ofLong[] = {p.LongByLat[1], p.LongByCourse[1], p.LongBySpeed[1]};
        for (const int by : {0, 1, 2})
            for (const bool latitude : {true, false}) {
                const auto arrival = [&](double x) { // with latitude, course or speed changed by x
                    double lat = 0.0, lon = 0.0;
                    sailing::RhumbLineDirect(m.Lat + (by == 0 ? x : 0.0), 25.0, m.Course + (by == 1 ? x : 0.0),
                                             (m.Speed + (by == 2 ? x : 0.0)) * m.Hours, lat, lon, r, a);
                    return latitude ? lat : lon;
                };
                EXPECT_NEAR((latitude ? ofLat : ofLong)[by], Slope(arrival) * (by == 2 ? test::Degree : 1.0), 1e-8)
                    << m.Lat << " course " << m.Course << " hours " << m.Hours << " by " << by;
            }
    }

    numeric::Vector times{0, 1}, lats{0, 1}, longs{0, 1}, approx{1, 1}, decs{1, 1, 18.0}, ghas{1, 1, 310.0}, hcs{1, 1};
    MotionPartials p{1};
    double r = test::Wgs84().InverseFlattening, a = test::Wgs84().SemiMajorAxisNm;
};

// Both sets of formulas. In the near-parallel one the term with the ellipsoid's e² in LongByLat is negative:
// with a plus it would miss by up to 5e-4 here.
TEST_F(ComputePartialsTest, AreDerivativesOfTheRhumbLineAndTheAltitude)
{
    for (const double lat : {-61.0, -12.0, 0.5, 34.0, 66.0}) {
        for (const double course : {0.0, 33.0, 89.0, 89.55, 90.3, 91.5, 180.0, 231.0, 269.6, 270.45, 271.0, 328.0})
            for (const double hours : {-9.0, 4.0})
                ExpectDerivativesOfTheRun({lat, course, 17.0, hours});
        EXPECT_NEAR(p.PartialLat[1], Slope([&](double x) { return Altitude(lats[1] + x, longs[1]); }), 1e-9);
        EXPECT_NEAR(p.PartialLong[1], Slope([&](double x) { return Altitude(lats[1], longs[1] + x); }), 1e-9);
    }
}

TEST_F(ComputePartialsTest, BandAroundEastExcludesItsLimits)
{
    // The two sets of formulas differ by 1e-7 or so: which one was taken shows in the exactness.
    const auto lonByLat = [&](double course) {
        Compute({48.0, course, 20.0, 10.0});
        return p.LongByLat[1];
    };
    for (const auto& [edge, inward] : {std::pair{89.5, 1e-9}, {90.5, -1e-9}, {269.5, 1e-9}, {270.5, -1e-9}}) {
        EXPECT_GT(std::fabs(lonByLat(edge) - lonByLat(edge + inward)), 1e-8) << edge;
        EXPECT_LT(std::fabs(lonByLat(edge) - lonByLat(edge - inward)), 1e-9) << edge;
    }
}

TEST_F(ComputePartialsTest, RestLeavesTheDerivativesBySpeedAndTheSphereNoEccentricity)
{
    for (const double course : {60.0, 90.0}) {
        Compute({40.0, course, 0.0, 3.0});
        EXPECT_EQ(p.LatByLat[1], 1.0);
        EXPECT_NEAR(p.LongByLat[1], 0.0, 1e-15);
        EXPECT_EQ(p.LatByCourse[1], 0.0);
        EXPECT_NEAR(p.LatBySpeed[1], 3.0 * std::cos(course * test::Degree) / 3435.0, 1e-6);
    }
    r = sailing::EllipsoidAt(sailing::NormalSphereIndex).InverseFlattening;
    Compute({45.0, 10.0, 17.0, 4.0});
    EXPECT_EQ(p.LatByLat[1], 1.0);
}

} // namespace merov::fix::tests
