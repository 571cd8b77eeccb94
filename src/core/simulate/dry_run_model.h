#pragma once

#include "catalogue/workspace.h"
#include "script/function_table.h"
#include "script/script_names.h"
#include "script/script_syntax.h"
#include "simulate/compiled_body.h"
#include "simulate/script_value.h"

#include <QHash>
#include <optional>

namespace tarvo::simulate {

// One event as the dry run runs it: what the compile writes for it, read
// back.
struct EventProgram
{
    QString code; // "event3"
    QString name; // the author's title
    bool inScript = false; // switched on: the compile writes it
    std::optional<script::EventBody> body; // empty when switched off or unreadable
    std::vector<Step> steps; // the body made ready to run
    QString error; // why a switched-on event cannot run: its script does not read
    // The author's positions (from 0) of the conditions the script nests,
    // outermost first: the first n nested "if" blocks are these.
    QList<int> conditionItems;
    QStringList conditionTexts; // the same conditions as the compile writes them
    // Events whose script switches this one on (not off), in event order.
    QList<int> armers;
};

struct TimerProgram
{
    QString code; // "Timer0"
    QString name;
    std::vector<script::Expression> trigger;
};

// Everything a dry run needs, taken from the project once: the script as the
// compile writes it, the starting values as the values file gives them, and
// the author's names. It holds no reference to the project, so a run can go
// on (or on another thread) while the author edits.
struct DryRunModel
{
    std::vector<EventProgram> events; // by event position
    std::vector<TimerProgram> timers; // by timer position
    QHash<QString, int> eventByCode;
    QHash<QString, int> timerByCode;
    // Every declared variable (array items one by one) and its first value.
    QHash<QString, ScriptValue> startValues;
    // Every variable the script declares or assigns, by slot, and its first
    // value; the call sites of the compiled bodies.
    SlotTable slots;
    std::vector<ScriptValue> slotStart;
    QStringList variableOrder; // declaration order
    // The variables worth watching: numbers, flags, groups and objects, not
    // the names of sounds and messages.
    QStringList watchOrder;
    QHash<QString, QString> authorNames; // variable, sound and message codes
    script::FunctionTable functions;
    // The callbacks a scenario or the author may fire (every trigger keyword
    // of the script except the clock's own and the start), sorted.
    QStringList callbacks;
    QStringList errors; // events or declarations the game could not read

    QString authorName(const QString& code) const { return authorNames.value(code, code); }
};

// Reads the project's script and the program folder's functions file; a bad
// functions file is a FileError.
DryRunModel buildDryRunModel(const Workspace& workspace);
DryRunModel buildDryRunModel(const Project& project, const script::FunctionTable& functions);

// The starting values a values file text gives ("flag[0]  BOOL  FALSE").
QHash<QString, ScriptValue> valuesFileStartValues(const QString& valuesText);

} // namespace tarvo::simulate
