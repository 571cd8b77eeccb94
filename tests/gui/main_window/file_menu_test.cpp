#include "main_window_fixture.h"
#include "model/project_file.h"

namespace {
const QString kDiscard = "Are you sure? All changes will not be saved.";
const QString kCaption = "T.A.R.V.O. - Campaign Script Editor";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

TEST_F(MainWindowTest, NewWithoutANameAsksNothingAndNamesItUntitled)
{
    trigger("mNew");
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(window->windowTitle(), kCaption + " - Untitled");
    EXPECT_EQ(workspace->project.filePath, programDir + "/Untitled.vnsc");
    EXPECT_FALSE(workspace->project.hasFile);
    EXPECT_TRUE(events()->isEnabled());
    EXPECT_TRUE(page<QPushButton>("Command3")->isEnabled());
}

TEST_F(MainWindowTest, NewOverANamedProjectAsksAndNoKeepsIt)
{
    openFixture();
    prompter.clear();
    prompter.answers = {tarvo::Prompter::Answer::No};
    trigger("mNew");
    ASSERT_EQ(prompter.messageTexts(), QStringList {kDiscard});
    EXPECT_EQ(events()->count(), 3);
    // A cancelled Open keeps the project too.
    prompter.fileNames = {QString()};
    trigger("mOpen");
    EXPECT_EQ(events()->count(), 3);
    EXPECT_EQ(workspace->project.name, "Fixture");

    prompter.answers = {tarvo::Prompter::Answer::Yes};
    trigger("mNew");
    EXPECT_EQ(events()->count(), 0);
    EXPECT_EQ(timers()->count(), 0);
    EXPECT_EQ(panel(1), "Events: 0/0");
    EXPECT_EQ(window->windowTitle(), kCaption + " - Untitled");
}

TEST_F(MainWindowTest, OpenFillsTheListsTicksCaptionAndCounts)
{
    const QString path = openFixture();
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].kind, ScriptedPrompter::Prompt::Kind::OpenFile);
    EXPECT_EQ(prompter.prompts[0].text, "Open script...");
    EXPECT_EQ(prompter.prompts[0].title, "Script files|*.vnsc");

    EXPECT_EQ(window->windowTitle(), kCaption + " - Fixture");
    EXPECT_EQ(lines(events()), (QStringList {"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(ticks(), (QList<bool> {true, false, true}));
    EXPECT_EQ(lines(timers()), QStringList {"Tick"});
    EXPECT_EQ(panel(1), "Events: 2/3");
    EXPECT_EQ(panel(2), "Timers: 1");
    EXPECT_TRUE(QDir(workspace->paths.projectsDir() + "Fixture").exists());
    EXPECT_EQ(workspace->project.filePath, path);
    // The script comment is on show, so saving keeps it.
    EXPECT_EQ(page<QLabel>("Label10")->text(), "Script Comment:");
    EXPECT_EQ(
        page<QPlainTextEdit>("TxtMaintDescription")->toPlainText(), "Script line 1\nScript line 2");
}

TEST_F(MainWindowTest, OpenOfAFaultyFileShowsFileAndLineInACriticalBox)
{
    openFixture("Faulty.vnsc");
    ASSERT_EQ(prompter.messageTexts().size(), 1);
    const auto& box = prompter.prompts.last();
    EXPECT_EQ(box.icon, tarvo::Prompter::Icon::Critical);
    EXPECT_TRUE(box.text.contains("Faulty.vnsc:5")) << qPrintable(box.text);
    EXPECT_FALSE(workspace->project.hasFile);
    // Save must not write over the faulty file without asking.
    prompter.fileNames = {QString()};
    trigger("mSave");
    EXPECT_EQ(prompter.prompts.last().kind, ScriptedPrompter::Prompt::Kind::SaveFile);
}

TEST_F(MainWindowTest, SaveAsNamesTheProjectAndSaveThenWritesWithoutAsking)
{
    openFixture();
    const QString target = dir.path() + "/Renamed.vnsc";
    prompter.clear();
    prompter.fileNames = {target};
    trigger("mSaveAs");
    EXPECT_EQ(window->windowTitle(), kCaption + " - Renamed");
    EXPECT_EQ(readAll(target), tarvo::projectFileBytes(workspace->project));
    EXPECT_TRUE(readAll(target).startsWith("<gl>|Renamed\r\n<scm>|Script line 1\r\n"));

    prompter.clear();
    events()->setCurrentRow(0);
    page<QPlainTextEdit>("TxtMaintDescription")->setPlainText("new\nnote");
    trigger("mSave"); // the box is stored before writing, without Update
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_TRUE(readAll(target).contains("\t<ecom>|new\r\n<ecom>|note\r\n"));
}

TEST_F(MainWindowTest, SavedProjectOpensAgainUnchanged)
{
    const QString path = openFixture();
    prompter.clear();
    trigger("mSave");
    EXPECT_TRUE(prompter.prompts.isEmpty());
    const QByteArray saved = readAll(path);
    EXPECT_TRUE(saved.contains("<ev>|Beta|3|0||||-1|0|0|0|1|1|True|0\r\n"));

    prompter.answers = {tarvo::Prompter::Answer::Yes};
    prompter.fileNames = {path};
    trigger("mOpen");
    EXPECT_EQ(lines(events()), (QStringList {"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(ticks(), (QList<bool> {true, false, true}));
    trigger("mSave");
    EXPECT_EQ(readAll(path), saved);
}

TEST_F(MainWindowTest, ClosingAsksOnlyWhenTheProjectHasAName)
{
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(prompter.prompts.isEmpty());

    window->show();
    trigger("mNew");
    prompter.answers = {tarvo::Prompter::Answer::No};
    trigger("mExit");
    EXPECT_EQ(prompter.messageTexts(), QStringList {"Are you sure you want to exit?"});
    EXPECT_TRUE(window->isVisible());

    prompter.answers = {tarvo::Prompter::Answer::Yes};
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindowTest, ShowDescriptionEditsTheScriptComment)
{
    openFixture();
    events()->setCurrentRow(2);
    EXPECT_EQ(page<QLabel>("Label10")->text(), "Event Comment:");
    trigger("mScriptDescription");
    EXPECT_EQ(page<QLabel>("Label10")->text(), "Script Comment:");
    EXPECT_EQ(workspace->project.commentMode, tarvo::CommentScript);
    page<QPlainTextEdit>("TxtMaintDescription")->setPlainText("one\ntwo");
    click("Command11");
    EXPECT_EQ(workspace->project.scriptComment, "one\r\ntwo");
    EXPECT_EQ(workspace->project.events[2].comment, "Gamma note\r\nsecond line");
}
