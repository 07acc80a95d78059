// Great circles against GeographicLib::Geodesic, which solves geodesics to a few nanometres (C. F. F. Karney,
// J. Geod. 87, 2013). Tracks are drawn at random, class by class; the errors are printed.

#include "sailing/ellipsoid.h"
#include "sailing/great_circle.h"
#include "support/box_recorder.h"

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>
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
constexpr std::size_t TracksPerClass = 3000;

double Wrapped(double degrees)
{
    return std::remainder(degrees, 360.0);
}

struct Earth {
    EarthModel Model;
    double F = 1.0 / Model.InverseFlattening;
    GeographicLib::Geodesic Reference{Model.SemiMajorAxisNm * Mile, F};
};

struct Track {
    double Lat1, Long1, Lat2, Long2;
};

// Ranges from which tracks are drawn, and the largest errors of each: miles of distance, degrees of the
// vertex's latitude and of courses, degrees of its longitude, miles of points across the track.
struct Class {
    const char* Name;
    double Lat1[2], Times, Lat2[2]; // Lat2 lies in the range beside Times * Lat1
    double Base, Apart[2];          // degrees of longitude, of which those in the range lie on either side
    double Distance, Angle, Long, Across;
    double Course = -1.0; // instead of Lat2 and Apart: leaves so many degrees at most off east or west
};

constexpr Class Classes[] = {
    {"both north", {1, 80}, 0, {1, 80}, 0, {1, 170}, 0.17, 0.002, 0.001, 0.1},
    {"both south", {-80, -1}, 0, {-80, -1}, 0, {1, 170}, 0.17, 0.002, 0.001, 0.1},
    {"crossing, northern vertex", {40, 80}, 0, {-40, -1}, 0, {1, 170}, 0.17, 0.002, 0.002, 0.1},
    {"crossing, southern vertex", {1, 40}, 0, {-80, -40}, 0, {1, 170}, 0.17, 0.002, 0.002, 0.1},
    {"both within a degree of the equator", {-1, 1}, 0, {-1, 1}, 0, {1, 170}, 0.04, 0.002, 0.006, 0.1},
    {"from the equator", {0, 0}, 0, {-80, 80}, 0, {1, 170}, 0.17, 0.002, 0.006, 0.1},
    {"one parallel", {-75, 75}, 1, {0, 0}, 0, {1, 170}, 0.17, 0.002, 0.001, 0.1},
    {"mirrored latitudes", {-75, 75}, -1, {0, 0}, 0, {1, 170}, 0.05, 0.001, 0.001, 0.01},
    {"short", {-75, 75}, 1, {-0.7, 0.7}, 0, {0, 0.7}, 0.001, 0.001, 0.001, 0.001},
    {"one meridian", {-85, 85}, 0, {-85, 85}, 0, {0, 0}, 0.025, 1e-9, 1e-9, 1e-9},
    {"near one meridian", {-85, 85}, 0, {-85, 85}, 0, {1e-4, 1}, 0.025, 0.001, 0.001, 0.001},
    {"opposite meridians", {-85, 85}, 0, {-85, 85}, 180, {0, 0}, 0.03, 1e-9, 1e-9, 1e-9},
    {"departure by the vertex", {-75, 75}, 0, {}, 0, {}, 0.02, 0.001, 0.01, 0.1, 0.3},
    {"departure at the vertex", {-75, 75}, 0, {}, 0, {}, 0.02, 0.001, 0.01, 0.1, 0.0},
    {"5 to 15 degrees off the antipode", {-60, 60}, -1, {5, 15}, 180, {0, 15}, 0.6, 0.006, 0.01, 0.4},
    {"1 to 5 degrees off the antipode", {-60, 60}, -1, {1, 5}, 180, {0, 5}, 3.5, 0.025, 0.1, 1.5},
};

// Random numbers, the same in each run.
struct Draw {
    double In(const double (&range)[2]) { return std::uniform_real_distribution<double>(range[0], range[1])(Engine); }
    double Side() { return In({0.0, 1.0}) < 0.5 ? -1.0 : 1.0; }

    // Half of the tracks start close enough to 180 degrees to cross it.
    Track Of(const Class& c, const Earth& earth)
    {
        Track t{In(c.Lat1), Wrapped(Side() > 0.0 ? In({-180, 180}) : In({170, 190})), In(c.Lat2), 0.0};
        if (c.Course >= 0.0) {
            earth.Reference.Direct(t.Lat1, t.Long1, Side() * (90.0 + c.Course * In({-1, 1})), In({1e4, 9e6}), t.Lat2,
                                   t.Long2);
            return t;
        }
        t.Lat2 = c.Times * t.Lat1 + (c.Times < 0.0 ? Side() : 1.0) * t.Lat2;
        t.Long2 = Wrapped(t.Long1 + c.Base + Side() * In(c.Apart));
        if (Side() > 0.0 && c.Times == 0.0 && c.Lat1[0] != 0.0) std::swap(t.Lat1, t.Lat2);
        return t;
    }
    std::mt19937_64 Engine{20040521};
};

struct Errors : std::vector<double> {
    void Add(double error) { push_back(std::fabs(error)); }
    double At(double part) const
    {
        return empty() ? 0.0 : (*this)[std::min(size() - 1, std::size_t(part * double(size())))];
    }
};

struct Comparison {
    Errors Distance, VertexLat, VertexLong, ToVertex, Course, Across;
    int WrongSide = 0; // a vertex told off the track that is on it, or the other way round

    void Add(const Earth& earth, const Track& t, Draw& draw)
    {
        const auto& [r, a] = earth.Model;
        double metres = 0.0, course1 = 0.0, course2 = 0.0;
        const double arc = earth.Reference.Inverse(t.Lat1, t.Long1, t.Lat2, t.Long2, metres, course1, course2);
        Distance.Add(GeodesicDistance(t.Lat1, t.Long1, t.Lat2, t.Long2, r, a) - metres / Mile);

        // The vertex of the reference: a quarter circle on from the node, next to the end of greater latitude.
        const GeographicLib::GeodesicLine line = earth.Reference.Line(t.Lat1, t.Long1, course1);
        const double beta = std::atan((1.0 - earth.F) * std::tan(t.Lat1 * Degree));
        const bool first = std::fabs(t.Lat2) < std::fabs(t.Lat1);
        const double quarter = (first ? t.Lat1 : t.Lat2) > 0.0 ? 90.0 : -90.0, greater = first ? 0.0 : arc;
        const double fromNode = std::atan2(std::sin(beta), std::cos(course1 * Degree) * std::cos(beta)) / Degree;
        const double there = greater + Wrapped(quarter - fromNode - greater);
        double lat = 0.0, lon = 0.0, azimuth = 0.0, toVertex = 0.0;
        line.ArcPosition(there, lat, lon, azimuth, toVertex);

        Vertex vertex;
        GreatCircleVertex(t.Lat1, t.Long1, t.Lat2, t.Long2, vertex, r, a);
        const bool pole = std::fabs(vertex.VertexLat) == 90.0;
        const bool onTrack = vertex.VertexDistance != -1.0, within = there > 0.0 && there < arc;
        const bool clear = !pole && std::fabs(there) > 0.01 && std::fabs(there - arc) > 0.01;
        VertexLat.Add(vertex.VertexLat - lat);
        if (!pole) VertexLong.Add(Wrapped(vertex.VertexLong - lon));
        if (clear && onTrack) ToVertex.Add(vertex.VertexDistance - toVertex / Mile);
        WrongSide += clear && onTrack != within;

        bool failed = false;
        for (const double end : {t.Long1, t.Long2}) {
            const double truth = end == t.Long1 ? course1 : course2;
            double course = truth; // on one meridian it stays
            const double found = GeodesicLatitudeAt(end, vertex, r, t.Long1, t.Long2, course, failed);
            if (pole || found != vertex.VertexLat) Course.Add(Wrapped(course - truth));
        }
        for (int point = 0; point < 5 && !pole; ++point) {
            line.ArcPosition(draw.In({0.0, arc}), lat, lon, azimuth);
            const double found = GeodesicLatitudeAt(lon, vertex, r, failed);
            if (found != vertex.VertexLat) Across.Add((found - lat) * 60.0 * std::sin(azimuth * Degree));
        }
        EXPECT_FALSE(failed);
    }
};

// An argument out of range or a failed system shows a box and so fails the test.
Comparison Compared(const Class& c, const std::vector<Earth>& earths)
{
    test::BoxRecorder boxes;
    Draw draw;
    Comparison x;
    for (std::size_t i = 0; i < TracksPerClass; ++i) {
        const Earth& earth = earths[i % earths.size()];
        x.Add(earth, draw.Of(c, earth), draw);
    }
    EXPECT_EQ(x.WrongSide, 0);
    for (Errors* errors : {&x.Distance, &x.VertexLat, &x.VertexLong, &x.ToVertex, &x.Course, &x.Across}) {
        std::sort(errors->begin(), errors->end());
        std::printf("%9.2g%9.2g%9.2g%9.2g |", errors->At(0.5), errors->At(0.95), errors->At(0.99), errors->At(1.0));
    }
    std::printf(" %s\n", c.Name);
    return x;
}

TEST(GreatCircleAgainstGeographicLib, Ellipsoids)
{
    const std::vector<Earth> earths{{EllipsoidAt(19)}, {EllipsoidAt(4)}, {EllipsoidAt(2)}};
    std::printf(
        "median, 95 %%, 99 %%, largest of distance (miles), latitude and longitude of the vertex (degrees), distance "
        "to it, courses (degrees), places across the track (miles)\n");
    for (const Class& c : Classes) {
        SCOPED_TRACE(c.Name);
        const Comparison x = Compared(c, earths);
        EXPECT_LT(x.Distance.At(1.0), c.Distance);
        EXPECT_LT(std::max(x.VertexLat.At(1.0), x.Course.At(1.0)), c.Angle);
        EXPECT_LT(x.VertexLong.At(1.0), c.Long);
        EXPECT_LT(x.Across.At(1.0), c.Across);
    }
}

// A flattening of 1e-100 makes the reference a sphere.
TEST(GreatCircleAgainstGeographicLib, NormalSphere)
{
    const std::vector<Earth> earths{{EllipsoidAt(NormalSphereIndex)}};
    for (const Class& c : Classes) {
        SCOPED_TRACE(c.Name);
        const Comparison x = Compared(c, earths);
        EXPECT_LT(x.Distance.At(1.0), 1e-8);
        EXPECT_LT(x.VertexLat.At(1.0), 1e-8);
        EXPECT_LT(x.VertexLong.At(0.99), 1e-4);
        EXPECT_LT(x.Course.At(1.0), 1e-5);
        EXPECT_LT(x.Across.At(1.0), 1e-4);
    }
}

} // namespace
} // namespace merov::sailing
