#include "check/check_report.h"
#include "commands.h"
#include "compile/compile_command.h"
#include "ui/quiet_prompter.h"

#include <QDir>
#include <QFileInfo>

int runCompile(const QStringList& args, const QString& programDir, bool runPacker)
{
    if (args.size() != 2) {
        printLine(stderr,
            QStringLiteral(
                "usage: tarvo-cli compile PROJECT.vnsc [--program-dir DIR] [--no-pack]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return loaded.failureCode(1);
    tarvo::Workspace& workspace = loaded.workspace;
    // What the check finds is worth knowing before the game finds it; the
    // compile goes on all the same.
    const QString file = QFileInfo(args.at(1)).fileName();
    // Information (an odd state that may be meant) is the check's own business.
    for (const tarvo::CheckIssue& issue : tarvo::checkProject(workspace))
        if (issue.severity != tarvo::CheckIssue::Severity::Information)
            printLine(stderr,
                QStringLiteral("warning: ") + tarvo::issueLine(file, workspace.project, issue));

    tarvo::CompileOptions options;
    options.runPacker = runPacker;
    // Headless builds wait for the archive: returning before it exists (or
    // without saying that the packer failed) would make the run useless.
    options.waitForPacker = true;
    // The outcome is printed below, so the compile itself tells nobody.
    QuietPrompter quiet;
    const tarvo::CompileOutcome outcome = tarvo::CompileProject(workspace, quiet, options);

    for (const QString& warning : outcome.warnings)
        printLine(stderr, QStringLiteral("warning: ") + warning);
    switch (outcome.status) {
    case tarvo::CompileOutcome::Status::Done:
        printLine(stdout, QDir::toNativeSeparators(QDir::cleanPath(outcome.outputRoot)));
        printLine(stdout, outcome.message);
        return 0;
    case tarvo::CompileOutcome::Status::NoName:
        printLine(stderr, QStringLiteral("The project has no name: nothing was compiled."));
        return 1;
    case tarvo::CompileOutcome::Status::NothingToCompile:
    case tarvo::CompileOutcome::Status::Failed:
        printLine(stderr, outcome.message);
        return 1;
    }
    return 1;
}
