// Starting the packer batch: a failure to start it, and how it is started
// on this system. The golden cases cover the rest of the packer step.
#include "compile/compile_command.h"
#include "compile_case.h"
#include "document/project_file.h"
#include "catalogue/workspace.h"
#include "scripted_prompter.h"
#include "ui/launcher.h"

#include <QElapsedTimer>
#include <QThread>

using namespace tarvo;
using namespace compile_case;

namespace {

struct FailingLauncher : Launcher
{
    QString start(const QString&, const QString&, Mode mode) override
    {
        modes.append(mode);
        return QStringLiteral("cannot start here");
    }
    QList<Mode> modes;
};

// The editor does not wait for the batch: the tree is done and the failure
// is listed with the warnings. The command line waits and fails.
TEST(PackerStep, AStartFailureIsAWarningUnlessTheCallerWaits)
{
    CaseFolder folder("worked_example");
    ScriptedPrompter prompter;
    Workspace workspace(folder.dir(), prompter);
    LoadProject(workspace, folder.project());
    FailingLauncher launcher;
    CompileOptions options;
    options.launcher = &launcher;
    CompileOutcome outcome = CompileProject(workspace, prompter, options);
    EXPECT_TRUE(outcome.done());
    EXPECT_EQ(outcome.warnings, QStringList {"cannot start here"});

    prompter.clear();
    options.waitForPacker = true;
    outcome = CompileProject(workspace, prompter, options);
    EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
    EXPECT_EQ(outcome.message, "cannot start here");
    EXPECT_EQ(prompter.messageTexts(), QStringList {"cannot start here"});
    EXPECT_EQ(
        launcher.modes, QList<Launcher::Mode>({Launcher::Mode::Detached, Launcher::Mode::Wait}));
}

// cmd reads "&", "|", "<", ">" and "^" outside quotes as its own; it drops
// the outer pair of quotes after "/c".
TEST(BatchCommand, CmdGetsThePathQuotedTwice)
{
    EXPECT_EQ(cmdArguments(R"(C:\Projects\A & B\Compile.bat)"),
        R"(/c ""C:\Projects\A & B\Compile.bat"")");
    EXPECT_EQ(cmdArguments(R"(C:\P\x|y<z>^w\Compile.bat)"), R"(/c ""C:\P\x|y<z>^w\Compile.bat"")");
}

#ifndef Q_OS_WIN

TEST(BatchCommand, ShellScriptsRunUnderShAndWindowsBatchesNeedWine)
{
    QTemporaryDir dir;
    const QString script = dir.filePath("Compile.bat");
    writeBytes(script, "#!/bin/sh\necho hi\n");
    EXPECT_EQ(batchCommandFor(script).program, "/bin/sh");
    EXPECT_EQ(batchCommandFor(script).arguments, QStringList {script});

    const QString batch = dir.filePath("Real.bat");
    writeBytes(batch, "@echo off\r\nMakeVNP.exe\r\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(dir.path()));
    const BatchCommand withoutWine = batchCommandFor(batch);
    const QString wine = dir.filePath("wine");
    writeBytes(wine, "#!/bin/sh\n");
    QFile::setPermissions(wine, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    const BatchCommand withWine = batchCommandFor(batch);
    qputenv("PATH", path);

    EXPECT_TRUE(withoutWine.program.isEmpty());
    EXPECT_TRUE(withoutWine.error.contains("\"" + batch + "\" cannot be started here"));
    EXPECT_EQ(withWine.program, wine);
    EXPECT_EQ(withWine.arguments, QStringList({"cmd", "/c", batch}));
    EXPECT_TRUE(batchCommandFor(dir.filePath("none.bat")).error.contains("cannot be read"));
}

TEST(ProcessLauncher, DetachedStartReturnsAndTheBatchRunsInItsFolder)
{
    QTemporaryDir dir;
    const QString batch = dir.filePath("Compile.bat");
    writeBytes(batch, "#!/bin/sh\necho done > started.txt\n");
    ASSERT_EQ(ProcessLauncher().start(batch, dir.path(), Launcher::Mode::Detached), QString());
    // Not a speed check: the limit only ends a run that hangs.
    QElapsedTimer clock;
    clock.start();
    while (readBytes(dir.filePath("started.txt")) != "done\n" && clock.elapsed() < 30000)
        QThread::msleep(20);
    EXPECT_EQ(readBytes(dir.filePath("started.txt")), "done\n");
}

#endif

} // namespace
