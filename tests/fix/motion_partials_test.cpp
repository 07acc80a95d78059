#include "fix/motion_partials.h"

#include "fix/nautical_lib.h"
#include "fix/synthetic_sights.h"
#include "numeric/fault.h"
#include "sailing/rhumb_line.h"

#include <gtest/gtest.h>

#include <functional>

namespace merov::fix
{
namespace
{

TEST(MarkGoodObservations, BearingsWithinThreePointSixDegreesAddNothing)
{
    struct Row {
        std::vector<double> Azimuths;
        std::string Good;
    };
    const Row rows[] = {
        {{100.0, 103.0}, "10"},
        {{100.0, 103.6}, "11"},
        {{100.0, 96.4}, "11"},
        {{100.0, 96.5}, "10"},
        {{100.0, 277.0}, "10"},
        {{100.0, 276.4}, "11"},
        {{100.0, 276.5}, "10"},
        {{100.0, 283.6}, "11"},
        {{100.0, 283.5}, "10"},
        {{359.0, 2.0}, "10"},
        {{2.0, 359.0}, "10"},
        {{1.0, 181.0}, "10"},
        {{178.0, 359.9}, "10"},
        {{100.0, 100.0}, "10"},
        {{0.0, 90.0, 180.0, 270.0}, "1100"},
        {{100.0, 102.0, 104.0}, "101"}, // the second, knocked out, doesn't test the third
        {{10.0, 50.0, 190.0, 53.0, 55.0}, "11001"},
    };
    for (const Row& row : rows) {
        const int n = static_cast<int>(row.Azimuths.size());
        numeric::Vector azimuths(1, n);
        for (int i = 1; i <= n; ++i)
            azimuths[i] = row.Azimuths[static_cast<std::size_t>(i - 1)];
        SightFlags good(1, n);
        const short count = MarkGoodObservations(azimuths, good);
        std::string flags;
        for (const unsigned char flag : good)
            flags += flag != 0 ? '1' : '0';
        EXPECT_EQ(flags, row.Good) << row.Azimuths[0] << " " << row.Azimuths[1];
        EXPECT_EQ(count, std::count(row.Good.begin(), row.Good.end(), '1'));
    }
}

/// One sight, run from a base position, and the derivatives at it.
class ComputePartialsTest : public testing::Test
{
protected:
    struct Motion {
        double Lat, Course, Speed, Hours;
    };

    void Compute(const Motion& m, int unknowns = 4)
    {
        times[0] = 38128.5;
        times[1] = 38128.5 + m.Hours / 24.0;
        lats[0] = m.Lat;
        longs[0] = 25.0;
        RunPositions(1, m.Course, m.Speed, times, lats, longs, approx, earth.InverseFlattening, earth.SemiMajorAxisNm);
        decs[1] = 18.0;
        ghas[1] = 310.0;
        hcs[1] = Altitude(lats[1], longs[1]);
        ComputePartials(1, m.Course, m.Speed, times, lats, longs, approx, decs, ghas, hcs, unknowns, p,
                        earth.InverseFlattening, earth.SemiMajorAxisNm);
    }

    double Altitude(double lat, double lon) const
    {
        return test::LookAt({lat, lon}, {.GHA = ghas[1], .Declination = decs[1]}).Altitude;
    }

    /// Central difference with Richardson's extrapolation.
    static double Slope(const std::function<double(double)>& f, double x, double h)
    {
        const auto central = [&](double step) { return (f(x + step) - f(x - step)) / (2.0 * step); };
        return (4.0 * central(h / 2.0) - central(h)) / 3.0;
    }

    /// Where the rhumb line ends, as the latitude or the longitude in radians.
    double Arrival(const Motion& m, bool latitude) const
    {
        double lat = 0.0, lon = 0.0;
        sailing::RhumbLineDirect(m.Lat, 25.0, m.Course, m.Speed * m.Hours, lat, lon, earth.InverseFlattening,
                                 earth.SemiMajorAxisNm);
        return (latitude ? lat : lon) * numeric::DegToRad;
    }

    /// Compares the six derivatives of the run with numeric ones.
    void ExpectDerivativesOfTheRun(const Motion& m, double tolerance)
    {
        SCOPED_TRACE(testing::Message() << "lat " << m.Lat << " course " << m.Course << " speed " << m.Speed
                                        << " hours " << m.Hours);
        Compute(m);
        for (const bool latitude : {true, false}) {
            const auto by = [&](double Motion::*field, double h) {
                return Slope(
                    [&](double x) {
                        Motion moved = m;
                        moved.*field = x;
                        return Arrival(moved, latitude);
                    },
                    m.*field, h);
            };
            const double perRadian = numeric::RadToDeg;
            EXPECT_NEAR(latitude ? p.LatByLat[1] : p.LongByLat[1], by(&Motion::Lat, 0.02) * perRadian, tolerance);
            EXPECT_NEAR(latitude ? p.LatByCourse[1] : p.LongByCourse[1], by(&Motion::Course, 0.02) * perRadian,
                        tolerance);
            EXPECT_NEAR(latitude ? p.LatBySpeed[1] : p.LongBySpeed[1], by(&Motion::Speed, 0.02), tolerance);
        }
    }

    numeric::Vector times{0, 1}, lats{0, 1}, longs{0, 1}, approx{1, 1}, decs{1, 1}, ghas{1, 1}, hcs{1, 1};
    MotionPartials p{1};
    sailing::EarthModel earth = test::Wgs84();
};

TEST_F(ComputePartialsTest, AltitudeByPosition)
{
    for (const double lat : {-55.0, 3.0, 47.0}) {
        Compute({lat, 60.0, 12.0, 2.0}, 2);
        EXPECT_NEAR(p.PartialLat[1], Slope([&](double x) { return Altitude(x, longs[1]); }, lats[1], 0.01), 1e-9);
        EXPECT_NEAR(p.PartialLong[1], Slope([&](double x) { return Altitude(lats[1], x); }, longs[1], 0.01), 1e-9);
    }
}

// Both sets of formulas. In the near-parallel one the term with the ellipsoid's e² in LongByLat is negative:
// with a plus it would miss by up to 5e-4 here.
TEST_F(ComputePartialsTest, AreDerivativesOfTheRhumbLine)
{
    for (const double lat : {-61.0, -12.0, 0.5, 34.0, 66.0})
        for (const double course :
             {0.0, 33.0, 89.0, 89.55, 89.9, 90.3, 91.5, 180.0, 231.0, 269.6, 270.45, 271.0, 328.0})
            for (const double hours : {-9.0, 4.0})
                ExpectDerivativesOfTheRun({lat, course, 17.0, hours}, 1e-8);
}

// On the sphere the rhumb line takes longitudes from meridional parts of an ellipsoid, the derivatives from
// the sphere itself: they differ by some parts in a thousand of a run of at most 100 miles.
TEST_F(ComputePartialsTest, SphereIsWithinTheEllipticityOfItsTables)
{
    earth = sailing::EllipsoidAt(sailing::NormalSphereIndex);
    for (const double lat : {-50.0, 8.0, 45.0})
        for (const double course : {10.0, 90.2, 140.0, 300.0}) {
            ExpectDerivativesOfTheRun({lat, course, 17.0, 4.0}, 4e-4);
            EXPECT_EQ(p.LatByLat[1], 1.0);
        }
}

TEST_F(ComputePartialsTest, BandAroundEastExcludesItsLimits)
{
    // The two sets of formulas differ by 1e-7 or so: which one was taken shows in the exactness.
    const auto lonByLat = [&](double course) {
        Compute({48.0, course, 20.0, 10.0});
        return p.LongByLat[1];
    };
    for (const double edge : {89.5, 90.5, 269.5, 270.5}) {
        const double inward = edge < 90 || (edge > 269 && edge < 270) ? 1e-9 : -1e-9;
        EXPECT_GT(std::fabs(lonByLat(edge) - lonByLat(edge + inward)), 1e-8) << edge;
        EXPECT_LT(std::fabs(lonByLat(edge) - lonByLat(edge - inward)), 1e-9) << edge;
    }
}

TEST_F(ComputePartialsTest, ShipAtRestKeepsOnlyTheDerivativesBySpeed)
{
    for (const double course : {60.0, 90.0}) {
        Compute({40.0, course, 0.0, 3.0});
        EXPECT_EQ(p.LatByLat[1], 1.0);
        EXPECT_NEAR(p.LongByLat[1], 0.0, 1e-15);
        EXPECT_EQ(p.LatByCourse[1], 0.0);
        EXPECT_EQ(p.LongByCourse[1], 0.0);
        EXPECT_NEAR(p.LatBySpeed[1], 3.0 * std::cos(course * test::Degree) / 3435.0, 1e-6);
        EXPECT_GT(p.LongBySpeed[1], 0.0009);
    }
}

TEST_F(ComputePartialsTest, TwoUnknownsLeaveCourseAndSpeedAlone)
{
    for (const double course : {60.0, 90.0}) {
        for (numeric::Vector* v : {&p.LatByCourse, &p.LongByCourse, &p.LatBySpeed, &p.LongBySpeed})
            (*v)[1] = 7.0;
        Compute({40.0, course, 12.0, 3.0}, 2);
        for (const numeric::Vector* v : {&p.LatByCourse, &p.LongByCourse, &p.LatBySpeed, &p.LongBySpeed})
            EXPECT_EQ((*v)[1], 7.0);
    }
}

TEST_F(ComputePartialsTest, LatitudeBeyondThePoleIsAFault)
{
    for (const double lat : {91.0, -91.0}) {
        lats[0] = lats[1] = approx[1] = lat;
        times[1] = 1.0;
        EXPECT_THROW(ComputePartials(1, 45.0, 10.0, times, lats, longs, approx, decs, ghas, hcs, 4, p,
                                     earth.InverseFlattening, earth.SemiMajorAxisNm),
                     numeric::Fault);
    }
}

} // namespace
} // namespace merov::fix
