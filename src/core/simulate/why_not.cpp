#include "simulate/why_not.h"

#include "script/script_names.h"
#include "simulate/dry_run.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarvo::simulate {

namespace {

QString quoted(const DryRun& run, int event)
{
    const EventProgram& program = run.model().events[size_t(event)];
    return u'"' + (program.name.isEmpty() ? program.code : program.name) + u'"';
}

QString times(int count)
{
    return count == 1 ? QStringLiteral("once") : QStringLiteral("%1 times").arg(count);
}

// The conditions as the compile writes them, by the author's number.
QMap<int, QString> conditionTexts(const EventProgram& program)
{
    QMap<int, QString> texts;
    for (qsizetype c = 0; c < program.conditionItems.size(); ++c)
        texts.insert(program.conditionItems.at(c) + 1, program.conditionTexts.value(c));
    return texts;
}

QString falseConditionWords(const DryRun& run, int event)
{
    const EventHistory& history = run.histories()[size_t(event)];
    const QMap<int, QString> texts = conditionTexts(run.model().events[size_t(event)]);
    QStringList parts;
    for (auto it = history.falseCount.cbegin(); it != history.falseCount.cend(); ++it)
        parts << QStringLiteral("condition %1 \"%2\" was false %3, first at %4")
                     .arg(it.key())
                     .arg(texts.value(it.key()), times(it.value()),
                         clockText(history.firstFalseAt.value(it.key())));
    return parts.join(QStringLiteral("; "));
}

// Why an event that fires nothing did not fire.
QString notFiredReason(const DryRun& run, int event)
{
    const EventProgram& program = run.model().events[size_t(event)];
    const EventHistory& history = run.histories()[size_t(event)];
    const ArmState& arm = run.arms()[size_t(event)];
    if (!program.inScript)
        return QStringLiteral("it is switched off (unticked), so the compile leaves it out");
    if (!program.body)
        return QStringLiteral("the game cannot read its script (%1)").arg(program.error);
    if (!history.armedAtStart && history.armCount == 0)
        return QStringLiteral("it was never switched on itself");
    switch (arm.kind) {
    case ArmState::Kind::Callback:
        return QStringLiteral("it waits for %1, which the run never raised (a scenario line "
                              "\"at T fire %1\" raises it)")
            .arg(arm.keyword);
    case ArmState::Kind::Every:
    case ArmState::Kind::Wait:
        return QStringLiteral("its first firing (%1) would come after the end of the run (%2)")
            .arg(clockText(arm.due), clockText(run.scenario().until));
    case ArmState::Kind::Off:
        return history.disarmCount
            ? QStringLiteral("it was switched off at %1 by %2 before it came due")
                  .arg(clockText(history.lastDisarmAt), quoted(run, history.lastDisarmBy))
            : QStringLiteral("its trigger never fires");
    case ArmState::Kind::Spent:
        break;
    }
    return QStringLiteral("it has not fired");
}

QString armerReason(const DryRun& run, int armer)
{
    const EventHistory& history = run.histories()[size_t(armer)];
    if (history.ran > 0)
        return QStringLiteral("its actions ran %1 without reaching the switch (an \"if\" inside "
                              "its actions was false)")
            .arg(times(history.ran));
    if (history.skipped > 0)
        return QStringLiteral("it fired %1 and never ran its actions: %2")
            .arg(times(history.skipped), falseConditionWords(run, armer));
    return QStringLiteral("it never fired: ") + notFiredReason(run, armer);
}

} // namespace

QStringList whyNotLines(const DryRun& run, int event)
{
    QStringList lines;
    const DryRunModel& model = run.model();
    if (event < 0 || size_t(event) >= model.events.size())
        return lines;
    const EventProgram& program = model.events[size_t(event)];
    const EventHistory& history = run.histories()[size_t(event)];
    const QString name = quoted(run, event);
    if (!program.inScript || !program.body) {
        lines << name + QStringLiteral(" never runs: ") + notFiredReason(run, event) + u'.';
        return lines;
    }
    if (history.armedAtStart)
        lines << name
                + QStringLiteral(" starts switched on (%1).")
                      .arg(run.startTriggers()[size_t(event)]);
    else
        lines << name + QStringLiteral(" starts switched off (its trigger is \"inactive\").");
    if (history.armCount > 0) {
        lines << QStringLiteral("It was switched on %1, first at %2 by %3 with %4.")
                     .arg(times(history.armCount), clockText(history.firstArmAt),
                         quoted(run, history.firstArmBy), history.firstArmTrigger);
    } else if (!history.armedAtStart) {
        if (program.armers.isEmpty())
            lines << QStringLiteral("No event switches it on: give it a trigger of its own, or "
                                    "an \"Enable event\" action (setEventTrigger) in an event "
                                    "that runs.");
        for (const int armer : program.armers)
            lines << QStringLiteral("%1 could switch it on, but %2.")
                         .arg(quoted(run, armer), armerReason(run, armer));
    }
    if (history.disarmCount > 0)
        lines << QStringLiteral("It was switched off %1, last at %2 by %3.")
                     .arg(times(history.disarmCount), clockText(history.lastDisarmAt),
                         quoted(run, history.lastDisarmBy));
    const int fired = history.ran + history.skipped;
    if (fired == 0) {
        if (history.armedAtStart || history.armCount > 0)
            lines << QStringLiteral("It never fired: %1.").arg(notFiredReason(run, event));
        return lines;
    }
    lines << QStringLiteral("It fired %1, first at %2; %3.")
                 .arg(times(fired), clockText(history.firings.front().time),
                     history.ran == 0 ? QStringLiteral("its actions never ran")
                                      : QStringLiteral("its actions ran ") + times(history.ran));
    if (history.skipped > 0)
        lines << QStringLiteral("When they did not: %1.").arg(falseConditionWords(run, event));
    return lines;
}

QByteArray whyNotJson(const DryRun& run, int event)
{
    QJsonObject object;
    const DryRunModel& model = run.model();
    if (event >= 0 && size_t(event) < model.events.size()) {
        const EventProgram& program = model.events[size_t(event)];
        const EventHistory& history = run.histories()[size_t(event)];
        object.insert(QStringLiteral("event"), program.name);
        object.insert(QStringLiteral("eventCode"), program.code);
        object.insert(QStringLiteral("inScript"), program.inScript);
        object.insert(QStringLiteral("armedAtStart"), history.armedAtStart);
        object.insert(QStringLiteral("armed"), history.armCount);
        if (history.armCount > 0)
            object.insert(QStringLiteral("firstArmed"),
                QJsonObject {{QStringLiteral("t"), history.firstArmAt},
                    {QStringLiteral("by"), model.events[size_t(history.firstArmBy)].name},
                    {QStringLiteral("trigger"), history.firstArmTrigger}});
        QJsonArray armers;
        for (const int armer : program.armers)
            armers << model.events[size_t(armer)].name;
        object.insert(QStringLiteral("armers"), armers);
        object.insert(QStringLiteral("disarmed"), history.disarmCount);
        object.insert(QStringLiteral("fired"), history.ran);
        object.insert(QStringLiteral("skipped"), history.skipped);
        QJsonArray conditions;
        const QMap<int, QString> texts = conditionTexts(program);
        for (auto it = history.falseCount.cbegin(); it != history.falseCount.cend(); ++it)
            conditions << QJsonObject {{QStringLiteral("condition"), it.key()},
                {QStringLiteral("text"), texts.value(it.key())},
                {QStringLiteral("count"), it.value()},
                {QStringLiteral("first"), history.firstFalseAt.value(it.key())}};
        object.insert(QStringLiteral("falseConditions"), conditions);
    }
    object.insert(QStringLiteral("answer"), QJsonArray::fromStringList(whyNotLines(run, event)));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

int findEventByWord(const DryRun& run, const QString& word)
{
    const DryRunModel& model = run.model();
    for (size_t e = 0; e < model.events.size(); ++e)
        if (model.events[e].name == word)
            return int(e);
    const int byCode = model.eventByCode.value(word, -1);
    if (byCode >= 0)
        return byCode;
    bool ok = false;
    const int number = word.toInt(&ok);
    return ok && number >= 1 && size_t(number) <= model.events.size() ? number - 1 : -1;
}

} // namespace tarvo::simulate
