#pragma once

#include "analysis/mission_analysis.h"
#include "check/project_check.h"

namespace tarvo {

// The project's script read back and what it answers, made once for the
// rules below.
struct ScriptFacts
{
    script::ProjectScript script;
    script::FunctionTable functions;
    analysis::MissionAnalysis analysis;
};

ScriptFacts scriptFacts(const Workspace& workspace);

namespace checks {

// Script the game cannot read: each trigger, condition or action whose
// text does not read, with the argument behind it when one can be named.
void unreadableScript(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// Names used as values that the script does not declare and neither the
// catalogues nor the functions file know (a name typed where a list item
// belongs).
void undeclaredNames(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// Events that can never run: an error when only events that cannot run
// themselves switch them on, a warning when no event does.
void eventsThatNeverRun(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// Flags and numbers that are tested but that no action ever sets.
void variablesNeverWritten(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// Flags and numbers that are set but never used ("x = x + 1" is no use).
void variablesNeverUsed(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// No event that can run wins or loses the mission.
void missionWithoutEnd(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);
// Events that only they themselves switch on.
void eventsArmingOnlyThemselves(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues);

} // namespace checks

} // namespace tarvo
