#pragma once

#include "script/script_syntax.h"
#include "simulate/script_value.h"

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
    void execute(const std::vector<script::Statement>& statements);
    void execute(const script::Statement& statement);
    ScriptValue evaluate(const script::Expression& expression);
    ScriptValue call(const script::Expression& expression);
    ScriptValue askGame(const QString& name, const std::vector<script::Expression>& arguments,
        const QList<ScriptValue>& values);
    ScriptValue binary(const script::Expression& expression);
    // The name something is stored or known under: "flag[2]" for flag[i]
    // with i = 2, the text of anything else.
    QString codeOf(const script::Expression& expression);
    // A message's or sound's text for the transcript.
    QString itemText(const QString& code) const;

    DryRun& m_run;
    int m_event;
    int m_time;
    int m_loopTurns = 0;
};

} // namespace tarvo::simulate
