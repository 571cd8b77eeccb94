#pragma once

#include "base/file_error.h"
#include "catalogue/project_places.h"
#include "catalogue/workspace.h"

#include <QByteArray>

namespace tarvo {

// Removes every tab character from a project-file line.
QString CleanLine(const QString& line);

// Removes one trailing CR LF, then one leading CR LF.
QString StripBreak(const QString& text);

// How the timers are laid out. As written: one "<ti>" line for all of them,
// which the format's own reader cannot read back for two timers or more
// (it makes room for one timer per "<ti>" line). Opening: a "<ti>" line
// before each timer, which every reader of the format loads whole; for one
// timer or none both layouts are the same bytes.
enum class TimerLayout { AsWritten, Opening };

// The bytes of the project file. A text that Windows-1252 cannot hold is a
// DataError that names the record and the field.
QByteArray projectFileBytes(const Project& project, TimerLayout layout = TimerLayout::AsWritten);

// Why the file written as the format's writer writes it would not open
// again; empty when it would.
QString wouldNotOpenReason(const Project& project);

// A text the project file cannot hold as it stands ("|", a line break where
// the file has one line, a character outside Windows-1252), and the record
// it belongs to. The sentence names the field.
struct UnsavableText
{
    ProjectPlace place;
    QString sentence;
};
QList<UnsavableText> unsavableTexts(const Project& project);

// Why the project file cannot hold `value` as a field, or "": the file keeps
// its fields apart with "|" and ends every record at a line end (comments are
// written one tagged line per text line), and it holds Windows-1252
// characters only.
QString unsavableReason(const QString& value, bool lineBreaksAllowed);

// Writes the project file through a QSaveFile: on any failure the old file is
// untouched and a FileError says why. Nothing happens for an empty path. On
// success the project's file path is `path` and it has a file.
void SaveProject(
    Project& project, const QString& path, TimerLayout layout = TimerLayout::AsWritten);

// Resets the workspace (reloading the catalogues) and reads the file into it.
// A faulty line ends the load there with a FileError naming file and line;
// the project then holds what was read before it. Returns notes about
// records the file ended inside, which the format's reader leaves out.
QList<FileError> LoadProject(Workspace& workspace, const QString& path);

// Strict: the first faulty line ends the load, as LoadProject does. Repair:
// a faulty line is left out with the record it begins (an event, timer,
// condition, action or list row), a timer without a "<ti>" line of its own
// is read all the same, and a record the file ends inside is kept.
enum class LoadMode { Strict, Repair };

// LoadProject over text already decoded; returns the notes of what was left
// out or repaired, each with its line.
QList<FileError> readProjectText(
    Workspace& workspace, const QString& path, const QString& text, LoadMode mode);

// The tags that begin the lines of a project file ("<gl>", "<ev>", ...).
const QStringList& projectFileTags();

} // namespace tarvo
