// The index of actions that name events, kept from one in-use check to the
// next: after every kind of edit it must hold what a fresh reading holds, read
// again only the events whose actions changed, and leave the warnings exactly
// as a check without a kept index gives them.
#include "catalogue/event_uses.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_checks.h"
#include "scripted_prompter.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace Qt::StringLiterals;

namespace {

ActionRecord action(const QString& title, const QStringList& values, qint16 listRef = row::Events)
{
    ActionRecord record;
    record.Title = title;
    for (const QString& value : values) {
        ArgumentSlot argument;
        argument.Value = value;
        argument.ListRef = listRef;
        record.Args.append(argument);
    }
    record.ArgCount = qint16(values.size());
    return record;
}

EventRecord event(const QString& name, qint16 id, const QList<ActionRecord>& actions)
{
    EventRecord record;
    record.name = name;
    record.id = id;
    record.actions = actions;
    record.actionCount = qint16(actions.size());
    return record;
}

// Single references, one into another row, one beside text, one to no event,
// too short a value, an argument of another row, a switched-off action.
Project sampleProject()
{
    Project project;
    project.tables[row::Events].UsesIds = true;
    project.tables[row::Events].ListName = u"Events"_s;
    project.tables[row::Sounds].Texts = {u"Start"_s};
    project.tables[row::Sounds].ItemCount = 1;
    ActionRecord off = action(u"Off"_s, {u"&&12$$2§"_s});
    off.inactive = true;
    project.events = {
        event(u"Start"_s, 0, {action(u"Go"_s, {u"&&12$$1§"_s, u"&&12$$2§"_s})}),
        event(u"Middle"_s, 1, {action(u"Back"_s, {u"&&12$$0§"_s}), off}),
        event(u"End"_s, 2,
            {action(u"Mixed"_s, {u"x &&12$$0§"_s, u"&&14$$0§"_s}),
                action(u"Lost"_s, {u"&&12$$9§"_s, u"ab"_s})}),
        event(u"Other"_s, 3, {action(u"Sound"_s, {u"&&12$$0§"_s}, row::Sounds)}),
        event(u"Quiet"_s, 4, {}),
    };
    project.eventCount = qint16(project.events.size());
    refreshEventRow(project);
    return project;
}

void expectSameUses(const EventUses& kept, const EventUses& fresh, const char* edit)
{
    ASSERT_EQ(kept.eventCount(), fresh.eventCount()) << edit;
    for (qsizetype e = 0; e < fresh.eventCount(); ++e) {
        const EventUses::Uses& a = kept.of(e);
        const EventUses::Uses& b = fresh.of(e);
        ASSERT_EQ(a.size(), b.size()) << edit << " event " << e;
        for (size_t u = 0; u < a.size(); ++u) {
            EXPECT_EQ(a[u].action, b[u].action) << edit;
            EXPECT_EQ(a[u].argument, b[u].argument) << edit;
            EXPECT_EQ(a[u].single, b[u].single) << edit;
            EXPECT_EQ(a[u].row, b[u].row) << edit;
            EXPECT_EQ(a[u].id, b[u].id) << edit;
            EXPECT_EQ(a[u].inactive, b[u].inactive) << edit;
        }
    }
}

struct Edit
{
    const char* name;
    std::function<void(Project&)> change;
    qsizetype eventsRead; // by the update after the edit
};

const Edit kEdits[] = {
    {"switch an event off", [](Project& p) { p.events[1].disabled = true; }, 0},
    {"rename", [](Project& p) { p.events[0].name = u"Begin"_s; }, 0},
    {"change an argument", [](Project& p) { p.events[2].actions[1].Args[0].Value = u"&&12$$1§"_s; },
        1},
    {"switch an action off", [](Project& p) { p.events[0].actions[0].inactive = true; }, 1},
    {"copy to the end",
        [](Project& p) {
            p.events.append(p.events.at(0));
            p.eventCount = qint16(p.events.size());
        },
        1},
    {"move down", [](Project& p) { p.events.swapItemsAt(1, 2); }, 2},
    {"delete in the middle",
        [](Project& p) {
            p.events.removeAt(2);
            p.eventCount = qint16(p.events.size());
        },
        0},
    {"new first event",
        [](Project& p) {
            p.events.prepend(event(u"New"_s, 7, {action(u"To"_s, {u"&&12$$4§"_s})}));
            p.eventCount = qint16(p.events.size());
        },
        1},
    {"fewer actions counted", [](Project& p) { p.events[1].actionCount = 0; }, 1},
    {"count below the records", [](Project& p) { p.eventCount = 2; }, 0},
    {"everything back", [](Project& p) { p = sampleProject(); }, 5},
};

} // namespace

TEST(EventUses, KeepsUpWithEveryKindOfEdit)
{
    Project project = sampleProject();
    EventUses kept;
    kept.update(project);
    EXPECT_EQ(kept.eventsRead(), 5);
    for (const Edit& edit : kEdits) {
        const qsizetype readBefore = kept.eventsRead();
        edit.change(project);
        kept.update(project);
        EventUses fresh;
        fresh.update(project);
        expectSameUses(kept, fresh, edit.name);
        EXPECT_EQ(kept.eventsRead() - readBefore, edit.eventsRead) << edit.name;
    }
}

TEST(EventUses, WarningsAsWithoutAKeptIndex)
{
    ScriptedPrompter prompter;
    Workspace kept(QString(), prompter);
    kept.project = sampleProject();
    const auto checkAll = [&](Workspace& workspace) {
        prompter.clear();
        for (const EventRecord& event : workspace.project.events)
            CheckEventInUse(workspace, event.name);
        CheckEventInUse(workspace, u"?"_s);
        QStringList shown;
        for (const ScriptedPrompter::Prompt& prompt : prompter.prompts)
            shown.append(prompt.text);
        return shown;
    };
    QStringList first = checkAll(kept);
    EXPECT_EQ(first.filter(u"Couldn't parse 'Events' variable"_s).size(), 6)
        << first.join(u'\n').toStdString();
    for (const Edit& edit : kEdits) {
        edit.change(kept.project);
        refreshEventRow(kept.project);
        const QStringList warm = checkAll(kept);
        Workspace fresh(kept); // a copy starts without the index
        const QStringList cold = checkAll(fresh);
        EXPECT_EQ(warm, cold) << edit.name;
    }
}
