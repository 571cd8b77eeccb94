#include "simulate/body_runner.h"

#include "script/script_names.h"
#include "simulate/dry_run.h"

namespace tarvo::simulate {

namespace {

using Expression = script::Expression;
using Statement = script::Statement;
using Effect = script::FunctionInfo::Effect;

const Expression* argumentFor(
    const script::FunctionInfo& info, const Expression& call, const QString& role)
{
    const int index = info.argument(role);
    return index >= 0 && size_t(index) < call.operands.size() ? &call.operands[size_t(index)]
                                                              : nullptr;
}

// The only statement of a block, when it is an "if" without "else": the way
// the compile nests an event's conditions.
const Statement* nestedCondition(const std::vector<Statement>* statements)
{
    while (statements->size() == 1 && statements->front().kind == Statement::Kind::Block)
        statements = &statements->front().body;
    if (statements->size() != 1)
        return nullptr;
    const Statement& only = statements->front();
    if (only.kind == Statement::Kind::If && only.elseBody.empty())
        return &only;
    return nullptr;
}

} // namespace

BodyRunner::BodyRunner(DryRun& run, int event, int time)
    : m_run(run)
    , m_event(event)
    , m_time(time)
{
}

int BodyRunner::runEvent(const EventProgram& program)
{
    const std::vector<Statement>* statements = &program.body->body;
    for (const int item : program.conditionItems) {
        const Statement* condition = nestedCondition(statements);
        if (!condition)
            break;
        if (!evaluate(condition->value).isTrue())
            return item + 1;
        statements = &condition->body;
    }
    execute(*statements);
    return 0;
}

void BodyRunner::execute(const std::vector<Statement>& statements)
{
    for (const Statement& statement : statements)
        execute(statement);
}

void BodyRunner::execute(const Statement& statement)
{
    switch (statement.kind) {
    case Statement::Kind::Evaluate:
        evaluate(statement.value);
        break;
    case Statement::Kind::Assign: {
        const QString code = codeOf(statement.target);
        m_run.setVariable(code, evaluate(statement.value), m_event);
        break;
    }
    case Statement::Kind::If:
        execute(evaluate(statement.value).isTrue() ? statement.body : statement.elseBody);
        break;
    case Statement::Kind::While:
        while (evaluate(statement.value).isTrue()) {
            if (++m_loopTurns > DryRun::kLoopBound) {
                TranscriptEntry stop;
                stop.time = m_time;
                stop.what = TranscriptEntry::What::Stop;
                stop.text = QStringLiteral("loop");
                stop.event = m_event;
                stop.line = statement.position.line;
                stop.condition = DryRun::kLoopBound;
                m_run.finish(stop);
                throw Halt {};
            }
            execute(statement.body);
        }
        break;
    case Statement::Kind::Block:
        execute(statement.body);
        break;
    case Statement::Kind::Empty:
        break;
    }
}

ScriptValue BodyRunner::evaluate(const Expression& expression)
{
    using Kind = Expression::Kind;
    switch (expression.kind) {
    case Kind::Number:
        return ScriptValue::ofNumber(wrapInteger(expression.text.toLongLong()));
    case Kind::Truth:
        return ScriptValue::ofTruth(expression.text.compare(u"TRUE", Qt::CaseInsensitive) == 0);
    case Kind::Text:
        return ScriptValue::ofText(expression.text);
    case Kind::Name:
    case Kind::Index: {
        const QString code = codeOf(expression);
        const auto found = m_run.m_variables.constFind(code);
        if (found != m_run.m_variables.cend())
            return found->value;
        return expression.kind == Kind::Name ? ScriptValue::ofName(code) : ScriptValue {};
    }
    case Kind::Member:
        // A group's or object's member is the game's knowledge.
        return askGame(codeOf(expression), {}, {});
    case Kind::Call:
        return call(expression);
    case Kind::Unary: {
        const ScriptValue operand
            = expression.operands.empty() ? ScriptValue {} : evaluate(expression.operands.front());
        if (expression.text == QLatin1String("-"))
            return ScriptValue::ofNumber(wrapInteger(-operand.asNumber()));
        return ScriptValue::ofTruth(!operand.isTrue());
    }
    case Kind::Binary:
        return binary(expression);
    }
    return {};
}

ScriptValue BodyRunner::binary(const Expression& expression)
{
    if (expression.operands.size() != 2)
        return {};
    // Both sides are evaluated, as every call into the game is worth seeing.
    const ScriptValue left = evaluate(expression.operands[0]);
    const ScriptValue right = evaluate(expression.operands[1]);
    const QString& op = expression.text;
    if (op == QLatin1String("and") || op == QLatin1String("&&"))
        return ScriptValue::ofTruth(left.isTrue() && right.isTrue());
    if (op == QLatin1String("or") || op == QLatin1String("||"))
        return ScriptValue::ofTruth(left.isTrue() || right.isTrue());
    const qint64 a = left.asNumber();
    const qint64 b = right.asNumber();
    if (op == QLatin1String("+"))
        return ScriptValue::ofNumber(wrapInteger(a + b));
    if (op == QLatin1String("-"))
        return ScriptValue::ofNumber(wrapInteger(a - b));
    if (op == QLatin1String("*"))
        return ScriptValue::ofNumber(wrapInteger(a * b));
    if (op == QLatin1String("/"))
        return ScriptValue::ofNumber(b == 0 ? 0 : wrapInteger(a / b));
    if (op == QLatin1String("%"))
        return ScriptValue::ofNumber(b == 0 ? 0 : wrapInteger(a % b));
    return ScriptValue::ofTruth(compareValues(left, op, right));
}

ScriptValue BodyRunner::call(const Expression& expression)
{
    const script::FunctionInfo* info = m_run.m_model->functions.find(expression.text);
    const Effect effect = info ? info->effect : Effect::Name;
    QList<ScriptValue> values;
    values.reserve(qsizetype(expression.operands.size()));
    for (const Expression& argument : expression.operands)
        values << evaluate(argument);
    const auto role = [&](const char* name) {
        return info ? argumentFor(*info, expression, QLatin1String(name)) : nullptr;
    };
    TranscriptEntry entry;
    entry.time = m_time;
    entry.by = m_event;
    switch (effect) {
    case Effect::Arm: {
        const Expression* event = role("event");
        const Expression* trigger = role("trigger");
        if (event && trigger)
            m_run.arm(
                m_run.m_model->eventByCode.value(codeOf(*event), -1), codeOf(*trigger), m_event);
        return {};
    }
    case Effect::End: {
        const Expression* result = role("result");
        entry.what = TranscriptEntry::What::End;
        entry.text
            = result && evaluate(*result).isTrue() ? QStringLiteral("win") : QStringLiteral("lose");
        m_run.finish(entry);
        throw Halt {};
    }
    case Effect::Message:
    case Effect::Sound: {
        const Expression* item = role(effect == Effect::Message ? "message" : "sound");
        entry.what = effect == Effect::Message ? TranscriptEntry::What::Message
                                               : TranscriptEntry::What::Sound;
        entry.text = item ? itemText(codeOf(*item)) : QString();
        m_run.emitEntry(entry);
        return {};
    }
    case Effect::Time: {
        const Expression* time = role("time");
        if (time)
            m_run.setMissionTime(evaluate(*time).asNumber());
        return {};
    }
    case Effect::Write: {
        const ScriptValue answer = askGame(expression.text, expression.operands, values);
        if (const Expression* variable = role("variable"))
            m_run.setVariable(codeOf(*variable), answer, m_event);
        return answer;
    }
    case Effect::Name:
        break;
    }
    return askGame(expression.text, expression.operands, values);
}

ScriptValue BodyRunner::askGame(
    const QString& name, const std::vector<Expression>& arguments, const QList<ScriptValue>& values)
{
    QStringList written;
    QStringList evaluated;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const ScriptValue& value = values.at(qsizetype(i));
        written << script::expressionText(arguments[i]);
        const bool plain
            = value.kind == ScriptValue::Kind::Number || value.kind == ScriptValue::Kind::Truth;
        evaluated << (plain ? value.scriptText() : codeOf(arguments[i]));
    }
    const QString writtenText = written.join(QStringLiteral(", "));
    const QString evaluatedText = evaluated.join(QStringLiteral(", "));
    const Scenario::Answer* answer
        = findAnswer(m_run.m_scenario, m_time, name, writtenText, evaluatedText);
    TranscriptEntry entry;
    entry.time = m_time;
    entry.by = m_event;
    entry.what = TranscriptEntry::What::Call;
    // Members are asked without parentheses: "Group[0].members".
    entry.text
        = arguments.empty() && name.contains(u'.') ? name : name + u'(' + evaluatedText + u')';
    entry.newValue = answer ? answer->value : ScriptValue {};
    m_run.emitEntry(entry);
    return entry.newValue;
}

QString BodyRunner::codeOf(const Expression& expression)
{
    using Kind = Expression::Kind;
    if (expression.kind == Kind::Name)
        return expression.text;
    if (expression.kind == Kind::Index && expression.operands.size() == 2)
        return codeOf(expression.operands[0]) + u'['
            + QString::number(evaluate(expression.operands[1]).asNumber()) + u']';
    if (expression.kind == Kind::Member && expression.operands.size() == 1)
        return codeOf(expression.operands[0]) + u'.' + expression.text;
    return script::expressionText(expression);
}

QString BodyRunner::itemText(const QString& code) const
{
    const auto named = m_run.m_model->authorNames.constFind(code);
    if (named != m_run.m_model->authorNames.cend())
        return *named;
    const auto variable = m_run.m_variables.constFind(code);
    if (variable != m_run.m_variables.cend() && variable->value.kind == ScriptValue::Kind::Text)
        return variable->value.text;
    return code;
}

} // namespace tarvo::simulate
