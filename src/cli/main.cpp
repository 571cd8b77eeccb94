#include "commands.h"
#include "base/file_size_signal.h"
#include "base/program_folder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace {

void printError(const QString& text)
{
    printLine(stderr, text);
}

const char* const kUsage = "Commands:\n"
                           "  resave IN.vnsc OUT.vnsc   load a project and save it again\n"
                           "  compile PROJECT.vnsc      build the project's output tree and "
                           "archive\n"
                           "  check PROJECT.vnsc        list the problems the compile or the game "
                           "would meet\n"
                           "  repair IN.vnsc OUT.vnsc   save what can be read of a damaged file "
                           "so that it opens\n"
                           "  check-catalogues          list every problem of the catalogues "
                           "(temp.txt, temp2.txt)\n"
                           "  show PROJECT.vnsc         print a readable outline of the project\n"
                           "  diff OLD.vnsc NEW.vnsc    list what changed, record by record\n"
                           "  merge BASE OURS THEIRS    three-way merge into OURS (or -o OUT)\n"
                           "  git-setup [REPOSITORY]    use show and merge for *.vnsc in git\n"
                           "  graph PROJECT.vnsc        the mission map: who switches on whom, "
                           "the flags, the ends\n"
                           "  simulate PROJECT.vnsc     a dry run of the mission's logic without "
                           "the game\n";

} // namespace

int main(int argc, char* argv[])
{
    tarvo::ignoreFileSizeSignal();
    QCoreApplication app(argc, argv);
    // The editor's name: both programs share one per-user program folder.
    QCoreApplication::setApplicationName(QStringLiteral("tarvo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVO_VERSION));

    QCommandLineParser parser;
    const QString description
        = QStringLiteral("Headless tool of the Tarvo campaign script editor.\n\n")
        + QString::fromLatin1(kUsage);
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    QCommandLineOption versionOption(
        {QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Print the version."));
    parser.addOption(versionOption);
    QCommandLineOption programDirOption(QStringLiteral("program-dir"),
        QStringLiteral("The program folder with the catalogues and the Source templates "
                       "(default: the folder of this executable, else ../share/tarvo from it; "
                       "a read-only one is copied to the per-user folder)."),
        QStringLiteral("DIR"));
    parser.addOption(programDirOption);
    QCommandLineOption noPackOption(QStringLiteral("no-pack"),
        QStringLiteral("compile: write the output tree but do not run the packer."));
    parser.addOption(noPackOption);
    QCommandLineOption formatOption(QStringLiteral("format"),
        QStringLiteral("check, diff, simulate: \"text\" (one line per issue, change or entry, "
                       "the default) or \"json\"; graph: \"dot\" (the default), \"json\" or "
                       "\"svg\"."),
        QStringLiteral("FORMAT"));
    parser.addOption(formatOption);
    QCommandLineOption timersOption(QStringLiteral("timers"),
        QStringLiteral("resave: \"as-is\" (the default: one \"<ti>\" line, as the format's writer "
                       "lays timers out) or \"opening\" (a \"<ti>\" line before each timer, so "
                       "that a file with several timers opens again)."),
        QStringLiteral("LAYOUT"), QStringLiteral("as-is"));
    parser.addOption(timersOption);
    QCommandLineOption outputOption({QStringLiteral("o"), QStringLiteral("output")},
        QStringLiteral("merge: write the merged project here instead of over OURS; graph: write "
                       "to FILE instead of the standard output."),
        QStringLiteral("FILE"));
    parser.addOption(outputOption);
    QCommandLineOption scenarioOption(QStringLiteral("scenario"),
        QStringLiteral("simulate: the scenario (when to stop, which callbacks the game raises, "
                       "what its functions answer)."),
        QStringLiteral("FILE"));
    parser.addOption(scenarioOption);
    QCommandLineOption untilOption(QStringLiteral("until"),
        QStringLiteral("simulate: stop at T tenths of a second (instead of the scenario's "
                       "\"until\", else an hour)."),
        QStringLiteral("T"));
    parser.addOption(untilOption);
    QCommandLineOption whyOption(QStringLiteral("why"),
        QStringLiteral("simulate: after the run, say why EVENT (its title, script name or "
                       "number) did or did not run, instead of the transcript."),
        QStringLiteral("EVENT"));
    parser.addOption(whyOption);
    parser.addPositionalArgument(QStringLiteral("command"),
        QStringLiteral("resave, compile, check, repair, check-catalogues, show, diff, merge, "
                       "git-setup, graph or simulate"));
    if (!parser.parse(app.arguments())) {
        printError(parser.errorText());
        std::fputs(qPrintable(parser.helpText()), stderr);
        return 2;
    }
    if (parser.isSet(versionOption)) {
        std::printf("tarvo-cli %s\n", TARVO_VERSION);
        return 0;
    }

    tarvo::ProgramFolderSearch search
        = tarvo::applicationProgramFolderSearch(parser.value(programDirOption));
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        search.copyAllowed = false;
        parser.setApplicationDescription(
            description + u'\n' + tarvo::findProgramFolder(search).note);
        parser.showHelp(0);
    }
    const QStringList args = parser.positionalArguments();
    if (args.isEmpty()) {
        std::fputs(qPrintable(parser.helpText()), stderr);
        return 2;
    }
    const tarvo::ProgramFolder programFolder = tarvo::findProgramFolder(search);
    // Quiet otherwise: scripts read stdout, and the folder rarely changes.
    if (programFolder.copied)
        printError(programFolder.note);
    const QString& programDir = programFolder.path;
    const QString command = args.first();
    const QString textFormat
        = parser.isSet(formatOption) ? parser.value(formatOption) : QStringLiteral("text");
    if (command == QLatin1String("resave"))
        return runResave(args, programDir, parser.value(timersOption));
    if (command == QLatin1String("repair"))
        return runRepair(args, programDir);
    if (command == QLatin1String("compile"))
        return runCompile(args, programDir, !parser.isSet(noPackOption));
    if (command == QLatin1String("check"))
        return runCheck(args, programDir, textFormat);
    if (command == QLatin1String("check-catalogues"))
        return runCheckCatalogues(args, programDir);
    if (command == QLatin1String("show"))
        return runShow(args, programDir);
    if (command == QLatin1String("diff"))
        return runDiff(args, programDir, textFormat);
    if (command == QLatin1String("merge"))
        return runMerge(args, programDir, parser.value(outputOption));
    if (command == QLatin1String("git-setup"))
        return runGitSetup(args, programDir);
    if (command == QLatin1String("graph"))
        return runGraph(args, programDir,
            parser.isSet(formatOption) ? parser.value(formatOption) : QStringLiteral("dot"),
            parser.value(outputOption));
    if (command == QLatin1String("simulate"))
        return runSimulate(args, programDir,
            {textFormat, parser.value(scenarioOption), parser.value(untilOption),
                parser.value(whyOption)});
    printError(
        QStringLiteral("unknown command \"%1\"\n").arg(command) + QString::fromLatin1(kUsage));
    return 2;
}
