// The Mission Map dock's wiring: the View menu shows it, it draws the open
// project, a click selects the event on the main page, a double click opens
// it in the wizard, Ctrl+F finds in the map, focus keeps the neighbourhood,
// it follows edits while shown, and the toolbar exports PNG and SVG through
// the file dialog.
#include "main/main_page.h"
#include "main/main_window.h"
#include "map/map_view.h"
#include "map/mission_map_dock.h"
#include "document/project_document.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "wizard/event_wizard.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QGraphicsItem>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class MissionMapTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        QFile::copy(sampleDir() + "/Demo.vnsc", m_dir.filePath("Demo.vnsc"));
        m_window = std::make_unique<gui::MainWindow>(m_workspace);
        m_window->resize(1400, 800);
        m_window->show();
        ASSERT_TRUE(m_window->openProjectFile(m_dir.filePath("Demo.vnsc")));
        m_window->findChild<QAction*>("mMissionMap")->trigger();
        map()->refreshNow();
    }

    gui::MissionMapDock* map() const { return m_window->findChild<gui::MissionMapDock*>(); }

    // The centre of a node on the screen of the map's view.
    QPoint nodeCentre(const QString& id) const
    {
        gui::MapView* view = map()->view();
        for (QGraphicsItem* item : view->scene()->items())
            if (item->data(0).toString() == id) {
                view->centerOn(item);
                return view->mapFromScene(item->sceneBoundingRect().center());
            }
        ADD_FAILURE() << "no node " << id.toStdString();
        return {};
    }

    QTemporaryDir m_dir;
    ScriptedPrompter m_prompter;
    Workspace m_workspace {sourceProgramDir(), m_prompter};
    std::unique_ptr<gui::MainWindow> m_window;
};

TEST_F(MissionMapTest, ShowsTheProjectAndGoesToTheEventsClicked)
{
    ASSERT_TRUE(map()->isVisible());
    EXPECT_EQ(map()->shownGraph().nodes.size(), 17);
    EXPECT_FALSE(map()->focusMode());

    QTest::mouseClick(map()->view()->viewport(), Qt::LeftButton, {}, nodeCentre("event2"));
    EXPECT_EQ(m_window->mainPage()->currentEvent(), 2);
    EXPECT_FALSE(m_window->wizard()->isRunning() && m_window->wizard()->editedEvent() == 2);
    QTest::mouseDClick(map()->view()->viewport(), Qt::LeftButton, {}, nodeCentre("event4"));
    EXPECT_TRUE(m_window->wizard()->isRunning());
    EXPECT_EQ(m_window->wizard()->editedEvent(), 4);
    EXPECT_TRUE(m_prompter.prompts.isEmpty());
}

TEST_F(MissionMapTest, FindsFocusesFollowsAndExports)
{
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    map()->view()->setFocus();
    QTest::keyClick(map()->view(), Qt::Key_F, Qt::ControlModifier);
    auto* find = map()->findChild<QLineEdit*>("MapFind");
    EXPECT_TRUE(find->hasFocus());
    QTest::keyClicks(find, "reinf");
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_EQ(map()->selectedNode(), "event6");

    m_window->mainPage()->selectEvent(0);
    map()->findChild<QAction*>("MapFocus")->trigger();
    ASSERT_TRUE(map()->focusMode());
    QStringList ids;
    for (const auto& node : map()->shownGraph().nodes)
        ids << node.id;
    // Start, what it switches on and writes, and one step further.
    EXPECT_TRUE(ids.contains("event0") && ids.contains("event1") && ids.contains("flag[0]"));
    EXPECT_FALSE(ids.contains("lose"));
    map()->findChild<QAction*>("MapFocus")->trigger();

    // An edit reaches the map a short while later.
    m_window->document().edit(
        QStringLiteral("rename"), [&] { m_workspace.project.events[3].name = "Last stand"; });
    QTest::qWait(700);
    bool renamed = false;
    for (const auto& node : map()->shownGraph().nodes)
        renamed = renamed || node.name == "Last stand";
    EXPECT_TRUE(renamed);

    m_prompter.fileNames = {m_dir.filePath("map.png"), m_dir.filePath("map")};
    map()->findChild<QAction*>("MapExportPng")->trigger();
    map()->findChild<QAction*>("MapExportSvg")->trigger();
    EXPECT_GT(QFileInfo(m_dir.filePath("map.png")).size(), 1000);
    QFile svg(m_dir.filePath("map.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_TRUE(svg.readAll().contains("Reinforcements"));
}

} // namespace
