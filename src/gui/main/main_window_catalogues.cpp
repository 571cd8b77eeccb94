// Script > Reload Catalogues: the catalogue files read again without a
// restart (the rule lives in the core command ReloadCatalogues).
#include "editing/catalogue_reload.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "records/project.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QStatusBar>

namespace tarvo::gui {

void MainWindow::reloadCatalogues()
{
    // The wizard's pages hold copies of kinds that are about to change.
    if (m_wizard->isRunning()) {
        m_workspace.prompter.message(QStringLiteral("Finish the event with \"Done!\" or "
                                                    "\"Cancel\" before reloading the "
                                                    "catalogues."),
            Prompter::Icon::Exclamation);
        return;
    }
    m_mainPage->commitCommentBox();
    const int event = m_mainPage->currentEvent();
    const int timer = m_mainPage->currentTimer();
    const qint16 commentMode = m_mainPage->commentMode();
    if (!ReloadCatalogues(*m_document))
        return;
    m_wizard->resetPages();
    // The lists were filled afresh: the author stays where they were.
    if (event >= 0)
        m_mainPage->selectEvent(event);
    else if (timer >= 0)
        m_mainPage->selectTimer(timer);
    if (commentMode == CommentScript)
        m_mainPage->showScriptComment();
    statusBar()->showMessage(
        QStringLiteral("Catalogues reloaded: %1 condition kinds, %2 action kinds.")
            .arg(m_workspace.conditionCatalogue.size())
            .arg(m_workspace.actionCatalogue.size()),
        15000);
}

} // namespace tarvo::gui
