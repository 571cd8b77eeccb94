// The project document: every kind of step undoes and redoes to the same
// bytes, a failing step leaves no trace, and the modified state follows the
// clean point of the history.
#include "catalogue/project_lists.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/project_file.h"
#include "editing/condition_ops.h"
#include "editing/event_list.h"
#include "editing/timer_list.h"
#include "editing/wizard_ops.h"
#include "resources/resource_items.h"
#include "resources/resource_removal.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "variables/variable_operations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct StepCase
{
    const char* name;
    std::function<void(Workspace&, ScriptedPrompter&)> step;
};

const StepCase kSteps[] = {
    {"RenameEvent",
        [](Workspace& w, ScriptedPrompter& p) {
            p.inputs = {"Renamed"};
            renameEvent(w.project, 1, p);
        }},
    {"DeleteEvent", [](Workspace& w, ScriptedPrompter&) { DeleteEvent(w.project, 0); }},
    {"CopyEvent", [](Workspace& w, ScriptedPrompter&) { copyEventCommand(w, 1); }},
    {"MoveEvent", [](Workspace& w, ScriptedPrompter&) { moveEvent(w.project, 0, 1); }},
    {"DisableEvent", [](Workspace& w, ScriptedPrompter&) { setEventTicked(w, 0, false, "Start"); }},
    {"EventComment",
        [](Workspace& w, ScriptedPrompter&) {
            CommitComment(w.project, {CommentEvent, 2, -1}, "new\nnote");
        }},
    {"RenameTimer",
        [](Workspace& w, ScriptedPrompter& p) {
            p.inputs = {"Tock"};
            renameTimer(w.project, 0, p);
        }},
    {"DeleteTimer", [](Workspace& w, ScriptedPrompter&) { DeleteTimer(w.project, 0); }},
    {"AddSound",
        [](Workspace& w, ScriptedPrompter&) {
            AddSound(w.project, "/x/horn.wav");
            refreshSoundRow(w.project);
        }},
    {"RemoveUsedMessage",
        [](Workspace& w, ScriptedPrompter& p) {
            p.answers = {Prompter::Answer::Yes};
            RemoveResource(w.project, p, row::Messages, 0);
            refreshMessageRow(w.project);
        }},
    {"NewGroupAndNumber",
        [](Workspace& w, ScriptedPrompter& p) {
            p.inputs = {"Scouts", "Waves"};
            NewGroup(w.project, p);
            NewNumber(w.project, p);
        }},
    {"DeleteNumber", [](Workspace& w, ScriptedPrompter& p) { DeleteNumber(w.project, p, 5); }},
    {"WizardEventBecomesTimer",
        [](Workspace& w, ScriptedPrompter& p) {
            const int slot = prepareNewEventSlot(w.project);
            w.project.events[slot].name = "Late";
            FinishEventWizard(w.project, WizardMode::NewEvent, slot, {}, p);
        }},
    {"TimerNamedAsTheLast",
        [](Workspace& w, ScriptedPrompter& p) {
            const int slot = prepareNewEventSlot(w.project);
            w.project.events[slot].name = w.project.timers.at(w.project.timerCount - 1).name;
            FinishEventWizard(w.project, WizardMode::NewEvent, slot, {}, p);
        }},
    {"ConditionsOfAnEvent",
        [](Workspace& w, ScriptedPrompter&) {
            CopyCondition(w.project.events[1], 0);
            DeleteCondition(w.project.events[1], 0);
        }},
};

class ProjectDocumentTest : public ::testing::Test
{
protected:
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    ProjectDocument document {workspace};

    void SetUp() override { ASSERT_TRUE(openProjectFile(document, sampleDir() + "/Demo.vnsc")); }
    // The file's bytes and what the file does not hold: the timer list and
    // the list rows.
    QByteArray bytes() const
    {
        const Project& p = workspace.project;
        QByteArray state = projectFileBytes(p) + p.timerListLines.join(u'|').toUtf8();
        for (const ReferenceList& row : p.tables) {
            state += (row.Texts + row.Codes + row.RawCodes).join(u'|').toUtf8();
            for (qint16 id : row.Ids)
                state += QByteArray::number(id) + ',';
        }
        return state;
    }
    void run(const StepCase& c)
    {
        document.edit(QString::fromLatin1(c.name), [&] { c.step(workspace, prompter); });
    }
};

TEST_F(ProjectDocumentTest, EveryKindOfStepUndoesAndRedoesToTheSameBytes)
{
    QList<QByteArray> states {bytes()};
    for (const StepCase& c : kSteps) {
        const QByteArray before = bytes();
        run(c);
        const QByteArray after = bytes();
        ASSERT_NE(after, before) << c.name;
        ASSERT_EQ(document.undoLabel(), QString::fromLatin1(c.name));
        document.undo();
        EXPECT_EQ(bytes(), before) << c.name;
        document.redo();
        EXPECT_EQ(bytes(), after) << c.name;
        states.append(after);
    }
    // All of them back to the file as opened, and forward again.
    for (qsizetype i = states.size() - 1; i > 0; --i)
        document.undo();
    EXPECT_EQ(bytes(), states.first());
    EXPECT_FALSE(document.isModified());
    EXPECT_FALSE(document.canUndo());
    for (qsizetype i = 1; i < states.size(); ++i)
        document.redo();
    EXPECT_EQ(bytes(), states.last());
}

TEST_F(ProjectDocumentTest, AStepHoldsOnlyWhatItChanged)
{
    const Project before = workspace.project;
    prompter.inputs = {"Renamed"};
    renameEvent(workspace.project, 1, prompter);
    const ProjectDelta delta = diffProjects(before, workspace.project);
    EXPECT_EQ(delta.events.offset, 1);
    EXPECT_EQ(delta.events.before.size(), 1);
    EXPECT_EQ(delta.events.after.size(), 1);
    EXPECT_TRUE(delta.timers.isEmpty());
    EXPECT_FALSE(delta.scalarsBefore.has_value());
    ASSERT_EQ(delta.rows.size(), 1); // the events row's text
    EXPECT_EQ(delta.rows.first().texts.before.size(), 1);
    const ProjectChange change = changeOf(delta, true, workspace.project);
    EXPECT_TRUE(change.events);
    EXPECT_FALSE(change.timers || change.sounds || change.messages || change.scriptComment);

    // A comment of the script touches nothing the lists show.
    const Project renamed = workspace.project;
    workspace.project.scriptComment = QStringLiteral("new");
    const ProjectChange comment
        = changeOf(diffProjects(renamed, workspace.project), true, workspace.project);
    EXPECT_TRUE(comment.scriptComment);
    EXPECT_FALSE(comment.events || comment.timers || comment.rows.any());
}

// Reordering asks the views to show the events list afresh; that belongs to
// the one step that asked, and outside a step the request is dropped.
TEST_F(ProjectDocumentTest, OnlyTheStepThatAsksShowsTheListAfresh)
{
    QList<bool> afresh;
    QObject::connect(&document, &ProjectDocument::changed,
        [&](const ProjectChange& change) { afresh.append(change.eventListAfresh); });
    document.showEventListAfresh();
    document.edit(QStringLiteral("Move"), [&] {
        document.showEventListAfresh();
        moveEvent(workspace.project, 1, -1);
    });
    document.edit(QStringLiteral("Rename"), [&] { workspace.project.events[0].name = "Renamed"; });
    document.undo();
    EXPECT_EQ(afresh, (QList<bool> {true, false, false}));
}

TEST_F(ProjectDocumentTest, AFailingStepLeavesNoTrace)
{
    const QByteArray before = bytes();
    EXPECT_THROW(document.edit(QStringLiteral("Broken"),
                     [&] {
                         DeleteEvent(workspace.project, 0);
                         DeleteEvent(workspace.project, 99);
                     }),
        DataError);
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(document.canUndo());
    EXPECT_FALSE(document.isModified());
}

TEST_F(ProjectDocumentTest, SessionsModifiedStateAndNewProjects)
{
    QList<bool> modified;
    QObject::connect(
        &document, &ProjectDocument::modifiedChanged, [&](bool on) { modified.append(on); });
    document.beginSession(QStringLiteral("Edit Event"));
    run(kSteps[0]);
    run(kSteps[9]);
    EXPECT_FALSE(document.canUndo()); // not while a session is open
    document.endSession();
    EXPECT_EQ(document.undoLabel(), QStringLiteral("Edit Event"));
    document.undo();
    EXPECT_FALSE(document.canUndo()); // the whole session was one step

    const QByteArray opened = bytes();
    document.beginSession(QStringLiteral("New Event"));
    run(kSteps[12]);
    document.cancelSession();
    EXPECT_EQ(bytes(), opened);
    EXPECT_FALSE(document.canRedo() && document.redoLabel() == QStringLiteral("New Event"));

    document.redo();
    const QString path = QDir::temp().filePath("tarvo_document_test.vnsc");
    saveDocument(document, path);
    EXPECT_FALSE(document.isModified());
    document.undo();
    EXPECT_TRUE(document.isModified());
    document.redo();
    EXPECT_FALSE(document.isModified());
    QFile::remove(path);
    EXPECT_EQ(modified, (QList<bool> {true, false, true, false, true, false}));

    // A step after an undo ends the way forward: nothing is left to redo and
    // the saved state cannot be reached again.
    document.undo();
    document.edit("Comment", [&] { workspace.project.scriptComment = QStringLiteral("other"); });
    EXPECT_FALSE(document.canRedo());
    EXPECT_EQ(document.redoLabel(), QString());
    EXPECT_EQ(document.undoLabel(), QStringLiteral("Comment"));
    document.undo();
    EXPECT_TRUE(document.isModified());

    run(kSteps[1]);
    ASSERT_TRUE(newProject(document));
    EXPECT_FALSE(document.canUndo());
    EXPECT_FALSE(document.canRedo());
    EXPECT_FALSE(document.isModified());
    EXPECT_FALSE(modified.last()); // said so
}

// Each step keeps where the author stood before it and where the view stood
// once it had followed the step; undo gives back the first, redo the second.
// A session is one step from the line it began on.
TEST_F(ProjectDocumentTest, UndoAndRedoGiveBackTheSelectionOfTheStep)
{
    ViewSelection now {3, -1};
    document.setSelectionSource([&] { return now; });
    QList<ViewSelection> restored;
    QObject::connect(&document, &ProjectDocument::selectionRestored,
        [&](const ViewSelection& selection) { restored.append(selection); });
    // The view follows the change as it is told of it.
    QObject::connect(&document, &ProjectDocument::changed, [&] {
        if (!document.inSession())
            now = ViewSelection {now.event + 10, now.timer};
    });
    run(kSteps[0]);
    now = {-1, 1};
    document.beginSession(QStringLiteral("Edit Timer"));
    now = {-1, 7}; // the pages move nothing the history keeps
    run(kSteps[9]);
    now = {-1, 2};
    document.endSession();
    now = {0, 0};

    document.undo();
    document.undo();
    document.redo();
    document.redo();
    EXPECT_EQ(restored, (QList<ViewSelection> {{-1, 1}, {3, -1}, {13, -1}, {-1, 2}}));
}

// The views learn a new name or file from the document, once per change:
// New names the project, a save elsewhere moves the file, saving again tells
// nothing.
TEST_F(ProjectDocumentTest, NameAndFileAreToldWhenTheyChange)
{
    QStringList told;
    QObject::connect(&document, &ProjectDocument::nameChanged,
        [&](const QString& name) { told << "name " + name + " / " + workspace.caption; });
    QObject::connect(&document, &ProjectDocument::fileNameChanged,
        [&](const QString& path) { told << "file " + QFileInfo(path).fileName(); });
    ASSERT_TRUE(newProject(document));
    const QString path = QDir::temp().filePath("tarvo_told_test.vnsc");
    saveDocument(document, path);
    saveDocument(document, path);
    QFile::remove(path);
    EXPECT_EQ(told,
        (QStringList {"name Untitled / T.A.R.V.O. - Campaign Script Editor - Untitled",
            "file Untitled.vnsc", "file tarvo_told_test.vnsc"}));
}

TEST_F(ProjectDocumentTest, TheOldestStepsAndTheSavedStateFallOffALongHistory)
{
    for (int i = 0; i < 5; ++i)
        run(kSteps[0]);
    document.markSaved();
    for (int i = 0; i < ProjectDocument::kHistoryLimit; ++i)
        document.edit("Comment", [&] { workspace.project.scriptComment = QString::number(i); });
    int undone = 0;
    for (; document.canUndo(); ++undone) {
        document.undo();
        EXPECT_EQ(document.isModified(), undone + 1 != ProjectDocument::kHistoryLimit) << undone;
    }
    EXPECT_EQ(undone, ProjectDocument::kHistoryLimit);
    EXPECT_FALSE(document.canUndo());
    EXPECT_TRUE(document.canRedo());
}

} // namespace
