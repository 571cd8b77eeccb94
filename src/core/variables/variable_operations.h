#pragma once

#include "records/project.h"

#include <QStringList>

namespace tarvo {

class Prompter;

// The script variables the variables dialog manages. Each kind is one row of
// the reference-list table; a variable is one position in that row's four
// per-variable arrays (display name, script identifier, ID, value).
constexpr int kMaxVariables = 64; // per row, the five fixed numbers included
constexpr int kFixedNumbers = 5; // positions 0 to 4 of the numbers row

// The display names of positions 0 to count - 1 of `table`.
QStringList variableNames(const Project& project, int table);

// Ask for a name and append a group ("Group[" + position + "]") or a number
// ("integ[" + (position - 5) + "]", value "0"). Returns the new position, or
// -1 when the row is full (the user is told) or the input box was cancelled.
int NewGroup(Project& project, Prompter& prompter);
int NewNumber(Project& project, Prompter& prompter);

// Remove the variable at `position`, moving the later ones up with all their
// fields. Identifiers are kept as they are, so a later new variable can repeat
// one still in use. Returns false when nothing was removed (no selection, or
// one of the fixed numbers, which the user is told about).
bool DeleteGroup(Project& project, Prompter& prompter, int position);
bool DeleteNumber(Project& project, Prompter& prompter, int position);

// Ask for a new display name of the variable at `position` of `table`; the
// identifier and ID stay. False when nothing is selected or the answer is empty.
bool RenameVariable(Project& project, Prompter& prompter, int table, int position);

// Flags hold "TRUE" or "FALSE". What the value chooser shows for a flag:
// "FALSE" only for a flag whose value is exactly that, "TRUE" otherwise.
QString flagChoice(const Project& project, int position);
void SetFlagValue(Project& project, int position, const QString& value);

// A number's value as shown for editing: "0" when it has none.
QString numberValueText(const Project& project, int position);

// Store `value` as it stands as the value of the number at `position`. The
// fixed numbers are refused with a message; false when nothing was stored.
bool UpdateNumberValue(Project& project, Prompter& prompter, int position, const QString& value);

} // namespace tarvo
