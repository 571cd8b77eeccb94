#pragma once

#include "catalogue/project_places.h"

namespace tarvo {

// What Edit > Replace looks for and puts in its place.
struct ReplaceQuery
{
    QString find;
    QString replace;
    bool wholeWord = false; // letters, digits and "_" on neither side
    bool matchCase = false;
};

// One text that holds what is looked for, and what it would become. Texts
// of arguments are shown with references as the names of their items; the
// references themselves are never changed (renaming the item changes them).
struct ReplacePlace
{
    ProjectPlace place;
    QString field; // "name", "comment", "text" (a message) or "argument"
    QString before;
    QString after;
    // Why the project file could not hold the new text; such a place is
    // left as it is.
    QString refusal;
};

// Every place the query finds, in list order: the script comment, each
// event (name, comment, the comments of its conditions and actions, its
// argument texts), each timer (name, comment, trigger arguments), then each
// message's text. Asks nobody.
QList<ReplacePlace> findReplacePlaces(const Project& project, const ReplaceQuery& query);

// Replaces the query in the places `chosen` names (as findReplacePlaces gave
// them), looked at afresh, and keeps the rows of events, timers and messages
// in step with the names. Places the file cannot hold are skipped. Returns
// how many texts changed.
int replaceInPlaces(Project& project, const ReplaceQuery& query, const QList<ProjectPlace>& chosen);

// `text` with the query replaced outside its encoded references.
QString replacedText(const QString& text, const ReplaceQuery& query);

} // namespace tarvo
