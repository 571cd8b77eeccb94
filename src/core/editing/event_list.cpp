#include "editing/event_list.h"

#include "catalogue/project_lists.h"
#include "catalogue/reference_checks.h"
#include "editing/event_title.h"
#include "base/checked.h"
#include "ui/prompter.h"

#include <algorithm>
#include <utility>

namespace tarvo {

qint16 CountActiveActions(const Project& project, int eventIndex)
{
    const EventRecord& event = at(project.events, eventIndex, "events");
    const qsizetype last = heldCount(event.actionCount, event.actions);
    qint16 active = 0;
    for (qsizetype a = 0; a < last; ++a) {
        if (!event.actions.at(a).inactive)
            ++active;
    }
    return active;
}

qint16 enabledEventCount(const Project& project)
{
    const qsizetype last = heldCount(project.eventCount, project.events);
    qint16 enabled = 0;
    for (qsizetype e = 0; e < last; ++e) {
        if (!project.events.at(e).disabled)
            ++enabled;
    }
    return enabled;
}

QString eventCountText(const Project& project)
{
    return QStringLiteral("Events: %1/%2").arg(enabledEventCount(project)).arg(project.eventCount);
}

QString timerCountText(const Project& project)
{
    return QStringLiteral("Timers: %1").arg(project.timerCount);
}

QString actionCountText(const Project& project, int selectedEvent)
{
    if (selectedEvent < 0 || selectedEvent >= project.eventCount
        || selectedEvent >= project.events.size())
        return QStringLiteral("Actions:");
    return QStringLiteral("Actions: %1/%2")
        .arg(CountActiveActions(project, selectedEvent))
        .arg(project.events.at(selectedEvent).actionCount);
}

QString enableRefusalText(const QString& eventName)
{
    return QStringLiteral("You can't enable event '") + eventName
        + QStringLiteral("' , because it has no active actions.");
}

TickOutcome setEventTicked(Workspace& workspace, int item, bool ticked, const QString& lineText)
{
    Project& project = workspace.project;
    if (project.eventCount == 0 && item == 0)
        return TickOutcome::Ignored;
    EventRecord& event = at(project.events, item, "events");
    if (ticked && CountActiveActions(project, item) == 0) {
        workspace.prompter.message(enableRefusalText(event.name), Prompter::Icon::Exclamation);
        return TickOutcome::Refused;
    }
    if (!ticked)
        CheckEventInUse(workspace, lineText);
    event.disabled = !ticked;
    return ticked ? TickOutcome::Enabled : TickOutcome::Disabled;
}

void DeleteEvent(Project& project, int index)
{
    const QList<EventRecord>& events = project.events;
    at(events, index, "events");
    const int count = project.eventCount;
    // The records behind the deleted one move up one place, as far as the
    // count; a count beyond the records fails where the moving would.
    if (index <= count - 2 && count > events.size())
        throwIndexError("events", events.size(), events.size());
    --project.eventCount;
    if (project.eventCount < 1) {
        project.eventCount = 0;
        project.events.clear();
    } else if (project.events.isDetached()) {
        project.events.resize(count);
        project.events.remove(std::min(index, count - 1));
    } else {
        // Built afresh in one pass: the shared array would be copied first
        // and then moved up.
        const qsizetype gone = std::min(index, count - 1);
        QList<EventRecord> kept;
        kept.reserve(project.eventCount);
        kept.append(events.begin(), events.begin() + gone);
        kept.append(events.begin() + gone + 1, events.begin() + count);
        project.events = std::move(kept);
    }
    refreshEventRow(project);
}

int CopyEvent(Project& project, int index)
{
    EventRecord copy = at(std::as_const(project.events), index, "events");
    // The allocator reads the events row, so it must know every event first.
    refreshEventRow(project);
    copy.id = NextVariableID(project, row::Events);
    // What the refresh just brought up to date stays so.
    const int known = int(heldCount(project.eventCount, project.events));
    const int newIndex = project.eventCount;
    const qint16 newCount = raisedCount(project.eventCount, "events");
    growTo(project.events, newIndex + 1);
    project.events[newIndex] = std::move(copy);
    project.eventCount = newCount;
    refreshEventRow(project, known);
    return newIndex;
}

CopiedEvent copyEventCommand(Workspace& workspace, int index)
{
    const int copy = CopyEvent(workspace.project, index);
    const TickOutcome outcome
        = setEventTicked(workspace, copy, true, workspace.project.events.at(copy).name);
    return {copy, outcome != TickOutcome::Refused};
}

bool renameEvent(Project& project, int index, Prompter& prompter)
{
    if (!AskEventTitle(project, index, true, prompter))
        return false;
    refreshEventRow(project);
    return true;
}

int moveEvent(Project& project, int index, int direction)
{
    const int other = index + direction;
    if (project.eventCount < 2 || index < 0 || index >= project.eventCount || other < 0
        || other >= project.eventCount)
        return -1;
    const EventRecord temporary = at(project.events, index, "events");
    project.events[index] = at(project.events, other, "events");
    project.events[other] = temporary;
    RefreshProjectLists(project);
    refreshTimerRow(project);
    return other;
}

EventStretch oneEventStretch(int index)
{
    return {index, qsizetype(index) + 1};
}

EventStretch moveStretch(int index, int direction)
{
    return {std::min(index, index + direction), qsizetype(std::max(index, index + direction)) + 1};
}

EventStretch deleteStretch(const Project& project, int index)
{
    const qsizetype size = project.events.size();
    const int count = project.eventCount;
    if (count <= 1)
        return {0, size};
    const qsizetype gone = std::min(index, count - 1);
    return {gone, size == count ? gone + 1 : size};
}

EventStretch copyStretch(const Project& project)
{
    const qsizetype size = project.events.size();
    const qsizetype count = std::max<qsizetype>(project.eventCount, 0);
    return {std::min(count, size), std::min(count + 1, size)};
}

} // namespace tarvo
