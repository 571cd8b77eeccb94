#pragma once

#include "records/project.h"

namespace tarvo {

// The whole project as readable text, for people and for git's textconv: the
// name and comment, each saved variable row, the sounds, the messages, the
// timers, then each event as a block of its own. Lines end in "\n".
//
// The text depends on the project only, and an event's block only on that
// event and the names of the items it refers to: blocks carry IDs and titles,
// never positions in the events list, so adding or changing one event leaves
// the other blocks as they were.
QString projectOutline(const Project& project);

// One event's block, as the outline shows it (also for copying an event as text).
QString eventOutline(const Project& project, const EventRecord& event);

} // namespace tarvo
