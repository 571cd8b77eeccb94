#include "main/main_window.h"
#include "model/file_error.h"
#include "scripted_prompter.h"
#include "shell/qt_prompter.h"
#include "shell/start_up.h"
#include "test_paths.h"

#include <QTemporaryDir>
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

TEST(QtPrompter, FiltersBecomeQtFiltersAndStatusLinesGoToTheSink)
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
}
