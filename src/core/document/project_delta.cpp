#include "document/project_delta.h"

#include "base/checked.h"

#include <algorithm>

namespace tarvo {

namespace {

// The common start and end of two lists, compared element by element. Qt's
// containers compare shared data by pointer first, so records an edit did
// not touch cost next to nothing.
template <typename T> Splice<T> spliceOf(const QList<T>& before, const QList<T>& after)
{
    Splice<T> splice;
    if (before.isSharedWith(after))
        return splice;
    const qsizetype n = before.size();
    const qsizetype m = after.size();
    qsizetype prefix = 0;
    while (prefix < n && prefix < m && before.at(prefix) == after.at(prefix))
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < n - prefix && suffix < m - prefix
        && before.at(n - 1 - suffix) == after.at(m - 1 - suffix))
        ++suffix;
    splice.offset = prefix;
    splice.before = before.mid(prefix, n - prefix - suffix);
    splice.after = after.mid(prefix, m - prefix - suffix);
    return splice;
}

// Replaces `removed` elements at the splice's offset by `inserted`.
template <typename T>
void replaceRange(QList<T>& list, qsizetype offset, qsizetype removed, const QList<T>& inserted)
{
    const qsizetype common = std::min(removed, inserted.size());
    for (qsizetype i = 0; i < common; ++i)
        list[offset + i] = inserted.at(i);
    if (removed > common)
        list.remove(offset + common, removed - common);
    else if (inserted.size() > common)
        list.insert(offset + common, inserted.size() - common, T {});
    for (qsizetype i = common; i < inserted.size(); ++i)
        list[offset + i] = inserted.at(i);
}

template <typename T> void applySplice(QList<T>& list, const Splice<T>& splice, bool forward)
{
    if (splice.isEmpty())
        return;
    const QList<T>& removed = forward ? splice.before : splice.after;
    const QList<T>& inserted = forward ? splice.after : splice.before;
    replaceRange(list, splice.offset, removed.size(), inserted);
}

ReferenceList headerOf(const ReferenceList& list)
{
    ReferenceList header = list;
    header.Codes.clear();
    header.Texts.clear();
    header.RawCodes.clear();
    header.Ids.clear();
    return header;
}

ProjectScalars scalarsOf(const Project& project)
{
    return {project.scriptComment, project.eventCount, project.timerCount, project.soundCount,
        project.messageCount};
}

void setScalars(Project& project, const ProjectScalars& scalars)
{
    project.scriptComment = scalars.scriptComment;
    project.eventCount = scalars.eventCount;
    project.timerCount = scalars.timerCount;
    project.soundCount = scalars.soundCount;
    project.messageCount = scalars.messageCount;
}

// The lines of a list that shows the first `count` records, after a splice
// of the records. Where the counts moved apart from the records (an event
// registered in its slot, say), every line from the change on is redone.
LineChange linesOf(qsizetype offset, qsizetype removed, qsizetype inserted, bool spliced,
    qsizetype countBefore, qsizetype countAfter)
{
    if (!spliced)
        offset = std::min(countBefore, countAfter);
    LineChange lines;
    lines.offset = std::min({offset, countBefore, countAfter});
    const bool aligned = countAfter - countBefore == inserted - removed
        && offset + removed <= countBefore && offset + inserted <= countAfter;
    if (aligned) {
        lines.removed = offset + removed - lines.offset;
        lines.inserted = offset + inserted - lines.offset;
    } else {
        lines.removed = countBefore - lines.offset;
        lines.inserted = countAfter - lines.offset;
    }
    return lines;
}

} // namespace

bool ProjectDelta::isEmpty() const
{
    return events.isEmpty() && timers.isEmpty() && timerListLines.isEmpty() && sounds.isEmpty()
        && messages.isEmpty() && rows.isEmpty() && !scalarsBefore;
}

ProjectChange ProjectChange::all()
{
    ProjectChange change;
    change.everything = true;
    change.events = change.timers = change.sounds = change.messages = change.scriptComment = true;
    change.rows.set();
    return change;
}

ProjectDelta diffProjects(const Project& before, const Project& after)
{
    ProjectDelta delta;
    delta.events = spliceOf(before.events, after.events);
    delta.timers = spliceOf(before.timers, after.timers);
    delta.timerListLines = spliceOf(before.timerListLines, after.timerListLines);
    delta.sounds = spliceOf(before.sounds, after.sounds);
    delta.messages = spliceOf(before.messages, after.messages);
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& old = before.tables[size_t(r)];
        const ReferenceList& now = after.tables[size_t(r)];
        RowDelta row;
        row.row = r;
        row.codes = spliceOf(old.Codes, now.Codes);
        row.texts = spliceOf(old.Texts, now.Texts);
        row.rawCodes = spliceOf(old.RawCodes, now.RawCodes);
        row.ids = spliceOf(old.Ids, now.Ids);
        const ReferenceList oldHeader = headerOf(old);
        const ReferenceList newHeader = headerOf(now);
        if (!(oldHeader == newHeader)) {
            row.headerBefore = oldHeader;
            row.headerAfter = newHeader;
        }
        if (row.headerBefore || !row.codes.isEmpty() || !row.texts.isEmpty()
            || !row.rawCodes.isEmpty() || !row.ids.isEmpty())
            delta.rows.append(row);
    }
    const ProjectScalars old = scalarsOf(before);
    const ProjectScalars now = scalarsOf(after);
    if (!(old == now)) {
        delta.scalarsBefore = old;
        delta.scalarsAfter = now;
    }
    return delta;
}

void applyDelta(Project& project, const ProjectDelta& delta, bool forward)
{
    applySplice(project.events, delta.events, forward);
    applySplice(project.timers, delta.timers, forward);
    applySplice(project.timerListLines, delta.timerListLines, forward);
    applySplice(project.sounds, delta.sounds, forward);
    applySplice(project.messages, delta.messages, forward);
    for (const RowDelta& row : delta.rows) {
        ReferenceList& list = project.tables[size_t(row.row)];
        if (row.headerBefore) {
            ReferenceList header = forward ? *row.headerAfter : *row.headerBefore;
            header.Codes = std::move(list.Codes);
            header.Texts = std::move(list.Texts);
            header.RawCodes = std::move(list.RawCodes);
            header.Ids = std::move(list.Ids);
            list = std::move(header);
        }
        applySplice(list.Codes, row.codes, forward);
        applySplice(list.Texts, row.texts, forward);
        applySplice(list.RawCodes, row.rawCodes, forward);
        applySplice(list.Ids, row.ids, forward);
    }
    if (delta.scalarsBefore)
        setScalars(project, forward ? *delta.scalarsAfter : *delta.scalarsBefore);
}

namespace {

// The lines of a list view over the held part of `before` and `after` that
// differ: one splice, as for the events list.
template <typename T>
LineChange itemLinesOf(
    const QList<T>& before, qsizetype beforeCount, const QList<T>& after, qsizetype afterCount)
{
    const Splice<T> splice = spliceOf(
        before.mid(0, heldCount(beforeCount, before)), after.mid(0, heldCount(afterCount, after)));
    return {splice.offset, splice.before.size(), splice.after.size()};
}

void noteEventItems(ProjectChange& change, const Splice<EventRecord>& events, bool forward)
{
    const QList<EventRecord>& old = forward ? events.before : events.after;
    const QList<EventRecord>& now = forward ? events.after : events.before;
    const qsizetype paired = std::min(old.size(), now.size());
    for (qsizetype i = 0; i < paired; ++i) {
        const EventRecord& a = old.at(i);
        const EventRecord& b = now.at(i);
        EventItemLines lines {events.offset + i,
            itemLinesOf(a.conditions, a.conditionCount, b.conditions, b.conditionCount),
            itemLinesOf(a.actions, a.actionCount, b.actions, b.actionCount)};
        if (lines.conditions.any() || lines.actions.any())
            change.eventItems.append(lines);
    }
    if (old.size() != now.size())
        change.itemsUnknownFrom = events.offset + paired;
}

} // namespace

std::optional<LineChange> ProjectChange::itemLines(
    qsizetype event, LineChange EventItemLines::*list) const
{
    if (everything || (itemsUnknownFrom >= 0 && event >= itemsUnknownFrom))
        return std::nullopt;
    for (const EventItemLines& lines : eventItems) {
        if (lines.event == event)
            return lines.*list;
    }
    return LineChange {};
}

ProjectChange changeOf(const ProjectDelta& delta, bool forward, const Project& now)
{
    ProjectChange change;
    const ProjectScalars after = scalarsOf(now);
    const ProjectScalars before
        = delta.scalarsBefore ? (forward ? *delta.scalarsBefore : *delta.scalarsAfter) : after;
    const auto sizes = [forward](const auto& splice) {
        const qsizetype removed = forward ? splice.before.size() : splice.after.size();
        const qsizetype inserted = forward ? splice.after.size() : splice.before.size();
        return std::pair {removed, inserted};
    };
    const auto [eventsRemoved, eventsInserted] = sizes(delta.events);
    change.eventLines = linesOf(delta.events.offset, eventsRemoved, eventsInserted,
        !delta.events.isEmpty(), before.eventCount, after.eventCount);
    const auto [linesRemoved, linesInserted] = sizes(delta.timerListLines);
    change.timerLines = {delta.timerListLines.offset, linesRemoved, linesInserted};
    change.events = !delta.events.isEmpty() || before.eventCount != after.eventCount;
    change.timers = !delta.timers.isEmpty() || before.timerCount != after.timerCount;
    change.sounds = !delta.sounds.isEmpty() || before.soundCount != after.soundCount;
    change.messages = !delta.messages.isEmpty() || before.messageCount != after.messageCount;
    change.scriptComment = before.scriptComment != after.scriptComment;
    for (const RowDelta& row : delta.rows)
        change.rows.set(size_t(row.row));
    noteEventItems(change, delta.events, forward);
    return change;
}

} // namespace tarvo
