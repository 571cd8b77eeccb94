#pragma once

#include "records/project.h"

namespace tarvo {

class Prompter;

// Removes timer `index`. This is deliberately not a plain shift: every pass
// of the loop copies the timer after `index` into `index`, so timer `index`
// ends up holding what followed it, the timers after it stay as they were and
// the last timer is dropped. Existing projects were made with this rule, and
// the timers list keeps showing the old names.
void DeleteTimer(Project& project, int index);

// The question before timer `index` is deleted while arguments still name it
// (actions that arm events with it, triggers that use it), naming the places;
// empty when nothing names it. Deleting an event asks the same way.
QString timerInUseQuestion(const Project& project, int index);

// Renames timer `index` through the title box, offering its current name.
// A cancelled or empty answer says "Cancelled. No changes were made." and
// returns false.
bool renameTimer(Project& project, int index, Prompter& prompter);

} // namespace tarvo
