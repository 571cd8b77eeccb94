#include "compile/droid_built.h"
#include "compile/script_writer.h"
#include "compile/step_log.h"
#include "model/project_file.h"
#include "text/code_page.h"
#include "wizard_fixture.h"

#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QTemporaryDir>

using namespace tarvo;

namespace {

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

// A golden file is rewritten only on request, never by a normal run.
void compareWithGolden(const QByteArray& actual, const QString& name)
{
    const QString path = testDataDir() + QStringLiteral("/wizard/expected/") + name;
    if (qEnvironmentVariableIsSet("TARVO_UPDATE_GOLDEN")) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(actual);
    }
    const QByteArray expected = readBytes(path);
    ASSERT_FALSE(expected.isEmpty()) << "missing golden file " << path.toStdString();
    EXPECT_EQ(actual, expected) << name.toStdString() << " differs:\n" << actual.toStdString();
}

} // namespace

// A whole small script built through the pages only, from an empty project:
// an event with a transport-landing trigger, a compared and a negated
// condition and two actions; a timer made from an event without actions; an
// event turned into a timer by editing away its only action; a timer edited
// with Enter; and an action that refers to the timers and events made before.
class BuildScriptTest : public WizardGuiTest
{
};

TEST_F(BuildScriptTest, ProjectBuiltThroughThePagesSavesAndCompilesAsExpected)
{
    addVariables();
    project.name = "island";

    // Event 0: the landing.
    startNew("Landing");
    ASSERT_EQ(tab1->currentIndex(), 1);
    option(5);
    type("Combo8_5", "Scouts");
    type("Combo9_5", "Player 2");
    click("Command15");
    ASSERT_EQ(tab1->currentIndex(), 2);

    click("Command4");
    choose("Combo1", 2); // Units of player in group
    type("Combo3_0", "Player 1");
    type("Combo3_1", "Scouts");
    combo("Combo4")->setCurrentIndex(3); // ">="
    type("Combo7", "12");
    click("Command7");
    click("Command4");
    choose("Combo1", 1); // Flag is set
    type("Combo3_0", "Base found");
    combo("Combo5")->setCurrentIndex(1); // "Not"
    click("Command7");
    selectLine("List2", 0);
    find<QPlainTextEdit>("Text2")->setPlainText("Enough units\nlanded");
    click("Command12");
    EXPECT_EQ(lines("List2"), (QStringList {"Units of player in group", "Flag is set"}));
    click("Command9");
    ASSERT_EQ(tab1->currentIndex(), 3);

    addAction(1, {"Combo10_0", "Welcome to the island, commander.", "Combo6_1", "Player 1"});
    addAction(2, {"Combo6_0", "Base found", "Combo6_1", "TRUE"});
    selectLine("List4", 1);
    find<QPlainTextEdit>("Text3")->setPlainText("Remember it");
    click("Command13");
    click("Command21");
    ASSERT_EQ(tab1->currentIndex(), 0);
    ASSERT_EQ(project.eventCount, 1);

    // A new event without actions becomes timer 0.
    startNew("Reinforcements");
    type("Combo8_0", "600");
    click("Command15");
    click("Command9");
    click("Command21");
    ASSERT_EQ(project.timerCount, 1);
    ASSERT_EQ(project.eventCount, 1);

    // Event 1, then edited into timer 1.
    startNew("Scratch");
    option(1);
    type("Combo8_1", "50");
    pressEnter("Combo8_1");
    click("Command9");
    addAction(4, {"Combo10_0", "scratch"});
    click("Command21");
    ASSERT_EQ(project.eventCount, 2);
    wizard->editEvent(1);
    click("Command15");
    click("Command9");
    selectLine("List4", 0);
    click("Command17");
    click("Command21");
    ASSERT_EQ(project.eventCount, 1);
    ASSERT_EQ(project.timerCount, 2);

    // Timer 0 edited: "After:" 900, finished with Enter.
    wizard->editTimer(0);
    option(1);
    type("Combo8_1", "900");
    pressEnter("Combo8_1");
    ASSERT_FALSE(wizard->isRunning());

    // Event 1 starts at once and refers to the timer and the first event.
    startNew("Start");
    option(3);
    click("Command15");
    click("Command9");
    addAction(3, {"Combo6_0", "Reinforcements", "Combo6_1", "Landing"});
    click("Command21");
    ASSERT_EQ(project.eventCount, 2);

    EXPECT_EQ(prompter.messageTexts(),
        QStringList(2,
            QStringLiteral("New Event timer created (no actions selected). All "
                           "conditions were removed.")));
    EXPECT_EQ(prompter.statusLines(), QStringList());
    EXPECT_EQ(startedSignals, 6);
    EXPECT_EQ(finishedSignals, 6);

    QTemporaryDir folder;
    const QString path = folder.filePath("island.vnsc");
    SaveProject(project, path);
    compareWithGolden(readBytes(path), "island.vnsc");

    StepLog log;
    const QString script
        = WriteScript::scriptSourceText(project, WriteScript::DroidBuiltSlot {}, log);
    EXPECT_EQ(log.warnings().join(u'\n').toStdString(), std::string());
    compareWithGolden(text::encodeCodePage(script), "island.slo");
}
