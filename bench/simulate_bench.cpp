// The dry run on the generated campaigns: the script read into the run's
// model, and an hour of game time. The scenario raises the landing callback
// that every generated event waits for and answers the generated kinds so
// that their conditions hold: each event then switches another one on with
// a timer of 1 to 6 seconds, so that thousands of events fire every few
// seconds for the whole hour.
#include "bench_project.h"
#include "simulate/dry_run.h"

#include <benchmark/benchmark.h>

using namespace tarvo;

namespace {

const char* const kScenario = "at 0 fire CALL_TRANSPORTER_LANDED\n"
                              "at 0 answer benchBlock = 100\n"
                              "until 36000\n";

void BM_DryRunModel(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(simulate::buildDryRunModel(bench.workspace));
}

void BM_DryRunHour(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const auto model = std::make_shared<const simulate::DryRunModel>(
        simulate::buildDryRunModel(bench.workspace));
    QList<FileError> errors;
    const simulate::Scenario scenario
        = simulate::readScenario(QString::fromLatin1(kScenario), {}, errors);
    qint64 entries = 0;
    qint64 firings = 0;
    for (auto _ : state) {
        entries = 0;
        firings = 0;
        simulate::DryRun run(model, scenario, [&](const simulate::TranscriptEntry& entry) {
            ++entries;
            firings += entry.what <= simulate::TranscriptEntry::What::Skipped;
        });
        run.runToEnd();
    }
    state.counters["entries"] = double(entries);
    state.counters["firings"] = double(firings);
}

// The same hour without a transcript, as "why not?" runs it.
void BM_DryRunHourQuiet(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const auto model = std::make_shared<const simulate::DryRunModel>(
        simulate::buildDryRunModel(bench.workspace));
    QList<FileError> errors;
    const simulate::Scenario scenario
        = simulate::readScenario(QString::fromLatin1(kScenario), {}, errors);
    qint64 firings = 0;
    for (auto _ : state) {
        simulate::DryRun run(model, scenario, {});
        run.runToEnd();
        firings = 0;
        for (const simulate::EventHistory& history : run.histories())
            firings += history.ran + history.skipped;
    }
    state.counters["firings"] = double(firings);
}

} // namespace

BENCHMARK(BM_DryRunHourQuiet)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_DryRunModel)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DryRunHour)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);
