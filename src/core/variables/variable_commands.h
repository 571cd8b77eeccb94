#pragma once

#include <QString>

namespace tarvo {

class ProjectDocument;

// The verbs of the variables dialog on the document: each is one step of the
// history, asks through the workspace's prompter, and records no step when it
// changed nothing (a cancelled input box, a refusal).
int NewGroup(ProjectDocument& document);
int NewNumber(ProjectDocument& document);

// Deletes as the dialog always has, even a variable still in use; the places
// that now name nothing are listed in one note afterwards, so the author can
// undo or mend them.
bool DeleteGroup(ProjectDocument& document, int position);
bool DeleteNumber(ProjectDocument& document, int position);

// `label` names the step after the tab ("Rename Flag").
bool RenameVariable(ProjectDocument& document, int table, int position, const QString& label);
void SetFlagValue(ProjectDocument& document, int position, const QString& value);
bool UpdateNumberValue(ProjectDocument& document, int position, const QString& value);

} // namespace tarvo
