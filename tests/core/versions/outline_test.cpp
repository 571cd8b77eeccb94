// The outline's promise to git: an event's block depends on that event only.
#include "document/project_file.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "versions/project_outline.h"

#include <gtest/gtest.h>

using namespace tarvo;

TEST(Outline, AnEventsBlockStaysWhenAnotherEventChanges)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    LoadProject(workspace, sampleDir() + QStringLiteral("/Demo.vnsc"));
    Project& project = workspace.project;
    const QString before = eventOutline(project, project.events.at(3));
    ASSERT_TRUE(projectOutline(project).contains(before));

    // Another event changed, removed and one added before it.
    project.events[1].name = QStringLiteral("Renamed");
    project.events[0].actions[0].comment = QStringLiteral("Changed");
    project.events.insert(0, project.events.at(2));
    project.events[0].id = 9;
    ++project.eventCount;
    const QString outline = projectOutline(project);
    EXPECT_EQ(eventOutline(project, project.events.at(4)), before);
    EXPECT_TRUE(outline.contains(u'\n' + before));
}
