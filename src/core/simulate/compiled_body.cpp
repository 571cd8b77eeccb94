#include "simulate/compiled_body.h"

#include "script/script_names.h"

namespace tarvo::simulate {

namespace {

using Expression = script::Expression;

Node::Op binaryOp(const QString& op)
{
    static const QHash<QString, Node::Op> ops = {
        {QStringLiteral("and"), Node::Op::And},
        {QStringLiteral("&&"), Node::Op::And},
        {QStringLiteral("or"), Node::Op::Or},
        {QStringLiteral("||"), Node::Op::Or},
        {QStringLiteral("+"), Node::Op::Add},
        {QStringLiteral("-"), Node::Op::Subtract},
        {QStringLiteral("*"), Node::Op::Multiply},
        {QStringLiteral("/"), Node::Op::Divide},
        {QStringLiteral("%"), Node::Op::Remainder},
        {QStringLiteral("<"), Node::Op::Less},
        {QStringLiteral("<="), Node::Op::LessOrEqual},
        {QStringLiteral("=="), Node::Op::Equal},
        {QStringLiteral("!="), Node::Op::NotEqual},
        {QStringLiteral(">"), Node::Op::Greater},
        {QStringLiteral(">="), Node::Op::GreaterOrEqual},
    };
    return ops.value(op, Node::Op::Equal);
}

// The code of a name or of an index with a constant index ("flag[2]"); empty
// when the index is computed.
QString staticCode(const Expression& expression)
{
    if (expression.kind == Expression::Kind::Name)
        return expression.text;
    if (expression.kind == Expression::Kind::Index && expression.operands.size() == 2
        && expression.operands[1].kind == Expression::Kind::Number) {
        const QString base = staticCode(expression.operands[0]);
        bool ok = false;
        const qlonglong index = expression.operands[1].text.toLongLong(&ok);
        return base.isEmpty() || !ok ? QString() : base + u'[' + QString::number(index) + u']';
    }
    return {};
}

int slotOf(const QString& code, SlotTable& table)
{
    const auto found = table.slots.constFind(code);
    if (found != table.slots.cend())
        return *found;
    const int slot = int(table.codes.size());
    table.slots.insert(code, slot);
    table.codes << code;
    return slot;
}

int newSite(const QString& name, SlotTable& table)
{
    table.siteNames << name;
    return table.callSites++;
}

} // namespace

Node compileExpression(
    const Expression& expression, const script::FunctionTable& functions, SlotTable& table)
{
    using Kind = Expression::Kind;
    Node node;
    switch (expression.kind) {
    case Kind::Number:
        node.constant = ScriptValue::ofNumber(wrapInteger(expression.text.toLongLong()));
        return node;
    case Kind::Truth:
        node.constant
            = ScriptValue::ofTruth(expression.text.compare(u"TRUE", Qt::CaseInsensitive) == 0);
        return node;
    case Kind::Text:
        node.constant = ScriptValue::ofText(expression.text);
        return node;
    case Kind::Name:
    case Kind::Index: {
        const QString code = staticCode(expression);
        if (!code.isEmpty()) {
            node.code = code;
            const auto found = table.slots.constFind(code);
            if (found != table.slots.cend() || expression.kind == Kind::Index) {
                // An item past a declared array's end is held all the same.
                node.op = Node::Op::Variable;
                node.slot = slotOf(code, table);
            } else {
                node.op = Node::Op::Name;
                node.constant = ScriptValue::ofName(code);
            }
            return node;
        }
        node.op = Node::Op::Index;
        node.code = expression.operands.empty() ? QString()
                                                : script::expressionText(expression.operands[0]);
        if (expression.operands.size() == 2)
            node.children.push_back(compileExpression(expression.operands[1], functions, table));
        return node;
    }
    case Kind::Member:
        node.op = Node::Op::Member;
        node.code = script::expressionText(expression);
        node.site = newSite(node.code, table);
        return node;
    case Kind::Call: {
        node.op = Node::Op::Call;
        node.code = expression.text;
        if (const script::FunctionInfo* info = functions.find(expression.text)) {
            node.effect = info->effect;
            node.roles = info->roles;
        }
        QStringList written;
        for (const Expression& argument : expression.operands) {
            node.children.push_back(compileExpression(argument, functions, table));
            written << script::expressionText(argument);
        }
        node.written = written.join(QStringLiteral(", "));
        node.site = newSite(node.code, table);
        return node;
    }
    case Kind::Unary:
        node.op = expression.text == QLatin1String("-") ? Node::Op::Negate : Node::Op::Not;
        if (!expression.operands.empty())
            node.children.push_back(compileExpression(expression.operands[0], functions, table));
        return node;
    case Kind::Binary:
        node.op = binaryOp(expression.text);
        for (const Expression& operand : expression.operands)
            node.children.push_back(compileExpression(operand, functions, table));
        if (node.children.size() != 2) {
            node.op = Node::Op::Constant;
            node.children.clear();
        }
        return node;
    }
    return node;
}

std::vector<Step> compileStatements(const std::vector<script::Statement>& statements,
    const script::FunctionTable& functions, SlotTable& table)
{
    using Kind = script::Statement::Kind;
    std::vector<Step> steps;
    steps.reserve(statements.size());
    for (const script::Statement& statement : statements) {
        Step step;
        step.line = statement.position.line;
        switch (statement.kind) {
        case Kind::Evaluate:
            step.kind = Step::Kind::Evaluate;
            break;
        case Kind::Assign:
            step.kind = Step::Kind::Assign;
            step.target = compileExpression(statement.target, functions, table);
            if (step.target.op == Node::Op::Name) { // an undeclared name becomes a variable
                step.target.op = Node::Op::Variable;
                step.target.slot = slotOf(step.target.code, table);
            }
            break;
        case Kind::If:
            step.kind = Step::Kind::If;
            break;
        case Kind::While:
            step.kind = Step::Kind::While;
            break;
        case Kind::Block:
            step.kind = Step::Kind::Block;
            break;
        case Kind::Empty:
            step.kind = Step::Kind::Empty;
            break;
        }
        if (statement.kind != Kind::Block && statement.kind != Kind::Empty)
            step.value = compileExpression(statement.value, functions, table);
        step.body = compileStatements(statement.body, functions, table);
        step.elseBody = compileStatements(statement.elseBody, functions, table);
        steps.push_back(std::move(step));
    }
    return steps;
}

} // namespace tarvo::simulate
