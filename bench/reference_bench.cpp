// The reference routines on the generated projects, each beside the
// step-by-step oracle where that finishes in reasonable time.
#include "bench_project.h"
#include "catalogue/reference_checks.h"
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "reference_oracle.h"

#include <benchmark/benchmark.h>

using namespace tarvo;

namespace {

const ReferenceListTable& tableOf(int events)
{
    return benchCase(events).workspace.project.tables;
}

// What a user types into an event box: the name of an event in the middle
// of the row.
QString typedEventName(int events)
{
    return QStringLiteral("Event %1").arg(events * 47 / 100);
}

// A condition code line as the script writer hands it over: references to
// an event, a timer and a number.
QString typicalCodeLine(int events)
{
    return QStringLiteral("benchBlock(") + benchReference(12, events * 47 / 100)
        + QStringLiteral(", ") + benchReference(13, events / 25) + QStringLiteral(") > ")
        + benchReference(0, 17);
}

void BM_EncodeReferences(benchmark::State& state)
{
    const int events = int(state.range(0));
    const ReferenceListTable& table = tableOf(events);
    const QString typed = typedEventName(events);
    SilentPrompter prompter;
    for (auto _ : state)
        benchmark::DoNotOptimize(EncodeReferences(table, row::Events, typed, prompter));
    state.counters["items"] = table[row::Events].ItemCount;
}

void BM_EncodeReferences_Oracle(benchmark::State& state)
{
    const int events = int(state.range(0));
    // Quadratic in the row: about a minute at 10,000 items.
    if (events > 1000 && qEnvironmentVariableIntValue("TARVO_BENCH_SLOW") != 1) {
        state.SkipWithError("slow; run with TARVO_BENCH_SLOW=1");
        return;
    }
    const ReferenceListTable& table = tableOf(events);
    const QString typed = typedEventName(events);
    SilentPrompter prompter;
    for (auto _ : state)
        benchmark::DoNotOptimize(oracle::EncodeReferences(table, row::Events, typed, prompter));
    state.counters["items"] = table[row::Events].ItemCount;
}

void BM_DecodeReferences(benchmark::State& state)
{
    const int events = int(state.range(0));
    const ReferenceListTable& table = tableOf(events);
    const QString stored = benchReference(12, events * 47 / 100);
    SilentPrompter prompter;
    for (auto _ : state)
        benchmark::DoNotOptimize(DecodeReferences(table, stored, prompter));
}

void BM_DecodeReferences_Oracle(benchmark::State& state)
{
    const int events = int(state.range(0));
    const ReferenceListTable& table = tableOf(events);
    const QString stored = benchReference(12, events * 47 / 100);
    SilentPrompter prompter;
    for (auto _ : state)
        benchmark::DoNotOptimize(oracle::DecodeReferences(table, stored, prompter));
}

void BM_ResolveReferences(benchmark::State& state)
{
    const int events = int(state.range(0));
    const ReferenceListTable& table = tableOf(events);
    const QString line = typicalCodeLine(events);
    for (auto _ : state)
        benchmark::DoNotOptimize(ResolveReferences(table, line, ResolveForm::A));
}

void BM_ResolveReferences_Oracle(benchmark::State& state)
{
    const int events = int(state.range(0));
    const ReferenceListTable& table = tableOf(events);
    const QString line = typicalCodeLine(events);
    for (auto _ : state)
        benchmark::DoNotOptimize(oracle::ResolveReferences(table, line, ResolveForm::A));
}

// Every stored argument and comparison value of the project, resolved as
// the script writer resolves them: with one index for the whole project,
// with the per-call routine, and with the oracle.
template <typename Resolve> qsizetype resolveProject(const Project& project, const Resolve& resolve)
{
    qsizetype length = 0;
    for (int e = 0; e < project.eventCount; ++e) {
        const EventRecord& event = project.events.at(e);
        for (const QString& text : event.triggerArgTexts)
            length += resolve(text, ResolveForm::B).size();
        for (const ConditionRecord& condition : event.conditions) {
            for (const ArgumentRecord& argument : condition.Args)
                length += resolve(argument.Value, ResolveForm::B).size();
            length += resolve(condition.comparisonValue, ResolveForm::C).size();
        }
        for (const ActionRecord& action : event.actions) {
            for (const ArgumentRecord& argument : action.Args)
                length += resolve(argument.Value, ResolveForm::B).size();
        }
    }
    return length;
}

void BM_ResolveProject_Index(benchmark::State& state)
{
    const Project& project = benchCase(int(state.range(0))).workspace.project;
    for (auto _ : state) {
        const ReferenceIndex index(project.tables);
        benchmark::DoNotOptimize(resolveProject(project,
            [&](const QString& text, ResolveForm form) { return index.resolve(text, form); }));
    }
}

void BM_ResolveProject_PerCall(benchmark::State& state)
{
    const Project& project = benchCase(int(state.range(0))).workspace.project;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            resolveProject(project, [&](const QString& text, ResolveForm form) {
                return ResolveReferences(project.tables, text, form);
            }));
    }
}

void BM_ResolveProject_Oracle(benchmark::State& state)
{
    const Project& project = benchCase(int(state.range(0))).workspace.project;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            resolveProject(project, [&](const QString& text, ResolveForm form) {
                return oracle::ResolveReferences(project.tables, text, form);
            }));
    }
}

// Deleting an event first looks for actions that still refer to it: one
// decode per event argument of every event.
void BM_CheckEventInUse(benchmark::State& state)
{
    BenchCase& bench = benchCase(int(state.range(0)));
    const QString target = typedEventName(bench.events);
    for (auto _ : state)
        benchmark::DoNotOptimize(CheckEventInUse(bench.workspace, target));
    state.counters["per_event"] = benchmark::Counter(
        bench.events, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK(BM_CheckEventInUse)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EncodeReferences)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_EncodeReferences_Oracle)
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DecodeReferences)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DecodeReferences_Oracle)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ResolveReferences)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ResolveReferences_Oracle)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ResolveProject_Index)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ResolveProject_PerCall)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ResolveProject_Oracle)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);
