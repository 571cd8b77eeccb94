// The tools that read the whole project: the check (each case folder of
// tests/data/check holds a project and the lines the check must print),
// where-used and find.
#include "case_files.h"
#include "catalogue/where_used.h"
#include "check/check_report.h"
#include "editing/find_text.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class Loaded
{
public:
    explicit Loaded(const QString& file) { LoadProject(workspace, file); }
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
};

QStringList describe(const Project& project, const QList<ProjectPlace>& places)
{
    QStringList texts;
    for (const ProjectPlace& place : places)
        texts.append(describePlace(project, place));
    return texts;
}

TEST(ProjectCheck, EveryCaseFolderPrintsItsExpectedLines)
{
    const QDir cases(testDataDir() + QStringLiteral("/check"));
    const QStringList names = cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_GE(names.size(), 8);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QString folder = cases.filePath(name);
        Loaded loaded(folder + QStringLiteral("/project.vnsc"));
        QString printed;
        for (const CheckIssue& issue : checkProject(loaded.workspace))
            printed += issueLine(QStringLiteral("project.vnsc"), loaded.workspace.project, issue)
                + u'\n';
        const QString projects
            = QDir::toNativeSeparators(QDir::cleanPath(loaded.workspace.paths.projectsDir()));
        // The JSON report names each part of a place on its own.
        const QList<CheckIssue> issues = checkProject(loaded.workspace);
        const QString json = QString::fromUtf8(
            issuesJson(QStringLiteral("project.vnsc"), loaded.workspace.project, issues));
        for (const auto& [file, actual] :
            {std::pair {"/expected.txt", printed}, {"/expected.json", json}}) {
            const QString path = folder + QLatin1String(file);
            const auto generic = [&](QString text) {
                return text.replace(folder, QStringLiteral("{case}"))
                    .replace(projects, QStringLiteral("{projects}"));
            };
            expectFileHolds(path, generic(actual).toUtf8());
        }
    }
}

TEST(ProjectCheck, ProblemsOnlyAnEditedProjectCanHave)
{
    Loaded loaded(testDataDir() + QStringLiteral("/check/clean/project.vnsc"));
    Project& project = loaded.workspace.project;
    project.events[0].name = QStringLiteral("Attack|North");
    project.events[0].actions[0].comment = QString::fromUtf8("\u4e2d");
    project.timers = {TimerRecord {}, TimerRecord {}};
    project.timerCount = 2;
    const QList<CheckIssue> issues = checkProject(loaded.workspace);
    QStringList lines;
    for (const CheckIssue& issue : issues)
        lines.append(issueLine(QStringLiteral("p"), project, issue));
    EXPECT_EQ(lines,
        (QStringList {"p: error: timer '': the project has 2 timers, but a project file holds one "
                      "timer only: the saved file will not open again",
            "p: error: timer '': has the same ID (0) as the timer ''; references reach only one "
            "of them",
            "p: error: event 'Attack|North': the name of event 0 (\"Attack|North\") holds the "
            "character \"|\", which separates the fields of a project file; the project cannot "
            "be saved",
            "p: error: event 'Attack|North', action 1 'Show message': the comment of action 0 of "
            "event 0 (\"Attack|North\") holds the character \"\u4e2d\" (U+4E2D), which the "
            "Windows-1252 code page cannot hold; the project cannot be saved",
            // A new timer repeats every "" tenths: script the game cannot read.
            "p: error: timer '', trigger argument 1: the compile writes \"Timer0(every, )\" here, "
            "which the game cannot read: expected a value but found ')'",
            "p: error: timer '', trigger argument 1: the compile writes \"Timer1(every, )\" here, "
            "which the game cannot read: expected a value but found ')'",
            "p: information: project: no event that can run wins or loses the mission"}));
}

TEST(WhereUsed, FindsEveryKindOfPlaceInListOrder)
{
    Loaded loaded(sampleDir() + QStringLiteral("/Demo.vnsc"));
    const Project& project = loaded.workspace.project;
    EXPECT_EQ(describe(project, findReferences(project, row::Messages, 0)),
        QStringList {"event 'Start', action 1 'Show message', argument 'Message'"});
    EXPECT_EQ(describe(project, findReferences(project, row::Flags, 1)),
        (QStringList {"event 'Transport', action 5 'Set flag', argument 'Flag'",
            "event 'Victory', condition 2 'Flag equals flag', compared value"}));
    EXPECT_EQ(describe(project, findReferences(project, row::Groups, 1)),
        (QStringList {"event 'Start', action 6 'Add player's droids to group', argument 'Group'",
            "event 'Reinforcements', action 1 'Scout with group', argument 'Group'"}));
    EXPECT_EQ(describe(project, findReferences(project, row::Timers, 0)),
        (QStringList {"event 'Start', action 5 'Enable event', argument 'Timer'",
            "event 'Transport', action 7 'Enable event', argument 'Timer'"}));
    EXPECT_TRUE(findReferences(project, row::Messages, 99).isEmpty());
    // Places found before a deletion name what is no longer there by position.
    using Owner = ProjectPlace::Owner;
    EXPECT_EQ(
        describe(project,
            QList<ProjectPlace> {{Owner::Event, 40}, {Owner::Timer, 7}, {Owner::Sound, 9},
                {Owner::Message, 3}, {Owner::Variable, 70, row::Groups}, {Owner::Variable, 2, 1}}),
        (QStringList {"event 41", "timer 8", "sound 10", "message 4", "group 71",
            "item of the list 'Players' 'Player 3'"}));
    EXPECT_EQ(referencesIn(QString::fromUtf8("a&&3$$12\u00a7b&&x$$1\u00a7&&0$$-1\u00a7")),
        (QList<EncodedReference> {{3, 12}, {0, -1}}));
}

TEST(FindText, NamesCommentsAndShownArgumentsIgnoringCase)
{
    Loaded loaded(sampleDir() + QStringLiteral("/Demo.vnsc"));
    const Project& project = loaded.workspace.project;
    QStringList found;
    for (const FoundText& hit : findText(project, QStringLiteral("BASE")))
        found.append(describePlace(project, hit.place) + u'|' + hit.field);
    EXPECT_EQ(found.first(), "script comment|");
    EXPECT_TRUE(found.contains("event 'Check base'|name"));
    EXPECT_TRUE(found.contains("event 'Check base', comment|"));
    EXPECT_TRUE(found.contains("event 'Start', action 5 'Enable event'|comment"));
    // A message argument shows its text, and an event argument its name.
    EXPECT_TRUE(found.contains("event 'Start', action 1 'Show message', argument 'Message'|"));
    EXPECT_TRUE(found.contains("event 'Victory', action 2 'Disable event', argument 'Event'|"));
    EXPECT_TRUE(loaded.prompter.prompts.isEmpty());
}

} // namespace
