#pragma once

#include "model/workspace.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <gtest/gtest.h>

// A project reset with the wizard's own small catalogues: conditions "Flag is
// set" (negatable, one flag), "Units of player in group" (compared, player and
// group), "Always"; actions "Show message" (message, player), "Set flag",
// "Start timer" (timer, event), "Free text". Rows 1 (players) and 0 come from
// the catalogue; the test adds flags and groups as the variables dialog would.
class WizardWorkspaceTest : public ::testing::Test
{
protected:
    ScriptedPrompter prompter;
    tarvo::Workspace workspace {testDataDir() + QStringLiteral("/wizard/program"), prompter};
    tarvo::Project& project = workspace.project;

    void SetUp() override { tarvo::ResetProject(workspace); }

    void addItem(int row, const QString& text, qint16 id, const QString& code)
    {
        tarvo::ReferenceList& list = project.tables[row];
        const qsizetype n = list.ItemCount;
        for (auto* texts : {&list.Texts, &list.Codes, &list.RawCodes})
            texts->resize(std::max(texts->size(), n + 1));
        list.Ids.resize(std::max(list.Ids.size(), n + 1));
        list.Texts[n] = text;
        list.Codes[n] = code;
        list.RawCodes[n] = code;
        list.Ids[n] = id;
        list.ItemCount = static_cast<qint16>(n + 1);
    }

    // An event slot at the end of the events, not yet counted.
    tarvo::EventRecord& newEventSlot(const QString& name)
    {
        project.events.resize(project.eventCount + 1);
        project.events[project.eventCount] = tarvo::EventRecord {};
        project.events[project.eventCount].name = name;
        return project.events[project.eventCount];
    }
};
