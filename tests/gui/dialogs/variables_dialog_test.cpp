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
    VariablesDialog dialog(workspace);
    EXPECT_EQ(dialog.objectName(), QStringLiteral("Form4"));
    auto* tabs = child<QTabWidget>(dialog, "SSTab1");
    ASSERT_EQ(tabs->count(), 3);
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("Flags"));
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Groups"));
    EXPECT_EQ(tabs->tabText(2), QStringLiteral("Numbers"));
    for (const char* frame : {"Frame1", "Frame2", "Frame3"})
        child<QFrame>(dialog, frame);

    EXPECT_EQ(lines(child<QListWidget>(dialog, "List1")),
        QStringList({QStringLiteral("Doors open"), QStringLiteral("Alarm")}));
    EXPECT_TRUE(lines(child<QListWidget>(dialog, "List2")).isEmpty());
    EXPECT_EQ(lines(child<QListWidget>(dialog, "List3")).size(), 5);
    auto* combo = child<QComboBox>(dialog, "Combo1");
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->itemText(0), QStringLiteral("FALSE"));
    EXPECT_EQ(combo->currentIndex(), -1);

    // Flag values follow the list and the choice.
    auto* flags = child<QListWidget>(dialog, "List1");
    flags->setCurrentRow(0);
    EXPECT_EQ(combo->currentText(), QStringLiteral("FALSE"));
    flags->setCurrentRow(1);
    EXPECT_EQ(combo->currentText(), QStringLiteral("TRUE"));
    // Showing a value is not choosing it.
    EXPECT_EQ(rowOf(row::Flags).RawCodes.mid(0, 2),
        QStringList({QStringLiteral("FALSE"), QStringLiteral("TRUE")}));

    combo->setCurrentIndex(0);
    EXPECT_EQ(rowOf(row::Flags).RawCodes.at(1), QStringLiteral("FALSE"));

    prompter.inputs = {QStringLiteral("Siren")};
    click(dialog, "Command8");
    EXPECT_EQ(lines(flags), QStringList({QStringLiteral("Doors open"), QStringLiteral("Siren")}));
    EXPECT_EQ(flags->currentRow(), 1);
    EXPECT_EQ(combo->currentText(), QStringLiteral("FALSE"));
}

// The limits, identifiers and refusals are checked in the core tests; here
// each button reaches its routine and the lists follow.
TEST_F(VariablesDialogTest, GroupButtonsAddDeleteAndRename)
{
    VariablesDialog dialog(workspace);
    auto* groups = child<QListWidget>(dialog, "List2");
    prompter.inputs = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")};
    for (int i = 0; i < 3; ++i)
        click(dialog, "Command2");
    EXPECT_EQ(prompter.prompts[0].title, QStringLiteral("New group"));
    EXPECT_EQ(groups->currentRow(), 2);

    groups->setCurrentRow(-1);
    click(dialog, "Command3"); // nothing selected
    EXPECT_EQ(groups->count(), 3);
    groups->setCurrentRow(1);
    click(dialog, "Command3");
    EXPECT_EQ(lines(groups), QStringList({QStringLiteral("A"), QStringLiteral("C")}));
    EXPECT_EQ(rowOf(row::Groups).ItemCount, 2);

    prompter.clear();
    prompter.inputs = {QStringLiteral("Scouts")};
    groups->setCurrentRow(1);
    click(dialog, "Command4");
    EXPECT_EQ(prompter.prompts.at(0).title, QStringLiteral("New name"));
    EXPECT_EQ(lines(groups), QStringList({QStringLiteral("A"), QStringLiteral("Scouts")}));

    // A full list shows the refusal.
    while (rowOf(row::Groups).ItemCount < 64) {
        prompter.inputs = {QStringLiteral("g")};
        click(dialog, "Command2");
    }
    prompter.clear();
    prompter.inputs = {QStringLiteral("one too many")};
    click(dialog, "Command2");
    EXPECT_EQ(prompter.messageTexts(),
        QStringList(QStringLiteral("Can't create new group. Max number of groups = 64")));
    EXPECT_EQ(groups->count(), 64);
}

TEST_F(VariablesDialogTest, NumberButtonsAndTheFixedFive)
{
    VariablesDialog dialog(workspace);
    auto* numbers = child<QListWidget>(dialog, "List3");
    auto* value = child<QLineEdit>(dialog, "Text1");
    prompter.inputs = {QStringLiteral("Waves")};
    click(dialog, "Command5");
    EXPECT_EQ(numbers->currentRow(), 5);
    EXPECT_EQ(value->text(), QStringLiteral("0"));

    value->setText(QStringLiteral("12"));
    click(dialog, "Command9");
    EXPECT_EQ(rowOf(row::Integers).RawCodes.at(5), QStringLiteral("12"));

    numbers->setCurrentRow(4);
    EXPECT_EQ(value->text(), QStringLiteral("gMoney"));
    prompter.clear();
    click(dialog, "Command9");
    click(dialog, "Command6");
    EXPECT_EQ(prompter.messageTexts(),
        QStringList({QStringLiteral("You can't change this variable."),
            QStringLiteral("You can't delete this variable.")}));

    prompter.inputs = {QStringLiteral("Clock")};
    click(dialog, "Command7"); // the fixed ones may be renamed
    EXPECT_EQ(numbers->item(4)->text(), QStringLiteral("Clock"));

    numbers->setCurrentRow(5);
    click(dialog, "Command6");
    EXPECT_EQ(numbers->count(), 5);
    EXPECT_EQ(rowOf(row::Integers).ItemCount, 5);
}

TEST_F(VariablesDialogTest, AnIdThatNoLongerFitsIsReportedNotFatal)
{
    ReferenceList& groups = rowOf(row::Groups);
    groups.Texts = {QStringLiteral("Old"), QString()};
    groups.Codes = {QStringLiteral("Group[0]"), QString()};
    groups.Ids = {32767, 0};
    groups.RawCodes = {QString(), QString()};
    groups.ItemCount = 1;
    VariablesDialog dialog(workspace);
    prompter.inputs = {QStringLiteral("New")};
    click(dialog, "Command2");

    ASSERT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1);
    EXPECT_EQ(prompter.prompts.last().icon, Prompter::Icon::Critical);
    EXPECT_EQ(groups.ItemCount, 1);
    EXPECT_EQ(lines(child<QListWidget>(dialog, "List2")), QStringList(QStringLiteral("Old")));
}

} // namespace
