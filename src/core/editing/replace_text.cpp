#include "editing/replace_text.h"

#include "catalogue/project_lists.h"
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "document/project_file.h"
#include "ui/quiet_prompter.h"

#include <type_traits>

namespace tarvo {

namespace {

enum class Field { Name, Comment, Text, Argument };

const QString& fieldWord(Field field)
{
    static const QString words[] = {QStringLiteral("name"), QStringLiteral("comment"),
        QStringLiteral("text"), QStringLiteral("argument")};
    return words[int(field)];
}

// Visits every text Replace may change, in list order, as a reference into
// `project` (const or not).
template <typename P, typename Visit> void visitTexts(P& project, Visit&& visit)
{
    using Owner = ProjectPlace::Owner;
    using Part = ProjectPlace::Part;
    visit(ProjectPlace {Owner::Project, -1, -1, Part::Comment}, Field::Comment,
        project.scriptComment);
    const auto trigger = [&](Owner owner, int index, auto& record) {
        for (int k = 0; k < qBound(0, int(record.triggerArgCount), 2); ++k)
            visit(ProjectPlace {owner, index, -1, Part::Trigger, -1, k}, Field::Argument,
                record.triggerArgTexts[size_t(k)]);
    };
    const auto arguments = [&](int e, Part part, int item, auto& entry) {
        for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k)
            visit(ProjectPlace {Owner::Event, e, -1, part, item, k}, Field::Argument,
                entry.Args[k].Value);
    };
    for (int e = 0; e < heldCount(project.eventCount, project.events); ++e) {
        auto& event = project.events[e];
        visit(ProjectPlace {Owner::Event, e, -1, Part::Name}, Field::Name, event.name);
        visit(ProjectPlace {Owner::Event, e, -1, Part::Comment}, Field::Comment, event.comment);
        for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c)
            visit(ProjectPlace {Owner::Event, e, -1, Part::Condition, c}, Field::Comment,
                event.conditions[c].comment);
        for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a)
            visit(ProjectPlace {Owner::Event, e, -1, Part::Action, a}, Field::Comment,
                event.actions[a].comment);
        trigger(Owner::Event, e, event);
        for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c) {
            auto& condition = event.conditions[c];
            arguments(e, Part::Condition, c, condition);
            visit(ProjectPlace {Owner::Event, e, -1, Part::ComparedValue, c}, Field::Argument,
                condition.comparisonValue);
        }
        for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a)
            arguments(e, Part::Action, a, event.actions[a]);
    }
    for (int t = 0; t < heldCount(project.timerCount, project.timers); ++t) {
        auto& timer = project.timers[t];
        visit(ProjectPlace {Owner::Timer, t, -1, Part::Name}, Field::Name, timer.name);
        visit(ProjectPlace {Owner::Timer, t, -1, Part::Comment}, Field::Comment, timer.comment);
        trigger(Owner::Timer, t, timer);
    }
    for (int m = 0; m < heldCount(project.messageCount, project.messages); ++m)
        visit(ProjectPlace {Owner::Message, m}, Field::Text, project.messages[m].text);
}

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

// Replaces within text[from, to), which holds no reference.
void replacePiece(
    const QString& text, qsizetype from, qsizetype to, const ReplaceQuery& query, QString& out)
{
    const Qt::CaseSensitivity cs = query.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const qsizetype n = query.find.size();
    qsizetype copied = from;
    qsizetype at = text.indexOf(query.find, from, cs);
    while (at >= 0 && at + n <= to) {
        const bool whole = !query.wholeWord
            || ((at == 0 || !isWordCharacter(text.at(at - 1)))
                && (at + n == text.size() || !isWordCharacter(text.at(at + n))));
        if (whole) {
            out += QStringView(text).mid(copied, at - copied);
            out += query.replace;
            copied = at + n;
            at = text.indexOf(query.find, at + n, cs);
        } else {
            at = text.indexOf(query.find, at + 1, cs);
        }
    }
    out += QStringView(text).mid(copied, to - copied);
}

// Why the new text cannot stand in the field, or "".
QString refusalOf(Field field, const QString& after)
{
    if ((field == Field::Name || field == Field::Text) && after.isEmpty())
        return QStringLiteral("The new %1 would be empty.").arg(fieldWord(field));
    const QString reason = unsavableReason(after, field == Field::Comment);
    return reason.isEmpty() ? QString() : QStringLiteral("The new text ") + reason + u'.';
}

} // namespace

QString replacedText(const QString& text, const ReplaceQuery& query)
{
    if (query.find.isEmpty())
        return text;
    QString out;
    qsizetype copied = 0;
    qsizetype from = text.indexOf(QLatin1String("&&"));
    while (from >= 0) {
        int row = 0;
        int id = 0;
        qsizetype end = 0;
        if (readReference(text, from, row, id, end)) {
            replacePiece(text, copied, from, query, out);
            out += QStringView(text).mid(from, end - from);
            copied = end;
            from = text.indexOf(QLatin1String("&&"), end);
        } else {
            from = text.indexOf(QLatin1String("&&"), from + 1);
        }
    }
    replacePiece(text, copied, text.size(), query, out);
    return out;
}

QList<ReplacePlace> findReplacePlaces(const Project& project, const ReplaceQuery& query)
{
    QList<ReplacePlace> places;
    if (query.find.isEmpty())
        return places;
    QuietPrompter quiet;
    const ReferenceIndex references(project.tables);
    const auto shown = [&](const QString& text) {
        return text.contains(QLatin1String("&&")) ? references.decode(text, quiet) : text;
    };
    visitTexts(project, [&](const ProjectPlace& place, Field field, const QString& value) {
        const QString after = replacedText(value, query);
        if (after == value)
            return;
        if (field == Field::Argument)
            places.append(
                {place, fieldWord(field), shown(value), shown(after), refusalOf(field, after)});
        else
            places.append({place, fieldWord(field), value, after, refusalOf(field, after)});
    });
    return places;
}

int replaceInPlaces(Project& project, const ReplaceQuery& query, const QList<ProjectPlace>& chosen)
{
    if (query.find.isEmpty() || chosen.isEmpty())
        return 0;
    int changed = 0;
    bool names = false;
    bool messages = false;
    visitTexts(project, [&](const ProjectPlace& place, Field field, QString& value) {
        if (!chosen.contains(place))
            return;
        const QString after = replacedText(value, query);
        if (after == value || !refusalOf(field, after).isEmpty())
            return;
        value = after;
        ++changed;
        // The timers list line follows a renamed timer as the rename rule
        // leaves it.
        if (field == Field::Name && place.owner == ProjectPlace::Owner::Timer
            && place.index < project.timerListLines.size())
            project.timerListLines[place.index] = value;
        names = names || field == Field::Name;
        messages = messages || field == Field::Text;
    });
    if (names) {
        refreshEventRow(project);
        refreshTimerRow(project);
    }
    if (messages)
        refreshMessageRow(project);
    return changed;
}

} // namespace tarvo
