#include "commands.h"
#include "versions/project_diff.h"

int runDiff(const QStringList& args, const QString& programDir, const QString& format)
{
    const bool json = format == QLatin1String("json");
    if (args.size() != 3 || (!json && format != QLatin1String("text"))) {
        printLine(stderr,
            QStringLiteral("usage: tarvo-cli diff OLD.vnsc NEW.vnsc [--program-dir DIR] "
                           "[--format text|json]"));
        return 2;
    }
    LoadedProject older(programDir);
    LoadedProject newer(programDir);
    if (!loadTogether({{&older, args.at(1)}, {&newer, args.at(2)}}))
        return 2;
    const QList<tarvo::RecordChange> changes
        = tarvo::compareProjects(older.workspace.project, newer.workspace.project);
    if (json) {
        std::fputs(tarvo::changesJson(changes).constData(), stdout);
    } else {
        QString text;
        for (const tarvo::RecordChange& change : changes)
            text += change.line() + u'\n';
        printUtf8(stdout, text);
    }
    return changes.isEmpty() ? 0 : 1;
}
