#include "compile_run.h"

#include "compile/compile_command.h"
#include "console_prompter.h"
#include "model/project_file.h"

#include <QDir>
#include <cstdio>

namespace {

void printTo(FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
}

} // namespace

int runCompile(const QStringList& args, const QString& programDir, bool runPacker)
{
    if (args.size() != 2) {
        printTo(stderr,
            QStringLiteral(
                "usage: tarvo-cli compile PROJECT.vnsc [--program-dir DIR] [--no-pack]"));
        return 2;
    }
    ConsolePrompter prompter;
    tarvo::Workspace workspace(programDir, prompter);
    try {
        tarvo::LoadProject(workspace, args.at(1));
    } catch (const tarvo::FileError& error) {
        printTo(stderr, error.message());
        return 1;
    }

    tarvo::CompileOptions options;
    options.runPacker = runPacker;
    // Headless builds wait for the archive: returning before it exists (or
    // without saying that the packer failed) would make the run useless.
    options.waitForPacker = true;
    options.announce = false;
    const tarvo::CompileOutcome outcome = tarvo::CompileProject(workspace, options);

    for (const QString& warning : outcome.warnings)
        printTo(stderr, QStringLiteral("warning: ") + warning);
    switch (outcome.status) {
    case tarvo::CompileOutcome::Status::Done:
        printTo(stdout, QDir::toNativeSeparators(QDir::cleanPath(outcome.outputRoot)));
        printTo(stdout, outcome.message);
        return 0;
    case tarvo::CompileOutcome::Status::NoName:
        printTo(stderr, QStringLiteral("The project has no name: nothing was compiled."));
        return 1;
    case tarvo::CompileOutcome::Status::NothingToCompile:
    case tarvo::CompileOutcome::Status::Failed:
        printTo(stderr, outcome.message);
        return 1;
    }
    return 1;
}
