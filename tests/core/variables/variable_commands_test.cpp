// The variables verbs as steps of the project document: the note a delete
// of a variable in use gives, undo and redo, and refusals that record
// nothing. Folders under tests/data/variable_commands.
#include "document_case.h"

DOCUMENT_CASE_FOLDERS(VariableCommandCases, "variable_commands");
