/// Prints how often the true position lies in the reported ellipse and circle, as tables for docs/accuracy.md.
/// Usage: merov_coverage [TRIALS [SEED]]

#include "numeric/clock.h"
#include "tools/coverage/coverage.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace merov::coverage
{
namespace
{

constexpr int DefaultTrials = 10000;
constexpr std::uint64_t DefaultSeed = 20040521;
constexpr int SightCounts[] = {3, 4, 5, 6, 8, 10, 12};

struct Series {
    const char* Title;
    Errors What;
};

constexpr Series AllSeries[] = {
    {"Normal errors alone, the systematic error looked for", {}},
    {"Normal errors alone, the systematic error not looked for", {.FindSystErr = false}},
    {"One gross error, the systematic error looked for", {.GrossLow = 15.0, .GrossHigh = 30.0}},
    {"One gross error, the systematic error not looked for",
     {.GrossLow = 15.0, .GrossHigh = 30.0, .FindSystErr = false}},
    {"A systematic error of 2', looked for", {.Systematic = 2.0}},
    {"A systematic error of 2', not looked for", {.Systematic = 2.0, .FindSystErr = false}},
    {"A systematic error of 2' over normal errors of 0.5', looked for", {.Sigma = 0.5, .Systematic = 2.0}},
    {"A systematic error of 2' over normal errors of 0.5', not looked for",
     {.Sigma = 0.5, .Systematic = 2.0, .FindSystErr = false}},
};

/// No screen waits for events, and only the time between two messages is asked for.
class StandingClock : public numeric::Clock
{
public:
    Moment Now() override { return {}; }
    void ProcessEvents() override {}
};

void PrintShares(const std::array<int, 4>& hits, int trials)
{
    for (std::size_t p = 0; p < hits.size(); ++p)
        std::printf("%s%.1f", p == 0 ? " | " : " / ", 100.0 * hits[p] / trials);
}

void PrintRow(int sights, const Tally& t)
{
    const Interval at95 = WilsonInterval(t.InEllipse[1], t.Trials);
    std::printf("| %d", sights);
    PrintShares(t.InEllipse, t.Trials);
    std::printf(" | %.1f..%.1f", 100.0 * at95.Low, 100.0 * at95.High);
    PrintShares(t.InMiles, t.Trials);
    PrintShares(t.InCircle, t.Trials);
    std::printf(" | %.2f / %.2f | %.1f", QuantileOf(t.Miles, 0.5), QuantileOf(t.Miles, 0.95), t.FarthestSilent);
    const auto percent = [&t](int fixes) { return 100.0 * fixes / t.Trials; };
    std::printf(" | %.1f | %.1f | %.1f |\n", percent(t.GrossNamed), percent(t.Messages), percent(t.Exact));
    std::fflush(stdout);
}

void PrintTheory()
{
    std::printf("Plain least squares by theory\n\n| Sights | Ellipse 50 / 95 / 99 / 99.9 %% |\n|---|---|\n");
    for (const int sights : SightCounts) {
        std::printf("| %d", sights);
        for (std::size_t p = 0; p < Probabilities.size(); ++p)
            std::printf("%s%.1f", p == 0 ? " | " : " / ", 100.0 * PlainCoverage(Probabilities[p], sights));
        std::printf(" |\n");
    }
}

void PrintAll(int trials, std::uint64_t seed)
{
    std::printf("%d fixes a row, seed %llu; shares in per cent; normal errors of 1' in each altitude unless named\n",
                trials, static_cast<unsigned long long>(seed));
    for (const Series& series : AllSeries) {
        std::printf("\n%s\n\n| Sights | Ellipse 50 / 95 / 99 / 99.9 | Interval of the 95 | Circle, miles | "
                    "Circle, minutes | Off, miles: median / 95 %% | Largest without a message | Gross error found | "
                    "Message | Deviations 0 |\n"
                    "|---|---|---|---|---|---|---|---|---|---|\n",
                    series.Title);
        for (const int sights : SightCounts)
            PrintRow(sights, Simulate(series.What, sights, trials, seed));
    }
    std::printf("\n");
    PrintTheory();
}

} // namespace
} // namespace merov::coverage

int main(int argc, char** argv)
{
    using namespace merov;
    const int trials = argc > 1 ? std::atoi(argv[1]) : coverage::DefaultTrials;
    if (argc > 3 || trials < 1) {
        std::fprintf(stderr, "usage: merov_coverage [TRIALS [SEED]]\n");
        return 2;
    }
    coverage::StandingClock clock;
    const numeric::ScopedClock scope(clock);
    coverage::PrintAll(trials, argc > 2 ? std::strtoull(argv[2], nullptr, 10) : coverage::DefaultSeed);
    return 0;
}
