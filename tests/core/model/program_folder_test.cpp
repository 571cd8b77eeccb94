// Where the programs find their folder, and the per-user copy of a read-only one.
#include "model/program_folder.h"
#include "program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

enum class Where { Executable, Share, Override, UserCopy };

struct Row
{
    const char* name;
    bool besideExecutable; // catalogues beside the executable, else only in ../share/tarvo
    bool overridden;
    bool readOnly;
    bool copyAllowed;
    Where expected;
};

const Row kRows[] = {
    {"BesideTheExecutable", true, false, false, true, Where::Executable},
    {"InstalledShareFolder", false, false, false, true, Where::Share},
    {"OverrideIsUsedAsGiven", true, true, true, true, Where::Override},
    {"ReadOnlyFolderIsCopiedOnce", false, false, true, true, Where::UserCopy},
    {"HelpOnlyNamesTheCopy", false, false, true, false, Where::UserCopy},
};

const auto kReadOnly = QFileDevice::ReadOwner | QFileDevice::ReadUser;

class ProgramFolderTest : public testing::TestWithParam<Row>
{
protected:
    void SetUp() override
    {
        // The per-user folder must land in this temporary home, never the real one.
        qputenv("HOME", m_home.path().toUtf8());
        qputenv("XDG_DATA_HOME", m_home.filePath(QStringLiteral("data")).toUtf8());
        QCoreApplication::setApplicationName(QStringLiteral("tarvo"));
        m_userDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        ASSERT_TRUE(m_userDir.startsWith(m_home.path()));
        const Row& row = GetParam();
        installFolder(row.besideExecutable ? path(Where::Executable) : path(Where::Share));
    }

    QString path(Where where) const
    {
        const char* dirs[] = {"bin", "share/tarvo", "mine", ""};
        return where == Where::UserCopy ? m_userDir : m_root.filePath(dirs[int(where)]);
    }

    void installFolder(const QString& dir) const
    {
        for (const char* name : {"temp.txt", "temp2.txt", "Source/Compile.bat"}) {
            writeBytes(dir + u'/' + QLatin1String(name), name);
            QFile::setPermissions(dir + u'/' + QLatin1String(name), kReadOnly);
        }
        writeBytes(dir + QStringLiteral("/Source/MakeVNP.exe"), "packer");
        QFile::setPermissions(dir + QStringLiteral("/Source/MakeVNP.exe"),
            kReadOnly | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    }

    ProgramFolder find() const
    {
        const Row& row = GetParam();
        ProgramFolderSearch search {path(Where::Executable),
            row.overridden ? path(Where::Override) : QString(), m_userDir,
            [&row](const QString&) { return !row.readOnly; }, row.copyAllowed};
        return findProgramFolder(search);
    }

    QTemporaryDir m_home;
    QTemporaryDir m_root;
    QString m_userDir;
};

TEST_P(ProgramFolderTest, PicksTheFolderAndCopiesReadOnlyOnes)
{
    const Row& row = GetParam();
    const ProgramFolder found = find();
    EXPECT_EQ(found.path, path(row.expected));
    EXPECT_TRUE(found.note.contains(QDir::toNativeSeparators(found.path)))
        << found.note.toStdString();
    const bool copies = row.expected == Where::UserCopy && row.copyAllowed;
    EXPECT_EQ(found.copied, copies);
    EXPECT_EQ(QFileInfo::exists(m_userDir), copies);
    if (!copies)
        return;

    const QString packer = m_userDir + QStringLiteral("/Source/MakeVNP.exe");
    EXPECT_EQ(readBytes(m_userDir + QStringLiteral("/Source/Compile.bat")), "Source/Compile.bat");
    EXPECT_TRUE(QFile::permissions(packer) & QFileDevice::ExeOwner);
    EXPECT_TRUE(
        QFile::permissions(m_userDir + QStringLiteral("/temp.txt")) & QFileDevice::WriteOwner);

    // An author's edit survives the next start: the copy is used, not made again.
    writeBytes(m_userDir + QStringLiteral("/temp.txt"), "edited");
    const ProgramFolder again = find();
    EXPECT_EQ(again.path, m_userDir);
    EXPECT_FALSE(again.copied);
    EXPECT_EQ(readBytes(m_userDir + QStringLiteral("/temp.txt")), "edited");
}

INSTANTIATE_TEST_SUITE_P(Rows, ProgramFolderTest, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return info.param.name; });

} // namespace
