// The variables dialog's rules (new, delete, rename, values, limits), as
// scripts of steps under tests/data/variables with the prompts and the rows
// they give.
#include "workspace_case.h"

GOLDEN_CASE_FOLDERS(VariableCases, "variables");
