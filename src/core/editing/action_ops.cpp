#include "editing/action_ops.h"

#include "base/checked.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"

#include <algorithm>

namespace tarvo {

void StoreAction(Workspace& workspace, EventRecord& event, int kind, int position, bool isUpdate,
    const QStringList& argumentTexts)
{
    const CatalogueEntry& entry = at(workspace.actionCatalogue, kind, "action kinds");
    if (!isUpdate)
        growTo(event.actions, position + 1);
    ActionRecord& action = at(event.actions, position, "actions");

    // The names offered in the boxes are the ones the texts are encoded with.
    if (std::any_of(entry.Args.cbegin(), entry.Args.cend(),
            [](const ArgumentSlot& argument) { return argument.ListRef != -1; })) {
        refreshTimerRow(workspace.project);
        refreshEventRow(workspace.project);
    }
    ActionRecord stored;
    static_cast<CatalogueEntry&>(stored) = entry;
    stored.Kind = static_cast<qint16>(kind);
    for (qsizetype i = 0; i < stored.Args.size() && i < stored.ArgCount; ++i) {
        ArgumentSlot& argument = stored.Args[i];
        argument.Value = EncodeReferences(
            workspace.project.tables, argument.ListRef, argumentTexts.value(i), workspace.prompter);
    }
    action = stored;

    if (!isUpdate)
        event.actionCount = raisedCount(event.actionCount, "actions");
}

QStringList actionArgumentItems(const Workspace& workspace, int kind, int position)
{
    const ArgumentSlot& argument
        = at(at(workspace.actionCatalogue, kind, "action kinds").Args, position, "arguments");
    if (argument.ListRef == -1)
        return {};
    Project now = workspace.project;
    refreshTimerRow(now);
    refreshEventRow(now);
    const ReferenceList& list = referenceRow(now.tables, argument.ListRef);
    return list.Texts.mid(0, list.ItemCount);
}

QStringList actionArgumentTexts(Workspace& workspace, const ActionRecord& action)
{
    QStringList texts;
    for (qsizetype i = 0; i < action.Args.size() && i < action.ArgCount; ++i)
        texts.append(DecodeReferences(
            workspace.project.tables, action.Args.at(i).Value, workspace.prompter));
    return texts;
}

int CopyAction(EventRecord& event, int position)
{
    const ActionRecord copy = at(event.actions, position, "actions");
    const int index = event.actionCount;
    growTo(event.actions, index + 1);
    event.actions[index] = copy;
    event.actionCount = raisedCount(event.actionCount, "actions");
    return index;
}

bool MoveActionUp(EventRecord& event, int position)
{
    if (position < 1 || position >= event.actionCount)
        return false;
    at(event.actions, position, "actions");
    event.actions.swapItemsAt(position, position - 1);
    return true;
}

bool MoveActionDown(EventRecord& event, int position)
{
    if (position < 0 || position >= event.actionCount - 1)
        return false;
    at(event.actions, position + 1, "actions");
    event.actions.swapItemsAt(position, position + 1);
    return true;
}

void DeleteAction(EventRecord& event, int position)
{
    at(event.actions, position, "actions");
    if (position >= event.actionCount)
        return;
    event.actions.remove(position);
    event.actionCount = static_cast<qint16>(event.actionCount - 1);
    event.actions.resize(event.actionCount);
}

void setActionActive(EventRecord& event, int position, bool active)
{
    at(event.actions, position, "actions").inactive = !active;
}

} // namespace tarvo
