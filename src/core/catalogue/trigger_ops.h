#pragma once

#include "records/reference_list.h"
#include "records/records.h"

namespace tarvo {

class Prompter;

// A trigger as events and timers store it: the kind, the stored form of its
// arguments and the types and count copied from the trigger-kind table.
struct StoredTrigger
{
    qint16 kind = 0;
    std::array<QString, 3> texts;
    std::array<qint16, 3> types = {0, 0, 0};
    qint16 argCount = 0;
};

// The trigger of kind `kind` with the texts typed into its two argument boxes;
// each text is encoded under the type of its argument. A kind outside the
// table is a DataError.
StoredTrigger storedTrigger(const ReferenceListTable& table, int kind, const QString& firstText,
    const QString& secondText, Prompter& prompter);

// The stored trigger of a record, for loading it back into the page.
StoredTrigger triggerOf(const EventRecord& event);
StoredTrigger triggerOf(const TimerRecord& timer);

void applyTrigger(EventRecord& event, const StoredTrigger& trigger);
void applyTrigger(TimerRecord& timer, const StoredTrigger& trigger);

} // namespace tarvo
