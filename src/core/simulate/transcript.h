#pragma once

#include "simulate/script_value.h"

#include <QByteArray>

namespace tarvo::simulate {

struct DryRunModel;

// One thing that happened in a dry run, at its time in tenths.
struct TranscriptEntry
{
    enum class What { Fired, Skipped, Set, Armed, Disarmed, Message, Sound, Call, End, Stop };

    int time = 0;
    What what = What::Fired;
    // fired, skipped: the event; armed, disarmed: the event switched.
    int event = -1;
    // The firing event behind everything else (-1 for the scenario's part).
    int by = -1;
    int condition = 0; // skipped: the first false condition, counted from 1
    // set: the variable's code; armed, disarmed: the trigger (the timer's
    // name, or as the script writes it); message: its text; sound: its name;
    // call: the call as evaluated; end: "win" or "lose"; stop: "time" or "loop".
    QString text;
    ScriptValue oldValue; // set
    ScriptValue newValue; // set; call: the answer
    int line = 0; // stop "loop": the line of the loop in the script
};

// "12.5 s" for 125 tenths.
QString clockText(int tenths);

// One readable line: `12.5 s  "Reinforce" fired`, `12.5 s  Waves 2 → 3 (by "Reinforce")`.
QString entryText(const TranscriptEntry& entry, const DryRunModel& model);

// One JSON object on one line: "t" (tenths), "what", and the fields of its
// kind, events and variables by the author's names.
QByteArray entryJson(const TranscriptEntry& entry, const DryRunModel& model);

QString whatWord(TranscriptEntry::What what);

} // namespace tarvo::simulate
