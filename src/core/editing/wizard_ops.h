#pragma once

#include "catalogue/trigger_ops.h"
#include "catalogue/workspace.h"

namespace tarvo {

// What the event wizard is doing. At most one mode runs at a time.
enum class WizardMode { None, NewEvent, EditEvent, EditTimer };

// Prepares the slot of a new event at index = event count (the count is not
// raised until the wizard is finished) and returns that index. The slot is
// always a fresh record, so nothing of an abandoned new event comes back.
int prepareNewEventSlot(Project& project);

// Gives the event at `index` = event count its ID (from the events row) and its
// entry in the events row, and raises the event count. An event without an
// active action starts disabled.
void registerNewEvent(Project& project, int index);

// Turns event `eventIndex` (whose trigger is already stored) into a new timer
// at the end of the timers list: same trigger and name, a new ID and an entry
// in the timers row, then tells the user. Returns the new timer's index.
int CreateEventTimer(Project& project, int eventIndex, Prompter& prompter);

enum class FinishOutcome {
    EventAdded, // a new event was registered
    EventKept, // an edited event stays an event
    BecameTimer, // the event had no action: it is now a timer
};

// "&Done!": stores the trigger into the event being created or edited, then
// registers the new event, or turns an event without actions into a timer
// (an edited one is removed from the events). `mode` must be NewEvent or
// EditEvent.
FinishOutcome FinishEventWizard(Project& project, WizardMode mode, int eventIndex,
    const StoredTrigger& trigger, Prompter& prompter);

// Timer editing finished: stores the trigger into timer `timerIndex`.
void finishTimerEdit(Project& project, int timerIndex, const StoredTrigger& trigger);

} // namespace tarvo
