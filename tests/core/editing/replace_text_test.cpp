// Edit > Replace: which texts it finds, what it makes of them, which it
// refuses, and that applying it is one step of the history.
#include "document/project_document.h"
#include "editing/replace_text.h"
#include "project_builder.h"
#include "test_paths.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

const QString kFlag = QStringLiteral("&&17$$0\u00a7");
const QString kMessage = QStringLiteral("&&15$$0\u00a7");

// A project where "base" sits in every kind of text Replace looks at, in
// an item name a reference shows, and beside references.
void fill(ProjectBuilder& b)
{
    Project& p = b.project();
    p.scriptComment = QStringLiteral("The base script");
    b.addMessage(QStringLiteral("Base under attack"));
    b.addItem(17, QStringLiteral("base ready"), 0);
    const int e = b.addEvent(QStringLiteral("Base alarm"));
    p.events[e].comment = QStringLiteral("database\r\nbases");
    b.addAction(e, QStringLiteral("Show message"), {kMessage, QStringLiteral("&&1$$0\u00a7")})
        .comment
        = QStringLiteral("tell the BASE");
    b.addAction(e, QStringLiteral("Set flag"), {kFlag, QStringLiteral("TRUE")});
    b.addAction(e, QStringLiteral("Add to number"),
        {QStringLiteral("&&0$$0\u00a7"), QStringLiteral("15 base &&15$$0\u00a7 15")});
    b.addAction(e, QStringLiteral("Set mission time"), {QStringLiteral("15")});
    p.timers[b.addTimer(QStringLiteral("base_check"))].comment = QStringLiteral("base timer");
}

QStringList listed(const Project& project, const QList<ReplacePlace>& places)
{
    QStringList lines;
    for (const ReplacePlace& place : places)
        lines << describePlace(project, place.place) + " | " + place.field + " | " + place.before
                + " -> " + place.after + (place.refusal.isEmpty() ? "" : " | " + place.refusal);
    return lines;
}

struct Row
{
    const char* name;
    ReplaceQuery query;
    QStringList expected;
};

const QString kComment = "database\r\nbases";

const Row kRows[] = {
    {"every_kind_of_text_ignoring_case", {"base", "fort"},
        {"script comment | comment | The base script -> The fort script",
            "event 'Base alarm' | name | Base alarm -> fort alarm",
            "event 'Base alarm', comment | comment | " + kComment + " -> datafort\r\nforts",
            "event 'Base alarm', action 1 'Show message' | comment | tell the BASE -> tell the "
            "fort",
            "event 'Base alarm', action 3 'Add to number', argument 'Amount' | argument | "
            "15 base Base under attack 15 -> 15 fort Base under attack 15",
            "timer 'base_check' | name | base_check -> fort_check",
            "timer 'base_check', comment | comment | base timer -> fort timer",
            "message 1 | text | Base under attack -> fort under attack"}},
    {"whole_words_only", {"base", "fort", true},
        {"script comment | comment | The base script -> The fort script",
            "event 'Base alarm' | name | Base alarm -> fort alarm",
            "event 'Base alarm', action 1 'Show message' | comment | tell the BASE -> tell the "
            "fort",
            "event 'Base alarm', action 3 'Add to number', argument 'Amount' | argument | "
            "15 base Base under attack 15 -> 15 fort Base under attack 15",
            "timer 'base_check', comment | comment | base timer -> fort timer",
            "message 1 | text | Base under attack -> fort under attack"}},
    {"matching_case", {"Base", "Fort", false, true},
        {"event 'Base alarm' | name | Base alarm -> Fort alarm",
            "message 1 | text | Base under attack -> Fort under attack"}},
    // The references hold "15" too; only the typed numbers change.
    {"references_stay", {"15", "16"},
        {"event 'Base alarm', action 3 'Add to number', argument 'Amount' | argument | "
         "15 base Base under attack 15 -> 16 base Base under attack 16",
            "event 'Base alarm', action 4 'Set mission time', argument 'Time' | argument | 15 -> "
            "16"}},
    {"field_separator_refused", {"alarm", "a|b"},
        {"event 'Base alarm' | name | Base alarm -> Base a|b | The new text holds the character "
         "\"|\", which separates the fields of a project file."}},
    // Comments keep line breaks; names cannot.
    {"line_breaks_in_comments_only", {"the", "the\n"},
        {"script comment | comment | The base script -> the\n base script",
            "event 'Base alarm', action 1 'Show message' | comment | tell the BASE -> tell the\n "
            "BASE"}},
    {"line_breaks_in_names_refused", {"alarm", "al\r\narm"},
        {"event 'Base alarm' | name | Base alarm -> Base al\r\narm | The new text holds a line "
         "break, which a project file cannot keep there."}},
    {"code_page_refused", {"under", "\u0142"},
        {"message 1 | text | Base under attack -> Base \u0142 attack | The new text holds the "
         "character \"\u0142\" (U+0142), which the Windows-1252 code page cannot hold."}},
    {"empty_name_refused", {"base_check", ""},
        {"timer 'base_check' | name | base_check ->  | The new name would be empty."}},
};

class ReplaceRows : public testing::TestWithParam<Row>
{
};

TEST_P(ReplaceRows, findsThePlacesAndWhatTheyBecome)
{
    ProjectBuilder b(sourceProgramDir());
    fill(b);
    const QStringList lines = listed(b.project(), findReplacePlaces(b.project(), GetParam().query));
    EXPECT_EQ(lines.join("\n").toStdString(), GetParam().expected.join("\n").toStdString());
}

INSTANTIATE_TEST_SUITE_P(Replace, ReplaceRows, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

TEST(Replace, appliesTheChosenPlacesAsOneStepAndKeepsTheRowsInStep)
{
    ProjectBuilder b(sourceProgramDir());
    fill(b);
    const QByteArray before = b.bytes();
    const ReplaceQuery query {"base", "a|b"};
    QList<ProjectPlace> chosen;
    for (const ReplacePlace& place : findReplacePlaces(b.project(), query))
        chosen << place.place;
    // Every place is refused: nothing changes, yet the edit runs.
    EXPECT_EQ(
        b.document.edit("Replace", [&] { return replaceInPlaces(b.project(), query, chosen); }), 0);

    const ReplaceQuery fort {"base", "fort"};
    chosen.clear();
    for (const ReplacePlace& place : findReplacePlaces(b.project(), fort)) {
        if (place.field != "comment")
            chosen << place.place;
    }
    const int undoable = b.document.canUndo() ? 1 : 0;
    EXPECT_EQ(
        b.document.edit("Replace", [&] { return replaceInPlaces(b.project(), fort, chosen); }), 4);
    const Project& p = b.project();
    EXPECT_EQ(p.events[0].name, "fort alarm");
    EXPECT_EQ(p.events[0].comment, kComment);
    EXPECT_EQ(p.tables[12].Texts.value(0), "fort alarm");
    EXPECT_EQ(p.tables[13].Texts.value(0), "fort_check");
    EXPECT_EQ(p.timerListLines.value(0), "fort_check");
    EXPECT_EQ(p.tables[15].Texts.value(0), "fort under attack");
    EXPECT_EQ(p.events[0].actions[1].Args[0].Value, kFlag);
    EXPECT_EQ(b.document.undoLabel(), "Replace");

    b.document.undo();
    EXPECT_EQ(b.bytes(), before);
    EXPECT_EQ(b.document.canUndo() ? 1 : 0, undoable);
}

} // namespace
