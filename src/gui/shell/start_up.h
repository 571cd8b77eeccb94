#pragma once

#include <QString>
#include <QStringList>

namespace tarvo {
struct Workspace;
}

namespace tarvo::gui {

// What the command line asks for: `tarvo [--program-dir DIR] [PROJECT.vnsc]`,
// or `tarvo --help` or `--version`, which print and end before any window.
struct StartUpArguments
{
    QString programDir; // empty: searched for (ProgramFolderSearch)
    QString projectFile; // empty: start with no project
    QString error; // a usage error for the user
    bool help = false;
    bool version = false;
};

// Needs no QApplication: the answer decides whether one is made at all.
StartUpArguments parseStartUpArguments(const QStringList& arguments);

// The text of `tarvo --help`.
QString startUpHelp();

// The steps before the main window exists: the empty project and both
// catalogues. Returns the empty text, or the error (file, line and sentence)
// that must stop the program before any window shows.
QString startUpWorkspace(Workspace& workspace);

} // namespace tarvo::gui
