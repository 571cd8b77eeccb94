#pragma once

#include "compile/droid_built.h"
#include "records/project.h"

namespace tarvo {
struct ScriptLookup;
class StepLog;
struct OutputContext;
} // namespace tarvo

namespace tarvo::WriteScript {

// The four section builders. Every line inside ends in CR LF; the writer adds
// one more line end after each section. A statement that fails leaves its
// line out and is recorded in `log`.
QString publicVariablesSection(const Project& project, StepLog& log);
QString privateVariablesSection(const Project& project, StepLog& log);
QString triggerDeclarationSection(const Project& project, StepLog& log);
QString eventDeclarationSection(const Project& project, StepLog& log);

// The "//Win-Lose messages" lines written when the game-over messages are used.
QString winLoseDeclaration();

// "//" + 25 hyphens, "//" + name, "//" + 25 hyphens; the header; the nested
// conditions with the actions inside; the closing lines.
// `index`, when given, serves the reference lookups (see script_renderers.h).
QString eventBody(
    const Project& project, int event, StepLog& log, const ScriptLookup* index = nullptr);

// The whole script source.
QString scriptSourceText(const Project& project, const DroidBuiltSlot& slot, StepLog& log);
QString scriptSourceText(
    const Project& project, const DroidBuiltSlot& slot, StepLog& log, bool gameOverMessages);

// Creates "script" and "script/text" under the output root (copying the
// briefing first when the game-over messages are used) and writes
// name + ".slo" there.
void WriteScriptSource(const OutputContext& context, const DroidBuiltSlot& slot);

} // namespace tarvo::WriteScript
