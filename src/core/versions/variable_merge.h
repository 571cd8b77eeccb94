#pragma once

#include "versions/list_merge.h"
#include "versions/record_words.h"

namespace tarvo {

// One variable of a list row, as the project file holds it.
struct Variable
{
    QString text;
    QString code;
    QString rawCode;
    int id = 0;

    friend bool operator==(const Variable&, const Variable&) = default;
};

QList<Variable> variablesOf(const ReferenceList& list);
QList<int> variableIds(const QList<Variable>& variables);

struct ThreeProjects
{
    const Project& base;
    const Project& ours;
    const Project& theirs;
};

// Fills list row `t` of the merged project (which holds ours' row) from the
// merged list `slots`: its name and ID flag by the three-way rule, its
// variables field by field. Theirs' clashing variables take their new IDs.
void mergeVariableRow(int t, const ThreeProjects& sides, const QList<MergeSlot>& slots,
    ReferenceList& row, const RecordWords& baseWords, QStringList& conflicts);

} // namespace tarvo
