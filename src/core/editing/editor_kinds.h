#pragma once

#include "records/records.h"

namespace tarvo {

// The condition and action editors show at most this many arguments.
constexpr int kArgumentPositions = 8;

enum class KindOf { Condition, Action };

// Checks that the editors can show kind `kind` of a catalogue: no more
// arguments than they have positions, and every list row it offers (an
// argument's list, a condition's value type) -1 or one of the 30 rows. A
// DataError names the kind and what is wrong.
void checkEditableKind(const CatalogueEntry& entry, int kind, KindOf which);

} // namespace tarvo
