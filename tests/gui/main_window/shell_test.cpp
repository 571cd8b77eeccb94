#include "main_window_fixture.h"
#include "shell/qt_prompter.h"

#include <QMenuBar>

TEST_F(MainWindowTest, MenuBarHasEveryItemWithItsCaption)
{
    const QList<QPair<const char*, QString>> items = {
        {"mNew", "&New..."},
        {"mOpen", "Open..."},
        {"mSave", "Save"},
        {"mSaveAs", "Save As..."},
        {"mExit", "Exit"},
        {"mCompile", "Compile"},
        {"mScriptDescription", "Show Description"},
        {"mDirectory", "Open source directory"},
        {"mSounds", "Sounds..."},
        {"mMessages", "Messages..."},
        {"mVariables", "Variables..."},
        {"mShowStatus", "Show Status Window"},
        {"mEventEdit", "Edit"},
        {"mEventRename", "Rename"},
        {"mEventDelete", "Delete"},
    };
    for (const auto& [name, caption] : items) {
        QAction* action = find<QAction>(name);
        ASSERT_NE(action, nullptr);
        EXPECT_EQ(action->text(), caption) << name;
    }
    EXPECT_TRUE(find<QAction>("mShowStatus")->isCheckable());
    EXPECT_FALSE(find<QAction>("mShowStatus")->isChecked());

    QStringList menus;
    for (QAction* action : window->menuBar()->actions()) {
        if (action->isVisible())
            menus.append(action->text());
    }
    EXPECT_EQ(menus, (QStringList {"&File", "&Edit", "View", "Script", "Resources", "Options"}));
    EXPECT_EQ(find<QMenu>("mView")->actions().size(), 3);
    EXPECT_NE(find<QMenu>("mInvisibleEventEdit"), nullptr);
}

TEST_F(MainWindowTest, StartsUnnamedWithEditingOffAndFourPages)
{
    EXPECT_EQ(window->windowTitle(), "T.A.R.V.O. - Campaign Script Editor");
    EXPECT_EQ(find<QTabWidget>("Tab1")->count(), 4);
    EXPECT_EQ(find<QTabWidget>("Tab1")->currentIndex(), 0);
    EXPECT_FALSE(events()->isEnabled());
    EXPECT_FALSE(page<QPushButton>("Command3")->isEnabled());
    EXPECT_EQ(panel(1), "Events: 0/0");
    EXPECT_EQ(panel(2), "Timers: 0");
    EXPECT_EQ(panel(4), "Actions:");
    EXPECT_EQ(page<QPushButton>("Command3")->text(), "&New");
    EXPECT_EQ(page<QPushButton>("Command3")->toolTip(), "Create new event or new timer");
    EXPECT_EQ(page<QLabel>("Label14")->text(), "Events:");
    EXPECT_EQ(page<QLabel>("Label15")->text(), "Timers:");
}

TEST_F(MainWindowTest, WizardPagesCannotBeReachedByTheTabStrip)
{
    auto* tabs = find<QTabWidget>("Tab1");
    tabs->setCurrentIndex(2);
    QApplication::processEvents();
    EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST_F(MainWindowTest, StatusWindowShowsLinesTogglesAndClears)
{
    auto* msgs = window->statusWindow();
    EXPECT_EQ(msgs->objectName(), "Msgs");
    EXPECT_EQ(msgs->windowTitle(), "Messages");
    EXPECT_FALSE(msgs->isVisible());

    window->AddStatusLine("ERROR", "Couldn't parse 'Events' variable");
    window->AddStatusLine("info", "plain line");
    EXPECT_TRUE(msgs->isVisible());
    EXPECT_TRUE(find<QAction>("mShowStatus")->isChecked());
    EXPECT_EQ(
        msgs->lines(), (QStringList {"Error: Couldn't parse 'Events' variable", "plain line"}));
    EXPECT_EQ(prompter.beeps(), 2);

    // The menu item toggles the window.
    window->MsgsStatus();
    EXPECT_FALSE(msgs->isVisible());
    EXPECT_FALSE(find<QAction>("mShowStatus")->isChecked());
    trigger("mShowStatus");
    EXPECT_TRUE(msgs->isVisible());

    // A click shows the whole line; Clear empties the window.
    auto* list = msgs->findChild<QListWidget*>("List1");
    ASSERT_NE(list, nullptr);
    prompter.clear();
    Q_EMIT list->itemClicked(list->item(0));
    EXPECT_EQ(prompter.messageTexts(), QStringList {"Error: Couldn't parse 'Events' variable"});
    EXPECT_EQ(prompter.prompts.first().buttons, tarvo::Prompter::Buttons::Ok);

    auto* clear = msgs->findChild<QPushButton*>("Command1");
    ASSERT_NE(clear, nullptr);
    EXPECT_EQ(clear->text(), "Clear");
    clear->click();
    EXPECT_TRUE(msgs->lines().isEmpty());
}

TEST_F(MainWindowTest, BrokenReferenceDuringACheckReachesTheStatusWindow)
{
    // The window's own workspace reports through the prompter; the real
    // program routes those lines into AddStatusLine.
    openFixture();
    workspace->project.events[0].actions[0].Args[0].Value = "&&12$$77\u00a7";
    events()->item(2)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(prompter.statusLines(), QStringList {"Error: Couldn't parse 'Events' variable"})
        << qPrintable(prompter.statusLines().join('|'));
}

TEST_F(MainWindowTest, OpenSourceDirectoryBeepsWithoutAProject)
{
    trigger("mDirectory");
    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_TRUE(opener.opened.isEmpty());
    trigger("mNew");
    trigger("mDirectory");
    EXPECT_EQ(opener.opened, QStringList {workspace->paths.projectsDir() + "Untitled"});
}

TEST_F(MainWindowTest, CompileWithoutANameOnlyBeeps)
{
    trigger("mCompile");
    EXPECT_EQ(prompter.beeps(), 1);
    EXPECT_TRUE(prompter.messageTexts().isEmpty());
    trigger("mNew");
    trigger("mCompile");
    EXPECT_EQ(prompter.messageTexts(), QStringList {"Nothing to compile!"});
    EXPECT_TRUE(find<QAction>("mCompile")->isEnabled());
}

TEST(QtPrompter, FiltersBecomeQtFiltersAndStatusLinesGoToTheSink)
{
    using tarvo::gui::QtPrompter;
    EXPECT_EQ(QtPrompter::qtFilter("Script files|*.vnsc"), "Script files (*.vnsc)");
    EXPECT_EQ(QtPrompter::qtFilter("Wav files|*.wav|All|*.*"), "Wav files (*.wav);;All (*.*)");

    QtPrompter prompter;
    QStringList received;
    prompter.setStatusSink(
        [&](const QString& kind, const QString& text) { received << kind + ":" + text; });
    prompter.addStatusLine("error", "x");
    EXPECT_EQ(received, QStringList {"error:x"});
}
