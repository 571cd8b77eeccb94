// Campaigns under version control at 10,000 events: the outline git shows,
// the changes of 100 edited events, and the three-way merge of two authors
// who each edited 50 events and added one with the same new ID.
#include "bench_folder.h"
#include "bench_project.h"
#include "versions/project_diff.h"
#include "versions/project_merge.h"
#include "versions/project_outline.h"

#include <benchmark/benchmark.h>

using namespace tarvo;

namespace {

// The 10,000-event project with a single timer, as a project file holds it,
// and two versions of it edited apart.
struct Versions
{
    Versions()
        : workspace(benchFolder().programDir(), prompter)
    {
        buildBenchProject(workspace, benchFolder(), kEvents, 1);
        ours = theirs = workspace.project;
        // 100 edited events, every 100th: ours renames the even ones and
        // switches their first action off, theirs changes an argument of the
        // odd ones.
        for (int k = 0; k < 100; ++k) {
            const int e = k * 100 + 50;
            if (k % 2 == 0) {
                ours.events[e].name += QStringLiteral(" (ours)");
                ours.events[e].actions[0].inactive = true;
            } else {
                theirs.events[e].actions[0].Args[0].Value = QStringLiteral("4096");
            }
        }
        for (Project* side : {&ours, &theirs}) {
            EventRecord added = side->events.at(10);
            added.id = NextVariableID(*side, row::Events);
            side->events.insert(20, added);
            ++side->eventCount;
        }
        edited = ours;
        for (int e = 50; e < kEvents; e += 200)
            edited.events[e + 100].actions[0].Args[0].Value = QStringLiteral("4096");
    }

    static constexpr int kEvents = 10000;
    SilentPrompter prompter;
    Workspace workspace;
    Project ours;
    Project theirs;
    Project edited; // ours with theirs' edits too: 100 events differ from the base
};

Versions& versions()
{
    static Versions instance;
    return instance;
}

void BM_ShowOutline(benchmark::State& state)
{
    const Project& project = versions().workspace.project;
    for (auto _ : state)
        benchmark::DoNotOptimize(projectOutline(project));
}

void BM_DiffHundredEvents(benchmark::State& state)
{
    Versions& v = versions();
    qsizetype changes = 0;
    for (auto _ : state)
        changes = compareProjects(v.workspace.project, v.edited).size();
    state.counters["changes"] = double(changes);
}

void BM_MergeHundredEvents(benchmark::State& state)
{
    Versions& v = versions();
    qsizetype conflicts = 0;
    for (auto _ : state)
        conflicts = mergeProjects(v.workspace.project, v.ours, v.theirs).conflicts.size();
    state.counters["conflicts"] = double(conflicts);
}

} // namespace

BENCHMARK(BM_ShowOutline)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DiffHundredEvents)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MergeHundredEvents)->Unit(benchmark::kMillisecond);
