#pragma once

#include "resources/resource_removal.h"

namespace tarvo {

class ProjectDocument;

// The verbs of the sounds and messages dialogs on the document: each is one
// step of the history named as the user knows it ("Add Sound"), asks through
// the workspace's prompter, and keeps the list row of its kind (14 sounds, 15
// messages) current, so that an argument box or a compile sees the change at
// once and undo takes the row back with the records. A verb that changes
// nothing (a cancelled file dialog, an empty text, a No) records no step.
int AddSound(ProjectDocument& document, const QString& fullPath);
RemovalResult RemoveSound(ProjectDocument& document, int position);
int AddMessage(ProjectDocument& document, const QString& text);
bool UpdateMessage(ProjectDocument& document, int position, const QString& text);
RemovalResult RemoveMessage(ProjectDocument& document, int position);

// Closing the sounds dialog refills row 14 from the sounds. The verbs above
// keep it current, but a loaded project keeps the row its file held, which
// may hold other items; only then does closing make a step ("Sounds").
void CloseSounds(ProjectDocument& document);

} // namespace tarvo
