#pragma once

#include "records/project.h"
#include "script/script_syntax.h"

#include <QHash>

namespace tarvo::script {

// What a script name stands for in the project.
struct NamedItem
{
    enum class Kind { Event, Timer, Variable, Sound, Message, Other };

    Kind kind = Kind::Other;
    int index = -1; // event or timer position, or the item's position in its row
    int row = -1; // the list row of a variable, sound or message
    QString name; // what the author calls it
};

// Back from the names the compile writes to the author's: "event3" to the
// event's title, "Timer0" to the timer's name, a list item's code (such as
// "flag[2]" or "message[0]") to its text. Built from the project once; a
// snapshot, like the reference index.
class ScriptNames
{
public:
    explicit ScriptNames(const Project& project);

    // The item a code names, or nullptr when the project has none.
    const NamedItem* find(const QString& code) const;
    // The author's name for a code, or the code itself when unknown.
    QString authorName(const QString& code) const;

    // "event3" -> 3; -1 for anything else or past the events.
    int eventIndex(const QString& code) const;
    int timerIndex(const QString& code) const;

private:
    QHash<QString, NamedItem> m_items;
    int m_eventCount = 0;
    int m_timerCount = 0;
};

// An expression as compact script text ("flag[2]", "Group[0].members",
// "setPower(getPower(0) + 5, 0)"): the code a name or an indexed name is
// known by, and a readable form of anything else.
QString expressionText(const Expression& expression);

} // namespace tarvo::script
