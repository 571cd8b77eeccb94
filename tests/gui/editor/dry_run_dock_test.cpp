// The Dry Run dock's wiring: Script > Dry Run shows it with the scenario
// saved beside the project, Run plays to the end in slices and fills the
// transcript, watch and timeline; Step and Fire now go one moment at a time;
// a double click goes to the event; an edit resets the run with a line
// saying so; "Why not?" answers in a box; the scenario is saved beside the
// project.
#include "main/main_page.h"
#include "main/main_window.h"
#include "document/project_document.h"
#include "scripted_prompter.h"
#include "simulate/dry_run_dock.h"
#include "simulate/timeline_view.h"
#include "simulate/transcript_model.h"
#include "test_paths.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class DryRunDockTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        QFile::copy(sampleDir() + "/Demo.vnsc", m_dir.filePath("Demo.vnsc"));
        QFile::copy(testDataDir() + "/simulate/demo/scenario.txt", m_dir.filePath("Demo.scenario"));
        m_window = std::make_unique<gui::MainWindow>(m_workspace);
        m_window->resize(1400, 900);
        m_window->show();
        ASSERT_TRUE(m_window->openProjectFile(m_dir.filePath("Demo.vnsc")));
        m_window->findChild<QAction*>("mDryRun")->trigger();
    }

    gui::DryRunDock* dock() const { return m_window->dryRunDock(); }
    template <typename T> T* child(const char* name) const
    {
        T* widget = dock()->findChild<T*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QString status() const { return child<QLabel>("dryRunStatus")->text(); }
    QString lastLine() const
    {
        const QAbstractItemModel* lines = child<QListView>("dryRunTranscript")->model();
        return lines->index(lines->rowCount() - 1, 0).data().toString();
    }

    QTemporaryDir m_dir;
    ScriptedPrompter m_prompter;
    Workspace m_workspace {sourceProgramDir(), m_prompter};
    std::unique_ptr<gui::MainWindow> m_window;
};

TEST_F(DryRunDockTest, RunsStepsFiresAndShowsWhatHappened)
{
    ASSERT_TRUE(dock()->isVisible());
    EXPECT_TRUE(child<QPlainTextEdit>("dryRunScenario")->toPlainText().contains("until 900"));
    EXPECT_EQ(child<QComboBox>("dryRunCallbacks")->currentText(), "CALL_TRANSPORTER_LANDED");

    QTest::mouseClick(child<QPushButton>("dryRunStep"), Qt::LeftButton);
    EXPECT_EQ(lastLine(), "0.0 s  sound alarm.wav (by \"Start\")");
    EXPECT_TRUE(status().startsWith("At 0.0 s; next firing at 2.0 s")) << status().toStdString();
    QTest::mouseClick(child<QPushButton>("dryRunFire"), Qt::LeftButton);
    EXPECT_EQ(dock()->run()->histories()[2].firings.size(), 1); // Transport, at 0.0 s

    QTest::mouseClick(child<QPushButton>("dryRunRun"), Qt::LeftButton);
    dock()->finishPending();
    EXPECT_EQ(lastLine(), "90.0 s  stopped: the end time was reached");
    EXPECT_TRUE(status().startsWith("Finished at 90.0 s")) << status().toStdString();
    EXPECT_FALSE(child<QPushButton>("dryRunRun")->isEnabled());
    EXPECT_EQ(dock()->timeline()->rows(), (QList<int> {0, 1, 2, 3, 4}));
    auto* watch = child<QTableWidget>("dryRunWatch");
    ASSERT_GT(watch->rowCount(), 2);
    EXPECT_EQ(watch->item(0, 0)->text(), "Score (integ[0])");
    EXPECT_EQ(watch->item(0, 1)->text(), "10");
    EXPECT_EQ(watch->item(0, 3)->text(), "Check base");

    // The filter keeps the lines that name what the author typed.
    auto* transcript = child<QListView>("dryRunTranscript");
    child<QLineEdit>("dryRunFilter")->setText("Score");
    ASSERT_EQ(transcript->model()->rowCount(), 1);
    const QModelIndex line = transcript->model()->index(0, 0);
    EXPECT_EQ(line.data().toString(), "30.0 s  Score 0 → 10 (by \"Check base\")");
    Q_EMIT transcript->activated(line);
    EXPECT_EQ(m_window->mainPage()->currentEvent(), 1);
    EXPECT_TRUE(m_prompter.prompts.isEmpty());
}

TEST_F(DryRunDockTest, AnEditResetsTheRunAndWhyNotAnswers)
{
    QTest::mouseClick(child<QPushButton>("dryRunRun"), Qt::LeftButton);
    dock()->finishPending();
    ASSERT_NE(dock()->run(), nullptr);

    m_window->mainPage()->selectEvent(6); // Reinforcements
    m_window->findChild<QAction*>("mWhyNot")->trigger();
    ASSERT_EQ(m_prompter.prompts.size(), 1);
    EXPECT_EQ(m_prompter.prompts.front().title, "Why not?");
    EXPECT_TRUE(m_prompter.prompts.front().text.contains(
        "\"Transport\" could switch it on, but it fired once and never ran its actions"))
        << m_prompter.prompts.front().text.toStdString();

    // Victory switched off, as a click on its tick does.
    QListWidget* events = m_window->mainPage()->findChild<QListWidget*>("List1");
    events->item(4)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(dock()->run(), nullptr);
    EXPECT_TRUE(status().startsWith("The project changed: the run was reset"));
    // The next run plays the project as it is now: Victory is not in it.
    QTest::mouseClick(child<QPushButton>("dryRunRun"), Qt::LeftButton);
    dock()->finishPending();
    EXPECT_TRUE(dock()->run()->histories()[4].firings.isEmpty());

    child<QPlainTextEdit>("dryRunScenario")->setPlainText("until 50\n");
    EXPECT_EQ(dock()->run(), nullptr);
    QTest::mouseClick(child<QPushButton>("dryRunSave"), Qt::LeftButton);
    QFile saved(m_dir.filePath("Demo.scenario"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), "until 50\n");

    child<QPlainTextEdit>("dryRunScenario")->setPlainText("at soon fire CALL_X\n");
    QTest::mouseClick(child<QPushButton>("dryRunRun"), Qt::LeftButton);
    EXPECT_EQ(dock()->run(), nullptr);
    EXPECT_TRUE(status().startsWith("Demo.scenario:1: expected")) << status().toStdString();
}

} // namespace
