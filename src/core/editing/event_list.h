#pragma once

#include "document/project_delta.h"
#include "catalogue/workspace.h"

namespace tarvo {

// The rules of the main page's events list. Line i of the list shows event i;
// its tick is the opposite of the event's disabled flag.

// Number of actions of the event that are switched on. Only actions that
// exist are counted, so a count that claims more than the file held is safe.
qint16 CountActiveActions(const Project& project, int eventIndex);

// Number of events whose disabled flag is false.
qint16 enabledEventCount(const Project& project);

// The texts of the status-bar panels: "Events: " + enabled + "/" + all,
// "Timers: " + count, and "Actions: " + active + "/" + all of the selected
// event ("Actions:" alone when no event is selected).
QString eventCountText(const Project& project);
QString timerCountText(const Project& project);
QString actionCountText(const Project& project, int selectedEvent);

// "You can't enable event '<name>' , because it has no active actions."
QString enableRefusalText(const QString& eventName);

enum class TickOutcome {
    Ignored, // empty list: nothing to do
    Enabled,
    Disabled,
    Refused, // no active action: the caller unticks the line again
};

// The user ticked or unticked line `item` (showing `lineText`). Enabling needs
// an active action and is otherwise refused with a message; disabling always
// succeeds, after warning about actions that still refer to the event.
TickOutcome setEventTicked(Workspace& workspace, int item, bool ticked, const QString& lineText);

// Removes event `index`, moving the later events one place up, and rebuilds
// the events list row so references follow the IDs.
void DeleteEvent(Project& project, int index);

// Appends a full copy of event `index` with a new event ID and returns the
// index of the copy. The copy keeps its source's name and disabled flag.
int CopyEvent(Project& project, int index);

// Copy: a copy of event `index` is appended and its new line ticked, which
// goes through the enabling rule of `setEventTicked`. Returns the copy's index
// and whether its line ends up ticked; a refused tick leaves the copy with its
// source's disabled flag and its line unticked.
struct CopiedEvent
{
    int index = -1;
    bool lineTicked = false;
};
CopiedEvent copyEventCommand(Workspace& workspace, int index);

// Renames event `index` through the title box, offering its current name; an
// empty answer changes nothing, silently.
bool renameEvent(Project& project, int index, Prompter& prompter);

// Swaps event `index` with its neighbour above (direction -1) or below (+1).
// Returns the moved event's new index, or -1 when the move is not possible
// (first line up, last line down, fewer than two events).
int moveEvent(Project& project, int index, int direction);

// The records of the events array that each command above may change, so
// that the history keeps those alone: one event (a tick, a rename), the two
// events a move swaps, the deleted event (with the spare records behind the
// count, which a delete drops), the place a copy goes to.
EventStretch oneEventStretch(int index);
EventStretch moveStretch(int index, int direction);
EventStretch deleteStretch(const Project& project, int index);
EventStretch copyStretch(const Project& project);

} // namespace tarvo
