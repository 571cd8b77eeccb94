// Adding and removing sounds and messages, as scripts of steps under
// tests/data/resources over one project whose actions use them, with the
// prompts and the project they leave.
#include "workspace_case.h"

GOLDEN_CASE_FOLDERS(ResourceCases, "resources");
