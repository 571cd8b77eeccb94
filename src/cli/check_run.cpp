#include "check/check_report.h"
#include "commands.h"

#include <QFileInfo>

int runCheck(const QStringList& args, const QString& programDir, const QString& format)
{
    const bool json = format == QLatin1String("json");
    if (args.size() != 2 || (!json && format != QLatin1String("text"))) {
        printLine(stderr,
            QStringLiteral("usage: tarvo-cli check PROJECT.vnsc [--program-dir DIR] "
                           "[--format text|json]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return 2;
    const QList<tarvo::CheckIssue> issues = tarvo::checkProject(loaded.workspace);
    const QString file = QFileInfo(args.at(1)).fileName();
    const tarvo::Project& project = loaded.workspace.project;
    if (json) {
        std::fputs(tarvo::issuesJson(file, project, issues).constData(), stdout);
    } else {
        for (const tarvo::CheckIssue& issue : issues)
            printLine(stdout, tarvo::issueLine(file, project, issue));
    }
    // Information alone (an odd but possibly meant state) passes.
    for (const tarvo::CheckIssue& issue : issues)
        if (issue.severity != tarvo::CheckIssue::Severity::Information)
            return 1;
    return 0;
}
