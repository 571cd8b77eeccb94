#pragma once

#include "records/project.h"

#include <bitset>
#include <optional>

namespace tarvo {

// One contiguous change of a list: the elements from `offset` on that were
// there before (`before`) and what stands there now (`after`). Everything in
// front of the offset and behind the changed part is the same on both sides,
// so a splice holds only what a change touched.
template <typename T> struct Splice
{
    qsizetype offset = 0;
    QList<T> before;
    QList<T> after;

    bool isEmpty() const { return before.isEmpty() && after.isEmpty(); }
};

// The lines of a list view that a change touched: from `offset` on,
// `removed` old lines were replaced by `inserted` new ones.
struct LineChange
{
    qsizetype offset = 0;
    qsizetype removed = 0;
    qsizetype inserted = 0;

    bool any() const { return removed > 0 || inserted > 0; }
};

// A list row of the reference-list table as it changed: its header fields
// (everything but the four per-item arrays) and each per-item array.
struct RowDelta
{
    int row = 0;
    std::optional<ReferenceList> headerBefore; // set when a header field changed
    std::optional<ReferenceList> headerAfter;
    Splice<QString> codes;
    Splice<QString> texts;
    Splice<QString> rawCodes;
    Splice<qint16> ids;
};

// The plain fields of a project that edits change.
struct ProjectScalars
{
    QString scriptComment;
    qint16 eventCount = 0;
    qint16 timerCount = 0;
    qint16 soundCount = 0;
    qint16 messageCount = 0;

    friend bool operator==(const ProjectScalars&, const ProjectScalars&) = default;
};

// What one edit changed, enough to take it back or make it again. The name,
// the file and the view state (selection, comment mode) are not edits and
// stay out of it.
struct ProjectDelta
{
    Splice<EventRecord> events;
    Splice<TimerRecord> timers;
    Splice<QString> timerListLines;
    Splice<SoundRecord> sounds;
    Splice<MessageRecord> messages;
    QList<RowDelta> rows;
    std::optional<ProjectScalars> scalarsBefore;
    std::optional<ProjectScalars> scalarsAfter;

    bool isEmpty() const;
};

// The records of the events array that an edit may change: from `first` up
// to `last` as the array stands before the edit. The records in front stay as
// they are, and so do those behind, moved by as many places as the edit adds
// or takes away. `whole()` is any change at all.
struct EventStretch
{
    qsizetype first = 0;
    qsizetype last = -1;

    static EventStretch whole() { return {}; }
    bool isWhole() const { return last < 0; }
};

// The lines of one event's condition and action lists that a change touched,
// for an event that kept its place in the events array.
struct EventItemLines
{
    qsizetype event = 0;
    LineChange conditions;
    LineChange actions;
};

// What the views need to know about a change.
struct ProjectChange
{
    LineChange eventLines; // lines of the events list (events 0 to count - 1)
    LineChange timerLines; // lines of the timers list
    bool events = false; // any event record, shown or not
    bool timers = false;
    bool sounds = false;
    bool messages = false;
    bool scriptComment = false;
    std::bitset<kReferenceRowCount> rows;
    bool everything = false; // a new or opened project
    bool fromHistory = false; // an undo or a redo
    // The step shows the events list afresh, as reordering and a finished
    // new event do: lines whose tick had left their event's flag follow it.
    bool eventListAfresh = false;
    // Events whose conditions or actions changed in place; where the array
    // grew or shrank, the events from `itemsUnknownFrom` on may have moved.
    QList<EventItemLines> eventItems;
    qsizetype itemsUnknownFrom = -1;

    static ProjectChange all();

    // The lines of event `event`'s condition or action list that the change
    // touched; nothing when a list editor must show that event's list afresh
    // (a new project, or the event may have moved).
    std::optional<LineChange> conditionLines(qsizetype event) const
    {
        return itemLines(event, &EventItemLines::conditions);
    }
    std::optional<LineChange> actionLines(qsizetype event) const
    {
        return itemLines(event, &EventItemLines::actions);
    }

private:
    std::optional<LineChange> itemLines(qsizetype event, LineChange EventItemLines::*list) const;
};

ProjectDelta diffProjects(const Project& before, const Project& after);

// Makes `project` what it was after the edit (`forward`) or before it.
void applyDelta(Project& project, const ProjectDelta& delta, bool forward);

// What applying `delta` (forward or back) meant for the views; `now` is the
// project after it was applied.
ProjectChange changeOf(const ProjectDelta& delta, bool forward, const Project& now);

} // namespace tarvo
