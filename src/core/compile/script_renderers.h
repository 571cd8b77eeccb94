#pragma once

#include "records/project.h"

#include <QString>

namespace tarvo {
struct ScriptLookup;
}

// The pieces of script text the source writer is made of. Each one throws a
// DataError for an index outside its table or list; the writer skips the
// statement that asked for it.
//
// Those that resolve references take an optional ScriptLookup of the
// project's table: the writer builds one for the whole source, so that long
// rows (events, messages) are indexed once and not once per argument, and an
// argument used again is not resolved again.
namespace tarvo::WriteScript {

// `count` tab characters.
QString tabs(int count);

// One stored argument (of a condition, an action, an event or a timer) as
// script text: references resolved, the five fixed integers as raw codes.
QString renderArgument(
    const ReferenceListTable& table, const QString& stored, const ScriptLookup* index = nullptr);

// Keyword of the trigger kind followed by ", " + each of its arguments.
QString triggerText(const ReferenceListTable& table, qint16 kind,
    const std::array<QString, 3>& argTexts, const ScriptLookup* index = nullptr);
QString eventTriggerText(const Project& project, int event, const ScriptLookup* index = nullptr);
QString timerTriggerText(const Project& project, int timer);

// The condition forms: 0 a call, 1 a value, 2 a code block.
QString conditionCall(
    const Project& project, int event, int condition, const ScriptLookup* index = nullptr);
QString conditionValue(
    const Project& project, int event, int condition, const ScriptLookup* index = nullptr);
QString conditionCode(
    const Project& project, int event, int condition, const ScriptLookup* index = nullptr);

// " " + operator + " " + "(" + resolved comparison value + ")".
QString comparisonText(
    const Project& project, int event, int condition, const ScriptLookup* index = nullptr);

// The action forms: 0 the half-built call, 2 a code block.
QString actionCall(const Project& project, int event, int action);
QString actionCode(
    const Project& project, int event, int action, const ScriptLookup* index = nullptr);

} // namespace tarvo::WriteScript
