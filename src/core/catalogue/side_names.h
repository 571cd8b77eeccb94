#pragma once

#include "base/file_error.h"
#include "records/project.h"

namespace tarvo {

// The project file keeps only some rows of variables; the flags row is
// rebuilt from the catalogue at every load, so a flag's name and value given
// in the variables dialog would be lost. They are kept beside the project
// file in a small file of our own ("Mission.vnsc" -> "Mission.names"): read
// at Open when it is there, written at Save, the project file's bytes
// unchanged. Only what differs from the catalogue is written; a project
// without such names has no side file.

// The side file of a project file.
QString sideNamesPath(const QString& projectPath);

// Writes the entries of rows the project file does not keep that differ
// from `catalogueRows` (the rows as the catalogues give them), or removes
// the side file when none do. A FileError says why it failed.
void writeSideNames(
    const Project& project, const ReferenceListTable& catalogueRows, const QString& projectPath);

// Applies the side file of `projectPath` when there is one. Lines that do
// not fit the project (a row it keeps itself, a position past the row) are
// left out and returned as notes.
QList<FileError> readSideNames(Project& project, const QString& projectPath);

// What the variables dialog tells an author who renames in such a row.
QString sideNamesNote(const Project& project, int table);

} // namespace tarvo
