#include "bench_project.h"

#include "bench_folder.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"
#include "base/checked.h"
#include "resources/resource_items.h"
#include "silent_prompter.h"
#include "variables/variable_operations.h"

#include <map>
#include <stdexcept>

using namespace tarvo;

namespace {

int kindIndex(const Catalogue& catalogue, const char* title)
{
    for (int i = 0; i < catalogue.size(); ++i) {
        if (catalogue.at(i).Title == QLatin1String(title))
            return i;
    }
    throw std::runtime_error(std::string("bench catalogue lacks ") + title);
}

template <typename Record>
Record recordOf(const Catalogue& catalogue, const char* title, const QStringList& values)
{
    const int index = kindIndex(catalogue, title);
    Record record;
    static_cast<CatalogueEntry&>(record) = catalogue.at(index);
    record.Kind = qint16(index);
    for (int a = 0; a < values.size(); ++a)
        record.Args[a].Value = values.at(a);
    return record;
}

// Row 17 has no dialog of its own here: flags are appended the way the
// variables editor lays them out (code from the row's template, value in
// the raw codes, one spare slot).
void addFlags(ReferenceList& flags, int upTo)
{
    for (int k = flags.ItemCount; k < upTo; ++k) {
        QString code = flags.CodeTemplate;
        code.replace(QStringLiteral("&&0"), QString::number(k));
        growTo(flags.Codes, k + 1);
        growTo(flags.Texts, k + 1);
        growTo(flags.Ids, k + 1);
        growTo(flags.RawCodes, k + 1);
        flags.Codes[k] = code;
        flags.Texts[k] = QStringLiteral("Flag %1").arg(k + 1);
        flags.Ids[k] = qint16(k);
        flags.RawCodes[k] = QStringLiteral("FALSE");
        flags.ItemCount = qint16(k + 1);
    }
    growTo(flags.RawCodes, flags.ItemCount + 1);
}

} // namespace

QString benchReference(int row, int id)
{
    return encodedReference(row, QString::number(id));
}

void buildBenchProject(Workspace& workspace, const BenchFolder& folder, int events, int timerCount)
{
    ResetProject(workspace);
    Project& project = workspace.project;
    project.name = QStringLiteral("Bench");
    SilentPrompter prompter;

    while (project.tables[row::Integers].ItemCount < kMaxVariables) {
        prompter.inputs
            = {QStringLiteral("Number %1").arg(project.tables[row::Integers].ItemCount)};
        if (NewNumber(project, prompter) < 0)
            break;
    }
    while (project.tables[row::Groups].ItemCount < kMaxVariables) {
        prompter.inputs = {QStringLiteral("Group %1").arg(project.tables[row::Groups].ItemCount)};
        if (NewGroup(project, prompter) < 0)
            break;
    }
    // Flags are the catalogue's row, not saved with the project: references
    // stay among the catalogue's own, so that a saved campaign opens whole.
    const int catalogueFlags = std::max<int>(1, project.tables[row::Flags].ItemCount);
    addFlags(project.tables[row::Flags], kMaxVariables);

    for (int i = 0; i < BenchFolder::kSoundFiles; ++i)
        AddSound(project, folder.wavPath(i));
    for (int i = 0; i < 500; ++i)
        AddMessage(project, prompter,
            QStringLiteral("Message %1: reinforcements are on their way to sector %2.")
                .arg(i)
                .arg(i % 17));

    const int timers = timerCount > 0 ? timerCount : std::max(1, events / 10);
    project.timers.resize(timers);
    for (int t = 0; t < timers; ++t) {
        TimerRecord& timer = project.timers[t];
        timer.triggerKind = 0;
        timer.triggerArgTexts = {QString::number(10 + t % 50), QString(), QString()};
        timer.triggerArgTypes = {-1, 0, 0};
        timer.triggerArgCount = 1;
        timer.name = QStringLiteral("Timer %1").arg(t);
        timer.id = qint16(t);
    }
    project.timerCount = qint16(timers);

    const Catalogue& conditions = workspace.conditionCatalogue;
    const Catalogue& actions = workspace.actionCatalogue;
    project.events.resize(events);
    for (int e = 0; e < events; ++e) {
        EventRecord& event = project.events[e];
        const int number = 5 + e % 59; // a user's number, not one of the fixed five
        // A group's ID is not its position: the first group made gets ID 1.
        const int group = project.tables[row::Groups].Ids.at(e % 64);
        const int flag = (e * 7) % catalogueFlags;
        const int other = (e * 31 + 17) % events;
        const int timer = e % timers;
        event.name = QStringLiteral("Event %1").arg(e);
        event.id = qint16(e);
        event.comment = QStringLiteral("Generated event %1").arg(e);
        event.triggerKind = 5; // transport landed: a group and a player
        event.triggerArgTexts = {benchReference(7, group), benchReference(1, e % 8), QString()};
        event.triggerArgTypes = {7, 1, 0};
        event.triggerArgCount = 2;

        auto call = recordOf<ConditionRecord>(
            conditions, "Bench call", {benchReference(7, group), benchReference(17, flag)});
        call.operatorIndex = 2;
        call.comparisonValue = benchReference(0, number);
        auto value = recordOf<ConditionRecord>(conditions, "Bench value",
            {benchReference(0, number), QStringLiteral(" + %1").arg(e % 9)});
        value.operatorIndex = 3;
        value.comparisonValue = benchReference(0, (number + 1) % 64) + QStringLiteral(" * 2");
        auto block = recordOf<ConditionRecord>(
            conditions, "Bench block", {benchReference(12, other), benchReference(13, timer)});
        block.comparisonValue = benchReference(0, 2);
        event.conditions = {call, value, block};
        event.conditionCount = 3;

        event.actions = {
            recordOf<ActionRecord>(
                actions, "Bench numbers", {benchReference(0, number), benchReference(7, group)}),
            recordOf<ActionRecord>(
                actions, "Bench events", {benchReference(12, other), benchReference(13, timer)}),
            recordOf<ActionRecord>(
                actions, "Bench media", {benchReference(14, e % 200), benchReference(15, e % 500)}),
            recordOf<ActionRecord>(
                actions, "Bench flags", {benchReference(17, flag), benchReference(0, number)}),
        };
        event.actionCount = 4;
    }
    project.eventCount = qint16(events);
    RefreshProjectLists(project);
    refreshTimerRow(project);
}

BenchCase::BenchCase(int count)
    : events(count)
    , workspace(benchFolder().programDir(), prompter)
{
    buildBenchProject(workspace, benchFolder(), events);
}

BenchFolder& benchFolder()
{
    static BenchFolder folder;
    return folder;
}

BenchCase& benchCase(int events)
{
    static std::map<int, std::unique_ptr<BenchCase>> cases;
    std::unique_ptr<BenchCase>& slot = cases[events];
    if (!slot)
        slot = std::make_unique<BenchCase>(events);
    return *slot;
}
