// Geodesics beside GeographicLib::Geodesic on the same tracks: the distance, and a whole great circle with
// a hundred latitudes along it.

#include "sailing/ellipsoid.h"
#include "sailing/geodesic_curve.h"
#include "sailing/great_circle.h"

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace merov::sailing
{
namespace
{

constexpr double MetresPerMile = 1852.0;
constexpr int PointsPerTrack = 100;

struct Track {
    double Lat1, Long1, Lat2, Long2;

    double LongAt(int point) const
    {
        return std::remainder(Long1 + std::remainder(Long2 - Long1, 360.0) * point / PointsPerTrack, 360.0);
    }
};

// Anywhere between 75 degrees south and north, up to 160 degrees of longitude apart.
const std::vector<Track>& Tracks()
{
    static const std::vector<Track> tracks = [] {
        std::mt19937_64 engine(20040521);
        const auto draw = [&](double low, double high) {
            return std::uniform_real_distribution<double>(low, high)(engine);
        };
        std::vector<Track> all(1024);
        for (Track& track : all) {
            track = {draw(-75.0, 75.0), draw(-180.0, 180.0), draw(-75.0, 75.0), 0.0};
            track.Long2 = std::remainder(track.Long1 + draw(-160.0, 160.0), 360.0);
        }
        return all;
    }();
    return tracks;
}

// Runs `solve(track)`, which gives a number, over all tracks in turn.
template <class Solve>
void RunTracks(benchmark::State& state, Solve&& solve)
{
    const std::vector<Track>& tracks = Tracks();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(solve(tracks[i++ % tracks.size()]));
}

const EarthModel& Earth()
{
    static const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    return earth;
}

const GeographicLib::Geodesic& Reference()
{
    static const GeographicLib::Geodesic geodesic(Earth().SemiMajorAxisNm * MetresPerMile,
                                                  1.0 / Earth().InverseFlattening);
    return geodesic;
}

Vertex VertexOf(const Track& t)
{
    Vertex vertex;
    GreatCircleVertex(t.Lat1, t.Long1, t.Lat2, t.Long2, vertex, Earth().InverseFlattening, Earth().SemiMajorAxisNm);
    return vertex;
}

double SumOfLatitudes(const Track& t, const Vertex& vertex)
{
    double sum = 0.0;
    bool failed = false;
    for (int point = 1; point < PointsPerTrack; ++point)
        sum += GeodesicLatitudeAt(t.LongAt(point), vertex, Earth().InverseFlattening, failed);
    return sum;
}

void DistanceOfGeodesic(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) {
        return GeodesicDistance(t.Lat1, t.Long1, t.Lat2, t.Long2, Earth().InverseFlattening, Earth().SemiMajorAxisNm);
    });
}
BENCHMARK(DistanceOfGeodesic);

void InverseGeographicLib(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) {
        double metres = 0.0;
        Reference().Inverse(t.Lat1, t.Long1, t.Lat2, t.Long2, metres);
        return metres;
    });
}
BENCHMARK(InverseGeographicLib);

void VertexOfGeodesic(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) { return VertexOf(t).VertexLong; });
}
BENCHMARK(VertexOfGeodesic);

void HundredLatitudesOfGeodesic(benchmark::State& state)
{
    std::vector<Vertex> vertices;
    for (const Track& track : Tracks())
        vertices.push_back(VertexOf(track));
    RunTracks(state, [&](const Track& t) {
        return SumOfLatitudes(t, vertices[static_cast<std::size_t>(&t - Tracks().data())]);
    });
}
BENCHMARK(HundredLatitudesOfGeodesic)->Unit(benchmark::kMicrosecond);

void WholeGreatCircle(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) { return SumOfLatitudes(t, VertexOf(t)); });
}
BENCHMARK(WholeGreatCircle)->Unit(benchmark::kMicrosecond);

// Its line gives points at equal distances, which is less to ask than points at given meridians.
void HundredPointsGeographicLib(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) {
        const GeographicLib::GeodesicLine line = Reference().InverseLine(t.Lat1, t.Long1, t.Lat2, t.Long2);
        double sum = 0.0;
        for (int point = 1; point < PointsPerTrack; ++point) {
            double lat = 0.0;
            double lon = 0.0;
            line.Position(line.Distance() * point / PointsPerTrack, lat, lon);
            sum += lat;
        }
        return sum;
    });
}
BENCHMARK(HundredPointsGeographicLib)->Unit(benchmark::kMicrosecond);

void PeriodOfGeodesic(benchmark::State& state)
{
    RunTracks(state, [](const Track& t) { return GeodesicPeriod(t.Lat1, Earth().InverseFlattening); });
}
BENCHMARK(PeriodOfGeodesic);

} // namespace
} // namespace merov::sailing
