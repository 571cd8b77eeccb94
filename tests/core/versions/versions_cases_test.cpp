// Versions of a project as data: each folder of tests/data/versions/show
// holds a project and its outline, each of .../diff an old and a new project
// and the changes between them, each of .../merge a base, ours and theirs,
// the merged file as the editor would save it and the report (notes and
// conflicts, one a line, as tarvo-cli prints them).
#include "case_files.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "test_paths.h"
#include "versions/project_diff.h"
#include "versions/project_merge.h"
#include "versions/project_outline.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

using namespace tarvo;

namespace {

struct Loaded
{
    explicit Loaded(const QString& file) { LoadProject(workspace, file); }
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    const Project& project() const { return workspace.project; }
};

QStringList folders(const QString& kind)
{
    const QDir root(testDataDir() + QStringLiteral("/versions/") + kind);
    QStringList result;
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        result.append(root.filePath(name));
    return result;
}

TEST(VersionCases, ShowPrintsTheOutline)
{
    const QStringList cases = folders(QStringLiteral("show"));
    ASSERT_FALSE(cases.isEmpty());
    for (const QString& folder : cases) {
        SCOPED_TRACE(folder.toStdString());
        Loaded loaded(folder + QStringLiteral("/project.vnsc"));
        expectFileHolds(
            folder + QStringLiteral("/outline.txt"), projectOutline(loaded.project()).toUtf8());
    }
}

TEST(VersionCases, DiffNamesEachChange)
{
    const QStringList cases = folders(QStringLiteral("diff"));
    ASSERT_GE(cases.size(), 4);
    for (const QString& folder : cases) {
        SCOPED_TRACE(folder.toStdString());
        Loaded older(folder + QStringLiteral("/old.vnsc"));
        Loaded newer(folder + QStringLiteral("/new.vnsc"));
        QString lines;
        QString places;
        for (const RecordChange& change : compareProjects(older.project(), newer.project())) {
            lines += change.line() + u'\n';
            // Where Compare With goes for the line, in the newer project.
            places += describePlace(newer.project(), change.place) + u'\n';
        }
        expectFileHolds(folder + QStringLiteral("/changes.txt"), lines.toUtf8());
        expectFileHolds(folder + QStringLiteral("/places.txt"), places.toUtf8());
        // Nothing changes between a project and itself, in either direction.
        EXPECT_TRUE(compareProjects(newer.project(), newer.project()).isEmpty());
        EXPECT_EQ(compareProjects(newer.project(), older.project()).isEmpty(), lines.isEmpty());
    }
}

TEST(VersionCases, MergeWritesTheExpectedFileAndReport)
{
    const QStringList cases = folders(QStringLiteral("merge"));
    ASSERT_GE(cases.size(), 8);
    for (const QString& folder : cases) {
        SCOPED_TRACE(folder.toStdString());
        Loaded base(folder + QStringLiteral("/base.vnsc"));
        Loaded ours(folder + QStringLiteral("/ours.vnsc"));
        Loaded theirs(folder + QStringLiteral("/theirs.vnsc"));
        MergeOutcome outcome = mergeProjects(base.project(), ours.project(), theirs.project());
        QString report;
        for (const QString& note : outcome.notes)
            report += QStringLiteral("note: ") + note + u'\n';
        for (const QString& conflict : outcome.conflicts)
            report += conflict + u'\n';
        expectFileHolds(folder + QStringLiteral("/report.txt"), report.toUtf8());
        const QByteArray bytes = projectFileBytes(outcome.merged);
        expectFileHolds(folder + QStringLiteral("/merged.vnsc"), bytes);

        // Whatever the merge meets, the file it writes opens and says the same again.
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("merged.vnsc"));
        writeBytes(path, bytes);
        Loaded again(path);
        EXPECT_EQ(projectFileBytes(again.project()), bytes);

        // Merging with nothing changed on one side gives the other side; with
        // the same change on both, that change.
        EXPECT_EQ(projectFileBytes(
                      mergeProjects(base.project(), base.project(), theirs.project()).merged),
            projectFileBytes(theirs.project()));
        EXPECT_EQ(
            projectFileBytes(mergeProjects(base.project(), ours.project(), base.project()).merged),
            projectFileBytes(ours.project()));
        EXPECT_EQ(
            projectFileBytes(mergeProjects(base.project(), ours.project(), ours.project()).merged),
            projectFileBytes(ours.project()));
    }
}

} // namespace
