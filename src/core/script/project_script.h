#pragma once

#include "records/project.h"
#include "script/script_syntax.h"

#include <optional>

namespace tarvo::script {

// One event's part of the script: the text the compile writes for it and
// what the reader made of it.
struct EventScript
{
    QString text;
    // Empty when the text could not be read; then `errors` says why.
    std::optional<EventBody> body;
    std::vector<SyntaxError> errors;
};

// The script of a whole project as the compile writes it, read back: the
// declarations, and each event by its position (switched-off events are not
// in the script and stay empty).
struct ProjectScript
{
    QString declarationText; // the declaration sections as the compile writes them
    std::vector<Declaration> declarations;
    std::vector<SyntaxError> declarationErrors;
    std::vector<std::optional<EventScript>> events;
};

// Writes and reads every part of the project's script.
ProjectScript readProjectScript(const Project& project);

// Writes and reads event `event` again after an edit; the others stay as
// they were. Events added or removed need the whole project read again.
void rereadEvent(ProjectScript& script, const Project& project, int event);

// Reads one event's text as the compile or the preview writes it.
EventScript readEventText(const QString& text);

} // namespace tarvo::script
