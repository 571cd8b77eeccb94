#pragma once

#include "console_prompter.h"
#include "model/project_document.h"

#include <QStringList>
#include <cstdio>

// The commands of tarvo-cli. Each takes the positional arguments (the command
// first) and returns the exit code.

// `resave IN.vnsc OUT.vnsc`: load a project and save it again.
int runResave(const QStringList& args, const QString& programDir);
// `compile PROJECT.vnsc [--no-pack]`: the editor's compile command, after the
// project check, whose issues are printed as warnings.
int runCompile(const QStringList& args, const QString& programDir, bool runPacker);
// `check PROJECT.vnsc [--format text|json]`: exit 0 without issues (or with
// information only), 1 with errors or warnings, 2 when the project or the catalogues cannot be
// loaded.
int runCheck(const QStringList& args, const QString& programDir, const QString& format);

// `graph PROJECT.vnsc [--format dot|json|svg] [-o FILE]`: the mission map;
// exit 0, 2 when the project cannot be loaded, 1 when the output cannot be
// written.
int runGraph(const QStringList& args, const QString& programDir, const QString& format,
    const QString& output);

void printLine(FILE* stream, const QString& text);

// A project loaded as the editor loads it, through the same document.
struct LoadedProject
{
    explicit LoadedProject(const QString& programDir)
        : workspace(programDir, prompter)
    {
    }

    // Reads `path`; a faulty file or catalogue is printed to stderr.
    bool load(const QString& path);

    ConsolePrompter prompter;
    tarvo::Workspace workspace;
    tarvo::ProjectDocument document {workspace};
};
