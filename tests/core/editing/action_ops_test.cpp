#include "catalogue/project_lists.h"
#include "editing/action_ops.h"
#include "model/file_error.h"
#include "wizard_workspace_fixture.h"

using namespace tarvo;

class ActionOpsTest : public WizardWorkspaceTest
{
protected:
    EventRecord event;

    void add(const QString& text)
    {
        StoreAction(workspace, event, 3, event.actionCount, false, {text});
    }
    QStringList values() const
    {
        QStringList out;
        for (int i = 0; i < event.actionCount; ++i)
            out.append(event.actions[i].Args[0].Value);
        return out;
    }
};

TEST_F(ActionOpsTest, AddEncodesEachArgumentUnderItsList)
{
    project.messages = {{"Welcome", 4}};
    project.messageCount = 1;
    RefreshProjectLists(project);
    StoreAction(workspace, event, 0, 0, false, {"Welcome", "Player 2"});
    ASSERT_EQ(event.actionCount, 1);
    const ActionRecord& action = event.actions[0];
    EXPECT_EQ(action.Kind, 0);
    EXPECT_EQ(action.Title, "Show message");
    EXPECT_TRUE(action.Args[0].UseAltBox);
    EXPECT_EQ(action.Args[0].Value, "&&15$$4§");
    EXPECT_EQ(action.Args[1].Value, "&&1$$1§");
    EXPECT_EQ(actionArgumentTexts(workspace, action), (QStringList {"Welcome", "Player 2"}));
}

TEST_F(ActionOpsTest, UpdateResetsCommentAndInactiveFlagButKeepsThePlace)
{
    add("a");
    add("b");
    event.actions[0].comment = "note";
    setActionActive(event, 0, false);
    StoreAction(workspace, event, 3, 0, true, {"changed"});
    EXPECT_EQ(event.actionCount, 2);
    EXPECT_EQ(values(), (QStringList {"changed", "b"}));
    EXPECT_TRUE(event.actions[0].comment.isEmpty());
    EXPECT_FALSE(event.actions[0].inactive);
}

TEST_F(ActionOpsTest, CopyGoesToTheEndWithCommentAndFlag)
{
    add("a");
    add("b");
    event.actions[0].comment = "note";
    setActionActive(event, 0, false);
    EXPECT_EQ(CopyAction(event, 0), 2);
    EXPECT_EQ(values(), (QStringList {"a", "b", "a"}));
    EXPECT_EQ(event.actions[2].comment, "note");
    EXPECT_TRUE(event.actions[2].inactive);
}

TEST_F(ActionOpsTest, MovesSwapNeighboursAndRefuseAtTheEnds)
{
    for (const char* text : {"a", "b", "c"})
        add(QString::fromLatin1(text));
    EXPECT_FALSE(MoveActionUp(event, 0));
    EXPECT_FALSE(MoveActionDown(event, 2));
    EXPECT_EQ(values(), (QStringList {"a", "b", "c"}));
    EXPECT_TRUE(MoveActionDown(event, 0));
    EXPECT_EQ(values(), (QStringList {"b", "a", "c"}));
    EXPECT_TRUE(MoveActionUp(event, 2));
    EXPECT_EQ(values(), (QStringList {"b", "c", "a"}));
    event.actions.resize(4); // a spare slot, as the file reader may leave
    EXPECT_FALSE(MoveActionDown(event, 2));
    EXPECT_EQ(values(), (QStringList {"b", "c", "a"}));
}

TEST_F(ActionOpsTest, DeleteClosesTheGap)
{
    for (const char* text : {"a", "b", "c"})
        add(QString::fromLatin1(text));
    DeleteAction(event, 1);
    EXPECT_EQ(event.actionCount, 2);
    EXPECT_EQ(event.actions.size(), 2);
    EXPECT_EQ(values(), (QStringList {"a", "c"}));
    DeleteAction(event, 1);
    DeleteAction(event, 0);
    EXPECT_EQ(event.actionCount, 0);
    EXPECT_TRUE(event.actions.isEmpty());
    EXPECT_THROW(DeleteAction(event, 0), DataError);
}
