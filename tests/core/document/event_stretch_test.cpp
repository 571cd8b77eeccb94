// Edits that name the stretch of events they change keep only those records
// for the history: each list command must give the very step, change and
// undo that an edit comparing the whole project gives, spare records behind
// the count included, and a failing one must leave no trace.
#include "editing/event_list.h"
#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/project_file.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct Command
{
    const char* name;
    std::function<EventStretch(const Project&)> stretch;
    std::function<void(Workspace&, ScriptedPrompter&)> step;
};

const Command kCommands[] = {
    {"tick off the first", [](const Project&) { return oneEventStretch(0); },
        [](Workspace& w, ScriptedPrompter&) { setEventTicked(w, 0, false, "Start"); }},
    {"rename the last", [](const Project& p) { return oneEventStretch(p.eventCount - 1); },
        [](Workspace& w, ScriptedPrompter& p) {
            p.inputs = {"Renamed"};
            renameEvent(w.project, w.project.eventCount - 1, p);
        }},
    {"move the first down", [](const Project&) { return moveStretch(0, 1); },
        [](Workspace& w, ScriptedPrompter&) { moveEvent(w.project, 0, 1); }},
    {"move the last up", [](const Project& p) { return moveStretch(p.eventCount - 1, -1); },
        [](Workspace& w, ScriptedPrompter&) {
            moveEvent(w.project, w.project.eventCount - 1, -1);
        }},
    {"move the last down", [](const Project& p) { return moveStretch(p.eventCount - 1, 1); },
        [](Workspace& w, ScriptedPrompter&) { moveEvent(w.project, w.project.eventCount - 1, 1); }},
    {"copy the second", [](const Project& p) { return copyStretch(p); },
        [](Workspace& w, ScriptedPrompter&) { copyEventCommand(w, 1); }},
    {"delete the first", [](const Project& p) { return deleteStretch(p, 0); },
        [](Workspace& w, ScriptedPrompter&) { DeleteEvent(w.project, 0); }},
    {"delete the second", [](const Project& p) { return deleteStretch(p, 1); },
        [](Workspace& w, ScriptedPrompter&) { DeleteEvent(w.project, 1); }},
    {"delete the last", [](const Project& p) { return deleteStretch(p, p.eventCount - 1); },
        [](Workspace& w, ScriptedPrompter&) { DeleteEvent(w.project, w.project.eventCount - 1); }},
};

struct Side
{
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    ProjectDocument document {workspace};
    QList<ProjectChange> changes;

    explicit Side(bool spareRecords)
    {
        EXPECT_TRUE(openProjectFile(document, sampleDir() + "/Demo.vnsc"));
        QObject::connect(&document, &ProjectDocument::changed,
            [this](const ProjectChange& change) { changes.append(change); });
        if (spareRecords) {
            // Records behind the count, as a wizard leaves them.
            workspace.project.events.append(workspace.project.events.first());
            workspace.project.events.append(EventRecord {});
        }
    }
    QByteArray bytes() const
    {
        const Project& p = workspace.project;
        QByteArray state = projectFileBytes(p) + QByteArray::number(p.events.size());
        for (const EventRecord& event : p.events)
            state += event.name.toUtf8() + (event.disabled ? "-" : "+");
        for (const QString& text : p.tables[row::Events].Texts)
            state += text.toUtf8() + '|';
        return state;
    }
};

void expectSameChange(const ProjectChange& a, const ProjectChange& b, const char* name)
{
    EXPECT_EQ(a.eventLines.offset, b.eventLines.offset) << name;
    EXPECT_EQ(a.eventLines.removed, b.eventLines.removed) << name;
    EXPECT_EQ(a.eventLines.inserted, b.eventLines.inserted) << name;
    EXPECT_EQ(a.events, b.events) << name;
    EXPECT_EQ(a.rows, b.rows) << name;
    EXPECT_EQ(a.fromHistory, b.fromHistory) << name;
}

} // namespace

TEST(EventStretch, ListCommandsGiveTheStepsOfAWholeComparison)
{
    for (const bool spare : {false, true}) {
        for (const Command& command : kCommands) {
            Side whole(spare);
            Side stretched(spare);
            const QString label = QString::fromLatin1(command.name);
            whole.document.edit(label, [&] { command.step(whole.workspace, whole.prompter); });
            stretched.document.editEvents(label, command.stretch(stretched.workspace.project),
                [&] { command.step(stretched.workspace, stretched.prompter); });
            EXPECT_EQ(stretched.bytes(), whole.bytes()) << command.name;
            for (Side* side : {&whole, &stretched}) {
                side->document.undo();
                side->document.redo();
                side->document.undo();
            }
            EXPECT_EQ(stretched.bytes(), whole.bytes()) << command.name;
            ASSERT_EQ(stretched.changes.size(), whole.changes.size()) << command.name;
            for (qsizetype i = 0; i < whole.changes.size(); ++i)
                expectSameChange(stretched.changes.at(i), whole.changes.at(i), command.name);
            EXPECT_EQ(stretched.document.redoLabel(), whole.document.redoLabel()) << command.name;
        }
    }
}

TEST(EventStretch, AFailingStepLeavesNoTrace)
{
    for (const bool spare : {false, true}) {
        Side side(spare);
        const QByteArray before = side.bytes();
        EXPECT_THROW(side.document.editEvents(QStringLiteral("Broken"),
                         deleteStretch(side.workspace.project, 0),
                         [&] {
                             DeleteEvent(side.workspace.project, 0);
                             DeleteEvent(side.workspace.project, 99);
                         }),
            DataError);
        EXPECT_EQ(side.bytes(), before);
        EXPECT_FALSE(side.document.canUndo());
    }
}
