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

TEST(DeleteTimer, FirstOfThreeLeavesTheFollowerTwice)
{
    Project project = projectWithTimers({"A", "B", "C"});
    DeleteTimer(project, 0);
    EXPECT_EQ(project.timerCount, 2);
    EXPECT_EQ(timerNames(project), (QStringList {"B", "B"}));
    EXPECT_EQ(project.timers[0].id, 11);
    EXPECT_EQ(project.tables[13].Texts, (QStringList {"B", "B"}));
}

TEST(DeleteTimer, MiddleOfFourKeepsTheLaterOnesAndDropsTheLast)
{
    Project project = projectWithTimers({"A", "B", "C", "D"});
    DeleteTimer(project, 1);
    EXPECT_EQ(timerNames(project), (QStringList {"A", "C", "C"}));
}

TEST(DeleteTimer, LastAndOnlyTimerAreAPlainRemoval)
{
    Project project = projectWithTimers({"A", "B"});
    DeleteTimer(project, 1);
    EXPECT_EQ(timerNames(project), (QStringList {"A"}));
    DeleteTimer(project, 0);
    EXPECT_EQ(project.timerCount, 0);
    EXPECT_TRUE(project.timers.isEmpty());
    EXPECT_EQ(project.tables[13].ItemCount, 0);
}

TEST(RenameTimer, CancelSaysSoAndKeepsTheName)
{
    Project project = projectWithTimers({"Tick"});
    ScriptedPrompter prompter;
    prompter.inputs = {QString()};
    EXPECT_FALSE(renameTimer(project, 0, prompter));
    EXPECT_EQ(project.timers[0].name, "Tick");
    ASSERT_EQ(prompter.prompts.size(), 2);
    EXPECT_EQ(prompter.prompts[0].text, "Please enter the title for the current timer.");
    EXPECT_EQ(prompter.prompts[0].title, "Title");
    EXPECT_EQ(prompter.prompts[0].defaultText, "Tick");
    EXPECT_EQ(prompter.prompts[1].text, "Cancelled. No changes were made.");
    EXPECT_EQ(prompter.prompts[1].icon, Prompter::Icon::Information);
}

TEST(RenameTimer, AnswerBecomesTheNameAndTheListText)
{
    Project project = projectWithTimers({"Tick"});
    ScriptedPrompter prompter;
    prompter.inputs = {"Every minute"};
    EXPECT_TRUE(renameTimer(project, 0, prompter));
    EXPECT_EQ(project.timers[0].name, "Every minute");
    EXPECT_EQ(project.tables[13].Texts, (QStringList {"Every minute"}));
    EXPECT_EQ(prompter.messageTexts(), QStringList());
}
