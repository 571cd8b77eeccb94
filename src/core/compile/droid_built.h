#pragma once

#include <QString>

namespace tarvo::WriteScript {

// The droid-built events that sort every player's new droids into the
// player's three groups (construction droids, cyborgs, the rest). Built once
// when the writer is set up, but the script deliberately receives the empty
// slot instead: the scripts in use keep their groups themselves.
QString droidBuiltBlock();

// What the script receives between the event declarations and the first
// event body; always empty.
struct DroidBuiltSlot
{
    DroidBuiltSlot();

    QString text;
    QString builtBlock;
};

} // namespace tarvo::WriteScript
