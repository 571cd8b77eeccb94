// The compile command as the menu entry runs it: its checks, what it tells
// the user, the skipped statements it reports, and the packer step through a
// launcher that records what it was asked to start.
#include "compile_fixture.h"
#include "ui/launcher.h"

using namespace tarvo;
using namespace compile_test;

namespace {

class RecordingLauncher : public Launcher
{
public:
    struct Call
    {
        QString batch;
        QString workingDir;
        Mode mode;
        bool batchInPlace;
        bool packerInPlace;
    };

    QString start(const QString& batchFile, const QString& workingDir, Mode mode) override
    {
        calls.append({batchFile, workingDir, mode, QFileInfo::exists(batchFile),
            QFileInfo::exists(workingDir + QStringLiteral("/MakeVNP.exe"))});
        return answer;
    }

    QList<Call> calls;
    QString answer;
};

struct PackerFolder : ProgramFolder
{
    PackerFolder()
        : ProgramFolder("worked_example")
    {
        writeBytes(sourceDir() + QStringLiteral("/Compile.bat"), "#!/bin/sh\nexit 0\n");
        writeBytes(sourceDir() + QStringLiteral("/MakeVNP.exe"), "packer");
    }
};

CompileOptions withLauncher(Launcher& launcher)
{
    CompileOptions options;
    options.launcher = &launcher;
    return options;
}

TEST(CompileChecks, NoNameOnlyBeepsAndNoEventsSaysSo)
{
    ProgramFolder folder;
    ScriptedPrompter prompter;
    Workspace workspace(folder.dir(), prompter);
    EventRecord event;
    workspace.project.events.append(event);
    workspace.project.eventCount = 1;

    CompileOutcome outcome = CompileProject(workspace, noPacker());
    EXPECT_EQ(outcome.status, CompileOutcome::Status::NoName);
    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_EQ(prompter.prompts.size(), 1);

    prompter.clear();
    workspace.project.name = "Empty";
    workspace.project.eventCount = 0;
    outcome = CompileProject(workspace, noPacker());
    EXPECT_EQ(outcome.status, CompileOutcome::Status::NothingToCompile);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].text, "Nothing to compile!");
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::None);
    EXPECT_EQ(prompter.prompts[0].buttons, Prompter::Buttons::Ok);
    EXPECT_FALSE(QFileInfo::exists(folder.projects()));

    // Quiet mode (the command-line tool) reports through the outcome alone.
    prompter.clear();
    CompileOptions quiet = noPacker();
    quiet.announce = false;
    EXPECT_EQ(CompileProject(workspace, quiet).status, CompileOutcome::Status::NothingToCompile);
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST(CompileChecks, AllEventsDisabledStillCompilesWithoutBodies)
{
    ProgramFolder folder("worked_example");
    LoadedWorkspace loaded(folder, "Example.vnsc");
    loaded.workspace.project.events[0].disabled = true;
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QByteArray script
        = readBytes(folder.root("Example") + QStringLiteral("/script/text/Example.slo"));
    EXPECT_TRUE(script.endsWith("//Event declaration\r\n//-----------------\r\n\r\n\r\n\r\n"));
}

TEST(CompileWarnings, MissingTemplatesAndSoundsAreReportedButTheTreeIsWritten)
{
    ProgramFolder folder("full");
    QFile::remove(folder.sourceDir() + QStringLiteral("/Stats.vnr"));
    QFile::remove(folder.dir() + QStringLiteral("/sounds/Wind.WAV"));
    LoadedWorkspace loaded(folder, "Full.vnsc");
    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());

    ASSERT_TRUE(outcome.done());
    const QString joined = outcome.warnings.join(u'\n');
    EXPECT_TRUE(joined.contains("Stats.vnr")) << joined.toStdString();
    EXPECT_TRUE(joined.contains("Wind.WAV")) << joined.toStdString();
    // The lines are appended to a new file when the template is missing.
    EXPECT_TRUE(readBytes(folder.root("Full") + QStringLiteral("/vnr/Stats.vnr"))
                    .startsWith("\r\ndirectory       \"messages\"\r\n"));
    // The caller lists the problems; the prompter only shows "Done.".
    EXPECT_EQ(loaded.prompter.messageTexts(), QStringList {"Done."});
    EXPECT_TRUE(loaded.prompter.statusLines().isEmpty());
}

TEST(CompileProgress, EveryStageLetsTheWindowBreathe)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    int calls = 0;
    CompileOptions options = noPacker();
    options.progress = [&] { ++calls; };
    ASSERT_TRUE(CompileProject(loaded.workspace, options).done());
    // Clean 1, sounds 3, briefing 1, stats 2, messages 3, the end 1.
    EXPECT_EQ(calls, 11);
}

TEST(PackerStep, CopiesBothFilesAndStartsTheBatchInTheRoot)
{
    PackerFolder folder;
    LoadedWorkspace loaded(folder, "Example.vnsc");
    const QString root = folder.root("Example");
    writeBytes(root + QStringLiteral("/Compile.bat"), "old batch");
    RecordingLauncher launcher;

    const CompileOutcome outcome = CompileProject(loaded.workspace, withLauncher(launcher));
    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    ASSERT_EQ(launcher.calls.size(), 1);
    EXPECT_EQ(launcher.calls[0].batch, root + QStringLiteral("/Compile.bat"));
    EXPECT_EQ(launcher.calls[0].workingDir, root);
    EXPECT_EQ(launcher.calls[0].mode, Launcher::Mode::Detached);
    EXPECT_TRUE(launcher.calls[0].batchInPlace && launcher.calls[0].packerInPlace);
    EXPECT_EQ(readBytes(root + QStringLiteral("/Compile.bat")), "#!/bin/sh\nexit 0\n");
    EXPECT_EQ(readBytes(root + QStringLiteral("/MakeVNP.exe")), "packer");
    EXPECT_EQ(loaded.prompter.messageTexts(), QStringList {"Done."});
}

TEST(PackerStep, AMissingPackerTemplateEndsTheCompileWithoutDone)
{
    for (const char* missing : {"Compile.bat", "MakeVNP.exe"}) {
        SCOPED_TRACE(missing);
        PackerFolder folder;
        QFile::remove(folder.sourceDir() + u'/' + QLatin1String(missing));
        LoadedWorkspace loaded(folder, "Example.vnsc");
        RecordingLauncher launcher;
        const CompileOutcome outcome = CompileProject(loaded.workspace, withLauncher(launcher));

        EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
        EXPECT_TRUE(outcome.message.contains(QLatin1String(missing)));
        EXPECT_TRUE(launcher.calls.isEmpty());
        ASSERT_EQ(loaded.prompter.messageTexts(), QStringList {outcome.message});
        EXPECT_EQ(loaded.prompter.prompts.last().icon, Prompter::Icon::Critical);
        // The tree itself was written before the packer step.
        EXPECT_TRUE(
            QFileInfo::exists(folder.root("Example") + QStringLiteral("/script/text/Example.slo")));
    }
}

TEST(PackerStep, AStartFailureIsReportedWhereTheCallerCanSeeIt)
{
    PackerFolder folder;
    LoadedWorkspace loaded(folder, "Example.vnsc");
    RecordingLauncher launcher;
    launcher.answer = "cannot start here";

    // The editor does not wait: the tree is done, the failure is listed with
    // the warnings the editor shows.
    CompileOutcome outcome = CompileProject(loaded.workspace, withLauncher(launcher));
    EXPECT_TRUE(outcome.done());
    EXPECT_EQ(outcome.warnings, QStringList {"cannot start here"});
    EXPECT_EQ(loaded.prompter.messageTexts(), QStringList {"Done."});

    // Waiting for the packer (the command-line tool) makes it a failure.
    loaded.prompter.clear();
    CompileOptions options = withLauncher(launcher);
    options.waitForPacker = true;
    outcome = CompileProject(loaded.workspace, options);
    EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
    EXPECT_EQ(outcome.message, "cannot start here");
    EXPECT_EQ(launcher.calls.last().mode, Launcher::Mode::Wait);
    EXPECT_FALSE(loaded.prompter.messageTexts().contains("Done."));
}

} // namespace
