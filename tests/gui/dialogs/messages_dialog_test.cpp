#include "catalogue/reference_markers.h"
#include "dialog_fixture.h"
#include "dialogs/messages_dialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

using namespace tarvo;
using tarvo::gui::MessagesDialog;

namespace {

// The rules behind these buttons (IDs, refusals, reference clearing) are
// checked in the core tests; here: the wiring and what the user sees.
class MessagesDialogTest : public DialogTest
{
protected:
    QListWidget* list(MessagesDialog& dialog) { return child<QListWidget>(dialog, "List1"); }
    QLineEdit* text(MessagesDialog& dialog) { return child<QLineEdit>(dialog, "Text1"); }

    void add(MessagesDialog& dialog, const QString& message)
    {
        text(dialog)->setText(message);
        click(dialog, "Command1");
    }
};

TEST_F(MessagesDialogTest, AddTakesTheTextAndEmptiesTheBox)
{
    MessagesDialog dialog(document);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    EXPECT_EQ(dialog.focusWidget(), text(dialog));

    add(dialog, "Hold the bridge!");
    add(dialog, "Reinforcements in 5 minutes");
    click(dialog, "Command1"); // empty box

    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_EQ(
        lines(list(dialog)), QStringList({"Hold the bridge!", "Reinforcements in 5 minutes"}));
    EXPECT_TRUE(text(dialog)->text().isEmpty());
    EXPECT_EQ(dialog.focusWidget(), text(dialog));
    EXPECT_EQ(workspace.project.messageCount, 2);

    click(dialog, "Command3");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    const ReferenceList& messages = workspace.project.tables[row::Messages];
    ASSERT_EQ(messages.ItemCount, 2);
    EXPECT_EQ(messages.Texts.at(1), "Reinforcements in 5 minutes");
    EXPECT_EQ(messages.Ids.mid(0, 2), QList<qint16>({0, 1}));
}

TEST_F(MessagesDialogTest, DoubleClickEditsAndUpdateStoresTheSelectedLine)
{
    MessagesDialog dialog(document);
    add(dialog, "first");
    add(dialog, "second");
    workspace.project.messages[1].id = 9;
    const QString reference = encodedReference(row::Messages, "9");
    addAction("Start", kShowMessage, 0, reference);

    text(dialog)->setText("x");
    click(dialog, "Command4"); // no line selected
    EXPECT_EQ(prompter.beeps(), 1);

    list(dialog)->setCurrentRow(1);
    EXPECT_EQ(child<QLabel>(dialog, "Label1")->text(), "Message ID: 9");
    Q_EMIT list(dialog)->itemDoubleClicked(list(dialog)->item(1));
    EXPECT_EQ(text(dialog)->text(), "second");

    text(dialog)->setText("second, edited");
    click(dialog, "Command4");
    EXPECT_TRUE(text(dialog)->text().isEmpty());
    EXPECT_EQ(lines(list(dialog)), QStringList({"first", "second, edited"}));
    EXPECT_EQ(workspace.project.messages[1].id, 9);

    click(dialog, "Command3");
    // The action still names the message, which now shows its new text.
    EXPECT_EQ(DecodeReferences(workspace.project.tables, reference, prompter), "second, edited");
}

TEST_F(MessagesDialogTest, RemoveShowsTheQuestionAndRefreshesListAndLabel)
{
    MessagesDialog dialog(document);
    for (const char* message : {"a", "b", "c"})
        add(dialog, QString::fromLatin1(message));
    addAction("Final wave", kTalk, 0, encodedReference(row::Messages, "2"));

    list(dialog)->setCurrentRow(0); // unused: no question
    click(dialog, "Command2");
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(list(dialog)->currentRow(), 0);
    EXPECT_EQ(child<QLabel>(dialog, "Label1")->text(), "Message ID: 1");

    list(dialog)->setCurrentRow(1);
    prompter.answers = {Prompter::Answer::Yes};
    click(dialog, "Command2");
    EXPECT_EQ(prompter.messageTexts(),
        QStringList(QStringLiteral("This message is being used by event ('Final wave->Talk'), are "
                                   "you sure you want to delete it?")));
    EXPECT_EQ(lines(list(dialog)), QStringList("b"));
    EXPECT_EQ(list(dialog)->currentRow(), 0);
    EXPECT_TRUE(workspace.project.events[0].actions[0].Args[0].Value.isEmpty());
}

} // namespace
