#include "model/workspace.h"

#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"

namespace tarvo {

Workspace::Workspace(const QString& programDir, Prompter& prompter)
    : paths {programDir}
    , prompter(prompter)
{
}

void ResetProject(Workspace& workspace)
{
    workspace.project = Project {};
    workspace.conditionCatalogue.clear();
    workspace.actionCatalogue.clear();

    LoadConditionCatalogue(workspace);
    LoadActionCatalogue(workspace);
    SetUpReferenceRows(workspace.project.tables);
    RefreshProjectLists(workspace.project);
    workspace.catalogueRows = workspace.project.tables;
}

} // namespace tarvo
