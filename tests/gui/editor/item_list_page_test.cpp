// The wizard's condition and action lists follow the document: a change made
// anywhere shows on the open event's lines, the selection stays where the
// user left it, and a change of another event leaves the lines alone.
#include "document/project_document.h"
#include "editing/action_ops.h"
#include "editing/event_items.h"
#include "main/main_window.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "wizard/event_wizard.h"
#include "wizard/item_list_page.h"

#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

// The lines of a list as "title" or "-title" (unticked), joined by "|".
QString linesOf(const QListWidget* list)
{
    QStringList lines;
    for (int i = 0; i < list->count(); ++i) {
        const QListWidgetItem* item = list->item(i);
        lines.append((item->checkState() == Qt::Checked ? "" : "-") + item->text());
    }
    return lines.join(u'|');
}

struct ListCase
{
    const char* name;
    const char* list;
    std::function<void(Project&)> edit;
    const char* lines;
    int currentRow;
};

// The sample's event 1 ("Check base") is open, line 1 of each list selected.
const ListCase kCases[] = {
    {"AnActionSwitchedOff", "List4",
        [](Project& p) { setItemActive(p.events[1], KindOf::Action, 2, false); },
        "Set flag|Add to number|-Show message|Set counter", 1},
    {"ActionsSwapped", "List4", [](Project& p) { MoveActionDown(p.events[1], 2); },
        "Set flag|Add to number|Set counter|Show message", 1},
    {"AConditionCopied", "List2", [](Project& p) { copyItem(p.events[1], KindOf::Condition, 0); },
        "Number of structures|Flag is set|Number of structures", 1},
    {"AnActionDeleted", "List4", [](Project& p) { deleteItem(p.events[1], KindOf::Action, 0); },
        "Add to number|Show message|Set counter", 0},
    {"AnotherEvent", "List4", [](Project& p) { deleteItem(p.events[2], KindOf::Action, 0); },
        "Set flag|Add to number|Show message|Set counter", 1},
};

} // namespace

TEST(ItemListPageTest, ListsFollowTheDocumentAndItsHistory)
{
    QTemporaryDir dir;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir.path());
    QFile::copy(sampleDir() + "/Demo.vnsc", dir.filePath("Demo.vnsc"));
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    gui::MainWindow window {workspace};
    ASSERT_TRUE(window.openProjectFile(dir.filePath("Demo.vnsc")));
    ProjectDocument& document = window.document();

    for (const ListCase& row : kCases) {
        SCOPED_TRACE(row.name);
        window.wizard()->editEvent(1);
        auto* list = window.findChild<QListWidget*>(row.list);
        ASSERT_NE(list, nullptr);
        list->setCurrentRow(1);
        const QString before = linesOf(list);
        document.edit("Test", [&] { row.edit(workspace.project); });
        EXPECT_EQ(linesOf(list), QString::fromLatin1(row.lines));
        EXPECT_EQ(list->currentRow(), row.currentRow);
        // Cancel keeps an edited event's lists as one step; its undo shows
        // on a page still showing the event.
        window.findChild<QPushButton*>("Command23")->click();
        auto* page = qobject_cast<gui::ItemListPage*>(list->parentWidget()->parentWidget());
        ASSERT_NE(page, nullptr);
        page->loadEvent(1);
        document.undo();
        EXPECT_EQ(linesOf(list), before);
        page->loadEvent(-1);
    }
}
