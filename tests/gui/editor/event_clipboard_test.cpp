// Edit > Copy and Edit > Paste of events between two editors through the
// system clipboard, and the same keys left to the text boxes.
#include "main/main_page.h"
#include "main/main_window.h"
#include "document/project_document.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "tools/place_list_dock.h"
#include "transfer/event_clip.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct Editor
{
    explicit Editor(const QString& project)
    {
        window.show();
        EXPECT_TRUE(window.openProjectFile(project));
    }
    QListWidget* events() { return window.findChild<QListWidget*>("List1"); }

    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    gui::MainWindow window {workspace};
};

class EventClipboardTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_dir.path());
        QFile::copy(sampleDir() + "/Demo.vnsc", m_dir.filePath("Demo.vnsc"));
        QFile::copy(testDataDir() + "/gui/projects/Fixture.vnsc", m_dir.filePath("Fixture.vnsc"));
        QApplication::clipboard()->clear();
    }

    QTemporaryDir m_dir;
};

TEST_F(EventClipboardTest, CopiesFromOneEditorAndPastesIntoAnother)
{
    Editor source(m_dir.filePath("Demo.vnsc"));
    Editor target(m_dir.filePath("Fixture.vnsc"));

    source.window.mainPage()->selectEvent(0);
    source.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&source.window));
    source.events()->setFocus();
    QTest::keyClick(source.events(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_TRUE(data->hasFormat(kEventClipMimeType));
    EXPECT_TRUE(data->text().startsWith("event 'Start'")) << data->text().toStdString();

    target.window.mainPage()->selectEvent(0);
    target.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&target.window));
    target.events()->setFocus();
    QTest::keyClick(target.events(), Qt::Key_V, Qt::ControlModifier);
    const Project& pasted = target.workspace.project;
    ASSERT_EQ(pasted.eventCount, 4);
    EXPECT_EQ(pasted.events.at(1).name, "Start");
    EXPECT_EQ(target.events()->item(1)->text(), "Start");
    EXPECT_EQ(target.window.mainPage()->currentEvent(), 1);
    gui::PlaceListDock* results = target.window.resultsDock();
    EXPECT_TRUE(results->isVisible());
    EXPECT_TRUE(results->findChild<QLabel*>()->text().startsWith("Paste: 1 event, "))
        << results->findChild<QLabel*>()->text().toStdString();
    EXPECT_EQ(target.window.document().undoLabel(), "Paste Events");
    EXPECT_TRUE(target.prompter.prompts.isEmpty());

    target.window.document().undo();
    EXPECT_EQ(target.workspace.project.eventCount, 3);
}

TEST_F(EventClipboardTest, TextBoxesKeepTheirOwnCopyAndPaste)
{
    Editor editor(m_dir.filePath("Fixture.vnsc"));
    editor.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor.window));
    auto* box = editor.window.findChild<QPlainTextEdit*>("TxtMaintDescription");
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasFormat(kEventClipMimeType));
    EXPECT_EQ(QApplication::clipboard()->text(), box->toPlainText());

    QApplication::clipboard()->setText("pasted");
    QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(box->toPlainText().endsWith("pasted"));
    EXPECT_EQ(editor.workspace.project.eventCount, 3);

    // Paste with no events on the clipboard says so and changes nothing.
    editor.events()->setFocus();
    QTest::keyClick(editor.events(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor.prompter.messageTexts(),
        QStringList {"The clipboard holds no events copied by this editor."});
    EXPECT_EQ(editor.workspace.project.eventCount, 3);
}

} // namespace
