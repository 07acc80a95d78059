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
    double Lat2, Long2;                   // arrival by the reference; longitude not reduced
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
        double metres = 0.0;
        double azimuth = 0.0;
        Reference.Inverse(lat1, long1, lat2, long2, metres, azimuth);
        return metres / Mile;
    }
};

// Courses of a class: anywhere but the band about east and west, in the band, and just outside it.
enum class Courses { Oblique, Band, BesideBand };

double DrawCourse(Courses courses, std::mt19937_64& engine)
{
    const auto draw = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine);
    };
    const double axis = draw(0.0, 1.0) < 0.5 ? 90.0 : 270.0;
    switch (courses) {
    case Courses::Oblique: // north and south quadrants
        return std::fmod(axis + 90.0 + draw(-89.5, 89.5) + 360.0, 360.0);
    case Courses::Band:
        return axis + draw(-0.4999, 0.4999);
    default:
        return axis + (draw(0.0, 1.0) < 0.5 ? -1.0 : 1.0) * draw(0.5, 1.5);
    }
}

// `use(earth, line)` for each line of a class: half to all of `length` miles, up to 80 degrees of
// latitude, less than half round the Earth.
template <class Use>
void ForLines(Courses courses, double length, Use&& use)
{
    static const std::vector<Earth> earths{Earth(19), Earth(4), Earth(2), Earth(8)};
    std::mt19937_64 engine(20040521);
    const auto draw = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine);
    };
    for (std::size_t i = 0; i < LinesPerClass; ++i) {
        const Earth& earth = earths[i % earths.size()];
        const double long1 = i % 8 < 4 ? draw(-180.0, 180.0) : std::remainder(draw(175.0, 185.0), 360.0);
        Line line{draw(-70.0, 70.0), long1, DrawCourse(courses, engine), draw(0.5, 1.0) * length, 0.0, 0.0};
        double area = 0.0;
        earth.Reference.GenDirect(line.Lat1, line.Long1, line.Course, line.Distance * Mile,
                                  GeographicLib::Rhumb::LATITUDE | GeographicLib::Rhumb::LONGITUDE |
                                      GeographicLib::Rhumb::LONG_UNROLL,
                                  line.Lat2, line.Long2, area);
        if (!(std::fabs(line.Lat2) < 80.0 && std::fabs(line.Long2 - line.Long1) < 179.0)) continue; // NaN beyond a pole
        use(earth, line);
    }
}

class RhumbAgainstGeographicLib : public testing::Test
{
protected:
    test::BoxRecorder boxes; // a failed search shows a box and so fails the test
};

// The arc of the meridian stops at its term in e^2, and the band takes the mean latitude; both errors
// grow with the length of the line, that of the band with its square.
TEST_F(RhumbAgainstGeographicLib, Direct)
{
    const struct {
        double Length, Oblique, Band; // miles
    } bounds[] = {{1, 2e-5, 1e-5},      {10, 2e-4, 1e-5},     {100, 2e-3, 5e-5},
                  {500, 0.009, 0.0013}, {1000, 0.018, 0.008}, {3000, 0.06, 0.16}};
    for (const auto& [length, oblique, band] : bounds) {
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            double worst = 0.0;
            int count = 0;
            ForLines(courses, length, [&](const Earth& earth, const Line& line) {
                double lat2 = 0.0;
                double long2 = 0.0;
                RhumbLineDirect(line.Lat1, line.Long1, line.Course, line.Distance, lat2, long2,
                                earth.Model.InverseFlattening, earth.Model.SemiMajorAxisNm);
                worst = std::max(worst, earth.MilesBetween(line.Lat2, line.Long2, lat2, long2));
                ++count;
            });
            EXPECT_GT(count, LinesPerClass / 2);
            EXPECT_LT(worst, courses == Courses::Band ? band : oblique) << length << " class " << int(courses);
            RecordProperty(("worst_" + std::to_string(int(length)) + "_" + std::to_string(int(courses))).c_str(),
                           std::to_string(worst));
        }
    }
}

// The course is that of the isometric latitudes, which are exact; the distance has the direct
// problem's error. In the band the course must make up for the error of the mean latitude and, on short
// lines, for that of two positions on one parallel to within 8e-5 degree: across the line, in miles.
TEST_F(RhumbAgainstGeographicLib, Inverse)
{
    const struct {
        double Length, Distance, Across; // miles
    } bounds[] = {{1, 3e-5, 1e-7},    {10, 2e-4, 1e-7},    {100, 2e-3, 1e-7},
                  {500, 0.009, 2e-6}, {1000, 0.018, 2e-6}, {3000, 0.16, 2e-6}};
    for (const auto& [length, distanceBound, acrossBound] : bounds) {
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            double worst = 0.0;
            double across = 0.0;
            ForLines(courses, length, [&](const Earth& earth, const Line& line) {
                double course = 0.0;
                double distance = 0.0;
                RhumbLineInverse(line.Lat1, line.Long1, line.Lat2, line.Long2, course, distance,
                                 earth.Model.InverseFlattening, earth.Model.SemiMajorAxisNm);
                worst = std::max(worst, std::fabs(distance - line.Distance));
                across = std::max(across, line.Distance * std::fabs(std::sin((course - line.Course) * Degree)));
            });
            EXPECT_LT(worst, distanceBound) << length << " class " << int(courses);
            EXPECT_LT(across, courses == Courses::Oblique ? acrossBound : 0.0049)
                << length << " class " << int(courses);
        }
    }
}

// The longitude comes from exact isometric latitudes, the distance has the direct problem's error, in
// the band divided by the cosine of a course close to 90 degrees.
TEST_F(RhumbAgainstGeographicLib, ToLatitude)
{
    for (const double length : {10.0, 100.0, 1000.0, 3000.0}) {
        for (const Courses courses : {Courses::Oblique, Courses::BesideBand}) {
            double worst = 0.0;
            double beside = 0.0;
            ForLines(courses, length, [&](const Earth& earth, const Line& line) {
                if (SameLatitude(line.Lat1, line.Lat2)) return;
                double long2 = 0.0;
                double distance = 0.0;
                RhumbLineToLatitude(line.Lat1, line.Long1, line.Course, line.Lat2, long2, distance,
                                    earth.Model.InverseFlattening, earth.Model.SemiMajorAxisNm);
                worst = std::max(worst, std::fabs(distance - line.Distance));
                beside = std::max(beside, earth.MilesBetween(line.Lat2, line.Long2, line.Lat2, long2));
            });
            EXPECT_LT(worst, 2e-5 * length) << length;
            EXPECT_LT(beside, 1e-6) << length;
        }
    }
}

TEST_F(RhumbAgainstGeographicLib, ToLongitude)
{
    for (const double length : {10.0, 100.0, 1000.0, 3000.0}) {
        for (const Courses courses : {Courses::Oblique, Courses::Band, Courses::BesideBand}) {
            double worst = 0.0;
            double beside = 0.0;
            ForLines(courses, length, [&](const Earth& earth, const Line& line) {
                if (SameLongitude(line.Long1, std::remainder(line.Long2, 360.0))) return;
                double lat2 = 0.0;
                double distance = 0.0;
                RhumbLineToLongitude(line.Lat1, line.Long1, line.Course, std::remainder(line.Long2, 360.0), lat2,
                                     distance, earth.Model.InverseFlattening, earth.Model.SemiMajorAxisNm);
                worst = std::max(worst, std::fabs(distance - line.Distance));
                beside = std::max(beside, std::fabs(lat2 - line.Lat2) * 60.0);
            });
            const bool longBand = courses == Courses::Band && length > 1000.0;
            EXPECT_LT(worst, longBand ? 0.16 : 2e-5 * length) << length << " class " << int(courses);
            EXPECT_LT(beside, courses == Courses::Band ? 0.003 : 2e-5) << length << " class " << int(courses);
        }
    }
}

} // namespace
} // namespace merov::sailing
