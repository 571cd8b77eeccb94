#pragma once

#include "catalogue/workspace.h"

namespace tarvo {

// The warning shown when an action of a switched-on event still refers to an
// event that is being switched off.
QString eventInUseText(
    const QString& referringEvent, const QString& actionTitle, const QString& targetText);

// Warns, once per referring argument, about switched-on actions of
// switched-on events whose event argument names `targetText` (the list text
// of the event being switched off; the event itself is searched too). Only
// warns: nothing is changed. Returns the texts it showed.
QStringList CheckEventInUse(Workspace& workspace, const QString& targetText);
// The same warnings, returned without being shown (to say them together
// when several events are switched off at once).
QStringList eventInUseWarnings(Workspace& workspace, const QString& targetText);

} // namespace tarvo
