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

// An hour of the campaign; with `transcript` every entry goes to a sink that
// counts them, without it the run keeps its histories only (as "why not?").
void runHour(benchmark::State& state, bool transcript)
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
        simulate::DryRun::Sink sink;
        if (transcript)
            sink = [&](const simulate::TranscriptEntry&) { ++entries; };
        simulate::DryRun run(model, scenario, sink);
        run.runToEnd();
        firings = 0;
        for (const simulate::EventHistory& history : run.histories())
            firings += history.ran + history.skipped;
    }
    if (transcript)
        state.counters["entries"] = double(entries);
    state.counters["firings"] = double(firings);
}

void BM_DryRunHour(benchmark::State& state)
{
    runHour(state, true);
}

void BM_DryRunHourQuiet(benchmark::State& state)
{
    runHour(state, false);
}

} // namespace

BENCHMARK(BM_DryRunHourQuiet)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_DryRunModel)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DryRunHour)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);
