#include "wizard/event_wizard.h"

#include "base/checked.h"
#include "catalogue/workspace.h"
#include "document/project_document.h"
#include "editing/event_title.h"
#include "shell/guard.h"
#include "ui/prompter.h"
#include "wizard/action_page.h"
#include "wizard/condition_page.h"
#include "wizard/trigger_page.h"

#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

namespace tarvo::gui {

namespace {

constexpr int kMainPage = 0;
constexpr int kTriggerPage = 1;
constexpr int kConditionsPage = 2;
constexpr int kActionsPage = 3;

} // namespace

EventWizard::EventWizard(ProjectDocument& document, QTabWidget* tab1, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_tab1(tab1)
    , m_triggerPage(new TriggerPage(document))
    , m_conditionPage(new ConditionPage(document))
    , m_actionPage(new ActionPage(document))
{
    m_tab1->insertTab(kTriggerPage, m_triggerPage, tr("Trigger"));
    m_tab1->insertTab(kConditionsPage, m_conditionPage, tr("Conditions"));
    m_tab1->insertTab(kActionsPage, m_actionPage, tr("Actions"));

    Prompter& prompter = m_workspace.prompter;
    connect(m_triggerPage, &TriggerPage::nextRequested, this,
        guard(prompter, [this] { next(kConditionsPage); }));
    connect(m_triggerPage, &TriggerPage::finishRequested, this,
        guard(prompter, [this] { finishTimer(); }));
    connect(
        m_triggerPage, &TriggerPage::cancelRequested, this, guard(prompter, [this] { cancel(); }));
    connect(m_conditionPage, &ConditionPage::nextRequested, this,
        guard(prompter, [this] { next(kActionsPage); }));
    connect(m_conditionPage, &ConditionPage::wizardCancelRequested, this,
        guard(prompter, [this] { cancel(); }));
    connect(m_actionPage, &ActionPage::doneRequested, this, guard(prompter, [this] { done(); }));
    connect(m_actionPage, &ActionPage::wizardCancelRequested, this,
        guard(prompter, [this] { cancel(); }));
    // Escape on a page does what the page's Cancel button does: it leaves the
    // condition or action being composed, or the wizard, asking as Cancel asks.
    for (const auto& [page, cancelName] :
        {std::pair<QWidget*, const char*> {m_triggerPage, "Command25"},
            {m_conditionPage, "Command24"}, {m_actionPage, "Command23"}}) {
        auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), page);
        escape->setContext(Qt::WidgetWithChildrenShortcut);
        connect(escape, &QShortcut::activated, page, [page, cancelName] {
            auto* button = page->findChild<QPushButton*>(QLatin1String(cancelName));
            if (button && button->isEnabled() && button->isVisible())
                button->click();
        });
    }
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
    clearPages();
    m_triggerPage->SelectTriggerKind(0);
    m_document.beginSession(QStringLiteral("New Event"));
    bool titled = false;
    try {
        m_document.edit(QStringLiteral("New Event"), [&] {
            Project& project = m_workspace.project;
            m_eventIndex = prepareNewEventSlot(project);
            titled = AskEventTitle(project, m_eventIndex, false, m_workspace.prompter);
        });
    } catch (...) {
        m_document.cancelSession();
        m_eventIndex = -1;
        clearPages();
        throw;
    }
    if (!titled) {
        // Nothing happened that the history needs to know about.
        m_document.cancelSession();
        m_eventIndex = -1;
        clearPages();
        return;
    }
    begin(WizardMode::NewEvent, QStringLiteral("New event:"),
        m_workspace.project.events.at(m_eventIndex).name);
}

void EventWizard::editEvent(int eventIndex)
{
    Project& project = m_workspace.project;
    if (isRunning() || eventIndex < 0
        || eventIndex >= heldCount(project.eventCount, project.events))
        return;
    const EventRecord& event = project.events.at(eventIndex);
    clearPages();
    m_eventIndex = eventIndex;
    m_triggerPage->loadTrigger(triggerOf(event));
    m_document.beginSession(QStringLiteral("Edit Event"));
    begin(WizardMode::EditEvent, QStringLiteral("Edit event:"), event.name);
}

void EventWizard::editTimer(int timerIndex)
{
    Project& project = m_workspace.project;
    if (isRunning() || timerIndex < 0
        || timerIndex >= heldCount(project.timerCount, project.timers))
        return;
    const TimerRecord& timer = project.timers.at(timerIndex);
    clearPages();
    m_timerIndex = timerIndex;
    m_triggerPage->loadTrigger(triggerOf(timer));
    m_document.beginSession(QStringLiteral("Edit Timer"));
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

void EventWizard::showPage(int page, int item)
{
    if (!isRunning())
        return;
    m_tab1->setCurrentIndex(page);
    if (page == kConditionsPage)
        m_conditionPage->selectLine(item);
    else if (page == kActionsPage)
        m_actionPage->selectLine(item);
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
    const StoredTrigger trigger = m_triggerPage->currentTrigger();
    m_document.edit(QStringLiteral("Edit Timer"),
        [&] { finishTimerEdit(m_workspace.project, m_timerIndex, trigger); });
    end();
}

void EventWizard::done()
{
    if (m_mode != WizardMode::NewEvent && m_mode != WizardMode::EditEvent)
        return;
    const StoredTrigger trigger = m_triggerPage->currentTrigger();
    m_document.edit(QStringLiteral("Done"), [&] {
        const FinishOutcome outcome = FinishEventWizard(
            m_workspace.project, m_mode, m_eventIndex, trigger, m_workspace.prompter);
        // A registered new event refills the events list.
        if (outcome == FinishOutcome::EventAdded)
            m_document.showEventListAfresh();
        return outcome;
    });
    end();
}

void EventWizard::cancel()
{
    if (!isRunning())
        return;
    // A cancelled new event leaves nothing behind. A cancelled edit keeps the
    // conditions and actions already stored on their pages (only the trigger
    // stays as it was), so those are kept as one step.
    if (m_mode == WizardMode::NewEvent)
        m_document.cancelSession();
    end();
}

void EventWizard::end()
{
    m_document.endSession();
    m_mode = WizardMode::None;
    m_eventIndex = -1;
    m_timerIndex = -1;
    clearPages();
    m_tab1->setCurrentIndex(kMainPage);
    Q_EMIT finished();
}

void EventWizard::newEventMoved()
{
    if (m_mode != WizardMode::NewEvent)
        return;
    m_eventIndex = m_workspace.project.eventCount;
    m_conditionPage->eventMoved(m_eventIndex);
    m_actionPage->eventMoved(m_eventIndex);
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
