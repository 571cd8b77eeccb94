#pragma once

#include <QString>
#include <QStringList>

namespace tarvo {
struct Workspace;
}

namespace tarvo::gui {

// What the command line asks for: `tarvo [--program-dir DIR] [PROJECT.vnsc]`.
struct StartUpArguments
{
    QString programDir; // empty: the folder of the executable
    QString projectFile; // empty: start with no project
    QString error; // a usage error for the user
};

StartUpArguments parseStartUpArguments(const QStringList& arguments);

// The steps before the main window exists: the empty project and both
// catalogues. Returns the empty text, or the error (file, line and sentence)
// that must stop the program before any window shows.
QString startUpWorkspace(Workspace& workspace);

} // namespace tarvo::gui
