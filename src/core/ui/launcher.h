#pragma once

#include <QString>
#include <QStringList>

namespace tarvo {

// Starts the packer batch. The editor starts it and goes on; the command-line
// tool waits, because a headless build must not return before the archive
// exists. One Qt implementation (ProcessLauncher); tests use their own.
class Launcher
{
public:
    enum class Mode { Detached, Wait };

    virtual ~Launcher() = default;

    // Starts `batchFile` with `workingDir` as its current directory. Returns
    // the empty text on success, otherwise a sentence saying why the batch
    // could not be started (or, in Wait mode, why it failed).
    virtual QString start(const QString& batchFile, const QString& workingDir, Mode mode) = 0;
};

// How a batch file is started on this system: the program and its arguments.
struct BatchCommand
{
    QString program;
    QStringList arguments;
    // Windows only: the command line as cmd must read it, given as it stands
    // (QProcess would quote only arguments holding blanks).
    QString nativeArguments;
    QString error; // non-empty when the batch cannot be started here
};

// The arguments of "cmd" that run the batch at `nativePath`: the path in
// double quotes, and the whole once more, as cmd drops the outer pair. An
// unquoted "&", "|", "<", ">" or "^" in the path would otherwise be read as
// a command of its own.
QString cmdArguments(const QString& nativePath);

// On Windows "cmd /c"; elsewhere "/bin/sh" when the file starts with "#!",
// else "wine cmd /c" when wine is on the PATH, else an error.
BatchCommand batchCommandFor(const QString& batchFile);

// The QProcess implementation; hidden window on Windows.
class ProcessLauncher : public Launcher
{
public:
    QString start(const QString& batchFile, const QString& workingDir, Mode mode) override;
};

} // namespace tarvo
