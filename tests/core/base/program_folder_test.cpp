// Where the programs find their folder, and the per-user copy of a read-only one.
#include "base/program_folder.h"
#include "program_folder.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct Row
{
    const char* name;
    const char* installedIn; // below the temporary root: "bin" or "share/tarvo"
    bool overridden; // --program-dir "mine"
    bool readOnly;
    bool copyAllowed;
    const char* expected; // below the root, or "" for the per-user folder
};

const Row kRows[] = {
    {"BesideTheExecutable", "bin", false, false, true, "bin"},
    {"InstalledShareFolder", "share/tarvo", false, false, true, "share/tarvo"},
    {"OverrideIsUsedAsGiven", "bin", true, true, true, "mine"},
    {"ReadOnlyFolderIsCopiedOnce", "share/tarvo", false, true, true, ""},
    {"HelpOnlyNamesTheCopyOfAPortableFolder", "bin", false, true, false, ""},
};

using ProgramFolderTest = testing::TestWithParam<Row>;

TEST_P(ProgramFolderTest, PicksTheFolderAndCopiesReadOnlyOnes)
{
    const Row& row = GetParam();
    QTemporaryDir root;
    const QString user = root.filePath("home/tarvo"); // the per-user folder

    for (const char* name : {"temp.txt", "temp2.txt", "Source/MakeVNP.exe"}) {
        const QString file = root.filePath(QLatin1String(row.installedIn) + '/' + name);
        writeBytes(file, name);
        QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ExeOwner); // no writer
    }
    const ProgramFolderSearch search {root.filePath("bin"),
        row.overridden ? root.filePath("mine") : "", user,
        [&row](const QString&) { return !row.readOnly; }, row.copyAllowed};

    const ProgramFolder found = findProgramFolder(search);
    EXPECT_EQ(found.path, *row.expected ? root.filePath(QLatin1String(row.expected)) : user);
    EXPECT_TRUE(found.note.contains(QDir::toNativeSeparators(found.path)))
        << found.note.toStdString();
    const bool copies = !*row.expected && row.copyAllowed;
    EXPECT_EQ(found.copied, copies);
    EXPECT_EQ(QFileInfo::exists(user), copies);
    if (!copies)
        return;
    EXPECT_TRUE(QFile::permissions(user + "/Source/MakeVNP.exe") & QFileDevice::ExeOwner);
    EXPECT_TRUE(QFile::permissions(user + "/temp.txt") & QFileDevice::WriteOwner);

    // A copy that stopped before the catalogues is finished on the next start.
    QFile::remove(user + "/temp.txt");
    EXPECT_TRUE(findProgramFolder(search).copied);
    // An author's edit survives the next start: the copy is used, not made again.
    writeBytes(user + "/temp.txt", "edited");
    const ProgramFolder again = findProgramFolder(search);
    EXPECT_TRUE(again.path == user && !again.copied) << again.note.toStdString();
    EXPECT_EQ(readBytes(user + "/temp.txt"), "edited");
}

// The real probe, which the table replaces: a folder that is not there
// takes no files, whoever asks.
TEST(ProgramFolder, AFolderThatIsNotThereCannotBeWritten)
{
    QTemporaryDir root;
    EXPECT_TRUE(canCreateFilesIn(root.path()));
    EXPECT_FALSE(canCreateFilesIn(root.filePath("missing")));
    EXPECT_EQ(QDir(root.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList {}); // the probe leaves nothing behind
}

INSTANTIATE_TEST_SUITE_P(Rows, ProgramFolderTest, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return info.param.name; });

} // namespace
