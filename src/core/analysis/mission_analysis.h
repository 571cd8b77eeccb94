#pragma once

#include "analysis/event_facts.h"
#include "catalogue/workspace.h"
#include "script/project_script.h"

namespace tarvo::analysis {

// One event as the analysis sees it.
struct EventAnalysis
{
    bool inScript = false; // switched on: the compile writes it
    bool read = false; // its whole text was read; else facts come from the pieces that read
    EventFacts facts;
    bool canRun = false;
    QList<int> armedBy; // events of the script that switch it on, in event order
    QList<int> disarmedBy;
};

// A flag, number or group that some event of the script writes or reads.
struct VariableAnalysis
{
    enum class Kind { Flag, Number, Group };

    QString code; // "flag[2]"
    Kind kind = Kind::Number;
    int row = -1;
    int position = -1; // in its row
    QString name; // the author's
    QList<int> writers; // events, in event order
    QList<int> readers;
};

struct MissionAnalysis
{
    std::vector<EventAnalysis> events; // by event position
    QList<VariableAnalysis> variables; // in list-row order, then position
    bool canEnd() const;
};

// The questions one at a time, for the tools that need only one.

// Facts of event `event`, from its script (switched-off events get none).
EventAnalysis eventAnalysis(const Project& project, int event, const script::ProjectScript& script,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known);

// Who arms and disarms whom, and which events can run: an event runs when
// its own trigger is not "inactive" or an event that can run switches it on.
void findReachability(std::vector<EventAnalysis>& events);

// The variables of the rows that declare flags, numbers and groups, with
// the events that write and read them.
QList<VariableAnalysis> variableAnalysis(const Project& project,
    const std::vector<EventAnalysis>& events, const script::ScriptNames& names);

// All of it for a project whose script has been read.
MissionAnalysis analyseMission(const Workspace& workspace, const script::ProjectScript& script,
    const script::FunctionTable& functions);

// Reads the project's script and the program folder's functions file, then
// analyses; a bad functions file is a FileError.
MissionAnalysis analyseMission(const Workspace& workspace);

// The name kinds of the graph and the findings: "flag", "number", "group".
QString variableKindWord(VariableAnalysis::Kind kind);

} // namespace tarvo::analysis
