#pragma once

#include <QString>

namespace tarvo::simulate {

// A value of the script during a dry run. "Nothing" is what a call into the
// game answers when the scenario gives no answer: it counts as 0, FALSE and
// NULLOBJECT at once, so that "droid != NULLOBJECT" loops end and counts
// compare as zero.
struct ScriptValue
{
    enum class Kind { Nothing, Number, Truth, Text, Name };

    Kind kind = Kind::Nothing;
    qint64 number = 0; // numbers; truth values as 1 or 0
    QString text; // texts without quotes; names as written

    static ScriptValue ofNumber(qint64 value) { return {Kind::Number, value, {}}; }
    static ScriptValue ofTruth(bool value) { return {Kind::Truth, value ? 1 : 0, {}}; }
    static ScriptValue ofText(const QString& value) { return {Kind::Text, 0, value}; }
    static ScriptValue ofName(const QString& value) { return {Kind::Name, 0, value}; }

    bool isTrue() const;
    // The number a value stands for in arithmetic: names and texts count 0.
    qint64 asNumber() const;
    // As the script would write it: 12, TRUE, "text", NULLOBJECT.
    QString scriptText() const;

    friend bool operator==(const ScriptValue& a, const ScriptValue& b);
};

// The script's integers are 32-bit; arithmetic wraps as the game's does.
qint64 wrapInteger(qint64 value);

// The order of two values for "<", "<=", ">" and ">=": negative, 0 or
// positive; numbers and truth values compare as numbers, texts and names as
// text.
int compareOrder(const ScriptValue& left, const ScriptValue& right);

} // namespace tarvo::simulate
