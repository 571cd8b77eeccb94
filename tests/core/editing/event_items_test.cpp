// The list operations the condition and action editors share, for either
// list, and the names an action's argument box offers.
#include "base/checked.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "editing/action_ops.h"
#include "editing/event_items.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

class EventItemsTest : public ::testing::Test
{
protected:
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    ProjectDocument document {workspace};

    void SetUp() override { ASSERT_TRUE(openProjectFile(document, sampleDir() + "/Demo.vnsc")); }
    EventRecord& checkBase() { return workspace.project.events[1]; }
    // The lines of a list as "title" or "-title" (switched off), with "#comment".
    QString lines(KindOf which)
    {
        QStringList shown;
        for (int i = 0; i < itemCount(checkBase(), which); ++i) {
            const ItemLine line = itemLine(checkBase(), which, i);
            shown.append((line.active ? "" : "-") + line.title
                + (line.comment.isEmpty() ? "" : "#" + line.comment));
        }
        return shown.join(u'|');
    }
};

struct ItemCase
{
    const char* name;
    KindOf which;
    std::function<void(EventRecord&)> edit;
    const char* lines;
};

const ItemCase kCases[] = {
    {"ConditionsAsShown", KindOf::Condition, [](EventRecord&) {},
        "Number of structures#The factory stands|Flag is set"},
    {"ActionsAsShown", KindOf::Action, [](EventRecord&) {},
        "Set flag#Only once|Add to number|Show message|Set counter"},
    {"SwitchOffTheLastAction", KindOf::Action,
        [](EventRecord& e) { setItemActive(e, KindOf::Action, 3, false); },
        "Set flag#Only once|Add to number|Show message|-Set counter"},
    {"CommentTheLastCondition", KindOf::Condition,
        [](EventRecord& e) { setItemComment(e, KindOf::Condition, 1, "x"); },
        "Number of structures#The factory stands|Flag is set#x"},
    // A copy goes to the end and starts active, whatever the original.
    {"CopyASwitchedOffCondition", KindOf::Condition,
        [](EventRecord& e) {
            setItemActive(e, KindOf::Condition, 0, false);
            EXPECT_EQ(copyItem(e, KindOf::Condition, 0), 2);
        },
        "-Number of structures#The factory stands|Flag is set|Number of structures#The "
        "factory stands"},
    {"DeleteTheFirstAction", KindOf::Action,
        [](EventRecord& e) { deleteItem(e, KindOf::Action, 0); },
        "Add to number|Show message|Set counter"},
    {"DeleteTheLastCondition", KindOf::Condition,
        [](EventRecord& e) { deleteItem(e, KindOf::Condition, 1); },
        "Number of structures#The factory stands"},
};

} // namespace

TEST_F(EventItemsTest, EachListOperationOnEitherList)
{
    const Project start = workspace.project;
    for (const ItemCase& row : kCases) {
        SCOPED_TRACE(row.name);
        workspace.project = start;
        row.edit(checkBase());
        EXPECT_EQ(lines(row.which), QString::fromLatin1(row.lines));
    }
}

TEST_F(EventItemsTest, APendingCommentPassesOverLinesThatAreGone)
{
    storePendingComment(workspace.project, 1, KindOf::Action, 3, "kept");
    EXPECT_EQ(checkBase().actions[3].comment, "kept");
    const QList<EventRecord> before = workspace.project.events;
    for (const auto& [event, line] : {std::pair {1, 4}, {1, -1}, {7, 0}, {-1, 0}}) {
        storePendingComment(workspace.project, event, KindOf::Action, line, "lost");
        storePendingComment(workspace.project, event, KindOf::Condition, line, "lost");
    }
    EXPECT_EQ(workspace.project.events, before);
}

// The events row is the one an editor may find behind the events: the box
// offers the names as they are now, and storing encodes with those.
TEST_F(EventItemsTest, AnActionOffersAndStoresTheEventNamesOfNow)
{
    int kind = -1;
    int slot = -1;
    for (int k = 0; k < workspace.actionCatalogue.size() && kind < 0; ++k) {
        const QList<ArgumentSlot>& args = workspace.actionCatalogue.at(k).Args;
        for (int i = 0; i < args.size() && kind < 0; ++i) {
            if (args.at(i).ListRef == row::Events) {
                kind = k;
                slot = i;
            }
        }
    }
    ASSERT_GE(kind, 0) << "no action kind names an event";
    checkBase().name = "Renamed";
    EXPECT_FALSE(referenceRow(workspace.project.tables, row::Events).Texts.contains("Renamed"));
    EXPECT_TRUE(actionArgumentItems(workspace, kind, slot).contains("Renamed"));
    EXPECT_FALSE(referenceRow(workspace.project.tables, row::Events).Texts.contains("Renamed"))
        << "offering changes nothing";

    QStringList texts(slot + 1);
    texts[slot] = "Renamed";
    StoreAction(workspace, checkBase(), kind, checkBase().actionCount, false, texts);
    EXPECT_TRUE(referenceRow(workspace.project.tables, row::Events).Texts.contains("Renamed"));
    EXPECT_NE(checkBase().actions.last().Args.at(slot).Value, "Renamed")
        << "the name is stored as the reference it names";
}
