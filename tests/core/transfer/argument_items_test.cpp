// "New..." in an argument box: which lists offer it, what each asks, the
// item it makes and the text the box then shows, and that it is one step.
#include "catalogue/trigger_tables.h"
#include "document/project_document.h"
#include "project_builder.h"
#include "test_paths.h"
#include "transfer/argument_items.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct Row
{
    const char* name;
    int row;
    QStringList inputs; // answers of the input boxes and file dialogs
    bool eventSlotBusy = false;
    int position = -1; // expected; -1: nothing made
    QString text; // what the box shows
    QString prompts; // what was asked, in order
};

const Row kRows[] = {
    {"message", row::Messages, {"Reinforcements arrive"}, false, 1, "Reinforcements arrive",
        "input: The text of the new message:"},
    {"message_cancelled", row::Messages, {""}, false, -1, "",
        "input: The text of the new message:"},
    {"sound", row::Sounds, {"/sounds/alarm.wav"}, false, 0, "alarm.wav", "file: Open wav file..."},
    {"sound_cancelled", row::Sounds, {""}, false, -1, "", "file: Open wav file..."},
    {"number", row::Integers, {"waves"}, false, 5, "waves", "input: Ener new name"},
    {"group", row::Groups, {"strike force"}, false, 0, "strike force", "input: Ener new name"},
    {"timer", row::Timers, {"Wave clock"}, false, 1, "Wave clock",
        "message: This project has a timer already, and a project file keeps one timer only: "
        "Save will ask what to do with the others. Make another timer?\n"
        "input: Please enter the title for the current timer."},
    {"timer_cancelled", row::Timers, {""}, false, -1, "",
        "message: This project has a timer already, and a project file keeps one timer only: "
        "Save will ask what to do with the others. Make another timer?\n"
        "input: Please enter the title for the current timer.\n"
        "message: Cancelled. No changes were made."},
    {"event", row::Events, {"Second wave"}, false, 1, "Second wave",
        "input: Please enter the title for the current event."},
    {"event_while_a_new_event_is_made", row::Events, {"Second wave"}, true, 1, "Second wave",
        "input: Please enter the title for the current event."},
    {"event_while_a_new_event_is_made_cancelled", row::Events, {""}, true, -1, "",
        "input: Please enter the title for the current event."},
    {"flags_come_from_the_catalogue", row::Flags, {}, false, -1, "", ""},
};

class MakeItemRows : public testing::TestWithParam<Row>
{
};

TEST_P(MakeItemRows, asksAsItsDialogAndMakesTheItem)
{
    const Row& row = GetParam();
    ProjectBuilder b(sourceProgramDir());
    b.addMessage("Hello");
    b.addEvent("First");
    b.addTimer("Clock");
    b.prompter.inputs = row.inputs;
    b.prompter.fileNames = row.inputs;
    if (row.eventSlotBusy) { // the wizard's new event, behind the counted ones
        EventRecord beingMade;
        beingMade.name = "Being made";
        b.project().events.append(beingMade);
    }
    const QByteArray before = b.bytes();

    const MadeItem made = b.document.edit(
        "New Item", [&] { return makeArgumentItem(b.document, row.row, row.eventSlotBusy); });
    EXPECT_EQ(made.position, row.position);
    EXPECT_EQ(made.text, row.text);
    EXPECT_EQ(canMakeItemFor(row.row), row.row != row::Flags);
    QStringList asked;
    for (const ScriptedPrompter::Prompt& prompt : b.prompter.prompts) {
        if (prompt.kind == ScriptedPrompter::Prompt::Kind::Input)
            asked << "input: " + prompt.text;
        else if (prompt.kind == ScriptedPrompter::Prompt::Kind::OpenFile)
            asked << "file: " + prompt.text;
        else if (prompt.kind == ScriptedPrompter::Prompt::Kind::Message)
            asked << "message: " + prompt.text;
    }
    EXPECT_EQ(asked.join("\n"), row.prompts);
    if (row.eventSlotBusy) {
        EXPECT_EQ(b.project().events.value(b.project().eventCount).name, "Being made");
    }
    if (made.position < 0) {
        EXPECT_EQ(b.bytes(), before);
        return;
    }
    // The row names the item by the text the box shows.
    EXPECT_EQ(b.project().tables[size_t(row.row)].Texts.value(made.position), row.text);
    if (row.row == row::Events) {
        const EventRecord& event = b.project().events.at(made.position);
        EXPECT_EQ(triggerKind(event.triggerKind).caption, "Inactive");
        EXPECT_EQ(event.actionCount, 0);
        EXPECT_TRUE(event.disabled);
        if (row.eventSlotBusy) {
            EXPECT_EQ(b.project().events.value(made.position + 1).name, "Being made");
        }
    }
    if (row.row == row::Timers) {
        EXPECT_EQ(b.project().timerListLines.value(made.position), row.text);
        EXPECT_EQ(
            triggerKind(b.project().timers.at(made.position).triggerKind).caption, "Inactive");
    }
    b.document.undo();
    EXPECT_EQ(b.bytes(), before);
}

INSTANTIATE_TEST_SUITE_P(ArgumentItems, MakeItemRows, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

struct TargetRow
{
    const char* name;
    int row;
    QString text;
    QString expected; // the place as the tools describe it; empty: none
};

const TargetRow kTargets[] = {
    {"event", row::Events, "Second", "event 'Second'"},
    {"timer", row::Timers, "Clock", "timer 'Clock'"},
    {"message", row::Messages, "Hello", "message 1"},
    {"flag", row::Flags, "base ready", "flag 'base ready'"},
    {"number", row::Integers, "waves", "number 'waves'"},
    {"typed_text_names_nothing", row::Events, "Secon", ""},
    {"exact_text_only", row::Timers, "clock", ""},
    {"list_of_the_catalogue", 3, "Player 1", ""},
    {"no_list", -1, "First", ""},
};

class TargetRows : public testing::TestWithParam<TargetRow>
{
};

TEST_P(TargetRows, namesTheItemTheBoxShows)
{
    const TargetRow& row = GetParam();
    ProjectBuilder b(sourceProgramDir());
    b.addMessage("Hello");
    b.addEvent("First");
    b.addEvent("Second");
    b.addTimer("Clock");
    b.addItem(row::Flags, "base ready", 0);
    b.addItem(row::Integers, "waves", 5);
    const std::optional<ProjectPlace> place = argumentTarget(b.project(), row.row, row.text);
    EXPECT_EQ(place ? describePlace(b.project(), *place) : QString(), row.expected);
}

TEST(ScriptNames, nameTheItemThePreviewShows)
{
    ProjectBuilder b(sourceProgramDir());
    b.addEvent("First");
    b.addEvent("Second");
    b.addTimer("Clock");
    b.prompter.inputs << "strike force";
    b.document.edit("New Item", [&] { return makeArgumentItem(b.document, row::Groups, false); });
    const auto described = [&](const QString& word) {
        const std::optional<ProjectPlace> place = scriptNameTarget(b.project(), word);
        return place ? describePlace(b.project(), *place) : QString();
    };
    EXPECT_EQ(described("event1"), "event 'Second'");
    EXPECT_EQ(described("Timer0"), "timer 'Clock'");
    EXPECT_EQ(described("Group[0]"), "group 'strike force'");
    EXPECT_EQ(described("event7"), "");
    EXPECT_EQ(described("showConsoleText"), "");
}

INSTANTIATE_TEST_SUITE_P(ArgumentItems, TargetRows, testing::ValuesIn(kTargets),
    [](const testing::TestParamInfo<TargetRow>& info) { return std::string(info.param.name); });

} // namespace
