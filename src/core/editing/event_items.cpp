#include "editing/event_items.h"

#include "base/checked.h"
#include "editing/action_ops.h"
#include "editing/condition_ops.h"

namespace tarvo {

namespace {

template <typename Record> ItemLine lineOf(const Record& record)
{
    return {record.Kind, record.Title, !record.inactive, record.comment};
}

} // namespace

int itemCount(const EventRecord& event, KindOf which)
{
    return int(which == KindOf::Condition ? heldCount(event.conditionCount, event.conditions)
                                          : heldCount(event.actionCount, event.actions));
}

ItemLine itemLine(const EventRecord& event, KindOf which, int position)
{
    return which == KindOf::Condition ? lineOf(at(event.conditions, position, "conditions"))
                                      : lineOf(at(event.actions, position, "actions"));
}

void deleteItem(EventRecord& event, KindOf which, int position)
{
    if (which == KindOf::Condition)
        DeleteCondition(event, position);
    else
        DeleteAction(event, position);
}

int copyItem(EventRecord& event, KindOf which, int position)
{
    return which == KindOf::Condition ? CopyCondition(event, position)
                                      : CopyAction(event, position);
}

void setItemActive(EventRecord& event, KindOf which, int position, bool active)
{
    if (which == KindOf::Condition)
        setConditionActive(event, position, active);
    else
        setActionActive(event, position, active);
}

void setItemComment(EventRecord& event, KindOf which, int position, const QString& comment)
{
    if (which == KindOf::Condition)
        at(event.conditions, position, "conditions").comment = comment;
    else
        at(event.actions, position, "actions").comment = comment;
}

void storePendingComment(
    Project& project, int event, KindOf which, int position, const QString& comment)
{
    if (event < 0 || event >= project.events.size() || position < 0)
        return;
    EventRecord& record = project.events[event];
    const qsizetype held
        = which == KindOf::Condition ? record.conditions.size() : record.actions.size();
    if (position < held)
        setItemComment(record, which, position, comment);
}

} // namespace tarvo
