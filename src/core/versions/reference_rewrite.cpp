#include "versions/reference_rewrite.h"

#include "catalogue/reference_markers.h"
#include "model/checked.h"

namespace tarvo {

QString rewriteReferences(const QString& text, const IdChanges& changes)
{
    qsizetype from = text.indexOf(QLatin1String("&&"));
    if (from < 0 || changes.isEmpty())
        return text;
    QString result;
    qsizetype copied = 0;
    while (from >= 0) {
        int row = 0;
        int id = 0;
        qsizetype end = 0;
        if (readReference(text, from, row, id, end)) {
            const auto rowChanges = changes.constFind(row);
            if (rowChanges != changes.constEnd() && rowChanges->contains(id)) {
                result += QStringView(text).mid(copied, from - copied);
                result += encodedReference(row, QString::number(rowChanges->value(id)));
                copied = end;
            }
            from = text.indexOf(QLatin1String("&&"), end);
        } else {
            from = text.indexOf(QLatin1String("&&"), from + 1);
        }
    }
    result += QStringView(text).mid(copied);
    return result;
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
