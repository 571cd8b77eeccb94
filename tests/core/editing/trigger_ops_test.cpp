#include "editing/trigger_ops.h"
#include "model/file_error.h"
#include "wizard_workspace_fixture.h"

using namespace tarvo;

using TriggerOpsTest = WizardWorkspaceTest;

TEST_F(TriggerOpsTest, TimeKindsKeepTheTypedTextAndTakeOneArgument)
{
    const StoredTrigger every = storedTrigger(project.tables, 0, "600", QString(), prompter);
    EXPECT_EQ(every.kind, 0);
    EXPECT_EQ(every.texts[0], "600");
    EXPECT_EQ(every.texts[1], QString());
    EXPECT_EQ(every.texts[2], QString());
    EXPECT_EQ(every.types, (std::array<qint16, 3> {-1, 0, 0}));
    EXPECT_EQ(every.argCount, 1);
}

TEST_F(TriggerOpsTest, TransportLandingEncodesGroupAndPlayer)
{
    addItem(7, "Landing party", 3, "Group[0]");
    const StoredTrigger landing
        = storedTrigger(project.tables, 5, "Landing party", "Player 10", prompter);
    EXPECT_EQ(landing.texts[0], "&&7$$3§");
    // "Player 10" is one item, not "Player 1" followed by a 0.
    EXPECT_EQ(landing.texts[1], "&&1$$2§");
    EXPECT_EQ(landing.types, (std::array<qint16, 3> {7, 1, 0}));
    EXPECT_EQ(landing.argCount, 2);
}

TEST_F(TriggerOpsTest, KindsWithoutArgumentsStoreEmptyTextsAndTheirTypes)
{
    for (int kind : {2, 3, 4}) {
        const StoredTrigger trigger = storedTrigger(project.tables, kind, {}, {}, prompter);
        EXPECT_EQ(trigger.argCount, 0) << kind;
        EXPECT_TRUE(trigger.texts[0].isEmpty() && trigger.texts[1].isEmpty()) << kind;
    }
    EXPECT_EQ(storedTrigger(project.tables, 4, {}, {}, prompter).types[0], 0);
    EXPECT_EQ(storedTrigger(project.tables, 3, {}, {}, prompter).types[0], -1);
    EXPECT_THROW(storedTrigger(project.tables, 16, {}, {}, prompter), DataError);
}
