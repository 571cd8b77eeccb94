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
    project.name = QStringLiteral("island");

    // Event 0: the landing.
    startNew(QStringLiteral("Landing"));
    ASSERT_EQ(tab1->currentIndex(), 1);
    option(5);
    type(QStringLiteral("Combo8_5"), QStringLiteral("Scouts"));
    type(QStringLiteral("Combo9_5"), QStringLiteral("Player 2"));
    click(QStringLiteral("Command15"));
    ASSERT_EQ(tab1->currentIndex(), 2);

    click(QStringLiteral("Command4"));
    choose(QStringLiteral("Combo1"), 2); // Units of player in group
    type(QStringLiteral("Combo3_0"), QStringLiteral("Player 1"));
    type(QStringLiteral("Combo3_1"), QStringLiteral("Scouts"));
    combo(QStringLiteral("Combo4"))->setCurrentIndex(3); // ">="
    type(QStringLiteral("Combo7"), QStringLiteral("12"));
    click(QStringLiteral("Command7"));
    click(QStringLiteral("Command4"));
    choose(QStringLiteral("Combo1"), 1); // Flag is set
    type(QStringLiteral("Combo3_0"), QStringLiteral("Base found"));
    combo(QStringLiteral("Combo5"))->setCurrentIndex(1); // "Not"
    click(QStringLiteral("Command7"));
    selectLine(QStringLiteral("List2"), 0);
    find<QPlainTextEdit>(QStringLiteral("Text2"))
        ->setPlainText(QStringLiteral("Enough units\nlanded"));
    click(QStringLiteral("Command12"));
    EXPECT_EQ(
        lines(QStringLiteral("List2")), (QStringList {"Units of player in group", "Flag is set"}));
    click(QStringLiteral("Command9"));
    ASSERT_EQ(tab1->currentIndex(), 3);

    addAction(1,
        {QStringLiteral("Combo10_0"), QStringLiteral("Welcome to the island, commander."),
            QStringLiteral("Combo6_1"), QStringLiteral("Player 1")});
    addAction(2,
        {QStringLiteral("Combo6_0"), QStringLiteral("Base found"), QStringLiteral("Combo6_1"),
            QStringLiteral("TRUE")});
    selectLine(QStringLiteral("List4"), 1);
    find<QPlainTextEdit>(QStringLiteral("Text3"))->setPlainText(QStringLiteral("Remember it"));
    click(QStringLiteral("Command13"));
    click(QStringLiteral("Command21"));
    ASSERT_EQ(tab1->currentIndex(), 0);
    ASSERT_EQ(project.eventCount, 1);

    // A new event without actions becomes timer 0.
    startNew(QStringLiteral("Reinforcements"));
    type(QStringLiteral("Combo8_0"), QStringLiteral("600"));
    click(QStringLiteral("Command15"));
    click(QStringLiteral("Command9"));
    click(QStringLiteral("Command21"));
    ASSERT_EQ(project.timerCount, 1);
    ASSERT_EQ(project.eventCount, 1);

    // Event 1, then edited into timer 1.
    startNew(QStringLiteral("Scratch"));
    option(1);
    type(QStringLiteral("Combo8_1"), QStringLiteral("50"));
    pressEnter(QStringLiteral("Combo8_1"));
    click(QStringLiteral("Command9"));
    addAction(4, {QStringLiteral("Combo10_0"), QStringLiteral("scratch")});
    click(QStringLiteral("Command21"));
    ASSERT_EQ(project.eventCount, 2);
    wizard->editEvent(1);
    click(QStringLiteral("Command15"));
    click(QStringLiteral("Command9"));
    selectLine(QStringLiteral("List4"), 0);
    click(QStringLiteral("Command17"));
    click(QStringLiteral("Command21"));
    ASSERT_EQ(project.eventCount, 1);
    ASSERT_EQ(project.timerCount, 2);

    // Timer 0 edited: "After:" 900, finished with Enter.
    wizard->editTimer(0);
    option(1);
    type(QStringLiteral("Combo8_1"), QStringLiteral("900"));
    pressEnter(QStringLiteral("Combo8_1"));
    ASSERT_FALSE(wizard->isRunning());

    // Event 1 starts at once and refers to the timer and the first event.
    startNew(QStringLiteral("Start"));
    option(3);
    click(QStringLiteral("Command15"));
    click(QStringLiteral("Command9"));
    addAction(3,
        {QStringLiteral("Combo6_0"), QStringLiteral("Reinforcements"), QStringLiteral("Combo6_1"),
            QStringLiteral("Landing")});
    click(QStringLiteral("Command21"));
    ASSERT_EQ(project.eventCount, 2);

    EXPECT_EQ(prompter.messageTexts(),
        QStringList(2,
            QStringLiteral("New Event timer created (no actions selected). All "
                           "conditions were removed.")));
    EXPECT_EQ(prompter.statusLines(), QStringList());
    EXPECT_EQ(startedSignals, 6);
    EXPECT_EQ(finishedSignals, 6);

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("island.vnsc"));
    SaveProject(project, path);
    compareWithGolden(readBytes(path), QStringLiteral("island.vnsc"));

    StepLog log;
    const QString script
        = WriteScript::scriptSourceText(project, WriteScript::DroidBuiltSlot {}, log);
    EXPECT_EQ(log.warnings().join(u'\n').toStdString(), std::string());
    compareWithGolden(text::encodeCodePage(script), QStringLiteral("island.slo"));
}
