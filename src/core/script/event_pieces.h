#pragma once

#include "records/project.h"

#include <vector>

namespace tarvo::script {

// One part of an event's script as the compile writes it: the trigger (the
// text between the header's parentheses), a condition (the text between
// "if(" and ")") or an action (its statements).
struct EventPiece
{
    enum class Part { Trigger, Condition, Action };

    Part part = Part::Trigger;
    int item = -1; // the condition or action position
    QString text;
};

// The pieces of event `event` that the script holds (switched-off
// conditions and actions left out), in text order. A piece the writer
// cannot write is left out as the compile leaves it out.
std::vector<EventPiece> eventPieces(const Project& project, int event);

} // namespace tarvo::script
