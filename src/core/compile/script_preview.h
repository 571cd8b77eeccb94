#pragma once

#include "catalogue/trigger_ops.h"
#include "records/project.h"

#include <optional>

namespace tarvo {

// What Compile writes into the script source for event `index`: its line of
// the event declarations, then its body, each exactly as the script source
// holds them. A switched-off event is not written at all; its preview says so
// in a first comment line and shows the body it would have. `trigger`, when
// given, replaces the stored trigger (the wizard stores its trigger only when
// it is finished).
QString eventPreviewText(
    const Project& project, int index, const std::optional<StoredTrigger>& trigger = {});

// The whole script source, as Compile writes it.
QString scriptPreviewText(const Project& project);

} // namespace tarvo
