// tarvo-cli and the packer run as programs: one table of runs with the exit
// code and what stdout and stderr hold, then every compile case of
// tests/data/compile through `tarvo-cli compile`.
#include "compile_case.h"
#include "text/shown_text.h"

#include <QProcess>
#include <QRegularExpression>
#include <functional>

using namespace compile_case;

namespace {

struct ProgramRun
{
    int exitCode = -1;
    QString out;
    QString err;
    QByteArray outBytes;
};

ProgramRun runProgram(const QString& program, const QStringList& args, const QString& dir = {})
{
    QProcess process;
    process.setWorkingDirectory(dir);
    process.start(program, args);
    process.waitForFinished(120000);
    const QByteArray out = process.readAllStandardOutput();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromLocal8Bit(out), QString::fromLocal8Bit(process.readAllStandardError()), out};
}

QStringList archiveEntries(const QString& archive)
{
    QStringList names = runProgram("unzip", {"-Z1", archive}).out.split(u'\n', Qt::SkipEmptyParts);
    names.sort();
    return names;
}

struct CliRun
{
    const char* label;
    // "sample": a program folder from the build in {dir}/program and the
    // sample project in {dir}/sample, less the file named after "without";
    // "fsize-limit": tarvo-cli under a file-size limit of 1 KB;
    // "packer/...": that folder of tests/data/cli as the output folder
    // {dir}/Mission, in which the packer runs.
    const char* setup;
    const char* args; // split at blanks; {dir}, {data}, {built}, {sample}, {source} filled in
    int exitCode;
    const char* out; // texts stdout must hold, separated by "|"; "": stdout is empty
    const char* err; // the same for stderr
    std::function<void(const QString& dir)> more = {};
};

#define SAMPLE "compile {dir}/sample/Demo.vnsc --program-dir {dir}/program"
#define CHECK "check {data}/check/deleted_items/project.vnsc --program-dir {source}"

const CliRun kRuns[] = {
    {"version", "", "--version", 0, "tarvo-cli ", ""},
    {"help", "", "--help", 0, "Headless tool of the Tarvo|check PROJECT.vnsc", ""},
    {"no command", "", "", 2, "", "Commands:"},
    {"unknown option", "", "--bogus", 2, "", "bogus"},
    {"unknown command", "", "frobnicate", 2, "", "unknown command \"frobnicate\""},
    {"resave", "", "resave {sample}/Demo.vnsc {dir}/out.vnsc --program-dir {built}", 0, "", "",
        [](const QString& dir) {
            EXPECT_EQ(readBytes(dir + "/out.vnsc"), readBytes(sampleDir() + "/Demo.vnsc"));
        }},
    // Over the file-size limit the write fails like any other, no signal.
    {"resave over the file-size limit", "fsize-limit",
        "resave {sample}/Demo.vnsc {dir}/out.vnsc --program-dir {built}", 1, "", "out.vnsc",
        [](const QString& dir) { EXPECT_FALSE(QFileInfo::exists(dir + "/out.vnsc")); }},
    {"resave usage", "", "resave {dir}/in.vnsc", 2, "", "usage: tarvo-cli resave"},
    {"resave of a faulty file", "",
        "resave {data}/cli/unknown_action.vnsc {dir}/out.vnsc --program-dir {built}", 1, "",
        "{data}/cli/unknown_action.vnsc:3: |action kind 999",
        [](const QString& dir) { EXPECT_FALSE(QFileInfo::exists(dir + "/out.vnsc")); }},
    // Files that are no project file in the code page are refused (2); a
    // repair reads what it can and saves it so that it opens.
    {"resave of a file in UTF-16", "",
        "resave {data}/project_repair/saved_as_utf16/input.vnsc {dir}/out.vnsc --program-dir "
        "{data}/project_repair",
        2, "", "is saved as UTF-16 (little-endian)|tarvo-cli repair",
        [](const QString& dir) { EXPECT_FALSE(QFileInfo::exists(dir + "/out.vnsc")); }},
    {"check of a file without a line of the format", "",
        "check {data}/project_repair/no_line_of_the_format/input.vnsc --program-dir {source}", 2,
        "", "holds no line of a project file"},
    {"compile of a file in UTF-8", "",
        "compile {data}/project_repair/saved_as_utf8/input.vnsc --program-dir "
        "{data}/project_repair --no-pack",
        2, "", "is saved as UTF-8"},
    {"resave, timers laid out to open", "",
        "resave {data}/project_repair/three_timers_under_one_ti_line/input.vnsc {dir}/out.vnsc "
        "--program-dir {data}/project_repair --timers opening",
        1, "", "input.vnsc:14: timer 2 starts here"},
    {"resave, unknown timer layout", "", "resave a b --timers both", 2, "",
        "usage: tarvo-cli resave"},
    {"repair of three timers", "",
        "repair {data}/project_repair/three_timers_under_one_ti_line/input.vnsc {dir}/out.vnsc "
        "--program-dir {data}/project_repair",
        0, "", "input.vnsc:14: timer 2 has no|input.vnsc:17: timer 3 has no",
        [](const QString& dir) {
            // The repaired file opens with all three, and resaves as it is.
            const ProgramRun again = runProgram(QStringLiteral(TARVO_CLI_PATH),
                {"resave", dir + "/out.vnsc", dir + "/again.vnsc", "--program-dir",
                    testDataDir() + "/project_repair", "--timers", "opening"});
            EXPECT_EQ(again.exitCode, 0) << again.err.toStdString();
            EXPECT_EQ(readBytes(dir + "/again.vnsc"), readBytes(dir + "/out.vnsc"));
            EXPECT_EQ(readBytes(dir + "/out.vnsc").count("<ta>|"), 3);
        }},
    {"repair of a file without a line of the format", "",
        "repair {data}/project_repair/no_line_of_the_format/input.vnsc {dir}/out.vnsc "
        "--program-dir {source}",
        1, "", "holds no line of a project file",
        [](const QString& dir) { EXPECT_FALSE(QFileInfo::exists(dir + "/out.vnsc")); }},
    {"repair usage", "", "repair {dir}/in.vnsc", 2, "", "usage: tarvo-cli repair"},
    // A project that fails against a catalogue cut short blames the catalogue.
    {"check against a cut catalogue", "",
        "check {data}/cli/cut_catalogue/project.vnsc --program-dir {data}/cli/cut_catalogue", 2, "",
        "{data}/cli/cut_catalogue/temp2.txt:4: the action catalogue ends here without a line end, "
        "after 2 kinds|project.vnsc:3: "},
    {"check against an empty catalogue", "",
        "check {data}/cli/empty_catalogue/project.vnsc --program-dir {data}/cli/empty_catalogue", 2,
        "",
        "{data}/cli/empty_catalogue/temp2.txt:1: the action catalogue is empty|project.vnsc:3: "},
    // Information alone passes.
    {"check, clean", "", "check {data}/check/clean/project.vnsc --program-dir {source}", 0,
        "project.vnsc: information: project: no event that can run wins or loses the mission\n",
        ""},
    {"check, issues", "", CHECK, 1,
        "project.vnsc: error: event 'Start', action 1 'Show message', argument 'Message': refers "
        "to message 7, which does not exist\nproject.vnsc: warning: event 'Start', action 2 'Show "
        "message', argument 'Message': refers to message 9, which does not exist\n",
        ""},
    {"check, json", "", CHECK " --format json", 1,
        "\"message\": \"refers to message 9, which does not exist\"|\"severity\": \"warning\"", ""},
    {"check, unknown format", "", CHECK " --format xml", 2, "", "usage: tarvo-cli check"},
    {"check, unreadable project", "", "check {data}/cli/bad_event.vnsc --program-dir {source}", 2,
        "", "{data}/cli/bad_event.vnsc:2: "},
    {"check-catalogues, errors", "", "check-catalogues --program-dir {data}/catalogue_lint/kinds",
        1,
        "{data}/catalogue_lint/kinds/temp.txt:1: warning: the kind has no "
        "title|kinds/temp2.txt:21: "
        "error: the kind has no \"<i>\" line",
        ""},
    {"check-catalogues, warnings only", "",
        "check-catalogues --program-dir {data}/catalogue_lint/tags_and_comments", 0,
        "temp2.txt:1: warning: unknown tag \"<cc\"", ""},
    {"check-catalogues, a catalogue missing", "", "check-catalogues --program-dir {dir}", 2, "",
        "{dir}/temp.txt"},
    {"graph, dot", "", "graph {data}/graph/arming/project.vnsc --program-dir {source}", 0,
        "digraph mission {|\"event0\" -> \"event1\"", ""},
    {"graph, json to a file", "",
        "graph {data}/graph/arming/project.vnsc --program-dir {source} --format json -o "
        "{dir}/map.json",
        0, "", "",
        [](const QString& dir) {
            EXPECT_EQ(readBytes(dir + "/map.json"),
                readBytes(testDataDir() + "/graph/arming/expected.json"));
        }},
    {"graph, svg", "", "graph {data}/graph/arming/project.vnsc --program-dir {source} --format svg",
        0, "<svg|Patrol", ""},
    {"graph, unknown format", "", "graph {data}/graph/arming/project.vnsc --format png", 2, "",
        "usage: tarvo-cli graph"},
    {"graph, unreadable project", "", "graph {data}/cli/bad_event.vnsc --program-dir {source}", 2,
        "", "{data}/cli/bad_event.vnsc:2: "},
    // The dry run: the transcript in JSON Lines as the core writes it, the
    // first entry to the end.
    {"simulate, json", "",
        "simulate {data}/simulate/timing/project.vnsc --program-dir {source} --scenario "
        "{data}/simulate/timing/scenario.txt --format json",
        0,
        "{\"event\":\"Start\",\"eventCode\":\"event0\",\"t\":0,\"what\":\"fired\"}\n|"
        "{\"by\":\"Late\",\"byCode\":\"event5\",\"result\":\"win\",\"t\":100,\"what\":\"end\"}\n",
        ""},
    {"simulate, until", "",
        "simulate {data}/simulate/timing/project.vnsc --program-dir {source} "
        "--until 15",
        0, "1.0 s  \"Ticker\" fired|1.5 s  stopped: the end time was reached", ""},
    {"simulate, why", "",
        "simulate {data}/simulate/timing/project.vnsc --program-dir {source} --why Hidden", 0,
        "\"Never\" could switch it on, but it never fired", ""},
    {"simulate, why of no event", "",
        "simulate {data}/simulate/timing/project.vnsc --program-dir {source} --why Nobody", 1, "",
        "--why: the project has no event \"Nobody\""},
    {"simulate, bad scenario", "",
        "simulate {data}/simulate/timing/project.vnsc --program-dir {source} --scenario "
        "{data}/simulate/timing/why.txt",
        1, "", "{data}/simulate/timing/why.txt:1: expected \"until T\""},
    {"simulate, unreadable project", "",
        "simulate {data}/cli/bad_event.vnsc --program-dir {source}", 2, "",
        "{data}/cli/bad_event.vnsc:2: "},
    {"compile usage", "", "compile", 2, "", "usage: tarvo-cli compile"},
    {"compile, unreadable project", "",
        "compile {data}/cli/bad_event.vnsc --program-dir {source} --no-pack", 1, "",
        "{data}/cli/bad_event.vnsc:2: "},
    // Every file of the tree but the lists and the packer's own is packed,
    // under its path in the tree; the sample has one of each kind.
    {"compile and pack the sample", "sample", SAMPLE, 0, "{dir}/program/Projects/Demo\nDone.\n", "",
        [](const QString& dir) {
            const QString root = dir + "/program/Projects/Demo";
            QStringList content;
            for (const QString& file : filesBelow(root).keys()) {
                if (!file.startsWith("vnr/") && file.contains(u'/'))
                    content.append(file);
            }
            ASSERT_EQ(archiveEntries(root + "/Demo.vnp"), content);
            for (const QString& entry : content)
                EXPECT_EQ(runProgram("unzip", {"-p", root + "/Demo.vnp", entry}).outBytes,
                    readBytes(root + u'/' + entry));
        }},
    {"compile, a sound missing", "sample without sample/sounds/radio.wav", SAMPLE, 1, "",
        "warning: Could not copy|exit code 1|missing file \"audio/Extra/radio.wav\""},
    {"compile, the packer missing", "sample without program/Source/MakeVNP.exe", SAMPLE, 1, "",
        "MakeVNP.exe\" is missing"},
    {"packer", "packer/packs", "", 0, "MakeVNP: 3 files packed into", "",
        [](const QString& dir) {
            EXPECT_EQ(archiveEntries(dir + "/Mission/Mission.vnp"),
                QStringList({"audio/Extra/b\u00e9l.wav", "script/data/Mission.vlo",
                    "script/text/Mission.slo"}));
        }},
    {"packer usage", "packer/packs", "a b", 2, "", "usage: MakeVNP.exe"},
    {"packer, files missing", "packer/missing_files", "", 1, "",
        "\"script/text/Gone.slo\"|\"audio/gone.wav\"|MakeVNP: no archive written",
        [](const QString& dir) {
            EXPECT_EQ(readBytes(dir + "/Mission/Mission.vnp"), "older archive");
        }},
    {"packer, a list leaving the folder", "packer/leaves_the_folder", "", 1, "",
        "leaves the output folder",
        [](const QString& dir) { EXPECT_FALSE(QFileInfo::exists(dir + "/Mission/Mission.vnp")); }},
    {"packer without lists", "packer/no_lists", "", 1, "", "no resource lists"},
};

QString filled(QString text, const QString& dir)
{
    return text.replace("{dir}", dir)
        .replace("{data}", testDataDir())
        .replace("{built}", builtProgramDir())
        .replace("{sample}", sampleDir())
        .replace("{source}", sourceProgramDir());
}

void expectStream(const QString& stream, const char* pieces, const QString& dir)
{
    EXPECT_TRUE(*pieces || stream.isEmpty()) << stream.toStdString();
    for (const QString& piece : QString::fromUtf8(pieces).split(u'|', Qt::SkipEmptyParts))
        EXPECT_TRUE(stream.contains(filled(piece, dir))) << piece.toStdString();
}

TEST(CliRuns, ExitCodesAndStreams)
{
    for (const CliRun& run : kRuns) {
        SCOPED_TRACE(run.label);
        QTemporaryDir sandbox;
        const QString dir = sandbox.path();
        const QStringList setup = QString::fromUtf8(run.setup).split(QStringLiteral(" without "));
        QString program = QStringLiteral(TARVO_CLI_PATH);
        QString workingDir = dir;
        if (setup[0] == QLatin1String("sample")) {
            copyTree(builtProgramDir() + "/Source", dir + "/program/Source");
            QFile::setPermissions(dir + "/program/Source/MakeVNP.exe",
                QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            for (const QString file : {"temp.txt", "temp2.txt"})
                writeBytes(dir + "/program/" + file, readBytes(builtProgramDir() + u'/' + file));
            copyTree(sampleDir(), dir + "/sample");
            if (setup.size() > 1) {
                ASSERT_TRUE(QFile::remove(dir + u'/' + setup[1]));
            }
        } else if (!setup[0].isEmpty() && setup[0] != QLatin1String("fsize-limit")) {
            copyTree(testDataDir() + "/cli/" + setup[0], dir + "/Mission");
            program = builtProgramDir() + "/Source/MakeVNP.exe";
            workingDir = dir + "/Mission";
        }
        QStringList args = filled(run.args, dir).split(u' ', Qt::SkipEmptyParts);
        if (setup[0] == QLatin1String("fsize-limit")) {
            // 2 blocks of 512 bytes: less than any project file.
            args = QStringList {"-c", "ulimit -f 2; exec \"$0\" \"$@\"", program} + args;
            program = QStringLiteral("/bin/sh");
        }
        const ProgramRun result = runProgram(program, args, workingDir);
        EXPECT_EQ(result.exitCode, run.exitCode) << result.err.toStdString();
        expectStream(result.out, run.out, dir);
        expectStream(result.err, run.err, dir);
        if (run.more)
            run.more(dir);
    }
}

// The compile cases as the command line reports them: "Done." and the root
// on stdout, warnings and failures on stderr after the check's own warnings.
class CliCompile : public testing::TestWithParam<std::string>
{
};

TEST_P(CliCompile, ReportsTheOutcomeOfTheCase)
{
    CaseFolder folder(GetParam());
    const ProgramRun run = runProgram(QStringLiteral(TARVO_CLI_PATH),
        {"compile", folder.project(), "--program-dir", folder.dir()});
    const QStringList outcome = folder.expectedOutcome().split(u'\n', Qt::SkipEmptyParts);
    const bool done = outcome.first().startsWith(QLatin1String("status: Done,"));
    QStringList err = outcome.filter(QRegularExpression(QStringLiteral("^warning: ")));
    if (!done)
        err.append(outcome.first().startsWith(QLatin1String("status: NoName,"))
                ? QStringLiteral("The project has no name: nothing was compiled.")
                : outcome.last().mid(int(strlen("message: "))));
    // The command line cuts long lines as it prints them.
    for (QString& line : err)
        line = folder.placeheld(tarvo::text::shownText(
            line.replace("{projects}", QDir::toNativeSeparators(folder.projects()))
                .replace("{program}", QDir::toNativeSeparators(folder.dir()))));
    QStringList printed = folder.placeheld(run.err).split(u'\n', Qt::SkipEmptyParts);
    printed.removeIf(
        [](const QString& line) { return line.startsWith("warning: project.vnsc: "); });
    EXPECT_EQ(printed.join(u'\n').toStdString(), err.join(u'\n').toStdString());
    EXPECT_EQ(run.exitCode, done ? 0 : 1);
    const QString name
        = QString::fromLatin1(readBytes(folder.project()).split('\r').first().mid(5));
    EXPECT_EQ(folder.placeheld(run.out), done ? "{projects}/" + name + "\nDone.\n" : QString());
    folder.expectProjectsAsExpected();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CliCompile, testing::ValuesIn(caseNames()), [](const auto& info) { return info.param; });

} // namespace
