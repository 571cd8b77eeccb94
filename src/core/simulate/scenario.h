#pragma once

#include "base/file_error.h"
#include "simulate/script_value.h"

#include <QList>
#include <QStringList>

namespace tarvo::simulate {

// What the author tells the dry run about the game: when to stop, which
// callbacks happen when, and what the game's functions answer.
struct Scenario
{
    static constexpr int kDefaultUntil = 36000; // an hour, in tenths

    struct Firing
    {
        int time = 0;
        QString keyword; // "CALL_TRANSPORTER_LANDED"
        int line = 0;
    };

    // "at T answer NAME = VALUE" or "at T answer NAME(ARG, ...) = VALUE".
    struct Answer
    {
        int time = 0;
        QString name; // a function, or a member such as "Group[0].members"
        bool anyArguments = true;
        QString arguments; // as the script writes them: "REF_ANY, 0"
        ScriptValue value;
        int line = 0;
    };

    int until = kDefaultUntil;
    QList<Firing> firings; // in file order
    QList<Answer> answers; // in file order: later lines win
};

// Reads a scenario; every bad line is reported in `errors` with the file and
// its line and what was expected there, and left out.
Scenario readScenario(const QString& text, const QString& file, QList<FileError>& errors);

// The text of a file, read as UTF-8; a file that cannot be read is a
// FileError.
Scenario loadScenario(const QString& path, QList<FileError>& errors);
// The text of a scenario file; anything but a readable regular file of at
// most 16 MB is a FileError.
QString scenarioFileText(const QString& path);

} // namespace tarvo::simulate
