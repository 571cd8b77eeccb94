#include "versions/variable_merge.h"

#include <QHash>

namespace tarvo {

QList<Variable> variablesOf(const ReferenceList& list)
{
    QList<Variable> variables;
    for (int j = 0; j < list.ItemCount; ++j)
        variables.append(
            {list.Texts.value(j), list.Codes.value(j), list.RawCodes.value(j), list.Ids.value(j)});
    return variables;
}

QList<int> variableIds(const QList<Variable>& variables)
{
    QList<int> ids;
    for (const Variable& variable : variables)
        ids.append(variable.id);
    return ids;
}

namespace {

constexpr int kMaxCount = 32767;

// The script identifier a new entry at `position` gets: from the variables
// dialog for numbers and groups, from the row's template for the other rows
// that number their entries (sounds); empty where nothing numbers them.
QString identifierAt(const ReferenceList& list, int row, int position)
{
    if (row == row::Integers)
        return QStringLiteral("integ[%1]").arg(position - 5);
    if (row == row::Groups)
        return QStringLiteral("Group[%1]").arg(position);
    if (list.Scope == 2 && list.CodeTemplate.contains(QLatin1String("&&0")))
        return QString(list.CodeTemplate).replace(QLatin1String("&&0"), QString::number(position));
    return {};
}

// An entry theirs added whose script identifier another one of the merged
// row already has takes the identifier its new position gets: two variables
// (or sounds) under one name would be one in the script.
void giveIdentifiers(
    const ReferenceList& list, int row, QList<Variable>& merged, const QList<MergeSlot>& slots)
{
    QHash<QString, int> uses;
    for (const Variable& variable : merged)
        ++uses[variable.code];
    for (qsizetype j = 0; j < merged.size(); ++j) {
        if (slots.at(j).ours >= 0 || slots.at(j).base >= 0)
            continue;
        const QString identifier = identifierAt(list, row, int(j));
        if (identifier.isEmpty() || uses.value(merged.at(j).code) < 2 || uses.contains(identifier))
            continue;
        --uses[merged[j].code];
        merged[j].code = identifier;
        ++uses[identifier];
    }
}

} // namespace

void mergeVariableRow(int t, const ThreeProjects& sides, const QList<MergeSlot>& slots,
    ReferenceList& row, const RecordWords& baseWords, QStringList& conflicts)
{
    const ReferenceList& baseRow = sides.base.tables[size_t(t)];
    const ReferenceList& oursRow = sides.ours.tables[size_t(t)];
    const ReferenceList& theirsRow = sides.theirs.tables[size_t(t)];
    const QString rowName
        = QStringLiteral("list row %1 %2").arg(t).arg(quotedWords(baseRow.ListName));
    if (!mergeValue(baseRow.ListName, oursRow.ListName, theirsRow.ListName, theirsRow.ListName,
            row.ListName))
        conflicts << conflictLine(rowName, QStringLiteral("renamed on both sides; ours kept"));
    mergeValue(baseRow.UsesIds, oursRow.UsesIds, theirsRow.UsesIds, theirsRow.UsesIds, row.UsesIds);
    const QList<Variable> base = variablesOf(baseRow);
    const QList<Variable> ours = variablesOf(oursRow);
    const QList<Variable> theirs = variablesOf(theirsRow);
    QList<Variable> merged;
    for (const MergeSlot& slot : slots) {
        Variable variable;
        if (slot.base >= 0 && slot.ours >= 0 && slot.theirs >= 0) {
            const Variable& was = base.at(slot.base);
            if (!mergeValue(was, ours.at(slot.ours), theirs.at(slot.theirs), theirs.at(slot.theirs),
                    variable))
                conflicts << conflictLine(baseWords.variableName(t, was.text, was.id),
                    QStringLiteral("changed on both sides; ours kept"));
        } else if (slot.ours >= 0) {
            variable = ours.at(slot.ours);
        } else {
            variable = theirs.at(slot.theirs);
            if (slot.clashing)
                variable.id = slot.newId;
        }
        merged.append(variable);
    }
    giveIdentifiers(row, t, merged, slots);
    if (merged.size() > kMaxCount) {
        conflicts << conflictLine(
            rowName, QStringLiteral("too many entries after the merge; ours kept"));
        return;
    }
    row.Texts.clear();
    row.Codes.clear();
    row.RawCodes.clear();
    row.Ids.clear();
    for (const Variable& variable : merged) {
        row.Texts.append(variable.text);
        row.Codes.append(variable.code);
        row.RawCodes.append(variable.rawCode);
        row.Ids.append(qint16(variable.id));
    }
    row.ItemCount = qint16(merged.size());
}

} // namespace tarvo
