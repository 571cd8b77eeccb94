// The mission map on the generated campaigns: the script read back and every
// finding of the check's script rules, one event read again after an edit,
// the focus part around one event, and Graphviz's layout of a whole map.
#include "analysis/mission_graph.h"
#include "bench_project.h"
#include "check/script_checks.h"
#include "graph_layout.h"

#include <benchmark/benchmark.h>

using namespace tarvo;

namespace {

void BM_MapModelAndFindings(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    for (auto _ : state) {
        const ScriptFacts facts = scriptFacts(bench.workspace);
        QList<CheckIssue> issues;
        checks::unreadableScript(bench.workspace, facts, issues);
        checks::undeclaredNames(bench.workspace, facts, issues);
        checks::eventsThatNeverRun(bench.workspace, facts, issues);
        checks::variablesNeverWritten(bench.workspace, facts, issues);
        checks::variablesNeverUsed(bench.workspace, facts, issues);
        checks::missionWithoutEnd(bench.workspace, facts, issues);
        checks::eventsArmingOnlyThemselves(bench.workspace, facts, issues);
        benchmark::DoNotOptimize(issues);
    }
}

void BM_MapRereadOneEvent(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    script::ProjectScript script = script::readProjectScript(bench.workspace.project);
    const int middle = bench.events / 2;
    for (auto _ : state)
        script::rereadEvent(script, bench.workspace.project, middle);
}

void BM_MapFocusOneSelection(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const analysis::MissionGraph graph = analysis::missionGraph(
        bench.workspace.project, analysis::analyseMission(bench.workspace));
    const QString centre = QStringLiteral("event") + QString::number(bench.events / 2);
    for (auto _ : state) {
        const analysis::MissionGraph part = analysis::graphAround(graph, centre, 2);
        benchmark::DoNotOptimize(layout::layoutDot(analysis::graphDot(part)));
    }
}

void BM_MapLayout(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const QByteArray dot = analysis::graphDot(
        analysis::missionGraph(bench.workspace.project, analysis::analyseMission(bench.workspace)));
    for (auto _ : state)
        benchmark::DoNotOptimize(layout::layoutDot(dot));
}

} // namespace

BENCHMARK(BM_MapModelAndFindings)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapRereadOneEvent)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_MapFocusOneSelection)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapLayout)->Arg(500)->Unit(benchmark::kMillisecond)->Iterations(3);
