#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace tarvo {

struct Workspace;
class Launcher;
class Prompter;

struct CompileOptions
{
    // Copy "Compile.bat" and "MakeVNP.exe" into the output root and start
    // the batch. Off only for tests and `tarvo-cli compile --no-pack`.
    bool runPacker = true;
    // Detached (the editor) or waiting for the batch to finish (the CLI).
    bool waitForPacker = false;
    // Starts the batch; null means a ProcessLauncher of the routine's own.
    Launcher* launcher = nullptr;
    // Called between the steps so that a window can stay responsive.
    std::function<void()> progress;
};

struct CompileOutcome
{
    enum class Status {
        Done, // the tree is written (and the packer started, if asked)
        NoName, // the project has no name: beep only
        NothingToCompile, // no events: "Nothing to compile!"
        Failed, // `message` says why; see `touchedDisk`
    };

    Status status = Status::Failed;
    QString message;
    QString outputRoot;
    // Statements the writing steps skipped (a missing template or sound file,
    // a directory that could not be made) and, when the batch is not waited
    // for, a batch that could not be started; the compile still counts as
    // done, unless the output root, the values file or the script source
    // could not be written (then it failed, and the packer was not run).
    // Filled for failures after the tree was written, too.
    QStringList warnings;
    // False when the compile stopped before changing anything on disk (an
    // output path that would leave the output root, for instance).
    bool touchedDisk = false;
    // The output root, the values file or the script source could not be
    // written: the compile failed after writing what it could.
    bool incomplete = false;

    bool done() const { return status == Status::Done; }
};

// Script > Compile: cleans and rebuilds the project's output tree under the
// projects folder, writes the values file, the sounds, the script source, the
// resource lists and the message strings, then (optionally) the packer step.
// The outcome is told through `prompter` as the menu entry tells it (beep,
// "Nothing to compile!", failures, "Done."): the editor passes its own, a
// tool that reports the outcome itself a quiet one. Warnings are never told
// here: every caller lists `CompileOutcome::warnings` (status lines, stderr).
CompileOutcome CompileProject(
    Workspace& workspace, Prompter& prompter, const CompileOptions& options = {});

} // namespace tarvo
