// The tools that read the whole project: the script preview, the check, Find
// and Find References, and going to a place one of them found.
#include "base/file_error.h"
#include "catalogue/where_used.h"
#include "check/project_check.h"
#include "compile/script_preview.h"
#include "dialogs/resource_dialogs.h"
#include "document/project_document.h"
#include "editing/find_text.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "map/mission_map_dock.h"
#include "shell/guard.h"
#include "tools/place_list_dock.h"
#include "tools/preview_dock.h"
#include "ui/prompter.h"
#include "wizard/event_wizard.h"
#include "wizard/trigger_page.h"

#include <QAction>
#include <QMenu>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

namespace tarvo::gui {

namespace {

constexpr int kTriggerPage = 1;
constexpr int kConditionsPage = 2;
constexpr int kActionsPage = 3;

QString counted(qsizetype count, const char* noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(noun)).arg(count == 1 ? "" : "s");
}

} // namespace

void MainWindow::buildTools()
{
    m_preview = new PreviewDock([this] { return previewText(); }, this);
    m_issues = new PlaceListDock(QStringLiteral("Issues"), QStringLiteral("IssuesDock"), this);
    m_results = new PlaceListDock(QStringLiteral("Results"), QStringLiteral("ResultsDock"), this);
    addDockWidget(Qt::RightDockWidgetArea, m_preview);
    addDockWidget(Qt::BottomDockWidgetArea, m_issues);
    addDockWidget(Qt::BottomDockWidgetArea, m_results);
    tabifyDockWidget(m_issues, m_results);
    // A first start shows the preview and the issues, so that a newcomer
    // finds them; afterwards the window state remembers what the user chose.
    m_results->hide();
    m_issues->raise();

    const auto go
        = guard(m_workspace.prompter, [this](const ProjectPlace& place) { goToPlace(place); });
    connect(m_issues, &PlaceListDock::placeChosen, this, go);
    connect(m_results, &PlaceListDock::placeChosen, this, go);

    // The preview follows every change and what the user looks at.
    const auto preview = [this] { m_preview->refreshSoon(); };
    connect(m_document.get(), &ProjectDocument::changed, this, preview);
    connect(m_mainPage, &MainPage::selectionChanged, this, preview);
    connect(m_wizard, &EventWizard::started, this, preview);
    connect(m_wizard, &EventWizard::finished, this, preview);
    connect(m_wizard->triggerPage(), &TriggerPage::edited, this, preview);

    m_map = new MissionMapDock(m_workspace, m_workspace.prompter, this);
    addDockWidget(Qt::RightDockWidgetArea, m_map);
    m_map->hide();
    connect(m_document.get(), &ProjectDocument::changed, m_map, &MissionMapDock::refreshSoon);
    connect(m_mainPage, &MainPage::selectionChanged, m_map,
        [this] { m_map->setSelectedEvent(m_mainPage->currentEvent()); });
    connect(
        m_map, &MissionMapDock::eventChosen, this, guard(m_workspace.prompter, [this](int event) {
            goToPlace({ProjectPlace::Owner::Event, event});
        }));
    connect(
        m_map, &MissionMapDock::eventOpened, this, guard(m_workspace.prompter, [this](int event) {
            goToPlace({ProjectPlace::Owner::Event, event, -1, ProjectPlace::Part::Trigger});
        }));

    // An open Issues dock stays up to date.
    m_issuesRefresh = new QTimer(this);
    m_issuesRefresh->setSingleShot(true);
    m_issuesRefresh->setInterval(300);
    connect(m_issuesRefresh, &QTimer::timeout, this,
        guard(m_workspace.prompter, [this] { checkProject(false); }));
    connect(m_document.get(), &ProjectDocument::changed, this, [this] {
        if (m_issues->isVisible())
            m_issuesRefresh->start();
    });
}

void MainWindow::buildToolMenus(QMenu* edit, QMenu* view, QMenu* script)
{
    edit->addSeparator();
    addCommand(edit, "mFind", QStringLiteral("&Find..."), [this] {
        find();
    })->setShortcut(QKeySequence::Find);
    addCommand(edit, "mFindNext", QStringLiteral("Find &Next"), [this] {
        if (m_findText.isEmpty())
            find();
        else
            m_results->next();
    })->setShortcut(QKeySequence(Qt::Key_F3));
    buildReplaceCommand(edit);

    const auto toggle = [&](QDockWidget* dock, const char* name, const QKeySequence& key) {
        QAction* action = dock->toggleViewAction();
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        view->addAction(action);
    };
    toggle(m_preview, "mScriptPreview", QKeySequence(Qt::Key_F8));
    toggle(m_issues, "mIssues", QKeySequence());
    toggle(m_results, "mResults", QKeySequence());
    toggle(m_map, "mMissionMap", QKeySequence(Qt::Key_F9));

    addCommand(script, "mCheck", QStringLiteral("Check"), [this] {
        checkProject();
    })->setShortcut(QKeySequence(Qt::Key_F7));

    QAction* references = m_mainPage->eventMenu()->addAction(QStringLiteral("Find References"));
    references->setObjectName(QStringLiteral("mEventReferences"));
    connect(references, &QAction::triggered, this, guard(m_workspace.prompter, [this] {
        if (m_mainPage->currentEvent() < 0)
            m_workspace.prompter.beep();
        else
            findReferences(row::Events, m_mainPage->currentEvent());
    }));
}

QString MainWindow::previewText() const
{
    const Project& project = m_workspace.project;
    try {
        if (m_wizard->isRunning() && m_wizard->mode() != WizardMode::EditTimer)
            return eventPreviewText(
                project, m_wizard->editedEvent(), m_wizard->triggerPage()->currentTrigger());
        const int event = m_mainPage->currentEvent();
        if (!m_wizard->isRunning() && event >= 0 && event < project.eventCount)
            return eventPreviewText(project, event);
        return scriptPreviewText(project);
    } catch (const std::exception& error) {
        // A trigger the page cannot store yet, say; the preview waits for it.
        return QStringLiteral("// The script cannot be shown yet: ")
            + QString::fromLocal8Bit(error.what());
    }
}

void MainWindow::checkProject(bool bringToFront)
{
    QList<PlaceListDock::Line> lines;
    int errors = 0;
    int notes = 0;
    // What the load left out or repaired: worth a look, not an error of the
    // project as it now stands.
    for (const QString& note : m_loadNotes)
        lines.append({note, {}, true, false});
    for (const CheckIssue& issue : tarvo::checkProject(m_workspace)) {
        const bool error = issue.severity == CheckIssue::Severity::Error;
        errors += error ? 1 : 0;
        notes += issue.severity == CheckIssue::Severity::Information ? 1 : 0;
        lines.append({describePlace(m_workspace.project, issue.place) + QStringLiteral(": ")
                + issue.sentence,
            issue.place, !error, error});
    }
    const QString heading = lines.isEmpty() ? QStringLiteral("No issues found.")
                                            : counted(errors, "error") + QStringLiteral(", ")
            + counted(lines.size() - errors - notes, "warning")
            + (notes > 0 ? QStringLiteral(", ") + counted(notes, "note") : QString());
    m_issues->showLines(heading, lines);
    m_issues->show();
    if (bringToFront)
        m_issues->raise();
}

void MainWindow::findReferences(int row, int position)
{
    const Project& project = m_workspace.project;
    ProjectPlace item;
    int id = 0;
    if (row == row::Events) {
        item = {ProjectPlace::Owner::Event, position};
        id = at(project.events, position, "events").id;
    } else if (row == row::Sounds) {
        item = {ProjectPlace::Owner::Sound, position};
        id = at(project.sounds, position, "sounds").id;
    } else if (row == row::Messages) {
        item = {ProjectPlace::Owner::Message, position};
        id = at(project.messages, position, "messages").id;
    } else {
        item = {ProjectPlace::Owner::Variable, position, row};
        id = at(referenceRow(project.tables, row).Ids, position, "list of IDs");
    }
    QList<PlaceListDock::Line> lines;
    for (const ProjectPlace& place : tarvo::findReferences(project, row, id))
        lines.append({describePlace(project, place), place});
    m_results->showLines(QStringLiteral("References to %1: %2")
                             .arg(describePlace(project, item), counted(lines.size(), "place")),
        lines);
    m_results->show();
    m_results->raise();
}

void MainWindow::find(const QString& text)
{
    QString wanted = text;
    if (wanted.isEmpty())
        wanted = m_workspace.prompter.input(
            QStringLiteral("Find what:"), QStringLiteral("Find"), m_findText);
    if (wanted.isEmpty())
        return;
    m_findText = wanted;
    const Project& project = m_workspace.project;
    QList<PlaceListDock::Line> lines;
    for (const FoundText& found : findText(project, wanted)) {
        const QString field
            = found.field.isEmpty() ? QString() : found.field + QStringLiteral(": ");
        lines.append({describePlace(project, found.place) + QStringLiteral(": ") + field
                + found.text.simplified(),
            found.place});
    }
    m_results->showLines(
        QStringLiteral("Find \"%1\": %2").arg(wanted, counted(lines.size(), "place")), lines);
    m_results->show();
    m_results->raise();
}

void MainWindow::goToPlace(const ProjectPlace& place)
{
    using Owner = ProjectPlace::Owner;
    using Part = ProjectPlace::Part;
    const auto finder = [this](int row, int position) { findReferences(row, position); };
    switch (place.owner) {
    case Owner::Project:
        showDescription();
        return;
    case Owner::Sound:
        showSoundsDialog(*m_document, this, finder, place.index);
        return;
    case Owner::Message:
        showMessagesDialog(*m_document, this, finder, place.index);
        return;
    case Owner::Variable:
        showVariablesDialog(*m_document, this, finder, place.row, place.index);
        return;
    case Owner::Event:
    case Owner::Timer:
        break;
    }
    const bool event = place.owner == Owner::Event;
    int page = 0;
    if (place.part == Part::Trigger)
        page = kTriggerPage;
    else if (place.part == Part::Condition || place.part == Part::ComparedValue)
        page = kConditionsPage;
    else if (place.part == Part::Action)
        page = kActionsPage;
    if (m_wizard->isRunning()) {
        // Only within the event or timer that is open.
        const bool same = event
            ? m_wizard->mode() != WizardMode::EditTimer && m_wizard->editedEvent() == place.index
            : m_wizard->editedTimer() == place.index;
        if (same && page > 0) {
            m_wizard->showPage(page, place.item);
            return;
        }
        m_workspace.prompter.beep();
        statusBar()->showMessage(
            QStringLiteral("Finish or cancel the event or timer being edited first."), 8000);
        return;
    }
    m_tabs->setCurrentIndex(0);
    if (event) {
        m_mainPage->selectEvent(place.index);
        if (page > 0) {
            m_wizard->editEvent(place.index);
            m_wizard->showPage(page, place.item);
        }
    } else {
        m_mainPage->selectTimer(place.index);
        if (page > 0) {
            m_wizard->editTimer(place.index);
            m_wizard->showPage(kTriggerPage, -1);
        }
    }
}

} // namespace tarvo::gui
