#pragma once

#include <QHash>
#include <QString>

namespace tarvo::script {

// What the tools know of one script function (or name) from the functions
// file: its effect and which argument plays which part.
struct FunctionInfo
{
    enum class Effect { Arm, End, Message, Sound, Time, Write, Name };

    Effect effect = Effect::Name;
    // Roles to argument positions counted from 0: "event", "trigger",
    // "result", "message", "sound", "time", "variable".
    QHash<QString, int> roles;

    int argument(const QString& role) const { return roles.value(role, -1); }
};

// The functions file of the program folder ("functions.txt"): one line per
// function, "name|effect|role=argument|...", with "//" comment lines.
class FunctionTable
{
public:
    // The table the program ships, for a program folder that has no file.
    static FunctionTable shipped();
    // Reads `path`; a bad line is a FileError naming the file and the line.
    static FunctionTable load(const QString& path);
    // Reads `path` when it exists, else the shipped table.
    static FunctionTable forProgramFolder(const QString& programDir);
    // Reads the text of a file (for `load`; `file` names it in errors).
    static FunctionTable parse(const QString& text, const QString& file);

    const FunctionInfo* find(const QString& name) const;
    bool knows(const QString& name) const { return m_functions.contains(name); }

private:
    QHash<QString, FunctionInfo> m_functions;
};

} // namespace tarvo::script
