#pragma once

#include "base/file_error.h"
#include "base/file_stamp.h"
#include "catalogue/workspace.h"
#include "text/encoding_probe.h"

namespace tarvo {

// What a file holds, found before a load replaces the open project with it:
// its encoding, its text in that encoding and whether any of its lines is a
// line of the project file format at all.
struct ProjectFileProbe
{
    text::FileEncoding encoding = text::FileEncoding::CodePage;
    QString text;
    bool hasProjectLines = false;
    QByteArray bytes; // as read
};

// The stamp of the file as the probe read it (see fileStampOf).
FileStamp stampOf(const ProjectFileProbe& probe);

// Reads the file; one that cannot be read is a FileError.
ProjectFileProbe probeProjectFile(const QString& path);

// Whether the text holds a line with a tag of the project file format.
bool holdsProjectLines(const QString& text);

// "is saved as UTF-16 (little-endian), not in the Windows-1252 code page of
// project files", for a file in another encoding.
QString encodingSentence(text::FileEncoding encoding);

// The sentence for a file without a single line of the format.
QString noProjectLinesSentence();

// The refusals the command-line tool applies before a load: a file in another
// encoding, or one without a line of the format, is a FileError (line 0).
void requireCodePageProjectFile(const QString& path);

// Reads what can be read of a damaged file, converting a file in another
// encoding: faulty lines are left out with their records and listed in the
// returned notes (the first note names a conversion). The project then has
// no file, so that saving asks where to write and the damaged file is never
// written over. A FileError when the file cannot be read or holds no line of
// the format.
QList<FileError> RepairProject(Workspace& workspace, const QString& path);

} // namespace tarvo
