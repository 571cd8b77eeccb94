#include "editing/wizard_ops.h"

#include "editing/event_list.h"
#include "base/checked.h"
#include "ui/prompter.h"

namespace tarvo {

namespace {

// Appends one item to a project-filled row, the way a finished event or a new
// timer is registered: the row's arrays grow by one and its count rises.
void appendRowItem(ReferenceList& list, const QString& text, qint16 id, const QString& code)
{
    const qsizetype n = list.ItemCount;
    growTo(list.Codes, n + 1);
    growTo(list.Texts, n + 1);
    growTo(list.Ids, n + 1);
    growTo(list.RawCodes, n + 1);
    list.Codes[n] = code;
    list.Texts[n] = text;
    list.Ids[n] = id;
    list.RawCodes[n] = code;
    list.ItemCount = raisedCount(list.ItemCount, "list items");
}

} // namespace

int prepareNewEventSlot(Project& project)
{
    const int index = project.eventCount;
    growTo(project.events, index + 1);
    project.events[index] = EventRecord {};
    return index;
}

void registerNewEvent(Project& project, int index)
{
    EventRecord& event = at(project.events, index, "events");
    event.id = NextVariableID(project, row::Events);
    appendRowItem(project.tables[row::Events], event.name, event.id,
        QStringLiteral("event") + QString::number(index));
    project.eventCount = raisedCount(project.eventCount, "events");
    if (CountActiveActions(project, index) == 0)
        event.disabled = true;
}

int CreateEventTimer(Project& project, int eventIndex, Prompter& prompter)
{
    const EventRecord& event = at(project.events, eventIndex, "events");
    const int index = project.timerCount;
    growTo(project.timers, index + 1);
    TimerRecord timer;
    applyTrigger(timer, triggerOf(event));
    timer.name = event.name;
    timer.id = NextVariableID(project, row::Timers);
    project.timers[index] = timer;
    project.timerListLines.append(timer.name);
    appendRowItem(project.tables[row::Timers], timer.name, timer.id,
        QStringLiteral("Timer") + QString::number(index));
    project.timerCount = raisedCount(project.timerCount, "timers");
    prompter.message(
        QStringLiteral(
            "New Event timer created (no actions selected). All conditions were removed."),
        Prompter::Icon::Exclamation);
    return index;
}

FinishOutcome FinishEventWizard(Project& project, WizardMode mode, int eventIndex,
    const StoredTrigger& trigger, Prompter& prompter)
{
    EventRecord& event = at(project.events, eventIndex, "events");
    applyTrigger(event, trigger);
    const bool hasActions = event.actionCount > 0;
    if (mode == WizardMode::NewEvent) {
        if (!hasActions) {
            CreateEventTimer(project, eventIndex, prompter);
            return FinishOutcome::BecameTimer;
        }
        registerNewEvent(project, eventIndex);
        return FinishOutcome::EventAdded;
    }
    if (!hasActions) {
        CreateEventTimer(project, eventIndex, prompter);
        DeleteEvent(project, eventIndex);
        return FinishOutcome::BecameTimer;
    }
    if (CountActiveActions(project, eventIndex) == 0)
        event.disabled = true;
    return FinishOutcome::EventKept;
}

void finishTimerEdit(Project& project, int timerIndex, const StoredTrigger& trigger)
{
    applyTrigger(at(project.timers, timerIndex, "timers"), trigger);
}

} // namespace tarvo
