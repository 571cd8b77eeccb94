#pragma once

#include "model/project.h"

#include <QString>

namespace tarvo {
class ReferenceIndex;
}

// The pieces of script text the source writer is made of. Each one throws a
// DataError for an index outside its table or list; the writer skips the
// statement that asked for it.
//
// Those that resolve references take an optional ReferenceIndex of the
// project's table: the writer builds one for the whole source, so that long
// rows (events, messages) are indexed once and not once per argument.
namespace tarvo::WriteScript {

// `count` tab characters.
QString tabs(int count);

// One stored argument (of a condition, an action, an event or a timer) as
// script text: references resolved, the five fixed integers as raw codes.
QString renderArgument(
    const ReferenceListTable& table, const QString& stored, const ReferenceIndex* index = nullptr);

// Keyword of the trigger kind followed by ", " + each of its arguments.
QString triggerText(const ReferenceListTable& table, qint16 kind,
    const std::array<QString, 3>& argTexts, const ReferenceIndex* index = nullptr);
QString eventTriggerText(const Project& project, int event, const ReferenceIndex* index = nullptr);
QString timerTriggerText(const Project& project, int timer);

// The condition forms: 0 a call, 1 a value, 2 a code block.
QString conditionCall(
    const Project& project, int event, int condition, const ReferenceIndex* index = nullptr);
QString conditionValue(
    const Project& project, int event, int condition, const ReferenceIndex* index = nullptr);
QString conditionCode(
    const Project& project, int event, int condition, const ReferenceIndex* index = nullptr);

// " " + operator + " " + "(" + resolved comparison value + ")".
QString comparisonText(
    const Project& project, int event, int condition, const ReferenceIndex* index = nullptr);

// The action forms: 0 the half-built call, 2 a code block.
QString actionCall(const Project& project, int event, int action);
QString actionCode(
    const Project& project, int event, int action, const ReferenceIndex* index = nullptr);

} // namespace tarvo::WriteScript
