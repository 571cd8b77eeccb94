#pragma once

#include "records/project.h"

namespace tarvo {

struct MergeOutcome
{
    Project merged;
    // Each conflict in the author's words; the merged project holds ours'
    // side of it. Empty for a clean merge.
    QStringList conflicts;
    // What the merge did besides merging: records of theirs given new IDs.
    QStringList notes;
};

// The three-way merge of two versions of a project that both come from
// `base`, record by record and, inside an event, field by field (title,
// trigger, on/off, comment, each condition and action). Records that both
// sides added with the same ID keep it in ours; theirs' take the next IDs
// the project's own rules give, and every reference to them in what theirs
// brings follows. A result the project file cannot hold (more than one
// timer, a list beyond its count) is a conflict, never a broken project.
MergeOutcome mergeProjects(const Project& base, const Project& ours, const Project& theirs);

} // namespace tarvo
