// The tools that read the whole project, and the history, on the generated
// campaigns: the check, where-used, find, the preview of one event and of the
// whole script, and one undo and redo.
#include "bench_project.h"
#include "catalogue/where_used.h"
#include "check/project_check.h"
#include "compile/script_preview.h"
#include "editing/event_list.h"
#include "editing/find_text.h"
#include "document/project_document.h"

#include <benchmark/benchmark.h>

using namespace tarvo;

namespace {

void BM_Check(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(checkProject(bench.workspace));
}

void BM_WhereUsed(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(findReferences(bench.workspace.project, row::Groups, 3));
}

void BM_Find(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(findText(bench.workspace.project, QStringLiteral("Group 3")));
}

void BM_PreviewOneEvent(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const int middle = bench.events / 2;
    for (auto _ : state)
        benchmark::DoNotOptimize(eventPreviewText(bench.workspace.project, middle));
}

void BM_PreviewScript(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(scriptPreviewText(bench.workspace.project));
}

// A rename in the middle of the campaign, then its undo and redo: the cost of
// one step, and the records it keeps.
void BM_UndoRedo(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    ProjectDocument document(bench.workspace);
    const int middle = bench.events / 2;
    bench.prompter.inputs = {QStringLiteral("Renamed")};
    document.edit(QStringLiteral("Rename"),
        [&] { renameEvent(bench.workspace.project, middle, bench.prompter); });
    for (auto _ : state) {
        document.undo();
        document.redo();
    }
    document.undo();
}

} // namespace

BENCHMARK(BM_Check)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WhereUsed)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Find)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreviewOneEvent)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreviewScript)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UndoRedo)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
