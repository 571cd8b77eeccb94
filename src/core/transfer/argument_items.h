#pragma once

#include "catalogue/project_places.h"
#include "catalogue/workspace.h"

#include <optional>

namespace tarvo {
class ProjectDocument;
}

namespace tarvo {

// "New…" in an argument box: the item the argument needs, made where it is
// needed by the rules of the dialog or page that makes such items.

// Whether items of list row `row` can be made from an argument box:
// messages, sounds, events, timers, groups and numbers. The catalogue fills
// the other lists (flags, players, structures...), which cannot grow.
bool canMakeItemFor(int row);

// What making an item of `row` would do, for the box's entry; empty when
// none can be made.
QString makeItemCaption(int row);

struct MadeItem
{
    int position = -1; // in the list row; -1: nothing was made
    QString text; // the row's text of the item, what the box shows
};

// Makes one item of `row`, asking what its dialog asks: a message's text, a
// sound's file, a group's or number's name, a timer's or event's title. An
// event is made with the "Inactive" trigger and no actions; `eventSlotBusy`
// (the event wizard is making a new event, which lives behind the events)
// puts it in front of that one. Messages, sounds, groups and numbers are made
// by their dialogs' own commands, rows and all; one step with the caller's
// edit when it runs inside one.
MadeItem makeArgumentItem(ProjectDocument& document, int row, bool eventSlotBusy);

// "Go to" on an argument: the item of list row `row` whose text the argument
// box shows (`text`, exactly as the list offers it): the event or timer, the
// sound or message (its position), or the flag, group or number (its row and
// position). None for a text no item of the row has, or a row of the
// catalogue's other lists.
std::optional<ProjectPlace> argumentTarget(const Project& project, int row, const QString& text);

// "Go to" in the script preview: the item whose script name (its code in
// its list row, e.g. "event3", "Timer0", "Group[2]") is `word`.
std::optional<ProjectPlace> scriptNameTarget(const Project& project, const QString& word);

} // namespace tarvo
