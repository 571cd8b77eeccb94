#pragma once

#include "catalogue/workspace.h"
#include "transfer/event_clip.h"

namespace tarvo {

// What a paste did, for the Results dock and the command-line tool.
struct PasteReport
{
    int first = -1; // position of the first pasted event
    int count = 0;
    QStringList matched; // items of this project the events now name
    QStringList created; // items made for them
    QStringList warnings; // references that now name something else or nothing
};

// Pastes the clip's events after the event at `after` (at the end for -1 or
// a position past the list). Each item the events name is matched in this
// project by its kind and name and made when missing, with a new ID by this
// project's rules; every reference in the pasted events is rewritten to
// this project's IDs. A reference to an event that was not copied names this
// project's event of that name, or nothing ("-1") with a warning.
//
// A condition or action kind this project's catalogue lacks (matched by call
// name and title), or a list of variables with no room left, is a DataError
// naming it, and the project is left as it was.
PasteReport pasteEvents(Workspace& workspace, const EventClip& clip, int after);

// The report as lines: what was matched, what was made, the warnings.
QStringList pasteReportLines(const PasteReport& report);

} // namespace tarvo
