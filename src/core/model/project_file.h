#pragma once

#include "catalogue/project_places.h"
#include "model/file_error.h"
#include "model/workspace.h"

#include <QByteArray>

namespace tarvo {

// Removes every tab character from a project-file line.
QString CleanLine(const QString& line);

// Removes one trailing CR LF, then one leading CR LF.
QString StripBreak(const QString& text);

// The bytes of the project file. A text that Windows-1252 cannot hold is a
// DataError that names the record and the field.
QByteArray projectFileBytes(const Project& project);

// A text the project file cannot hold as it stands ("|", a line break where
// the file has one line, a character outside Windows-1252), and the record
// it belongs to. The sentence names the field.
struct UnsavableText
{
    ProjectPlace place;
    QString sentence;
};
QList<UnsavableText> unsavableTexts(const Project& project);

// Writes the project file through a QSaveFile: on any failure the old file is
// untouched and a FileError says why. Nothing happens for an empty path. On
// success the project's file path is `path` and it has a file.
void SaveProject(Project& project, const QString& path);

// Resets the workspace (reloading the catalogues) and reads the file into it.
// A faulty line ends the load there with a FileError naming file and line;
// the project then holds what was read before it.
void LoadProject(Workspace& workspace, const QString& path);

} // namespace tarvo
