#pragma once

#include "catalogue/workspace.h"
#include "shell/guard.h"
#include "shell/options_dialog.h"

#include <QAction>
#include <QMainWindow>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QTimer;
class QTabWidget;

namespace tarvo {
struct EventClip;
struct ProjectPlace;
class AutoSaver;
class Prompter;
class DiscardedWork;
class FileError;
class ProjectDocument;
class RecoveryStore;
struct ProjectChange;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

class EventWizard;
class FolderOpener;
class MainPage;
class PlaceListDock;
class PreviewDock;
class MissionMapDock;
class DryRunDock;
class StatusWindow;

// The editor's main window "Form1": the menu bar, the tab control with the
// main page and the event wizard's pages, the status bar and the status
// window. The workspace must already be reset (catalogues loaded); see
// startUpWorkspace. Every change to the project goes through the window's
// project document.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    // `opener` shows folders in the file manager; null means the desktop's.
    explicit MainWindow(
        Workspace& workspace, FolderOpener* opener = nullptr, QWidget* parent = nullptr);
    // A window with a workspace of its own over `programDir`. The catalogues
    // are read before any widget exists; a missing or faulty one is thrown as
    // a FileError.
    MainWindow(const QString& programDir, Prompter& prompter, FolderOpener* opener = nullptr,
        QWidget* parent = nullptr);
    ~MainWindow() override;

    Workspace& workspace() const { return m_workspace; }
    ProjectDocument& document() const { return *m_document; }

    // Toggles "Show Status Window" and shows the status window exactly when
    // the item is now checked.
    void MsgsStatus();
    // One line for the status window ("Error: " + text for the kind "error");
    // beeps and brings the window up.
    void AddStatusLine(const QString& kind, const QString& text);

    // A note about what a change left behind, listed in the Issues dock with
    // the notes of the load until another project replaces this one.
    void addNote(const QString& text);
    // Opens a project file without asking first (the command line's file).
    bool openProjectFile(const QString& path);
    // At start-up: offers to restore work an editor left unsaved when it
    // ended without cleaning up. Returns whether a project was restored.
    bool offerRecovery();

    // Goes to a place a tool found: its event or timer line, its page of the
    // wizard with its line selected, or the dialog that holds it.
    void goToPlace(const ProjectPlace& place);
    // Script > Check: the issues of the project in the Issues dock, brought
    // to the front unless it is only kept up to date after a change (which
    // must not hide the Results of a paste).
    void checkProject(bool bringToFront = true);
    // The places that refer to the item at `position` of list row `row`.
    void findReferences(int row, int position);
    // Edit > Find for `text` (asked for when empty).
    void find(const QString& text = QString());
    // File > Compare With: the changes from the file at `path` (asked for
    // when empty) to the open project, in the Results dock.
    void compareWith(const QString& path = QString());

    PreviewDock* previewDock() const { return m_preview; }
    MissionMapDock* missionMap() const { return m_map; }
    DryRunDock* dryRunDock() const { return m_dryRun; }
    PlaceListDock* issuesDock() const { return m_issues; }
    PlaceListDock* resultsDock() const { return m_results; }

    StatusWindow* statusWindow() const { return m_statusWindow.get(); }
    MainPage* mainPage() const { return m_mainPage; }
    EventWizard* wizard() const { return m_wizard; }
    const EditorOptions& editorOptions() const { return m_options; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    MainWindow(std::unique_ptr<Workspace> owned, FolderOpener* opener, QWidget* parent);
    void build();
    void buildMenus();
    void buildEditMenu();
    void buildStatusBar();
    void buildTools();
    void buildToolMenus(QMenu* edit, QMenu* view, QMenu* script);
    // Script > Dry Run and "Why not?" in the events list's pop-up menu.
    void buildDryRun(QMenu* script);
    void whyNot();
    // Edit > Replace, and Copy and Paste of events through the clipboard.
    void buildReplaceCommand(QMenu* edit);
    void buildClipboardCommands(QMenu* edit);
    void showReplaceDialog();
    void copyEvents();
    void pasteEvents();
    void keepTypedComment();
    // Events inserted from the clipboard or a template: one step `label`,
    // reported in the Results dock under `heading`.
    void pasteClip(const EventClip& clip, const QString& label, const QString& heading);
    // Edit > Save as Template and Insert from Template.
    void buildTemplateCommands(QMenu* edit);
    void saveTemplate();
    void insertTemplate();
    QStringList templateFolders() const;
    // "New..." and "Go to" of the wizard's argument boxes.
    void buildArgumentHelper();
    QString makeArgumentItem(int row);
    void goToArgument(int row, const QString& text);
    // An item an argument or a script name names: its dialog, or its line
    // of the main page once the wizard has ended.
    void goToItemPlace(const ProjectPlace& item);
    void buildRecentFiles(QMenu* file);
    void buildCompareMenu(QMenu* file);
    void showRecentFiles();
    void rememberFile(const QString& path);
    void openRecentFile(const QString& path);
    void readSettings();
    void writeSettings() const;
    QString previewText() const;
    QAction* addItem(QMenu* menu, const char* name, const QString& caption);
    // Connects a menu item to a command that runs guarded.
    template <typename Command>
    QAction* addCommand(QMenu* menu, const char* name, const QString& caption, Command command);
    void updateCaption();
    void showModified();
    void updateUndoItems();
    void projectReplaced(bool opened);
    void tabChanged(int index);

    void newProject();
    void openProject();
    void saveProject();
    void saveProjectAs();
    void compile();
    void showDescription();
    void openSourceDirectory();
    void showResourceDialog(
        void (*show)(ProjectDocument&, QWidget*, const std::function<void(int, int)>&));
    void openProgramFolder();
    void showOptions();
    // The author's question before the project is given up (New, Open, a
    // recent file, Exit); on Yes unsaved work is kept as discarded work.
    bool confirmGivingUp(bool exiting = false);
    void recoverDiscardedWork();
    // What a load left out, repaired or converted, listed above the issues
    // of the check until another project replaces this one.
    void showLoadNotes(const QList<FileError>& notes);
    void reloadCatalogues();

    std::unique_ptr<Workspace> m_ownWorkspace; // before m_workspace, which may refer to it
    Workspace& m_workspace;
    std::unique_ptr<ProjectDocument> m_document;
    std::unique_ptr<RecoveryStore> m_recovery;
    std::unique_ptr<AutoSaver> m_autoSaver;
    std::unique_ptr<DiscardedWork> m_discarded;
    QStringList m_loadNotes;
    std::unique_ptr<FolderOpener> m_ownOpener;
    FolderOpener* m_opener;
    EditorOptions m_options;
    QTabWidget* m_tabs = nullptr;
    MainPage* m_mainPage = nullptr;
    EventWizard* m_wizard = nullptr;
    std::unique_ptr<StatusWindow> m_statusWindow;
    QAction* m_showStatus = nullptr;
    QAction* m_compile = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QLabel* m_panels[4] = {};
    PreviewDock* m_preview = nullptr;
    MissionMapDock* m_map = nullptr;
    DryRunDock* m_dryRun = nullptr;
    PlaceListDock* m_issues = nullptr;
    PlaceListDock* m_results = nullptr;
    QTimer* m_issuesRefresh = nullptr;
    QMenu* m_recentMenu = nullptr;
    QString m_findText;
    bool m_compiling = false;
};

template <typename Command>
QAction* MainWindow::addCommand(
    QMenu* menu, const char* name, const QString& caption, Command command)
{
    QAction* action = addItem(menu, name, caption);
    connect(action, &QAction::triggered, this, guard(m_workspace.prompter, std::move(command)));
    return action;
}

} // namespace tarvo::gui
