#pragma once

#include <QString>
#include <vector>

namespace tarvo::script {

// Where something sits in the text that was read, counted from 1.
struct TextPosition
{
    int line = 0;
    int column = 0;
};

// An expression of the script language: a leaf (number, truth value, text,
// name) or an operator with its operands.
struct Expression
{
    enum class Kind {
        Number, // text holds the digits
        Truth, // text "TRUE" or "FALSE" (any case)
        Text, // text holds the string without its quotes
        Name, // text holds the name
        Index, // operands: the indexed expression, the index
        Member, // operands: the object; text holds the member name
        Call, // text holds the function name; operands: the arguments
        Unary, // text "not" or "-"; operands: the operand
        Binary, // text the operator; operands: left, right
    };

    Kind kind = Kind::Name;
    QString text;
    std::vector<Expression> operands;
    TextPosition position;
};

// A statement inside an event body.
struct Statement
{
    enum class Kind {
        Evaluate, // value: the expression (usually a call)
        Assign, // target, value
        If, // value: the condition; body; elseBody
        While, // value: the condition; body
        Block, // body
        Empty, // a lone ";"
    };

    Kind kind = Kind::Empty;
    Expression target;
    Expression value;
    std::vector<Statement> body;
    std::vector<Statement> elseBody;
    TextPosition position;
};

// "public INT integ[5];", "trigger Timer0(wait, 25);" or "event event3;".
struct Declaration
{
    enum class Kind { Variable, Trigger, Event };

    Kind kind = Kind::Variable;
    QString scope; // "public" or "private" for variables
    QString type; // the variable type
    QString name;
    int size = -1; // the array size, -1 for a single variable
    std::vector<Expression> trigger; // a trigger's keyword and arguments
    TextPosition position;
};

// An event body: its name, the trigger in its header (the keyword or timer
// name first, then the arguments) and its statements.
struct EventBody
{
    QString name;
    std::vector<Expression> trigger;
    std::vector<Statement> body;
    TextPosition position;
};

// What the reader could not read, with the place and a plain sentence.
struct SyntaxError
{
    SyntaxError(TextPosition where, QString sentence)
        : position(where)
        , message(std::move(sentence))
    {
    }

    TextPosition position;
    QString message;
    QString event; // the event or trigger being read, when inside one
};

// A script file as read: declarations and event bodies in text order, and
// the errors met (reading goes on after each with the next event).
struct ScriptFile
{
    std::vector<Declaration> declarations;
    std::vector<EventBody> events;
    std::vector<SyntaxError> errors;
};

} // namespace tarvo::script
