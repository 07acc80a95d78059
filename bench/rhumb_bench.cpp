// Rhumb lines beside GeographicLib::Rhumb on the same lines: its direct problem, its inverse problem,
// and the dead reckoning of one whole fix.

#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"
#include "sailing/rhumb_solutions.h"

#include <GeographicLib/Rhumb.hpp>
#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <vector>

namespace merov::sailing
{
namespace
{

constexpr double MetresPerMile = 1852.0;

struct Line {
    double Lat1, Long1, Course, Distance, Lat2, Long2;
};

const std::vector<Line>& Lines()
{
    static const std::vector<Line> lines = [] {
        std::mt19937_64 engine(20040521);
        const auto draw = [&](double low, double high) {
            return std::uniform_real_distribution<double>(low, high)(engine);
        };
        const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
        std::vector<Line> all(1024);
        for (Line& line : all) {
            line = {draw(-65.0, 65.0), draw(-180.0, 180.0), draw(0.0, 360.0), draw(1.0, 600.0), 0.0, 0.0};
            RhumbLineDirect(line.Lat1, line.Long1, line.Course, line.Distance, line.Lat2, line.Long2,
                            earth.InverseFlattening, earth.SemiMajorAxisNm);
        }
        return all;
    }();
    return lines;
}

GeographicLib::Rhumb Reference(bool exact)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    return {earth.SemiMajorAxisNm * MetresPerMile, 1.0 / earth.InverseFlattening, exact};
}

// Runs `solve(line, first, second)` over all lines in turn.
template <class Solve>
void RunLines(benchmark::State& state, Solve&& solve)
{
    const std::vector<Line>& lines = Lines();
    std::size_t i = 0;
    for (auto _ : state) {
        double first = 0.0;
        double second = 0.0;
        solve(lines[i++ % lines.size()], first, second);
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
    }
}

void RhumbDirect(benchmark::State& state)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    RunLines(state, [&](const Line& line, double& lat2, double& long2) {
        RhumbLineDirect(line.Lat1, line.Long1, line.Course, line.Distance, lat2, long2, earth.InverseFlattening,
                        earth.SemiMajorAxisNm);
    });
}
BENCHMARK(RhumbDirect);

void RhumbDirectGeographicLib(benchmark::State& state)
{
    const GeographicLib::Rhumb rhumb = Reference(state.range(0) != 0);
    RunLines(state, [&](const Line& line, double& lat2, double& long2) {
        rhumb.Direct(line.Lat1, line.Long1, line.Course, line.Distance * MetresPerMile, lat2, long2);
    });
}
BENCHMARK(RhumbDirectGeographicLib)->ArgName("exact")->Arg(0)->Arg(1);

void RhumbInverse(benchmark::State& state)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    RunLines(state, [&](const Line& line, double& course, double& distance) {
        RhumbLineInverse(line.Lat1, line.Long1, line.Lat2, line.Long2, course, distance, earth.InverseFlattening,
                         earth.SemiMajorAxisNm);
    });
}
BENCHMARK(RhumbInverse);

void RhumbInverseGeographicLib(benchmark::State& state)
{
    const GeographicLib::Rhumb rhumb = Reference(state.range(0) != 0);
    RunLines(state, [&](const Line& line, double& course, double& distance) {
        rhumb.Inverse(line.Lat1, line.Long1, line.Lat2, line.Long2, distance, course);
    });
}
BENCHMARK(RhumbInverseGeographicLib)->ArgName("exact")->Arg(0)->Arg(1);

// 49 sights, 100 iterations: the dead reckoning of the longest fix.
void RhumbDeadReckoningOfFix(benchmark::State& state)
{
    const EarthModel earth = EllipsoidAt(DefaultEllipsoidIndex);
    for (auto _ : state) {
        double sum = 0.0;
        for (int iteration = 0; iteration < 100; ++iteration) {
            for (int sight = 1; sight <= 49; ++sight) {
                double lat2 = 0.0;
                double long2 = 0.0;
                RhumbLineDirect(45.5 + 1e-4 * iteration, -8.25, 237.4, 0.3 * (sight - 25), lat2, long2,
                                earth.InverseFlattening, earth.SemiMajorAxisNm);
                sum += lat2 + long2;
            }
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(RhumbDeadReckoningOfFix)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace merov::sailing
