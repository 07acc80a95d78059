// Composite tracks against GeographicLib's geodesics (C. F. F. Karney, J. Geod. 87, 2013): a geodesic that
// touches a parallel runs due east or west there.

#include "numeric/math_lib.h"
#include "sailing/composite_sailing.h"
#include "sailing/geodesic_curve.h"
#include "support/box_recorder.h"

#include <GeographicLib/Geodesic.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace merov::sailing
{
namespace
{

TEST(CompositeAgainst, GeographicLibRunsDueEastOrWestWhereTheLimitIsTouched)
{
    const test::BoxRecorder boxes;
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    const GeographicLib::Geodesic reference(earth.SemiMajorAxisNm, 1.0 / earth.InverseFlattening);
    std::mt19937_64 engine(4);
    const auto draw = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine);
    };
    std::vector<double> off, miles;
    int otherHemisphere = 0;
    while (off.size() < 6000) {
        const numeric::GeoPosition from{draw(-75, 75), draw(-180, 180)}, to{draw(-75, 75), draw(-180, 180)};
        Vertex vertex;
        GreatCircleVertex(from.Latitude, from.Longitude, to.Latitude, to.Longitude, vertex, earth.InverseFlattening,
                          earth.SemiMajorAxisNm);
        const int side = numeric::Sign(vertex.VertexLat);
        const double lowest = std::max(side * from.Latitude, side * to.Latitude) + 0.05;
        const double apart = std::fabs(numeric::NormalizeLongitude(to.Longitude - from.Longitude));
        if (vertex.VertexDistance == -1.0 || apart > 170.0 || side * vertex.VertexLat < lowest) continue;
        const double limit = side * draw(lowest, side * vertex.VertexLat);
        const CompositeTrack track = SolveComposite(from, to, limit, earth);
        const double due = EastSign(from.Longitude, to.Longitude) * 90.0;
        const auto leg = [&](const numeric::GeoPosition& end, double touch, double distance, double azimuth) {
            double exact = 0.0, there = 0.0, back = 0.0;
            reference.Inverse(limit, touch, end.Latitude, end.Longitude, exact, there, back);
            // How far the touching point lies off, along the parallel: the azimuth turns by sin(lat) per degree.
            off.push_back(60.0 * std::fabs(numeric::NormalizeLongitude(there - azimuth)) /
                          std::tan(std::fabs(limit) * numeric::DegToRad));
            miles.push_back(std::fabs(exact - distance));
        };
        leg(from, track.TouchLong1, track.LegDist[0], -due);
        leg(to, track.TouchLong2, track.LegDist[2], due);
        otherHemisphere += from.Latitude * limit < 0.0;
    }
    EXPECT_GT(otherHemisphere, 500);
    const auto expectBelow = [](const char* what, std::vector<double>& values, double most, double max) {
        std::sort(values.begin(), values.end());
        const double p99 = values[values.size() * 99 / 100];
        std::printf("%s, miles: 99 %% below %.3g, max %.3g\n", what, p99, values.back());
        EXPECT_LT(p99, most);
        EXPECT_LT(values.back(), max);
    };
    expectBelow("touching point", off, 0.001, 0.3);
    expectBelow("length of a leg", miles, 0.05, 0.3);
}

} // namespace
} // namespace merov::sailing
