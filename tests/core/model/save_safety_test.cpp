// A save that cannot complete must leave the previous file exactly as it was
// and tell the user why. The failures are real ones of the file system where
// the machine allows them: a folder nobody may write to, a full disk, a
// process file-size limit. Tests run as root here, and root writes into
// read-only folders, so the folder is made immutable instead where possible.
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"

#include <QDir>
#include <QFileInfo>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace tarvo;

namespace {

const char* const kConditions = "<c>\n<s>;Count\n<r>;0;1\n<f>;Player;who;0;5\n";
const char* const kActions = "<j>|5|Players|1|player&&0|INT\n<g>|5|0:P1|1:P2|\n"
                             "<c>\n<s>;Say\n<r>;none\n<f>;Text;what;0;15;1\n<i>|2|say(&&0);|\n";

const QByteArray kOldFile = "<gl>|Previous\r\n<scm>|the work of yesterday\r\n<sn>|0\r\n";

// A project worth saving, a folder holding its previous file, and checks
// that a failed save changed neither.
struct Fixture
{
    Fixture()
        : program(QString::fromUtf8(kConditions), QString::fromUtf8(kActions))
        , workspace(program.path(), prompter)
    {
        ResetProject(workspace);
        Project& project = workspace.project;
        project.name = QStringLiteral("Current");
        project.scriptComment = QStringLiteral("line one\r\nline two");
        for (int i = 0; i < 200; ++i) {
            project.messages.append(
                {QStringLiteral("Message number %1 of the campaign").arg(i), qint16(i)});
        }
        project.messageCount = 200;
        folder = program.file(QStringLiteral("projects"));
        QDir().mkpath(folder);
        target = folder + QStringLiteral("/mission.vnsc");
        writeBytes(target, kOldFile);
        project.filePath = target;
        project.hasFile = true;
    }

    // Saves and returns the error the user would see.
    QString failedSave()
    {
        try {
            SaveProject(workspace.project, target);
        } catch (const FileError& error) {
            return error.message();
        }
        ADD_FAILURE() << "the save did not fail";
        return {};
    }

    void expectPreviousFileKept() const
    {
        EXPECT_EQ(readBytes(target), kOldFile);
        // No half-written or temporary file beside it either.
        EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System),
            QStringList {QStringLiteral("mission.vnsc")});
    }

    TestProgramFolder program;
    ScriptedPrompter prompter;
    Workspace workspace;
    QString folder;
    QString target;
};

} // namespace

TEST(SaveSafety, UnencodableTextAnywhereKeepsThePreviousFile)
{
    struct Case
    {
        const char* where;
        std::function<void(Project&)> spoil;
    };
    const QString polish = QStringLiteral("Łódź");
    const Case cases[] = {
        {"the project name", [&](Project& p) { p.name = polish; }},
        {"the script comment",
            [&](Project& p) { p.scriptComment += QStringLiteral("\r\n") + polish; }},
        {"the text of message 199", [&](Project& p) { p.messages[199].text = polish; }},
        {"list row 5",
            [&](Project& p) {
                p.tables[5].Saved = true;
                p.tables[5].Texts[1] = polish;
            }},
    };
    for (const Case& c : cases) {
        Fixture f;
        c.spoil(f.workspace.project);
        const QString message = f.failedSave();
        SCOPED_TRACE(message.toStdString());
        EXPECT_TRUE(message.startsWith(f.target + u':'));
        EXPECT_TRUE(message.contains(QLatin1String(c.where)));
        EXPECT_TRUE(message.contains(QStringLiteral("\"Ł\" (U+0141)")));
        f.expectPreviousFileKept();
    }
}

TEST(SaveSafety, TargetThatIsAFolderIsLeftAlone)
{
    Fixture f;
    QFile::remove(f.target);
    QDir().mkpath(f.target);
    writeBytes(f.target + QStringLiteral("/inside.txt"), "keep me");
    const QString message = f.failedSave();
    EXPECT_TRUE(message.contains(QLatin1String("not saved"))) << message.toStdString();
    EXPECT_TRUE(QFileInfo(f.target).isDir());
    EXPECT_EQ(readBytes(f.target + QStringLiteral("/inside.txt")), QByteArray("keep me"));
}

TEST(SaveSafety, FailedSaveDoesNotMoveTheProjectToTheNewPath)
{
    Fixture f;
    const QString elsewhere = f.program.file(QStringLiteral("not-a-folder"));
    writeBytes(elsewhere, "x");
    EXPECT_THROW(
        SaveProject(f.workspace.project, elsewhere + QStringLiteral("/new.vnsc")), FileError);
    EXPECT_EQ(f.workspace.project.filePath, f.target);
    f.expectPreviousFileKept();
}

#ifdef Q_OS_LINUX

namespace {

// Sets or clears the immutable attribute of a folder: then nobody, root
// included, may create, rename or remove anything in it.
bool setImmutable(const QString& path, bool on)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return false;
    int flags = 0;
    bool done = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (done) {
        flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        done = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    ::close(fd);
    return done;
}

} // namespace

TEST(SaveSafety, FolderNobodyMayWriteToKeepsThePreviousFile)
{
    Fixture f;
    const bool root = ::geteuid() == 0;
    if (root) {
        if (!setImmutable(f.folder, true))
            GTEST_SKIP() << "running as root on a file system without the immutable attribute";
    } else {
        ASSERT_EQ(::chmod(QFile::encodeName(f.folder).constData(), 0555), 0);
    }
    const QString message = f.failedSave();
    if (root)
        setImmutable(f.folder, false);
    else
        ::chmod(QFile::encodeName(f.folder).constData(), 0755);

    EXPECT_TRUE(message.startsWith(f.target + QStringLiteral(": not saved: ")))
        << message.toStdString();
    EXPECT_GT(message.size(), (f.target + QStringLiteral(": not saved: ")).size());
    f.expectPreviousFileKept();
}

TEST(SaveSafety, FullDiskKeepsThePreviousFile)
{
    Fixture f;
    // A tiny file system of its own, filled up by the previous file and a
    // filler, so that the new file cannot be written completely.
    const QString disk = f.program.file(QStringLiteral("disk"));
    QDir().mkpath(disk);
    if (::mount("tmpfs", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=16k") != 0)
        GTEST_SKIP() << "cannot mount a small file system here: " << std::strerror(errno);
    struct Unmount
    {
        QByteArray path;
        ~Unmount() { ::umount2(path.constData(), MNT_DETACH); }
    } unmount {QFile::encodeName(disk)};

    f.folder = disk;
    f.target = disk + QStringLiteral("/mission.vnsc");
    writeBytes(f.target, kOldFile);
    writeBytes(disk + QStringLiteral("/filler"), QByteArray(8 * 1024, 'f'));
    ASSERT_GT(projectFileBytes(f.workspace.project).size(), 8 * 1024);

    const QString message = f.failedSave();
    EXPECT_TRUE(message.startsWith(f.target + QStringLiteral(": not saved: ")))
        << message.toStdString();
    EXPECT_EQ(readBytes(f.target), kOldFile);
    EXPECT_EQ(QDir(disk).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST(SaveSafety, FileSizeLimitKeepsThePreviousFileAndALaterSaveWorks)
{
    Fixture f;
    const QByteArray full = projectFileBytes(f.workspace.project);
    rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    // Past the limit a write fails with EFBIG instead of the default signal.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = before;
    small.rlim_cur = rlim_t(full.size() / 2);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    QString message;
    try {
        SaveProject(f.workspace.project, f.target);
    } catch (const FileError& error) {
        message = error.message();
    }
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldHandler);

    ASSERT_FALSE(message.isEmpty()) << "the save did not fail";
    EXPECT_TRUE(message.startsWith(f.target + QStringLiteral(": not saved: ")))
        << message.toStdString();
    EXPECT_TRUE(message.contains(QStringLiteral("of %1 bytes").arg(full.size())))
        << message.toStdString();
    f.expectPreviousFileKept();

    ASSERT_NO_THROW(SaveProject(f.workspace.project, f.target));
    EXPECT_EQ(readBytes(f.target), full);
}

#endif
