#include "editing/project_commands.h"
#include "model/project_file.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

const QString kSpecial = "You can't use any special characters in the name of the project.";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class ProjectCommandsTest : public ::testing::Test
{
protected:
    QTemporaryDir dir;
    ScriptedPrompter prompter;
    Workspace workspace {dir.path() + "/program", prompter};
    ProjectDocument document {workspace};

    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        // The shipped program folder, copied so the tests may write below it.
        QDir().mkpath(workspace.paths.programDir);
        for (const char* name : {"temp.txt", "temp2.txt"})
            QFile::copy(sourceProgramDir() + "/" + name, workspace.paths.programDir + "/" + name);
        ResetProject(workspace);
    }
};

TEST_F(ProjectCommandsTest, NameRuleRefusesSpecialCharactersWithAMessage)
{
    for (const QString& bad : {"a.b", "x/y", "p|q", "100%", "a\"b", "t\tab", "c:d", "§1", "k$"}) {
        prompter.clear();
        EXPECT_FALSE(CheckProjectName(workspace, bad)) << qPrintable(bad);
        EXPECT_EQ(prompter.messageTexts(), QStringList {kSpecial}) << qPrintable(bad);
        EXPECT_EQ(prompter.prompts.first().icon, Prompter::Icon::Information);
    }
    EXPECT_TRUE(workspace.project.name.isEmpty());
    EXPECT_FALSE(QDir(workspace.paths.projectsDir()).exists());
    // A blank name is refused silently.
    prompter.clear();
    EXPECT_FALSE(CheckProjectName(workspace, "   "));
    EXPECT_FALSE(CheckProjectName(workspace, QString()));
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(ProjectCommandsTest, AcceptedNameIsTrimmedNamesTheProjectAndMakesItsFolder)
{
    EXPECT_TRUE(CheckProjectName(workspace, "  My Mission "));
    EXPECT_EQ(workspace.project.name, "My Mission");
    EXPECT_EQ(workspace.project.filePath, workspace.paths.programDir + "/My Mission.vnsc");
    EXPECT_FALSE(workspace.project.hasFile);
    EXPECT_TRUE(QDir(workspace.paths.projectsDir() + "My Mission").exists());
    // An existing folder is fine.
    EXPECT_TRUE(CheckProjectName(workspace, "My Mission"));
}

TEST_F(ProjectCommandsTest, CaptionNameCandidateAndFolderNames)
{
    EXPECT_EQ(workspace.caption, "T.A.R.V.O. - Campaign Script Editor");
    EXPECT_EQ(windowCaption(QString()), "T.A.R.V.O. - Campaign Script Editor - ");
    EXPECT_EQ(windowCaption("Untitled"), "T.A.R.V.O. - Campaign Script Editor - Untitled");
    EXPECT_EQ(projectNameFromFile("/x/y/Mission.vnsc"), "Mission");
    EXPECT_EQ(projectNameFromFile("/x/a.b.vnsc"), "a.b");
    EXPECT_EQ(projectNameFromFile("/x/a.vnsc.vnsc"), "a");
    EXPECT_EQ(projectNameFromFile("/x/A.VNSC"), "A.VNSC");
    for (const char* unsafe : {"../up", "a\\b", ".."})
        EXPECT_FALSE(isSafeFolderName(unsafe)) << unsafe;
    EXPECT_TRUE(isSafeFolderName("Mission 1"));
    EXPECT_FALSE(createProjectFolder(workspace.paths, "../outside"));
    EXPECT_FALSE(QDir(dir.path() + "/program/outside").exists());
}

TEST_F(ProjectCommandsTest, QuestionsAreAskedOnlyWhenTheProjectHasAName)
{
    EXPECT_TRUE(confirmDiscard(workspace));
    EXPECT_TRUE(confirmExit(workspace));
    EXPECT_TRUE(prompter.prompts.isEmpty());

    workspace.project.name = "Named";
    prompter.answers = {Prompter::Answer::No, Prompter::Answer::Yes, Prompter::Answer::No};
    EXPECT_FALSE(confirmDiscard(workspace));
    EXPECT_TRUE(confirmDiscard(workspace));
    EXPECT_FALSE(confirmExit(workspace));
    ASSERT_EQ(prompter.prompts.size(), 3);
    EXPECT_EQ(prompter.prompts[0].text, "Are you sure? All changes will not be saved.");
    EXPECT_EQ(prompter.prompts[2].text, "Are you sure you want to exit?");
    for (const auto& prompt : prompter.prompts) {
        EXPECT_EQ(prompt.icon, Prompter::Icon::Exclamation);
        EXPECT_EQ(prompt.buttons, Prompter::Buttons::YesNo);
    }
}

TEST_F(ProjectCommandsTest, SaveWithoutAFileAsksAndARefusedNameWritesNothing)
{
    ASSERT_TRUE(newProject(document));
    EXPECT_EQ(workspace.project.name, "Untitled");
    const QString target = dir.path() + "/a.b.vnsc";
    prompter.fileNames = {target};
    EXPECT_FALSE(saveProjectCommand(document));
    ASSERT_GE(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].kind, ScriptedPrompter::Prompt::Kind::SaveFile);
    EXPECT_EQ(prompter.prompts[0].text, "Save as...");
    EXPECT_EQ(prompter.prompts[0].title, "Script files|*.vnsc");
    EXPECT_EQ(prompter.messageTexts(), QStringList {kSpecial});
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_EQ(workspace.project.name, "Untitled");
}

TEST_F(ProjectCommandsTest, SaveAsWritesNamesAndLaterSavesGoStraightToTheFile)
{
    ASSERT_TRUE(newProject(document));
    const QString target = dir.path() + "/Mission.vnsc";
    prompter.fileNames = {target};
    EXPECT_TRUE(SaveProjectAs(document));
    EXPECT_EQ(workspace.project.name, "Mission");
    EXPECT_EQ(workspace.project.filePath, target);
    EXPECT_TRUE(workspace.project.hasFile);
    EXPECT_EQ(readAll(target), projectFileBytes(workspace.project));

    prompter.clear();
    workspace.project.scriptComment = "changed";
    EXPECT_TRUE(saveProjectCommand(document));
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_TRUE(readAll(target).startsWith("<gl>|Mission\r\n<scm>|changed\r\n"));
}

TEST_F(ProjectCommandsTest, CancelledSaveAsChangesNothing)
{
    workspace.project.name = "Kept";
    prompter.fileNames = {QString()};
    EXPECT_FALSE(SaveProjectAs(document));
    EXPECT_EQ(workspace.project.name, "Kept");
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 0);
}

TEST_F(ProjectCommandsTest, FailedSaveShowsTheReasonAndKeepsTheOldFile)
{
    ASSERT_TRUE(newProject(document));
    const QString target = dir.path() + "/Keep.vnsc";
    prompter.fileNames = {target};
    ASSERT_TRUE(SaveProjectAs(document));
    const QByteArray before = readAll(target);
    // A text the file's code page cannot hold makes the write fail.
    workspace.project.scriptComment = QString::fromUtf8("\u4e2d");
    prompter.clear();
    EXPECT_FALSE(saveProjectCommand(document));
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Critical);
    EXPECT_EQ(readAll(target), before);
}

TEST_F(ProjectCommandsTest, OpenNamesTheProjectAndFaultyFilesShowFileAndLine)
{
    const QString good = dir.path() + "/Good.vnsc";
    QFile file(good);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<gl>|Stored name\r\n<scm>|\r\n<ti>|0\r\n");
    file.close();
    EXPECT_TRUE(openProjectFile(document, good));
    EXPECT_EQ(workspace.project.name, "Stored name");
    EXPECT_EQ(workspace.project.filePath, good);
    EXPECT_TRUE(workspace.project.hasFile);
    EXPECT_TRUE(QDir(workspace.paths.projectsDir() + "Stored name").exists());
    EXPECT_TRUE(prompter.prompts.isEmpty());

    const QString bad = dir.path() + "/Bad.vnsc";
    QFile badFile(bad);
    ASSERT_TRUE(badFile.open(QIODevice::WriteOnly));
    badFile.write("<gl>|Half\r\n<scm>|\r\n<vg>|31|True|0|x\r\n");
    badFile.close();
    EXPECT_FALSE(openProjectFile(document, bad));
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Critical);
    EXPECT_TRUE(prompter.prompts[0].text.contains("Bad.vnsc"))
        << qPrintable(prompter.prompts[0].text);
    EXPECT_TRUE(prompter.prompts[0].text.contains(":3")) << qPrintable(prompter.prompts[0].text);
    EXPECT_FALSE(workspace.project.hasFile);
    EXPECT_FALSE(QDir(workspace.paths.projectsDir() + "Half").exists());
}
