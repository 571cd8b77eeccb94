#include "catalogue/reference_list.h"
#include "model/workspace.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "variables/variable_operations.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class Variables : public ::testing::Test
{
protected:
    void SetUp() override { ResetProject(workspace); }

    ReferenceList& groups() { return workspace.project.tables[row::Groups]; }
    ReferenceList& numbers() { return workspace.project.tables[row::Integers]; }
    ReferenceList& flags() { return workspace.project.tables[row::Flags]; }

    void makeGroups(int count)
    {
        for (int i = 0; i < count; ++i) {
            prompter.inputs = {QStringLiteral("g%1").arg(i)};
            const int position = NewGroup(workspace.project, prompter);
            ASSERT_EQ(position, groups().ItemCount - 1);
        }
    }

    ScriptedPrompter prompter;
    Workspace workspace {testDataDir() + QStringLiteral("/dialogs"), prompter};
};

TEST_F(Variables, NewGroupAsksForANameAndNumbersByPosition)
{
    prompter.inputs = {"Attackers", "Defenders"};
    EXPECT_EQ(NewGroup(workspace.project, prompter), 0);
    EXPECT_EQ(NewGroup(workspace.project, prompter), 1);

    ASSERT_EQ(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].kind, ScriptedPrompter::Prompt::Kind::Input);
    EXPECT_EQ(prompter.prompts[0].text, "Ener new name");
    EXPECT_EQ(prompter.prompts[0].title, "New group");
    EXPECT_EQ(groups().ItemCount, 2);
    EXPECT_EQ(
        variableNames(workspace.project, row::Groups), QStringList({"Attackers", "Defenders"}));
    EXPECT_EQ(groups().Codes.mid(0, 2), QStringList({"Group[0]", "Group[1]"}));
    // The new entry's fresh slot (ID 0) takes part in the search.
    EXPECT_EQ(groups().Ids.mid(0, 2), QList<qint16>({1, 2}));
    // The row keeps one spare slot behind its entries.
    EXPECT_EQ(groups().Texts.size(), 3);
    EXPECT_EQ(groups().Ids.size(), 3);
}

TEST_F(Variables, The65thGroupIsRefusedWithoutAsking)
{
    makeGroups(64);
    EXPECT_EQ(groups().Codes.at(63), "Group[63]");
    prompter.clear();
    prompter.inputs = {"one too many"};

    EXPECT_EQ(NewGroup(workspace.project, prompter), -1);

    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].text, "Can't create new group. Max number of groups = 64");
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Information);
    EXPECT_EQ(prompter.prompts[0].buttons, Prompter::Buttons::Ok);
    EXPECT_EQ(groups().ItemCount, 64);
}

TEST_F(Variables, CancelledInputBoxesChangeNothing)
{
    makeGroups(2);
    prompter.clear();
    const ReferenceList groupsBefore = groups();
    const ReferenceList numbersBefore = numbers();
    prompter.inputs.clear(); // every input box is cancelled

    EXPECT_EQ(NewGroup(workspace.project, prompter), -1);
    EXPECT_EQ(NewNumber(workspace.project, prompter), -1);
    EXPECT_FALSE(RenameVariable(workspace.project, prompter, row::Groups, 1));
    EXPECT_FALSE(RenameVariable(workspace.project, prompter, row::Integers, 0));

    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Input), 4);
    EXPECT_EQ(groups().Texts, groupsBefore.Texts);
    EXPECT_EQ(groups().ItemCount, groupsBefore.ItemCount);
    EXPECT_EQ(numbers().Texts, numbersBefore.Texts);
    EXPECT_EQ(numbers().ItemCount, 5);
}

TEST_F(Variables, FiftyNineNumbersFitBehindTheFixedFive)
{
    ASSERT_EQ(numbers().ItemCount, 5);
    for (int i = 0; i < 59; ++i) {
        prompter.inputs = {QStringLiteral("n%1").arg(i)};
        ASSERT_EQ(NewNumber(workspace.project, prompter), 5 + i);
    }
    EXPECT_EQ(prompter.prompts[0].title, "New variable name");
    EXPECT_EQ(numbers().Codes.at(5), "integ[0]");
    EXPECT_EQ(numbers().Codes.at(63), "integ[58]");
    EXPECT_EQ(numbers().RawCodes.at(63), "0");
    // The fixed numbers carry IDs 0 to 4, so the user's start at 5.
    EXPECT_EQ(numbers().Ids.at(5), 5);
    EXPECT_EQ(numbers().Ids.at(63), 63);

    prompter.clear();
    prompter.inputs = {"sixty-fifth"};
    EXPECT_EQ(NewNumber(workspace.project, prompter), -1);
    EXPECT_EQ(prompter.messageTexts(),
        QStringList("Can't create new variable. Max number of variables = 64"));
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Input), 0);
    EXPECT_EQ(numbers().ItemCount, 64);
}

TEST_F(Variables, FixedNumbersCannotBeDeletedButLaterOnesCan)
{
    prompter.inputs = {"Waves", "Score"};
    NewNumber(workspace.project, prompter);
    NewNumber(workspace.project, prompter);
    prompter.clear();

    EXPECT_FALSE(DeleteNumber(workspace.project, prompter, 4));
    EXPECT_EQ(prompter.messageTexts(), QStringList("You can't delete this variable."));
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Information);
    EXPECT_EQ(numbers().ItemCount, 7);

    prompter.clear();
    EXPECT_TRUE(DeleteNumber(workspace.project, prompter, 5));
    EXPECT_TRUE(prompter.prompts.isEmpty());
    ASSERT_EQ(numbers().ItemCount, 6);
    // "Score" moved up with every field it has; its identifier keeps its number.
    EXPECT_EQ(numbers().Texts.at(5), "Score");
    EXPECT_EQ(numbers().Codes.at(5), "integ[1]");
    EXPECT_EQ(numbers().Ids.at(5), 6);
    EXPECT_EQ(numbers().RawCodes.at(5), "0");
    EXPECT_EQ(numbers().Texts.size(), 7);
    EXPECT_EQ(numbers().Codes.size(), 7);
    EXPECT_EQ(numbers().Ids.size(), 7);
    EXPECT_EQ(numbers().RawCodes.size(), 7);
}

TEST_F(Variables, DeletingWithoutASelectionDoesNothing)
{
    makeGroups(1);
    prompter.clear();
    EXPECT_FALSE(DeleteGroup(workspace.project, prompter, -1));
    EXPECT_FALSE(DeleteNumber(workspace.project, prompter, -1));
    EXPECT_FALSE(DeleteGroup(workspace.project, prompter, 1)); // behind the last entry
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(groups().ItemCount, 1);
    EXPECT_EQ(numbers().ItemCount, 5);
}

TEST_F(Variables, AGroupMadeAfterADeletionRepeatsAnIdentifierInUse)
{
    makeGroups(4);
    ASSERT_TRUE(DeleteGroup(workspace.project, prompter, 1));
    EXPECT_EQ(groups().Codes.mid(0, 3), QStringList({"Group[0]", "Group[2]", "Group[3]"}));

    prompter.inputs = {"Late"};
    ASSERT_EQ(NewGroup(workspace.project, prompter), 3);
    EXPECT_EQ(groups().Codes.at(3), "Group[3]");
    EXPECT_EQ(groups().Codes.at(2), "Group[3]");
    // IDs never repeat while a higher one lives.
    EXPECT_EQ(groups().Ids.mid(0, 4), QList<qint16>({1, 3, 4, 5}));

    // The slot a deleted last entry leaves still holds its ID, so that ID is
    // not given again.
    ASSERT_TRUE(DeleteGroup(workspace.project, prompter, 3));
    prompter.inputs = {"Again"};
    ASSERT_EQ(NewGroup(workspace.project, prompter), 3);
    EXPECT_EQ(groups().Ids.at(3), 6);
}

TEST_F(Variables, RenameChangesOnlyTheDisplayName)
{
    prompter.inputs = {"Game clock", "Siren"};
    EXPECT_TRUE(RenameVariable(workspace.project, prompter, row::Integers, 0));
    EXPECT_TRUE(RenameVariable(workspace.project, prompter, row::Flags, 1));

    EXPECT_EQ(prompter.prompts[0].text, "Ener new name");
    EXPECT_EQ(prompter.prompts[0].title, "New name");
    EXPECT_EQ(numbers().Texts.at(0), "Game clock");
    EXPECT_EQ(numbers().Codes.at(0), "gTime");
    EXPECT_EQ(numbers().Ids.at(0), 0);
    EXPECT_EQ(flags().Texts.at(1), "Siren");
    EXPECT_EQ(flags().Codes.at(1), "Flag[1]");
    EXPECT_EQ(flags().Ids.at(1), 1);

    prompter.clear();
    EXPECT_FALSE(RenameVariable(workspace.project, prompter, row::Groups, -1));
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(Variables, FlagValuesAreChosenAsFalseOrTrue)
{
    EXPECT_EQ(flagChoice(workspace.project, 0), "FALSE");
    EXPECT_EQ(flagChoice(workspace.project, 1), "TRUE");

    SetFlagValue(workspace.project, 0, "TRUE");
    EXPECT_EQ(flags().RawCodes.at(0), "TRUE");
    // Anything but exactly "FALSE" shows as true.
    SetFlagValue(workspace.project, 1, "false");
    EXPECT_EQ(flagChoice(workspace.project, 1), "TRUE");
    SetFlagValue(workspace.project, 5, "FALSE");
    EXPECT_EQ(flags().ItemCount, 2);
}

TEST_F(Variables, NumberValuesAreStoredAsTyped)
{
    prompter.inputs = {"Waves"};
    ASSERT_EQ(NewNumber(workspace.project, prompter), 5);
    EXPECT_EQ(numberValueText(workspace.project, 5), "0");

    EXPECT_TRUE(UpdateNumberValue(workspace.project, prompter, 5, "twelve"));
    EXPECT_EQ(numbers().RawCodes.at(5), "twelve");
    EXPECT_TRUE(UpdateNumberValue(workspace.project, prompter, 5, QString()));
    EXPECT_EQ(numberValueText(workspace.project, 5), "0");

    prompter.clear();
    EXPECT_FALSE(UpdateNumberValue(workspace.project, prompter, 4, "7"));
    EXPECT_EQ(prompter.messageTexts(), QStringList("You can't change this variable."));
    EXPECT_EQ(numbers().RawCodes.at(4), "gMoney");
}

} // namespace
