#include "catalogue/reference_markers.h"
#include "compile/compile_command.h"
#include "dialog_fixture.h"
#include "dialogs/messages_dialog.h"
#include "dialogs/sounds_dialog.h"
#include "wav_file.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

using namespace tarvo;

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A program folder of its own: the test catalogues and the shipped templates,
// so the compile writes its output tree inside the temporary folder.
bool makeProgramFolder(const QString& dir)
{
    const QString catalogues = testDataDir() + QStringLiteral("/dialogs/");
    if (!QFile::copy(catalogues + QStringLiteral("temp.txt"), dir + QStringLiteral("/temp.txt"))
        || !QFile::copy(
            catalogues + QStringLiteral("temp2.txt"), dir + QStringLiteral("/temp2.txt")))
        return false;
    const QDir templates(sourceProgramDir() + QStringLiteral("/Source"));
    if (!QDir(dir).mkdir("Source"))
        return false;
    for (const QString& name : templates.entryList(QDir::Files)) {
        if (!QFile::copy(templates.filePath(name), dir + QStringLiteral("/Source/") + name))
            return false;
    }
    return true;
}

// What a new user does: two wav files and two messages, an event that uses
// both pairs, then one sound and one message removed again, and a compile.
TEST(ResourceFlow, RemovedSoundsAndMessagesStayOutOfTheOutputTree)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_TRUE(makeProgramFolder(dir.path()));
    const QString horn = dir.filePath("horn.wav");
    const QString alarm = dir.filePath("alarm.wav");
    ASSERT_TRUE(writeTone(horn, 2000, 330));
    ASSERT_TRUE(writeTone(alarm, 3000, 880));

    ScriptedPrompter prompter;
    Workspace workspace(dir.path(), prompter);
    ResetProject(workspace);
    ProjectDocument document(workspace);
    workspace.project.name = "Siege";
    RecordingSoundPlayer player;

    auto button = [](QWidget& dialog, const char* name) {
        dialog.findChild<QAbstractButton*>(QLatin1String(name))->click();
    };
    auto select = [](QWidget& dialog, int row) {
        dialog.findChild<QListWidget*>("List1")->setCurrentRow(row);
    };
    {
        gui::SoundsDialog sounds(document, player);
        prompter.fileNames = {horn, alarm};
        button(sounds, "Command1");
        button(sounds, "Command1");
        select(sounds, 0);
        button(sounds, "Command4");
        button(sounds, "Command3");
    }
    EXPECT_EQ(player.played, QStringList(horn));
    {
        gui::MessagesDialog messages(document);
        for (const char* text : {"Hold the \"bridge\"", "Retreat!"}) {
            messages.findChild<QLineEdit*>("Text1")->setText(QString::fromUtf8(text));
            button(messages, "Command1");
        }
        button(messages, "Command3");
    }

    // The action editor stores what the user picked as encoded references.
    EventRecord event;
    event.name = "Siege begins";
    for (int k = 0; k < 2; ++k) {
        ActionRecord action;
        static_cast<CatalogueEntry&>(action) = workspace.actionCatalogue.at(kTalk);
        action.Kind = kTalk;
        const ReferenceListTable& tables = workspace.project.tables;
        action.Args[0].Value
            = EncodeReferences(tables, row::Messages, tables[row::Messages].Texts.at(k), prompter);
        action.Args[1].Value
            = EncodeReferences(tables, row::Sounds, tables[row::Sounds].Texts.at(k), prompter);
        action.Args[2].Value = "-1";
        event.actions.append(action);
    }
    event.actionCount = 2;
    ASSERT_EQ(IdOfReference(event.actions[1].Args[1].Value), 1);
    workspace.project.events.append(event);
    workspace.project.eventCount = 1;

    prompter.clear();
    {
        gui::SoundsDialog sounds(document, player);
        select(sounds, 1);
        button(sounds, "Command2");
        button(sounds, "Command3");
    }
    {
        gui::MessagesDialog messages(document);
        select(messages, 1);
        button(messages, "Command2");
        button(messages, "Command3");
    }
    EXPECT_EQ(prompter.messageTexts(),
        QStringList({QStringLiteral("This sound is being used by event ('Siege begins->Talk'), are "
                                    "you sure you want to delete it?"),
            QStringLiteral("This message is being used by event ('Siege begins->Talk'), are you "
                           "sure you want to delete it?")}));

    CompileOptions options;
    options.runPacker = false;
    options.announce = false;
    const CompileOutcome outcome = CompileProject(workspace, options);
    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();

    const QString root = workspace.paths.outputRoot("Siege");
    EXPECT_EQ(readAll(root + QStringLiteral("/audio/Extra/horn.wav")), readAll(horn));
    EXPECT_FALSE(QFile::exists(root + QStringLiteral("/audio/Extra/alarm.wav")));

    const QByteArray audioList = readAll(root + QStringLiteral("/vnr/audio.vnr"));
    EXPECT_TRUE(audioList.endsWith(
        "\r\ndirectory   \"audio\\Extra\"\r\n\t\tfile        WAV \"horn.wav\"\r\n"))
        << audioList.toStdString();

    const QByteArray strings = readAll(root + QStringLiteral("/messages/strings/GenStrings.txt"));
    const QByteArray shipped = readAll(dir.path() + QStringLiteral("/Source/GenStrings.txt"));
    EXPECT_EQ(strings, shipped + "msg0\t\t\t\t\"Hold the \"bridge\"\"\r\n");

    const QByteArray script = readAll(root + QStringLiteral("/script/text/Siege.slo"));
    EXPECT_FALSE(script.isEmpty());
    EXPECT_FALSE(script.contains("alarm")) << script.toStdString();
    EXPECT_FALSE(script.contains('?')) << script.toStdString();
    // The cleared arguments are written empty.
    EXPECT_TRUE(script.contains("\ttalk(, , -1);\r\n")) << script.toStdString();
}

} // namespace
