#pragma once

#include <QString>

namespace tarvo {

struct ProgramPaths;
struct Project;

// Everything the compile creates, copies or deletes must lie inside the
// output root, and the root inside the projects folder. Values from the
// project file (its name, the sound file names) could otherwise carry "..",
// separators, drive letters or absolute paths out of it, and a link in place
// of the root could lead elsewhere. Returns the empty text when the compile
// may go ahead, otherwise a sentence naming the offending value. Touches
// nothing on disk.
QString checkOutputPaths(const ProgramPaths& paths, const Project& project);

// Why `name` cannot be used as one plain file or folder name, or "".
QString plainNameProblem(const QString& name);

} // namespace tarvo
