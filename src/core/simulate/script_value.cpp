#include "simulate/script_value.h"

namespace tarvo::simulate {

namespace {

bool isTextual(const ScriptValue& value)
{
    return value.kind == ScriptValue::Kind::Text || value.kind == ScriptValue::Kind::Name;
}

bool isNullName(const ScriptValue& value)
{
    return value.kind == ScriptValue::Kind::Name && value.text == QLatin1String("NULLOBJECT");
}

} // namespace

bool ScriptValue::isTrue() const
{
    switch (kind) {
    case Kind::Nothing:
        return false;
    case Kind::Number:
    case Kind::Truth:
        return number != 0;
    case Kind::Text:
        return !text.isEmpty();
    case Kind::Name:
        return !isNullName(*this);
    }
    return false;
}

qint64 ScriptValue::asNumber() const
{
    return kind == Kind::Number || kind == Kind::Truth ? number : 0;
}

QString ScriptValue::scriptText() const
{
    switch (kind) {
    case Kind::Nothing:
        return QStringLiteral("nothing");
    case Kind::Number:
        return QString::number(number);
    case Kind::Truth:
        return number ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    case Kind::Text:
        return u'"' + text + u'"';
    case Kind::Name:
        return text;
    }
    return {};
}

bool operator==(const ScriptValue& a, const ScriptValue& b)
{
    using Kind = ScriptValue::Kind;
    if (a.kind == Kind::Nothing || b.kind == Kind::Nothing) {
        const ScriptValue& other = a.kind == Kind::Nothing ? b : a;
        return other.kind == Kind::Nothing || (!isTextual(other) && other.number == 0)
            || isNullName(other);
    }
    if (a.kind == Kind::Truth || b.kind == Kind::Truth) {
        if (isTextual(a) || isTextual(b))
            return false;
        return a.isTrue() == b.isTrue();
    }
    if (isTextual(a) || isTextual(b))
        return a.kind == b.kind && a.text == b.text;
    return a.number == b.number;
}

qint64 wrapInteger(qint64 value)
{
    return qint64(qint32(quint32(quint64(value))));
}

int compareOrder(const ScriptValue& left, const ScriptValue& right)
{
    if (isTextual(left) && isTextual(right))
        return QString::compare(left.text, right.text);
    return left.asNumber() < right.asNumber() ? -1 : left.asNumber() > right.asNumber();
}

} // namespace tarvo::simulate
