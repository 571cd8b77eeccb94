#pragma once

#include "records/project.h"

namespace tarvo {

// The list rows that mirror the project: 12 events, 13 timers, 14 sounds,
// 15 messages. Each item's text is what the user sees, its ID the record's ID.
// Script codes: "event" + index and "Timer" + index; a sound is its file name
// in quotes and a message its string name "msg" + index, or, when the row is
// declared public in the action catalogue, the row's template with the item
// number (so the values file can give the variable its file or string name).
// `from`: the first event whose entry may differ (those in front are right).
void refreshEventRow(Project& project, int from = 0);
void refreshTimerRow(Project& project);
void refreshSoundRow(Project& project);
void refreshMessageRow(Project& project);

// Rows 14, 15 and 12, in that order.
void RefreshProjectLists(Project& project);

} // namespace tarvo
