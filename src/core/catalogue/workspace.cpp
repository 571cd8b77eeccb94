#include "catalogue/workspace.h"

#include "catalogue/catalogue_loader.h"
#include "catalogue/event_uses.h"
#include "catalogue/project_lists.h"

namespace tarvo {

Workspace::Workspace(const QString& programDir, Prompter& prompter)
    : paths {programDir}
    , prompter(prompter)
{
}

EventUses& Workspace::eventUses()
{
    if (!m_eventUses.uses)
        m_eventUses.uses = std::make_shared<EventUses>();
    return *m_eventUses.uses;
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
