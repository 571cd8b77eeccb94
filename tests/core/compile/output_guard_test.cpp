// Hostile project files: names and sound names that would carry the compile
// out of its output root, and links planted in or as the root. The compile
// must refuse before touching the disk, or clean without following a link,
// and a file planted outside must survive untouched.
#include "compile/output_guard.h"
#include "compile_fixture.h"

using namespace tarvo;
using namespace compile_test;

namespace {

struct HostileFolder : ProgramFolder
{
    HostileFolder()
        : ProgramFolder("full")
    {
        writeBytes(outside() + QStringLiteral("/keep.txt"), "precious");
        writeBytes(outside() + QStringLiteral("/vnr/keep.vnr"), "precious");
    }

    // A folder beside Projects that nothing may touch.
    QString outside() const { return dir() + QStringLiteral("/escape"); }

    void expectOutsideUntouched() const
    {
        EXPECT_EQ(filesBelow(outside()), QStringList({"keep.txt", "vnr/keep.vnr"}));
        EXPECT_EQ(readBytes(outside() + QStringLiteral("/keep.txt")), "precious");
        EXPECT_EQ(readBytes(outside() + QStringLiteral("/vnr/keep.vnr")), "precious");
    }
};

class HostileProjectName : public testing::TestWithParam<const char*>
{
};

TEST_P(HostileProjectName, IsRefusedBeforeAnythingIsWritten)
{
    HostileFolder folder;
    LoadedWorkspace loaded(folder, "Full.vnsc");
    const QString name = QString::fromUtf8(GetParam());
    loaded.workspace.project.name = name;

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
    EXPECT_FALSE(outcome.touchedDisk);
    EXPECT_TRUE(outcome.message.contains(u'"' + name + u'"')) << outcome.message.toStdString();
    EXPECT_EQ(loaded.prompter.messageTexts(), QStringList {outcome.message});
    EXPECT_FALSE(QFileInfo::exists(folder.projects()));
    folder.expectOutsideUntouched();
    EXPECT_FALSE(QFileInfo::exists("/tmp/tarvo-escape"));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileProjectName,
    testing::Values("../escape", "..", ".", "/tmp/tarvo-escape", "a/b", "..\\escape", "C:\\escape",
        "C:escape"));

class HostileSoundName : public testing::TestWithParam<const char*>
{
};

TEST_P(HostileSoundName, IsRefusedAndTheOldTreeStays)
{
    HostileFolder folder;
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QString root = folder.root("Full");
    const QStringList before = filesBelow(root);

    const QString name = QString::fromUtf8(GetParam());
    loaded.workspace.project.tables[row::Sounds].Texts[1] = name;
    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
    EXPECT_FALSE(outcome.touchedDisk);
    EXPECT_TRUE(outcome.message.contains(u'"' + name + u'"')) << outcome.message.toStdString();
    EXPECT_EQ(filesBelow(root), before);
    folder.expectOutsideUntouched();
}

INSTANTIATE_TEST_SUITE_P(Names, HostileSoundName,
    testing::Values(
        "../../../escape/keep.txt", "/tmp/x.wav", "..\\x.wav", "sub/x.wav", "C:x.wav", ".."));

TEST(OutputGuard, MessageTextsAreNotPathsAndMayHoldAnything)
{
    HostileFolder folder;
    LoadedWorkspace loaded(folder, "Full.vnsc");
    loaded.workspace.project.tables[row::Messages].Texts[0] = "../../C:\\x/y";
    EXPECT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    EXPECT_TRUE(readBytes(folder.root("Full") + QStringLiteral("/messages/strings/GenStrings.txt"))
                    .contains("msg0\t\t\t\t\"../../C:\\x/y\""));
}

TEST(OutputGuard, ARootThatLinksOutsideTheProjectsFolderIsRefused)
{
    HostileFolder folder;
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(QDir().mkpath(folder.projects()));
    ASSERT_TRUE(QFile::link(folder.outside(), folder.root("Full")));

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    EXPECT_EQ(outcome.status, CompileOutcome::Status::Failed);
    EXPECT_FALSE(outcome.touchedDisk);
    folder.expectOutsideUntouched();
}

TEST(OutputGuard, CleaningRemovesLinksInsideTheRootWithoutFollowingThem)
{
    HostileFolder folder;
    LoadedWorkspace loaded(folder, "Full.vnsc");
    const QString root = folder.root("Full");
    ASSERT_TRUE(QDir().mkpath(root + QStringLiteral("/audio/Extra")));
    ASSERT_TRUE(QDir().mkpath(root + QStringLiteral("/messages")));
    // A listed folder that is a link, a parent folder that is a link, and
    // links to outside files in the places of files.
    ASSERT_TRUE(
        QFile::link(folder.outside() + QStringLiteral("/vnr"), root + QStringLiteral("/vnr")));
    ASSERT_TRUE(QFile::link(folder.outside(), root + QStringLiteral("/script")));
    ASSERT_TRUE(QFile::link(folder.outside(), root + QStringLiteral("/messages/strings")));
    ASSERT_TRUE(QFile::link(folder.outside() + QStringLiteral("/keep.txt"),
        root + QStringLiteral("/audio/Extra/boom.wav")));
    ASSERT_TRUE(QFile::link(
        folder.outside() + QStringLiteral("/keep.txt"), root + QStringLiteral("/Compile.bat")));

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    folder.expectOutsideUntouched();
    for (const char* dir : {"vnr", "script", "messages/strings", "audio/Extra"}) {
        const QFileInfo info(root + u'/' + QLatin1String(dir));
        EXPECT_TRUE(info.isDir() && !info.isSymLink()) << dir;
    }
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/boom.wav")), tinyWav(6, 'a'));
    EXPECT_TRUE(QFileInfo(root + QStringLiteral("/Compile.bat")).isSymLink());
}

TEST(OutputGuard, SubfoldersInsideCleanedFoldersAreKeptAndReported)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    const QString root = folder.root("Full");
    writeBytes(root + QStringLiteral("/vnr/mine/notes.txt"), "mine");
    writeBytes(root + QStringLiteral("/vnr/old.vnr"), "old");

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    ASSERT_TRUE(outcome.done());
    EXPECT_EQ(readBytes(root + QStringLiteral("/vnr/mine/notes.txt")), "mine");
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/vnr/old.vnr")));
    ASSERT_EQ(outcome.warnings.size(), 2); // the unknown action form, the kept folder
    EXPECT_TRUE(outcome.warnings.join(u'\n').contains("was kept"));
}

TEST(OutputGuard, PlainNames)
{
    EXPECT_EQ(plainNameProblem("Mission 1.wav"), QString());
    EXPECT_EQ(plainNameProblem("a..b"), QString());
    for (const char* bad : {"", ".", "..", "a/b", "a\\b", "C:", "/x"})
        EXPECT_NE(plainNameProblem(QString::fromUtf8(bad)), QString()) << bad;
    for (const char16_t c : {u'\0', u'\t', u'\r', u'\n', u'\x7f'}) {
        const QString name = QStringLiteral("a") + QChar(c) + QStringLiteral("b");
        EXPECT_TRUE(plainNameProblem(name).contains("control character")) << int(c);
    }
    // Shown in a form that survives printing.
    EXPECT_EQ(plainNameProblem(QStringLiteral("a") + QChar(u'\0')),
        "it holds the control character <U+0000>");
}

} // namespace
