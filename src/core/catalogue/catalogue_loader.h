#pragma once

#include "model/workspace.h"

namespace tarvo {

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
