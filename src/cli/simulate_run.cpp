#include "commands.h"
#include "base/file_error.h"
#include "simulate/dry_run.h"
#include "simulate/why_not.h"

namespace {

using namespace tarvo::simulate;

int usage()
{
    printLine(stderr,
        QStringLiteral("usage: tarvo-cli simulate PROJECT.vnsc [--program-dir DIR] "
                       "[--scenario FILE] [--until T] [--format text|json] [--why EVENT]"));
    return 2;
}

} // namespace

int runSimulate(const QStringList& args, const QString& programDir, const SimulateOptions& options)
{
    const bool json = options.format == QLatin1String("json");
    if (args.size() != 2 || !(json || options.format == QLatin1String("text")))
        return usage();
    int until = -1;
    if (!options.until.isEmpty()) {
        bool ok = false;
        until = options.until.toInt(&ok);
        if (!ok || until < 0) {
            printLine(stderr,
                QStringLiteral("--until: expected a whole number of tenths of a second, not "
                               "\"%1\"")
                    .arg(options.until));
            return 2;
        }
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return 2;

    Scenario scenario;
    QList<tarvo::FileError> errors;
    auto model = std::make_shared<DryRunModel>();
    try {
        if (!options.scenario.isEmpty())
            scenario = loadScenario(options.scenario, errors);
        *model = buildDryRunModel(loaded.workspace);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        return 2;
    }
    for (const tarvo::FileError& error : std::as_const(errors))
        printLine(stderr, error.message());
    for (const QString& error : std::as_const(model->errors))
        printLine(stderr,
            QStringLiteral("%1: the game cannot read the script: %2").arg(args.at(1), error));
    if (!errors.isEmpty() || !model->errors.isEmpty())
        return 1;
    if (until >= 0)
        scenario.until = until;

    const bool transcript = options.why.isEmpty();
    DryRun::Sink print;
    if (transcript)
        print = [&](const TranscriptEntry& entry) {
            if (json) {
                const QByteArray line = entryJson(entry, *model) + '\n';
                std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
            } else {
                printUtf8(stdout, entryText(entry, *model) + u'\n');
            }
        };
    // "Why not?" needs the histories only: no transcript is made.
    DryRun run(model, scenario, print);
    if (!transcript) {
        const int event = findEventByWord(run, options.why);
        if (event < 0) {
            printLine(stderr,
                QStringLiteral("--why: the project has no event \"%1\" (give its title, its "
                               "script name such as event3, or its number)")
                    .arg(options.why));
            return 1;
        }
        run.runToEnd();
        if (json) {
            const QByteArray line = whyNotJson(run, event) + '\n';
            std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
        } else {
            printUtf8(stdout, whyNotLines(run, event).join(u'\n') + u'\n');
        }
        return 0;
    }
    run.runToEnd();
    return 0;
}
