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
        addItem(row::Flags, QStringLiteral("Base found"), 2, QStringLiteral("flag0"));
        addItem(row::Groups, QStringLiteral("Scouts"), 0, QStringLiteral("Group[0]"));
    }

    ConditionInput unitsInput(
        const QString& player, const QString& group, int op, const QString& value)
    {
        return {1, {player, group}, op, value, 0};
    }
};

TEST_F(ConditionOpsTest, AddCopiesTheKindAndEncodesArgumentsAndValue)
{
    const int position = StoreCondition(workspace, event, -1,
        unitsInput(
            QStringLiteral("Player 2"), QStringLiteral("Scouts"), 2, QStringLiteral("Power")));
    ASSERT_EQ(position, 0);
    ASSERT_EQ(event.conditionCount, 1);
    const ConditionRecord& condition = event.conditions[0];
    EXPECT_EQ(condition.Kind, 1);
    EXPECT_EQ(condition.Title, QStringLiteral("Units of player in group"));
    EXPECT_EQ(condition.Args[0].Label, QStringLiteral("Player"));
    EXPECT_EQ(condition.Args[0].Value, QStringLiteral("&&1$$1§"));
    EXPECT_EQ(condition.Args[1].Value, QStringLiteral("&&7$$0§"));
    EXPECT_EQ(condition.operatorIndex, 2);
    EXPECT_EQ(operatorText(condition.operatorIndex), QStringLiteral("=="));
    // The value type of this kind is row 0, the numbers.
    EXPECT_EQ(condition.comparisonValue, QStringLiteral("&&0$$0§"));
    EXPECT_FALSE(condition.inactive);

    // Texts that name no item are stored as typed.
    StoreCondition(
        workspace, event, -1, unitsInput(QStringLiteral("nobody"), {}, 0, QStringLiteral("12")));
    EXPECT_EQ(event.conditions[1].Args[0].Value, QStringLiteral("nobody"));
    EXPECT_EQ(event.conditions[1].Args[1].Value, QString());
    EXPECT_EQ(event.conditions[1].comparisonValue, QStringLiteral("12"));
}

TEST_F(ConditionOpsTest, NegatableKindStoresTheNegationIndex)
{
    StoreCondition(workspace, event, -1, {0, {QStringLiteral("Base found")}, 0, {}, 1});
    const ConditionRecord& condition = event.conditions[0];
    EXPECT_EQ(condition.ResultA, 1);
    EXPECT_EQ(condition.ResultB, 17);
    EXPECT_EQ(condition.negation, 1);
    EXPECT_EQ(negationText(condition.negation), QStringLiteral("not "));
    EXPECT_EQ(condition.Args[0].Value, QStringLiteral("&&17$$2§"));
    EXPECT_EQ(condition.comparisonValue, QString());
}

TEST_F(ConditionOpsTest, UpdateReplacesInPlaceKeepsCommentAndSwitchesOn)
{
    StoreCondition(workspace, event, -1, {0, {QStringLiteral("Base found")}, 0, {}, 0});
    StoreCondition(workspace, event, -1, {2, {}, 0, {}, 0});
    event.conditions[0].comment = QStringLiteral("why");
    setConditionActive(event, 0, false);

    EXPECT_EQ(StoreCondition(workspace, event, 0,
                  unitsInput(QStringLiteral("Player 1"), {}, 4, QStringLiteral("3"))),
        0);
    EXPECT_EQ(event.conditionCount, 2);
    EXPECT_EQ(event.conditions[0].Kind, 1);
    EXPECT_EQ(event.conditions[0].comment, QStringLiteral("why"));
    EXPECT_FALSE(event.conditions[0].inactive);
    EXPECT_EQ(event.conditions[1].Title, QStringLiteral("Always"));
}

TEST_F(ConditionOpsTest, InputOfAStoredConditionShowsDisplayTexts)
{
    StoreCondition(workspace, event, -1,
        unitsInput(QStringLiteral("Player 10"), QStringLiteral("Scouts"), 5,
            QStringLiteral("Mission time")));
    const ConditionInput input = conditionInputOf(workspace, event.conditions[0]);
    EXPECT_EQ(input.kind, 1);
    EXPECT_EQ(input.argumentTexts, (QStringList {"Player 10", "Scouts"}));
    EXPECT_EQ(input.operatorIndex, 5);
    EXPECT_EQ(input.comparedText, QStringLiteral("Mission time"));
}

TEST_F(ConditionOpsTest, DeletedGroupShowsAsQuestionMarkWithStatusLine)
{
    StoreCondition(workspace, event, -1, unitsInput({}, QStringLiteral("Scouts"), 0, {}));
    project.tables[row::Groups].Ids[0] = 9; // the group was replaced
    const ConditionInput input = conditionInputOf(workspace, event.conditions[0]);
    EXPECT_EQ(input.argumentTexts.at(1), QStringLiteral("?"));
    EXPECT_EQ(prompter.statusLines().size(), 1);
}

TEST_F(ConditionOpsTest, CopyAppendsAnActiveDuplicateAndDeleteClosesTheGap)
{
    for (const char* player : {"Player 1", "Player 2", "Player 10"})
        StoreCondition(workspace, event, -1,
            unitsInput(QString::fromLatin1(player), {}, 1, QStringLiteral("4")));
    event.conditions[2].comment = QStringLiteral("last");
    setConditionActive(event, 2, false);

    EXPECT_EQ(CopyCondition(event, 2), 3);
    ASSERT_EQ(event.conditionCount, 4);
    EXPECT_EQ(event.conditions[3].Args[0].Value, event.conditions[2].Args[0].Value);
    EXPECT_EQ(event.conditions[3].comment, QStringLiteral("last"));
    EXPECT_FALSE(event.conditions[3].inactive);
    EXPECT_TRUE(event.conditions[2].inactive);

    DeleteCondition(event, 0);
    ASSERT_EQ(event.conditionCount, 3);
    EXPECT_EQ(event.conditions.size(), 3);
    EXPECT_EQ(event.conditions[0].Args[0].Value, QStringLiteral("&&1$$1§"));
    EXPECT_THROW(DeleteCondition(event, 3), DataError);
    EXPECT_THROW(CopyCondition(event, 7), DataError);
    EXPECT_THROW(StoreCondition(workspace, event, -1, {3, {}, 0, {}, 0}), DataError);
    EXPECT_EQ(event.conditionCount, 3);
}
