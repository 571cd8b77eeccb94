#include "editing/event_list.h"
#include "event_list_fixture.h"
#include "model/file_error.h"

#include <gtest/gtest.h>

using namespace tarvo;

class EventListTest : public ::testing::Test, public EventListFixture
{
};

TEST_F(EventListTest, CountsOnlyActiveActionsAndEnabledEvents)
{
    EXPECT_EQ(eventCountText(project), "Events: 0/0");
    EXPECT_EQ(timerCountText(project), "Timers: 0");
    EXPECT_EQ(actionCountText(project, -1), "Actions:");
    EXPECT_EQ(setEventTicked(workspace, 0, true, QString()), TickOutcome::Ignored);
    EXPECT_TRUE(prompter.prompts.isEmpty());

    addEvent("A", 2, 1);
    addEvent("B", 0, 2, true);
    addEvent("C", 1);
    EXPECT_EQ(CountActiveActions(project, 0), 2);
    EXPECT_EQ(CountActiveActions(project, 1), 0);
    EXPECT_EQ(eventCountText(project), "Events: 2/3");
    EXPECT_EQ(actionCountText(project, 0), "Actions: 2/3");
    EXPECT_EQ(actionCountText(project, 1), "Actions: 0/2");
    EXPECT_EQ(actionCountText(project, 3), "Actions:");
    // A file may claim more actions than it holds.
    project.events[2].actionCount = 3;
    EXPECT_EQ(actionCountText(project, 2), "Actions: 1/3");
}

TEST_F(EventListTest, TickingWithoutActiveActionIsRefusedWithTheEventName)
{
    addEvent("Quiet one", 0, 2, true);
    EXPECT_EQ(setEventTicked(workspace, 0, true, "Quiet one"), TickOutcome::Refused);
    EXPECT_TRUE(project.events[0].disabled);
    ASSERT_EQ(prompter.messageTexts().size(), 1);
    EXPECT_EQ(prompter.messageTexts().first(),
        "You can't enable event 'Quiet one' , because it has no active actions.");
    EXPECT_EQ(prompter.prompts.first().icon, Prompter::Icon::Exclamation);
}

TEST_F(EventListTest, TickingAndUntickingChangeTheDisabledFlag)
{
    addEvent("A", 1, 0, true);
    EXPECT_EQ(setEventTicked(workspace, 0, true, "A"), TickOutcome::Enabled);
    EXPECT_FALSE(project.events[0].disabled);
    EXPECT_EQ(setEventTicked(workspace, 0, false, "A"), TickOutcome::Disabled);
    EXPECT_TRUE(project.events[0].disabled);
    // Disabling an event without actions is always allowed.
    addEvent("B", 0);
    EXPECT_EQ(setEventTicked(workspace, 1, false, "B"), TickOutcome::Disabled);
    EXPECT_TRUE(prompter.messageTexts().isEmpty());
}

TEST_F(EventListTest, UntickingWarnsAboutReferencesButTickingDoesNot)
{
    addEvent("Target", 1);
    addEvent("User", 1);
    referTo(1, 0, 0, "Enable event");
    EXPECT_EQ(setEventTicked(workspace, 0, false, "Target"), TickOutcome::Disabled);
    EXPECT_EQ(prompter.messageTexts().size(), 1);
    prompter.clear();
    EXPECT_EQ(setEventTicked(workspace, 0, true, "Target"), TickOutcome::Enabled);
    EXPECT_TRUE(prompter.messageTexts().isEmpty());
}

TEST_F(EventListTest, DeleteShiftsLaterEventsAndRebuildsTheEventsRow)
{
    addEvent("A", 1);
    addEvent("B", 1);
    addEvent("C", 1);
    project.events.append(EventRecord {}); // a spare slot beyond the count
    DeleteEvent(project, 0);
    EXPECT_EQ(names(), (QStringList {"B", "C"}));
    EXPECT_EQ(project.events.size(), 2);
    EXPECT_EQ(project.events[0].id, 1);
    const ReferenceList& row = project.tables[row::Events];
    EXPECT_EQ(row.ItemCount, 2);
    EXPECT_EQ(row.Texts, (QStringList {"B", "C"}));
    EXPECT_EQ(row.Codes, (QStringList {"event0", "event1"}));

    DeleteEvent(project, 1);
    DeleteEvent(project, 0);
    EXPECT_TRUE(project.events.isEmpty());
    EXPECT_EQ(eventCountText(project), "Events: 0/0");
    EXPECT_THROW(DeleteEvent(project, 0), DataError);
}

TEST_F(EventListTest, CopyAppendsAFullCopyWithANewId)
{
    addEvent("A", 2, 1, true);
    addEvent("B", 1);
    project.events[0].comment = "line1\r\nline2";
    project.events[0].triggerKind = 5;
    project.events[1].id = 7;
    refreshEventRow(project);

    const int copy = CopyEvent(project, 0);
    ASSERT_EQ(copy, 2);
    EXPECT_EQ(project.eventCount, 3);
    const EventRecord& e = project.events[2];
    EXPECT_EQ(e.name, "A");
    EXPECT_EQ(e.id, 8); // highest so far plus one
    EXPECT_EQ(e.comment, "line1\r\nline2");
    EXPECT_EQ(e.triggerKind, 5);
    EXPECT_EQ(e.actions.size(), 3);
    EXPECT_TRUE(e.disabled); // the caller's tick decides
    EXPECT_EQ(project.tables[row::Events].ItemCount, 3);
    EXPECT_EQ(project.tables[row::Events].Ids.last(), 8);

    project.events.append(EventRecord {}); // a cancelled new event left this
    EXPECT_EQ(CopyEvent(project, 1), 3);
    EXPECT_EQ(project.events.size(), 4);
    EXPECT_EQ(project.events[3].name, "B");
}

TEST_F(EventListTest, MoveSwapsWithTheNeighbourWithinBounds)
{
    addEvent("A", 1);
    addEvent("B", 1);
    addEvent("C", 1);
    EXPECT_EQ(moveEvent(project, 0, -1), -1);
    EXPECT_EQ(moveEvent(project, 2, 1), -1);
    EXPECT_EQ(names(), (QStringList {"A", "B", "C"}));

    EXPECT_EQ(moveEvent(project, 2, -1), 1);
    EXPECT_EQ(names(), (QStringList {"A", "C", "B"}));
    EXPECT_EQ(moveEvent(project, 0, 1), 1);
    EXPECT_EQ(names(), (QStringList {"C", "A", "B"}));
    // The row follows the new order; the IDs travel with the events.
    EXPECT_EQ(project.tables[row::Events].Texts, (QStringList {"C", "A", "B"}));
    EXPECT_EQ(project.tables[row::Events].Ids, (QList<qint16> {2, 0, 1}));
    EXPECT_EQ(moveEvent(project, -1, 1), -1);
}

TEST_F(EventListTest, RenameOffersTheCurrentNameAndIgnoresAnEmptyAnswer)
{
    addEvent("Old", 1);
    prompter.inputs = {QString(), "New name"};
    EXPECT_FALSE(renameEvent(project, 0, prompter));
    EXPECT_EQ(project.events[0].name, "Old");
    EXPECT_TRUE(prompter.messageTexts().isEmpty()); // silently
    EXPECT_TRUE(renameEvent(project, 0, prompter));
    EXPECT_EQ(project.events[0].name, "New name");
    EXPECT_EQ(project.tables[row::Events].Texts.first(), "New name");
    ASSERT_EQ(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].text, "Please enter the title for the current event.");
    EXPECT_EQ(prompter.prompts[0].title, "Title");
    EXPECT_EQ(prompter.prompts[0].defaultText, "Old");
}
