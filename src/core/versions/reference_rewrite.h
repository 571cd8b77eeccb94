#pragma once

#include "records/project.h"

#include <QHash>

namespace tarvo {

// New IDs for items of list rows: row -> (old ID -> new ID).
using IdChanges = QHash<int, QHash<int, int>>;

// `text` with every encoded reference to a changed ID pointing at the new
// one; all at once, so an ID that is both given up and taken is never
// rewritten twice.
QString rewriteReferences(const QString& text, const IdChanges& changes);

// Every stored text of the project that may hold references: trigger
// arguments, condition and action arguments, compared values, action texts.
void rewriteProjectReferences(Project& project, const IdChanges& changes);

} // namespace tarvo
