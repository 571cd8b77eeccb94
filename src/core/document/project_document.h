#pragma once

#include "base/file_stamp.h"
#include "catalogue/workspace.h"
#include "document/project_delta.h"

#include <QMap>
#include <QObject>
#include <functional>
#include <optional>
#include <type_traits>

namespace tarvo {

// Where the author stood when a step began or ended: the selected lines of
// the events and timers lists (-1 for none), and whether the timer was the
// one in hand. View state, never part of the project; the history keeps it
// so that undo puts the author back at the change, as a text editor's undo
// puts back the cursor.
struct ViewSelection
{
    int event = -1;
    int timer = -1;
    bool onTimer = false;

    friend bool operator==(const ViewSelection&, const ViewSelection&) = default;
};

// The project as the editor and the command-line tool work on it. Every change
// runs through `edit`, which keeps what the change did as one step of the
// history (undo and redo), knows whether the project differs from its file,
// and tells the views what changed. The editing rules stay free functions; a
// step is any code that calls them on the project.
//
// A failing step (any exception) leaves the project exactly as it was before
// the step and passes the exception on.
class ProjectDocument : public QObject
{
    Q_OBJECT
public:
    // Steps kept for undo; older ones are forgotten.
    static constexpr int kHistoryLimit = 200;

    explicit ProjectDocument(Workspace& workspace, QObject* parent = nullptr);
    ~ProjectDocument() override;

    Workspace& workspace() const { return m_workspace; }
    Project& project() const { return m_workspace.project; }

    // Runs `step` as one change named `label` ("Rename Event"); returns what
    // the step returns. Edits made inside another edit or inside a session
    // belong to that one.
    template <typename Step> auto edit(const QString& label, Step&& step);

    // Like `edit`, for a step that changes no record of the events array
    // but those of `stretch`. The history then keeps those records alone, and
    // the step changes the array in place instead of copying it whole first.
    template <typename Step>
    auto editEvents(const QString& label, const EventStretch& stretch, Step&& step);

    // A session groups every edit until it ends into one step: the event
    // wizard from New or Edit to its end. Cancelling puts the project back as
    // it was when the session began.
    void beginSession(const QString& label);
    void endSession();
    void cancelSession();
    bool inSession() const { return m_sessionOpen; }

    // Called inside an edit: the step shows the events list afresh
    // (`ProjectChange::eventListAfresh`).
    void showEventListAfresh();

    bool canUndo() const;
    bool canRedo() const;
    QString undoLabel() const;
    QString redoLabel() const;
    void undo();
    void redo();

    // Whether the project differs from the file it was last saved to or
    // opened from (undoing back to that point makes it unmodified again).
    // Text typed into a comment box but not stored yet counts too.
    bool isModified() const { return m_index != m_cleanIndex || !m_pending.isEmpty(); }
    // The project now equals its file.
    void markSaved();
    // New, Open, a failed load: the history starts afresh and the views show
    // everything again. `modified` is for a project restored from a recovery
    // copy, which no file holds yet.
    void projectReplaced(bool modified = false);

    // Text typed into a comment box that the box's own rules store only on
    // Update (or Save). Until then it makes the project modified and goes
    // into recovery copies, so that neither a question on closing nor a
    // crash loses it; it never enters the project or the history here. One
    // per box (`box` names it); a box clears its own when it was stored or
    // reloaded, and all go when the project is replaced.
    // `store` puts the text where the box would store it.
    using PendingText = std::function<void(Project&)>;
    void setPendingText(const QString& box, const PendingText& store);
    void clearPendingText(const QString& box);
    bool hasPendingText() const { return !m_pending.isEmpty(); }
    // The project file as this editor last read or wrote it; a project
    // without a file has none.
    const FileStamp& fileStamp() const { return m_fileStamp; }
    void setFileStamp(const FileStamp& stamp) { m_fileStamp = stamp; }

    // The project with the pending text stored where the box would store it:
    // what a recovery copy holds.
    Project projectWithPendingText() const;

    // The view that owns the selection tells it here; without one, steps
    // remember no selection.
    using SelectionSource = std::function<ViewSelection()>;
    void setSelectionSource(const SelectionSource& source) { m_selectionSource = source; }
    // A view that moves its selection only after a step has ended (the new
    // event's line after the wizard) says so here, so that redo goes there.
    // Only the step just made takes it.
    void selectionSettled();

    // Tells the views (nameChanged, fileNameChanged) when the name, caption
    // or file are no longer what they were last told. The File commands set
    // those outside any edit and call this where they end; a new, opened or
    // saved project calls it itself.
    void noteIdentity();

Q_SIGNALS:
    void changed(const tarvo::ProjectChange& change);
    void modifiedChanged(bool modified);
    void historyChanged();
    void pendingTextChanged();
    // After an undo (the selection before the step) or a redo (after it),
    // once the views have shown the change.
    void selectionRestored(const tarvo::ViewSelection& selection);
    // The project's name (and with it the window caption) or its file
    // changed: New, Open, Save As, a recovered copy.
    void nameChanged(const QString& name);
    void fileNameChanged(const QString& filePath);

private:
    struct HistoryStep
    {
        QString label;
        ProjectDelta delta;
        ViewSelection selectionBefore;
        ViewSelection selectionAfter;
    };

    // Takes the snapshot for the outermost edit; without `commit` (an
    // exception), puts it back.
    class Transaction
    {
    public:
        Transaction(
            ProjectDocument& document, const QString& label, const EventStretch* stretch = nullptr);
        ~Transaction();
        void commit();

    private:
        ProjectDocument& m_document;
        bool m_done = false;
    };

    void finishEdit();
    Splice<EventRecord> stretchSplice() const;
    QList<EventRecord> eventsBeforeStretch() const;
    void record(const QString& label, ProjectDelta delta, const ViewSelection& before);
    ViewSelection selection() const;
    // The selection after the newest step, once the views have followed it.
    void noteSelectionAfter(qsizetype step);
    void announce(const ProjectChange& change);
    void apply(const HistoryStep& step, bool forward);
    void historyMoved(bool modifiedBefore);

    Workspace& m_workspace;
    int m_depth = 0;
    QString m_editLabel;
    bool m_editListAfresh = false;
    Project m_editStart;
    ViewSelection m_editSelection;
    // For an edit of a stretch of the events: the stretch, its records before
    // the step and the array's length then (m_editStart holds no events).
    std::optional<EventStretch> m_stretch;
    QList<EventRecord> m_stretchBefore;
    qsizetype m_eventsBefore = 0;
#ifndef NDEBUG
    Project m_wholeStart; // to prove that the step kept to its stretch
#endif
    bool m_sessionOpen = false;
    QString m_sessionLabel;
    Project m_sessionStart;
    ViewSelection m_sessionSelection;
    QList<HistoryStep> m_steps;
    qsizetype m_index = 0; // steps applied
    qsizetype m_cleanIndex = 0; // -1: no step matches the file
    QMap<QString, PendingText> m_pending;
    FileStamp m_fileStamp;
    SelectionSource m_selectionSource;
    qsizetype m_settleStep = -1; // the step just made, until anything else happens
    QString m_toldName;
    QString m_toldCaption;
    QString m_toldFilePath;
};

template <typename Step> auto ProjectDocument::edit(const QString& label, Step&& step)
{
    return editEvents(label, EventStretch::whole(), std::forward<Step>(step));
}

template <typename Step>
auto ProjectDocument::editEvents(const QString& label, const EventStretch& stretch, Step&& step)
{
    Transaction transaction(*this, label, stretch.isWhole() ? nullptr : &stretch);
    if constexpr (std::is_void_v<std::invoke_result_t<Step>>) {
        std::forward<Step>(step)();
        transaction.commit();
    } else {
        auto result = std::forward<Step>(step)();
        transaction.commit();
        return result;
    }
}

} // namespace tarvo
