#pragma once

#include "script/function_table.h"
#include "script/script_syntax.h"
#include "simulate/script_value.h"

#include <QHash>
#include <vector>

namespace tarvo::simulate {

// An expression of the script made ready to run: names of declared
// variables resolved to slots, constants read, operators and functions
// looked up once, so that a firing does no text work unless it reports.
struct Node
{
    enum class Op : quint8 {
        Constant, // constant
        Variable, // slot; code
        Index, // an index known only when it runs: code is the array, children[0] the index
        Name, // a name that is no variable (REF_ANY, event3, Timer0): constant
        Member, // the game's knowledge: code ("Group[0].members")
        Call, // code the function; children the arguments
        Not,
        Negate,
        And,
        Or,
        Add,
        Subtract,
        Multiply,
        Divide,
        Remainder,
        Less,
        LessOrEqual,
        Equal,
        NotEqual,
        Greater,
        GreaterOrEqual,
    };

    Op op = Op::Constant;
    int slot = -1;
    QString code;
    ScriptValue constant;
    std::vector<Node> children;
    // Calls: what the functions file says, the arguments as the script writes
    // them (answers for given arguments match these), and a number of the
    // call site the run keys its answers by.
    script::FunctionInfo::Effect effect = script::FunctionInfo::Effect::Name;
    QHash<QString, int> roles;
    QString written;
    int site = -1;

    int role(const char* name) const { return roles.value(QLatin1String(name), -1); }
};

// A statement made ready to run.
struct Step
{
    enum class Kind : quint8 { Evaluate, Assign, If, While, Block, Empty };

    Kind kind = Kind::Empty;
    Node target;
    Node value;
    std::vector<Step> body;
    std::vector<Step> elseBody;
    int line = 0;
};

// The names the compiled script may refer to: each declared variable's slot,
// and the call sites counted as they are compiled.
struct SlotTable
{
    QHash<QString, int> slots; // "flag[2]" -> slot
    QStringList codes; // slot -> "flag[2]"
    int callSites = 0;
    QStringList siteNames; // call site -> function or member name
};

Node compileExpression(
    const script::Expression& expression, const script::FunctionTable& functions, SlotTable& table);
std::vector<Step> compileStatements(const std::vector<script::Statement>& statements,
    const script::FunctionTable& functions, SlotTable& table);

} // namespace tarvo::simulate
