// Keeping the author's work: what is given up unsaved is kept as discarded
// work and can be recovered; what a load left out is listed with its line.
#include "document/discarded_work.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/project_recovery.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "tools/place_list_dock.h"

namespace tarvo::gui {

bool MainWindow::confirmGivingUp(bool exiting)
{
    // The questions are the editor's own, unchanged; what a Yes gives up is
    // kept all the same.
    if (!(exiting ? confirmExit(m_workspace) : confirmDiscard(m_workspace)))
        return false;
    keepDiscardedWork(*m_document, *m_discarded);
    return true;
}

void MainWindow::recoverDiscardedWork()
{
    if (m_discarded->entries().isEmpty()) {
        tarvo::recoverDiscardedWork(*m_document, *m_discarded);
        return;
    }
    if (!confirmGivingUp())
        return;
    if (!tarvo::recoverDiscardedWork(*m_document, *m_discarded))
        return;
    showLoadNotes({});
    projectReplaced(true);
    m_mainPage->setEditingEnabled(true);
}

void MainWindow::showLoadNotes(const QList<FileError>& notes)
{
    m_loadNotes.clear();
    for (const FileError& note : notes)
        m_loadNotes.append(note.message());
    if (!notes.isEmpty())
        checkProject();
}

void MainWindow::addNote(const QString& text)
{
    m_loadNotes.append(text);
    checkProject();
}

} // namespace tarvo::gui
