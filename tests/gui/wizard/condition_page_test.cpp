#include "wizard/argument_box.h"
#include "wizard_fixture.h"

#include <QLabel>
#include <QPlainTextEdit>

using namespace tarvo;

class ConditionPageTest : public WizardGuiTest
{
protected:
    void SetUp() override
    {
        WizardGuiTest::SetUp();
        addVariables();
        startNew("E");
        click("Command15");
    }

    void addFlagCondition(bool negated)
    {
        click("Command4");
        choose("Combo1", 1);
        type("Combo3_0", "Base found");
        combo("Combo5")->setCurrentIndex(negated ? 1 : 0);
        click("Command7");
    }
};

TEST_F(ConditionPageTest, KindComboAndAddFollowTheChosenKind)
{
    EXPECT_EQ(combo("Combo1")->itemText(0), "<Select a condition>");
    EXPECT_EQ(combo("Combo1")->count(), 4);
    EXPECT_FALSE(combo("Combo1")->isEnabled());
    click("Command4");
    EXPECT_FALSE(button("Command7")->isEnabled());
    EXPECT_TRUE(button("Command9")->isEnabled());
    choose("Combo1", 0);
    EXPECT_FALSE(button("Command7")->isEnabled());
    EXPECT_FALSE(combo("Combo3_0")->isVisibleTo(tab1.get()));

    choose("Combo1", 2);
    EXPECT_TRUE(button("Command7")->isEnabled());
    EXPECT_EQ(find<QLabel>("Label4_0")->text(), "Player");
    EXPECT_EQ(find<QLabel>("Label4_1")->text(), "Group");
    EXPECT_TRUE(combo("Combo3_1")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo3_2")->isVisibleTo(tab1.get()));
    EXPECT_EQ(combo("Combo3_0")->count(), 3);
    EXPECT_TRUE(combo("Combo3_0")->currentText().isEmpty());
    EXPECT_TRUE(combo("Combo4")->isVisibleTo(tab1.get()));
    EXPECT_TRUE(combo("Combo7")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo5")->isVisibleTo(tab1.get()));
    EXPECT_EQ(combo("Combo7")->count(), 2); // the numbers row
    EXPECT_EQ(find<QPlainTextEdit>("Text1")->toPlainText(),
        QStringLiteral("Number of units of the player\r\nthat belong to the group.\r\n")
            .replace("\r\n", "\n"));

    choose("Combo1", 1);
    EXPECT_FALSE(combo("Combo4")->isVisibleTo(tab1.get()));
    EXPECT_TRUE(combo("Combo5")->isVisibleTo(tab1.get()));
    EXPECT_EQ(combo("Combo5")->itemText(1), "Not");
    combo("Combo1")->setCurrentIndex(3); // a keyboard change shows the kind too
    EXPECT_EQ(find<QPlainTextEdit>("Text1")->toPlainText(), "Always true.\n");
    EXPECT_FALSE(combo("Combo4")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo5")->isVisibleTo(tab1.get()));
}

TEST_F(ConditionPageTest, ArgumentsAndValueAreMarkedWhenTheyNameItems)
{
    click("Command4");
    choose("Combo1", 2);
    type("Combo3_1", "Scouts");
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo3_1")));
    combo("Combo3_0")->setCurrentIndex(2); // picking an item marks it too
    EXPECT_EQ(combo("Combo3_0")->currentText(), "Player 10");
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo3_0")));
    type("Combo7", "Power");
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo7")));
    type("Combo7", "14");
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo7")));
    click("Command24");
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo3_1")));
    EXPECT_FALSE(combo("Combo3_1")->isVisibleTo(tab1.get()));
    EXPECT_EQ(project.events[0].conditionCount, 0);
    EXPECT_TRUE(wizard->isRunning());
}

TEST_F(ConditionPageTest, AddedConditionsAreTickedAndUntickingSwitchesThemOff)
{
    addFlagCondition(true);
    ASSERT_EQ(lines("List2"), QStringList {"Flag is set"});
    EXPECT_TRUE(ticked("List2", 0));
    const ConditionRecord& condition = project.events[0].conditions[0];
    EXPECT_EQ(condition.negation, 1);
    EXPECT_EQ(combo("Combo1")->currentIndex(), 0);
    EXPECT_TRUE(button("Command9")->isEnabled());
    list("List2")->item(0)->setCheckState(Qt::Unchecked);
    EXPECT_TRUE(project.events[0].conditions[0].inactive);
}

TEST_F(ConditionPageTest, EditLoadsTheConditionAndUpdateStoresItInPlace)
{
    click("Command4");
    choose("Combo1", 2);
    type("Combo3_0", "Player 2");
    combo("Combo4")->setCurrentIndex(2);
    type("Combo7", "Mission time");
    click("Command7");
    addFlagCondition(false);

    selectLine("List2", 0);
    click("Command8");
    EXPECT_TRUE(wizard->conditionUpdating());
    EXPECT_FALSE(list("List2")->isEnabled());
    EXPECT_FALSE(button("Command7")->isEnabled());
    EXPECT_TRUE(button("Command14")->isEnabled());
    EXPECT_EQ(combo("Combo1")->currentIndex(), 2);
    EXPECT_EQ(combo("Combo3_0")->currentText(), "Player 2");
    EXPECT_EQ(combo("Combo4")->currentText(), "=");
    EXPECT_EQ(combo("Combo7")->currentText(), "Mission time");
    type("Combo3_0", "Player 1");
    click("Command14");
    EXPECT_FALSE(wizard->conditionUpdating());
    EXPECT_EQ(project.events[0].conditionCount, 2);
    EXPECT_EQ(project.events[0].conditions[0].Args[0].Value, "&&1$$0§");
    EXPECT_EQ(lines("List2"), (QStringList {"Units of player in group", "Flag is set"}));
}

TEST_F(ConditionPageTest, CopyDeleteAndCommentWorkOnTheSelectedLine)
{
    button("Command31")->click();
    EXPECT_EQ(prompter.beeps(), 1);
    addFlagCondition(false);
    addFlagCondition(true);
    list("List2")->item(1)->setCheckState(Qt::Unchecked);
    selectLine("List2", 1);
    find<QPlainTextEdit>("Text2")->setPlainText("a\nb");
    click("Command12");
    EXPECT_EQ(project.events[0].conditions[1].comment, "a\r\nb");

    click("Command31");
    ASSERT_EQ(project.events[0].conditionCount, 3);
    EXPECT_TRUE(ticked("List2", 2));
    EXPECT_FALSE(project.events[0].conditions[2].inactive);
    EXPECT_EQ(project.events[0].conditions[2].negation, 1);
    EXPECT_EQ(find<QPlainTextEdit>("Text2")->toPlainText(), "a\nb");

    selectLine("List2", 0);
    EXPECT_TRUE(find<QPlainTextEdit>("Text2")->toPlainText().isEmpty());
    click("Command6");
    EXPECT_EQ(project.events[0].conditionCount, 2);
    EXPECT_EQ(list("List2")->count(), 2);
    EXPECT_FALSE(ticked("List2", 0));
    EXPECT_EQ(project.events[0].conditions[0].comment, "a\r\nb");
}

TEST_F(ConditionPageTest, CancelWithNothingOpenCancelsTheWizard)
{
    click("Command24");
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(tab1->currentIndex(), 0);
    EXPECT_EQ(finishedSignals, 1);
}
