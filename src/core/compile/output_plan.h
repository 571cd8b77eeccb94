#pragma once

#include <QSet>
#include <QString>

namespace tarvo {

struct Project;

// What a compile of the project is about to write, relative to the output
// root: the cleaning keeps these files and directories so that they are
// written over in place instead of being deleted and created again (creating
// a file costs far more than rewriting one on common file systems). Only
// what every compile of the project surely writes is listed; a file that then
// fails to be written is removed by the step that failed.
struct OutputPlan
{
    QSet<QString> files;
    QSet<QString> directories;
};

OutputPlan plannedOutput(const Project& project);
// The same, told whether the project uses the game-over messages.
OutputPlan plannedOutput(const Project& project, bool gameOverMessages);

} // namespace tarvo
