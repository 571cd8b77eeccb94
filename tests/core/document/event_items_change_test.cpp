// Which lines of an event's condition and action lists a change names, so a
// list editor can redraw those alone; undone, the same change names them the
// other way round.
#include "document/project_delta.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

EventRecord eventWith(const QStringList& conditions, const QStringList& actions)
{
    EventRecord event;
    for (const QString& title : conditions) {
        ConditionRecord condition;
        condition.Title = title;
        event.conditions.append(condition);
    }
    for (const QString& title : actions) {
        ActionRecord action;
        action.Title = title;
        event.actions.append(action);
    }
    event.conditionCount = qint16(event.conditions.size());
    event.actionCount = qint16(event.actions.size());
    return event;
}

Project sample()
{
    Project project;
    project.events = {eventWith({"a", "b"}, {"x", "y", "z"}), eventWith({"c"}, {"w"})};
    project.eventCount = 2;
    return project;
}

struct Lines
{
    qsizetype offset, removed, inserted;
};

struct ItemCase
{
    const char* name;
    std::function<void(Project&)> edit;
    qsizetype event;
    std::optional<Lines> conditions; // nullopt: the list must be shown afresh
    std::optional<Lines> actions;
};

const ItemCase kCases[] = {
    {"TickAnAction", [](Project& p) { p.events[0].actions[1].inactive = true; }, 0, Lines {0, 0, 0},
        Lines {1, 1, 1}},
    {"AppendACondition",
        [](Project& p) {
            p.events[0].conditions.append(ConditionRecord {});
            p.events[0].conditionCount = 3;
        },
        0, Lines {2, 0, 1}, Lines {0, 0, 0}},
    {"SwapTheLastTwoActions", [](Project& p) { p.events[0].actions.swapItemsAt(1, 2); }, 0,
        Lines {0, 0, 0}, Lines {1, 2, 2}},
    {"DeleteTheFirstAction",
        [](Project& p) {
            p.events[0].actions.removeFirst();
            p.events[0].actionCount = 2;
        },
        0, Lines {0, 0, 0}, Lines {0, 1, 0}},
    // Records past the count are no lines of the list.
    {"ARecordPastTheCount", [](Project& p) { p.events[1].conditions.append(ConditionRecord {}); },
        1, Lines {0, 0, 0}, Lines {0, 0, 0}},
    {"OtherEventsAreUntouched", [](Project& p) { p.events[1].actions[0].comment = "c"; }, 0,
        Lines {0, 0, 0}, Lines {0, 0, 0}},
    {"TheEditedEvent", [](Project& p) { p.events[1].actions[0].comment = "c"; }, 1, Lines {0, 0, 0},
        Lines {0, 1, 1}},
    // A new event behind an event leaves that event in place; events from
    // the new one on may have moved.
    {"AnEventAppended", [](Project& p) { p.events.append(eventWith({}, {})); }, 1, Lines {0, 0, 0},
        Lines {0, 0, 0}},
    {"AnEventRemoved", [](Project& p) { p.events.removeFirst(); }, 0, std::nullopt, std::nullopt},
};

void expectLines(const std::optional<LineChange>& got, const std::optional<Lines>& want,
    const char* list, bool forward)
{
    SCOPED_TRACE(std::string(list) + (forward ? " forward" : " back"));
    ASSERT_EQ(got.has_value(), want.has_value());
    if (!want)
        return;
    EXPECT_EQ(got->offset, want->offset);
    EXPECT_EQ(got->removed, forward ? want->removed : want->inserted);
    EXPECT_EQ(got->inserted, forward ? want->inserted : want->removed);
}

} // namespace

TEST(EventItemsChangeTest, NamesTheTouchedLinesOfEachList)
{
    for (const ItemCase& row : kCases) {
        SCOPED_TRACE(row.name);
        const Project before = sample();
        Project after = before;
        row.edit(after);
        const ProjectDelta delta = diffProjects(before, after);
        const ProjectChange forward = changeOf(delta, true, after);
        expectLines(forward.conditionLines(row.event), row.conditions, "conditions", true);
        expectLines(forward.actionLines(row.event), row.actions, "actions", true);
        const ProjectChange back = changeOf(delta, false, before);
        expectLines(back.conditionLines(row.event), row.conditions, "conditions", false);
        expectLines(back.actionLines(row.event), row.actions, "actions", false);
    }
}

TEST(EventItemsChangeTest, ANewProjectShowsEveryListAfresh)
{
    EXPECT_FALSE(ProjectChange::all().conditionLines(0));
    EXPECT_FALSE(ProjectChange::all().actionLines(3));
}
