#pragma once

#include <QString>
#include <functional>

namespace tarvo {

// Where to look for the program folder (catalogues and Source templates) and
// where a per-user copy of it may go.
struct ProgramFolderSearch
{
    QString executableDir;
    QString overrideDir; // --program-dir; used as given, never copied
    QString userDataDir; // the per-user copy when the found folder is read-only
    // Whether the program may write into a folder. Root may write anywhere, so
    // tests decide this themselves.
    std::function<bool(const QString&)> isWritable;
    // false: only tell which folder would be used (for --help), copy nothing.
    bool copyAllowed = true;
};

// The search a program does for itself: the executable's folder, the
// per-user data folder of the application "tarvo" and a real write probe.
ProgramFolderSearch applicationProgramFolderSearch(const QString& overrideDir);

struct ProgramFolder
{
    QString path; // the folder to work with
    QString note; // one line: which folder, and why
    bool copied = false; // the per-user copy was made just now
};

// Picks the program folder: --program-dir, else the executable's own folder
// when it holds the catalogues (build tree, portable copy), else the installed
// data in ../share/tarvo. A folder the program cannot write is copied once into
// the per-user folder, and that copy is used from then on.
ProgramFolder findProgramFolder(const ProgramFolderSearch& search);

// Creates and removes a file in `dir`: the honest test, as it also sees
// read-only mounts and access lists.
bool canCreateFilesIn(const QString& dir);

} // namespace tarvo
