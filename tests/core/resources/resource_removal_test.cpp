#include "catalogue/reference_markers.h"
#include "model/file_error.h"
#include "model/workspace.h"
#include "resources/resource_items.h"
#include "resources/resource_removal.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

// Action kinds of the test catalogue.
constexpr int kPlaySound = 0; // Sound (row 14)
constexpr int kShowMessage = 1; // Message (row 15)
constexpr int kTalk = 2; // Message (row 15), Sound (row 14), Group (row 7)

// Sounds and messages are removed by one routine; every case runs for both.
class ResourceRemoval : public ::testing::TestWithParam<int>
{
protected:
    void SetUp() override
    {
        ResetProject(workspace);
        for (const char* name : {"alpha", "beta", "gamma"}) {
            if (row() == row::Sounds)
                AddSound(project(), QStringLiteral("/snd/%1.wav").arg(QLatin1String(name)));
            else
                AddMessage(project(), prompter, QString::fromLatin1(name));
        }
    }

    Project& project() { return workspace.project; }
    int row() const { return GetParam(); }
    qint16 count() { return row() == row::Sounds ? project().soundCount : project().messageCount; }
    qint16 idAt(int position)
    {
        return row() == row::Sounds ? project().sounds.at(position).id
                                    : project().messages.at(position).id;
    }
    QString reference(qint16 id) { return encodedReference(row(), QString::number(id)); }
    QString noun() const { return row() == row::Sounds ? "sound" : "message"; }
    // The argument of the kinds above that offers this test's row.
    int argumentOf(int kind) const
    {
        if (kind == kTalk)
            return row() == row::Sounds ? 1 : 0;
        return 0;
    }

    EventRecord& addEvent(const QString& name)
    {
        EventRecord event;
        event.name = name;
        project().events.append(event);
        project().eventCount = static_cast<qint16>(project().eventCount + 1);
        return project().events.last();
    }

    ActionRecord& addAction(EventRecord& event, int kind)
    {
        ActionRecord action;
        static_cast<CatalogueEntry&>(action) = workspace.actionCatalogue.at(kind);
        action.Kind = static_cast<qint16>(kind);
        event.actions.append(action);
        event.actionCount = static_cast<qint16>(event.actionCount + 1);
        return event.actions.last();
    }

    // An action of a kind that offers this test's row, referring to `id`.
    ActionRecord& addUser(EventRecord& event, qint16 id)
    {
        const int kind = row() == row::Sounds ? kPlaySound : kShowMessage;
        ActionRecord& action = addAction(event, kind);
        action.Args[0].Value = reference(id);
        return action;
    }

    ScriptedPrompter prompter;
    Workspace workspace {testDataDir() + QStringLiteral("/dialogs"), prompter};
};

TEST_P(ResourceRemoval, AnUnusedItemGoesWithoutAQuestion)
{
    EventRecord& event = addEvent("Start");
    addUser(event, idAt(0)); // refers to another item
    prompter.clear();

    const RemovalResult result = RemoveResource(project(), prompter, row(), 1);

    EXPECT_TRUE(result.removed);
    EXPECT_EQ(result.selection, 1);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    ASSERT_EQ(count(), 2);
    EXPECT_EQ(idAt(0), 0);
    EXPECT_EQ(idAt(1), 2);
    EXPECT_EQ(project().events[0].actions[0].Args[0].Value, reference(0));
}

TEST_P(ResourceRemoval, ThreeUsersAreClearedAfterOneQuestion)
{
    const qint16 id = idAt(1);
    EventRecord& first = addEvent("Intro");
    addUser(first, idAt(0));
    ActionRecord& talk = addAction(first, kTalk);
    talk.Title = "Talk to base";
    talk.Args[argumentOf(kTalk)].Value = reference(id);
    talk.Args[2].Value = encodedReference(row::Groups, "1"); // another row, same ID
    EventRecord& second = addEvent("Outro");
    addUser(second, id);
    addUser(second, id);
    prompter.answers = {Prompter::Answer::Yes};

    const RemovalResult result = RemoveResource(project(), prompter, row(), 1);

    ASSERT_EQ(prompter.prompts.size(), 1);
    const ScriptedPrompter::Prompt& question = prompter.prompts.first();
    EXPECT_EQ(question.text,
        QStringLiteral("This ") + noun()
            + QStringLiteral(" is being used by event ('Intro->Talk to base'), are you sure you "
                             "want to delete it?"));
    EXPECT_EQ(question.icon, Prompter::Icon::None);
    EXPECT_EQ(question.buttons, Prompter::Buttons::YesNo);

    EXPECT_TRUE(result.removed);
    EXPECT_EQ(count(), 2);
    const ArgumentRecord& talkArg = project().events[0].actions[1].Args[argumentOf(kTalk)];
    EXPECT_EQ(talkArg.ListRef, -1);
    EXPECT_TRUE(talkArg.Value.isEmpty());
    for (int a = 0; a < 2; ++a) {
        EXPECT_EQ(project().events[1].actions[a].Args[0].ListRef, -1);
        EXPECT_TRUE(project().events[1].actions[a].Args[0].Value.isEmpty());
    }
    // Arguments that name something else are left alone.
    EXPECT_EQ(project().events[0].actions[0].Args[0].Value, reference(0));
    EXPECT_EQ(project().events[0].actions[0].Args[0].ListRef, row());
    EXPECT_EQ(project().events[0].actions[1].Args[2].ListRef, row::Groups);
    EXPECT_FALSE(project().events[0].actions[1].Args[2].Value.isEmpty());
}

TEST_P(ResourceRemoval, NoLeavesEverythingAsItWas)
{
    EventRecord& event = addEvent("Start");
    addUser(event, idAt(2));
    addUser(event, idAt(2));
    prompter.answers = {Prompter::Answer::No};

    const RemovalResult result = RemoveResource(project(), prompter, row(), 2);

    EXPECT_FALSE(result.removed);
    EXPECT_EQ(prompter.count(ScriptedPrompter::Prompt::Kind::Message), 1);
    EXPECT_EQ(count(), 3);
    for (int a = 0; a < 2; ++a) {
        EXPECT_EQ(project().events[0].actions[a].Args[0].Value, reference(2));
        EXPECT_EQ(project().events[0].actions[a].Args[0].ListRef, row());
    }
}

TEST_P(ResourceRemoval, ArgumentsWithoutAReferenceDoNotNameTheFirstItem)
{
    EventRecord& event = addEvent("Start");
    addAction(event, row() == row::Sounds ? kPlaySound : kShowMessage); // empty value
    addAction(event, row() == row::Sounds ? kPlaySound : kShowMessage).Args[0].Value = "-1";
    ASSERT_EQ(idAt(0), 0);

    EXPECT_TRUE(RemoveResource(project(), prompter, row(), 0).removed);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(project().events[0].actions[1].Args[0].Value, "-1");
    EXPECT_EQ(project().events[0].actions[1].Args[0].ListRef, row());
}

TEST_P(ResourceRemoval, LoopsStopAtTheCounts)
{
    EventRecord& event = addEvent("Start");
    addUser(event, idAt(0));
    event.actionCount = 0; // the action lies in a spare slot
    addEvent("Spare");
    addUser(project().events[1], idAt(0));
    project().eventCount = 1;

    EXPECT_TRUE(RemoveResource(project(), prompter, row(), 0).removed);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_EQ(project().events[0].actions[0].Args[0].Value, reference(0));
    EXPECT_EQ(project().events[1].actions[0].Args[0].Value, reference(0));

    // Counts that claim more than a damaged file held stop at what is held.
    project().events[0].actionCount = 5;
    project().eventCount = 2;
    EXPECT_TRUE(RemoveResource(project(), prompter, row(), 1).removed);
}

TEST_P(ResourceRemoval, SelectionStaysInPlaceOrMovesToTheLastLine)
{
    EXPECT_EQ(RemoveResource(project(), prompter, row(), 0).selection, 0);
    EXPECT_EQ(RemoveResource(project(), prompter, row(), 1).selection, 0);
    const RemovalResult last = RemoveResource(project(), prompter, row(), 0);
    EXPECT_TRUE(last.removed);
    EXPECT_EQ(last.selection, -1);
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_P(ResourceRemoval, NoSelectionBeeps)
{
    EXPECT_FALSE(RemoveResource(project(), prompter, row(), -1).removed);
    EXPECT_FALSE(RemoveResource(project(), prompter, row(), 3).removed);
    EXPECT_EQ(prompter.beeps(), 2);
    EXPECT_EQ(count(), 3);
}

TEST_P(ResourceRemoval, RemovingTheHighestIdLetsTheNextItemTakeIt)
{
    ASSERT_TRUE(RemoveResource(project(), prompter, row(), 2).removed);
    const int position = row() == row::Sounds ? AddSound(project(), "/snd/delta.wav")
                                              : AddMessage(project(), prompter, "delta");
    EXPECT_EQ(position, 2);
    EXPECT_EQ(idAt(2), 2);

    // A lower ID is never refilled while a higher one exists.
    ASSERT_TRUE(RemoveResource(project(), prompter, row(), 0).removed);
    const int next = row() == row::Sounds ? AddSound(project(), "/snd/eps.wav")
                                          : AddMessage(project(), prompter, "eps");
    EXPECT_EQ(idAt(next), 3);
}

INSTANTIATE_TEST_SUITE_P(SoundsAndMessages, ResourceRemoval,
    ::testing::Values(row::Sounds, row::Messages), [](const ::testing::TestParamInfo<int>& info) {
        return info.param == row::Sounds ? std::string("Sounds") : std::string("Messages");
    });

TEST(ResourceRemovalRows, OtherRowsAreAProgrammingError)
{
    ScriptedPrompter prompter;
    Project project;
    EXPECT_THROW(RemoveResource(project, prompter, row::Groups, 0), DataError);
}

} // namespace
