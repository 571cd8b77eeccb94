#pragma once

#include "editing/wizard_ops.h"

#include <QObject>

class QTabWidget;

namespace tarvo {
class ProjectDocument;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

class ActionPage;
class ConditionPage;
class TriggerPage;

// The event wizard: pages 1 to 3 of the main window's tab control (trigger,
// conditions, actions). The main page starts it; it tells the main page when
// it starts and when it ends. A whole session, from New or Edit to its end,
// is one step of the project's history.
class EventWizard : public QObject
{
    Q_OBJECT
public:
    // Adds the trigger, conditions and actions pages to `tab1` as pages 1, 2, 3.
    EventWizard(ProjectDocument& document, QTabWidget* tab1, QObject* parent = nullptr);

    // True while a new event, an edited event or an edited timer is open.
    bool isRunning() const;
    // The condition-update flag: an existing condition is open for editing.
    bool conditionUpdating() const;

    // "&New" on the main page: asks the title, then opens the trigger page.
    void startNewEvent();
    void editEvent(int eventIndex);
    void editTimer(int timerIndex);

    // After a project reset or load: refill the kind combos and argument lists
    // and put the pages in their no-event-being-edited state.
    void resetPages();

    // The page of a part of the open event (1 trigger, 2 conditions, 3
    // actions) with line `item` of its list selected.
    void showPage(int page, int item);

    // An event made from an argument box while this wizard makes a new one
    // took the place behind the counted events; the one being made moved to
    // the new place behind them.
    void newEventMoved();

    WizardMode mode() const { return m_mode; }
    int editedEvent() const { return m_eventIndex; }
    int editedTimer() const { return m_timerIndex; }

    TriggerPage* triggerPage() const { return m_triggerPage; }
    ConditionPage* conditionPage() const { return m_conditionPage; }
    ActionPage* actionPage() const { return m_actionPage; }

Q_SIGNALS:
    // The main page disables its lists and buttons.
    void started();
    // The wizard ended (finished or cancelled): the main page enables itself
    // again.
    void finished();

private:
    void begin(WizardMode mode, const QString& heading, const QString& name);
    void next(int page);
    void finishTimer();
    void done();
    void cancel();
    void end();
    void clearPages();

    ProjectDocument& m_document;
    Workspace& m_workspace;
    QTabWidget* m_tab1;
    TriggerPage* m_triggerPage;
    ConditionPage* m_conditionPage;
    ActionPage* m_actionPage;
    WizardMode m_mode = WizardMode::None;
    int m_eventIndex = -1;
    int m_timerIndex = -1;
};

} // namespace tarvo::gui
