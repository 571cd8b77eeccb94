#pragma once

#include "catalogue/project_places.h"

#include <QByteArray>

namespace tarvo {

// One change between two versions of a project, in the author's words.
struct RecordChange
{
    // The record as the older version names it: "event 'Start' (ID 0)",
    // "event 'Start' (ID 0), action 2 'Show message'", "sound 'alarm.wav' (ID 0)".
    QString record;
    // What happened: "added", "removed", "moved", "renamed", "switched on",
    // "switched off", or the name of a changed field ("trigger", "kind",
    // "argument", "operator", "value", "negation", "comment", "text", ...).
    QString change;
    // The rest of the sentence: "to 'Begin'", "'Message' from 'a' to 'b'".
    QString detail;
    // Where the record is in the newer version; for a removed record, the
    // record that held it, or the project.
    ProjectPlace place;

    // "event 'Start' (ID 0): renamed to 'Begin'".
    QString line() const;
};

// The changes from `older` to `newer`. Events and timers are matched by ID,
// variables by row and ID, messages and sounds by ID; conditions and actions
// by their order inside the event. Nothing when the projects are equal.
QList<RecordChange> compareProjects(const Project& older, const Project& newer);

// The changes as a JSON array of objects with "record", "change", "detail"
// and "line".
QByteArray changesJson(const QList<RecordChange>& changes);

} // namespace tarvo
