#include "editing/timer_list.h"
#include "model/workspace.h"
#include "scripted_prompter.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

Project projectWithTimers(const QStringList& names)
{
    Project project;
    for (const QString& name : names) {
        TimerRecord t;
        t.name = name;
        t.id = qint16(project.timerCount + 10);
        project.timers.append(t);
        ++project.timerCount;
    }
    return project;
}

QStringList timerNames(const Project& project)
{
    QStringList names;
    for (int i = 0; i < project.timerCount; ++i)
        names.append(project.timers.at(i).name);
    return names;
}

} // namespace

// Deleting copies each later timer one place forward but stops one short,
// so the follower of the deleted one shows twice until the list is filled.
TEST(DeleteTimer, LaterTimersMoveUpOneShortAndTheLastIsDropped)
{
    const struct
    {
        QStringList before;
        int index;
        QStringList after;
    } cases[] = {
        {{"A", "B", "C"}, 0, {"B", "B"}},
        {{"A", "B", "C", "D"}, 1, {"A", "C", "C"}},
        {{"A", "B"}, 1, {"A"}},
        {{"A"}, 0, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(qPrintable(c.before.join(',')));
        Project project = projectWithTimers(c.before);
        DeleteTimer(project, c.index);
        EXPECT_EQ(project.timerCount, c.after.size());
        EXPECT_EQ(project.timers.size(), c.after.size());
        EXPECT_EQ(timerNames(project), c.after);
        EXPECT_EQ(project.tables[13].ItemCount, c.after.size());
    }
    Project project = projectWithTimers({"A", "B", "C"});
    DeleteTimer(project, 0);
    EXPECT_EQ(project.timers[0].id, 11);
    EXPECT_EQ(project.tables[13].Texts, (QStringList {"B", "B"}));
}

TEST(RenameTimer, CancelSaysSoAndAnAnswerBecomesNameAndListText)
{
    Project project = projectWithTimers({"Tick"});
    ScriptedPrompter prompter;
    prompter.inputs = {QString(), "Every minute"};
    EXPECT_FALSE(renameTimer(project, 0, prompter));
    EXPECT_EQ(project.timers[0].name, "Tick");
    ASSERT_EQ(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].text, "Please enter the title for the current timer.");
    EXPECT_EQ(prompter.prompts[0].title, "Title");
    EXPECT_EQ(prompter.prompts[0].defaultText, "Tick");
    EXPECT_EQ(prompter.prompts[1].text, "Cancelled. No changes were made.");
    EXPECT_EQ(prompter.prompts[1].icon, Prompter::Icon::Information);

    EXPECT_TRUE(renameTimer(project, 0, prompter));
    EXPECT_EQ(project.timers[0].name, "Every minute");
    EXPECT_EQ(project.tables[13].Texts, (QStringList {"Every minute"}));
    EXPECT_EQ(prompter.prompts.size(), 3);
}
