#include "wizard/action_page.h"
#include "wizard/argument_box.h"
#include "wizard_fixture.h"

#include <QLabel>
#include <QPlainTextEdit>

using namespace tarvo;

class ActionPageTest : public WizardGuiTest
{
protected:
    void SetUp() override
    {
        WizardGuiTest::SetUp();
        addVariables();
        startNew("E");
        click("Command15");
        click("Command9");
    }

    void addText(const QString& text) { addAction(4, {"Combo10_0", text}); }
    QStringList values() const
    {
        QStringList out;
        const EventRecord& event = project.events[0];
        for (int i = 0; i < event.actionCount; ++i)
            out.append(event.actions[i].Args[0].Value);
        return out;
    }
    gui::ActionPage::State state() const { return wizard->actionPage()->state(); }
};

TEST_F(ActionPageTest, ButtonsFollowTheThreeStates)
{
    const QStringList idleButtons {"Command16", "Command18", "Command17", "Command30", "Command28",
        "Command29", "Command13", "Command21"};
    auto expectIdleButtons = [&](bool enabled) {
        for (const QString& name : idleButtons)
            EXPECT_EQ(button(name)->isEnabled(), enabled) << name.toStdString();
    };
    EXPECT_EQ(state(), gui::ActionPage::State::Idle);
    expectIdleButtons(true);
    EXPECT_FALSE(combo("Combo2")->isEnabled());
    EXPECT_FALSE(button("Command20")->isEnabled());
    EXPECT_FALSE(button("Command22")->isEnabled());

    click("Command16");
    EXPECT_EQ(state(), gui::ActionPage::State::Adding);
    expectIdleButtons(false);
    EXPECT_TRUE(combo("Combo2")->isEnabled());
    EXPECT_FALSE(button("Command20")->isEnabled());
    choose("Combo2", 1);
    EXPECT_TRUE(button("Command20")->isEnabled());
    click("Command23");
    EXPECT_EQ(state(), gui::ActionPage::State::Idle);
    EXPECT_EQ(combo("Combo2")->currentIndex(), 0);
    EXPECT_FALSE(combo("Combo10_0")->isVisibleTo(tab1.get()));

    addText("x");
    selectLine("List4", 0);
    click("Command18");
    EXPECT_EQ(state(), gui::ActionPage::State::Editing);
    expectIdleButtons(false);
    EXPECT_FALSE(list("List4")->isEnabled());
    EXPECT_FALSE(combo("Combo2")->isEnabled());
    EXPECT_EQ(combo("Combo2")->currentIndex(), 4);
    EXPECT_TRUE(button("Command22")->isEnabled());
    EXPECT_FALSE(button("Command20")->isEnabled());
}

TEST_F(ActionPageTest, ArgumentsUseTheBoxTheirKindAsksFor)
{
    click("Command16");
    choose("Combo2", 1); // Show message: message in the wide box, player in the short one
    EXPECT_TRUE(combo("Combo10_0")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo6_0")->isVisibleTo(tab1.get()));
    EXPECT_TRUE(combo("Combo6_1")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo10_1")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(combo("Combo6_2")->isVisibleTo(tab1.get()));
    EXPECT_EQ(find<QLabel>("Label13_0")->text(), "Message");
    EXPECT_EQ(find<QLabel>("Label13_1")->text(), "Player");
    EXPECT_EQ(combo("Combo10_0")->count(), 1);
    EXPECT_EQ(combo("Combo6_1")->count(), 3);
    EXPECT_EQ(find<QPlainTextEdit>("Text6")->toPlainText(), "Shows a message to a player.\n");
    combo("Combo10_0")->setCurrentIndex(0);
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo10_0")));
    type("Combo6_1", "Player 3");
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo6_1")));
    click("Command20");
    EXPECT_EQ(project.events[0].actions[0].Args[0].Value, "&&15$$0§");
    EXPECT_EQ(project.events[0].actions[0].Args[1].Value, "Player 3");
    EXPECT_EQ(list("List4")->currentRow(), 0);
}

TEST_F(ActionPageTest, EditShowsDisplayTextsUnmarkedAndUpdateResetsCommentAndFlag)
{
    addAction(2, {"Combo6_0", "Base found", "Combo6_1", "TRUE"});
    addText("second");
    selectLine("List4", 0);
    find<QPlainTextEdit>("Text3")->setPlainText("note");
    click("Command13");
    list("List4")->item(0)->setCheckState(Qt::Unchecked);
    ASSERT_TRUE(project.events[0].actions[0].inactive);

    selectLine("List4", 0);
    click("Command18");
    EXPECT_EQ(combo("Combo6_0")->currentText(), "Base found");
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo6_0")));
    EXPECT_EQ(combo("Combo6_1")->currentText(), "TRUE");
    type("Combo6_1", "FALSE");
    click("Command22");
    const ActionRecord& action = project.events[0].actions[0];
    EXPECT_EQ(action.Args[1].Value, "FALSE");
    EXPECT_FALSE(action.inactive);
    EXPECT_TRUE(action.comment.isEmpty());
    EXPECT_TRUE(ticked("List4", 0));
    EXPECT_EQ(list("List4")->currentRow(), 1); // the last line is selected after a store
    EXPECT_EQ(project.events[0].actionCount, 2);
}

TEST_F(ActionPageTest, CopyMoveAndDelete)
{
    for (const char* text : {"a", "b", "c"})
        addText(QString::fromLatin1(text));
    selectLine("List4", 0);
    click("Command30");
    EXPECT_EQ(values(), (QStringList {"a", "b", "c", "a"}));
    EXPECT_EQ(list("List4")->currentRow(), 3);

    click("Command29"); // the last line cannot go down
    EXPECT_EQ(prompter.beeps(), 1);
    selectLine("List4", 0);
    click("Command28");
    EXPECT_EQ(prompter.beeps(), 2);
    click("Command29");
    EXPECT_EQ(values(), (QStringList {"b", "a", "c", "a"}));
    EXPECT_EQ(list("List4")->currentRow(), 1);
    click("Command28");
    EXPECT_EQ(values(), (QStringList {"a", "b", "c", "a"}));
    EXPECT_EQ(list("List4")->currentRow(), 0);

    click("Command17");
    EXPECT_EQ(values(), (QStringList {"b", "c", "a"}));
    EXPECT_EQ(list("List4")->count(), 3);
    EXPECT_EQ(list("List4")->currentRow(), 2);
}

TEST_F(ActionPageTest, EventAndTimerListsAreOfferedUpToDate)
{
    click("Command21"); // no actions: "E" becomes timer 0
    startNew("Second");
    click("Command15");
    click("Command9");
    click("Command16");
    choose("Combo2", 3); // Start timer
    EXPECT_EQ(combo("Combo6_0")->itemText(0), "E");
    EXPECT_EQ(combo("Combo6_1")->count(), 0); // no event is registered yet
}
