#include "sailing/great_circle.h"

#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace merov::sailing
{
namespace
{

constexpr double Unset = 777.0;

// Each test fails on a box that it did not expect.
class GreatCircleTest : public testing::Test
{
protected:
    Vertex VertexOf(double lat1, double long1, double lat2, double long2, int ellipsoid = DefaultEllipsoidIndex)
    {
        Vertex vertex{Unset, Unset, Unset, Unset};
        earth = EllipsoidAt(ellipsoid);
        GreatCircleVertex(lat1, long1, lat2, long2, vertex, earth.InverseFlattening, earth.SemiMajorAxisNm);
        return vertex;
    }
    double CourseAt(double longitude, const Vertex& vertex, double fromLong, double toLong, double before = Unset)
    {
        bool failed = false;
        GeodesicLatitudeAt(longitude, vertex, earth.InverseFlattening, fromLong, toLong, before, failed);
        return before;
    }
    double Distance(double lat1, double long1, double lat2, double long2)
    {
        return GeodesicDistance(lat1, long1, lat2, long2, earth.InverseFlattening, earth.SemiMajorAxisNm);
    }

    test::BoxRecorder boxes;
    EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
};

TEST_F(GreatCircleTest, PositionsWithoutATrack)
{
    const Vertex same = VertexOf(10.0, 180.0, 10.00005, -179.99999);
    EXPECT_EQ(same.VertexDistance, -1.0);
    EXPECT_TRUE(same.VertexLat == Unset && same.VertexLong == Unset && same.CotVertex == Unset);
    EXPECT_EQ(Distance(10.0, 180.0, 10.00005, -179.99999), 0.0);
    EXPECT_EQ(test::FaultOf([&] { VertexOf(0.0, 10.0, 0.0, 50.0); }), 11);
}

TEST_F(GreatCircleTest, OneMeridianAndOppositeOnes)
{
    const struct {
        double Lat1, Long1, Lat2, Long2, VertexLat, VertexLong;
        bool Over; // the pole lies on the track
    } rows[] = {{10, 20, 50, 20, 90, -70, false},       {50, 20, 10, 20, 90, -70, false},
                {-50, -100, 10, -100, -90, 170, false}, {-10, 180, 10, -180, 90, 90, false},
                {60, 30, 40, -150, 90, -60, true},      {-60, 30, 40, -150, -90, -60, true},
                {0, 0, 0, 180, 90, -90, true}};
    for (const int ellipsoid : {19, 4, NormalSphereIndex})
        for (const auto& row : rows) {
            const Vertex v = VertexOf(row.Lat1, row.Long1, row.Lat2, row.Long2, ellipsoid);
            EXPECT_EQ(v.VertexLat, row.VertexLat);
            EXPECT_EQ(v.VertexLong, row.VertexLong);
            EXPECT_EQ(v.CotVertex, 0.0);
            EXPECT_NEAR(v.VertexDistance, row.Over ? Distance(row.Lat1, row.Long1, row.VertexLat, row.Long1) : -1.0,
                        1e-6);
            const bool north = row.VertexLat > 0.0;
            EXPECT_EQ(CourseAt(row.Long1, v, row.Long1, row.Long2), !row.Over ? Unset : north ? 360.0 : 180.0);
            EXPECT_EQ(CourseAt(row.Long2, v, row.Long1, row.Long2), !row.Over ? Unset : north ? 180.0 : 360.0);
        }
    VertexOf(0, 0, 1, 0);
    EXPECT_NEAR(Distance(0, 7, 45, 7), 4984944.378 / 1852.0, 0.025); // the meridian of WGS 84
}

// A search that only knows northern vertices failed for southern ones.
TEST_F(GreatCircleTest, SouthernTracksAreMirrorImages)
{
    std::mt19937_64 engine(20040521);
    const auto draw = [&](double size) { return std::uniform_real_distribution<double>(-size, size)(engine); };
    for (int i = 0; i < 1000; ++i) {
        const double lat1 = draw(80.0), long1 = draw(180.0), lat2 = draw(80.0), apart = draw(170.0);
        const double long2 = std::remainder(long1 + apart, 360.0), on = std::remainder(long1 + 0.4 * apart, 360.0);
        const Vertex one = VertexOf(lat1, long1, lat2, long2), other = VertexOf(-lat1, long1, -lat2, long2);
        EXPECT_NEAR(one.VertexLat, -other.VertexLat, 1e-9);
        EXPECT_NEAR(one.VertexLong, other.VertexLong, 1e-9);
        EXPECT_EQ(one.CotVertex > 0.0, one.VertexLat > 0.0);
        bool failed = false;
        EXPECT_NEAR(GeodesicLatitudeAt(on, one, earth.InverseFlattening, failed),
                    -GeodesicLatitudeAt(on, other, earth.InverseFlattening, failed), 1e-9);
    }
}

TEST_F(GreatCircleTest, AtTheVertexAndAtTheNode)
{
    bool failed = false;
    const Vertex v = VertexOf(40.0, -70.0, 50.0, -10.0);
    EXPECT_EQ(GeodesicLatitudeAt(v.VertexLong + 0.1, v, earth.InverseFlattening, failed), v.VertexLat);
    EXPECT_EQ(CourseAt(v.VertexLong + 0.1, v, -70.0, -10.0), 90.0);
    EXPECT_EQ(CourseAt(v.VertexLong - 0.1, v, -10.0, -70.0), 270.0);
    // On the equator cotangents have no bound, so that no search ends there.
    for (const int ellipsoid : {DefaultEllipsoidIndex, NormalSphereIndex}) {
        const Vertex node = VertexOf(0.0, 0.0, -35.0, 60.0, ellipsoid);
        EXPECT_NEAR(GeodesicLatitudeAt(0.0, node, earth.InverseFlattening, failed), 0.0, 1e-6);
        EXPECT_NEAR(CourseAt(0.0, node, 0.0, 60.0), 90.0 - node.VertexLat, 0.2);
    }
    EXPECT_FALSE(failed);
}

} // namespace
} // namespace merov::sailing
