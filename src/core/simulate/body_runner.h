#pragma once

#include "simulate/compiled_body.h"

namespace tarvo::simulate {

class DryRun;
struct EventProgram;

// Runs one firing of one event: its conditions, then its actions, against
// the run's variables. A win, a loss or a loop past the bound ends the run;
// the runner then throws `Halt` after recording it.
class BodyRunner
{
public:
    struct Halt
    {
    };

    BodyRunner(DryRun& run, int event, int time);

    // 0 when the actions ran, else the author's number (from 1) of the
    // first condition that was false.
    int runEvent(const EventProgram& program);

private:
    void execute(const std::vector<Step>& steps);
    void execute(const Step& step);
    ScriptValue evaluate(const Node& node);
    ScriptValue call(const Node& node);
    ScriptValue askGame(const Node& node, const QList<ScriptValue>& values);
    ScriptValue binary(const Node& node);
    // The variable a name or item stands for, made when new.
    int slotOf(const Node& node);
    // The name something is known under: "flag[2]" for flag[i] with i = 2.
    QString codeOf(const Node& node);
    // A message's or sound's text for the transcript.
    QString itemText(const QString& code) const;

    DryRun& m_run;
    int m_event;
    int m_time;
    int m_loopTurns = 0;
};

} // namespace tarvo::simulate
