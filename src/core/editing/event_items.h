#pragma once

#include "editing/editor_kinds.h"
#include "records/project.h"

namespace tarvo {

// The condition list and the action list of an event as one list editor sees
// either: one line per held record with its title, its tick and its comment,
// and the list operations the two share. The kind-specific ones (storing,
// moving) stay in condition_ops and action_ops.
struct ItemLine
{
    int kind = 0; // the catalogue index of its kind
    QString title;
    bool active = true;
    QString comment;
};

int itemCount(const EventRecord& event, KindOf which);
ItemLine itemLine(const EventRecord& event, KindOf which, int position);

// Removes record `position`; later ones move down one place.
void deleteItem(EventRecord& event, KindOf which, int position);
// Appends a full copy of record `position`; returns the copy's position.
int copyItem(EventRecord& event, KindOf which, int position);
// A list tick: the record is active exactly when its line is ticked.
void setItemActive(EventRecord& event, KindOf which, int position, bool active);
// The comment box's Update.
void setItemComment(EventRecord& event, KindOf which, int position, const QString& comment);
// The same for a comment typed but not stored yet, which a recovery copy
// keeps: a line the project no longer has is passed over.
void storePendingComment(
    Project& project, int event, KindOf which, int position, const QString& comment);

} // namespace tarvo
