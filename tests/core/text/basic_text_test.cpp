// The string rules of the classic runtime the stored formats were made with,
// the code page and the line ends: scripts of conversions under
// tests/data/text with their golden results.
#include "workspace_case.h"

GOLDEN_CASE_FOLDERS(TextCases, "text");
