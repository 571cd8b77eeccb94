#include "commands.h"
#include "document/project_file.h"
#include "versions/project_merge.h"

int runMerge(const QStringList& args, const QString& programDir, const QString& output)
{
    if (args.size() != 4) {
        printLine(stderr,
            QStringLiteral("usage: tarvo-cli merge BASE.vnsc OURS.vnsc THEIRS.vnsc [-o OUT] "
                           "[--program-dir DIR]"));
        return 2;
    }
    LoadedProject base(programDir);
    LoadedProject ours(programDir);
    LoadedProject theirs(programDir);
    // Nothing is written unless all three load: a half-read version would
    // merge as if its missing records had been removed.
    if (!loadTogether({{&base, args.at(1)}, {&ours, args.at(2)}, {&theirs, args.at(3)}})) {
        printLine(stderr, QStringLiteral("merge: nothing written"));
        return 2;
    }
    tarvo::MergeOutcome outcome = tarvo::mergeProjects(
        base.workspace.project, ours.workspace.project, theirs.workspace.project);
    const QString target = output.isEmpty() ? args.at(2) : output;
    try {
        tarvo::SaveProject(outcome.merged, target);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        printLine(stderr, QStringLiteral("merge: nothing written"));
        return 2;
    }
    for (const QString& note : outcome.notes)
        printUtf8(stdout, note + u'\n');
    QString conflicts;
    for (const QString& line : outcome.conflicts)
        conflicts += line + u'\n';
    printUtf8(stderr, conflicts);
    return outcome.conflicts.isEmpty() ? 0 : 1;
}
