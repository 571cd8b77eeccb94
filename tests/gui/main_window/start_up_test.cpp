#include "main_window_fixture.h"
#include "model/file_error.h"

using tarvo::gui::parseStartUpArguments;

TEST(StartUpArguments, ProgramFolderProjectFileAndMistakes)
{
    auto a = parseStartUpArguments({"tarvo"});
    EXPECT_TRUE(a.programDir.isEmpty());
    EXPECT_TRUE(a.projectFile.isEmpty());
    EXPECT_TRUE(a.error.isEmpty());

    a = parseStartUpArguments({"tarvo", "--program-dir", "/opt/p", "Demo.vnsc"});
    EXPECT_EQ(a.programDir, "/opt/p");
    EXPECT_EQ(a.projectFile, "Demo.vnsc");
    EXPECT_TRUE(a.error.isEmpty());

    a = parseStartUpArguments({"tarvo", "x.vnsc", "--program-dir=/q"});
    EXPECT_EQ(a.programDir, "/q");
    EXPECT_EQ(a.projectFile, "x.vnsc");

    EXPECT_FALSE(parseStartUpArguments({"tarvo", "--program-dir"}).error.isEmpty());
    EXPECT_FALSE(parseStartUpArguments({"tarvo", "--bogus"}).error.isEmpty());
    EXPECT_FALSE(parseStartUpArguments({"tarvo", "a.vnsc", "b.vnsc"}).error.isEmpty());
}

TEST(StartUp, FaultyOrMissingCatalogueIsNamed)
{
    ScriptedPrompter prompter;
    tarvo::Workspace workspace(testDataDir() + "/gui/main_window/broken_program", prompter);
    const QString error = tarvo::gui::startUpWorkspace(workspace);
    EXPECT_TRUE(error.contains("temp.txt:3")) << qPrintable(error);
    // Nothing was asked: the caller shows the one error box.
    EXPECT_TRUE(prompter.prompts.isEmpty());

    QTemporaryDir empty;
    tarvo::Workspace missing(empty.path(), prompter);
    EXPECT_TRUE(tarvo::gui::startUpWorkspace(missing).contains("temp.txt"));
}

TEST(StartUp, ShippedProgramFolderStarts)
{
    ScriptedPrompter prompter;
    tarvo::Workspace workspace(sourceProgramDir(), prompter);
    EXPECT_EQ(tarvo::gui::startUpWorkspace(workspace), QString());
    EXPECT_FALSE(workspace.actionCatalogue.isEmpty());
}

TEST(StartUp, WindowWithItsOwnWorkspaceReadsTheCataloguesFirst)
{
    static int argc = 1;
    static char name[] = "gui_main_window_tests";
    static char* argv[] = {name, nullptr};
    if (!QApplication::instance())
        new QApplication(argc, argv);

    ScriptedPrompter prompter;
    RecordingFolderOpener opener;
    EXPECT_THROW(tarvo::gui::MainWindow(
                     testDataDir() + "/gui/main_window/broken_program", prompter, &opener),
        tarvo::FileError);

    tarvo::gui::MainWindow window(testDataDir() + "/gui/main_window/program", prompter, &opener);
    EXPECT_EQ(window.workspace().actionCatalogue.size(), 3);
    EXPECT_EQ(window.workspace().project.tables[12].ListName, "Events");
    EXPECT_TRUE(prompter.prompts.isEmpty());
}
