#include "wizard/event_wizard.h"

#include <QTabWidget>
#include <QWidget>

// Placeholder pages until the wizard lands; replaced by the real pages.
namespace tarvo::gui {

EventWizard::EventWizard(Workspace& workspace, QTabWidget* tab1, QObject* parent)
    : QObject(parent)
    , m_workspace(workspace)
    , m_tab1(tab1)
{
    m_tab1->addTab(new QWidget, tr("Trigger"));
    m_tab1->addTab(new QWidget, tr("Conditions"));
    m_tab1->addTab(new QWidget, tr("Actions"));
}

bool EventWizard::isRunning() const
{
    return false;
}

bool EventWizard::conditionUpdating() const
{
    return false;
}

void EventWizard::startNewEvent() { }
void EventWizard::editEvent(int) { }
void EventWizard::editTimer(int) { }
void EventWizard::resetPages() { }

} // namespace tarvo::gui
