// The sounds and messages verbs as steps of the project document: the rows
// they keep current, what undo and redo give back, and that a verb that
// changed nothing leaves the history alone. Folders under
// tests/data/resource_commands.
#include "document_case.h"

DOCUMENT_CASE_FOLDERS(ResourceCommandCases, "resource_commands");
