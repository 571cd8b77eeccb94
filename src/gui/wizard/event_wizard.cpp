#include "wizard/event_wizard.h"

#include "editing/event_title.h"
#include "model/checked.h"
#include "model/workspace.h"
#include "ui/prompter.h"
#include "wizard/action_page.h"
#include "wizard/condition_page.h"
#include "wizard/trigger_page.h"

#include <QTabWidget>

namespace tarvo::gui {

namespace {

constexpr int kMainPage = 0;
constexpr int kTriggerPage = 1;
constexpr int kConditionsPage = 2;
constexpr int kActionsPage = 3;

} // namespace

EventWizard::EventWizard(Workspace& workspace, QTabWidget* tab1, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_tab1(tab1)
    , m_triggerPage(new TriggerPage(workspace))
    , m_conditionPage(new ConditionPage(workspace))
    , m_actionPage(new ActionPage(workspace))
{
    m_tab1->insertTab(kTriggerPage, m_triggerPage, tr("Trigger"));
    m_tab1->insertTab(kConditionsPage, m_conditionPage, tr("Conditions"));
    m_tab1->insertTab(kActionsPage, m_actionPage, tr("Actions"));

    connect(m_triggerPage, &TriggerPage::nextRequested, this, [this] { next(kConditionsPage); });
    connect(m_triggerPage, &TriggerPage::finishRequested, this, &EventWizard::finishTimer);
    connect(m_triggerPage, &TriggerPage::cancelRequested, this, &EventWizard::cancel);
    connect(m_conditionPage, &ConditionPage::nextRequested, this, [this] { next(kActionsPage); });
    connect(m_conditionPage, &ConditionPage::wizardCancelRequested, this, &EventWizard::cancel);
    connect(m_actionPage, &ActionPage::doneRequested, this, &EventWizard::done);
    connect(m_actionPage, &ActionPage::wizardCancelRequested, this, &EventWizard::cancel);
    clearPages();
}

bool EventWizard::isRunning() const
{
    return m_mode != WizardMode::None;
}

bool EventWizard::conditionUpdating() const
{
    return m_conditionPage->isUpdating();
}

void EventWizard::startNewEvent()
{
    if (isRunning())
        return;
    Project& project = m_workspace.project;
    clearPages();
    m_triggerPage->SelectTriggerKind(0);
    const int index = prepareNewEventSlot(project);
    m_eventIndex = index;
    if (!AskEventTitle(project, index, false, m_workspace.prompter)) {
        m_eventIndex = -1;
        clearPages();
        return;
    }
    begin(WizardMode::NewEvent, QStringLiteral("New event:"), project.events[index].name);
}

void EventWizard::editEvent(int eventIndex)
{
    Project& project = m_workspace.project;
    if (isRunning() || eventIndex < 0 || eventIndex >= project.eventCount)
        return;
    const EventRecord& event = at(project.events, eventIndex, "events");
    clearPages();
    m_eventIndex = eventIndex;
    m_triggerPage->loadTrigger(triggerOf(event));
    begin(WizardMode::EditEvent, QStringLiteral("Edit event:"), event.name);
}

void EventWizard::editTimer(int timerIndex)
{
    Project& project = m_workspace.project;
    if (isRunning() || timerIndex < 0 || timerIndex >= project.timerCount)
        return;
    const TimerRecord& timer = at(project.timers, timerIndex, "timers");
    clearPages();
    m_timerIndex = timerIndex;
    m_triggerPage->loadTrigger(triggerOf(timer));
    begin(WizardMode::EditTimer, QStringLiteral("Edit timer:"), timer.name);
}

void EventWizard::resetPages()
{
    m_conditionPage->fillKindCombo();
    m_actionPage->fillKindCombo();
    if (isRunning()) {
        // The project under the open wizard is gone: nothing is stored.
        end();
        return;
    }
    clearPages();
}

void EventWizard::begin(WizardMode mode, const QString& heading, const QString& name)
{
    m_mode = mode;
    const bool timer = mode == WizardMode::EditTimer;
    m_workspace.project.selectedEvent = static_cast<qint16>(m_eventIndex);
    m_workspace.project.selectedTimer = static_cast<qint16>(m_timerIndex);
    m_triggerPage->setHeading(heading, name);
    m_triggerPage->setTimerEditing(timer);
    m_conditionPage->setHeading(heading, name);
    m_actionPage->setHeading(heading, name);
    m_conditionPage->loadEvent(timer ? -1 : m_eventIndex);
    m_actionPage->loadEvent(timer ? -1 : m_eventIndex);
    m_triggerPage->setEnabled(true);
    m_conditionPage->setEnabled(!timer);
    m_actionPage->setEnabled(!timer);
    Q_EMIT started();
    m_tab1->setCurrentIndex(kTriggerPage);
}

void EventWizard::next(int page)
{
    if (isRunning())
        m_tab1->setCurrentIndex(page);
}

void EventWizard::finishTimer()
{
    if (m_mode != WizardMode::EditTimer)
        return;
    try {
        finishTimerEdit(m_workspace.project, m_timerIndex, m_triggerPage->currentTrigger());
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
        return;
    }
    end();
}

void EventWizard::done()
{
    if (m_mode != WizardMode::NewEvent && m_mode != WizardMode::EditEvent)
        return;
    try {
        FinishEventWizard(m_workspace.project, m_mode, m_eventIndex,
            m_triggerPage->currentTrigger(), m_workspace.prompter);
    } catch (const DataError& error) {
        m_workspace.prompter.message(error.sentence(), Prompter::Icon::Critical);
        return;
    }
    end();
}

void EventWizard::cancel()
{
    // Nothing is restored: changes already stored on the condition and action
    // pages stay, only the trigger is left as it was.
    if (isRunning())
        end();
}

void EventWizard::end()
{
    m_mode = WizardMode::None;
    m_eventIndex = -1;
    m_timerIndex = -1;
    m_workspace.project.selectedEvent = -1;
    m_workspace.project.selectedTimer = -1;
    clearPages();
    m_tab1->setCurrentIndex(kMainPage);
    Q_EMIT finished();
}

void EventWizard::clearPages()
{
    m_triggerPage->SelectTriggerKind(-1);
    m_triggerPage->setHeading(QStringLiteral("New event:"), QString());
    m_triggerPage->setTimerEditing(false);
    m_conditionPage->setHeading(QStringLiteral("New event:"), QString());
    m_actionPage->setHeading(QStringLiteral("New event:"), QString());
    m_conditionPage->loadEvent(-1);
    m_actionPage->loadEvent(-1);
    m_triggerPage->setEnabled(false);
    m_conditionPage->setEnabled(false);
    m_actionPage->setEnabled(false);
}

} // namespace tarvo::gui
