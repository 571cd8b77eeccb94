#include "model/project.h"
#include "resources/resource_items.h"
#include "scripted_prompter.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

TEST(Sounds, AddKeepsTheBareNameTwiceAndTheFullPath)
{
    Project project;
    EXPECT_EQ(AddSound(project, "/home/ann/wav/Horn.wav"), 0);
    EXPECT_EQ(AddSound(project, "C:\\Sounds\\Horn.wav"), 1);
    EXPECT_EQ(AddSound(project, "/home/ann/wav/Horn.wav"), 2); // duplicates allowed

    ASSERT_EQ(project.soundCount, 3);
    const SoundRecord& first = project.sounds.at(0);
    EXPECT_EQ(first.firstText, "Horn.wav");
    EXPECT_EQ(first.secondText, "/home/ann/wav/Horn.wav");
    EXPECT_EQ(first.thirdText, "Horn.wav");
    EXPECT_EQ(first.id, 0);
    EXPECT_EQ(project.sounds.at(1).firstText, "Horn.wav");
    EXPECT_EQ(project.sounds.at(1).secondText, "C:\\Sounds\\Horn.wav");
    EXPECT_EQ(project.sounds.at(2).id, 2);

    // A cancelled file dialog adds nothing.
    EXPECT_EQ(AddSound(project, QString()), -1);
    EXPECT_EQ(AddSound(project, "/home/ann/"), -1);
    EXPECT_EQ(project.soundCount, 3);
    EXPECT_EQ(project.sounds.size(), 3);
}

TEST(Sounds, IdsFollowTheHighestOrTheCount)
{
    Project project;
    project.sounds = {{"a.wav", {}, -1, {}}, {"b.wav", {}, -1, {}}};
    project.soundCount = 2;
    AddSound(project, "/c.wav");
    EXPECT_EQ(project.sounds.at(2).id, 2); // no ID of 0 or more: the count

    project.sounds[0].id = 9;
    AddSound(project, "/d.wav");
    EXPECT_EQ(project.sounds.at(3).id, 10);
}

TEST(Sounds, AddFillsASpareSlotBehindTheCount)
{
    Project project;
    project.sounds.resize(2); // one valid entry and a spare slot
    project.sounds[0] = {"a.wav", "/a.wav", 0, "a.wav"};
    project.sounds[1].firstText = "stale.wav";
    project.soundCount = 1;

    EXPECT_EQ(AddSound(project, "/b.wav"), 1);
    EXPECT_EQ(project.soundCount, 2);
    EXPECT_EQ(project.sounds.size(), 2);
    EXPECT_EQ(project.sounds.at(1).firstText, "b.wav");
    EXPECT_EQ(project.sounds.at(1).id, 1);
}

TEST(Messages, EmptyTextsAndNoSelectionBeepAndUpdateKeepsTheId)
{
    Project project;
    ScriptedPrompter prompter;
    EXPECT_EQ(AddMessage(project, prompter, QString()), -1);
    EXPECT_EQ(project.messageCount, 0);
    ASSERT_EQ(AddMessage(project, prompter, "Reinforcements arrive"), 0);
    EXPECT_FALSE(UpdateMessage(project, prompter, 0, QString()));
    EXPECT_EQ(project.messages.at(0).text, "Reinforcements arrive");
    EXPECT_EQ(prompter.beeps(), 2);
    EXPECT_EQ(prompter.prompts.size(), 2);
    EXPECT_FALSE(UpdateMessage(project, prompter, -1, "none selected"));
    EXPECT_EQ(prompter.beeps(), 3);

    prompter.clear();
    AddMessage(project, prompter, "two");
    project.messages[1].id = 7;
    EXPECT_TRUE(UpdateMessage(project, prompter, 1, "deux"));
    EXPECT_EQ(project.messages.at(1).text, "deux");
    EXPECT_EQ(project.messages.at(1).id, 7);
    EXPECT_EQ(project.messages.at(0).text, "Reinforcements arrive");
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

} // namespace
