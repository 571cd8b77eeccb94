#include "simulate/dry_run_model.h"

#include "compile/values_writer.h"
#include "base/checked.h"
#include "script/event_pieces.h"
#include "script/project_script.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace tarvo::simulate {

namespace {

ScriptValue startValueOfType(const QString& type)
{
    if (type == QLatin1String("INT"))
        return ScriptValue::ofNumber(0);
    if (type == QLatin1String("BOOL"))
        return ScriptValue::ofTruth(false);
    return {}; // groups start empty, objects as NULLOBJECT
}

bool isClockKeyword(const QString& keyword)
{
    return keyword == QLatin1String("every") || keyword == QLatin1String("wait")
        || keyword == QLatin1String("inactive") || keyword == QLatin1String("CALL_GAMEINIT");
}

// Which events each event's script switches on: calls of an "arm" function
// whose trigger is not "inactive".
void findArmCalls(const std::vector<script::Statement>& statements,
    const script::FunctionTable& functions, QSet<QString>& targets);

void findArmCallsIn(const script::Expression& expression, const script::FunctionTable& functions,
    QSet<QString>& targets)
{
    if (expression.kind == script::Expression::Kind::Call) {
        const script::FunctionInfo* info = functions.find(expression.text);
        if (info && info->effect == script::FunctionInfo::Effect::Arm) {
            const int event = info->argument(QStringLiteral("event"));
            const int trigger = info->argument(QStringLiteral("trigger"));
            if (event >= 0 && size_t(event) < expression.operands.size()
                && !(trigger >= 0 && size_t(trigger) < expression.operands.size()
                    && expression.operands[size_t(trigger)].text == QLatin1String("inactive")))
                targets.insert(expression.operands[size_t(event)].text);
        }
    }
    for (const script::Expression& operand : expression.operands)
        findArmCallsIn(operand, functions, targets);
}

void findArmCalls(const std::vector<script::Statement>& statements,
    const script::FunctionTable& functions, QSet<QString>& targets)
{
    for (const script::Statement& statement : statements) {
        findArmCallsIn(statement.value, functions, targets);
        findArmCalls(statement.body, functions, targets);
        findArmCalls(statement.elseBody, functions, targets);
    }
}

// Names a script gives values to become variables even when undeclared, so
// that an event reading one before any event writing it was compiled finds
// the same slot.
void declareAssigned(const std::vector<script::Statement>& statements, SlotTable& table)
{
    for (const script::Statement& statement : statements) {
        if (statement.kind == script::Statement::Kind::Assign
            && statement.target.kind == script::Expression::Kind::Name
            && !table.slots.contains(statement.target.text)) {
            table.slots.insert(statement.target.text, int(table.codes.size()));
            table.codes << statement.target.text;
        }
        declareAssigned(statement.body, table);
        declareAssigned(statement.elseBody, table);
    }
}

void addCallback(QSet<QString>& callbacks, const std::vector<script::Expression>& trigger)
{
    if (!trigger.empty() && trigger.front().kind == script::Expression::Kind::Name
        && !isClockKeyword(trigger.front().text) && !trigger.front().text.startsWith(u"Timer"))
        callbacks.insert(trigger.front().text);
}

} // namespace

QHash<QString, ScriptValue> valuesFileStartValues(const QString& valuesText)
{
    static const QRegularExpression line(
        QStringLiteral("^\\s*([A-Za-z_][A-Za-z0-9_]*(?:\\[\\d+\\])?)\\s+([A-Z]+)\\s+(.*?)\\s*$"));
    QHash<QString, ScriptValue> values;
    for (const QString& text : valuesText.split(QLatin1String("\r\n"))) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch() || match.captured(1) == QLatin1String("script"))
            continue;
        const QString type = match.captured(2);
        const QString value = match.captured(3);
        ScriptValue start;
        if (type == QLatin1String("BOOL")) {
            start = ScriptValue::ofTruth(value.compare(u"TRUE", Qt::CaseInsensitive) == 0);
        } else if (type == QLatin1String("INT")) {
            start = ScriptValue::ofNumber(wrapInteger(value.toLongLong()));
        } else if (type == QLatin1String("GROUP")) {
            start = {};
        } else {
            QString unquoted = value;
            if (unquoted.size() >= 2 && unquoted.startsWith(u'"') && unquoted.endsWith(u'"'))
                unquoted = unquoted.mid(1, unquoted.size() - 2);
            start = ScriptValue::ofText(unquoted);
        }
        values.insert(match.captured(1), start);
    }
    return values;
}

DryRunModel buildDryRunModel(const Project& project, const script::FunctionTable& functions)
{
    DryRunModel model;
    model.functions = functions;
    const script::ProjectScript script = script::readProjectScript(project);
    const script::ScriptNames names(project);

    for (const script::SyntaxError& error : script.declarationErrors)
        model.errors << QStringLiteral("declarations, line %1: %2")
                            .arg(error.position.line)
                            .arg(error.message);
    QSet<QString> callbacks;
    for (const script::Declaration& declaration : script.declarations) {
        if (declaration.kind == script::Declaration::Kind::Trigger) {
            const int index = names.timerIndex(declaration.name);
            if (index < 0)
                continue;
            if (size_t(index) >= model.timers.size())
                model.timers.resize(size_t(index) + 1);
            model.timers[size_t(index)]
                = {declaration.name, names.authorName(declaration.name), declaration.trigger};
            model.timerByCode.insert(declaration.name, index);
            addCallback(callbacks, declaration.trigger);
        } else if (declaration.kind == script::Declaration::Kind::Variable) {
            const ScriptValue start = startValueOfType(declaration.type);
            const int count = declaration.size < 0 ? 1 : qMin(declaration.size, 100000);
            for (int i = 0; i < count; ++i) {
                const QString code = declaration.size < 0
                    ? declaration.name
                    : declaration.name + u'[' + QString::number(i) + u']';
                if (!model.startValues.contains(code)) {
                    model.variableOrder << code;
                    if (declaration.type != QLatin1String("SOUND")
                        && declaration.type != QLatin1String("TEXTSTRING")
                        && declaration.type != QLatin1String("INTMESSAGE"))
                        model.watchOrder << code;
                }
                model.startValues.insert(code, start);
                const QString name = names.authorName(code);
                if (name != code && !name.isEmpty())
                    model.authorNames.insert(code, name);
            }
        }
    }
    try {
        const QHash<QString, ScriptValue> values
            = valuesFileStartValues(WriteScript::valuesText(project));
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            if (model.startValues.contains(it.key()))
                model.startValues.insert(it.key(), it.value());
    } catch (const DataError& error) {
        model.errors << QStringLiteral("values file: %1").arg(error.sentence());
    }
    // Sounds and messages are named by their codes too ("sound[0]").
    for (const int row : {row::Sounds, row::Messages}) {
        const ReferenceList& list = project.tables[size_t(row)];
        const int count = int(qMin(list.Codes.size(), list.Texts.size()));
        for (int i = 0; i < count; ++i)
            model.authorNames.insert(QString(list.Codes.at(i)).remove(u' '), list.Texts.at(i));
    }

    const int count = int(script.events.size());
    model.events.resize(size_t(count));
    std::vector<QSet<QString>> armTargets(static_cast<size_t>(count));
    for (int e = 0; e < count; ++e) {
        EventProgram& program = model.events[size_t(e)];
        program.code = QStringLiteral("event") + QString::number(e);
        program.name = project.events.at(e).name;
        model.eventByCode.insert(program.code, e);
        const std::optional<script::EventScript>& written = script.events[size_t(e)];
        program.inScript = written.has_value();
        if (!written)
            continue;
        if (!written->body) {
            const script::SyntaxError& first = written->errors.front();
            program.error
                = QStringLiteral("line %1: %2").arg(first.position.line).arg(first.message);
            model.errors
                << QStringLiteral("\"%1\" (%2), %3").arg(program.name, program.code, program.error);
            continue;
        }
        program.body = written->body;
        for (const script::EventPiece& piece : script::eventPieces(project, e)) {
            if (piece.part == script::EventPiece::Part::Condition) {
                program.conditionItems << piece.item;
                program.conditionTexts << piece.text;
            }
        }
        addCallback(callbacks, program.body->trigger);
        findArmCalls(program.body->body, functions, armTargets[size_t(e)]);
    }
    for (int e = 0; e < count; ++e)
        for (const QString& target : std::as_const(armTargets[size_t(e)])) {
            const int index = names.eventIndex(target);
            if (index >= 0)
                model.events[size_t(index)].armers << e;
        }
    for (EventProgram& program : model.events)
        std::sort(program.armers.begin(), program.armers.end());

    // Slots: the declared variables first, in their order, then what the
    // bodies give values to, then what they index past an array's end.
    for (const QString& code : std::as_const(model.variableOrder)) {
        model.slots.slots.insert(code, int(model.slots.codes.size()));
        model.slots.codes << code;
    }
    for (const EventProgram& program : model.events)
        if (program.body)
            declareAssigned(program.body->body, model.slots);
    for (EventProgram& program : model.events)
        if (program.body)
            program.steps = compileStatements(program.body->body, functions, model.slots);
    model.slotStart.reserve(size_t(model.slots.codes.size()));
    for (const QString& code : std::as_const(model.slots.codes))
        model.slotStart.push_back(model.startValues.value(code));
    model.callbacks = QStringList(callbacks.cbegin(), callbacks.cend());
    model.callbacks.sort();
    return model;
}

DryRunModel buildDryRunModel(const Workspace& workspace)
{
    return buildDryRunModel(
        workspace.project, script::FunctionTable::forProgramFolder(workspace.paths.programDir));
}

} // namespace tarvo::simulate
