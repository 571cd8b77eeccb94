#include "dialog_fixture.h"
#include "dialogs/variables_dialog.h"

#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QTabWidget>

using namespace tarvo;
using tarvo::gui::VariablesDialog;

namespace {

class VariablesDialogTest : public DialogTest
{
protected:
    ReferenceList& rowOf(int table) { return workspace.project.tables[table]; }
};

TEST_F(VariablesDialogTest, ThreeTabsAndFlagValuesFollowTheChoice)
{
    VariablesDialog dialog(document);
    EXPECT_EQ(dialog.objectName(), "Form4");
    auto* tabs = child<QTabWidget>(dialog, "SSTab1");
    ASSERT_EQ(tabs->count(), 3);
    EXPECT_EQ(tabs->tabText(0), "Flags");
    EXPECT_EQ(tabs->tabText(1), "Groups");
    EXPECT_EQ(tabs->tabText(2), "Numbers");
    for (const char* frame : {"Frame1", "Frame2", "Frame3"})
        child<QFrame>(dialog, frame);

    EXPECT_EQ(lines(child<QListWidget>(dialog, "List1")), QStringList({"Doors open", "Alarm"}));
    EXPECT_TRUE(lines(child<QListWidget>(dialog, "List2")).isEmpty());
    EXPECT_EQ(lines(child<QListWidget>(dialog, "List3")).size(), 5);
    auto* combo = child<QComboBox>(dialog, "Combo1");
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->itemText(0), "FALSE");
    EXPECT_EQ(combo->currentIndex(), -1);

    // Flag values follow the list and the choice.
    auto* flags = child<QListWidget>(dialog, "List1");
    flags->setCurrentRow(0);
    EXPECT_EQ(combo->currentText(), "FALSE");
    flags->setCurrentRow(1);
    EXPECT_EQ(combo->currentText(), "TRUE");
    // Showing a value is not choosing it.
    EXPECT_EQ(rowOf(row::Flags).RawCodes.mid(0, 2), QStringList({"FALSE", "TRUE"}));

    combo->setCurrentIndex(0);
    EXPECT_EQ(rowOf(row::Flags).RawCodes.at(1), "FALSE");

    prompter.inputs = {"Siren"};
    click(dialog, "Command8");
    EXPECT_EQ(lines(flags), QStringList({"Doors open", "Siren"}));
    EXPECT_EQ(flags->currentRow(), 1);
    EXPECT_EQ(combo->currentText(), "FALSE");
}

// The limits, identifiers and refusals are checked in the core tests; here
// each button reaches its routine and the lists follow.
TEST_F(VariablesDialogTest, GroupButtonsAddDeleteAndRename)
{
    VariablesDialog dialog(document);
    auto* groups = child<QListWidget>(dialog, "List2");
    prompter.inputs = {"A", "B", "C"};
    for (int i = 0; i < 3; ++i)
        click(dialog, "Command2");
    EXPECT_EQ(prompter.prompts[0].title, "New group");
    EXPECT_EQ(groups->currentRow(), 2);

    groups->setCurrentRow(-1);
    click(dialog, "Command3"); // nothing selected
    EXPECT_EQ(groups->count(), 3);
    groups->setCurrentRow(1);
    click(dialog, "Command3");
    EXPECT_EQ(lines(groups), QStringList({"A", "C"}));
    EXPECT_EQ(rowOf(row::Groups).ItemCount, 2);

    prompter.clear();
    prompter.inputs = {"Scouts"};
    groups->setCurrentRow(1);
    click(dialog, "Command4");
    EXPECT_EQ(prompter.prompts.at(0).title, "New name");
    EXPECT_EQ(lines(groups), QStringList({"A", "Scouts"}));

    // A full list shows the refusal.
    while (rowOf(row::Groups).ItemCount < 64) {
        prompter.inputs = {"g"};
        click(dialog, "Command2");
    }
    prompter.clear();
    prompter.inputs = {"one too many"};
    click(dialog, "Command2");
    EXPECT_EQ(
        prompter.messageTexts(), QStringList("Can't create new group. Max number of groups = 64"));
    EXPECT_EQ(groups->count(), 64);
}

TEST_F(VariablesDialogTest, NumberButtonsAndTheFixedFive)
{
    VariablesDialog dialog(document);
    auto* numbers = child<QListWidget>(dialog, "List3");
    auto* value = child<QLineEdit>(dialog, "Text1");
    prompter.inputs = {"Waves"};
    click(dialog, "Command5");
    EXPECT_EQ(numbers->currentRow(), 5);
    EXPECT_EQ(value->text(), "0");

    value->setText("12");
    click(dialog, "Command9");
    EXPECT_EQ(rowOf(row::Integers).RawCodes.at(5), "12");

    numbers->setCurrentRow(4);
    EXPECT_EQ(value->text(), "gMoney");
    prompter.clear();
    click(dialog, "Command9");
    click(dialog, "Command6");
    EXPECT_EQ(prompter.messageTexts(),
        QStringList({"You can't change this variable.", "You can't delete this variable."}));

    prompter.inputs = {"Clock"};
    click(dialog, "Command7"); // the fixed ones may be renamed
    EXPECT_EQ(numbers->item(4)->text(), "Clock");

    numbers->setCurrentRow(5);
    click(dialog, "Command6");
    EXPECT_EQ(numbers->count(), 5);
    EXPECT_EQ(rowOf(row::Integers).ItemCount, 5);
}

TEST_F(VariablesDialogTest, AnIdThatNoLongerFitsIsReportedNotFatal)
{
    ReferenceList& groups = rowOf(row::Groups);
    groups.Texts = {"Old", QString()};
    groups.Codes = {"Group[0]", QString()};
    groups.Ids = {32767, 0};
    groups.RawCodes = {QString(), QString()};
    groups.ItemCount = 1;
    VariablesDialog dialog(document);
    prompter.inputs = {"New"};
    click(dialog, "Command2");

    ASSERT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1);
    EXPECT_EQ(prompter.prompts.last().icon, Prompter::Icon::Critical);
    EXPECT_EQ(groups.ItemCount, 1);
    EXPECT_EQ(lines(child<QListWidget>(dialog, "List2")), QStringList("Old"));
}

} // namespace
