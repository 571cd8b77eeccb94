#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPlainTextEdit;
class QPushButton;

namespace tarvo {
struct Workspace;
}

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
// It shows the project and calls the core list routines; the wizard pages
// take over for New and Edit.
class MainPage : public QWidget
{
    Q_OBJECT
public:
    MainPage(Workspace& workspace, const StatusPanels& panels, QWidget* parent = nullptr);

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
    // Stores the comment box as the comment mode says; called before saving.
    void commitCommentBox();
    // After New or Open: everything shown again from the project.
    void reloadFromProject();
    // The editing controls stay off until a project is created or opened.
    void setEditingEnabled(bool enabled);

    // The events list's pop-up menu (hidden menu of the menu bar).
    QMenu* eventMenu() const { return m_eventMenu; }

private:
    void buildControls();
    void buildLayout();
    void connectControls();
    void setListsEnabled(bool enabled);
    // Runs a core step; a fault in the project's data is shown, never thrown
    // through the event loop. Returns whether the step succeeded.
    bool guarded(const std::function<void()>& step);

    int selectedEvent() const;
    int selectedTimer() const;
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
    void copyEvent();
    void moveEvent(int direction);
    void updateComment();
    void wizardFinished();

    Workspace& m_workspace;
    StatusPanels m_panels;
    EventWizard* m_wizard = nullptr;
    bool m_filling = false;
    bool m_editingEnabled = false;
    bool m_wizardRunning = false;

    QListWidget* m_events = nullptr;
    QListWidget* m_timers = nullptr;
    QLabel* m_eventsHeading = nullptr;
    QLabel* m_timersHeading = nullptr;
    QLabel* m_eventId = nullptr;
    QLabel* m_timerId = nullptr;
    QLabel* m_commentLabel = nullptr;
    QPlainTextEdit* m_comment = nullptr;
    QPushButton* m_update = nullptr;
    QPushButton* m_new = nullptr;
    QPushButton* m_editEvent = nullptr;
    QPushButton* m_editTimer = nullptr;
    QPushButton* m_renameEvent = nullptr;
    QPushButton* m_renameTimer = nullptr;
    QPushButton* m_deleteEvent = nullptr;
    QPushButton* m_deleteTimer = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QMenu* m_eventMenu = nullptr;
};

} // namespace tarvo::gui
