#pragma once

#include <benchmark/benchmark.h>

namespace merov::bench
{

/// Measures `step`, which takes days from J2000.0 and gives what it computed. The dates lie a little less than
/// a day apart over a century: no call repeats the one before, which libraries keep.
template <class Step>
void ByDate(benchmark::State& state, Step step)
{
    double days = -18000.0;
    for ([[maybe_unused]] auto _ : state) {
        auto result = step(days);
        benchmark::DoNotOptimize(result);
        days = days < 18000.0 ? days + 0.97 : -18000.0;
    }
}

/// J2000.0 as a date-time.
constexpr double J2000DateTime = 36526.5;

} // namespace merov::bench
