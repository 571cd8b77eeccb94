#include "analysis/event_facts.h"

#include "analysis/known_names.h"

namespace tarvo::analysis {

using script::Expression;
using script::FunctionInfo;
using script::Statement;

namespace {

void addOnce(QStringList& list, const QString& code)
{
    if (!list.contains(code))
        list.append(code);
}

class FactFinder
{
public:
    FactFinder(EventFacts& facts, const script::FunctionTable& functions,
        const script::ScriptNames& names, const KnownNames& known)
        : m_facts(facts)
        , m_functions(functions)
        , m_names(names)
        , m_known(known)
    {
    }

    void statements(const std::vector<Statement>& list)
    {
        for (const Statement& statement : list)
            this->statement(statement);
    }

    void statement(const Statement& statement)
    {
        switch (statement.kind) {
        case Statement::Kind::Assign: {
            const QString target = variableCode(statement.target);
            addOnce(m_facts.writes, target);
            // The index of "flag[i] = ..." is read; "x = x + 1" does not use x.
            if (statement.target.kind == Expression::Kind::Index)
                value(statement.target.operands.at(1));
            value(statement.value, target);
            break;
        }
        case Statement::Kind::Evaluate:
        case Statement::Kind::If:
        case Statement::Kind::While:
            value(statement.value);
            break;
        case Statement::Kind::Block:
        case Statement::Kind::Empty:
            break;
        }
        statements(statement.body);
        statements(statement.elseBody);
    }

    // Reads in `expression`; a read of `assigned` (the variable being given
    // the value) does not count.
    void value(const Expression& expression, const QString& assigned = {})
    {
        switch (expression.kind) {
        case Expression::Kind::Name:
            if (!m_known.knows(expression.text) && !m_names.find(expression.text))
                addOnce(m_facts.unknownNames, expression.text);
            read(expression.text, assigned);
            return;
        case Expression::Kind::Index: {
            const Expression& base = expression.operands.at(0);
            if (base.kind == Expression::Kind::Name) {
                if (!m_known.knows(base.text))
                    addOnce(m_facts.unknownNames, base.text);
                read(expressionText(expression), assigned);
            } else {
                value(base, assigned);
            }
            value(expression.operands.at(1), assigned);
            return;
        }
        case Expression::Kind::Call:
            call(expression, assigned);
            return;
        default:
            for (const Expression& operand : expression.operands)
                value(operand, assigned);
        }
    }

private:
    QString variableCode(const Expression& target) const
    {
        // "Group[0].members = 3" changes Group[0].
        if (target.kind == Expression::Kind::Member)
            return variableCode(target.operands.at(0));
        return expressionText(target);
    }

    void read(const QString& code, const QString& assigned)
    {
        if (code != assigned)
            addOnce(m_facts.reads, code);
    }

    static QString argumentCode(const Expression& call, int position)
    {
        return position >= 0 && size_t(position) < call.operands.size()
            ? expressionText(call.operands[size_t(position)])
            : QString();
    }

    void call(const Expression& expression, const QString& assigned)
    {
        const FunctionInfo* info = m_functions.find(expression.text);
        // Parts whose meaning the functions file gives are not reads.
        QList<int> understood;
        if (info) {
            switch (info->effect) {
            case FunctionInfo::Effect::Arm: {
                Arming arming;
                arming.targetCode
                    = argumentCode(expression, info->argument(QStringLiteral("event")));
                arming.target = m_names.eventIndex(arming.targetCode);
                arming.trigger
                    = argumentCode(expression, info->argument(QStringLiteral("trigger")));
                m_facts.arms.append(arming);
                understood << info->argument(QStringLiteral("event"))
                           << info->argument(QStringLiteral("trigger"));
                break;
            }
            case FunctionInfo::Effect::End: {
                const QString result
                    = argumentCode(expression, info->argument(QStringLiteral("result"))).toUpper();
                m_facts.ends.append(result == QLatin1String("TRUE") ? MissionEnd::Win
                        : result == QLatin1String("FALSE")          ? MissionEnd::Lose
                                                                    : MissionEnd::Either);
                break;
            }
            case FunctionInfo::Effect::Message:
                addOnce(m_facts.messages,
                    argumentCode(expression, info->argument(QStringLiteral("message"))));
                break;
            case FunctionInfo::Effect::Sound:
                addOnce(m_facts.sounds,
                    argumentCode(expression, info->argument(QStringLiteral("sound"))));
                break;
            case FunctionInfo::Effect::Write: {
                const int position = info->argument(QStringLiteral("variable"));
                const QString code = argumentCode(expression, position);
                if (!code.isEmpty())
                    addOnce(m_facts.writes, code);
                understood << position;
                break;
            }
            case FunctionInfo::Effect::Time:
            case FunctionInfo::Effect::Name:
                break;
            }
        }
        for (size_t a = 0; a < expression.operands.size(); ++a) {
            const Expression& argument = expression.operands[a];
            // The trigger "inactive" or a timer's name is not a variable.
            if (understood.contains(int(a)) && argument.kind == Expression::Kind::Name) {
                if (!m_known.knows(argument.text) && !m_names.find(argument.text))
                    addOnce(m_facts.unknownNames, argument.text);
                continue;
            }
            value(argument, assigned);
        }
    }

    EventFacts& m_facts;
    const script::FunctionTable& m_functions;
    const script::ScriptNames& m_names;
    const KnownNames& m_known;
};

} // namespace

void addStatementFacts(EventFacts& facts, const std::vector<Statement>& statements,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known)
{
    FactFinder(facts, functions, names, known).statements(statements);
}

void addConditionFacts(EventFacts& facts, const Expression& condition,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known)
{
    FactFinder(facts, functions, names, known).value(condition);
}

void setTriggerFacts(
    EventFacts& facts, const std::vector<Expression>& trigger, const KnownNames& known)
{
    facts.trigger.clear();
    facts.triggerArguments.clear();
    for (size_t i = 0; i < trigger.size(); ++i) {
        const QString text = expressionText(trigger[i]);
        if (i == 0)
            facts.trigger = text;
        else
            facts.triggerArguments << text;
    }
    if (!trigger.empty() && trigger[0].kind == Expression::Kind::Name
        && !known.knows(facts.trigger))
        addOnce(facts.unknownNames, facts.trigger);
}

EventFacts eventFacts(const script::EventBody& body, const script::FunctionTable& functions,
    const script::ScriptNames& names, const KnownNames& known)
{
    EventFacts facts;
    setTriggerFacts(facts, body.trigger, known);
    addStatementFacts(facts, body.body, functions, names, known);
    return facts;
}

} // namespace tarvo::analysis
