#pragma once

#include "catalogue/workspace.h"

namespace tarvo {

// Stores an action of catalogue kind `kind` at `position` of `event`: a new
// action when `isUpdate` is false (position is then the action count), else
// over the one there. The action is a fresh copy of its catalogue entry, so
// an update switches the action back on and empties its comment. Each text
// (display form, one per argument) is encoded under its argument's list, with
// the events and timers rows as the project stands now.
void StoreAction(Workspace& workspace, EventRecord& event, int kind, int position, bool isUpdate,
    const QStringList& argumentTexts);

// The items the box of argument `position` of action kind `kind` offers: none
// for free text, else the names of the argument's list. Events and timers
// change while the wizard runs, so their names are those of the project now,
// whatever the rows last kept.
QStringList actionArgumentItems(const Workspace& workspace, int kind, int position);

// The arguments of an action in display form, for loading it into the editor.
QStringList actionArgumentTexts(Workspace& workspace, const ActionRecord& action);

// Appends a full copy of action `position`; returns the copy's position.
int CopyAction(EventRecord& event, int position);

// Swap with the neighbour above / below; false at the top / bottom.
bool MoveActionUp(EventRecord& event, int position);
bool MoveActionDown(EventRecord& event, int position);

// Removes action `position`; later ones move down one place.
void DeleteAction(EventRecord& event, int position);

// A list tick: the action is active exactly when its line is ticked.
void setActionActive(EventRecord& event, int position, bool active);

} // namespace tarvo
