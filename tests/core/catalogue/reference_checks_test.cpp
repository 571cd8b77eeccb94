// The warning about switched-on actions that still name an event being
// switched off: scripts over the projects under tests/data/reference_checks.
#include "workspace_case.h"

GOLDEN_CASE_FOLDERS(ReferenceCheckCases, "reference_checks");
