#include "editing/action_ops.h"
#include "editing/wizard_ops.h"
#include "wizard_workspace_fixture.h"

using namespace tarvo;

namespace {

const QString kTimerMessage
    = "New Event timer created (no actions selected). All conditions were removed.";

} // namespace

class WizardOpsTest : public WizardWorkspaceTest
{
protected:
    StoredTrigger every(const QString& time)
    {
        return storedTrigger(project.tables, 0, time, QString(), prompter);
    }

    void addAction(EventRecord& event, const QStringList& texts = {"hello"})
    {
        StoreAction(workspace, event, 3, event.actionCount, false, texts);
    }
};

TEST_F(WizardOpsTest, NewEventSlotIsFreshAndNotCounted)
{
    const int first = prepareNewEventSlot(project);
    EXPECT_EQ(first, 0);
    project.events[0].name = "abandoned";
    addAction(project.events[0]);
    // A second start after a cancel gets a clean slot at the same index.
    EXPECT_EQ(prepareNewEventSlot(project), 0);
    EXPECT_EQ(project.eventCount, 0);
    EXPECT_TRUE(project.events[0].name.isEmpty());
    EXPECT_EQ(project.events[0].actionCount, 0);
    EXPECT_TRUE(project.events[0].actions.isEmpty());
}

TEST_F(WizardOpsTest, FinishingANewEventRegistersItInTheEventsRow)
{
    for (int i = 0; i < 2; ++i) {
        const int index = prepareNewEventSlot(project);
        project.events[index].name = QStringLiteral("Event %1").arg(i);
        addAction(project.events[index]);
        EXPECT_EQ(FinishEventWizard(project, WizardMode::NewEvent, index, every("50"), prompter),
            FinishOutcome::EventAdded);
    }
    ASSERT_EQ(project.eventCount, 2);
    EXPECT_EQ(project.events[0].id, 0);
    EXPECT_EQ(project.events[1].id, 1);
    EXPECT_EQ(project.events[1].triggerArgTexts[0], "50");
    EXPECT_FALSE(project.events[1].disabled);
    const ReferenceList& events = project.tables[row::Events];
    ASSERT_EQ(events.ItemCount, 2);
    EXPECT_EQ(events.Texts, (QStringList {"Event 0", "Event 1"}));
    EXPECT_EQ(events.Codes, (QStringList {"event0", "event1"}));
    EXPECT_EQ(events.Ids, (QList<qint16> {0, 1}));
    EXPECT_EQ(prompter.prompts.size(), 0);
}

TEST_F(WizardOpsTest, NewEventIdFollowsTheHighestIdOfTheRow)
{
    addItem(row::Events, "old", 6, "event0");
    project.events.resize(1);
    project.events[0].id = 6;
    project.eventCount = 1;
    const int index = prepareNewEventSlot(project);
    addAction(project.events[index]);
    FinishEventWizard(project, WizardMode::NewEvent, index, every("1"), prompter);
    EXPECT_EQ(project.events[1].id, 7);
    EXPECT_EQ(project.tables[row::Events].Codes.at(1), "event1");

    // A new event whose actions are all off starts disabled.
    const int off = prepareNewEventSlot(project);
    addAction(project.events[off]);
    setActionActive(project.events[off], 0, false);
    FinishEventWizard(project, WizardMode::NewEvent, off, every("1"), prompter);
    EXPECT_EQ(project.eventCount, 3);
    EXPECT_TRUE(project.events[2].disabled);
    EXPECT_FALSE(project.events[1].disabled);
}

TEST_F(WizardOpsTest, NewEventWithoutActionsBecomesATimer)
{
    // The first timer is Timer0 with ID 0.
    FinishEventWizard(
        project, WizardMode::NewEvent, prepareNewEventSlot(project), every("1"), prompter);
    EXPECT_EQ(project.timers[0].id, 0);
    EXPECT_EQ(project.tables[row::Timers].Codes, QStringList {"Timer0"});
    prompter.clear();
    ResetProject(workspace);

    project.timers.resize(1);
    project.timers[0].name = "earlier";
    project.timers[0].id = 4;
    project.timerCount = 1;
    addItem(row::Timers, "earlier", 4, "Timer0");

    const int index = prepareNewEventSlot(project);
    project.events[index].name = "Wave";
    project.events[index].comment = "not carried over";
    EXPECT_EQ(FinishEventWizard(project, WizardMode::NewEvent, index, every("300"), prompter),
        FinishOutcome::BecameTimer);

    EXPECT_EQ(project.eventCount, 0);
    ASSERT_EQ(project.timerCount, 2);
    const TimerRecord& timer = project.timers[1];
    EXPECT_EQ(timer.name, "Wave");
    EXPECT_EQ(timer.id, 5);
    EXPECT_EQ(timer.triggerKind, 0);
    EXPECT_EQ(timer.triggerArgTexts[0], "300");
    EXPECT_EQ(timer.triggerArgCount, 1);
    EXPECT_TRUE(timer.comment.isEmpty());
    const ReferenceList& timers = project.tables[row::Timers];
    EXPECT_EQ(timers.Codes.at(1), "Timer1");
    EXPECT_EQ(timers.Texts.at(1), "Wave");
    EXPECT_EQ(timers.Ids.at(1), 5);
    ASSERT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1);
    EXPECT_EQ(prompter.prompts[0].text, kTimerMessage);
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Exclamation);
}

TEST_F(WizardOpsTest, EditedEventWithoutActionsIsRemovedAndBecomesATimer)
{
    for (const char* name : {"A", "B", "C"}) {
        const int index = prepareNewEventSlot(project);
        project.events[index].name = QString::fromLatin1(name);
        addAction(project.events[index]);
        FinishEventWizard(project, WizardMode::NewEvent, index, every("1"), prompter);
    }
    DeleteAction(project.events[1], 0);
    const StoredTrigger after = storedTrigger(project.tables, 1, "90", {}, prompter);
    EXPECT_EQ(FinishEventWizard(project, WizardMode::EditEvent, 1, after, prompter),
        FinishOutcome::BecameTimer);

    ASSERT_EQ(project.eventCount, 2);
    EXPECT_EQ(project.events.size(), 2);
    EXPECT_EQ(project.events[0].name, "A");
    EXPECT_EQ(project.events[1].name, "C");
    EXPECT_EQ(project.events[1].id, 2);
    ASSERT_EQ(project.timerCount, 1);
    EXPECT_EQ(project.timers[0].name, "B");
    EXPECT_EQ(project.timers[0].triggerKind, 1);
    EXPECT_EQ(project.timers[0].triggerArgTexts[0], "90");
    // The events row no longer offers the removed event.
    EXPECT_EQ(project.tables[row::Events].Texts, (QStringList {"A", "C"}));
    EXPECT_EQ(project.tables[row::Events].Ids, (QList<qint16> {0, 2}));
    EXPECT_EQ(prompter.messageTexts(), QStringList {kTimerMessage});
}

TEST_F(WizardOpsTest, EditedEventKeepsItsIdAndIsDisabledWhenNoActionIsOn)
{
    const int index = prepareNewEventSlot(project);
    addAction(project.events[index]);
    FinishEventWizard(project, WizardMode::NewEvent, index, every("1"), prompter);
    ASSERT_FALSE(project.events[0].disabled);

    setActionActive(project.events[0], 0, false);
    EXPECT_EQ(FinishEventWizard(project, WizardMode::EditEvent, 0, every("7"), prompter),
        FinishOutcome::EventKept);
    EXPECT_TRUE(project.events[0].disabled);
    EXPECT_EQ(project.events[0].id, 0);
    EXPECT_EQ(project.events[0].triggerArgTexts[0], "7");
    EXPECT_EQ(project.eventCount, 1);
    EXPECT_EQ(project.tables[row::Events].ItemCount, 1);
}
