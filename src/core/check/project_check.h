#pragma once

#include "catalogue/project_places.h"
#include "catalogue/workspace.h"

namespace tarvo {

// A problem the project check found: how bad, where, and a plain sentence.
struct CheckIssue
{
    // Information points at something odd that may be meant so; it does not
    // count as an issue for the exit code of the command-line check.
    enum class Severity { Error, Warning, Information };

    Severity severity = Severity::Error;
    ProjectPlace place;
    QString sentence;

    friend bool operator==(const CheckIssue&, const CheckIssue&) = default;
};

// The rules of the project check, one function each. Every rule reads the
// project as the compile and the project file read it, asks nobody and adds
// what it finds to `issues`.
namespace checks {

// References that the script will hold as "?" or as unreadable text: a
// deleted variable, flag, group, message, sound, event or timer.
void unresolvedReferences(const Workspace& workspace, QList<CheckIssue>& issues);
// Switched-on actions of switched-on events that refer to a switched-off event.
void referencesToSwitchedOffEvents(const Workspace& workspace, QList<CheckIssue>& issues);
// More than one timer: the saved file will not open again.
void timerCount(const Workspace& workspace, QList<CheckIssue>& issues);
// Two timers or two events with one ID.
void duplicateIds(const Workspace& workspace, QList<CheckIssue>& issues);
// Sounds whose wav file is not there, may not be read, or lies outside the
// project's and the program's folders, found as the compile finds them.
void missingSoundFiles(const Workspace& workspace, QList<CheckIssue>& issues);
// Texts the project file cannot hold; names the compile refuses.
void unsavableTexts(const Workspace& workspace, QList<CheckIssue>& issues);
// Arguments of switched-on conditions and actions that offer a list but were
// left empty or with nothing chosen ("-1"). Free texts may stay empty.
void emptyArguments(const Workspace& workspace, QList<CheckIssue>& issues);

} // namespace checks

// Every rule, in the order above, then those of the script read back (see
// script_checks.h).
QList<CheckIssue> checkProject(const Workspace& workspace);

} // namespace tarvo
