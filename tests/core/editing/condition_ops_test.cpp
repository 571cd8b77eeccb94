#include "editing/condition_ops.h"
#include "editing/trigger_tables.h"
#include "model/file_error.h"
#include "wizard_workspace_fixture.h"

using namespace tarvo;

class ConditionOpsTest : public WizardWorkspaceTest
{
protected:
    EventRecord event;

    void SetUp() override
    {
        WizardWorkspaceTest::SetUp();
        addItem(row::Flags, "Base found", 2, "flag0");
        addItem(row::Groups, "Scouts", 0, "Group[0]");
    }

    ConditionInput unitsInput(
        const QString& player, const QString& group, int op, const QString& value)
    {
        return {1, {player, group}, op, value, 0};
    }
};

TEST_F(ConditionOpsTest, AddCopiesTheKindAndEncodesArgumentsAndValue)
{
    const int position
        = StoreCondition(workspace, event, -1, unitsInput("Player 2", "Scouts", 2, "Power"));
    ASSERT_EQ(position, 0);
    ASSERT_EQ(event.conditionCount, 1);
    const ConditionRecord& condition = event.conditions[0];
    EXPECT_EQ(condition.Kind, 1);
    EXPECT_EQ(condition.Title, "Units of player in group");
    EXPECT_EQ(condition.Args[0].Label, "Player");
    EXPECT_EQ(condition.Args[0].Value, "&&1$$1§");
    EXPECT_EQ(condition.Args[1].Value, "&&7$$0§");
    EXPECT_EQ(condition.operatorIndex, 2);
    EXPECT_EQ(operatorText(condition.operatorIndex), "==");
    // The value type of this kind is row 0, the numbers.
    EXPECT_EQ(condition.comparisonValue, "&&0$$0§");
    EXPECT_FALSE(condition.inactive);

    // Texts that name no item are stored as typed.
    StoreCondition(workspace, event, -1, unitsInput("nobody", {}, 0, "12"));
    EXPECT_EQ(event.conditions[1].Args[0].Value, "nobody");
    EXPECT_EQ(event.conditions[1].Args[1].Value, QString());
    EXPECT_EQ(event.conditions[1].comparisonValue, "12");
}

TEST_F(ConditionOpsTest, NegatableKindStoresTheNegationIndex)
{
    StoreCondition(workspace, event, -1, {0, {"Base found"}, 0, {}, 1});
    const ConditionRecord& condition = event.conditions[0];
    EXPECT_EQ(condition.ResultA, 1);
    EXPECT_EQ(condition.ResultB, 17);
    EXPECT_EQ(condition.negation, 1);
    EXPECT_EQ(negationText(condition.negation), "not ");
    EXPECT_EQ(condition.Args[0].Value, "&&17$$2§");
    EXPECT_EQ(condition.comparisonValue, QString());
}

TEST_F(ConditionOpsTest, UpdateReplacesInPlaceKeepsCommentAndSwitchesOn)
{
    StoreCondition(workspace, event, -1, {0, {"Base found"}, 0, {}, 0});
    StoreCondition(workspace, event, -1, {2, {}, 0, {}, 0});
    event.conditions[0].comment = "why";
    setConditionActive(event, 0, false);

    EXPECT_EQ(StoreCondition(workspace, event, 0, unitsInput("Player 1", {}, 4, "3")), 0);
    EXPECT_EQ(event.conditionCount, 2);
    EXPECT_EQ(event.conditions[0].Kind, 1);
    EXPECT_EQ(event.conditions[0].comment, "why");
    EXPECT_FALSE(event.conditions[0].inactive);
    EXPECT_EQ(event.conditions[1].Title, "Always");
}

TEST_F(ConditionOpsTest, InputOfAStoredConditionShowsDisplayTexts)
{
    StoreCondition(workspace, event, -1, unitsInput("Player 10", "Scouts", 5, "Mission time"));
    const ConditionInput input = conditionInputOf(workspace, event.conditions[0]);
    EXPECT_EQ(input.kind, 1);
    EXPECT_EQ(input.argumentTexts, (QStringList {"Player 10", "Scouts"}));
    EXPECT_EQ(input.operatorIndex, 5);
    EXPECT_EQ(input.comparedText, "Mission time");
}

TEST_F(ConditionOpsTest, DeletedGroupShowsAsQuestionMarkWithStatusLine)
{
    StoreCondition(workspace, event, -1, unitsInput({}, "Scouts", 0, {}));
    project.tables[row::Groups].Ids[0] = 9; // the group was replaced
    const ConditionInput input = conditionInputOf(workspace, event.conditions[0]);
    EXPECT_EQ(input.argumentTexts.at(1), "?");
    EXPECT_EQ(prompter.statusLines().size(), 1);
}

TEST_F(ConditionOpsTest, CopyAppendsAnActiveDuplicateAndDeleteClosesTheGap)
{
    for (const char* player : {"Player 1", "Player 2", "Player 10"})
        StoreCondition(workspace, event, -1, unitsInput(QString::fromLatin1(player), {}, 1, "4"));
    event.conditions[2].comment = "last";
    setConditionActive(event, 2, false);

    EXPECT_EQ(CopyCondition(event, 2), 3);
    ASSERT_EQ(event.conditionCount, 4);
    EXPECT_EQ(event.conditions[3].Args[0].Value, event.conditions[2].Args[0].Value);
    EXPECT_EQ(event.conditions[3].comment, "last");
    EXPECT_FALSE(event.conditions[3].inactive);
    EXPECT_TRUE(event.conditions[2].inactive);

    DeleteCondition(event, 0);
    ASSERT_EQ(event.conditionCount, 3);
    EXPECT_EQ(event.conditions.size(), 3);
    EXPECT_EQ(event.conditions[0].Args[0].Value, "&&1$$1§");
    EXPECT_THROW(DeleteCondition(event, 3), DataError);
    EXPECT_THROW(CopyCondition(event, 7), DataError);
    EXPECT_THROW(StoreCondition(workspace, event, -1, {3, {}, 0, {}, 0}), DataError);
    EXPECT_EQ(event.conditionCount, 3);
}
