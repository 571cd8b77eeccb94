#include "compile/script_writer.h"

#include "catalogue/reference_index.h"
#include "compile/output_tree.h"
#include "compile/resource_lists.h"
#include "compile/script_lookup.h"
#include "compile/script_renderers.h"
#include "compile/step_log.h"
#include "compile/text_sink.h"
#include "catalogue/trigger_tables.h"
#include "base/checked.h"
#include "text/basic_text.h"

#include <algorithm>
#include <initializer_list>

namespace tarvo::WriteScript {

using text::crlf;

namespace {

const QString kRule = QStringLiteral("//-----------------");
// "//" and 25 hyphens, around each event's name.
const QString kEventRule = QStringLiteral("//") + QString(25, u'-');

QString banner(const QString& title)
{
    return kRule + crlf + QStringLiteral("//") + title + crlf + kRule + crlf;
}

QString declaration(const QString& word, const QString& type, const QString& names)
{
    return word + QStringLiteral("\t\t") + type + QStringLiteral("\t\t") + names + crlf;
}

QString variableRows(const Project& project, qint16 scope, StepLog& log)
{
    const QString word = scope == 2 ? QStringLiteral("public") : QStringLiteral("private");
    QString text;
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& list = project.tables[r];
        if (list.Scope != scope)
            continue;
        // The first five integers of row 0 are the game's own and are never
        // declared (the values file skips the same five).
        const int count = scope == 2 && r == row::Integers ? list.ItemCount - 5 : list.ItemCount;
        if (count <= 0)
            continue;
        log.attempt([&] { return QStringLiteral("%1 variables of row %2").arg(word).arg(r); },
            [&] {
                text += QStringLiteral("//") + list.ListName + crlf
                    + declaration(word, list.ValueType,
                        text::basicReplace(
                            list.CodeTemplate, QStringLiteral("&&0"), QString::number(count))
                            + u';')
                    + crlf;
            });
    }
    return text;
}

bool eventEnabled(const Project& project, int event)
{
    return !at(project.events, event, "events").disabled;
}

} // namespace

QString publicVariablesSection(const Project& project, StepLog& log)
{
    return banner(QStringLiteral("Public Variables")) + variableRows(project, 2, log);
}

QString privateVariablesSection(const Project& project, StepLog& log)
{
    return banner(QStringLiteral("Private Variables")) + variableRows(project, 1, log)
        + QStringLiteral("//Other variables") + crlf
        + declaration(
            QStringLiteral("private"), QStringLiteral("INT"), QStringLiteral("tempX,tempY,count;"))
        + declaration(QStringLiteral("private"), QStringLiteral("DROID"),
            QStringLiteral("droid,transportDroid;"))
        + declaration(
            QStringLiteral("private"), QStringLiteral("STRUCTURE"), QStringLiteral("structure;"))
        + declaration(
            QStringLiteral("private"), QStringLiteral("BOOL"), QStringLiteral("boolResult;"))
        + crlf;
}

QString triggerDeclarationSection(const Project& project, StepLog& log)
{
    if (project.timerCount <= 0)
        return {};
    QString text = banner(QStringLiteral("Trigger declaration"));
    for (int t = 0; t < project.timerCount; ++t) {
        log.attempt([t] { return QStringLiteral("trigger declaration of timer %1").arg(t); },
            [&] {
                text += QStringLiteral("trigger Timer") + QString::number(t) + u'('
                    + timerTriggerText(project, t) + QStringLiteral(");\t\t//")
                    + at(project.timers, t, "timers").name + crlf;
            });
    }
    return text + crlf;
}

QString eventDeclarationSection(const Project& project, StepLog& log)
{
    QString text = banner(QStringLiteral("Event declaration"));
    for (int i = 0; i < project.eventCount; ++i) {
        log.attempt([i] { return QStringLiteral("declaration of event %1").arg(i); },
            [&] {
                if (eventEnabled(project, i)) {
                    text += u"event event";
                    text += QString::number(i);
                    text += u';';
                    text += crlf;
                }
            });
    }
    return text + crlf;
}

QString winLoseDeclaration()
{
    return QStringLiteral("//Win-Lose messages") + crlf + crlf
        + QStringLiteral("public  INTMESSAGE      endMsg, winMsg;") + crlf + crlf;
}

namespace {

void appendTabs(TextSink& text, int count)
{
    text.appendRepeated(u'\t', count);
}

// The event's text is appended to `text`; on a failure outside the steps
// that catch their own, nothing of it stays.
void appendEventBody(
    TextSink& text, const Project& project, int event, StepLog& log, const ScriptLookup* index)
{
    const qsizetype start = text.size();
    try {
        const EventRecord& record = at(project.events, event, "events");
        const auto where = [event] { return QStringLiteral("event %1").arg(event); };
        text << kEventRule;
        text << crlf;
        text << u"//";
        text << record.name;
        text << crlf;
        text << kEventRule;
        text << crlf;
        log.attempt([&] { return where() + QStringLiteral(": trigger"); },
            [&] {
                const QString trigger = eventTriggerText(project, event, index);
                text << u"event event";
                text << event;
                text << u'(';
                text << trigger;
                text << u')';
                text << crlf;
            });
        text << u'{';
        text << crlf;

        // One text per event, kept from item to item: a condition or action of a
        // form the writer does not know repeats the text of the one before it.
        QString conditionText;
        for (int j = 0; j < record.conditionCount; ++j) {
            const auto item = [&] { return where() + QStringLiteral(", condition %1").arg(j); };
            log.attempt(item, [&] {
                const ConditionRecord& condition = at(record.conditions, j, "conditions");
                if (condition.inactive)
                    return;
                log.attempt(item, [&] {
                    switch (condition.CodeMode) {
                    case 0:
                        conditionText = conditionCall(project, event, j, index);
                        break;
                    case 1:
                        conditionText = conditionValue(project, event, j, index);
                        break;
                    case 2:
                        conditionText = conditionCode(project, event, j, index);
                        break;
                    default:
                        log.add(
                            item() + QStringLiteral(": unknown form %1").arg(condition.CodeMode));
                    }
                });
                // Value type 17 is a condition that is true or false by itself.
                QString comparison;
                if (condition.ResultB != 17)
                    log.attempt([&] { return item() + QStringLiteral(": comparison"); },
                        [&] { comparison = comparisonText(project, event, j, index); });
                QString negation;
                log.attempt([&] { return item() + QStringLiteral(": negation"); },
                    [&] { negation = negationText(condition.negation); });
                // Negation, condition and comparison in one text, not grown twice.
                if (!comparison.isEmpty() || !negation.isEmpty())
                    conditionText = joined({negation, conditionText, comparison});
                // The depth follows the position, so an inactive condition
                // leaves a gap of one tab.
                appendTabs(text, j + 1);
                text << u"if(";
                text << conditionText;
                text << u')';
                text << crlf;
                appendTabs(text, j + 1);
                text << u'{';
                text << crlf;
            });
        }

        QString actionText;
        for (int k = 0; k < record.actionCount; ++k) {
            const auto item = [&] { return where() + QStringLiteral(", action %1").arg(k); };
            log.attempt(item, [&] {
                const ActionRecord& action = at(record.actions, k, "actions");
                if (action.inactive)
                    return;
                log.attempt(item, [&] {
                    if (action.CodeMode == 0)
                        actionText = actionCall(project, event, k);
                    else if (action.CodeMode == 2)
                        actionText = actionCode(project, event, k, index);
                    else
                        log.add(item()
                            + QStringLiteral(": unknown form %1, the text before it is repeated")
                                  .arg(action.CodeMode));
                });
                text << actionText;
                text << crlf;
            });
        }

        for (int j = record.conditionCount - 1; j >= 0; --j) {
            log.attempt([&] { return where() + QStringLiteral(", condition %1").arg(j); },
                [&] {
                    if (!at(record.conditions, j, "conditions").inactive) {
                        appendTabs(text, j + 1);
                        text << u'}';
                        text << crlf;
                    }
                });
        }
        text << u'}';
        text << crlf;
        text << crlf;
    } catch (...) {
        text.truncate(start);
        throw;
    }
}

} // namespace

QString eventBody(const Project& project, int event, StepLog& log, const ScriptLookup* index)
{
    TextSink text;
    appendEventBody(text, project, event, log, index);
    return text.take();
}

QString scriptSourceText(const Project& project, const DroidBuiltSlot& slot, StepLog& log)
{
    return scriptSourceText(project, slot, log, usesGameOverMessages(project));
}

QString scriptSourceText(
    const Project& project, const DroidBuiltSlot& slot, StepLog& log, bool gameOverMessages)
{
    // About 600 characters an event; growing is what costs, not the spare.
    TextSink text(4096 + qsizetype(qMax<int>(project.eventCount, 0)) * 640);
    text << publicVariablesSection(project, log);
    text << crlf;
    if (gameOverMessages)
        text << winLoseDeclaration();
    text << privateVariablesSection(project, log);
    text << crlf;
    text << triggerDeclarationSection(project, log);
    text << crlf;
    text << eventDeclarationSection(project, log);
    text << crlf;
    text << slot.text;
    text << crlf;
    // One reference index for every event: the rows are indexed once.
    const ReferenceIndex references(project.tables);
    const ScriptLookup index(references);
    for (int i = 0; i < project.eventCount; ++i) {
        log.attempt([i] { return QStringLiteral("event %1").arg(i); },
            [&] {
                if (eventEnabled(project, i))
                    appendEventBody(text, project, i, log, &index);
            });
    }
    return text.take();
}

void WriteScriptSource(const OutputContext& context, const DroidBuiltSlot& slot)
{
    makeDirectory(context, QStringLiteral("script"));
    makeDirectory(context, QStringLiteral("script/text"));
    // The briefing goes with the win/lose messages; it is copied first, as
    // the script that announces them is written.
    if (context.gameOverMessages())
        CopyBriefing(context);
    const QString text
        = scriptSourceText(context.project, slot, context.log, context.gameOverMessages());
    writeTextFile(context,
        QStringLiteral("script/text/") + context.project.name + QStringLiteral(".slo"), text);
}

} // namespace tarvo::WriteScript
