#include "catalogue/trigger_ops.h"

#include "catalogue/reference_markers.h"
#include "catalogue/trigger_tables.h"

namespace tarvo {

StoredTrigger storedTrigger(const ReferenceListTable& table, int kind, const QString& firstText,
    const QString& secondText, Prompter& prompter)
{
    const TriggerKind& row = triggerKind(kind);
    StoredTrigger trigger;
    trigger.kind = static_cast<qint16>(kind);
    trigger.texts[0] = EncodeReferences(table, row.firstArgType, firstText, prompter);
    trigger.texts[1] = EncodeReferences(table, row.secondArgType, secondText, prompter);
    // The third argument exists in the records but no kind uses it.
    trigger.types = {row.firstArgType, row.secondArgType, 0};
    trigger.argCount = row.argCount;
    return trigger;
}

StoredTrigger triggerOf(const EventRecord& event)
{
    return {event.triggerKind, event.triggerArgTexts, event.triggerArgTypes, event.triggerArgCount};
}

StoredTrigger triggerOf(const TimerRecord& timer)
{
    return {timer.triggerKind, timer.triggerArgTexts, timer.triggerArgTypes, timer.triggerArgCount};
}

void applyTrigger(EventRecord& event, const StoredTrigger& trigger)
{
    event.triggerKind = trigger.kind;
    event.triggerArgTexts = trigger.texts;
    event.triggerArgTypes = trigger.types;
    event.triggerArgCount = trigger.argCount;
}

void applyTrigger(TimerRecord& timer, const StoredTrigger& trigger)
{
    timer.triggerKind = trigger.kind;
    timer.triggerArgTexts = trigger.texts;
    timer.triggerArgTypes = trigger.types;
    timer.triggerArgCount = trigger.argCount;
}

} // namespace tarvo
