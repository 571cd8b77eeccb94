#include "compile/script_renderers.h"

#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "compile/argument_markers.h"
#include "compile/script_lookup.h"
#include "compile/text_sink.h"
#include "catalogue/trigger_tables.h"
#include "base/checked.h"
#include "text/basic_text.h"

#include <QVarLengthArray>
#include <algorithm>
#include <cstring>
#include <initializer_list>

namespace tarvo::WriteScript {

namespace {

const QString kComparisonMarker = QStringLiteral("&&r");
const QString kContinuation = QStringLiteral("&&&");
const QString kTabMarker = QStringLiteral("&&$");
const QString kMarkerStart = QStringLiteral("&&");

const EventRecord& eventAt(const Project& project, int event)
{
    return at(project.events, event, "events");
}

const ConditionRecord& conditionAt(const Project& project, int event, int condition)
{
    return at(eventAt(project, event).conditions, condition, "conditions");
}

const ActionRecord& actionAt(const Project& project, int event, int action)
{
    return at(eventAt(project, event).actions, action, "actions");
}

QString resolved(const ScriptLookup* index, const ReferenceListTable& table, const QString& stored,
    ResolveForm form)
{
    if (!index)
        return ResolveReferences(table, stored, form);
    return index->resolve(stored, form);
}

// The head pieces, then the items with `separator` between them, then the
// tail, in one allocation.
template <qsizetype N>
QString listed(std::initializer_list<QStringView> head, const QVarLengthArray<QString, N>& items,
    QStringView separator, QStringView tail)
{
    qsizetype size = tail.size();
    for (const QStringView piece : head)
        size += piece.size();
    for (const QString& item : items)
        size += item.size() + separator.size();
    if (!items.isEmpty())
        size -= separator.size();
    QString text(size, Qt::Uninitialized);
    QChar* out = text.data();
    const auto put = [&out](QStringView piece) {
        std::copy_n(piece.data(), piece.size(), out);
        out += piece.size();
    };
    for (const QStringView piece : head)
        put(piece);
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (i > 0)
            put(separator);
        put(items[i]);
    }
    put(tail);
    return text;
}

// The markers are a few characters and the lines short: a plain scan beats
// the general search, whose set-up costs more than the line.
qsizetype indexOfShort(const QString& text, const QString& find, qsizetype from)
{
    const QChar* data = text.constData();
    const QChar* needle = find.constData();
    const qsizetype last = text.size() - find.size();
    for (qsizetype i = from; i <= last; ++i) {
        if (data[i] == needle[0]
            && std::memcmp(data + i, needle, size_t(find.size()) * sizeof(QChar)) == 0)
            return i;
    }
    return -1;
}

// Replaces every occurrence from left to right, as QString::replace does,
// and only makes the replacement text when there is one. The result is
// counted first and copied into place.
template <typename MakeWith>
void replaceWhereFound(QString& text, const QString& find, MakeWith with)
{
    qsizetype at = indexOfShort(text, find, 0);
    if (at < 0)
        return;
    qsizetype count = 0;
    for (qsizetype i = at; i >= 0; i = indexOfShort(text, find, i + find.size()))
        ++count;
    const QString replacement = with();
    QString result(text.size() + count * (replacement.size() - find.size()), Qt::Uninitialized);
    QChar* out = result.data();
    const QChar* in = text.constData();
    const auto copy = [&out](const QChar* from, qsizetype n) {
        std::copy_n(from, n, out);
        out += n;
    };
    qsizetype from = 0;
    while (at >= 0) {
        copy(in + from, at - from);
        copy(replacement.constData(), replacement.size());
        from = at + find.size();
        at = indexOfShort(text, find, from);
    }
    copy(in + from, text.size() - from);
    text = std::move(result);
}

// Every argument is rendered, even one the line does not use: a faulty
// argument fails the statement all the same. Rendering gives the same texts
// for every line of a block, so they are made once, when the first line
// asks for them (a block without lines renders none).
// Kinds take a few arguments: no heap for them.
using Arguments = QVarLengthArray<QString, 4>;

Arguments renderedArguments(
    const ReferenceListTable& table, const CatalogueEntry& entry, const ScriptLookup* index)
{
    Arguments arguments;
    for (int a = 0; a < entry.ArgCount; ++a)
        arguments.append(renderArgument(table, at(entry.Args, a, "arguments").Value, index));
    return arguments;
}

} // namespace

QString tabs(int count)
{
    return QString(qMax(count, 0), u'\t');
}

QString renderArgument(
    const ReferenceListTable& table, const QString& stored, const ScriptLookup* index)
{
    return resolved(index, table, stored, ResolveForm::B);
}

QString triggerText(const ReferenceListTable& table, qint16 kind,
    const std::array<QString, 3>& argTexts, const ScriptLookup* index)
{
    const TriggerKind& row = triggerKind(kind);
    QVarLengthArray<QString, 3> arguments;
    for (int a = 0; a < row.argCount; ++a) {
        if (a >= int(argTexts.size()))
            throwIndexError("trigger arguments", a, qsizetype(argTexts.size()));
        arguments.append(renderArgument(table, argTexts[a], index));
    }
    // The separator column of the table is not used: always ", ".
    if (arguments.isEmpty())
        return row.keyword;
    return listed({row.keyword, u", "}, arguments, u", ", {});
}

QString eventTriggerText(const Project& project, int event, const ScriptLookup* index)
{
    const EventRecord& record = eventAt(project, event);
    return triggerText(project.tables, record.triggerKind, record.triggerArgTexts, index);
}

QString timerTriggerText(const Project& project, int timer)
{
    const TimerRecord& record = at(project.timers, timer, "timers");
    return triggerText(project.tables, record.triggerKind, record.triggerArgTexts);
}

QString conditionCall(const Project& project, int event, int condition, const ScriptLookup* index)
{
    const ConditionRecord& record = conditionAt(project, event, condition);
    QVarLengthArray<QString, 4> arguments;
    for (int a = 0; a < record.ArgCount; ++a)
        arguments.append(
            renderArgument(project.tables, at(record.Args, a, "arguments").Value, index));
    return listed({record.CallName, u"("}, arguments, u", ", u")");
}

QString conditionValue(const Project& project, int event, int condition, const ScriptLookup* index)
{
    const ConditionRecord& record = conditionAt(project, event, condition);
    const QString first
        = renderArgument(project.tables, at(record.Args, 0, "arguments").Value, index);
    const QString second
        = renderArgument(project.tables, at(record.Args, 1, "arguments").Value, index);
    return joined({first, second});
}

QString conditionCode(const Project& project, int event, int condition, const ScriptLookup* index)
{
    const ConditionRecord& record = conditionAt(project, event, condition);
    QString text;
    Arguments arguments;
    for (int l = 0; l < record.CodeLineCount; ++l) {
        // The comparison value goes in still encoded; the pass through the
        // references below resolves it together with the rest of the block.
        QString line = at(record.CodeLines, l, "code lines");
        replaceWhereFound(line, kComparisonMarker, [&] { return record.comparisonValue; });
        if (l == 0)
            arguments = renderedArguments(project.tables, record, index);
        text += withArguments({}, line, arguments.constData(), arguments.size());
    }
    text = resolved(index, project.tables, text, ResolveForm::A);
    // Both markers below start with "&&": most blocks hold neither.
    if (indexOfShort(text, kMarkerStart, 0) < 0)
        return text;
    // Continuation lines sit one tab left of the condition's "if(" line.
    replaceWhereFound(text, kContinuation, [&] { return text::crlf + tabs(condition); });
    replaceWhereFound(text, kTabMarker, [] { return QStringLiteral("\t"); });
    return text;
}

QString comparisonText(const Project& project, int event, int condition, const ScriptLookup* index)
{
    const ConditionRecord& record = conditionAt(project, event, condition);
    // Every comparison asks for one of a few operators: their texts are made
    // once; an index outside the table still fails where operatorText fails.
    static const std::array<QString, kOperatorCount> kOperators = [] {
        std::array<QString, kOperatorCount> texts;
        for (int i = 0; i < kOperatorCount; ++i)
            texts[size_t(i)] = operatorText(i);
        return texts;
    }();
    const int opIndex = record.operatorIndex;
    const QString op = opIndex >= 0 && opIndex < kOperatorCount ? kOperators[size_t(opIndex)]
                                                                : operatorText(opIndex);
    const QString value = resolved(index, project.tables, record.comparisonValue, ResolveForm::C);
    return joined({u" ", op, u" ", value});
}

QString actionCall(const Project& project, int event, int action)
{
    const ActionRecord& record = actionAt(project, event, action);
    // Only the name and the parenthesis; with arguments the last two
    // characters go and nothing is added. Scripts in use were written
    // against this, so catalogues give their actions code blocks instead.
    QString text = record.CallName + u'(';
    if (record.ArgCount > 0) {
        if (text.size() < 2)
            throw DataError(QStringLiteral("the call name of action %1 is empty").arg(action));
        text.chop(2);
    }
    return text;
}

QString actionCode(const Project& project, int event, int action, const ScriptLookup* index)
{
    const EventRecord& owner = eventAt(project, event);
    const ActionRecord& record = actionAt(project, event, action);
    // Inactive conditions count too: the nesting depth follows positions.
    // Usual depths come from one constant text instead of a new one per action.
    static const QString kManyTabs(64, u'\t');
    const int depth = qMax(owner.conditionCount + 1, 0);
    QString deepIndent;
    const QStringView indent = depth <= kManyTabs.size() ? QStringView(kManyTabs).left(depth)
                                                         : QStringView(deepIndent = tabs(depth));
    QString text;
    Arguments arguments;
    for (int l = 0; l < record.CodeLineCount; ++l) {
        const QString& stored = at(record.CodeLines, l, "code lines");
        if (l == 0)
            arguments = renderedArguments(project.tables, record, index);
        if (l == 0) {
            text = withArguments(indent, stored, arguments.constData(), arguments.size());
        } else {
            const QString line = withArguments({}, stored, arguments.constData(), arguments.size());
            text = joined({text, indent, line});
        }
    }
    // Both markers start with "&&": most blocks hold neither.
    if (indexOfShort(text, kMarkerStart, 0) < 0)
        return text;
    replaceWhereFound(text, kContinuation, [&] { return joined({text::crlf, indent}); });
    replaceWhereFound(text, kTabMarker, [] { return QStringLiteral("\t"); });
    return text;
}

} // namespace tarvo::WriteScript
