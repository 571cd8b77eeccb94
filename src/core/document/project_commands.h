#pragma once

#include "document/project_document.h"
#include "document/project_file.h"

#include <optional>

namespace tarvo {

// The main window's caption for a named project: the program's title, " - "
// and the name (also an empty one).
QString windowCaption(const QString& projectName);

// Names the project and sets the caption. A project that has no file path
// yet gets the default path program folder + name + ".vnsc"; it still has no
// file, so the next Save asks where to write.
void SetProjectName(Workspace& workspace, const QString& name);

// A name that can be used as one folder below the projects folder: not empty,
// no separators, not "." or "..".
bool isSafeFolderName(const QString& name);

// Creates projects folder + name when the name is a safe folder name; an
// existing folder is fine. Returns false when nothing could be made.
bool createProjectFolder(const ProgramPaths& paths, const QString& name);

// The project-name rule: a blank candidate is refused silently; one holding
// any of the characters §$%&/?*<>|.: or a double quote or tab is refused
// with a message. An accepted name becomes the project's name and gets its
// folder below the projects folder.
bool CheckProjectName(Workspace& workspace, const QString& candidate);

// The name candidate of a chosen project file: its name without folder and
// with every ".vnsc" removed.
QString projectNameFromFile(const QString& filePath);

// "Are you sure? All changes will not be saved." when the project has a
// name; true when the caller may go on.
bool confirmDiscard(Workspace& workspace);
// "Are you sure you want to exit?" when the project has a name.
bool confirmExit(Workspace& workspace);

// Writes the project to `path`; the document then counts it as saved. A
// failed write is a FileError and keeps the old file.
void saveDocument(
    ProjectDocument& document, const QString& path, TimerLayout layout = TimerLayout::AsWritten);

// Before writing a project that the format's writer would make into a file
// that does not open again (two timers or more): asks, naming the reason,
// whether to write it so that it opens or as is. Nothing (Cancel) stops the
// save. Without such a reason the bytes are the writer's, unasked.
std::optional<TimerLayout> askTimerLayout(Workspace& workspace);

// Save As: asks for a file, checks the name it gives and writes the project.
// A failed write shows the reason in a critical box and keeps the old file.
// Returns true when the project was written.
bool SaveProjectAs(ProjectDocument& document);

// Save: straight to the project's file when it has one, otherwise Save As.
// A failed write offers Save As.
bool saveProjectCommand(ProjectDocument& document);

// What Open read: whether a project was opened, and the notes of what the
// load left out, repaired or converted, each with its line.
struct OpenResult
{
    bool opened = false;
    QList<FileError> notes;
    // False when the file was refused before the open project was touched.
    bool replaced = true;
    operator bool() const { return opened; }
};

// Open's reading step: loads `path`; on success names the project after the
// name read and makes its folder. A faulty file shows the error (file, line,
// sentence) in a critical box; the project then holds what the reader had
// read before the fault and the caption stays as it was, unless the author
// takes the offer to open what can be read of it (a repaired project without
// a file). Either way the history starts afresh. A file that cannot be read,
// or holds no line of the format, is refused before the open project is
// touched; one in another encoding is read converted when the author says
// so, again without a file.
OpenResult openProjectFile(ProjectDocument& document, const QString& path);

// Resets the workspace for New and names the project "Untitled". A catalogue
// that has become unreadable is shown in a critical box; returns false then.
bool newProject(ProjectDocument& document);

} // namespace tarvo
