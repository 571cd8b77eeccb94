#include "model/file_error.h"
#include "model/project.h"

#include <gtest/gtest.h>

using namespace tarvo;

TEST(ProjectIds, VariableIdsAreTheHighestPlusOne)
{
    Project p;
    EXPECT_EQ(NextVariableID(p, 12), 0);
    ReferenceList& row = p.tables[7];
    row.Ids = {0, 1, 5, 99}; // a spare slot beyond the count is not looked at
    row.ItemCount = 3;
    EXPECT_EQ(NextVariableID(p, 7), 6);
    row.Ids = {0, 1};
    row.ItemCount = 2;
    EXPECT_EQ(NextVariableID(p, 7), 2);
    EXPECT_THROW(NextVariableID(p, 30), DataError);
}

TEST(ProjectIds, SoundAndMessageIds)
{
    Project p;
    EXPECT_EQ(UpperSndID(p), 0);
    p.sounds = {SoundRecord {{}, {}, -1, {}}, SoundRecord {{}, {}, -1, {}}};
    p.soundCount = 2;
    EXPECT_EQ(UpperSndID(p), 2);
    p.sounds[1].id = 7;
    EXPECT_EQ(UpperSndID(p), 8);
    p.messages = {MessageRecord {QStringLiteral("a"), 3}};
    p.messageCount = 1;
    EXPECT_EQ(UpperMsgID(p), 4);
}

TEST(ProjectIds, CommitCommentFollowsTheMode)
{
    Project p;
    p.events.resize(2);
    p.eventCount = 2;
    p.timers.resize(1);
    p.timerCount = 1;
    p.selectedEvent = 1;
    p.selectedTimer = 0;
    p.commentMode = CommentScript;
    CommitComment(p, QStringLiteral("s1\ns2"));
    EXPECT_EQ(p.scriptComment, u"s1\r\ns2");
    p.commentMode = CommentEvent;
    CommitComment(p, QStringLiteral("e"));
    EXPECT_EQ(p.events[1].comment, u"e");
    p.commentMode = CommentTimer;
    CommitComment(p, QStringLiteral("t"));
    EXPECT_EQ(p.timers[0].comment, u"t");
    p.commentMode = CommentNone;
    CommitComment(p, QStringLiteral("lost"));
    EXPECT_EQ(p.scriptComment, u"s1\r\ns2");
}

TEST(ProjectIds, RelativeSoundPathsFollowTheProjectFile)
{
    Project p;
    SoundRecord sound{QStringLiteral("a.wav"), QStringLiteral("sounds/a.wav"), 0,
        QStringLiteral("a.wav")};
    EXPECT_EQ(soundFilePath(p, sound), u"sounds/a.wav");
    p.filePath = QStringLiteral("/work/m/Demo.vnsc");
    EXPECT_EQ(soundFilePath(p, sound), u"/work/m/sounds/a.wav");
    sound.secondText = QStringLiteral("/abs/a.wav");
    EXPECT_EQ(soundFilePath(p, sound), u"/abs/a.wav");
}
