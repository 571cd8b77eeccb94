// Undo and redo as the user meets them: the Edit menu names the step, a whole
// wizard session is one step, "Modified" follows the saved state, and work an
// editor left unsaved is offered at the next start.
#include "main_window_fixture.h"
#include "model/project_document.h"
#include "model/project_file.h"
#include "model/recovery_store.h"

#include <QComboBox>

TEST_F(MainWindowTest, EditMenuUndoesNamedStepsAndTheWholeWizard)
{
    openFixture();
    QAction* undo = find<QAction>("mUndo");
    QAction* redo = find<QAction>("mRedo");
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(panel(3), "");
    const QByteArray opened = tarvo::projectFileBytes(workspace->project);

    events()->setCurrentRow(0);
    prompter.inputs = {"Renamed"};
    click("Command36");
    EXPECT_EQ(undo->text(), "&Undo Rename Event");
    EXPECT_EQ(panel(3), "Modified");

    // New, a title, the trigger, no conditions, one action, Done.
    prompter.inputs = {"Fresh"};
    click("Command3");
    find<QPushButton>("Command15")->click();
    find<QPushButton>("Command9")->click();
    EXPECT_FALSE(undo->isEnabled());
    find<QPushButton>("Command16")->click();
    find<QComboBox>("Combo2")->setCurrentIndex(3);
    find<QComboBox>("Combo6_0")->setEditText("20");
    find<QPushButton>("Command20")->click();
    find<QPushButton>("Command21")->click();
    EXPECT_EQ(lines(events()), (QStringList {"Renamed", "Beta", "Gamma", "Fresh"}));
    EXPECT_EQ(undo->text(), "&Undo New Event");

    undo->trigger();
    EXPECT_EQ(lines(events()), (QStringList {"Renamed", "Beta", "Gamma"}));
    EXPECT_EQ(redo->text(), "&Redo New Event");
    undo->trigger();
    EXPECT_EQ(events()->currentRow(), 0); // the selection follows the step
    EXPECT_EQ(tarvo::projectFileBytes(workspace->project), opened);
    EXPECT_EQ(panel(3), "");
    redo->trigger();
    redo->trigger();
    EXPECT_EQ(lines(events()), (QStringList {"Renamed", "Beta", "Gamma", "Fresh"}));
    EXPECT_EQ(panel(3), "Modified");
}

TEST_F(MainWindowTest, UnsavedWorkOfAnEditorThatEndedIsOfferedAtStart)
{
    const QString path = openFixture();
    {
        // An editor that ended without cleaning up left its copy behind.
        tarvo::RecoveryStore crashed(tarvo::RecoveryStore::defaultFolder());
        workspace->project.scriptComment = "Unsaved work";
        crashed.write(workspace->project);
    }
    prompter.answers = {tarvo::Prompter::Answer::Yes};
    prompter.clear();
    ASSERT_TRUE(window->offerRecovery());
    EXPECT_TRUE(prompter.prompts.first().text.contains("\"Fixture\""));
    EXPECT_EQ(workspace->project.scriptComment, "Unsaved work");
    EXPECT_FALSE(workspace->project.hasFile); // Save asks where to write
    EXPECT_EQ(panel(3), "Modified");
    // Nothing is offered again while this editor holds the copy.
    tarvo::RecoveryStore other(tarvo::RecoveryStore::defaultFolder());
    EXPECT_TRUE(other.orphans().isEmpty());
    QFile::remove(path);
}
