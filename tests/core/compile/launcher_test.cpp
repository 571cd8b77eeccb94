// Starting the packer batch on this system: which interpreter a batch file
// gets, and real runs of small shell batches through QProcess.
#include "compile_fixture.h"
#include "ui/launcher.h"

#include <QElapsedTimer>
#include <QThread>

using namespace tarvo;
using namespace compile_test;

namespace {

#ifndef Q_OS_WIN

// Puts only `dir` on the PATH while alive.
class ScopedPath
{
public:
    explicit ScopedPath(const QString& dir)
        : m_old(qgetenv("PATH"))
    {
        qputenv("PATH", QFile::encodeName(dir));
    }
    ~ScopedPath() { qputenv("PATH", m_old); }

private:
    QByteArray m_old;
};

TEST(BatchCommand, ShellScriptsRunUnderShAndWindowsBatchesNeedWine)
{
    QTemporaryDir dir;
    const QString script = dir.filePath("Compile.bat");
    writeBytes(script, "#!/bin/sh\necho hi\n");
    BatchCommand command = batchCommandFor(script);
    EXPECT_EQ(command.program, "/bin/sh");
    EXPECT_EQ(command.arguments, QStringList {script});
    EXPECT_TRUE(command.error.isEmpty());

    const QString batch = dir.filePath("Real.bat");
    writeBytes(batch, "@echo off\r\nMakeVNP.exe\r\n");
    const QString bin = dir.filePath("bin");
    QDir().mkpath(bin);
    {
        ScopedPath path(bin);
        command = batchCommandFor(batch);
        EXPECT_TRUE(command.program.isEmpty());
        EXPECT_TRUE(command.error.contains("cannot be started here"));
        EXPECT_TRUE(command.error.contains("Real.bat"));
    }
    const QString wine = bin + QStringLiteral("/wine");
    writeBytes(wine, "#!/bin/sh\n");
    QFile(wine).setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    {
        ScopedPath path(bin);
        command = batchCommandFor(batch);
        EXPECT_EQ(command.program, wine);
        EXPECT_EQ(command.arguments, QStringList({"cmd", "/c", batch}));
    }
    EXPECT_TRUE(batchCommandFor(dir.filePath("none.bat")).error.contains("cannot be read"));
}

TEST(ProcessLauncher, WaitingRunsTheBatchInItsFolderAndReportsFailure)
{
    QTemporaryDir dir;
    const QString batch = dir.filePath("Compile.bat");
    writeBytes(batch, "#!/bin/sh\necho packed > result.txt\n");
    ProcessLauncher launcher;
    EXPECT_EQ(launcher.start(batch, dir.path(), Launcher::Mode::Wait), QString());
    EXPECT_EQ(readBytes(dir.filePath("result.txt")), "packed\n");

    writeBytes(batch, "#!/bin/sh\necho missing file >&2\nexit 3\n");
    const QString error = launcher.start(batch, dir.path(), Launcher::Mode::Wait);
    EXPECT_TRUE(error.contains("exit code 3")) << error.toStdString();
    EXPECT_TRUE(error.contains("missing file")) << error.toStdString();
}

TEST(ProcessLauncher, DetachedStartReturnsAndTheBatchRunsOnItsOwn)
{
    QTemporaryDir dir;
    const QString batch = dir.filePath("Compile.bat");
    writeBytes(batch, "#!/bin/sh\necho done > started.txt\n");
    ProcessLauncher launcher;
    ASSERT_EQ(launcher.start(batch, dir.path(), Launcher::Mode::Detached), QString());
    // Wait for the batch (not a speed check: the limit only ends a hung run).
    const QString marker = dir.filePath("started.txt");
    QElapsedTimer clock;
    clock.start();
    while (readBytes(marker) != "done\n" && clock.elapsed() < 30000)
        QThread::msleep(20);
    EXPECT_EQ(readBytes(marker), "done\n");
}

#endif

} // namespace
