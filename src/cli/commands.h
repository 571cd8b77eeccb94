#pragma once

#include "console_prompter.h"
#include "document/project_document.h"

#include <QStringList>
#include <cstdio>

// The commands of tarvo-cli. Each takes the positional arguments (the command
// first) and returns the exit code.

// `resave IN.vnsc OUT.vnsc [--timers as-is|opening]`: load a project and
// save it again, its timers as the format's writer lays them out (as-is) or
// so that the file opens again (opening).
int runResave(const QStringList& args, const QString& programDir, const QString& timers);
// `repair IN.vnsc OUT.vnsc`: what can be read of a damaged or converted
// file, saved so that it opens; the problems go to stderr. Exit 0 when a
// project was written, 1 when nothing could be read or written.
int runRepair(const QStringList& args, const QString& programDir);
// `compile PROJECT.vnsc [--no-pack]`: the editor's compile command, after the
// project check, whose issues are printed as warnings.
int runCompile(const QStringList& args, const QString& programDir, bool runPacker);
// `check PROJECT.vnsc [--format text|json]`: exit 0 without issues (or with
// information only), 1 with errors or warnings, 2 when the project or the catalogues cannot be
// loaded.
int runCheck(const QStringList& args, const QString& programDir, const QString& format);
// `check-catalogues`: every problem of the program folder's catalogues, one
// line each; exit 0 without errors (warnings allowed), 1 with errors, 2 when
// a catalogue cannot be read.
int runCheckCatalogues(const QStringList& args, const QString& programDir);

// `show PROJECT.vnsc`: the project's outline in UTF-8 on stdout (git's textconv).
int runShow(const QStringList& args, const QString& programDir);
// `diff OLD.vnsc NEW.vnsc [--format text|json]`: exit 0 when equal, 1 when
// different, 2 when a project cannot be loaded.
int runDiff(const QStringList& args, const QString& programDir, const QString& format);
// `merge BASE OURS THEIRS [-o OUT]`: exit 0 when clean, 1 with conflicts (the
// file is written all the same), 2 when nothing could be written.
int runMerge(const QStringList& args, const QString& programDir, const QString& output);
// `git-setup [REPOSITORY]`: wires show and merge into a repository's git.
int runGitSetup(const QStringList& args, const QString& programDir);

// `graph PROJECT.vnsc [--format dot|json|svg] [-o FILE]`: the mission map;
// exit 0, 2 when the project cannot be loaded, 1 when the output cannot be
// written.
int runGraph(const QStringList& args, const QString& programDir, const QString& format,
    const QString& output);

// `simulate PROJECT.vnsc [--scenario FILE] [--until T] [--format text|json]
// [--why EVENT]`: the dry run's transcript, or the answer for one event.
// Exit 0 after a run however it ended, 1 when the project's script or the
// scenario has errors, 2 when the project cannot be loaded.
struct SimulateOptions
{
    QString format;
    QString scenario;
    QString until;
    QString why;
};
int runSimulate(const QStringList& args, const QString& programDir, const SimulateOptions& options);

void printLine(FILE* stream, const QString& text);
// Written as UTF-8 whatever the locale: outlines go to git and to files.
void printUtf8(FILE* stream, const QString& text);

// A project loaded as the editor loads it, through the same document.
struct LoadedProject
{
    explicit LoadedProject(const QString& programDir)
        : workspace(programDir, prompter)
    {
    }

    // Reads `path`; a faulty file or catalogue is printed to stderr, and so
    // are records the file ended inside. A file in another encoding, or one
    // without a line of the format, is refused (`refused`) before it is read.
    bool load(const QString& path);
    // The exit code of a failed load: 2 for a refused file, else `faulty`.
    int failureCode(int faulty) const { return refused ? 2 : faulty; }

    bool refused = false;

    ConsolePrompter prompter;
    tarvo::Workspace workspace;
    tarvo::ProjectDocument document {workspace};
};

// Loads several projects at once; the first failure (in argument order) is
// printed to stderr and gives false.
bool loadTogether(const QList<std::pair<LoadedProject*, QString>>& loads);
