// Copy and paste of events between projects: what a clip holds, how a paste
// matches, makes and renumbers what the events name, and what it refuses.
// Each row pastes the same clip into a differently prepared project; its
// golden file (tests/data/transfer/ROW.txt) holds the report and the whole
// project outline afterwards.
#include "base/file_error.h"
#include "case_files.h"
#include "catalogue/project_lists.h"
#include "compile/script_preview.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "project_builder.h"
#include "resources/resource_items.h"
#include "test_paths.h"
#include "transfer/event_paste.h"
#include "variables/variable_operations.h"
#include "versions/project_outline.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

QString ref(int row, int id)
{
    return QStringLiteral("&&%1$$%2\u00a7").arg(row).arg(id);
}

int newNumber(ProjectBuilder& b, const QString& name)
{
    b.prompter.inputs << name;
    return NewNumber(b.project(), b.prompter);
}

// Three events; the first two are copied. "Start" shows a message, plays a
// sound, sets a number, switches "Later" on through a timer and "Elsewhere"
// off; "Later" shows another message and plays a sound that is gone.
void fillSource(ProjectBuilder& b)
{
    Project& p = b.project();
    b.addMessage("Welcome");
    b.addMessage("Alarm");
    AddSound(p, "/sounds/siren.wav");
    refreshSoundRow(p);
    const int score = newNumber(b, "Score");
    b.addTimer("Tick");
    const int start = b.addEvent("Start");
    const int later = b.addEvent("Later");
    b.addEvent("Elsewhere");
    b.addAction(start, "Show message", {ref(15, 0), ref(1, 0)}).comment = "greet";
    b.addAction(start, "Play sound", {ref(14, 0), ref(1, 0)});
    // Text that only looks like a reference is kept as it is.
    b.addAction(start, "Set number",
        {ref(0, p.tables[0].Ids[score]), "3 + " + ref(0, 0) + " &&30$$1\u00a7"});
    b.addAction(start, "Enable event", {ref(12, p.events[later].id), ref(13, 0)});
    b.addAction(start, "Disable event", {ref(12, 2)});
    b.addAction(later, "Show message", {ref(15, 1), ref(1, 1)});
    b.addAction(later, "Set flag", {ref(17, 0), "TRUE"});
    // A sound deleted since: the reference names nothing.
    b.addAction(later, "Play sound", {ref(14, 9), ref(1, 1)});
    p.events[later].disabled = true;
    p.tables[0].RawCodes[score] = "7";
}

struct Row
{
    const char* name;
    std::function<void(ProjectBuilder&)> prepare;
    int after = -1;
};

const Row kRows[] = {
    // Everything is made anew; the event not copied names nothing.
    {"into_empty_project", [](ProjectBuilder&) {}},
    // Items of the same name are used whatever their IDs; items of other
    // names holding the copied IDs are left alone.
    {"names_matched_ids_clash",
        [](ProjectBuilder& b) {
            b.addMessage("Other");
            b.addMessage("Alarm");
            b.addTimer("Other timer");
            b.addTimer("Tick");
            newNumber(b, "Other number");
            newNumber(b, "Score");
            b.addEvent("First");
            b.addEvent("Second");
            b.addEvent("Elsewhere");
            AddSound(b.project(), "/elsewhere/other.wav");
            AddSound(b.project(), "/elsewhere/siren.wav");
            refreshSoundRow(b.project());
        },
        0},
    // A match at the first place of its list counts like any other.
    {"names_matched_first",
        [](ProjectBuilder& b) {
            b.addMessage("Alarm");
            b.addTimer("Tick");
            newNumber(b, "Score");
            b.addEvent("Elsewhere");
            AddSound(b.project(), "/elsewhere/siren.wav");
            refreshSoundRow(b.project());
        },
        0},
    // A list the catalogue fills keeps the copied ID when no entry has the
    // copied name, and says what that ID names here.
    // With neither, nothing is chosen.
    {"catalogue_entry_renamed",
        [](ProjectBuilder& b) {
            ReferenceList& players = b.project().tables[1];
            players.Texts[1] = "Blue side";
            players.Texts[0] = "Red side";
            players.Ids[0] = 42;
        }},
};

class PasteRows : public testing::TestWithParam<Row>
{
};

TEST_P(PasteRows, matchesMakesAndRenumbers)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    // The clip travels as bytes, as through the clipboard.
    const EventClip clip = readClip(clipBytes(copyEvents(source.project(), {0, 1})));

    ProjectBuilder target(sourceProgramDir());
    GetParam().prepare(target);
    const PasteReport report = pasteEvents(target.workspace, clip, GetParam().after);
    QString text = QStringLiteral("pasted %1 at %2\n").arg(report.count).arg(report.first);
    for (const QString& line : pasteReportLines(report))
        text += line + u'\n';
    text += u'\n' + projectOutline(target.project());
    expectFileHolds(testDataDir() + "/transfer/" + GetParam().name + ".txt", text.toUtf8());
    // What was pasted can be saved and checked like any other event.
    EXPECT_TRUE(unsavableTexts(target.project()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Paste, PasteRows, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

// Into an empty project every item lands where it was, so the script of the
// pasted events is the source's but for the event that was not copied and
// the sound that is gone.
TEST(Paste, thePastedEventsCompileAsTheyDidWhereTheyWereCopied)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    ProjectBuilder target(sourceProgramDir());
    pasteEvents(target.workspace, copyEvents(source.project(), {0, 1}), -1);
    for (int e = 0; e < 2; ++e) {
        const QStringList copied = eventPreviewText(source.project(), e).split(u'\n');
        const QStringList pasted = eventPreviewText(target.project(), e).split(u'\n');
        ASSERT_EQ(copied.size(), pasted.size());
        QStringList differing;
        for (qsizetype i = 0; i < copied.size(); ++i) {
            if (copied.at(i) != pasted.at(i))
                differing << copied.at(i).trimmed() + " / " + pasted.at(i).trimmed();
        }
        EXPECT_EQ(differing.join(u'\n').toStdString(),
            e == 0 ? "setEventTrigger(event2, inactive); / setEventTrigger(-1, inactive);"
                   : "playSound(14$$9\u00a7, 1); / playSound(-1, 1);");
    }
}

TEST(Paste, aKindTheCatalogueLacksRefusesAndChangesNothing)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    const EventClip clip = copyEvents(source.project(), {0, 1});
    ProjectBuilder target(sourceProgramDir());
    target.addEvent("Mine");
    Catalogue& actions = target.workspace.actionCatalogue;
    actions.removeIf([](const CatalogueEntry& e) { return e.Title == "Play sound"; });
    const QByteArray before = target.bytes();
    try {
        pasteEvents(target.workspace, clip, 0);
        FAIL() << "pasted";
    } catch (const DataError& error) {
        EXPECT_EQ(error.sentence(),
            "The catalogue of this project has no action kind 'Play sound' (playSound), which "
            "the copied events use. Nothing was pasted.");
    }
    EXPECT_EQ(target.bytes(), before);
}

TEST(Paste, kindsAreFoundByCallNameAndTitleNotByPlace)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    const EventClip clip = copyEvents(source.project(), {1});
    ProjectBuilder target(sourceProgramDir());
    Catalogue& actions = target.workspace.actionCatalogue;
    actions.move(actions.size() - 1, 0);
    pasteEvents(target.workspace, clip, -1);
    const ActionRecord& action = target.project().events.at(0).actions.at(0);
    EXPECT_EQ(action.Title, "Show message");
    EXPECT_EQ(actions.at(action.Kind).Title, "Show message");
}

TEST(Paste, aFullListOfVariablesRefuses)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    const EventClip clip = copyEvents(source.project(), {0});
    ProjectBuilder target(sourceProgramDir());
    while (target.project().tables[0].ItemCount < kMaxVariables)
        newNumber(target, "n");
    const QByteArray before = target.bytes();
    EXPECT_THROW(pasteEvents(target.workspace, clip, -1), DataError);
    EXPECT_EQ(target.bytes(), before);
}

TEST(Paste, theClipboardTextIsTheOutlineOfTheEvents)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    const QString text = clipText(source.project(), {0, 1});
    EXPECT_EQ(text,
        eventOutline(source.project(), source.project().events[0]) + u'\n'
            + eventOutline(source.project(), source.project().events[1]));
    EXPECT_THROW(readClip("not a clip"), DataError);
}

// The clipboard format is read by other editors, older and newer: its bytes
// change only on purpose.
TEST(Paste, theClipFormatStaysAsItIs)
{
    ProjectBuilder source(sourceProgramDir());
    fillSource(source);
    const QByteArray bytes = clipBytes(copyEvents(source.project(), {0, 1}));
    expectFileHolds(testDataDir() + "/transfer/clip.json", bytes);
    EXPECT_EQ(clipBytes(readClip(bytes)), bytes);
    QByteArray newer = bytes;
    newer.replace("\"version\": 1", "\"version\": 2");
    EXPECT_THROW(readClip(newer), DataError);
}

} // namespace
