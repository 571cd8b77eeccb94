// Unsaved work survives an editor that ends without cleaning up: each editor
// keeps its own copy under a lock, a copy nobody holds is offered at the next
// start, and a copy disappears once the work is saved or given up.
#include "document/auto_saver.h"
#include "document/discarded_work.h"
#include "document/project_commands.h"
#include "document/project_file.h"
#include "document/project_recovery.h"
#include "document/recovery_store.h"
#include "program_folder.h"
#include "project_builder.h"
#include "test_paths.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class Recovery : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir().mkpath(dir.filePath("program"));
        for (const char* name : {"temp.txt", "temp2.txt"})
            QFile::copy(testDataDir() + "/wizard/program/" + name, dir.filePath("program/") + name);
    }

    // An editor with a modified project named `name`.
    std::unique_ptr<ProjectBuilder> editorWith(const QString& name)
    {
        auto editor = std::make_unique<ProjectBuilder>(dir.filePath("program"));
        editor->document.edit("Name", [&] {
            editor->project().name = name;
            editor->addEvent("Unsaved");
        });
        return editor;
    }

    QStringList files() const { return QDir(folder()).entryList(QDir::Files); }
    // The copies, without the lock that says their editor still runs.
    QStringList copies() const
    {
        return QDir(folder()).entryList({"*.vnsc", "*.json"}, QDir::Files);
    }
    QString folder() const { return dir.filePath("recovery"); }

    QTemporaryDir dir;
};

TEST_F(Recovery, ACopyIsOfferedOnlyWhenItsEditorHasEnded)
{
    auto crashed = editorWith("Siege");
    QByteArray unsaved;
    {
        RecoveryStore store(folder());
        AutoSaver saver(crashed->document, store);
        saver.saveNow();
        unsaved = crashed->bytes();
        EXPECT_TRUE(RecoveryStore(folder()).orphans().isEmpty()); // still running
    } // ended without finish(): the copy stays

    auto next = editorWith("Other");
    RecoveryStore store(folder());
    const QList<RecoveryStore::Copy> found = store.orphans();
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().projectName, "Siege");
    EXPECT_EQ(readBytes(store.projectPath(found.first())), unsaved);

    // No deletes the copy; a Yes restores it as modified work without a file.
    next->prompter.answers = {Prompter::Answer::No};
    EXPECT_FALSE(offerRecovery(next->document, store));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Recovery, ACopyGoesWithAnotherProjectAndWithAClosedEditor)
{
    auto editor = editorWith("Siege");
    RecoveryStore store(folder());
    AutoSaver saver(editor->document, store);
    saver.saveNow();
    ASSERT_FALSE(copies().isEmpty());
    editor->document.projectReplaced(true); // another project, modified from the start
    EXPECT_TRUE(copies().isEmpty());

    editor->document.edit("Event", [&] { editor->addEvent("More"); });
    saver.saveNow();
    ASSERT_FALSE(copies().isEmpty());
    saver.finish();
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Recovery, EveryChangeOfModifiedWorkIsCopiedAfterTheInterval)
{
    int argc = 1;
    char name[] = "recovery_test";
    char* argv[] = {name};
    QCoreApplication app(argc, argv); // the interval is a timer
    auto editor = editorWith("Siege"); // modified before the saver starts
    RecoveryStore store(folder());
    AutoSaver saver(editor->document, store, std::chrono::milliseconds(1));
    for (const QString event : {"First", "Second"}) {
        editor->document.edit("Event", [&] { editor->addEvent(event); });
        const QDeadlineTimer deadline(5000);
        QByteArray copy;
        while (!copy.contains(event.toLatin1()) && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            const QStringList written = QDir(folder()).entryList({"*.vnsc"}, QDir::Files);
            copy = written.isEmpty() ? QByteArray() : readBytes(folder() + "/" + written.first());
        }
        EXPECT_TRUE(copy.contains(event.toLatin1())) << event.toStdString();
    }
}

// Text typed into a comment box and not yet stored makes a saved project
// modified and goes into the copy where the box would store it; the project
// itself and its history stay as they were.
TEST_F(Recovery, TypedCommentTextIsPendingWorkAndGoesIntoTheCopy)
{
    auto editor = editorWith("Siege");
    editor->document.markSaved();
    RecoveryStore store(folder());
    AutoSaver saver(editor->document, store);
    QList<bool> modified;
    QObject::connect(&editor->document, &ProjectDocument::modifiedChanged,
        [&](bool now) { modified.append(now); });
    const QByteArray before = editor->bytes();

    editor->document.setPendingText("box", [](Project& p) {
        CommitComment(p, {CommentEvent, 0, -1}, "typed\nnot stored");
    });
    EXPECT_TRUE(editor->document.isModified());
    saver.saveNow();
    ASSERT_EQ(copies().filter(".vnsc").size(), 1);
    const QByteArray copy = readBytes(folder() + "/" + copies().filter(".vnsc").first());
    EXPECT_TRUE(copy.contains("<ecom>|typed\r\n<ecom>|not stored")) << copy.toStdString();
    EXPECT_EQ(editor->bytes(), before);

    editor->document.clearPendingText("box");
    EXPECT_FALSE(editor->document.isModified());
    EXPECT_TRUE(copies().isEmpty());
    editor->document.setPendingText("box", [](Project&) {});
    editor->document.projectReplaced();
    EXPECT_FALSE(editor->document.hasPendingText());
    EXPECT_EQ(modified, QList<bool>({true, false, true, false}));
}

// Two editors on one file: the second Save asks instead of writing over the
// first one's update, and each answer does what it says.
TEST_F(Recovery, SaveAsksWhenTheFileChangedOnDisk)
{
    const QString file = dir.filePath("program/Siege.vnsc");
    auto first = editorWith("Siege");
    first->document.project().filePath = file;
    first->document.project().hasFile = true;
    ASSERT_TRUE(saveProjectCommand(first->document));
    ProjectBuilder second(dir.filePath("program"));
    ASSERT_TRUE(openProjectFile(second.document, file));

    const auto edit = [](ProjectBuilder& editor, const QString& event) {
        editor.document.edit("Event", [&] { editor.addEvent(event); });
    };
    edit(second, "From the second");
    ASSERT_TRUE(saveProjectCommand(second.document)); // unchanged since opened: no question
    EXPECT_TRUE(second.prompter.prompts.isEmpty());

    struct Row
    {
        QList<Prompter::Answer> answers;
        bool saved;
        const char* fileHolds; // an event the file holds afterwards
    };
    using A = Prompter::Answer;
    const Row rows[] = {
        {{A::No, A::Yes}, false, "From the second"}, // reload: the first editor takes it
        {{A::Yes}, true, "Overwrite"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fileHolds);
        // The first editor's view is the old file, or the reloaded one.
        edit(*first, "Overwrite");
        writeBytes(file, readBytes(file) + "\r\n"); // someone else writes
        first->prompter.answers = row.answers;
        first->prompter.clear();
        EXPECT_EQ(saveProjectCommand(first->document), row.saved);
        EXPECT_EQ(first->prompter.prompts.size(), row.answers.size());
        EXPECT_TRUE(readBytes(file).contains(row.fileHolds));
    }
    // No twice: saved under another name, the file left as it is.
    edit(*first, "Elsewhere");
    const QByteArray before = readBytes(file) + "\r\n";
    writeBytes(file, before);
    first->prompter.answers = {A::No, A::No};
    first->prompter.fileNames = {dir.filePath("program/Other.vnsc")};
    EXPECT_TRUE(saveProjectCommand(first->document));
    EXPECT_EQ(readBytes(file), before);
    EXPECT_TRUE(readBytes(dir.filePath("program/Other.vnsc")).contains("Elsewhere"));
}

// Editors that ended together leave several copies: one list names each
// project and its file; the chosen one is restored, the others stay for the
// next start, and 0 deletes them all.
TEST_F(Recovery, SeveralCopiesAreOfferedInOneList)
{
    for (const char* name : {"Siege", "Raid"}) {
        auto crashed = editorWith(name);
        crashed->document.project().filePath = dir.filePath(QString(name) + ".vnsc");
        crashed->document.project().hasFile = true;
        RecoveryStore store(folder());
        AutoSaver(crashed->document, store).saveNow();
    }
    ProjectBuilder next(dir.filePath("program"));
    RecoveryStore store(folder());
    ASSERT_EQ(store.orphans().size(), 2);
    const QString second = store.orphans().at(1).projectName;
    next.prompter.inputs = {"2"};
    EXPECT_TRUE(offerRecovery(next.document, store));
    EXPECT_EQ(next.project().name, second);
    ASSERT_EQ(next.prompter.prompts.size(), 1);
    const QString list = next.prompter.prompts.first().text;
    for (const char* piece : {"1. \"", "2. \"", "Siege.vnsc", "Raid.vnsc"})
        EXPECT_TRUE(list.contains(piece)) << list.toStdString();
    EXPECT_EQ(RecoveryStore(folder()).orphans().size(), 1); // the other one stays

    ProjectBuilder third(dir.filePath("program"));
    RecoveryStore thirdStore(folder());
    auto other = editorWith("Third");
    {
        RecoveryStore crashedStore(folder());
        AutoSaver(other->document, crashedStore).saveNow();
    }
    ASSERT_EQ(thirdStore.orphans().size(), 2);
    third.prompter.inputs = {"0"};
    EXPECT_FALSE(offerRecovery(third.document, thirdStore));
    EXPECT_TRUE(thirdStore.orphans().isEmpty());
}

TEST_F(Recovery, ARestoredCopyIsModifiedHasNoFileAndGoesWhenSaved)
{
    {
        auto crashed = editorWith("Siege");
        RecoveryStore(folder()).write(crashed->project());
    }
    auto next = std::make_unique<ProjectBuilder>(dir.filePath("program"));
    RecoveryStore store(folder());
    AutoSaver saver(next->document, store);
    next->prompter.answers = {Prompter::Answer::Yes};
    ASSERT_TRUE(offerRecovery(next->document, store));
    EXPECT_TRUE(next->prompter.prompts.first().text.contains("\"Siege\""));
    EXPECT_EQ(next->project().events.value(0).name, "Unsaved");
    EXPECT_TRUE(next->document.isModified());
    EXPECT_FALSE(next->project().hasFile);
    EXPECT_TRUE(store.holdsCopy()); // adopted: kept until the work is saved

    next->prompter.fileNames = {dir.filePath("Siege.vnsc")};
    ASSERT_TRUE(SaveProjectAs(next->document));
    EXPECT_TRUE(files().filter(".vnsc").isEmpty());
    saver.saveNow(); // nothing to keep for a saved project
    EXPECT_TRUE(files().filter(".vnsc").isEmpty());

    // New gives the work up: its copy goes too.
    next->document.edit("Comment", [&] { next->project().scriptComment = "more"; });
    saver.saveNow();
    EXPECT_FALSE(files().filter(".vnsc").isEmpty());
    newProject(next->document);
    EXPECT_TRUE(files().filter(".vnsc").isEmpty());
}

TEST_F(Recovery, AFaultyCopyIsNamedAndTheProjectStaysUsable)
{
    {
        auto crashed = editorWith("Broken");
        RecoveryStore(folder()).write(crashed->project());
    }
    RecoveryStore store(folder());
    const QString copy = store.projectPath(store.orphans().first());
    writeBytes(copy, "<gl>|Broken\r\n<vg>|31|True|0|x\r\n");
    auto next = std::make_unique<ProjectBuilder>(dir.filePath("program"));
    next->prompter.answers = {Prompter::Answer::Yes};
    EXPECT_FALSE(offerRecovery(next->document, store));
    EXPECT_EQ(next->prompter.prompts.last().icon, Prompter::Icon::Critical);
    EXPECT_TRUE(next->prompter.prompts.last().text.contains(":2:"));
}

TEST_F(Recovery, AnUnwritableFolderIsReportedAndTheWorkGoesOn)
{
    auto editor = editorWith("Siege");
    writeBytes(folder(), "a file where the folder should be");
    RecoveryStore store(folder());
    AutoSaver saver(editor->document, store);
    QStringList failures;
    QObject::connect(&saver, &AutoSaver::failed, [&](const QString& why) { failures << why; });
    saver.saveNow();
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures.first().contains("recovery")) << failures.first().toStdString();
    EXPECT_TRUE(editor->document.isModified());
}

} // namespace

// Work given up with a Yes is kept for a week and comes back as unsaved work;
// unmodified work and old entries are not kept.
TEST_F(Recovery, DiscardedWorkIsKeptForAWeekAndComesBack)
{
    const DiscardedWork discarded(dir.filePath("discarded"));
    auto editor = editorWith("Siege");
    keepDiscardedWork(editor->document, discarded);
    const QByteArray given = editor->bytes();
    editor->document.markSaved();
    keepDiscardedWork(editor->document, discarded); // nothing unsaved: nothing kept
    ASSERT_EQ(discarded.entries().size(), 1);

    // An entry older than the week is dropped when the list is read.
    auto old = editorWith("Old");
    keepDiscardedWork(old->document, discarded);
    DiscardedWork::Entry oldest;
    for (const DiscardedWork::Entry& entry : discarded.entries())
        if (entry.projectName == "Old")
            oldest = entry;
    QFile info(dir.filePath("discarded/") + oldest.id + ".json");
    ASSERT_TRUE(info.open(QIODevice::WriteOnly));
    info.write(QStringLiteral("{\"project\":\"Old\",\"discarded\":\"%1\"}")
                   .arg(QDateTime::currentDateTime()
                            .addDays(-DiscardedWork::kKeptDays - 1)
                            .toString(Qt::ISODate))
                   .toUtf8());
    info.close();
    ASSERT_EQ(discarded.entries().size(), 1);

    auto next = editorWith("Other");
    next->prompter.choices = {-1, 0};
    EXPECT_FALSE(recoverDiscardedWork(next->document, discarded)); // cancelled
    EXPECT_TRUE(recoverDiscardedWork(next->document, discarded));
    EXPECT_EQ(next->bytes(), given);
    EXPECT_TRUE(next->document.isModified());
    EXPECT_FALSE(next->project().hasFile);
    EXPECT_TRUE(discarded.entries().isEmpty());
    next->prompter.clear();
    EXPECT_FALSE(recoverDiscardedWork(next->document, discarded));
    EXPECT_EQ(next->prompter.messageTexts(),
        QStringList {"No discarded work was kept in the last 7 days."});
}

// A project with several timers: asked before writing, the "opens" layout
// gives each timer its own "<ti>" line and reads back whole; one timer or
// none writes the same bytes either way, unasked.
TEST_F(Recovery, SeveralTimersAreSavedSoThatTheyOpenWhenTheAuthorSaysSo)
{
    auto editor = editorWith("Timers");
    const QString path = dir.filePath("Timers.vnsc");
    saveDocument(editor->document, path);
    editor->prompter.clear();
    EXPECT_TRUE(saveProjectCommand(editor->document));
    EXPECT_TRUE(editor->prompter.prompts.isEmpty());
    EXPECT_EQ(projectFileBytes(editor->project(), TimerLayout::Opening), editor->bytes());

    editor->document.edit("Timers", [&] {
        editor->addTimer("First");
        editor->addTimer("Second");
    });
    editor->prompter.choices = {2, 0};
    EXPECT_FALSE(saveProjectCommand(editor->document)); // Cancel writes nothing
    EXPECT_TRUE(editor->document.isModified());
    EXPECT_TRUE(saveProjectCommand(editor->document));
    ASSERT_EQ(editor->prompter.prompts.size(), 2);
    EXPECT_TRUE(editor->prompter.prompts.first().text.startsWith("The project has 2 timers"));
    EXPECT_EQ(readBytes(path).count("<ti>|2\r\n"), 2);
    ProjectBuilder reader(dir.filePath("program"));
    LoadProject(reader.workspace, path);
    EXPECT_EQ(reader.project().timerCount, 2);
    EXPECT_EQ(reader.project().timers.at(1).name, "Second");
}
