#pragma once

#include "catalogue/workspace.h"
#include "document/project_delta.h"

#include <QList>
#include <QStringList>

namespace tarvo {

// The events list's commands for several selected lines at once. Each keeps
// the rule of its one-line command; the lines are event indices, in any
// order, repeated or not.

// The lines sorted, without repeats or lines outside the events list.
QList<int> blockLines(const Project& project, QList<int> lines);

// "Are you sure you want to delete these 3 events?"
QString deleteEventsQuestion(int count);

// Removes the events of `lines`, the last first, and rebuilds the events
// row once.
void deleteEvents(Project& project, const QList<int>& lines);
EventStretch deleteEventsStretch(const Project& project, const QList<int>& lines);

// Switch on or off: each line goes through the tick's own rule. What that
// rule would say line by line (a refusal, a warning about actions that still
// name the event) is gathered and said once, as a summary, at the end.
struct BlockTickReport
{
    int changed = 0; // lines whose flag changed
    QStringList refused; // names of the events the rule refused
    QStringList warnings; // the rule's other messages, in order
};
BlockTickReport setEventsTicked(Workspace& workspace, const QList<int>& lines, bool ticked);
// The summary shown after switching; empty when there is nothing to say.
QString blockTickSummary(const BlockTickReport& report, bool ticked);
EventStretch blockStretch(const Project& project, const QList<int>& lines);

// Moves the selected lines one place up (-1) or down (+1) as a block: each
// passes the unselected line beside it, gaps between them stay. Returns the
// lines where they went, empty when the first line is on top (up) or the
// last at the bottom (down).
QList<int> moveEvents(Project& project, const QList<int>& lines, int direction);
EventStretch moveEventsStretch(const QList<int>& lines, int direction);

} // namespace tarvo
