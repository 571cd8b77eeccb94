#pragma once

#include "records/project.h"

namespace tarvo {

class Prompter;

// New Timer: asks the timer's title ("Timer " + index offered) and appends a
// timer with the "Inactive" trigger at the end of the timers list (next ID of
// the timers row, its line in the list and the row). Returns its index, or -1
// when the title box was cancelled (the user is told, as a rename tells).
// A project with a timer is asked first (newTimerQuestion): its file keeps
// one timer only. No gives -1 at once.
int newTimer(Project& project, Prompter& prompter);
QString newTimerQuestion();

// An event made where an argument needs one: asks its title as New does,
// gives it the "Inactive" trigger and no actions, and registers it at the end
// of the events (so it starts switched off). Returns its index, or -1 when the
// title box was cancelled. The slot behind the events must be free: a new
// event being made by the wizard lives there.
int newInactiveEvent(Project& project, Prompter& prompter);

// The same while the wizard makes a new event, which keeps the place behind
// the counted events until it is finished: the new event takes that place and
// the one being made moves one on (its next place once this one is counted).
int newInactiveEventBeforeOneBeingMade(Project& project, Prompter& prompter);

} // namespace tarvo
