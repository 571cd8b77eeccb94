#include "document/project_document.h"

#include <algorithm>

namespace tarvo {

ProjectDocument::ProjectDocument(Workspace& workspace, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
{
}

ProjectDocument::~ProjectDocument() = default;

ProjectDocument::Transaction::Transaction(
    ProjectDocument& document, const QString& label, const EventStretch* stretch)
    : m_document(document)
{
    if (m_document.m_depth++ == 0) {
        m_document.m_editLabel = label;
        m_document.m_editListAfresh = false;
        m_document.m_editSelection = m_document.selection();
        m_document.m_settleStep = -1;
        // Cheap: the records are implicitly shared until the step changes them.
        m_document.m_editStart = m_document.project();
        m_document.m_stretch.reset();
        if (stretch) {
            // The events array is left to the project alone, so that the step
            // changes it in place; only the stretch is kept.
            const QList<EventRecord>& events = m_document.project().events;
            const qsizetype first = std::clamp<qsizetype>(stretch->first, 0, events.size());
            const qsizetype last = std::clamp<qsizetype>(stretch->last, first, events.size());
            m_document.m_stretch = EventStretch {first, last};
            m_document.m_stretchBefore = events.mid(first, last - first);
            m_document.m_eventsBefore = events.size();
#ifndef NDEBUG
            m_document.m_wholeStart = m_document.project();
#endif
            m_document.m_editStart.events = {};
        }
    }
}

ProjectDocument::Transaction::~Transaction()
{
    if (m_done)
        return;
    if (--m_document.m_depth == 0) {
        if (m_document.m_stretch)
            m_document.m_editStart.events = m_document.eventsBeforeStretch();
        m_document.project() = std::move(m_document.m_editStart);
        m_document.m_editStart = Project {};
        m_document.m_stretch.reset();
        m_document.m_stretchBefore = {};
#ifndef NDEBUG
        m_document.m_wholeStart = Project {};
#endif
    }
}

void ProjectDocument::Transaction::commit()
{
    m_done = true;
    if (--m_document.m_depth == 0)
        m_document.finishEdit();
}

QList<EventRecord> ProjectDocument::eventsBeforeStretch() const
{
    const QList<EventRecord>& now = project().events;
    const qsizetype grown = now.size() - m_eventsBefore;
    const qsizetype first = std::min(m_stretch->first, now.size());
    const qsizetype behind = std::clamp<qsizetype>(m_stretch->last + grown, first, now.size());
    QList<EventRecord> before;
    before.reserve(m_eventsBefore);
    before.append(now.cbegin(), now.cbegin() + first);
    before.append(m_stretchBefore);
    before.append(now.cbegin() + behind, now.cend());
    return before;
}

// The splice that comparing the whole arrays would give, found from the
// stretch: in front of it and behind it, each record before the step is the
// very record the array holds now.
Splice<EventRecord> ProjectDocument::stretchSplice() const
{
    const QList<EventRecord>& after = project().events;
    const qsizetype first = m_stretch->first;
    const qsizetype last = m_stretch->last;
    const qsizetype n = m_eventsBefore;
    const qsizetype m = after.size();
    const qsizetype grown = m - n;
    const auto before = [&](qsizetype k) -> const EventRecord& {
        if (k < first)
            return after.at(k);
        return k < last ? m_stretchBefore.at(k - first) : after.at(k + grown);
    };
    qsizetype prefix = std::min({first, n, m});
    while (prefix < n && prefix < m && before(prefix) == after.at(prefix))
        ++prefix;
    qsizetype suffix = std::max<qsizetype>(0, std::min({n - last, n - prefix, m - prefix}));
    while (suffix < n - prefix && suffix < m - prefix
        && before(n - 1 - suffix) == after.at(m - 1 - suffix))
        ++suffix;
    Splice<EventRecord> splice;
    splice.offset = prefix;
    for (qsizetype k = prefix; k < n - suffix; ++k)
        splice.before.append(before(k));
    splice.after = after.mid(prefix, m - prefix - suffix);
    return splice;
}

void ProjectDocument::finishEdit()
{
    ProjectDelta delta;
    if (m_stretch) {
        Splice<EventRecord> events = stretchSplice();
        m_editStart.events = project().events; // shared: no change found in them
        delta = diffProjects(m_editStart, project());
        delta.events = std::move(events);
#ifndef NDEBUG
        const ProjectDelta whole = diffProjects(m_wholeStart, project());
        Q_ASSERT(whole.events.isEmpty() == delta.events.isEmpty());
        Q_ASSERT(whole.events.isEmpty()
            || (whole.events.offset == delta.events.offset
                && whole.events.before == delta.events.before
                && whole.events.after == delta.events.after));
        m_wholeStart = Project {};
#endif
        m_stretch.reset();
        m_stretchBefore = {};
    } else {
        delta = diffProjects(m_editStart, project());
    }
    m_editStart = Project {};
    if (delta.isEmpty())
        return;
    ProjectChange change = changeOf(delta, true, project());
    change.eventListAfresh = m_editListAfresh;
    if (m_sessionOpen) {
        announce(change);
        return;
    }
    record(m_editLabel, std::move(delta), m_editSelection);
    const qsizetype step = m_index - 1;
    announce(change);
    noteSelectionAfter(step);
    m_settleStep = step;
}

void ProjectDocument::showEventListAfresh()
{
    if (m_depth > 0)
        m_editListAfresh = true;
}

void ProjectDocument::selectionSettled()
{
    noteSelectionAfter(m_settleStep);
}

ViewSelection ProjectDocument::selection() const
{
    return m_selectionSource ? m_selectionSource() : ViewSelection {};
}

void ProjectDocument::noteSelectionAfter(qsizetype step)
{
    // A listener may have made a step of its own meanwhile: then this one is
    // no longer the newest and keeps the selection it began with.
    if (step >= 0 && step == m_index - 1 && step < m_steps.size())
        m_steps[step].selectionAfter = selection();
}

void ProjectDocument::record(const QString& label, ProjectDelta delta, const ViewSelection& before)
{
    const bool modifiedBefore = isModified();
    // A new step ends the way back to anything undone.
    if (m_cleanIndex > m_index)
        m_cleanIndex = -1;
    m_steps.resize(m_index);
    m_steps.append(HistoryStep {label, std::move(delta), before, before});
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
    if (m_settleStep != m_index - 1)
        m_settleStep = -1;
    Q_EMIT historyChanged();
    if (isModified() != modifiedBefore)
        Q_EMIT modifiedChanged(isModified());
}

void ProjectDocument::beginSession(const QString& label)
{
    m_sessionOpen = true;
    m_sessionLabel = label;
    m_sessionStart = project();
    m_sessionSelection = selection();
    m_settleStep = -1;
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
    record(m_sessionLabel, std::move(delta), m_sessionSelection);
    m_settleStep = m_index - 1;
    noteSelectionAfter(m_settleStep);
}

void ProjectDocument::cancelSession()
{
    if (!m_sessionOpen)
        return;
    m_sessionOpen = false;
    m_settleStep = -1;
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
    const ViewSelection before = m_steps.at(m_index).selectionBefore;
    apply(m_steps.at(m_index), false);
    historyMoved(modifiedBefore);
    Q_EMIT selectionRestored(before);
}

void ProjectDocument::redo()
{
    if (!canRedo())
        return;
    const bool modifiedBefore = isModified();
    const ViewSelection after = m_steps.at(m_index).selectionAfter;
    apply(m_steps.at(m_index), true);
    ++m_index;
    historyMoved(modifiedBefore);
    Q_EMIT selectionRestored(after);
}

void ProjectDocument::markSaved()
{
    const bool modifiedBefore = isModified();
    m_cleanIndex = m_index;
    historyMoved(modifiedBefore);
    noteIdentity();
}

void ProjectDocument::noteIdentity()
{
    const Project& now = project();
    if (now.name != m_toldName || m_workspace.caption != m_toldCaption) {
        m_toldName = now.name;
        m_toldCaption = m_workspace.caption;
        Q_EMIT nameChanged(now.name);
    }
    if (now.filePath != m_toldFilePath) {
        m_toldFilePath = now.filePath;
        Q_EMIT fileNameChanged(now.filePath);
    }
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
    noteIdentity();
}

} // namespace tarvo
