#include "editing/condition_ops.h"

#include "catalogue/reference_markers.h"
#include "base/checked.h"

namespace tarvo {

int StoreCondition(
    Workspace& workspace, EventRecord& event, int position, const ConditionInput& input)
{
    const CatalogueEntry& entry = at(workspace.conditionCatalogue, input.kind, "condition kinds");
    const bool isNew = position < 0;
    if (isNew) {
        position = event.conditionCount;
        growTo(event.conditions, position + 1);
    }
    ConditionRecord& condition = at(event.conditions, position, "conditions");
    const QString comment = isNew ? QString() : condition.comment;

    ConditionRecord stored;
    static_cast<CatalogueEntry&>(stored) = entry;
    stored.Kind = static_cast<qint16>(input.kind);
    const ReferenceListTable& table = workspace.project.tables;
    for (qsizetype i = 0; i < stored.Args.size() && i < stored.ArgCount; ++i) {
        ArgumentSlot& argument = stored.Args[i];
        const QString text = input.argumentTexts.value(i);
        argument.Value = EncodeReferences(table, argument.ListRef, text, workspace.prompter);
    }
    stored.operatorIndex = static_cast<qint16>(input.operatorIndex);
    stored.comparisonValue
        = EncodeReferences(table, entry.ResultB, input.comparedText, workspace.prompter);
    stored.negation = static_cast<qint16>(input.negation);
    stored.inactive = false;
    stored.comment = comment;
    condition = stored;

    if (isNew)
        event.conditionCount = raisedCount(event.conditionCount, "conditions");
    return position;
}

ConditionInput conditionInputOf(Workspace& workspace, const ConditionRecord& condition)
{
    const ReferenceListTable& table = workspace.project.tables;
    ConditionInput input;
    input.kind = condition.Kind;
    for (qsizetype i = 0; i < condition.Args.size() && i < condition.ArgCount; ++i)
        input.argumentTexts.append(
            DecodeReferences(table, condition.Args.at(i).Value, workspace.prompter));
    input.operatorIndex = condition.operatorIndex;
    input.comparedText = DecodeReferences(table, condition.comparisonValue, workspace.prompter);
    input.negation = condition.negation;
    return input;
}

void DeleteCondition(EventRecord& event, int position)
{
    at(event.conditions, position, "conditions");
    if (position >= event.conditionCount)
        return;
    event.conditions.remove(position);
    event.conditionCount = static_cast<qint16>(event.conditionCount - 1);
    event.conditions.resize(event.conditionCount);
}

int CopyCondition(EventRecord& event, int position)
{
    ConditionRecord copy = at(event.conditions, position, "conditions");
    copy.inactive = false;
    const int index = event.conditionCount;
    growTo(event.conditions, index + 1);
    event.conditions[index] = copy;
    event.conditionCount = raisedCount(event.conditionCount, "conditions");
    return index;
}

void setConditionActive(EventRecord& event, int position, bool active)
{
    at(event.conditions, position, "conditions").inactive = !active;
}

} // namespace tarvo
