#include "editing/trigger_tables.h"
#include "wizard/action_page.h"
#include "wizard/argument_box.h"
#include "wizard_fixture.h"

#include <QLabel>

using namespace tarvo;

using TriggerPageTest = WizardGuiTest;

TEST_F(TriggerPageTest, OptionsCarryTheKindCaptionsLabelsAndTooltips)
{
    EXPECT_EQ(find<QRadioButton>("Option1_0")->text(), "Repeart every:");
    EXPECT_EQ(find<QRadioButton>("Option1_4")->text(), "Mission timeout (set Mission Time first)");
    EXPECT_EQ(find<QRadioButton>("Option1_11")->text(), "Structure destroyed:");
    EXPECT_EQ(find<QRadioButton>("Option1_12")->text(), "Feature destroyed:");
    EXPECT_EQ(find<QLabel>("Label5_1")->text(), "Time:");
    EXPECT_EQ(combo("Combo8_1")->toolTip(), "Time in 10th of a second");
    EXPECT_EQ(find<QLabel>("Label5_5")->text(), "Group:");
    EXPECT_EQ(find<QLabel>("Label9_5")->text(), "Player:");
    EXPECT_EQ(combo("Combo8_5")->toolTip(), "Group to add units from transport to");
    EXPECT_EQ(combo("Combo9_5")->toolTip(), "Player which transport is about to land");
    EXPECT_EQ(find<QLabel>("Label5_9")->text(), "Player:");
    EXPECT_EQ(find<QLabel>("Label7")->text(), "Timer type (when to check condition):");
    EXPECT_EQ(button("Command15")->text(), "Nex&t >>");
    EXPECT_EQ(button("Command25")->text(), "Ca&ncel");
    EXPECT_EQ(button("Command34")->text(), "&Finish");
    // Before New or Edit the page cannot be used; the first kind shows as chosen.
    EXPECT_FALSE(find<QRadioButton>("Option1_0")->isEnabled());
    EXPECT_TRUE(find<QRadioButton>("Option1_0")->isChecked());
}

TEST_F(TriggerPageTest, NewEventAsksTheTitleAndPreselectsRepeatEvery)
{
    startNew(QString()); // a cancelled title starts nothing
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(startedSignals, 0);
    EXPECT_FALSE(find<QRadioButton>("Option1_0")->isEnabled());
    prompter.clear();

    startNew("Attack");
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].text, "Please enter the title for the current event.");
    EXPECT_EQ(prompter.prompts[0].title, "Title");
    EXPECT_EQ(prompter.prompts[0].defaultText, "Event 0");
    EXPECT_TRUE(wizard->isRunning());
    EXPECT_EQ(startedSignals, 1);
    EXPECT_TRUE(find<QRadioButton>("Option1_0")->isChecked());
    EXPECT_TRUE(combo("Combo8_0")->isEnabled());
    EXPECT_FALSE(combo("Combo8_1")->isEnabled());
    EXPECT_EQ(find<QLabel>("Label8")->text(), "New event:");
    EXPECT_EQ(find<QLabel>("Label1")->text(), "New event:");
    EXPECT_TRUE(button("Command15")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(button("Command34")->isVisibleTo(tab1.get()));
    EXPECT_EQ(project.events[0].name, "Attack");
    EXPECT_EQ(project.eventCount, 0);

    // Enter in the first box goes on to the conditions, adding nothing to the list.
    type("Combo8_0", "30");
    pressEnter("Combo8_0");
    EXPECT_EQ(tab1->currentIndex(), 2);
    EXPECT_EQ(combo("Combo8_0")->count(), 0);
}

TEST_F(TriggerPageTest, ChoosingAnotherKindEmptiesEveryArgumentBox)
{
    startNew("E");
    type("Combo8_0", "100");
    option(1);
    EXPECT_TRUE(combo("Combo8_0")->currentText().isEmpty());
    EXPECT_TRUE(combo("Combo8_1")->currentText().isEmpty());
    EXPECT_FALSE(combo("Combo8_0")->isEnabled());
    EXPECT_TRUE(combo("Combo8_1")->isEnabled());

    // Clicking the chosen option again keeps the text; checking another
    // option from the keyboard chooses its kind like a click.
    type("Combo8_1", "20");
    option(1);
    EXPECT_EQ(combo("Combo8_1")->currentText(), "20");
    find<QRadioButton>("Option1_3")->setChecked(true);
    EXPECT_TRUE(combo("Combo8_3")->isEnabled());
    EXPECT_FALSE(combo("Combo8_1")->isEnabled());
    EXPECT_TRUE(combo("Combo8_1")->currentText().isEmpty());
}

TEST_F(TriggerPageTest, TypedNamesOfKnownItemsAreMarkedYellow)
{
    addVariables();
    startNew("E");
    option(5);
    EXPECT_EQ(combo("Combo8_5")->count(), 1); // the group "Scouts"
    EXPECT_EQ(combo("Combo9_5")->count(), 3); // the players
    type("Combo9_5", "Player 1");
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo9_5")));
    EXPECT_EQ(combo("Combo9_5")->palette().color(QPalette::Base), QColor(255, 255, 0));
    type("Combo9_5", "Player 7");
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo9_5")));
    EXPECT_NE(combo("Combo9_5")->palette().color(QPalette::Base), QColor(255, 255, 0));
    type("Combo8_5", "Scouts");
    EXPECT_TRUE(gui::isArgumentBoxMarked(combo("Combo8_5")));
    option(0);
    EXPECT_FALSE(gui::isArgumentBoxMarked(combo("Combo8_5")));
}

TEST_F(TriggerPageTest, CancelLeavesTheSlotUncountedAndTheNextNewEventStartsClean)
{
    startNew("First");
    click("Command15");
    click("Command9");
    addAction(4, {"Combo10_0", "kept?"});
    tab1->setCurrentIndex(1);
    click("Command25");
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(finishedSignals, 1);
    EXPECT_EQ(tab1->currentIndex(), 0);
    EXPECT_EQ(project.eventCount, 0);

    startNew("Second");
    click("Command15");
    click("Command9");
    EXPECT_EQ(list("List4")->count(), 0);
    EXPECT_EQ(project.events[0].actionCount, 0);
}

TEST_F(TriggerPageTest, EditedEventShowsItsTriggerAndKeepsItUntilDone)
{
    addVariables();
    startNew("Landing");
    option(5);
    type("Combo8_5", "Scouts");
    type("Combo9_5", "Player 10");
    click("Command15");
    click("Command9");
    addAction(4, {"Combo10_0", "x"});
    click("Command21");

    wizard->editEvent(0);
    EXPECT_EQ(find<QLabel>("Label8")->text(), "Edit event:");
    EXPECT_EQ(find<QLabel>("Label1")->text(), "Edit event:");
    EXPECT_TRUE(find<QRadioButton>("Option1_5")->isChecked());
    EXPECT_EQ(combo("Combo8_5")->currentText(), "Scouts");
    EXPECT_EQ(combo("Combo9_5")->currentText(), "Player 10");
    option(0);
    type("Combo8_0", "5");
    click("Command25");
    EXPECT_EQ(project.events[0].triggerKind, 5);

    wizard->editEvent(0);
    option(0);
    type("Combo8_0", "5");
    click("Command15");
    click("Command9");
    click("Command21");
    EXPECT_EQ(project.events[0].triggerKind, 0);
    EXPECT_EQ(project.events[0].triggerArgTexts[0], "5");
    EXPECT_EQ(project.events[0].triggerArgCount, 1);
}

TEST_F(TriggerPageTest, TimerEditingUsesFinishAndOnlyTheTriggerPage)
{
    startNew("Clock");
    click("Command15");
    click("Command9");
    click("Command21");
    ASSERT_EQ(project.timerCount, 1);

    wizard->editTimer(0);
    EXPECT_TRUE(wizard->isRunning());
    EXPECT_EQ(tab1->currentIndex(), 1);
    EXPECT_TRUE(button("Command34")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(button("Command15")->isVisibleTo(tab1.get()));
    EXPECT_FALSE(tab1->widget(2)->isEnabled());
    EXPECT_FALSE(tab1->widget(3)->isEnabled());
    option(2);
    click("Command34");
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(tab1->currentIndex(), 0);
    EXPECT_EQ(project.timers[0].triggerKind, 2);
    EXPECT_EQ(project.timers[0].name, "Clock");

    wizard->editTimer(0);
    option(1);
    click("Command25");
    EXPECT_EQ(project.timers[0].triggerKind, 2);
}

TEST_F(TriggerPageTest, ProjectSelectionFollowsTheWizardAndAResetEndsIt)
{
    startNew("E");
    EXPECT_EQ(project.selectedEvent, 0);
    EXPECT_EQ(project.selectedTimer, -1);
    ResetProject(workspace);
    wizard->resetPages();
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(finishedSignals, 1);
    EXPECT_EQ(tab1->currentIndex(), 0);
    EXPECT_FALSE(find<QRadioButton>("Option1_0")->isEnabled());
    EXPECT_EQ(project.eventCount, 0);
}

TEST_F(TriggerPageTest, KindWithoutOptionButtonSurvivesAnEdit)
{
    // A project file may hold a kind from 13 to 15, which has no option button.
    project.events = {EventRecord {}};
    project.events[0].name = "Odd";
    project.events[0].triggerKind = 14;
    project.events[0].actions = {ActionRecord {}};
    project.events[0].actionCount = 1;
    project.eventCount = 1;
    wizard->editEvent(0);
    ASSERT_TRUE(wizard->isRunning());
    for (int k = 0; k < kTriggerOptionCount; ++k)
        EXPECT_FALSE(find<QRadioButton>(QStringLiteral("Option1_%1").arg(k))->isChecked()) << k;
    wizard->actionPage()->findChild<QPushButton*>("Command21")->click();
    EXPECT_FALSE(wizard->isRunning());
    EXPECT_EQ(project.events[0].triggerKind, 14);
    EXPECT_EQ(project.events[0].triggerArgCount, 0);
    EXPECT_EQ(prompter.prompts.size(), 0);
}
