#include "main_window_fixture.h"

#include <QMenu>

namespace {
const QString kRefusal = "You can't enable event 'Beta' , because it has no active actions.";
}

class MainPageTest : public MainWindowTest
{
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        openFixture();
        prompter.clear();
    }
};

TEST_F(MainPageTest, SelectingShowsIdCommentAndCountAndUpdateStoresTheComment)
{
    events()->setCurrentRow(2);
    EXPECT_EQ(page<QLabel>("Label16")->text(), "ID: 2");
    EXPECT_EQ(page<QLabel>("Label10")->text(), "Event Comment:");
    EXPECT_EQ(
        page<QPlainTextEdit>("TxtMaintDescription")->toPlainText(), "Gamma note\nsecond line");
    EXPECT_EQ(workspace->project.commentMode, tarvo::CommentEvent);
    EXPECT_EQ(panel(4), "Actions: 1/1");
    events()->setCurrentRow(1);
    EXPECT_EQ(panel(4), "Actions: 0/1");

    timers()->setCurrentRow(0);
    EXPECT_EQ(page<QLabel>("Label17")->text(), "ID: 0");
    EXPECT_EQ(page<QLabel>("Label10")->text(), "Timer Comment:");
    EXPECT_EQ(page<QPlainTextEdit>("TxtMaintDescription")->toPlainText(), "Timer note");
    EXPECT_EQ(workspace->project.commentMode, tarvo::CommentTimer);

    // Update stores the box by the comment mode.
    auto* box = page<QPlainTextEdit>("TxtMaintDescription");
    box->setPlainText("timer\ntext");
    click("Command11");
    EXPECT_EQ(workspace->project.timers[0].comment, "timer\r\ntext");
    events()->setCurrentRow(0);
    box->setPlainText("event text");
    click("Command11");
    EXPECT_EQ(workspace->project.events[0].comment, "event text");
    EXPECT_EQ(workspace->project.timers[0].comment, "timer\r\ntext");
}

TEST_F(MainPageTest, TickingAnEventWithoutActiveActionsIsRefused)
{
    events()->item(1)->setCheckState(Qt::Checked);
    EXPECT_EQ(prompter.messageTexts(), QStringList {kRefusal});
    EXPECT_EQ(prompter.prompts[0].icon, tarvo::Prompter::Icon::Exclamation);
    EXPECT_EQ(events()->item(1)->checkState(), Qt::Unchecked);
    EXPECT_TRUE(workspace->project.events[1].disabled);
    EXPECT_EQ(panel(1), "Events: 2/3");
}

TEST_F(MainPageTest, UntickingAReferencedEventWarnsAndStillDisablesIt)
{
    events()->item(2)->setCheckState(Qt::Unchecked);
    ASSERT_EQ(prompter.messageTexts().size(), 1);
    EXPECT_TRUE(prompter.messageTexts().first().startsWith(
        "This event is in use by the\r\n'Alpha'\r\n event's\r\n'Enable event'\r\naction!"));
    EXPECT_TRUE(workspace->project.events[2].disabled);
    EXPECT_EQ(panel(1), "Events: 1/3");

    prompter.clear();
    events()->item(2)->setCheckState(Qt::Checked);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_FALSE(workspace->project.events[2].disabled);

    // Unticking an event nobody refers to asks nothing.
    events()->item(0)->setCheckState(Qt::Unchecked);
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(MainPageTest, DeleteAsksAndNoKeepsTheEventWhileNoSelectionDoesNothing)
{
    events()->setCurrentRow(0);
    prompter.answers = {tarvo::Prompter::Answer::No};
    click("Command2");
    EXPECT_EQ(prompter.messageTexts(), QStringList {"Are you sure you want to delete this event?"});
    EXPECT_EQ(prompter.prompts[0].buttons, tarvo::Prompter::Buttons::YesNo);
    EXPECT_EQ(events()->count(), 3);

    prompter.answers = {tarvo::Prompter::Answer::Yes};
    click("Command2");
    EXPECT_EQ(lines(events()), (QStringList {"Beta", "Gamma"}));
    EXPECT_EQ(workspace->project.eventCount, 2);
    EXPECT_EQ(workspace->project.events[0].name, "Beta");
    EXPECT_EQ(panel(1), "Events: 1/2");

    prompter.clear();
    events()->setCurrentRow(-1);
    click("Command2");
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(events()->count(), 2);
}

TEST_F(MainPageTest, CopyAppendsTheEventAndTicksItWhenItMayBeOn)
{
    events()->setCurrentRow(0);
    click("Command27");
    EXPECT_EQ(lines(events()), (QStringList {"Alpha", "Beta", "Gamma", "Alpha"}));
    EXPECT_EQ(ticks(), (QList<bool> {true, false, true, true}));
    EXPECT_EQ(workspace->project.events[3].id, 3);
    EXPECT_FALSE(workspace->project.events[3].disabled);
    EXPECT_EQ(panel(1), "Events: 3/4");
    EXPECT_TRUE(prompter.prompts.isEmpty());

    // A copy of an event without active actions cannot be ticked.
    events()->setCurrentRow(1);
    click("Command27");
    EXPECT_EQ(lines(events()), (QStringList {"Alpha", "Beta", "Gamma", "Alpha", "Beta"}));
    EXPECT_EQ(ticks(), (QList<bool> {true, false, true, true, false}));
    EXPECT_EQ(prompter.messageTexts(), QStringList {kRefusal});

    events()->setCurrentRow(-1);
    click("Command27");
    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_EQ(events()->count(), 5);
}

TEST_F(MainPageTest, MoveUpAndDownKeepTheSelectionOnTheMovedEvent)
{
    events()->setCurrentRow(0);
    click("Command38");
    EXPECT_EQ(lines(events()), (QStringList {"Alpha", "Beta", "Gamma"}));
    click("Command39");
    EXPECT_EQ(lines(events()), (QStringList {"Beta", "Alpha", "Gamma"}));
    EXPECT_EQ(ticks(), (QList<bool> {false, true, true}));
    EXPECT_EQ(events()->currentRow(), 1);
    click("Command39");
    click("Command39");
    EXPECT_EQ(lines(events()), (QStringList {"Beta", "Gamma", "Alpha"}));
    EXPECT_EQ(events()->currentRow(), 2);
    click("Command38");
    EXPECT_EQ(lines(events()), (QStringList {"Beta", "Alpha", "Gamma"}));
    // The reference to Gamma follows the event, not the position.
    EXPECT_EQ(workspace->project.tables[12].Texts, (QStringList {"Beta", "Alpha", "Gamma"}));
}

TEST_F(MainPageTest, RenameThroughTheButtonAndThePopupMenu)
{
    events()->setCurrentRow(0);
    prompter.inputs = {"First"};
    click("Command36");
    EXPECT_EQ(prompter.prompts[0].defaultText, "Alpha");
    EXPECT_EQ(events()->item(0)->text(), "First");
    EXPECT_TRUE(workspace->project.events[0].disabled == false);

    // A right click selects the line under the pointer and opens the menu.
    events()->show();
    const QRect line = events()->visualItemRect(events()->item(2));
    Q_EMIT events()->customContextMenuRequested(line.center());
    EXPECT_EQ(events()->currentRow(), 2);
    find<QMenu>("mInvisibleEventEdit")->hide();
    prompter.inputs = {QString()};
    trigger("mEventRename");
    EXPECT_EQ(events()->item(2)->text(), "Gamma");
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 0);
    prompter.answers = {tarvo::Prompter::Answer::Yes};
    trigger("mEventDelete");
    EXPECT_EQ(lines(events()), (QStringList {"First", "Beta"}));
}

TEST_F(MainPageTest, TimerRenameCancelAndDelete)
{
    timers()->setCurrentRow(0);
    prompter.inputs = {QString(), "Slow tick"};
    click("Command35");
    EXPECT_EQ(prompter.messageTexts(), QStringList {"Cancelled. No changes were made."});
    EXPECT_EQ(timers()->item(0)->text(), "Tick");
    click("Command35");
    EXPECT_EQ(timers()->item(0)->text(), "Slow tick");
    EXPECT_EQ(workspace->project.timers[0].name, "Slow tick");

    timers()->setCurrentRow(0);
    click("Command33");
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1); // no question
    EXPECT_EQ(timers()->count(), 0);
    EXPECT_EQ(panel(2), "Timers: 0");
}

TEST_F(MainPageTest, CopyWhenNoEventIdIsLeftShowsTheFaultAndChangesNothing)
{
    workspace->project.events[2].id = 32767;
    events()->setCurrentRow(0);
    click("Command27");
    ASSERT_EQ(prompter.messageTexts().size(), 1);
    EXPECT_EQ(prompter.prompts.last().icon, tarvo::Prompter::Icon::Critical);
    EXPECT_EQ(events()->count(), 3);
    EXPECT_EQ(workspace->project.eventCount, 3);
}

TEST_F(MainPageTest, DeletingTheFirstOfThreeTimersKeepsTheOldNamesInTheList)
{
    auto& project = workspace->project;
    for (const char* name : {"B", "C"}) {
        tarvo::TimerRecord timer;
        timer.name = name;
        project.timers.append(timer);
        project.timerListLines.append(timer.name);
        ++project.timerCount;
    }
    window->mainPage()->fillTimerList();
    ASSERT_EQ(lines(timers()), (QStringList {"Tick", "B", "C"}));
    timers()->setCurrentRow(0);
    click("Command33");
    EXPECT_EQ(lines(timers()), (QStringList {"B", "C"}));
    EXPECT_EQ(project.timerCount, 2);
    EXPECT_EQ(project.timers[0].name, "B");
    EXPECT_EQ(project.timers[1].name, "B");
    EXPECT_EQ(panel(2), "Timers: 2");
}
