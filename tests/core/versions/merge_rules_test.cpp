// Merge rules that the file cases do not reach: repeated IDs, IDs of -1, a
// clash beside a free ID, and the timer trap after a renumbering.
#include "catalogue/reference_markers.h"
#include "project_builder.h"
#include "test_paths.h"
#include "versions/project_merge.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

QStringList eventsOf(const Project& project)
{
    QStringList events;
    for (int e = 0; e < project.eventCount; ++e)
        events
            << QStringLiteral("%1:%2").arg(project.events.at(e).name).arg(project.events.at(e).id);
    return events;
}

struct Sides
{
    Sides()
    {
        base.addEvent(QStringLiteral("A"), false, 0);
        base.addEvent(QStringLiteral("B"), false, 1);
    }
    // Ours and theirs start as copies of the base.
    void fork()
    {
        ours.project() = base.project();
        theirs.project() = base.project();
    }
    MergeOutcome merge() const
    {
        return mergeProjects(
            base.workspace.project, ours.workspace.project, theirs.workspace.project);
    }
    ProjectBuilder base {sourceProgramDir()};
    ProjectBuilder ours {sourceProgramDir()};
    ProjectBuilder theirs {sourceProgramDir()};
};

TEST(MergeRules, RecordsWithARepeatedIdAreMatchedInTheirOrder)
{
    Sides sides;
    sides.base.addEvent(QStringLiteral("C"), false, 1);
    sides.fork();
    sides.ours.project().events[1].name = QStringLiteral("B2"); // the first with ID 1
    sides.theirs.project().events[2].comment = QStringLiteral("note"); // the second
    const MergeOutcome outcome = sides.merge();
    EXPECT_TRUE(outcome.conflicts.isEmpty()) << outcome.conflicts.join(u'\n').toStdString();
    EXPECT_EQ(eventsOf(outcome.merged), QStringList({"A:0", "B2:1", "C:1"}));
    EXPECT_EQ(outcome.merged.events.at(2).comment, QStringLiteral("note"));
}

// Theirs adds 6 (ours has 6 too) and 7 (free), and refers to both: only the
// clashing one moves, to the ID after every other one of the merged list.
TEST(MergeRules, OnlyClashingIdsMoveAndTheirReferencesFollow)
{
    Sides sides;
    sides.fork();
    sides.ours.addEvent(QStringLiteral("Ours"), false, 6);
    sides.theirs.addEvent(QStringLiteral("Six"), false, 6);
    sides.theirs.addEvent(QStringLiteral("Seven"), false, 7);
    const QString both = encodedReference(row::Events, QStringLiteral("6"))
        + encodedReference(row::Events, QStringLiteral("7"));
    sides.theirs.addAction(2, QStringLiteral("Enable event"), {both});
    const MergeOutcome outcome = sides.merge();
    EXPECT_EQ(eventsOf(outcome.merged), QStringList({"A:0", "B:1", "Ours:6", "Six:8", "Seven:7"}));
    EXPECT_EQ(outcome.merged.events.at(3).actions.at(0).Args.at(0).Value,
        encodedReference(row::Events, QStringLiteral("8"))
            + encodedReference(row::Events, QStringLiteral("7")));
    EXPECT_EQ(outcome.notes, QStringList({"theirs' event 'Six' takes ID 8: ours added ID 6 too"}));
}

// While no sound has an ID of 0 or more, a new one takes the count.
TEST(MergeRules, SoundsWithoutIdsTakeTheCount)
{
    Sides sides;
    SoundRecord sound {
        QStringLiteral("a.wav"), QStringLiteral("a.wav"), -1, QStringLiteral("a.wav")};
    sides.base.project().sounds = {sound, sound};
    sides.base.project().soundCount = 2;
    sides.fork();
    sound.firstText = QStringLiteral("ours.wav");
    sides.ours.project().sounds.append(sound);
    sides.ours.project().soundCount = 3;
    sound.firstText = QStringLiteral("theirs.wav");
    sides.theirs.project().sounds.append(sound);
    sides.theirs.project().soundCount = 3;
    const MergeOutcome outcome = sides.merge();
    ASSERT_EQ(outcome.merged.soundCount, 4);
    EXPECT_EQ(outcome.merged.sounds.at(2).id, -1);
    EXPECT_EQ(outcome.merged.sounds.at(3).firstText, QStringLiteral("theirs.wav"));
    EXPECT_EQ(outcome.merged.sounds.at(3).id, 3);
}

// Two new timers under one ID: theirs' would be renumbered, but a project
// file holds one timer, so ours' stays alone and nothing speaks of the other.
TEST(MergeRules, TheTimerTrapKeepsOursWithoutARenumbering)
{
    Sides sides;
    sides.fork();
    sides.ours.addTimer(QStringLiteral("Ours"), 0);
    sides.theirs.addTimer(QStringLiteral("Theirs"), 0);
    sides.theirs.addEvent(QStringLiteral("C"), false, 2);
    const MergeOutcome outcome = sides.merge();
    ASSERT_EQ(outcome.merged.timerCount, 1);
    EXPECT_EQ(outcome.merged.timers.at(0).name, QStringLiteral("Ours"));
    EXPECT_EQ(outcome.merged.timerListLines, QStringList({"Ours"}));
    EXPECT_TRUE(outcome.notes.isEmpty());
    ASSERT_EQ(outcome.conflicts.size(), 1);
    EXPECT_TRUE(outcome.conflicts.first().startsWith("conflict: timers: "));
    EXPECT_EQ(eventsOf(outcome.merged), QStringList({"A:0", "B:1", "C:2"}));
}

} // namespace
