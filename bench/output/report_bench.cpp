#include "ephemeris/astro_lib.h"
#include "fix/observation_file.h"
#include "fix/true_position.h"
#include "output/numeric_report.h"
#include "sailing/ellipsoid.h"

#include <QAbstractTextDocumentLayout>

#include <benchmark/benchmark.h>

// A report of 49 sights, all of it: the template read, the sights worked from the estimated position, the
// text put together; beside the time in which Qt alone lays the finished text out. It must take at most three
// times as long.

namespace
{

using namespace merov;

constexpr double ScreenWidth = 780.0; // of the smallest window, pixels

/// The twelve sights of a sample over and over, some seconds apart.
fix::SightSession ManySights()
{
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    fix::SightEntry entry;
    fix::SightSession sample;
    fix::LoadObservationFile(MEROV_SOURCE_DIR "/data/Observations/twelve_sights.obs", entry, sample);
    fix::ReadObservationGrid(entry, sample);
    fix::SightSession many = sample;
    fix::AllocateObservations(many, fix::MaxObservations);
    for (int i = 1; i <= many.ObsCount; ++i) {
        const int of = (i - 1) % sample.ObsCount + 1;
        many.ObsTime[i] = sample.ObsTime[of] + (i - of) / 86400.0;
        many.ObsBody[i] = sample.ObsBody[of];
        many.ObsAltitude[i] = sample.ObsAltitude[of];
        many.ObsInstCorr[i] = sample.ObsInstCorr[of];
    }
    const auto [r, a] = sailing::ActiveEllipsoid();
    numeric::LastError journal;
    fix::ComputeTruePosition(many, r, a, journal);
    return many;
}

platform::RichText Report(fix::SightSession& session)
{
    platform::RichText text;
    const auto wrong =
        output::BuildNumericReport(text, MEROV_RUN_DIR "/NumResults.rtf", session, sailing::ActiveEllipsoid(), 61);
    if (wrong) qFatal("%s", qPrintable(*wrong));
    return text;
}

void ReportBuilt(benchmark::State& state)
{
    fix::SightSession session = ManySights();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(Report(session).Document().characterCount());
}
BENCHMARK(ReportBuilt)->Unit(benchmark::kMillisecond);

void ReportLaidOutByQt(benchmark::State& state)
{
    fix::SightSession session = ManySights();
    const platform::RichText text = Report(session);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const std::unique_ptr<QTextDocument> document(text.Document().clone());
        state.ResumeTiming();
        document->setTextWidth(ScreenWidth);
        benchmark::DoNotOptimize(document->documentLayout()->documentSize());
    }
}
BENCHMARK(ReportLaidOutByQt)->Unit(benchmark::kMillisecond);

} // namespace
