#include "script/script_names.h"

#include "base/checked.h"

namespace tarvo::script {

namespace {

NamedItem::Kind rowKind(int row)
{
    switch (row) {
    case row::Sounds:
        return NamedItem::Kind::Sound;
    case row::Messages:
        return NamedItem::Kind::Message;
    default:
        return NamedItem::Kind::Variable;
    }
}

// "event12" -> 12, "Timer0" -> 0 for the given prefix; -1 otherwise.
int numbered(const QString& code, QLatin1String prefix)
{
    if (!code.startsWith(prefix) || code.size() == prefix.size())
        return -1;
    bool ok = false;
    const int number = QStringView(code).mid(prefix.size()).toInt(&ok);
    return ok && number >= 0 && !code.at(prefix.size()).isSpace() ? number : -1;
}

} // namespace

ScriptNames::ScriptNames(const Project& project)
    : m_eventCount(heldCount(project.eventCount, project.events))
    , m_timerCount(heldCount(project.timerCount, project.timers))
{
    // Rows whose items the script declares (public or private) or names
    // (sounds, messages). Events and timers are named by position below.
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& list = project.tables[size_t(r)];
        if (list.Scope == 0 && r != row::Sounds && r != row::Messages)
            continue;
        const int count = qMin(list.Codes.size(), list.Texts.size());
        for (int i = 0; i < count; ++i) {
            const QString code = QString(list.Codes.at(i)).remove(u' ');
            if (code.isEmpty() || m_items.contains(code))
                continue;
            m_items.insert(code, NamedItem {rowKind(r), i, r, list.Texts.at(i)});
        }
    }
    for (int e = 0; e < m_eventCount; ++e)
        m_items.insert(QStringLiteral("event") + QString::number(e),
            NamedItem {NamedItem::Kind::Event, e, row::Events, project.events.at(e).name});
    for (int t = 0; t < m_timerCount; ++t)
        m_items.insert(QStringLiteral("Timer") + QString::number(t),
            NamedItem {NamedItem::Kind::Timer, t, row::Timers, project.timers.at(t).name});
}

const NamedItem* ScriptNames::find(const QString& code) const
{
    const auto found = m_items.constFind(code);
    return found == m_items.cend() ? nullptr : &*found;
}

QString ScriptNames::authorName(const QString& code) const
{
    const NamedItem* item = find(code);
    return item ? item->name : code;
}

int ScriptNames::eventIndex(const QString& code) const
{
    const int index = numbered(code, QLatin1String("event"));
    return index < m_eventCount ? index : -1;
}

int ScriptNames::timerIndex(const QString& code) const
{
    const int index = numbered(code, QLatin1String("Timer"));
    return index < m_timerCount ? index : -1;
}

QString expressionText(const Expression& expression)
{
    using Kind = Expression::Kind;
    const auto operand = [&](size_t i) {
        return i < expression.operands.size() ? expressionText(expression.operands[i]) : QString();
    };
    switch (expression.kind) {
    case Kind::Number:
    case Kind::Truth:
    case Kind::Name:
        return expression.text;
    case Kind::Text:
        return u'"' + expression.text + u'"';
    case Kind::Index:
        return operand(0) + u'[' + operand(1) + u']';
    case Kind::Member:
        return operand(0) + u'.' + expression.text;
    case Kind::Call: {
        QStringList arguments;
        for (const Expression& argument : expression.operands)
            arguments << expressionText(argument);
        return expression.text + u'(' + arguments.join(QStringLiteral(", ")) + u')';
    }
    case Kind::Unary:
        return expression.text == QLatin1String("not") ? QStringLiteral("not ") + operand(0)
                                                       : u'-' + operand(0);
    case Kind::Binary:
        return operand(0) + u' ' + expression.text + u' ' + operand(1);
    }
    return {};
}

} // namespace tarvo::script
