// The menu commands of the main window: the File menu, the Script menu and
// the dialogs. The project rules live in the core project commands; every
// command runs guarded (see MainWindow::addCommand).
#include "catalogue/workspace.h"
#include "compile/compile_command.h"
#include "document/auto_saver.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/project_recovery.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "shell/folder_opener.h"
#include "simulate/dry_run_dock.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTabWidget>

namespace tarvo::gui {

namespace {
const QString kFileFilter = QStringLiteral("Script files|*.vnsc");
}

void MainWindow::projectReplaced(bool opened)
{
    m_wizard->resetPages();
    m_tabs->setCurrentIndex(0);
    // A project that could be read shows its script comment, as "Show
    // Description" would, so saving at once keeps it. After a faulty file
    // the box is as the reset left it: empty, and storing nothing.
    if (opened)
        m_mainPage->showScriptComment();
    else
        m_mainPage->clearCommentBox();
    m_dryRun->loadScenarioBesideProject();
}

void MainWindow::newProject()
{
    if (!confirmGivingUp())
        return;
    showLoadNotes({});
    m_mainPage->setEditingEnabled(false);
    const bool created = tarvo::newProject(*m_document);
    projectReplaced(created);
    m_mainPage->setEditingEnabled(created);
}

void MainWindow::openProject()
{
    if (!confirmGivingUp())
        return;
    const QString path
        = m_workspace.prompter.openFileName(QStringLiteral("Open script..."), kFileFilter);
    if (path.isEmpty())
        return;
    openProjectFile(path);
}

bool MainWindow::openProjectFile(const QString& path)
{
    const OpenResult result = tarvo::openProjectFile(*m_document, path);
    // A file refused before it was read leaves the open project as it was.
    if (!result.replaced)
        return false;
    const bool opened = result.opened;
    if (opened)
        rememberFile(path);
    showLoadNotes(result.notes);
    projectReplaced(opened);
    m_mainPage->setEditingEnabled(true);
    return opened;
}

bool MainWindow::offerRecovery()
{
    if (!tarvo::offerRecovery(*m_document, *m_recovery))
        return false;
    projectReplaced(true);
    m_mainPage->setEditingEnabled(true);
    return true;
}

void MainWindow::saveProject()
{
    m_mainPage->commitCommentBox();
    if (saveProjectCommand(*m_document))
        rememberFile(m_workspace.project.filePath);
}

void MainWindow::saveProjectAs()
{
    m_mainPage->commitCommentBox();
    if (SaveProjectAs(*m_document))
        rememberFile(m_workspace.project.filePath);
}

void MainWindow::compile()
{
    // The output is made from work that may not be saved yet.
    m_autoSaver->saveNow();
    // Guards against a second compile started from the menu while the first
    // one lets the interface process its events.
    m_compile->setEnabled(false);
    m_compiling = true;
    m_panels[2]->setText(QStringLiteral("Compiling..."));
    CompileOptions options;
    options.progress = [] { QCoreApplication::processEvents(); };
    const auto finished = qScopeGuard([this] {
        m_compiling = false;
        showModified();
        m_compile->setEnabled(true);
    });
    const CompileOutcome outcome = CompileProject(m_workspace, m_workspace.prompter, options);
    for (const QString& warning : outcome.warnings)
        AddStatusLine(QStringLiteral("warning"), QStringLiteral("Warning: ") + warning);
    if (outcome.incomplete)
        AddStatusLine(QStringLiteral("error"), outcome.message);
}

void MainWindow::showDescription()
{
    m_tabs->setCurrentIndex(0);
    m_mainPage->showScriptComment();
}

void MainWindow::openSourceDirectory()
{
    if (m_workspace.project.name.isEmpty()) {
        m_workspace.prompter.beep();
        return;
    }
    m_opener->openFolder(m_workspace.paths.projectsDir() + m_workspace.project.name);
}

void MainWindow::showResourceDialog(
    void (*show)(ProjectDocument&, QWidget*, const std::function<void(int, int)>&))
{
    show(*m_document, this, [this](int row, int position) { findReferences(row, position); });
}

void MainWindow::openProgramFolder()
{
    m_opener->openFolder(m_workspace.paths.programDir);
}

void MainWindow::showOptions()
{
    OptionsDialog dialog(m_options, this);
    if (dialog.exec() == QDialog::Accepted)
        m_options = dialog.options();
}

} // namespace tarvo::gui
