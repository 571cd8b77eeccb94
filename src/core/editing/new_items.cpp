#include "editing/new_items.h"

#include "base/checked.h"
#include "catalogue/project_lists.h"
#include "catalogue/trigger_ops.h"
#include "catalogue/trigger_tables.h"
#include "editing/event_title.h"
#include "editing/wizard_ops.h"
#include "ui/prompter.h"

namespace tarvo {

namespace {

// The trigger of something that waits to be switched on by an action.
StoredTrigger inactiveTrigger()
{
    StoredTrigger trigger;
    for (int k = 0; k < kTriggerOptionCount; ++k) {
        if (triggerKind(k).caption == QLatin1String("Inactive"))
            trigger.kind = qint16(k);
    }
    return trigger;
}

} // namespace

QString newTimerQuestion()
{
    return QStringLiteral("This project has a timer already, and a project file keeps one "
                          "timer only: Save will ask what to do with the others. Make another "
                          "timer?");
}

int newTimer(Project& project, Prompter& prompter)
{
    const int index = project.timerCount;
    // The project file keeps one timer; Save asks what to do with more.
    if (index >= 1
        && prompter.message(newTimerQuestion(), Prompter::Icon::Question, Prompter::Buttons::YesNo)
            != Prompter::Answer::Yes)
        return -1;
    // The list holds exactly the counted timers, so the new one is last.
    project.timers.resize(index);
    project.timers.append(TimerRecord {});
    if (!AskTimerTitle(
            project, index, QStringLiteral("Timer ") + QString::number(index), prompter)) {
        project.timers.resize(index);
        prompter.message(
            QStringLiteral("Cancelled. No changes were made."), Prompter::Icon::Information);
        return -1;
    }
    TimerRecord& timer = project.timers[index];
    applyTrigger(timer, inactiveTrigger());
    refreshTimerRow(project);
    timer.id = NextVariableID(project, row::Timers);
    project.timerListLines.append(timer.name);
    project.timerCount = raisedCount(project.timerCount, "timers");
    refreshTimerRow(project);
    return index;
}

int newInactiveEvent(Project& project, Prompter& prompter)
{
    const QList<EventRecord> before = project.events;
    const int index = prepareNewEventSlot(project);
    if (!AskEventTitle(project, index, false, prompter)) {
        project.events = before;
        return -1;
    }
    applyTrigger(project.events[index], inactiveTrigger());
    registerNewEvent(project, index);
    return index;
}

int newInactiveEventBeforeOneBeingMade(Project& project, Prompter& prompter)
{
    const int slot = project.eventCount;
    const EventRecord beingMade
        = slot < project.events.size() ? project.events.at(slot) : EventRecord {};
    const int index = newInactiveEvent(project, prompter);
    if (index < 0)
        return -1;
    growTo(project.events, index + 2);
    project.events[index + 1] = beingMade;
    return index;
}

} // namespace tarvo
