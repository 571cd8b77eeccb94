#include "ui/launcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace tarvo {

namespace {

QString native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

#ifdef Q_OS_WIN
// CREATE_NO_WINDOW: the batch runs without a console window of its own.
constexpr unsigned long kCreateNoWindow = 0x08000000;
#endif

void prepare(QProcess& process, const BatchCommand& command, const QString& workingDir)
{
    process.setProgram(command.program);
    process.setArguments(command.arguments);
    process.setWorkingDirectory(workingDir);
#ifdef Q_OS_WIN
    process.setNativeArguments(command.nativeArguments);
    process.setCreateProcessArgumentsModifier(
        [](QProcess::CreateProcessArguments* arguments) { arguments->flags |= kCreateNoWindow; });
#endif
}

} // namespace

QString cmdArguments(const QString& nativePath)
{
    return QStringLiteral("/c \"\"%1\"\"").arg(nativePath);
}

BatchCommand batchCommandFor(const QString& batchFile)
{
    BatchCommand command;
#ifdef Q_OS_WIN
    command.program = QStringLiteral("cmd");
    command.nativeArguments = cmdArguments(native(batchFile));
#else
    QFile file(batchFile);
    if (!file.open(QIODevice::ReadOnly)) {
        command.error = QStringLiteral("The batch file \"%1\" cannot be read: %2")
                            .arg(native(batchFile), file.errorString());
        return command;
    }
    if (file.read(2) == "#!") {
        command.program = QStringLiteral("/bin/sh");
        command.arguments = {batchFile};
        return command;
    }
    const QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
    if (!wine.isEmpty()) {
        command.program = wine;
        command.arguments = {QStringLiteral("cmd"), QStringLiteral("/c"), batchFile};
        return command;
    }
    command.error = QStringLiteral("The batch file \"%1\" cannot be started here: it is a Windows "
                                   "batch file and wine is not installed.")
                        .arg(native(batchFile));
#endif
    return command;
}

QString ProcessLauncher::start(const QString& batchFile, const QString& workingDir, Mode mode)
{
    const BatchCommand command = batchCommandFor(batchFile);
    if (!command.error.isEmpty())
        return command.error;

    QProcess process;
    prepare(process, command, workingDir);
    if (mode == Mode::Detached) {
        if (!process.startDetached())
            return QStringLiteral("The batch file \"%1\" could not be started: %2")
                .arg(native(batchFile), process.errorString());
        return {};
    }

    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start();
    if (!process.waitForStarted(-1))
        return QStringLiteral("The batch file \"%1\" could not be started: %2")
            .arg(native(batchFile), process.errorString());
    process.waitForFinished(-1);
    const QString output = QString::fromLocal8Bit(process.readAll()).trimmed();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        QString message = process.exitStatus() != QProcess::NormalExit
            ? QStringLiteral("The batch file \"%1\" crashed.").arg(native(batchFile))
            : QStringLiteral("The batch file \"%1\" failed with exit code %2.")
                  .arg(native(batchFile))
                  .arg(process.exitCode());
        if (!output.isEmpty())
            message += u'\n' + output;
        return message;
    }
    return {};
}

} // namespace tarvo
