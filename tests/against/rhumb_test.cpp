// Rhumb lines against GeographicLib::Rhumb, which solves them to a few nanometres (C. F. F. Karney,
// J. Geod. 98, 2024). Lines are drawn at random, in both hemispheres and across 180 degrees.

#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"
#include "sailing/rhumb_solutions.h"
#include "support/box_recorder.h"

#include <GeographicLib/Rhumb.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace merov::sailing
{
namespace
{

constexpr double Mile = 1852.0;
constexpr double Degree = 3.14159265358979324 / 180.0;
constexpr int LinesPerClass = 4000;

struct Line {
    double Lat1, Long1, Course, Distance; // degrees, miles
    double Lat2, Long2;                   // arrival by the reference
};

struct Earth {
    EarthModel Model;
    GeographicLib::Rhumb Reference;

    explicit Earth(int index)
        : Model(EllipsoidAt(index)),
          Reference(Model.SemiMajorAxisNm * Mile, 1.0 / Model.InverseFlattening, true) // exact, not by series
    {
    }

    double MilesBetween(double lat1, double long1, double lat2, double long2) const
    {
        double metres = 0.0, azimuth = 0.0;
        Reference.Inverse(lat1, long1, lat2, long2, metres, azimuth);
        return metres / Mile;
    }
};

// Courses of a class: anywhere but the band about east and west, in the band, and just outside it.
enum class Courses { Oblique, Band, BesideBand };

// Random numbers, the same in each run.
struct Draw {
    double Between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(Engine); }
    double Course(Courses courses)
    {
        const double axis = Between(0.0, 1.0) < 0.5 ? 90.0 : 270.0;
        if (courses == Courses::Band) return axis + Between(-0.4999, 0.4999);
        if (courses == Courses::BesideBand) return axis + (Between(0.0, 1.0) < 0.5 ? -1.0 : 1.0) * Between(0.5, 1.5);
        return std::fmod(axis + 90.0 + Between(-89.5, 89.5) + 360.0, 360.0); // north and south quadrants
    }
    std::mt19937_64 Engine{20040521};
};

// The largest errors of a class, miles.
struct Worst {
    double Distance = 0.0; // in the distance or, of the direct problem, in the place
    double Beside = 0.0;   // in the course or place that goes with it
    double Squares = 0.0;  // of Distance, summed
    int Lines = 0;
};

// Runs `solve(earth, line, off, beside)`, which sets the errors of one line, for each line of a class:
// half to all of `length` miles, up to 80 degrees of latitude, less than half round the Earth.
template <class Solve>
Worst WorstOf(Courses courses, double length, Solve&& solve)
{
    static const std::vector<Earth> earths{Earth(19), Earth(4), Earth(2), Earth(8)};
    Draw draw;
    using GeographicLib::Rhumb;
    Worst worst;
    test::BoxRecorder boxes; // a failed search shows a box and so fails the test
    for (std::size_t i = 0; i < LinesPerClass; ++i) {
        const Earth& earth = earths[i % earths.size()];
        const double long1 =
            i % 8 < 4 ? draw.Between(-180.0, 180.0) : std::remainder(draw.Between(175.0, 185.0), 360.0);
        Line line{draw.Between(-70.0, 70.0), long1, draw.Course(courses), draw.Between(0.5, 1.0) * length, 0.0, 0.0};
        double area = 0.0, distance = 0.0, beside = 0.0;
        earth.Reference.GenDirect(line.Lat1, line.Long1, line.Course, line.Distance * Mile,
                                  Rhumb::LATITUDE | Rhumb::LONGITUDE | Rhumb::LONG_UNROLL, line.Lat2, line.Long2, area);
        if (!(std::fabs(line.Lat2) < 80.0 && std::fabs(line.Long2 - line.Long1) < 179.0)) continue; // NaN beyond a pole
        line.Long2 = std::remainder(line.Long2, 360.0);
        solve(earth, line, distance, beside);
        worst.Distance = std::max(worst.Distance, std::fabs(distance));
        worst.Beside = std::max(worst.Beside, std::fabs(beside));
        worst.Squares += distance * distance;
        ++worst.Lines;
    }
    constexpr const char* Names[] = {"oblique", "near east and west", "beside that"};
    std::printf("%-12s %5.0f miles, %-18s  rms %8.2g  max %8.2g | beside: max %8.2g\n",
                testing::UnitTest::GetInstance()->current_test_info()->name(), length, Names[static_cast<int>(courses)],
                std::sqrt(worst.Squares / worst.Lines), worst.Distance, worst.Beside);
    return worst;
}

// The arc of the meridian stops at its term in e^2, and the band takes the mean latitude; both errors
// grow with the length of the line, that of the band with its square.
TEST(RhumbAgainstGeographicLib, Direct)
{
    const struct {
        double Length, Oblique, Band; // miles
    } bounds[] = {{1, 2e-5, 1e-5},      {10, 2e-4, 1e-5},     {100, 2e-3, 5e-5},
                  {500, 0.009, 0.0013}, {1000, 0.018, 0.008}, {3000, 0.06, 0.16}};
    for (const auto& [length, oblique, band] : bounds)
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            const Worst worst = WorstOf(courses, length, [](const Earth& e, const Line& line, double& off, double&) {
                double lat2 = 0.0, long2 = 0.0;
                RhumbLineDirect(line.Lat1, line.Long1, line.Course, line.Distance, lat2, long2,
                                e.Model.InverseFlattening, e.Model.SemiMajorAxisNm);
                off = e.MilesBetween(line.Lat2, line.Long2, lat2, long2);
            });
            EXPECT_GT(worst.Lines, LinesPerClass / 2) << length << " class " << int(courses);
            EXPECT_LT(worst.Distance, courses == Courses::Band ? band : oblique) << length << " class " << int(courses);
        }
}

// The course is that of the isometric latitudes, which are exact; the distance has the direct
// problem's error. In the band the course must make up for the error of the mean latitude and, on short
// lines, for that of two positions on one parallel to within 8e-5 degree: across the line, in miles.
TEST(RhumbAgainstGeographicLib, Inverse)
{
    const struct {
        double Length, Distance, Across; // miles
    } bounds[] = {{1, 3e-5, 1e-7},    {10, 2e-4, 1e-7},    {100, 2e-3, 1e-7},
                  {500, 0.009, 2e-6}, {1000, 0.018, 2e-6}, {3000, 0.16, 2e-6}};
    const auto solve = [](const Earth& e, const Line& line, double& off, double& across) {
        double course = 0.0;
        RhumbLineInverse(line.Lat1, line.Long1, line.Lat2, line.Long2, course, off, e.Model.InverseFlattening,
                         e.Model.SemiMajorAxisNm);
        off -= line.Distance;
        across = line.Distance * std::sin((course - line.Course) * Degree);
    };
    for (const auto& [length, distance, across] : bounds)
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            const Worst worst = WorstOf(courses, length, solve);
            EXPECT_LT(worst.Distance, distance) << length << " class " << int(courses);
            EXPECT_LT(worst.Beside, courses == Courses::Oblique ? across : 0.0049) << length << " " << int(courses);
        }
}

// The longitude comes from exact isometric latitudes, the distance has the direct problem's error, in
// the band divided by the cosine of a course close to 90 degrees.
TEST(RhumbAgainstGeographicLib, ToLatitude)
{
    const auto solve = [](const Earth& e, const Line& line, double& off, double& beside) {
        if (SameLatitude(line.Lat1, line.Lat2)) return;
        double long2 = 0.0;
        RhumbLineToLatitude(line.Lat1, line.Long1, line.Course, line.Lat2, long2, off, e.Model.InverseFlattening,
                            e.Model.SemiMajorAxisNm);
        off -= line.Distance;
        beside = e.MilesBetween(line.Lat2, line.Long2, line.Lat2, long2);
    };
    for (const double length : {10.0, 100.0, 1000.0, 3000.0})
        for (const Courses courses : {Courses::Oblique, Courses::BesideBand}) {
            const Worst worst = WorstOf(courses, length, solve);
            EXPECT_LT(worst.Distance, 2e-5 * length) << length << " class " << int(courses);
            EXPECT_LT(worst.Beside, 1e-6) << length << " class " << int(courses);
        }
}

TEST(RhumbAgainstGeographicLib, ToLongitude)
{
    const auto solve = [](const Earth& e, const Line& line, double& off, double& beside) {
        if (SameLongitude(line.Long1, line.Long2)) return;
        double lat2 = 0.0;
        RhumbLineToLongitude(line.Lat1, line.Long1, line.Course, line.Long2, lat2, off, e.Model.InverseFlattening,
                             e.Model.SemiMajorAxisNm);
        off -= line.Distance;
        beside = (lat2 - line.Lat2) * 60.0;
    };
    for (const double length : {10.0, 100.0, 1000.0, 3000.0})
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            const Worst worst = WorstOf(courses, length, solve);
            const bool longBand = courses == Courses::Band && length > 1000.0;
            EXPECT_LT(worst.Distance, longBand ? 0.16 : 2e-5 * length) << length << " class " << int(courses);
            EXPECT_LT(worst.Beside, courses == Courses::Band ? 0.003 : 2e-5) << length << " class " << int(courses);
        }
}

} // namespace
} // namespace merov::sailing
