#include "catalogue/reference_markers.h"
#include "dialog_fixture.h"
#include "dialogs/sounds_dialog.h"
#include "resources/resource_items.h"

#include <QLabel>

using namespace tarvo;
using tarvo::gui::SoundsDialog;

namespace {

class SoundsDialogTest : public DialogTest
{
protected:
    void addThroughDialog(SoundsDialog& dialog, const QString& path)
    {
        prompter.fileNames = {path};
        click(dialog, "Command1");
    }

    QListWidget* list(SoundsDialog& dialog) { return child<QListWidget>(dialog, "List1"); }
    QString idLabel(SoundsDialog& dialog) { return child<QLabel>(dialog, "Label1")->text(); }

    RecordingSoundPlayer player;
};

TEST_F(SoundsDialogTest, AddAsksForAWavFileAndListsItsName)
{
    SoundsDialog dialog(document, player);
    addThroughDialog(dialog, "/home/ann/wav/horn.wav");
    prompter.fileNames.clear();
    click(dialog, "Command1"); // cancelled

    ASSERT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::OpenFile), 2);
    EXPECT_EQ(prompter.prompts[0].text, "Open wav file...");
    EXPECT_EQ(prompter.prompts[0].title, "Wav files|*.wav");
    EXPECT_EQ(lines(list(dialog)), QStringList("horn.wav"));
    ASSERT_EQ(workspace.project.soundCount, 1);
    EXPECT_EQ(workspace.project.sounds[0].secondText, "/home/ann/wav/horn.wav");
}

TEST_F(SoundsDialogTest, ShowsTheSoundsAndPlaysTheSelectedOne)
{
    AddSound(workspace.project, "/a/one.wav");
    AddSound(workspace.project, "/a/two.wav");
    workspace.project.sounds[1].id = 12;
    SoundsDialog dialog(document, player);

    EXPECT_EQ(lines(list(dialog)), QStringList({"one.wav", "two.wav"}));
    list(dialog)->setCurrentRow(1);
    EXPECT_EQ(idLabel(dialog), "12");
    EXPECT_EQ(child<QLabel>(dialog, "Label2")->text(),
        "Audio format: PCM (uncompressed), 11,025 Hz, 8 Bit, Mono");

    // Play and Stop go to the player.
    list(dialog)->setCurrentRow(-1);
    click(dialog, "Command4"); // nothing selected
    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_TRUE(player.played.isEmpty());

    list(dialog)->setCurrentRow(1);
    click(dialog, "Command4");
    Q_EMIT list(dialog)->itemDoubleClicked(list(dialog)->item(1));
    EXPECT_EQ(player.played, QStringList({"/a/two.wav", "/a/two.wav"}));

    click(dialog, "Command5");
    EXPECT_EQ(player.stops, 1);

    // A sound kept beside the project file is played from there.
    workspace.project.filePath = "/maps/siege/siege.vnsc";
    workspace.project.sounds[1].secondText = "wav/two.wav";
    click(dialog, "Command4");
    EXPECT_EQ(player.played.last(), "/maps/siege/wav/two.wav");
}

TEST_F(SoundsDialogTest, PlayerFailuresAndAdvice)
{
    SoundsDialog dialog(document, player);
    player.fail("/a/bad.wav", "it is not a wav file that can be played");
    EXPECT_EQ(prompter.statusLines(),
        QStringList(QStringLiteral(
            "Error: Can't play '/a/bad.wav': it is not a wav file that can be played")));
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 0);

    // "More" shows the advice.
    prompter.clear();
    click(dialog, "Command6");
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].text,
        QStringLiteral("Some programs, like 'MS Sound Recorder' can have problems producing wav "
                       "files which are compatible with VN, thererofe i advice you to use such "
                       "programs as 'Sound Forge'."));
    EXPECT_EQ(prompter.prompts[0].icon, Prompter::Icon::Information);
    EXPECT_EQ(prompter.prompts[0].buttons, Prompter::Buttons::Ok);
}

TEST_F(SoundsDialogTest, RemoveShowsTheQuestionAndTheSelectionFollows)
{
    SoundsDialog dialog(document, player);
    for (const char* name : {"/w/a.wav", "/w/b.wav", "/w/c.wav", "/w/d.wav"})
        addThroughDialog(dialog, QString::fromLatin1(name));
    addAction("Attack", kTalk, 1, encodedReference(row::Sounds, "1"));

    list(dialog)->setCurrentRow(-1);
    click(dialog, "Command2"); // nothing selected
    EXPECT_EQ(prompter.beeps(), 1);

    list(dialog)->setCurrentRow(1);
    prompter.clear();
    prompter.answers = {Prompter::Answer::Yes};
    click(dialog, "Command2");
    EXPECT_EQ(prompter.messageTexts(),
        QStringList(QStringLiteral("This sound is being used by event ('Attack->Talk'), are "
                                   "you sure you want to delete it?")));
    EXPECT_EQ(lines(list(dialog)), QStringList({"a.wav", "c.wav", "d.wav"}));
    EXPECT_EQ(list(dialog)->currentRow(), 1);
    EXPECT_EQ(idLabel(dialog), "2");
    EXPECT_TRUE(workspace.project.events[0].actions[0].Args[1].Value.isEmpty());

    // Removing the last line selects the new last one.
    list(dialog)->setCurrentRow(2);
    click(dialog, "Command2");
    EXPECT_EQ(list(dialog)->currentRow(), 1);
    EXPECT_EQ(idLabel(dialog), "2");
}

TEST_F(SoundsDialogTest, ClosingRefillsTheSoundsRowAndStopsPlaying)
{
    {
        SoundsDialog dialog(document, player);
        addThroughDialog(dialog, "/w/a.wav");
        addThroughDialog(dialog, "/w/b.wav");
        click(dialog, "Command3");
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    EXPECT_GE(player.stops, 1);
    const ReferenceList& sounds = workspace.project.tables[row::Sounds];
    ASSERT_EQ(sounds.ItemCount, 2);
    EXPECT_EQ(sounds.Texts.mid(0, 2), QStringList({"a.wav", "b.wav"}));
    EXPECT_EQ(sounds.Ids.mid(0, 2), QList<qint16>({0, 1}));

    // Closing the window any other way does the same.
    SoundsDialog dialog(document, player);
    list(dialog)->setCurrentRow(0);
    click(dialog, "Command2");
    dialog.reject();
    EXPECT_EQ(workspace.project.tables[row::Sounds].ItemCount, 1);
    EXPECT_EQ(workspace.project.tables[row::Sounds].Texts.at(0), "b.wav");
}

TEST_F(SoundsDialogTest, AnIdThatNoLongerFitsIsReportedNotFatal)
{
    AddSound(workspace.project, "/w/a.wav");
    workspace.project.sounds[0].id = 32767; // as a damaged project file may hold
    SoundsDialog dialog(document, player);
    addThroughDialog(dialog, "/w/b.wav");

    ASSERT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1);
    EXPECT_EQ(prompter.prompts.last().icon, Prompter::Icon::Critical);
    EXPECT_EQ(workspace.project.soundCount, 1);
    EXPECT_EQ(lines(list(dialog)), QStringList("a.wav"));
}

} // namespace
