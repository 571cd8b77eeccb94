#pragma once

#include "catalogue/workspace.h"

namespace tarvo {

// Limits that keep a small catalogue from taking unbounded memory, each
// refused with the file and line that would pass it (docs/reliability.md).
namespace catalogue_limits {
// "<f>" lines of one kind. The editors show eight; more load and are kept,
// but every condition and action of the kind carries them into the project
// file, so a kind may not hold thousands.
constexpr int ArgumentsPerKind = 64;
// Characters of the codes made from scope-2 templates, all rows together:
// a long template repeated for every item would otherwise take gigabytes.
constexpr qsizetype ExpandedCodeChars = 4'000'000;
} // namespace catalogue_limits

// Removes every tab character, wherever it stands.
QString CleanCatalogueLine(const QString& line);

// Read "temp.txt" / "temp2.txt" from the program folder into the workspace's
// catalogues; the action catalogue also fills list rows of the project's
// reference-list table ("<j>" and "<g>" lines). Faults are FileErrors with
// the file and line.
void LoadConditionCatalogue(Workspace& workspace);
void LoadActionCatalogue(Workspace& workspace);

// The same readers on any file, for tests and tools.
Catalogue readConditionCatalogue(const QString& path);
Catalogue readActionCatalogue(const QString& path, ReferenceListTable& tables);

// After both catalogues are read: every row answers IDs through `Ids`, the
// group and flag rows get a spare slot, and rows 0, 7 and 14 belong to the
// project file.
void SetUpReferenceRows(ReferenceListTable& tables);

// The items of a kind combo: the "<Select ...>" line, then every title.
QStringList conditionKindItems(const Catalogue& catalogue);
QStringList actionKindItems(const Catalogue& catalogue);

} // namespace tarvo
