#pragma once

#include "records/project.h"

#include <QList>

namespace tarvo {

class Prompter;

// Where an action argument sits: event, action of the event, argument of the
// action.
struct ArgumentLocation
{
    int event = 0;
    int action = 0;
    int argument = 0;

    friend bool operator==(const ArgumentLocation&, const ArgumentLocation&) = default;
};

// The action arguments that offer `row` (their ListRef) and whose value refers
// to the item with `id`, in event, action and argument order. A value that
// holds no encoded reference refers to nothing.
QList<ArgumentLocation> argumentsReferringTo(const Project& project, int row, qint16 id);

// The line to select after removing the line at `position` from a list that
// now holds `count` lines: the same position while it exists, otherwise the
// last line, -1 for an empty list.
int selectionAfterRemoval(int position, int count);

struct RemovalResult
{
    bool removed = false;
    int selection = -1; // the line to select afterwards when removed
};

// Removes the sound (row 14) or message (row 15) at `position`. When action
// arguments refer to it, the user is asked once, naming the first of them; No
// leaves everything as it was, Yes clears every one of them (no list, empty
// value) before the item goes. No selection (-1) is answered with a beep.
// The list row itself is refilled by the caller when its dialog closes.
RemovalResult RemoveResource(Project& project, Prompter& prompter, int row, int position);

} // namespace tarvo
