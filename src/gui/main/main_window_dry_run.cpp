// The dry run: Script > Dry Run shows the dock; "Why not?" on an event
// answers from the run.
#include "catalogue/project_places.h"
#include "document/project_document.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "simulate/dry_run_dock.h"
#include "tools/place_list_dock.h"
#include "ui/prompter.h"

#include <QAction>
#include <QMenu>

namespace tarvo::gui {

void MainWindow::buildDryRun(QMenu* script)
{
    m_dryRun = new DryRunDock(m_workspace, m_workspace.prompter, this);
    addDockWidget(Qt::BottomDockWidgetArea, m_dryRun);
    // With the issues and results, where a wide strip suits the transcript.
    tabifyDockWidget(m_results, m_dryRun);
    m_dryRun->hide();
    connect(m_document.get(), &ProjectDocument::changed, m_dryRun, &DryRunDock::projectChanged);
    connect(
        m_dryRun, &DryRunDock::eventChosen, this, guard(m_workspace.prompter, [this](int event) {
            goToPlace({ProjectPlace::Owner::Event, event});
        }));

    QAction* show = m_dryRun->toggleViewAction();
    show->setText(QStringLiteral("Dry Run"));
    show->setObjectName(QStringLiteral("mDryRun"));
    show->setShortcut(QKeySequence(Qt::Key_F6));
    script->addAction(show);
    connect(show, &QAction::triggered, m_dryRun, [this](bool on) {
        if (on)
            m_dryRun->raise();
    });

    QAction* why = m_mainPage->eventMenu()->addAction(QStringLiteral("Why not?"));
    why->setObjectName(QStringLiteral("mWhyNot"));
    connect(why, &QAction::triggered, this, guard(m_workspace.prompter, [this] { whyNot(); }));
}

void MainWindow::whyNot()
{
    const int event = m_mainPage->currentEvent();
    if (event < 0) {
        m_workspace.prompter.beep();
        return;
    }
    const QStringList lines = m_dryRun->whyNot(event);
    m_workspace.prompter.message(lines.join(QStringLiteral("\n\n")), Prompter::Icon::Information,
        Prompter::Buttons::Ok, QStringLiteral("Why not?"));
}

} // namespace tarvo::gui
