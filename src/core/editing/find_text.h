#pragma once

#include "catalogue/project_places.h"

namespace tarvo {

// A place whose text holds what was searched for, and that text.
struct FoundText
{
    ProjectPlace place;
    QString field; // "name", "comment", or empty for an argument
    QString text;
};

// Edit > Find: event and timer names, the comments (script, events, timers,
// conditions, actions) and the texts arguments show (references as the
// names of their items), in list order, ignoring case. Asks nobody.
QList<FoundText> findText(const Project& project, const QString& text);

} // namespace tarvo
