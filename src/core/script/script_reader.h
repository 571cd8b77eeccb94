#pragma once

#include "script/script_syntax.h"

#include <QStringView>

namespace tarvo::script {

// Reads script text as the compile writes it: the whole source, or the text
// of one event as the preview makes it (its declaration line and body). What
// cannot be read is recorded in `errors` with its place; reading resumes at
// the next declaration or event that starts a line, so one broken event does
// not hide the others.
ScriptFile readScript(QStringView text);

// The pieces of an event, each read alone so that a fault is pinned on the
// trigger, condition or action that wrote it. Each throws a SyntaxError.
std::vector<Expression> readTrigger(QStringView text); // "every, 40"
Expression readCondition(QStringView text); // the text between "if(" and ")"
std::vector<Statement> readActions(QStringView text); // one or more statements

} // namespace tarvo::script
