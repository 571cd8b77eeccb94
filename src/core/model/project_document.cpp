#include "model/project_document.h"

namespace tarvo {

ProjectDocument::ProjectDocument(Workspace& workspace, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
{
}

ProjectDocument::~ProjectDocument() = default;

ProjectDocument::Transaction::Transaction(ProjectDocument& document, const QString& label)
    : m_document(document)
{
    if (m_document.m_depth++ == 0) {
        m_document.m_editLabel = label;
        // Cheap: the records are implicitly shared until the step changes them.
        m_document.m_editStart = m_document.project();
    }
}

ProjectDocument::Transaction::~Transaction()
{
    if (m_done)
        return;
    if (--m_document.m_depth == 0) {
        m_document.project() = std::move(m_document.m_editStart);
        m_document.m_editStart = Project {};
    }
}

void ProjectDocument::Transaction::commit()
{
    m_done = true;
    if (--m_document.m_depth == 0)
        m_document.finishEdit();
}

void ProjectDocument::finishEdit()
{
    ProjectDelta delta = diffProjects(m_editStart, project());
    m_editStart = Project {};
    if (delta.isEmpty())
        return;
    const ProjectChange change = changeOf(delta, true, project());
    if (!m_sessionOpen)
        record(m_editLabel, std::move(delta));
    announce(change);
}

void ProjectDocument::record(const QString& label, ProjectDelta delta)
{
    const bool modifiedBefore = isModified();
    // A new step ends the way back to anything undone.
    if (m_cleanIndex > m_index)
        m_cleanIndex = -1;
    m_steps.resize(m_index);
    m_steps.append(HistoryStep {label, std::move(delta)});
    ++m_index;
    if (m_steps.size() > kHistoryLimit) {
        m_steps.removeFirst();
        --m_index;
        m_cleanIndex = m_cleanIndex > 0 ? m_cleanIndex - 1 : -1;
    }
    historyMoved(modifiedBefore);
}

void ProjectDocument::announce(const ProjectChange& change)
{
    Q_EMIT changed(change);
}

void ProjectDocument::historyMoved(bool modifiedBefore)
{
    Q_EMIT historyChanged();
    if (isModified() != modifiedBefore)
        Q_EMIT modifiedChanged(isModified());
}

void ProjectDocument::beginSession(const QString& label)
{
    m_sessionOpen = true;
    m_sessionLabel = label;
    m_sessionStart = project();
    Q_EMIT historyChanged();
}

void ProjectDocument::endSession()
{
    if (!m_sessionOpen)
        return;
    m_sessionOpen = false;
    ProjectDelta delta = diffProjects(m_sessionStart, project());
    m_sessionStart = Project {};
    if (delta.isEmpty()) {
        Q_EMIT historyChanged();
        return;
    }
    record(m_sessionLabel, std::move(delta));
}

void ProjectDocument::cancelSession()
{
    if (!m_sessionOpen)
        return;
    m_sessionOpen = false;
    const ProjectDelta delta = diffProjects(m_sessionStart, project());
    m_sessionStart = Project {};
    applyDelta(project(), delta, false);
    Q_EMIT historyChanged();
    if (!delta.isEmpty())
        announce(changeOf(delta, false, project()));
}

bool ProjectDocument::canUndo() const
{
    return !m_sessionOpen && m_depth == 0 && m_index > 0;
}

bool ProjectDocument::canRedo() const
{
    return !m_sessionOpen && m_depth == 0 && m_index < m_steps.size();
}

QString ProjectDocument::undoLabel() const
{
    return m_index > 0 ? m_steps.at(m_index - 1).label : QString();
}

QString ProjectDocument::redoLabel() const
{
    return m_index < m_steps.size() ? m_steps.at(m_index).label : QString();
}

void ProjectDocument::apply(const HistoryStep& step, bool forward)
{
    applyDelta(project(), step.delta, forward);
    ProjectChange change = changeOf(step.delta, forward, project());
    change.fromHistory = true;
    announce(change);
}

void ProjectDocument::undo()
{
    if (!canUndo())
        return;
    const bool modifiedBefore = isModified();
    --m_index;
    apply(m_steps.at(m_index), false);
    historyMoved(modifiedBefore);
}

void ProjectDocument::redo()
{
    if (!canRedo())
        return;
    const bool modifiedBefore = isModified();
    apply(m_steps.at(m_index), true);
    ++m_index;
    historyMoved(modifiedBefore);
}

void ProjectDocument::markSaved()
{
    const bool modifiedBefore = isModified();
    m_cleanIndex = m_index;
    historyMoved(modifiedBefore);
}

void ProjectDocument::setPendingText(const QString& box, const PendingText& store)
{
    const bool modifiedBefore = isModified();
    m_pending.insert(box, store);
    Q_EMIT pendingTextChanged();
    if (isModified() != modifiedBefore)
        Q_EMIT modifiedChanged(true);
}

void ProjectDocument::clearPendingText(const QString& box)
{
    if (!m_pending.contains(box))
        return;
    const bool modifiedBefore = isModified();
    m_pending.remove(box);
    Q_EMIT pendingTextChanged();
    if (isModified() != modifiedBefore)
        Q_EMIT modifiedChanged(false);
}

Project ProjectDocument::projectWithPendingText() const
{
    Project copy = project();
    for (const PendingText& store : m_pending)
        store(copy);
    return copy;
}

void ProjectDocument::projectReplaced(bool modified)
{
    const bool modifiedBefore = isModified();
    m_pending.clear();
    m_sessionOpen = false;
    m_sessionStart = Project {};
    m_steps.clear();
    m_index = 0;
    m_cleanIndex = modified ? -1 : 0;
    announce(ProjectChange::all());
    historyMoved(modifiedBefore);
}

} // namespace tarvo
