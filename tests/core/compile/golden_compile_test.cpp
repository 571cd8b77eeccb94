// Whole compiles of the golden cases, compared byte for byte with outputs
// worked out by hand: the worked example of the script format, and a project
// that touches every section (public and private rows, the five fixed
// integers, timers, disabled events, all condition and action forms,
// continuation markers, sounds, messages with quotes, win/lose messages).
#include "compile_fixture.h"

using namespace tarvo;
using namespace compile_test;

namespace {

void expectTreeMatches(const QString& goldenCase, const QString& root)
{
    const QString expected = ProgramFolder::caseDir(goldenCase) + QStringLiteral("/expected");
    for (const QString& file : filesBelow(expected)) {
        SCOPED_TRACE(file.toStdString());
        EXPECT_EQ(readBytes(root + u'/' + file), readBytes(expected + u'/' + file));
    }
}

TEST(GoldenCompile, WorkedExampleComesOutLineForLine)
{
    ProgramFolder folder("worked_example");
    LoadedWorkspace loaded(folder, "Example.vnsc");
    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());

    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    EXPECT_TRUE(outcome.warnings.isEmpty()) << outcome.warnings.join(u'\n').toStdString();
    expectTreeMatches("worked_example", folder.root("Example"));
    // No sounds, no messages, no game-over messages: only the script files
    // and the stats list.
    EXPECT_EQ(filesBelow(folder.root("Example")),
        QStringList({"script/data/Example.vlo", "script/text/Example.slo", "vnr/Stats.vnr"}));
    EXPECT_EQ(loaded.prompter.messageTexts(), QStringList {"Done."});
    EXPECT_EQ(loaded.prompter.prompts.last().icon, Prompter::Icon::Information);
}

TEST(GoldenCompile, FullProjectWritesEveryFileOfTheTree)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());

    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    const QString root = folder.root("Full");
    expectTreeMatches("full", root);
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/boom.wav")), tinyWav(6, 'a'));
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/Wind.WAV")), tinyWav(9, 'k'));
    EXPECT_EQ(filesBelow(root).size(), 9);
    // The action of an unknown form is reported, not silently repeated.
    ASSERT_EQ(outcome.warnings.size(), 1);
    EXPECT_TRUE(outcome.warnings[0].contains("unknown form 3"));
}

TEST(GoldenCompile, CompilingTwiceLeavesTheSameTreeAndKeepsRootFiles)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QString root = folder.root("Full");
    const QStringList first = filesBelow(root);

    // Leftovers in the cleaned folders go; files in the root itself stay.
    writeBytes(root + QStringLiteral("/vnr/Old.vnr"), "stale");
    writeBytes(root + QStringLiteral("/audio/Extra/gone.wav"), "stale");
    writeBytes(root + QStringLiteral("/script/text/Old.slo"), "stale");
    writeBytes(root + QStringLiteral("/notes.txt"), "mine");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());

    QStringList second = filesBelow(root);
    EXPECT_TRUE(second.removeOne("notes.txt"));
    EXPECT_EQ(second, first);
    EXPECT_EQ(readBytes(root + QStringLiteral("/notes.txt")), "mine");
    expectTreeMatches("full", root);

    // Without sounds or messages their files and folders are gone.
    loaded.workspace.project.soundCount = 0;
    loaded.workspace.project.messageCount = 0;
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/audio")));
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/vnr/audio.vnr")));
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/vnr/Cam1.vnr")));
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/messages/strings")));
    // The briefing still goes with the game-over messages.
    EXPECT_TRUE(QFileInfo::exists(root + QStringLiteral("/messages/brief1-1.txt")));
}

} // namespace
