#pragma once

#include "records/project.h"

namespace tarvo {

// A place in a project that a tool can point the user to: an event or timer,
// one of its parts (trigger, a condition, a condition's compared value, an
// action, a comment) and an argument of it; or a sound, a message, a
// variable, or the project itself.
struct ProjectPlace
{
    enum class Owner { Project, Event, Timer, Sound, Message, Variable };
    enum class Part { None, Name, Comment, Trigger, Condition, ComparedValue, Action };

    Owner owner = Owner::Project;
    int index = -1; // event, timer, sound, message or variable position
    int row = -1; // the list row of a variable
    Part part = Part::None;
    int item = -1; // condition or action position
    int argument = -1; // argument position (trigger arguments too)

    friend bool operator==(const ProjectPlace&, const ProjectPlace&) = default;
};

// What an item of list row `row` is called: "number", "group", "flag",
// "event", "timer", "sound", "message", or "item of the list 'Players'".
QString itemKind(const ReferenceListTable& tables, int row);

// "event 'Victory', action 2 'Show message', argument 'Message'": owners and
// items by name, positions counted from 1 as the lists show them.
QString describePlace(const Project& project, const ProjectPlace& place);

// One stored argument value and the list row it offers (an argument's list,
// a compared value's value type, a trigger argument's type).
struct ArgumentValue
{
    ProjectPlace place;
    const QString& value;
    int row;
};

// Visits every argument of the project in the order the lists show them: each
// event's trigger arguments, its conditions (arguments, then the compared
// value) and its actions; then each timer's trigger arguments. Loops stop at
// the records held.
template <typename Visit> void forEachArgument(const Project& project, Visit&& visit);

} // namespace tarvo

#include "base/checked.h"

namespace tarvo {

template <typename Visit> void forEachArgument(const Project& project, Visit&& visit)
{
    using Part = ProjectPlace::Part;
    const auto trigger = [&](ProjectPlace::Owner owner, int index, const auto& record) {
        for (int k = 0; k < qBound(0, int(record.triggerArgCount), 2); ++k)
            visit(ArgumentValue {{owner, index, -1, Part::Trigger, -1, k},
                record.triggerArgTexts[size_t(k)], record.triggerArgTypes[size_t(k)]});
    };
    const auto arguments = [&](int event, Part part, int item, const CatalogueEntry& entry) {
        for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k)
            visit(ArgumentValue {{ProjectPlace::Owner::Event, event, -1, part, item, k},
                entry.Args.at(k).Value, entry.Args.at(k).ListRef});
    };
    for (int e = 0; e < heldCount(project.eventCount, project.events); ++e) {
        const EventRecord& event = project.events.at(e);
        trigger(ProjectPlace::Owner::Event, e, event);
        for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c) {
            const ConditionRecord& condition = event.conditions.at(c);
            arguments(e, Part::Condition, c, condition);
            visit(ArgumentValue {{ProjectPlace::Owner::Event, e, -1, Part::ComparedValue, c, -1},
                condition.comparisonValue, condition.ResultB});
        }
        for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a)
            arguments(e, Part::Action, a, event.actions.at(a));
    }
    for (int t = 0; t < heldCount(project.timerCount, project.timers); ++t)
        trigger(ProjectPlace::Owner::Timer, t, project.timers.at(t));
}

} // namespace tarvo
