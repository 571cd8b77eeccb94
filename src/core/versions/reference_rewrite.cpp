#include "versions/reference_rewrite.h"

#include "catalogue/reference_markers.h"
#include "base/checked.h"

namespace tarvo {

QString rewriteReferences(const QString& text, const IdChanges& changes)
{
    if (changes.isEmpty())
        return text;
    return replaceReferences(text, [&](int row, int id) -> std::optional<QString> {
        const auto rowChanges = changes.constFind(row);
        if (rowChanges == changes.constEnd() || !rowChanges->contains(id))
            return std::nullopt;
        return encodedReference(row, QString::number(rowChanges->value(id)));
    });
}

namespace {

void rewriteEntry(CatalogueEntry& entry, const IdChanges& changes)
{
    for (ArgumentRecord& argument : entry.Args)
        argument.Value = rewriteReferences(argument.Value, changes);
}

template <typename Record> void rewriteTrigger(Record& record, const IdChanges& changes)
{
    for (QString& text : record.triggerArgTexts)
        text = rewriteReferences(text, changes);
}

} // namespace

void rewriteProjectReferences(Project& project, const IdChanges& changes)
{
    if (changes.isEmpty())
        return;
    for (EventRecord& event : project.events) {
        rewriteTrigger(event, changes);
        for (ConditionRecord& condition : event.conditions) {
            rewriteEntry(condition, changes);
            condition.comparisonValue = rewriteReferences(condition.comparisonValue, changes);
        }
        for (ActionRecord& action : event.actions) {
            rewriteEntry(action, changes);
            action.text = rewriteReferences(action.text, changes);
        }
    }
    for (TimerRecord& timer : project.timers)
        rewriteTrigger(timer, changes);
}

} // namespace tarvo
