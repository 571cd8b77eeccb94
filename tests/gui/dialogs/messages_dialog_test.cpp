#include "catalogue/reference_markers.h"
#include "dialog_fixture.h"
#include "dialogs/messages_dialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

using namespace tarvo;
using tarvo::gui::MessagesDialog;

namespace {

class MessagesDialogTest : public DialogTest
{
protected:
    QListWidget* list(MessagesDialog& dialog) { return child<QListWidget>(dialog, "List1"); }
    QLineEdit* text(MessagesDialog& dialog) { return child<QLineEdit>(dialog, "Text1"); }

    void type(MessagesDialog& dialog, const QString& message) { text(dialog)->setText(message); }

    void add(MessagesDialog& dialog, const QString& message)
    {
        type(dialog, message);
        click(dialog, "Command1");
    }
};

TEST_F(MessagesDialogTest, AddTakesTheTextAndEmptiesTheBox)
{
    MessagesDialog dialog(workspace);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    EXPECT_EQ(dialog.focusWidget(), text(dialog));

    add(dialog, QStringLiteral("Hold the bridge!"));
    add(dialog, QStringLiteral("Reinforcements in 5 minutes"));
    click(dialog, "Command1"); // empty box

    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_EQ(lines(list(dialog)),
        QStringList(
            {QStringLiteral("Hold the bridge!"), QStringLiteral("Reinforcements in 5 minutes")}));
    EXPECT_TRUE(text(dialog)->text().isEmpty());
    EXPECT_EQ(dialog.focusWidget(), text(dialog));
    ASSERT_EQ(workspace.project.messageCount, 2);
    EXPECT_EQ(workspace.project.messages[1].id, 1);
}

TEST_F(MessagesDialogTest, DoubleClickEditsAndUpdateKeepsTheId)
{
    MessagesDialog dialog(workspace);
    add(dialog, QStringLiteral("first"));
    add(dialog, QStringLiteral("second"));
    workspace.project.messages[1].id = 9;
    const QString reference = encodedReference(row::Messages, QStringLiteral("9"));
    addAction(QStringLiteral("Start"), kShowMessage, 0, reference);

    list(dialog)->setCurrentRow(1);
    EXPECT_EQ(child<QLabel>(dialog, "Label1")->text(), QStringLiteral("Message ID: 9"));
    Q_EMIT list(dialog)->itemDoubleClicked(list(dialog)->item(1));
    EXPECT_EQ(text(dialog)->text(), QStringLiteral("second"));

    type(dialog, QStringLiteral("second, edited"));
    click(dialog, "Command4");
    EXPECT_TRUE(text(dialog)->text().isEmpty());
    EXPECT_EQ(lines(list(dialog)),
        QStringList({QStringLiteral("first"), QStringLiteral("second, edited")}));
    EXPECT_EQ(workspace.project.messages[1].id, 9);
    EXPECT_TRUE(prompter.prompts.isEmpty());

    click(dialog, "Command3");
    // The action still names the message, which now shows its new text.
    EXPECT_EQ(DecodeReferences(workspace.project.tables, reference, prompter),
        QStringLiteral("second, edited"));
}

TEST_F(MessagesDialogTest, UpdateBeepsWithoutSelectionOrText)
{
    MessagesDialog dialog(workspace);
    add(dialog, QStringLiteral("only"));
    type(dialog, QStringLiteral("new text"));
    click(dialog, "Command4"); // no line selected
    list(dialog)->setCurrentRow(0);
    type(dialog, QString());
    click(dialog, "Command4"); // empty text
    EXPECT_EQ(prompter.beeps(), 2);
    EXPECT_EQ(workspace.project.messages[0].text, QStringLiteral("only"));
    EXPECT_EQ(lines(list(dialog)), QStringList(QStringLiteral("only")));
}

TEST_F(MessagesDialogTest, RemoveAsksOnlyWhenUsedAndMovesTheSelection)
{
    MessagesDialog dialog(workspace);
    for (const char* message : {"a", "b", "c"})
        add(dialog, QString::fromLatin1(message));
    const QString c = encodedReference(row::Messages, QStringLiteral("2"));
    addAction(QStringLiteral("Final wave"), kTalk, 0, c);
    addAction(QStringLiteral("Final wave"), kShowMessage, 0, c);

    list(dialog)->setCurrentRow(0); // unused
    click(dialog, "Command2");
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(list(dialog)->currentRow(), 0);
    EXPECT_EQ(child<QLabel>(dialog, "Label1")->text(), QStringLiteral("Message ID: 1"));

    list(dialog)->setCurrentRow(1);
    prompter.answers = {Prompter::Answer::No};
    click(dialog, "Command2");
    EXPECT_EQ(lines(list(dialog)), QStringList({QStringLiteral("b"), QStringLiteral("c")}));

    prompter.clear();
    click(dialog, "Command2"); // the scripted prompter answers Yes
    EXPECT_EQ(prompter.messageTexts(),
        QStringList(QStringLiteral("This message is being used by event ('Final wave->Talk'), are "
                                   "you sure you want to delete it?")));
    EXPECT_EQ(lines(list(dialog)), QStringList(QStringLiteral("b")));
    EXPECT_EQ(list(dialog)->currentRow(), 0);
    for (const ActionRecord& action : workspace.project.events[0].actions) {
        EXPECT_EQ(action.Args[0].ListRef, -1);
        EXPECT_TRUE(action.Args[0].Value.isEmpty());
    }
}

TEST_F(MessagesDialogTest, ClosingRefillsTheMessagesRow)
{
    {
        MessagesDialog dialog(workspace);
        add(dialog, QStringLiteral("one"));
        add(dialog, QStringLiteral("two"));
        EXPECT_EQ(workspace.project.tables[row::Messages].ItemCount, 0);
        click(dialog, "Command3");
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    const ReferenceList& messages = workspace.project.tables[row::Messages];
    ASSERT_EQ(messages.ItemCount, 2);
    EXPECT_EQ(
        messages.Texts.mid(0, 2), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
    EXPECT_EQ(messages.Ids.mid(0, 2), QList<qint16>({0, 1}));
}

} // namespace
