#include "../editing/event_list_fixture.h"
#include "catalogue/reference_checks.h"

#include <gtest/gtest.h>

using namespace tarvo;

class ReferenceChecksTest : public ::testing::Test, public EventListFixture
{
};

TEST_F(ReferenceChecksTest, MessageTextIsExact)
{
    EXPECT_EQ(eventInUseText("Start", "Enable event", "Victory"),
        "This event is in use by the\r\n'Start'\r\n event's\r\n'Enable event'\r\naction!\r\n"
        "Valdrun will most probably crash if you will not disable all references to the "
        "'Victory' event.");
}

TEST_F(ReferenceChecksTest, WarnsOncePerReferringArgumentInOrder)
{
    addEvent("Target", 1);
    addEvent("First", 2);
    addEvent("Second", 1);
    referTo(1, 0, 0, "Enable event");
    referTo(1, 0, 0); // a second argument of the same action
    referTo(2, 0, 0, "Disable event");

    const QStringList shown = CheckEventInUse(workspace, "Target");
    ASSERT_EQ(shown.size(), 3);
    EXPECT_EQ(prompter.messageTexts(), shown);
    EXPECT_EQ(shown[0], eventInUseText("First", "Enable event", "Target"));
    EXPECT_EQ(shown[2], eventInUseText("Second", "Disable event", "Target"));
    for (const auto& prompt : prompter.prompts) {
        EXPECT_EQ(prompt.icon, Prompter::Icon::Exclamation);
        EXPECT_EQ(prompt.buttons, Prompter::Buttons::Ok);
    }
}

TEST_F(ReferenceChecksTest, SwitchedOffEventsAndActionsAreNotSearched)
{
    addEvent("Target", 1);
    addEvent("Off event", 1, 0, true);
    addEvent("Off action", 0, 1);
    referTo(1, 0, 0);
    referTo(2, 0, 0);
    EXPECT_TRUE(CheckEventInUse(workspace, "Target").isEmpty());
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(ReferenceChecksTest, TheEventItselfIsSearchedAndOtherRowsAreNot)
{
    addEvent("Target", 2);
    referTo(0, 0, 0, "Loop");
    // Same encoded value, but the argument offers another row.
    referTo(0, 1, 0);
    project.events[0].actions[1].Args[0].ListRef = row::Timers;
    const QStringList shown = CheckEventInUse(workspace, "Target");
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0], eventInUseText("Target", "Loop", "Target"));
}

TEST_F(ReferenceChecksTest, ComparesDisplayTextsSoNamesakesMatch)
{
    addEvent("Twin", 1);
    addEvent("Twin", 1);
    addEvent("User", 1);
    referTo(2, 0, 1);
    EXPECT_EQ(CheckEventInUse(workspace, "Twin").size(), 1);
}

TEST_F(ReferenceChecksTest, ShortValuesAreSkippedAndBrokenReferencesReported)
{
    addEvent("Target", 1);
    addEvent("User", 2);
    ArgumentRecord shortArg;
    shortArg.ListRef = row::Events;
    shortArg.Value = "ab";
    project.events[1].actions[0].Args = {shortArg};
    project.events[1].actions[0].ArgCount = 1;
    ArgumentRecord broken;
    broken.ListRef = row::Events;
    broken.Value = encodedReference(row::Events, "99"); // no event has ID 99
    project.events[1].actions[1].Args = {broken};
    project.events[1].actions[1].ArgCount = 1;

    EXPECT_TRUE(CheckEventInUse(workspace, "Target").isEmpty());
    EXPECT_TRUE(prompter.messageTexts().isEmpty());
    ASSERT_EQ(prompter.statusLines().size(), 1);
    EXPECT_TRUE(prompter.statusLines().first().startsWith("Error: Couldn't parse '"));
}

TEST_F(ReferenceChecksTest, ArgumentCountLimitsTheSearch)
{
    addEvent("Target", 1);
    addEvent("User", 1);
    referTo(1, 0, 0);
    project.events[1].actions[0].ArgCount = 0;
    EXPECT_TRUE(CheckEventInUse(workspace, "Target").isEmpty());
}
