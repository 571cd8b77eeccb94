// Whole-project operations at 100, 1,000 and 10,000 events: loading and
// saving the project file, the compile without the packer, and the I/O floor
// of the compile: the same output bytes written with one buffered write.
#include "bench_folder.h"
#include "bench_project.h"
#include "compile/compile_command.h"
#include "document/project_file.h"
#include "ui/quiet_prompter.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <benchmark/benchmark.h>
#include <chrono>

using namespace tarvo;

namespace {

void perEvent(benchmark::State& state, int events)
{
    state.counters["per_event"] = benchmark::Counter(
        events, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

QString projectFile(int events)
{
    return benchFolder().scratchPath(QStringLiteral("bench%1.vnsc").arg(events));
}

// Empty when the compile went through without skipping anything.
QString compileOnce(BenchCase& bench)
{
    CompileOptions options;
    options.runPacker = false;
    QuietPrompter quiet;
    const CompileOutcome outcome = CompileProject(bench.workspace, quiet, options);
    if (!outcome.done() || !outcome.warnings.isEmpty())
        return QStringLiteral("compile: ") + outcome.message + u' ' + outcome.warnings.join(u'/');
    return {};
}

// Everything the compile leaves in the output tree, in one buffer.
QByteArray compiledBytes(BenchCase& bench, QString& problem)
{
    problem = compileOnce(bench);
    QByteArray all;
    QDirIterator it(bench.workspace.paths.outputRoot(bench.workspace.project.name), QDir::Files,
        QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            all += file.readAll();
    }
    return all;
}

void writeFloor(const QByteArray& bytes)
{
    QFile file(benchFolder().scratchPath(QStringLiteral("floor.bin")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write the floor file");
}

double floorSeconds(const QByteArray& bytes)
{
    double best = 1e9;
    for (int i = 0; i < 7; ++i) {
        const auto start = std::chrono::steady_clock::now();
        writeFloor(bytes);
        best = std::min(
            best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

void BM_LoadProject(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    // The file format keeps room for only one timer ("<ti>" is written once
    // and the reader grows the timers by one per "<ti>"), so a file with more
    // timers does not load: the loaded project keeps its first timer.
    Project copy = bench.workspace.project;
    copy.timers.resize(1);
    copy.timerCount = 1;
    SaveProject(copy, projectFile(bench.events));
    SilentPrompter prompter;
    Workspace workspace(benchFolder().programDir(), prompter);
    for (auto _ : state) {
        try {
            LoadProject(workspace, projectFile(bench.events));
        } catch (const FileError& error) {
            state.SkipWithError(qPrintable(error.message()));
            break;
        }
        benchmark::DoNotOptimize(workspace.project.eventCount);
    }
    if (workspace.project.eventCount != bench.events)
        state.SkipWithError("the project did not load whole");
    perEvent(state, bench.events);
}

void BM_SaveProject(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    Project copy = bench.workspace.project;
    for (auto _ : state)
        SaveProject(copy, projectFile(bench.events));
    state.SetBytesProcessed(state.iterations() * QFile(projectFile(bench.events)).size());
    perEvent(state, bench.events);
}

void BM_Compile(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    QString problem;
    const QByteArray bytes = compiledBytes(bench, problem);
    if (!problem.isEmpty()) {
        state.SkipWithError(qPrintable(problem));
        return;
    }
    double seconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(compileOnce(bench));
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    const double floor = floorSeconds(bytes);
    state.SetBytesProcessed(state.iterations() * bytes.size());
    perEvent(state, bench.events);
    state.counters["x_floor"] = seconds / double(state.iterations()) / floor;
}

void BM_IoFloor(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    QString problem;
    const QByteArray bytes = compiledBytes(bench, problem);
    if (!problem.isEmpty()) {
        state.SkipWithError(qPrintable(problem));
        return;
    }
    for (auto _ : state)
        writeFloor(bytes);
    state.SetBytesProcessed(state.iterations() * bytes.size());
    perEvent(state, bench.events);
}

} // namespace

BENCHMARK(BM_LoadProject)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveProject)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Compile)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IoFloor)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
