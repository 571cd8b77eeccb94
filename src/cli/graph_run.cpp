#include "analysis/mission_graph.h"
#include "commands.h"
#include "graph_layout.h"
#include "base/file_error.h"

#include <QSaveFile>

int runGraph(const QStringList& args, const QString& programDir, const QString& format,
    const QString& output)
{
    const bool known = format == QLatin1String("dot") || format == QLatin1String("json")
        || format == QLatin1String("svg");
    if (args.size() != 2 || !known) {
        printLine(stderr,
            QStringLiteral("usage: tarvo-cli graph PROJECT.vnsc [--program-dir DIR] "
                           "[--format dot|json|svg] [-o FILE]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return 2;
    QByteArray bytes;
    try {
        const tarvo::analysis::MissionAnalysis analysis
            = tarvo::analysis::analyseMission(loaded.workspace);
        const tarvo::analysis::MissionGraph graph
            = tarvo::analysis::missionGraph(loaded.workspace.project, analysis);
        if (format == QLatin1String("json")) {
            bytes = tarvo::analysis::graphJson(graph);
        } else {
            bytes = tarvo::analysis::graphDot(graph);
            if (format == QLatin1String("svg")) {
                QString error;
                bytes = tarvo::layout::renderDot(bytes, "svg", &error);
                if (bytes.isEmpty()) {
                    printLine(stderr, error);
                    return 1;
                }
            }
        }
    } catch (const tarvo::FileError& error) {
        // The functions file of the program folder.
        printLine(stderr, error.message());
        return 2;
    }
    if (output.isEmpty() || output == QLatin1String("-")) {
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
        return 0;
    }
    QSaveFile file(output);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        printLine(stderr, QStringLiteral("%1: %2").arg(output, file.errorString()));
        return 1;
    }
    return 0;
}
