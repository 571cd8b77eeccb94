// Script > Reload Catalogues in core: a project rebuilt from changed kinds
// keeps what its file does not hold, and any failure (a faulty catalogue,
// kinds the project uses gone, a text the file cannot hold, a No) leaves the
// catalogues and the project exactly as they were.
#include "document/project_file.h"
#include "editing/catalogue_reload.h"
#include "program_folder.h"
#include "project_builder.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

const QString kConditions = QStringLiteral("<c>\n<s>;Always\n<q>;TRUE\n<r>;1;-1\n");
const QString kFlags
    = QStringLiteral("<j>|17|Flags|2|flag[&&0]|BOOL\n<g>|17|FALSE:Flag 1|FALSE:Flag 2|");
const QString kSetFlag = QStringLiteral("\n<q>;setFlag\n<r>;none\n<f>;Flag;which;0;17;0\n"
                                        "<f>;Value;TRUE or FALSE;0;-1;0\n");
const QString kActions = kFlags + QStringLiteral("\n<c>\n<s>;Set flag") + kSetFlag
    + QStringLiteral("<i>|2|&&0 = &&1;|\n");
// The kind renamed and recoded, and a third flag.
const QString kChanged = kFlags + QStringLiteral("FALSE:Flag 3|\n<c>\n<s>;Set a flag") + kSetFlag
    + QStringLiteral("<i>|2|&&0 := &&1;|\n");

struct ReloadRun
{
    const char* label;
    const QString& actions; // temp2.txt when Reload is chosen
    bool modified; // a change not saved before the reload
    Prompter::Answer answer;
    bool reloaded;
    const char* message; // start of the one message shown; "" for none
};

const ReloadRun kRuns[] = {
    {"saved project: no question", kChanged, false, Prompter::Answer::Yes, true, ""},
    {"changes, Yes", kChanged, true, Prompter::Answer::Yes, true, "The project has changes"},
    {"changes, No", kChanged, true, Prompter::Answer::No, false, "The project has changes"},
    {"faulty catalogue", QStringLiteral("<j>|30|Beyond|1||INT\n") + kActions, false,
        Prompter::Answer::Yes, false, "The catalogues were not reloaded: <dir>/temp2.txt:1: "},
    {"kinds gone", kFlags, false, Prompter::Answer::Yes, false,
        "The catalogues were not reloaded: the project cannot be rebuilt under the new catalogues "
        "(line "},
};

TEST(CatalogueReload, RebuildsFromTheNewKindsOrLeavesEverything)
{
    for (const ReloadRun& run : kRuns) {
        SCOPED_TRACE(run.label);
        TestProgramFolder folder(kConditions, kActions);
        ProjectBuilder build(folder.path());
        Project& project = build.project();
        project.name = QStringLiteral("Mission");
        project.filePath = folder.file("Mission.vnsc");
        project.hasFile = true;
        build.addEvent(QStringLiteral("Alarm"));
        build.addAction(0, QStringLiteral("Set flag"), {QStringLiteral("&&17$$1\u00a7"), "TRUE"});
        project.tables[17].Texts[0] = QStringLiteral("Doors shut");
        build.document.projectReplaced(false);
        if (run.modified)
            build.document.edit("Rename", [&] { project.events[0].name = "Alarm!"; });
        const Project before = project;
        const QByteArray bytesBefore = build.bytes();

        folder.write(QStringLiteral("temp2.txt"), run.actions);
        build.prompter.answers.append(run.answer);
        EXPECT_EQ(ReloadCatalogues(build.document), run.reloaded);

        const QStringList shown = build.prompter.messageTexts();
        EXPECT_EQ(shown.size(), *run.message ? 1 : 0) << shown.join("\n").toStdString();
        if (!shown.isEmpty()) {
            EXPECT_TRUE(QString(shown.first())
                            .replace(folder.path(), "<dir>")
                            .startsWith(QLatin1String(run.message)))
                << shown.first().toStdString();
        }
        const ActionRecord& action = project.events.at(0).actions.at(0);
        if (!run.reloaded) {
            EXPECT_EQ(build.bytes(), bytesBefore);
            EXPECT_EQ(action.Title, "Set flag");
            EXPECT_EQ(build.workspace.actionCatalogue.at(0).Title, "Set flag");
            EXPECT_EQ(project.tables[17], before.tables[17]);
            EXPECT_EQ(build.document.isModified(), run.modified);
            continue;
        }
        EXPECT_EQ(action.Title, "Set a flag");
        EXPECT_EQ(action.CodeLines, QStringList {"&&0 := &&1;"});
        EXPECT_EQ(action.Args.at(0).Value, QStringLiteral("&&17$$1\u00a7"));
        EXPECT_EQ(project.tables[17].Texts.mid(0, project.tables[17].ItemCount),
            QStringList({"Doors shut", "Flag 2", "Flag 3"}));
        EXPECT_EQ(project.filePath, before.filePath);
        EXPECT_TRUE(project.hasFile);
        EXPECT_EQ(project.timerListLines, before.timerListLines);
        EXPECT_EQ(build.document.isModified(), run.modified);
        EXPECT_FALSE(build.document.canUndo());
    }
}

TEST(CatalogueReload, ATextTheFileCannotHoldIsNamed)
{
    TestProgramFolder folder(kConditions, kActions);
    ProjectBuilder build(folder.path());
    build.addEvent(QStringLiteral("Alarm \u03a9"));
    EXPECT_FALSE(ReloadCatalogues(build.document));
    ASSERT_EQ(build.prompter.messageTexts().size(), 1);
    EXPECT_TRUE(build.prompter.messageTexts().first().contains("which cannot hold it"));
    EXPECT_EQ(build.project().events.at(0).name, QStringLiteral("Alarm \u03a9"));
}

} // namespace
