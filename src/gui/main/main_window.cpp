#include "main/main_window.h"

#include "catalogue/project_lists.h"
#include "catalogue/workspace.h"
#include "compile/compile_command.h"
#include "dialogs/resource_dialogs.h"
#include "document/auto_saver.h"
#include "document/discarded_work.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/recovery_store.h"
#include "main/file_watch.h"
#include "main/keyboard_help.h"
#include "main/main_page.h"
#include "shell/folder_opener.h"
#include "shell/guard.h"
#include "shell/status_window.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

namespace tarvo::gui {

namespace {

std::unique_ptr<Workspace> startedWorkspace(const QString& programDir, Prompter& prompter)
{
    auto workspace = std::make_unique<Workspace>(programDir, prompter);
    ResetProject(*workspace);
    return workspace;
}

} // namespace

MainWindow::MainWindow(Workspace& workspace, FolderOpener* opener, QWidget* parent)
    : QMainWindow(parent)
    , m_workspace(workspace)
    , m_document(std::make_unique<ProjectDocument>(workspace))
    , m_ownOpener(opener ? nullptr : std::make_unique<DesktopFolderOpener>())
    , m_opener(opener ? opener : m_ownOpener.get())
    // A window of its own, not a child, so it can stay open beside this one.
    , m_statusWindow(std::make_unique<StatusWindow>(workspace.prompter))
{
    build();
}

MainWindow::MainWindow(
    const QString& programDir, Prompter& prompter, FolderOpener* opener, QWidget* parent)
    : MainWindow(startedWorkspace(programDir, prompter), opener, parent)
{
}

MainWindow::MainWindow(std::unique_ptr<Workspace> owned, FolderOpener* opener, QWidget* parent)
    : QMainWindow(parent)
    , m_ownWorkspace(std::move(owned))
    , m_workspace(*m_ownWorkspace)
    , m_document(std::make_unique<ProjectDocument>(*m_ownWorkspace))
    , m_ownOpener(opener ? nullptr : std::make_unique<DesktopFolderOpener>())
    , m_opener(opener ? opener : m_ownOpener.get())
    , m_statusWindow(std::make_unique<StatusWindow>(m_workspace.prompter))
{
    build();
}

void MainWindow::build()
{
    setObjectName(QStringLiteral("Form1"));
    buildStatusBar();

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("Tab1"));
    m_mainPage = new MainPage(
        *m_document, StatusPanels {m_panels[0], m_panels[1], m_panels[2], m_panels[3]}, m_tabs);
    m_tabs->addTab(m_mainPage, QStringLiteral("Main"));
    m_wizard = new EventWizard(*m_document, m_tabs, this);
    m_mainPage->setWizard(m_wizard);
    setCentralWidget(m_tabs);
    connect(m_tabs, &QTabWidget::currentChanged, this, &MainWindow::tabChanged);

    buildTools();
    buildArgumentHelper();
    buildMenus();
    connect(m_statusWindow.get(), &StatusWindow::closedByUser, this,
        [this] { m_showStatus->setChecked(false); });

    connect(m_document.get(), &ProjectDocument::historyChanged, this, &MainWindow::updateUndoItems);
    m_recovery = std::make_unique<RecoveryStore>(RecoveryStore::defaultFolder());
    m_autoSaver = std::make_unique<AutoSaver>(*m_document, *m_recovery);
    m_discarded = std::make_unique<DiscardedWork>(DiscardedWork::defaultFolder());
    new FileWatch(*m_document, this);
    // A copy that cannot be written must not interrupt the work.
    connect(m_autoSaver.get(), &AutoSaver::failed, this,
        [this](const QString& message) { statusBar()->showMessage(message, 15000); });
    connect(m_document.get(), &ProjectDocument::modifiedChanged, this, &MainWindow::showModified);
    connect(m_document.get(), &ProjectDocument::nameChanged, this, &MainWindow::updateCaption);

    updateCaption();
    m_mainPage->reloadFromProject();
    m_wizard->resetPages();
    updateUndoItems();
    // Every page keeps its controls apart at this size, the trigger page's
    // thirteen kinds included. The floor is the pages'; the window's own
    // minimum follows from it and from the docks that are open, so no page
    // is squeezed below what its captions need.
    m_tabs->setMinimumSize(880, 500);
    resize(1000, 680);
    readSettings();
}

MainWindow::~MainWindow() = default;

void MainWindow::buildStatusBar()
{
    static const char* const names[4]
        = {"StatusBar1_Panel1", "StatusBar1_Panel2", "StatusBar1_Panel3", "StatusBar1_Panel4"};
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setSizeGripEnabled(true);
    for (int i = 0; i < 4; ++i) {
        m_panels[i] = new QLabel(this);
        m_panels[i]->setObjectName(QLatin1String(names[i]));
        m_panels[i]->setFrameShape(QFrame::StyledPanel);
        m_panels[i]->setMinimumWidth(110);
        // Fixed panels on the right leave room on the left for the bar's
        // passing messages (the program folder, a recovery copy that failed).
        statusBar()->addPermanentWidget(m_panels[i]);
    }
}

QAction* MainWindow::addItem(QMenu* menu, const char* name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
}

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("mFile"));
    addCommand(file, "mNew", QStringLiteral("&New..."), [this] {
        newProject();
    })->setShortcut(QKeySequence::New);
    addCommand(file, "mOpen", QStringLiteral("Open..."), [this] {
        openProject();
    })->setShortcut(QKeySequence::Open);
    addCommand(file, "mSave", QStringLiteral("Save"), [this] {
        saveProject();
    })->setShortcut(QKeySequence::Save);
    addCommand(file, "mSaveAs", QStringLiteral("Save As..."), [this] {
        saveProjectAs();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    buildCompareMenu(file);
    buildRecentFiles(file);
    addCommand(file, "mRecoverDiscarded", QStringLiteral("Recover &Discarded Work..."),
        [this] { recoverDiscardedWork(); });
    file->addSeparator();
    addCommand(file, "mExit", QStringLiteral("Exit"), [this] {
        close();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    buildEditMenu();
    QMenu* edit = findChild<QMenu*>(QStringLiteral("mEdit"));
    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
    view->setObjectName(QStringLiteral("mView"));

    QMenu* script = menuBar()->addMenu(QStringLiteral("&Script"));
    script->setObjectName(QStringLiteral("mScript"));
    m_compile = addCommand(script, "mCompile", QStringLiteral("Compile"), [this] { compile(); });
    m_compile->setShortcut(QKeySequence(Qt::Key_F5));
    addCommand(script, "mScriptDescription", QStringLiteral("Show Description"),
        [this] { showDescription(); });
    addCommand(script, "mDirectory", QStringLiteral("Open source directory"),
        [this] { openSourceDirectory(); });
    buildToolMenus(edit, view, script);
    buildDryRun(script);
    addCommand(script, "mReloadCatalogues", QStringLiteral("Reload Catalogues"),
        [this] { reloadCatalogues(); });

    QMenu* resources = menuBar()->addMenu(QStringLiteral("&Resources"));
    resources->setObjectName(QStringLiteral("mResources"));
    addCommand(resources, "mSounds", QStringLiteral("Sounds..."),
        [this] { showResourceDialog(&showSoundsDialog); });
    addCommand(resources, "mMessages", QStringLiteral("Messages..."),
        [this] { showResourceDialog(&showMessagesDialog); });
    addCommand(resources, "mVariables", QStringLiteral("Variables..."),
        [this] { showResourceDialog(&showVariablesDialog); });

    QMenu* options = menuBar()->addMenu(QStringLiteral("&Options"));
    options->setObjectName(QStringLiteral("mOptions"));
    m_showStatus = addItem(options, "mShowStatus", QStringLiteral("Show Status Window"));
    m_showStatus->setCheckable(true);
    connect(m_showStatus, &QAction::toggled, m_statusWindow.get(), &QWidget::setVisible);
    options->addSeparator();
    addCommand(options, "mOptionsDialog", QStringLiteral("Options..."), [this] { showOptions(); });
    addCommand(options, "mProgramFolder", QStringLiteral("Open program folder"),
        [this] { openProgramFolder(); });

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("mHelp"));
    addCommand(help, "mKeyboardShortcuts", QStringLiteral("Keyboard Shortcuts"), [this] {
        m_workspace.prompter.message(keyboardShortcutsText(*menuBar()), Prompter::Icon::Information,
            Prompter::Buttons::Ok, QStringLiteral("Keyboard Shortcuts"));
    });
    // F10 opens the first menu, as in other desktop programs.
    auto* menuKey = new QAction(this);
    menuKey->setObjectName(QStringLiteral("mMenuBarKey"));
    menuKey->setShortcut(QKeySequence(Qt::Key_F10));
    addAction(menuKey);
    connect(menuKey, &QAction::triggered, this,
        [this, file] { menuBar()->setActiveAction(file->menuAction()); });

    // The events list's pop-up menu sits in the menu bar as a hidden menu.
    QAction* hidden = menuBar()->addMenu(m_mainPage->eventMenu());
    hidden->setVisible(false);
}

void MainWindow::buildEditMenu()
{
    QMenu* edit = menuBar()->addMenu(QStringLiteral("Ed&it"));
    edit->setObjectName(QStringLiteral("mEdit"));
    m_undo = addCommand(edit, "mUndo", QStringLiteral("&Undo"), [this] { m_document->undo(); });
    m_undo->setShortcut(QKeySequence::Undo);
    m_redo = addCommand(edit, "mRedo", QStringLiteral("&Redo"), [this] { m_document->redo(); });
    m_undo->setIconText(QStringLiteral("Undo"));
    m_redo->setIconText(QStringLiteral("Redo"));
    m_redo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    buildClipboardCommands(edit);
}

void MainWindow::updateUndoItems()
{
    const auto named = [](const QString& base, const QString& label) {
        return label.isEmpty() ? base : base + u' ' + label;
    };
    m_undo->setEnabled(m_document->canUndo());
    m_undo->setText(named(
        QStringLiteral("&Undo"), m_document->canUndo() ? m_document->undoLabel() : QString()));
    m_redo->setEnabled(m_document->canRedo());
    m_redo->setText(named(
        QStringLiteral("&Redo"), m_document->canRedo() ? m_document->redoLabel() : QString()));
}

void MainWindow::showModified()
{
    // The caption is the program's own; the free status panel says whether
    // the project differs from its file.
    if (!m_compiling)
        m_panels[2]->setText(m_document->isModified() ? QStringLiteral("Modified") : QString());
}

void MainWindow::updateCaption()
{
    setWindowTitle(m_workspace.caption);
}

void MainWindow::tabChanged(int index)
{
    if (index == 0)
        return;
    // The wizard pages are reached through New and Edit only. Checked once the
    // event loop is back, so the wizard may switch pages before it says it runs.
    QTimer::singleShot(0, this, [this] {
        if (m_tabs->currentIndex() != 0 && !m_wizard->isRunning())
            m_tabs->setCurrentIndex(0);
    });
}

void MainWindow::MsgsStatus()
{
    m_showStatus->toggle();
}

void MainWindow::AddStatusLine(const QString& kind, const QString& text)
{
    m_statusWindow->addLine(statusLineText(kind, text));
    m_workspace.prompter.beep();
    if (!m_showStatus->isChecked())
        MsgsStatus();
    else
        m_statusWindow->show();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!confirmGivingUp(true)) {
        event->ignore();
        return;
    }
    m_statusWindow->close();
    m_autoSaver->finish();
    writeSettings();
    event->accept();
}

} // namespace tarvo::gui
