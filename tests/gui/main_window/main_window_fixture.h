#pragma once

#include "main/main_page.h"
#include "main/main_window.h"
#include "model/recovery_store.h"
#include "model/workspace.h"
#include "scripted_prompter.h"
#include "shell/folder_opener.h"
#include "shell/start_up.h"
#include "shell/status_window.h"
#include "test_paths.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

class RecordingFolderOpener : public tarvo::gui::FolderOpener
{
public:
    QStringList opened;
    void openFolder(const QString& path) override { opened.append(path); }
};

// A main window over a program folder of its own (the small test catalogues,
// copied so the tests can make project folders below it), answering through
// a ScriptedPrompter.
class MainWindowTest : public ::testing::Test
{
protected:
    static QString fixtureDir() { return testDataDir() + "/gui/main_window"; }

    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char name[] = "gui_main_window_tests";
        static char* argv[] = {name, nullptr};
        if (!QApplication::instance())
            new QApplication(argc, argv);
        // Recovery copies and settings go to a test folder, never the user's.
        QStandardPaths::setTestModeEnabled(true);
        QDir(tarvo::RecoveryStore::defaultFolder()).removeRecursively();
    }

    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        programDir = dir.path() + "/program";
        QDir().mkpath(programDir);
        for (const char* file : {"temp.txt", "temp2.txt"})
            ASSERT_TRUE(QFile::copy(fixtureDir() + "/program/" + file, programDir + "/" + file));
        workspace = std::make_unique<tarvo::Workspace>(programDir, prompter);
        ASSERT_EQ(tarvo::gui::startUpWorkspace(*workspace), QString());
        window = std::make_unique<tarvo::gui::MainWindow>(*workspace, &opener);
    }

    void TearDown() override
    {
        // Whatever the test left, closing must not wait for an answer.
        workspace->project.name.clear();
        window.reset();
    }

    template <typename T> T* find(const char* name) const
    {
        T* widget = window->findChild<T*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    // Controls of the main page only (other pages reuse some names).
    template <typename T> T* page(const char* name) const
    {
        T* widget = window->mainPage()->findChild<T*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    QListWidget* events() const { return page<QListWidget>("List1"); }
    QListWidget* timers() const { return page<QListWidget>("List5"); }
    void click(const char* button) const { page<QPushButton>(button)->click(); }
    void trigger(const char* action) const { find<QAction>(action)->trigger(); }
    QString panel(int n) const
    {
        const QByteArray name = "StatusBar1_Panel" + QByteArray::number(n);
        return find<QLabel>(name.constData())->text();
    }

    QStringList lines(QListWidget* list) const
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }
    QList<bool> ticks() const
    {
        QList<bool> result;
        for (int i = 0; i < events()->count(); ++i)
            result.append(events()->item(i)->checkState() == Qt::Checked);
        return result;
    }

    // Opens a copy of a fixture project through File > Open.
    QString openFixture(const QString& name = "Fixture.vnsc")
    {
        const QString path = dir.path() + "/" + name;
        QFile::remove(path);
        EXPECT_TRUE(QFile::copy(fixtureDir() + "/" + name, path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        prompter.fileNames.append(path);
        trigger("mOpen");
        return path;
    }

    QTemporaryDir dir;
    QString programDir;
    ScriptedPrompter prompter;
    RecordingFolderOpener opener;
    std::unique_ptr<tarvo::Workspace> workspace;
    std::unique_ptr<tarvo::gui::MainWindow> window;
};
