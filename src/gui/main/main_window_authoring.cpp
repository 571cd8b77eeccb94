// Commands that author many places at once: Replace across the project, and
// Copy and Paste of events between projects through the clipboard.
#include "main/main_window.h"
#include "model/project_document.h"
#include "tools/replace_dialog.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QMenu>

namespace tarvo::gui {

void MainWindow::buildReplaceCommand(QMenu* edit)
{
    addCommand(edit, "mReplace", QStringLiteral("R&eplace..."), [this] {
        showReplaceDialog();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
}

void MainWindow::showReplaceDialog()
{
    // The wizard's pages hold the event being edited apart from the project
    // until it is finished; a replace beneath them would be undone by it.
    if (m_wizard->isRunning()) {
        m_workspace.prompter.message(
            QStringLiteral("Finish or cancel the event being edited before replacing texts."),
            Prompter::Icon::Information);
        return;
    }
    ReplaceDialog dialog(*m_document, this);
    dialog.setFindText(m_findText);
    dialog.exec();
}

} // namespace tarvo::gui
