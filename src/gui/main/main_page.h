#pragma once

#include "records/project.h"

#include <QWidget>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPlainTextEdit;
class QPushButton;

namespace tarvo {
class ProjectDocument;
struct LineChange;
struct ProjectChange;
struct ViewSelection;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

class EventWizard;

// The four panels of the main window's status bar.
struct StatusPanels
{
    QLabel* events = nullptr;
    QLabel* timers = nullptr;
    QLabel* progress = nullptr;
    QLabel* actions = nullptr;
};

// Page 0 of the main window: the events list with check boxes, the timers
// list, their buttons, the shared comment box and the events pop-up menu.
// It shows the project and calls the core list routines through the project
// document, whose change signal keeps the lines up to date; the wizard pages
// take over for New and Edit.
class MainPage : public QWidget
{
    Q_OBJECT
public:
    MainPage(ProjectDocument& document, const StatusPanels& panels, QWidget* parent = nullptr);

    // The wizard is made after this page, because its pages follow page 0.
    void setWizard(EventWizard* wizard);

    void FillEventList();
    void fillTimerList();
    void RefreshEventCount();
    void RefreshTimerCount();
    void RefreshCounts();
    void EventDescShow();
    void TimerDescShow();
    // "Show Description": the script comment in the comment box, mode 1.
    void showScriptComment();
    // After a faulty Open: an empty box that stores nothing (comment mode 0).
    void clearCommentBox();
    // Stores the comment box as the comment mode says (one undoable step when
    // it changes anything); called by Update and before saving.
    void commitCommentBox();
    // Tells the document whether the box holds text its place does not.
    void notePendingText();
    // After New or Open: everything shown again from the project.
    void reloadFromProject();
    // The editing controls stay off until a project is created or opened.
    void setEditingEnabled(bool enabled);

    // What the comment box shows: the comment modes of the project file's
    // editor (0 none, 1 script, 2 event, 3 timer).
    qint16 commentMode() const { return m_commentMode; }

    // The events list's pop-up menu (hidden menu of the menu bar).
    QMenu* eventMenu() const { return m_eventMenu; }

    // The selected lines, -1 for none; selecting one shows it as a click does.
    int currentEvent() const { return selectedEvent(); }
    int currentTimer() const { return selectedTimer(); }
    void selectEvent(int line);
    void selectTimer(int line);
    // The selected event lines in order (the list selects several with
    // Shift and Ctrl); the current line alone when none is marked.
    QList<int> selectedEvents() const;
    // Marks `lines` selected, the first of them current.
    void selectEvents(const QList<int>& lines);
    // Switch On / Switch Off of the selected events (the events pop-up menu).
    void switchEvents(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // Another event or timer line became the selected one.
    void selectionChanged();

private:
    void buildControls();
    void buildLayout();
    void connectControls();
    void setListsEnabled(bool enabled);
    template <typename Handler> auto guarded(Handler handler);
    void projectChanged(const ProjectChange& change);
    void selectionRestored(const ViewSelection& selection);
    void applyEventLines(const LineChange& lines);
    void applyTimerLines(const LineChange& lines);
    void showEventLine(int line);

    int selectedEvent() const;
    int selectedTimer() const;
    CommentPlace commentPlace() const;
    void eventSelected();
    void timerSelected();
    void eventItemChanged(QListWidgetItem* item);
    void setLineTicked(int line, bool ticked);
    void showEventMenu(const QPoint& position);

    void newEvent();
    void editEvent();
    void editTimer();
    void renameEvent();
    void renameTimer();
    void deleteEvent();
    void deleteTimer();
    void newTimer();
    void copyEvent();
    void moveEvent(int direction);
    void deleteEvents(const QList<int>& lines);
    void moveEvents(const QList<int>& lines, int direction);
    void updateComment();
    void wizardFinished();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    StatusPanels m_panels;
    EventWizard* m_wizard = nullptr;
    bool m_filling = false;
    bool m_editingEnabled = false;
    bool m_wizardRunning = false;
    // A copied event whose tick was refused keeps its source's enabled flag
    // with an unticked line; the next refill of the list shows the flag again.
    bool m_ticksDiverge = false;

    QListWidget* m_events = nullptr;
    QListWidget* m_timers = nullptr;
    QLabel* m_eventsHeading = nullptr;
    QLabel* m_timersHeading = nullptr;
    QLabel* m_eventId = nullptr;
    QLabel* m_timerId = nullptr;
    QLabel* m_commentLabel = nullptr;
    QPlainTextEdit* m_comment = nullptr; // a CommentBox
    QPushButton* m_update = nullptr;
    QPushButton* m_new = nullptr;
    QPushButton* m_editEvent = nullptr;
    QPushButton* m_editTimer = nullptr;
    QPushButton* m_renameEvent = nullptr;
    QPushButton* m_renameTimer = nullptr;
    QPushButton* m_deleteEvent = nullptr;
    QPushButton* m_deleteTimer = nullptr;
    QPushButton* m_newTimer = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QMenu* m_eventMenu = nullptr;
    // Leaving an event or timer whose comment was typed but not stored with
    // Update asks whether to store it.
    void offerToStoreComment();
    struct CommentOwner
    {
        int mode = 0; // the comment mode the box was filled for
        int id = -1; // of the event or timer
        QString loaded; // the box's text when it was filled or stored
    };
    CommentOwner m_commentOwner;
    qint16 m_commentMode = CommentNone;
    bool m_refreshing = false;
};

} // namespace tarvo::gui
