#pragma once

#include "script/function_table.h"
#include "script/script_names.h"
#include "script/script_syntax.h"

#include <QStringList>

namespace tarvo::analysis {

// One call that switches an event on or off.
struct Arming
{
    int target = -1; // the event's position; -1 when the name is no event
    QString targetCode; // the name as the script writes it
    QString trigger; // the trigger it is given ("Timer0", "inactive", ...)
    bool disarms() const { return trigger == QLatin1String("inactive"); }
};

// How an event can end the mission.
enum class MissionEnd { Win, Lose, Either };

// What one event's script does, as far as the functions file explains it.
struct EventFacts
{
    QString trigger; // the keyword or timer of its header ("every", "Timer0")
    QStringList triggerArguments; // the rest of the header, as script text
    QList<Arming> arms; // in text order, disarms too
    QStringList writes; // variable codes given a value, first use first
    QStringList reads; // variable codes tested or used
    QStringList messages; // message codes shown
    QStringList sounds; // sound codes played
    QList<MissionEnd> ends;
    // Names used as values that the script does not declare (see KnownNames).
    QStringList unknownNames;
};

class KnownNames;

// Adds what `statements` do to `facts`.
void addStatementFacts(EventFacts& facts, const std::vector<script::Statement>& statements,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known);
// Adds what a condition reads.
void addConditionFacts(EventFacts& facts, const script::Expression& condition,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known);
// Sets the trigger from a header ("every, 40" read as a list).
void setTriggerFacts(
    EventFacts& facts, const std::vector<script::Expression>& trigger, const KnownNames& known);

// All of the above for a read event body.
EventFacts eventFacts(const script::EventBody& body, const script::FunctionTable& functions,
    const script::ScriptNames& names, const KnownNames& known);

} // namespace tarvo::analysis
