#include "simulate/body_runner.h"

#include "simulate/dry_run.h"

namespace tarvo::simulate {

namespace {

using Effect = script::FunctionInfo::Effect;
using Op = Node::Op;

// The only step of a block, when it is an "if" without "else": the way the
// compile nests an event's conditions.
const Step* nestedCondition(const std::vector<Step>* steps)
{
    while (steps->size() == 1 && steps->front().kind == Step::Kind::Block)
        steps = &steps->front().body;
    if (steps->size() != 1)
        return nullptr;
    const Step& only = steps->front();
    return only.kind == Step::Kind::If && only.elseBody.empty() ? &only : nullptr;
}

const Node* argumentFor(const Node& call, const char* role)
{
    const int index = call.role(role);
    return index >= 0 && size_t(index) < call.children.size() ? &call.children[size_t(index)]
                                                              : nullptr;
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
    const std::vector<Step>* steps = &program.steps;
    for (const int item : program.conditionItems) {
        const Step* condition = nestedCondition(steps);
        if (!condition)
            break;
        if (!evaluate(condition->value).isTrue())
            return item + 1;
        steps = &condition->body;
    }
    execute(*steps);
    return 0;
}

void BodyRunner::execute(const std::vector<Step>& steps)
{
    for (const Step& step : steps)
        execute(step);
}

void BodyRunner::execute(const Step& step)
{
    switch (step.kind) {
    case Step::Kind::Evaluate:
        evaluate(step.value);
        break;
    case Step::Kind::Assign: {
        const int slot = slotOf(step.target);
        m_run.setVariable(slot, evaluate(step.value), m_event);
        break;
    }
    case Step::Kind::If:
        execute(evaluate(step.value).isTrue() ? step.body : step.elseBody);
        break;
    case Step::Kind::While:
        while (evaluate(step.value).isTrue()) {
            if (++m_loopTurns > DryRun::kLoopBound) {
                TranscriptEntry stop;
                stop.time = m_time;
                stop.what = TranscriptEntry::What::Stop;
                stop.text = QStringLiteral("loop");
                stop.event = m_event;
                stop.line = step.line;
                stop.condition = DryRun::kLoopBound;
                m_run.finish(stop);
                throw Halt {};
            }
            execute(step.body);
        }
        break;
    case Step::Kind::Block:
        execute(step.body);
        break;
    case Step::Kind::Empty:
        break;
    }
}

ScriptValue BodyRunner::evaluate(const Node& node)
{
    switch (node.op) {
    case Op::Constant:
    case Op::Name:
        return node.constant;
    case Op::Variable:
        return m_run.m_variables[size_t(node.slot)].value;
    case Op::Index:
        return m_run.m_variables[size_t(slotOf(node))].value;
    case Op::Member:
        // A group's or object's member is the game's knowledge.
        return askGame(node, {});
    case Op::Call:
        return call(node);
    case Op::Not:
        return ScriptValue::ofTruth(
            node.children.empty() || !evaluate(node.children.front()).isTrue());
    case Op::Negate:
        return ScriptValue::ofNumber(
            wrapInteger(node.children.empty() ? 0 : -evaluate(node.children.front()).asNumber()));
    default:
        return binary(node);
    }
}

ScriptValue BodyRunner::binary(const Node& node)
{
    // Both sides are evaluated, as every call into the game is worth seeing.
    const ScriptValue left = evaluate(node.children[0]);
    const ScriptValue right = evaluate(node.children[1]);
    const qint64 a = left.asNumber();
    const qint64 b = right.asNumber();
    switch (node.op) {
    case Op::And:
        return ScriptValue::ofTruth(left.isTrue() && right.isTrue());
    case Op::Or:
        return ScriptValue::ofTruth(left.isTrue() || right.isTrue());
    case Op::Add:
        return ScriptValue::ofNumber(wrapInteger(a + b));
    case Op::Subtract:
        return ScriptValue::ofNumber(wrapInteger(a - b));
    case Op::Multiply:
        return ScriptValue::ofNumber(wrapInteger(a * b));
    case Op::Divide:
        return ScriptValue::ofNumber(b == 0 ? 0 : wrapInteger(a / b));
    case Op::Remainder:
        return ScriptValue::ofNumber(b == 0 ? 0 : wrapInteger(a % b));
    case Op::Equal:
        return ScriptValue::ofTruth(left == right);
    case Op::NotEqual:
        return ScriptValue::ofTruth(!(left == right));
    case Op::Less:
        return ScriptValue::ofTruth(compareOrder(left, right) < 0);
    case Op::LessOrEqual:
        return ScriptValue::ofTruth(compareOrder(left, right) <= 0);
    case Op::Greater:
        return ScriptValue::ofTruth(compareOrder(left, right) > 0);
    default:
        return ScriptValue::ofTruth(compareOrder(left, right) >= 0);
    }
}

ScriptValue BodyRunner::call(const Node& node)
{
    QList<ScriptValue> values;
    values.reserve(qsizetype(node.children.size()));
    for (const Node& argument : node.children)
        values << evaluate(argument);
    TranscriptEntry entry;
    entry.time = m_time;
    entry.by = m_event;
    switch (node.effect) {
    case Effect::Arm: {
        const Node* event = argumentFor(node, "event");
        const Node* trigger = argumentFor(node, "trigger");
        if (event && trigger)
            m_run.arm(
                m_run.m_model->eventByCode.value(codeOf(*event), -1), codeOf(*trigger), m_event);
        return {};
    }
    case Effect::End: {
        const Node* result = argumentFor(node, "result");
        entry.what = TranscriptEntry::What::End;
        entry.text
            = result && evaluate(*result).isTrue() ? QStringLiteral("win") : QStringLiteral("lose");
        m_run.finish(entry);
        throw Halt {};
    }
    case Effect::Message:
    case Effect::Sound: {
        const Node* item = argumentFor(node, node.effect == Effect::Message ? "message" : "sound");
        entry.what = node.effect == Effect::Message ? TranscriptEntry::What::Message
                                                    : TranscriptEntry::What::Sound;
        if (!m_run.recording())
            return {};
        entry.text = item ? itemText(codeOf(*item)) : QString();
        m_run.emitEntry(std::move(entry));
        return {};
    }
    case Effect::Time: {
        if (const Node* time = argumentFor(node, "time"))
            m_run.setMissionTime(evaluate(*time).asNumber());
        return {};
    }
    case Effect::Write: {
        const ScriptValue answer = askGame(node, values);
        if (const Node* variable = argumentFor(node, "variable"))
            m_run.setVariable(slotOf(*variable), answer, m_event);
        return answer;
    }
    case Effect::Name:
        break;
    }
    return askGame(node, values);
}

ScriptValue BodyRunner::askGame(const Node& node, const QList<ScriptValue>& values)
{
    if (!m_run.recording() && !m_run.needsArguments(node)) {
        const Scenario::Answer* answer = m_run.answerFor(node, {});
        return answer ? answer->value : ScriptValue {};
    }
    QString evaluated;
    for (size_t i = 0; i < node.children.size(); ++i) {
        const ScriptValue& value = values.at(qsizetype(i));
        if (i > 0)
            evaluated += QLatin1String(", ");
        const bool plain
            = value.kind == ScriptValue::Kind::Number || value.kind == ScriptValue::Kind::Truth;
        evaluated += plain                        ? value.scriptText()
            : node.children[i].op == Op::Constant ? node.children[i].constant.scriptText()
                                                  : codeOf(node.children[i]);
    }
    const Scenario::Answer* answer = m_run.answerFor(node, evaluated);
    TranscriptEntry entry;
    entry.time = m_time;
    entry.by = m_event;
    entry.what = TranscriptEntry::What::Call;
    // Members are asked without parentheses: "Group[0].members".
    entry.text = node.op == Op::Member ? node.code : node.code + u'(' + evaluated + u')';
    entry.newValue = answer ? answer->value : ScriptValue {};
    const ScriptValue result = entry.newValue;
    m_run.emitEntry(std::move(entry));
    return result;
}

int BodyRunner::slotOf(const Node& node)
{
    if (node.op == Op::Variable)
        return node.slot;
    return m_run.slotFor(codeOf(node));
}

QString BodyRunner::codeOf(const Node& node)
{
    switch (node.op) {
    case Op::Index:
        return node.code + u'['
            + QString::number(node.children.empty() ? 0 : evaluate(node.children[0]).asNumber())
            + u']';
    case Op::Constant:
        return node.constant.scriptText();
    default:
        return node.code;
    }
}

QString BodyRunner::itemText(const QString& code) const
{
    const auto named = m_run.m_model->authorNames.constFind(code);
    if (named != m_run.m_model->authorNames.cend())
        return *named;
    const VariableState state = m_run.variable(code);
    return state.value.kind == ScriptValue::Kind::Text ? state.value.text : code;
}

} // namespace tarvo::simulate
