// Damaged and converted project files: each folder under
// tests/data/project_repair is read as the format's reader reads it (after
// the checks the commands make before a load) and as a repair reads it; the
// golden file holds both outcomes, the notes with their lines and the
// repaired project. What a repair gives must save so that it opens again.
#include "document/project_file_probe.h"
#include "workspace_case.h"

using namespace tarvo;

namespace {

class RepairCases : public testing::TestWithParam<golden::Case>
{
};

QStringList noteLines(const QList<FileError>& notes, const QString& folder)
{
    QStringList lines;
    for (const FileError& note : notes)
        lines << QStringLiteral("  note ") + note.message().remove(folder + u'/');
    return lines;
}

TEST_P(RepairCases, MatchTheGoldenFiles)
{
    const golden::Case& c = GetParam();
    const TestProgramFolder program {QString(), QString()};
    writeBytes(program.file(QStringLiteral("temp.txt")), readBytes(c.conditions));
    writeBytes(program.file(QStringLiteral("temp2.txt")), readBytes(c.actions));
    ScriptedPrompter prompter;
    Workspace workspace(program.path(), prompter);
    const QString input = program.file(QStringLiteral("input.vnsc"));
    writeBytes(input, readBytes(c.project));
    const QString folder = program.path();

    QStringList out;
    try {
        requireCodePageProjectFile(input);
        const QList<FileError> notes = LoadProject(workspace, input);
        out << QStringLiteral("strict: loaded") << noteLines(notes, folder);
    } catch (const FileError& error) {
        out << QStringLiteral("strict: error ") + error.message().remove(folder + u'/');
    }
    try {
        const QList<FileError> notes = RepairProject(workspace, input);
        out << QStringLiteral("repair:") << noteLines(notes, folder);
    } catch (const FileError& error) {
        out << QStringLiteral("repair: error ") + error.message().remove(folder + u'/');
        expectFileHolds(c.expected, (out.join(u'\n') + u'\n').toUtf8());
        return;
    }
    golden::dumpProject(out, workspace.project, input);
    expectFileHolds(c.expected, (out.join(u'\n') + u'\n').toUtf8());

    const Project repaired = workspace.project;
    const QString saved = program.file(QStringLiteral("saved.vnsc"));
    SaveProject(workspace.project, saved, TimerLayout::Opening);
    ASSERT_NO_THROW(LoadProject(workspace, saved));
    EXPECT_EQ(workspace.project.timerCount, repaired.timerCount);
    EXPECT_EQ(workspace.project.eventCount, repaired.eventCount);
    EXPECT_EQ(projectFileBytes(workspace.project), projectFileBytes(repaired));
}

INSTANTIATE_TEST_SUITE_P(Folders, RepairCases,
    testing::ValuesIn(golden::folderCases(QStringLiteral("project_repair"))), golden::caseName);

} // namespace
