#pragma once

#include "records/project.h"

namespace tarvo {

class Prompter;

// Asks the title of event `index`. For a new event the box offers
// "Event " + index, for a rename the event's current name. An empty answer
// (also what Cancel gives) changes nothing and returns false; otherwise the
// answer becomes the event's name. The event's slot must exist.
bool AskEventTitle(Project& project, int index, bool isRename, Prompter& prompter);

// The same question for timer `index`; `defaultText` is what the box offers.
// An empty answer changes nothing and returns false (the caller tells the user).
bool AskTimerTitle(Project& project, int index, const QString& defaultText, Prompter& prompter);

} // namespace tarvo
