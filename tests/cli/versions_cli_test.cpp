// show, diff, merge and git-setup as programs: exit statuses and streams,
// then a real git repository whose branches merge through tarvo-cli.
#include "document/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct ToolRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

ToolRun run(const QString& program, const QStringList& args, const QString& dir)
{
    QProcess process;
    process.setWorkingDirectory(dir);
    process.start(program, args);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

ToolRun cli(const QStringList& args, const QString& dir)
{
    return run(QStringLiteral(TARVO_CLI_PATH),
        args + QStringList {QStringLiteral("--program-dir"), builtProgramDir()}, dir);
}

ToolRun git(const QStringList& args, const QString& dir)
{
    return run(QStringLiteral("git"), args, dir);
}

QString mergeCase(const QString& name, const QString& file)
{
    return testDataDir() + QStringLiteral("/versions/merge/") + name + u'/' + file;
}

const QString kClash = QStringLiteral("both_add_after_the_same_event_with_one_id");

struct CommandRun
{
    const char* label;
    const char* args; // {case} is the clash case's folder, {dir} a fresh folder
    int exitCode;
    const char* out; // pieces stdout must hold, "|" between them
    const char* err;
    const char* written; // a file that must (or, starting with "!", must not) exist after
};

const CommandRun kRuns[] = {
    {"show", "show {case}/base.vnsc", 0, "event 'Start' (ID 0), on\n    trigger: On startup", "",
        ""},
    {"show usage", "show", 2, "", "usage: tarvo-cli show", ""},
    {"show of a file that will not load", "show {data}/cli/bad_event.vnsc", 2, "",
        "bad_event.vnsc:2: ", ""},
    {"diff, equal", "diff {case}/base.vnsc {case}/base.vnsc", 0, "", "", ""},
    {"diff, different", "diff {case}/base.vnsc {case}/theirs.vnsc", 1,
        "event 'Theirs ambush' (ID 6): added\n", "", ""},
    {"diff, json", "diff {case}/base.vnsc {case}/theirs.vnsc --format json", 1,
        "\"change\": \"added\"", "", ""},
    {"diff, a file missing", "diff {case}/base.vnsc {dir}/none.vnsc", 2, "", "none.vnsc", ""},
    {"merge, clean", "merge {case}/base.vnsc {case}/ours.vnsc {case}/theirs.vnsc -o {dir}/m.vnsc",
        0, "takes ID 7", "", "{dir}/m.vnsc"},
    {"merge, a base missing",
        "merge {dir}/none.vnsc {case}/ours.vnsc {case}/theirs.vnsc -o {dir}/m.vnsc", 2, "",
        "none.vnsc|nothing written", "!{dir}/m.vnsc"},
    {"merge, unwritable output",
        "merge {case}/base.vnsc {case}/ours.vnsc {case}/theirs.vnsc -o {dir}/no/such/m.vnsc", 2, "",
        "not saved|nothing written", "!{dir}/no/such/m.vnsc"},
    {"merge usage", "merge {case}/base.vnsc", 2, "", "usage: tarvo-cli merge", ""},
    {"git-setup outside a repository", "git-setup {dir}", 2, "", "not in a git repository", ""},
};

TEST(VersionCommands, ExitCodesAndStreams)
{
    for (const CommandRun& entry : kRuns) {
        SCOPED_TRACE(entry.label);
        QTemporaryDir sandbox;
        const auto filled = [&](QString text) {
            return text.replace("{case}", testDataDir() + "/versions/merge/" + kClash)
                .replace("{data}", testDataDir())
                .replace("{dir}", sandbox.path());
        };
        const ToolRun result = cli(filled(entry.args).split(u' '), sandbox.path());
        EXPECT_EQ(result.exitCode, entry.exitCode) << result.err.toStdString();
        for (const auto& [stream, pieces] :
            {std::pair<QString, const char*> {result.out, entry.out}, {result.err, entry.err}}) {
            EXPECT_TRUE(*pieces || stream.isEmpty()) << stream.toStdString();
            for (const QString& piece : QString::fromUtf8(pieces).split(u'|', Qt::SkipEmptyParts))
                EXPECT_TRUE(stream.contains(filled(piece))) << stream.toStdString();
        }
        const QString written = filled(entry.written);
        if (!written.isEmpty()) {
            EXPECT_EQ(QFile::exists(written.mid(written.startsWith(u'!') ? 1 : 0)),
                !written.startsWith(u'!'));
        }
    }
}

void commitFile(const QString& repo, const QByteArray& bytes, const QString& message)
{
    writeBytes(repo + QStringLiteral("/camp.vnsc"), bytes);
    ASSERT_EQ(git({"add", "."}, repo).exitCode, 0);
    ASSERT_EQ(git({"commit", "-q", "-m", message}, repo).exitCode, 0);
}

// Two authors each add an event (both take ID 6) and rename the same one
// differently; git merges through tarvo-cli and the file still opens.
TEST(VersionCommands, GitMergesBranchesThroughTheSetUpDriver)
{
    QTemporaryDir sandbox;
    const QString repo = sandbox.path();
    ASSERT_EQ(git({"init", "-q", "-b", "main", "."}, repo).exitCode, 0);
    git({"config", "user.name", "Author"}, repo);
    git({"config", "user.email", "author@example.org"}, repo);

    const ToolRun setup = cli({"git-setup"}, repo);
    ASSERT_EQ(setup.exitCode, 0) << setup.err.toStdString();
    EXPECT_TRUE(setup.out.contains("merge.tarvo.driver")) << setup.out.toStdString();
    const QByteArray attributes = readBytes(repo + "/.gitattributes");
    EXPECT_EQ(attributes, "*.vnsc -text diff=tarvo merge=tarvo\n");
    const ToolRun again = cli({"git-setup", repo}, repo);
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_TRUE(again.out.contains("already")) << again.out.toStdString();
    EXPECT_EQ(readBytes(repo + "/.gitattributes"), attributes);
    EXPECT_EQ(
        git({"config", "--local", "--get-all", "merge.tarvo.driver"}, repo).out.count(u'\n'), 1);

    const auto renamed = [](const QString& file, const char* name) {
        return readBytes(mergeCase(kClash, file))
            .replace("<ev>|Start|", QByteArray("<ev>|") + name + '|');
    };
    commitFile(repo, readBytes(mergeCase(kClash, "base.vnsc")), "base");
    ASSERT_EQ(git({"checkout", "-q", "-b", "theirs"}, repo).exitCode, 0);
    commitFile(repo, renamed("theirs.vnsc", "Kick-off"), "theirs");
    const ToolRun log = git({"log", "-p", "-1"}, repo);
    EXPECT_TRUE(log.out.contains("+event 'Theirs ambush' (ID 6), on\n")) << log.out.toStdString();
    EXPECT_TRUE(log.out.contains("-event 'Start' (ID 0), on\n+event 'Kick-off' (ID 0), on\n"));
    ASSERT_EQ(git({"checkout", "-q", "main"}, repo).exitCode, 0);
    commitFile(repo, renamed("ours.vnsc", "Opening"), "ours");

    const ToolRun merge = git({"merge", "theirs", "-m", "merge"}, repo);
    EXPECT_NE(merge.exitCode, 0);
    EXPECT_TRUE(
        (merge.out + merge.err).contains("conflict: event 'Start' (ID 0): renamed on both sides"))
        << (merge.out + merge.err).toStdString();

    ScriptedPrompter prompter;
    tarvo::Workspace workspace(builtProgramDir(), prompter);
    tarvo::LoadProject(workspace, repo + "/camp.vnsc");
    const tarvo::Project& project = workspace.project;
    ASSERT_EQ(project.eventCount, 8);
    EXPECT_EQ(project.events.at(0).name, "Opening");
    EXPECT_EQ(project.events.at(1).name, "Ours reinforcements");
    EXPECT_EQ(project.events.at(2).name, "Theirs ambush");
    EXPECT_EQ(project.events.at(2).id, 7);
    // Without the conflicting rename, the file is the case's merged one.
    EXPECT_EQ(readBytes(repo + "/camp.vnsc").replace("<ev>|Opening|", "<ev>|Start|"),
        readBytes(mergeCase(kClash, "merged.vnsc")));

    // git diff shows the outline of what the merge changed against ours.
    const ToolRun diff = git({"diff", "HEAD", "--", "camp.vnsc"}, repo);
    EXPECT_TRUE(diff.out.contains("+event 'Theirs ambush' (ID 7), on\n")) << diff.out.toStdString();
}

} // namespace

namespace {

// An attributes file already there keeps its other lines; a "*.vnsc" line is
// completed rather than repeated.
TEST(VersionCommands, GitSetupCompletesTheAttributesThatAreThere)
{
    QTemporaryDir sandbox;
    const QString repo = sandbox.path();
    ASSERT_EQ(git({"init", "-q", "."}, repo).exitCode, 0);
    writeBytes(repo + "/.gitattributes", "*.txt text\r\n*.vnsc diff=old linguist-generated\r\n");
    ASSERT_EQ(cli({"git-setup", repo}, repo).exitCode, 0);
    const QByteArray completed
        = "*.txt text\r\n*.vnsc linguist-generated -text diff=tarvo merge=tarvo\r\n";
    EXPECT_EQ(readBytes(repo + "/.gitattributes"), completed);
    ASSERT_EQ(cli({"git-setup", repo}, repo).exitCode, 0);
    EXPECT_EQ(readBytes(repo + "/.gitattributes"), completed);
    // The driver names this very program and its program folder.
    const QString driver = git({"config", "--get", "merge.tarvo.driver"}, repo).out.trimmed();
    EXPECT_EQ(driver,
        QStringLiteral("'%1' merge --program-dir '%2' %O %A %B")
            .arg(QStringLiteral(TARVO_CLI_PATH), builtProgramDir()));
}

} // namespace

namespace {

// Without -o the result replaces OURS, as git's merge drivers do; when a
// version does not load, OURS stays as it was.
TEST(VersionCommands, MergeWritesOverOursOnlyWhenItCan)
{
    QTemporaryDir sandbox;
    const QString ours = sandbox.filePath("ours.vnsc");
    writeBytes(ours, readBytes(mergeCase(kClash, "ours.vnsc")));
    const ToolRun broken = cli(
        {"merge", testDataDir() + "/cli/bad_event.vnsc", ours, mergeCase(kClash, "theirs.vnsc")},
        sandbox.path());
    EXPECT_EQ(broken.exitCode, 2);
    EXPECT_EQ(readBytes(ours), readBytes(mergeCase(kClash, "ours.vnsc")));
    const ToolRun merged
        = cli({"merge", mergeCase(kClash, "base.vnsc"), ours, mergeCase(kClash, "theirs.vnsc")},
            sandbox.path());
    EXPECT_EQ(merged.exitCode, 0) << merged.err.toStdString();
    EXPECT_EQ(readBytes(ours), readBytes(mergeCase(kClash, "merged.vnsc")));
}

} // namespace
