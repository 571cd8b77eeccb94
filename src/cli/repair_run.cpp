#include "commands.h"
#include "document/project_commands.h"
#include "document/project_file_probe.h"

int runRepair(const QStringList& args, const QString& programDir)
{
    if (args.size() != 3) {
        printLine(
            stderr, QStringLiteral("usage: tarvo-cli repair IN.vnsc OUT.vnsc [--program-dir DIR]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    try {
        const QList<tarvo::FileError> notes = tarvo::RepairProject(loaded.workspace, args.at(1));
        for (const tarvo::FileError& note : notes)
            printLine(stderr, note.message());
        loaded.document.projectReplaced(true);
        // The repaired file is for opening: timers each get their own line.
        tarvo::saveDocument(loaded.document, args.at(2), tarvo::TimerLayout::Opening);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        return 1;
    }
    return 0;
}
