#include "main/main_window.h"
#include "base/file_error.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "shell/qt_prompter.h"
#include "shell/start_up.h"
#include "test_paths.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tarvo;
using gui::parseStartUpArguments;

TEST(StartUpArguments, ProgramFolderProjectFileAndMistakes)
{
    const struct
    {
        QStringList arguments;
        QString programDir, projectFile;
        bool error;
    } rows[] = {
        {{"tarvo"}, {}, {}, false},
        {{"tarvo", "--program-dir", "/opt/p", "Demo.vnsc"}, "/opt/p", "Demo.vnsc", false},
        {{"tarvo", "x.vnsc", "--program-dir=/q"}, "/q", "x.vnsc", false},
        {{"tarvo", "--program-dir"}, {}, {}, true},
        {{"tarvo", "--bogus"}, {}, {}, true},
        {{"tarvo", "a.vnsc", "b.vnsc"}, {}, {}, true},
    };
    for (const auto& row : rows) {
        const gui::StartUpArguments parsed = parseStartUpArguments(row.arguments);
        SCOPED_TRACE(row.arguments.join(u' ').toStdString());
        EXPECT_EQ(parsed.error.isEmpty(), !row.error);
        if (!row.error) {
            EXPECT_EQ(parsed.programDir, row.programDir);
            EXPECT_EQ(parsed.projectFile, row.projectFile);
        }
    }
}

// The catalogues are read before any window exists; a fault names file and
// line, and nothing is asked: the caller shows the one error box.
TEST(StartUp, FaultyMissingOrShippedCatalogues)
{
    ScriptedPrompter prompter;
    Workspace broken(testDataDir() + "/gui/broken_program", prompter);
    EXPECT_TRUE(gui::startUpWorkspace(broken).contains("temp.txt:3"));
    QTemporaryDir empty;
    Workspace missing(empty.path(), prompter);
    EXPECT_TRUE(gui::startUpWorkspace(missing).contains("temp.txt"));
    Workspace shipped(sourceProgramDir(), prompter);
    EXPECT_EQ(gui::startUpWorkspace(shipped), QString());
    EXPECT_TRUE(prompter.prompts.isEmpty());

    EXPECT_THROW(gui::MainWindow(testDataDir() + "/gui/broken_program", prompter), FileError);
    gui::MainWindow window(testDataDir() + "/gui/program", prompter);
    EXPECT_EQ(window.workspace().project.tables[12].ListName, "Events");
}

// The input box answers what the user typed, or nothing when cancelled; its
// title is the program's, its default text is offered selected.
TEST(QtPrompter, InputBoxAnswersWhatWasTypedOrNothing)
{
    gui::QtPrompter prompter;
    QStringList seen;
    const auto answer = [&](bool accept) {
        QTimer::singleShot(0, [&, accept] {
            auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* box = dialog->findChild<QLineEdit*>();
            seen << dialog->windowTitle() + u'|' + box->selectedText();
            box->setText(QStringLiteral("typed"));
            accept ? dialog->accept() : dialog->reject();
        });
    };
    answer(true);
    EXPECT_EQ(prompter.input("Name?", QString(), "Old"), "typed");
    answer(false);
    EXPECT_EQ(prompter.input("Name?", "New name", "Old"), QString());
    EXPECT_EQ(seen, (QStringList {"T.A.R.V.O.|Old", "New name|Old"}));
}

TEST(QtPrompter, FiltersBecomeQtFiltersAndStatusLinesGoToTheSinkOrWarnings)
{
    using gui::QtPrompter;
    EXPECT_EQ(QtPrompter::qtFilter("Script files|*.vnsc"), "Script files (*.vnsc)");
    EXPECT_EQ(QtPrompter::qtFilter("Wav files|*.wav|All|*.*"), "Wav files (*.wav);;All (*.*)");
    QtPrompter prompter;
    QStringList received;
    prompter.setStatusSink(
        [&](const QString& kind, const QString& text) { received << kind + ":" + text; });
    prompter.addStatusLine("error", "x");
    EXPECT_EQ(received, QStringList {"error:x"});

    // Before there is a status window, a line is not lost: it is a warning.
    static QStringList warnings;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext&, const QString& message) {
            if (type == QtWarningMsg)
                warnings << message;
        });
    QtPrompter early;
    early.addStatusLine("error", "y");
    qInstallMessageHandler(previous);
    EXPECT_EQ(warnings, QStringList {statusLineText("error", "y")});
}

// A one-line script comment of a megabyte opens without wrapping (wrapping
// it kept the window black for more than a minute); a short one wraps, and
// the huge text leaves before wrapping comes back.
TEST(CommentBox, AHugeLineIsNotWrapped)
{
    ScriptedPrompter prompter;
    gui::MainWindow window(testDataDir() + "/gui/program", prompter);
    QTemporaryDir dir;
    const QByteArray fixture = readBytes(testDataDir() + "/gui/projects/Fixture.vnsc");
    auto* box = window.findChild<QPlainTextEdit*>("TxtMaintDescription");
    ASSERT_TRUE(box);
    for (const auto& [comment, wrap] :
        {std::pair {QByteArray(1 << 20, 'x'), QPlainTextEdit::NoWrap},
            {QByteArray("short"), QPlainTextEdit::WidgetWidth}}) {
        QByteArray project = fixture;
        const qsizetype at = project.indexOf("<scm>|") + 6;
        project.insert(at, comment);
        writeBytes(dir.filePath("Huge.vnsc"), project);
        ASSERT_TRUE(window.openProjectFile(dir.filePath("Huge.vnsc")));
        EXPECT_EQ(box->lineWrapMode(), wrap);
        EXPECT_TRUE(box->toPlainText().startsWith(comment));
    }
}
